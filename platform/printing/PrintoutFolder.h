#pragma once

#include "platform/printing/Printer.h"

/// The paper of a machine without a printer: every job becomes a PDF file in the folder Printouts
/// beneath the program folder, named by date and time, and is opened in the system's viewer.
/// A file is there only when it is whole, and no file is ever written over.
class PrintoutFolder : public PrintTarget {
public:
    /// Makes the folder if it is missing; raises 482 if that fails.
    std::unique_ptr<QPagedPaintDevice> Open() override;
    /// Raises 482 if the file did not come out whole.
    void Sent() override;

private:
    /// Where the pages are painted before the file gets its name.
    QString draft_;
};
