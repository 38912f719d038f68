#include "platform/printing/PrintoutFolder.h"

#include "platform/runtime/Dates.h"
#include "platform/runtime/Desktop.h"
#include "platform/runtime/FileFaults.h"
#include "platform/runtime/ProgramFolder.h"
#include "platform/runtime/WholeFiles.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QLocale>
#include <QPageSize>
#include <QPdfWriter>
#include <QTime>

namespace {

/// A fault of writing to a file in the folder, or of making the folder itself.
RuntimeError Fault(const QString& what, const QString& folder, const QString& file) {
    RuntimeError fault(ErrorNumber::PrinterError, what.arg(folder));
    // What the file is called meanwhile is of no interest.
    fault.SetAdvice(WhyNotWritten(file).replace(file, folder) +
                    QStringLiteral("\n\nWithout a printer the pages are kept as files there."));
    return fault;
}

/// A page may hold the passwords of all accounts.
constexpr QFile::Permissions OwnersAlone = QFile::ReadOwner | QFile::WriteOwner;

/// A PDF file ends in its trailer, unless the disk filled up on the way.
bool IsWholePdf(const QString& path) {
    constexpr qint64 TrailerBytes = 16;
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.size() > TrailerBytes &&
           file.seek(file.size() - TrailerBytes) && file.readAll().contains("%%EOF");
}

/// Gives the draft its name: date and time, and a number behind where that is taken. Renaming
/// never replaces a file, so that another copy of the program cannot lose one either.
QString Publish(const QString& draft, const QString& folder) {
    constexpr int MostInOneSecond = 1000;
    const QString moment = Today().toString(Qt::ISODate) + QLatin1Char(' ') +
                           QTime::currentTime().toString(QStringLiteral("HH-mm-ss"));
    for (int number = 1; number <= MostInOneSecond; ++number) {
        const QString name =
            number == 1 ? moment : QStringLiteral("%1 (%2)").arg(moment).arg(number);
        const QString path = QStringLiteral("%1/%2.pdf").arg(folder, name);
        if (RenameToFreeName(draft, path))
            return path;
    }
    throw Fault(QStringLiteral("The printout cannot be kept in %1"), folder, draft);
}

/// A file that goes again where nothing has been written to it: of a job that was forgotten.
class DraftFile : public QFile {
public:
    using QFile::QFile;
    ~DraftFile() override {
        if (size() == 0)
            remove();
    }
};

QString FolderPath() {
    return InProgramFolder(QStringLiteral("Printouts"));
}

/// Removes what printing that was killed has left; another copy's may still be written.
void RemoveLeftDrafts() {
    constexpr qint64 longestJob = 3600; // seconds
    const QDateTime before = QDateTime::currentDateTime().addSecs(-longestJob);
    for (const QFileInfo& draft :
         QDir(FolderPath())
             .entryInfoList({QStringLiteral("unfinished-*.tmp")}, QDir::Files | QDir::NoSymLinks))
        if (draft.lastModified() < before)
            QFile::remove(draft.filePath());
}

} // namespace

PrintoutFolder::~PrintoutFolder() {
    RemoveDraft();
}

void PrintoutFolder::RemoveDraft() {
    if (!draft_.isEmpty())
        QFile::remove(draft_);
    draft_.clear();
}

std::unique_ptr<QPagedPaintDevice> PrintoutFolder::Open() {
    if (!QDir().mkpath(FolderPath()))
        throw Fault(QStringLiteral("The folder %1 cannot be made"), FolderPath(), FolderPath());
    RemoveDraft();
    RemoveLeftDrafts();
    // A name that nobody foresees, and a file that nobody has laid there.
    const QString draft =
        QStringLiteral("%1/unfinished-%2.tmp").arg(FolderPath(), UnforeseenName());
    auto file = std::make_unique<DraftFile>(draft);
    if (!file->open(QIODevice::WriteOnly | QIODevice::NewOnly, OwnersAlone))
        throw Fault(QStringLiteral("The printout cannot be written to %1"), FolderPath(), draft);
    draft_ = draft;
    auto device = std::make_unique<QPdfWriter>(file.get());
    file.release()->setParent(device.get());
    const bool american = QLocale::system().measurementSystem() == QLocale::ImperialUSSystem;
    device->setPageSize(QPageSize(american ? QPageSize::Letter : QPageSize::A4));
    device->setTitle(QCoreApplication::applicationName());
    return device;
}

void PrintoutFolder::Sent() {
    if (!IsWholePdf(draft_)) {
        const RuntimeError fault =
            Fault(QStringLiteral("The printout cannot be written to %1"), FolderPath(), draft_);
        RemoveDraft();
        throw fault;
    }
    const QString path = Publish(draft_, FolderPath());
    draft_.clear();
    CurrentDesktop().ShellExecute(QStringLiteral("open"), path, 0);
}
