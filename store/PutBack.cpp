#include "store/PutBack.h"

#include "platform/runtime/Dates.h"
#include "platform/runtime/DraftFolder.h"
#include "platform/runtime/FileFaults.h"
#include "platform/runtime/ProgramFolder.h"
#include "platform/runtime/WholeFiles.h"
#include "platform/tables/Damage.h"
#include "platform/tables/TableStore.h"
#include "store/DailyCopies.h"
#include "store/ProgramFiles.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <filesystem>
#include <limits>

namespace {

constexpr int InUse = 70;
constexpr qint64 AnySize = std::numeric_limits<qint64>::max();

QString NoteFile() {
    return CopiesFolder() + QStringLiteral("/PuttingBack.txt");
}

QString DataFolder() {
    return QFileInfo(DatabaseFile()).path();
}

QString FolderOf(const QString& name) {
    return CopiesFolder() + QLatin1Char('/') + name;
}

/// What the engine keeps beside a database whose last change was interrupted. It belongs to that
/// file alone: to another one it would do harm.
QStringList FilesBeside(const QString& database) {
    return {database + QStringLiteral("-journal"), database + QStringLiteral("-wal"),
            database + QStringLiteral("-shm")};
}

/// "2001-03-08 14.30.05 before": what stood there when a copy was put back.
const QString KeptFormat = QStringLiteral("yyyy-MM-dd HH.mm.ss 'before'");

QDateTime TimeKept(const QString& name) {
    const QDateTime time = QDateTime::fromString(name, KeptFormat);
    return time.toString(KeptFormat) == name ? time : QDateTime();
}

bool IsCopy(const QString& name) {
    return DayOfCopy(name).isValid() || TimeKept(name).isValid();
}

bool IsPlain(const QString& path) {
    const QFileInfo info(path);
    return info.isFile() && !info.isSymLink() && info.isReadable() && info.isWritable();
}

bool IsThere(const QString& path) {
    const QFileInfo info(path);
    return info.exists() || info.isSymLink();
}

void Rename(const QString& from, const QString& to) {
    std::error_code fault;
    std::filesystem::rename(QFileInfo(from).filesystemFilePath(),
                            QFileInfo(to).filesystemFilePath(), fault);
    if (fault)
        throw WriteFault(ErrorNumber::PathFileAccessError, from);
}

void Remove(const QString& path) {
    if (!QFile::remove(path))
        throw WriteFault(ErrorNumber::PathFileAccessError, path);
}

/// Gives the name of what cannot be replaced or read free.
void SetAside(const QString& path) {
    const QString time = QDateTime::currentDateTime().toString(Qt::ISODateWithMs);
    Rename(path, path + QStringLiteral(" until ") + time);
}

/// Puts bytes in the place of a file. What is no file, or none that can be written, makes room.
void PutInPlace(const QString& path, const QByteArray& bytes) {
    QDir().mkpath(QFileInfo(path).path());
    if (IsThere(path) && !IsPlain(path))
        SetAside(path);
    ReplaceFile(path, bytes);
}

QString PlaceOf(const QString& fileInCopy) {
    if (fileInCopy == CopiedDatabase)
        return DatabaseFile();
    if (fileInCopy.endsWith(QLatin1String(".dat")))
        return InProgramFolder(QStringLiteral("Jobs/") + fileInCopy);
    return SettingsFile();
}

/// A database as the program would find it: its last change may have been interrupted, or it may be
/// of a former format. The change is taken back and the file carried over in one of its own; the
/// database itself stays as it is.
class WholeDatabase {
public:
    explicit WholeDatabase(const QString& path) : path_(path) {
        const QString journal = QStringLiteral("-journal");
        const bool isInterrupted = IsThere(path_ + journal);
        if (!isInterrupted && !TableStore::IsOfFormerFormat(path_))
            return;
        draft_ = std::make_unique<DraftFolder>(CopiesFolder(), path_);
        draft_->Write(CopiedDatabase, ReadWholeFile(path_, AnySize));
        if (isInterrupted)
            draft_->Write(CopiedDatabase + journal, ReadWholeFile(path_ + journal, AnySize));
        path_ = draft_->Path(CopiedDatabase);
        try {
            TableStore::OpenDatabase(path_);
        } catch (const RuntimeError&) {
            // Whoever reads it is told what it is that is damaged.
        }
    }

