#include "platform/printing/PrintoutFolder.h"

#include "platform/printing/PrintNews.h"
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
#include <QPdfWriter>
#include <QRegularExpression>
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

/// Where nobody has said what the pages show.
QString Moment() {
    return Today().toString(Qt::ISODate) + QLatin1Char(' ') +
           QTime::currentTime().toString(QStringLiteral("HH-mm-ss"));
}

/// True for what a name may not hold on some system, or what nobody sees.
bool IsNoLetter(char32_t letter) {
    static const QString forbidden = QStringLiteral("/\\:*?\"<>|");
    return !QChar::isPrint(letter) ||
           (letter < 0x80 && forbidden.contains(QChar(static_cast<ushort>(letter))));
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

std::unique_ptr<QFile> PrintoutFolder::MakeDraft() {
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
    return file;
}

std::unique_ptr<QPagedPaintDevice> PrintoutFolder::Open() {
    std::unique_ptr<QFile> file = MakeDraft();
    auto device = std::make_unique<QPdfWriter>(file.get());
    file.release()->setParent(device.get());
    device->setPageSize(PaperOfTheCountry());
    device->setTitle(QCoreApplication::applicationName());
    return device;
}

QString PrintoutFolder::Publish(const QString& name) {
    constexpr int MostOfOneName = 1000;
    if (IsWholePdf(draft_)) {
        const QString legal = PrintoutName(name);
        const QString words = legal.isEmpty() ? Moment() : legal;
        for (int number = 1; number <= MostOfOneName; ++number) {
            const QString file =
                number == 1 ? words : QStringLiteral("%1 (%2)").arg(words).arg(number);
            const QString path = QStringLiteral("%1/%2.pdf").arg(FolderPath(), file);
            // Renaming never replaces a file, so that another copy of the program loses none.
            if (RenameToFreeName(draft_, path)) {
                draft_.clear();
                return path;
            }
        }
    }
    const RuntimeError fault =
        Fault(QStringLiteral("The printout cannot be written to %1"), FolderPath(), draft_);
    RemoveDraft();
    throw fault;
}

void PrintoutFolder::Sent(const QString& name) {
    const QString path = Publish(name);
    CurrentDesktop().ShellExecute(QStringLiteral("open"), path, 0);
    TellPrintNews({.File = path});
}

QString PrintoutFolder::Keep(const QByteArray& pdf, const QString& name) {
    MakeDraft()->write(pdf);
    return Publish(name);
}

QString PrintoutName(const QString& words) {
    QString name;
    for (const char32_t letter : words.normalized(QString::NormalizationForm_C).toUcs4())
        name += IsNoLetter(letter) ? QStringLiteral("-") : QString::fromUcs4(&letter, 1);
    // Dots at the beginning hide a file; at the end some systems drop them, and blanks.
    static const QRegularExpression edges(QStringLiteral("^[. ]+|[. ]+$"));
    name = name.simplified().remove(edges);
    // A name has 255 bytes, and there is to be room for a number and the ending.
    constexpr qsizetype MostBytes = 230;
    name.truncate(MostBytes);
    while (name.toUtf8().size() > MostBytes)
        name.chop(name.back().isLowSurrogate() ? 2 : 1);
    return name.remove(edges);
}

QPageSize PaperOfTheCountry() {
    const bool american = QLocale::system().measurementSystem() == QLocale::ImperialUSSystem;
    return QPageSize(american ? QPageSize::Letter : QPageSize::A4);
}
