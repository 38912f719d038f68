#pragma once

#include "platform/printing/Printer.h"

/// The paper of a machine without a printer: every job becomes a PDF file in the folder Printouts
/// beneath the program folder, named by date and time, and is opened in the system's viewer.
/// A file is there only when it is whole, no file is ever written over, nothing is written through
/// a link, and nobody but its owner may read it.
class PrintoutFolder : public PrintTarget {
public:
    PrintoutFolder() = default;
    ~PrintoutFolder() override;
    PrintoutFolder(const PrintoutFolder&) = delete;
    PrintoutFolder& operator=(const PrintoutFolder&) = delete;

    /// Makes the folder if it is missing; raises 482 if that fails or nothing can be written there.
    std::unique_ptr<QPagedPaintDevice> Open() override;
    /// Raises 482 if the file did not come out whole.
    void Sent() override;

private:
    void RemoveDraft();

    /// Where the pages are painted before the file gets its name; "" where there is no such file.
    QString draft_;
};