    const QString& Path() const { return path_; }

private:
    QString path_;
    std::unique_ptr<DraftFolder> draft_;
};

CopySummary SummaryOfWhole(const QString& database) {
    try {
        return SummaryOf(WholeDatabase(database).Path());
    } catch (const RuntimeError& error) {
        CopySummary summary;
        summary.Fault = error.Text();
        return summary;
    }
}

/// Makes a copy of all that can be read, sound or not; the files that cannot.
QStringList KeepWhatIsThere(const QString& rightsLike) {
    QStringList files = SettingsAndJobLists();
    for (const QString& file : QStringList(DatabaseFile()) + FilesBeside(DatabaseFile()))
        if (IsPlain(file))
            files += file;
    QStringList unreadable;
    DraftFolder draft(CopiesFolder(), rightsLike);
    for (const QString& file : files) {
        QByteArray bytes;
        try {
            bytes = ReadWholeFile(file, AnySize);
        } catch (const RuntimeError&) {
            unreadable += file;
            continue;
        }
        draft.Write(QFileInfo(file).fileName(), bytes);
    }
    if (unreadable.size() == files.size())
        return unreadable;
    QDateTime time(Today(), QTime::currentTime());
    while (IsThere(FolderOf(time.toString(KeptFormat))))
        time = time.addSecs(1);
    draft.TakeName(time.toString(KeptFormat));
    return unreadable;
}

void Finish() {
    if (!IsPuttingBack())
        return;
    const QString name = QString::fromUtf8(ReadWholeFile(NoteFile(), 1000));
    // A copy that somebody has removed meanwhile cannot be put back, and must stop no start.
    if (IsCopy(name) && QFileInfo(DatabaseOfCopy(name)).isFile()) {
        // Whatever is interrupted here begins anew: the copy stays as it is.
        const WholeDatabase whole(DatabaseOfCopy(name));
        for (const QString& file : FilesBeside(DatabaseFile()))
            if (IsThere(file))
                Remove(file);
        PutInPlace(DatabaseFile(), ReadWholeFile(whole.Path(), AnySize));
        const QDir copy(FolderOf(name));
        for (const QString& file :
             copy.entryList({QStringLiteral("*.dat"), QStringLiteral("Settings.txt")},
                            QDir::Files | QDir::NoSymLinks))
            PutInPlace(PlaceOf(file), ReadWholeFile(copy.filePath(file), AnySize));
    }
    Remove(NoteFile());
    if (!SyncPath(CopiesFolder()))
        throw WriteFault(ErrorNumber::PathFileAccessError, NoteFile());
}

std::unique_ptr<FolderUse> UseAlone() {
    QDir().mkpath(DataFolder());
    try {
        return FolderUse::Alone(DataFolder());
    } catch (const RuntimeError&) {
        throw WriteFault(ErrorNumber::PathFileAccessError, DatabaseFile());
    }
}

} // namespace

QStringList CopyNames() {
    QStringList names;
    for (const QString& name : QDir(CopiesFolder()).entryList(QDir::Dirs | QDir::NoSymLinks))
        if (IsCopy(name))
            names.prepend(name);
    return names;
}

QString CopyTitle(const QString& name) {
    const QString pattern = QStringLiteral("dddd, d MMMM yyyy");
    // English on every system, as the rest of the window.
    const QLocale english = QLocale::c();
    const QDateTime kept = TimeKept(name);
    return kept.isValid() ? english.toString(kept, pattern + QStringLiteral(", HH:mm"))
                          : english.toString(DayOfCopy(name), pattern);
}

QString DatabaseOfCopy(const QString& name) {
    return FolderOf(name) + QLatin1Char('/') + CopiedDatabase;
}

CopySummary SummaryOfCopy(const QString& name) {
    return SummaryOfWhole(DatabaseOfCopy(name));
}

CopySummary SummaryNow() {
    return TableStore::IsOfFormerFormat(DatabaseFile()) ? SummaryOfWhole(DatabaseFile())
                                                        : SummaryOf(DatabaseFile());
}

bool IsPuttingBack() {
    const QFileInfo note(NoteFile());
    return note.isFile() && !note.isSymLink();
}

void PutCopyBack(const QString& name) {
    const std::unique_ptr<FolderUse> use = UseAlone();
    if (!use)
        throw RuntimeError(InUse, QStringLiteral("Sparkit Dutygrid is still running. Please end "
                                                 "it, on this screen and for everyone else who "
                                                 "uses this computer, and try again."));
    Finish();
    const QStringList damage = FindDamage(WholeDatabase(DatabaseOfCopy(name)).Path());
    if (!damage.isEmpty())
        throw RuntimeError(ErrorNumber::EngineFault, damage.join(QLatin1Char('\n')));
    const QStringList unreadable =
        KeepWhatIsThere(IsPlain(DatabaseFile()) ? DatabaseFile() : DatabaseOfCopy(name));
    ReplaceFile(NoteFile(), name.toUtf8());
    for (const QString& file : unreadable)
        SetAside(file);
    Finish();
}

std::unique_ptr<FolderUse> UseData() {
    if (IsPuttingBack())
        if (const std::unique_ptr<FolderUse> alone = UseAlone())
            Finish();
    std::unique_ptr<FolderUse> use = FolderUse::Shared(DataFolder());
    if (!use)
        throw RuntimeError(InUse, QStringLiteral("Sparkit Dutygrid Restore is just putting back a "
                                                 "copy. Please start Sparkit Dutygrid again in a "
                                                 "moment."));
    return use;
}
