#pragma once

#include "platform/printing/Printer.h"

#include <QByteArray>
#include <QFile>
#include <QPageSize>

/// The paper of a machine without a printer: every job becomes a PDF file in the folder Printouts
/// beneath the program folder, named by what it shows, and is opened in the system's viewer.
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
    void Sent(const QString& name) override;

    /// Keeps pages that were made for a printer as such a file, which is not opened. Its path.
    /// Raises 482.
    QString Keep(const QByteArray& pdf, const QString& name);

private:
    /// A new draft, open for writing.
    std::unique_ptr<QFile> MakeDraft();
    /// Gives the draft its name if it is whole. Its path.
    QString Publish(const QString& name);
    void RemoveDraft();

    /// Where the pages are painted before the file gets its name; "" where there is no such file.
    QString draft_;
};

/// The words as the name of a file on any system, without an ending; "" if nothing of them is left.
QString PrintoutName(const QString& words);

/// The paper that people have where the user of the machine is.
QPageSize PaperOfTheCountry();
