#pragma once

#include "platform/printing/PrintoutFolder.h"

/// The printer of the program: the system's default printer with its own settings, or the folder
/// of printouts where no printer is installed.
class SystemPrinter : public PrintTarget {
public:
    std::unique_ptr<QPagedPaintDevice> Open() override;
    void Sent() override;

private:
    PrintoutFolder printouts_;
    /// Whether the device opened last is a file of the folder.
    bool onFile_ = false;
};
