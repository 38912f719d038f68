#include "store/DailyCopies.h"

#include "platform/runtime/Actions.h"
#include "platform/runtime/Dates.h"
#include "platform/runtime/DraftFolder.h"
#include "platform/runtime/FileFaults.h"
#include "platform/runtime/ProgramFolder.h"
#include "platform/runtime/Prompts.h"
#include "platform/runtime/WholeFiles.h"
#include "platform/tables/Damage.h"
#include "platform/tables/TableStore.h"
#include "store/ProgramFiles.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSet>
#include <QStorageInfo>
#include <QTimer>
#include <algorithm>
#include <functional>
#include <memory>
#include <utility>

namespace {

constexpr int DaysKept = 7;
constexpr int WeeksKept = 4;
constexpr int MonthsKept = 12;

struct CopyingState {
    bool keeps = false;
    bool isFailureTold = false;
    bool isLeftOutTold = false;
    /// The day whose copy has been made or tried.
    QDate tried;
    /// The copy that is not yet checked.
    std::unique_ptr<DraftFolder> draft;
    /// What could not go into it.
    QStringList leftOut;
};

CopyingState& State() {
    static CopyingState state;
    return state;
}

/// When the action under way is over: a box in the midst of it would let other things happen.
void TellOnce(bool& isTold, const QString& text) {
    if (std::exchange(isTold, true))
        return;
    QTimer::singleShot(0, qApp, [text] {
        RunAction([&] {
            if (!IsProcessEnding())
                Tell(text, PromptIcon::Exclamation);
        });
    });
}

void TellFailure(const QString& reason) {
    TellOnce(State().isFailureTold,
             QStringLiteral("Today's safety copy of your accounts and Dutygrids could not be "
                            "made.\n\n%1\n\nWhat you do is stored as always, and the copies of "
                            "earlier days are still there.")
                 .arg(reason));
}

void TellLeftOut() {
    if (!State().leftOut.isEmpty())
        TellOnce(State().isLeftOutTold,
                 QStringLiteral("Today's safety copy holds your accounts and Dutygrids, but not "
                                "these files, which cannot be read or are too large:\n\n%1")
                     .arg(State().leftOut.join(QLatin1Char('\n'))));
}

/// Whether a list of jobs or the settings can go into a copy. That one of them cannot for good must
/// not keep the accounts from being copied.
bool CanBeCopied(const QString& file) {
    return MayRead(file) && QFileInfo(file).size() <= LargestSmallFile;
}

/// Why nothing could be written, in words for the one who sits there.
QString WhyNot(const RuntimeError& error) {
    const QString folder = QDir::toNativeSeparators(CopiesFolder());
    const QStorageInfo disk(QFileInfo::exists(CopiesFolder()) ? CopiesFolder() : ProgramFolder());
    constexpr qint64 spare = qint64{1} << 20; // bytes
    if (disk.isValid() && disk.bytesAvailable() < QFileInfo(DatabaseFile()).size() + spare)
        return QStringLiteral("There is no room left on the disk. Please delete something that "
                              "you no longer need.");
    if (error.Number() == static_cast<int>(ErrorNumber::PathFileAccessError) ||
        error.Number() == static_cast<int>(ErrorNumber::PathNotFound))
        return QStringLiteral("Nothing can be stored in the folder %1. Please ask the person who "
                              "looks after this computer.")
            .arg(folder);
    return QStringLiteral("The computer says: %1 (%2)").arg(error.Text(), folder);
}

QList<QDate> KeptOf(QList<QDate> days) {
    std::sort(days.begin(), days.end(), std::greater<>());
    QSet<int> weeks;
    QSet<int> months;
    QList<QDate> kept;
    int older = 0;
    for (const QDate& day : std::as_const(days)) {
        int year = 0;
        const int week = day.weekNumber(&year);
        const int weekKey = year * 100 + week;
        const int monthKey = day.year() * 100 + day.month();
        bool isKept = older++ < DaysKept;
        if (weeks.size() < WeeksKept && !weeks.contains(weekKey)) {
            weeks += weekKey;
            isKept = true;
        }
        if (months.size() < MonthsKept && !months.contains(monthKey)) {
            months += monthKey;
            isKept = true;
        }
        if (isKept)
            kept += day;
    }
    return kept;
}

void RemoveOldCopies() {
    QList<QDate> days;
    const QDir folder(CopiesFolder());
    for (const QString& name : folder.entryList(QDir::Dirs | QDir::NoSymLinks))
        if (const QDate day = DayOfCopy(name); day.isValid())
            days += day;
    const QList<QDate> kept = CopiesToKeep(days, Today());
    for (const QDate& day : days)
        if (!kept.contains(day))
            // One that another user has made may have to stay.
            RemoveFolder(folder.filePath(day.toString(Qt::ISODate)));
}

bool HasCopyOf(const QDate& day) {
    const QFileInfo copy(CopiesFolder() + QLatin1Char('/') + day.toString(Qt::ISODate));
    return copy.isDir() && !copy.isSymLink();
}

} // namespace

void KeepDailyCopies(bool keep) {
    FinishDailyCopy();
    State() = CopyingState();
    State().keeps = keep;
}

QString CopiesFolder() {
    return InProgramFolder(QStringLiteral("Backups"));
}

QDate DayOfCopy(const QString& name) {
    const QDate day = QDate::fromString(name, Qt::ISODate);
    return day.toString(Qt::ISODate) == name ? day : QDate();
}

QList<QDate> CopiesToKeep(const QList<QDate>& days, const QDate& today) {
    QList<QDate> past;
    QList<QDate> future;
    for (const QDate& day : days)
        (day > today ? future : past) += day;
    return KeptOf(future) + KeptOf(past);
}

void CopyBeforeChange(TableStore& tables) {
    CopyingState& state = State();
    if (!state.keeps || state.tried == Today())
        return;
    FinishDailyCopy();
    state.tried = Today();
    try {
        // A file just made holds nothing to keep.
        if (HasCopyOf(Today()) || tables.TableCount() == 0)
            return;
        auto draft = std::make_unique<DraftFolder>(CopiesFolder(), DatabaseFile());
        tables.CopyTo(draft->MakeFile(CopiedDatabase));
        state.leftOut.clear();
        for (const QString& file : SettingsAndJobLists())
            if (CanBeCopied(file))
                draft->Write(QFileInfo(file).fileName(), ReadWholeFile(file, LargestSmallFile));
            else
                state.leftOut += QDir::toNativeSeparators(file);
        state.draft = std::move(draft);
        QTimer::singleShot(0, qApp, FinishDailyCopy);
    } catch (const RuntimeError& error) {
        TellFailure(WhyNot(error));
    }
}

void FinishDailyCopy() {
    const std::unique_ptr<DraftFolder> draft = std::move(State().draft);
    if (!draft)
        return;
    if (!FindDamage(draft->Path(CopiedDatabase)).isEmpty()) {
        TellFailure(QStringLiteral("The copy did not pass its check, so the file itself may be "
                                   "damaged. Please end the program and start \"Sparkit Dutygrid "
                                   "Restore\", which can put back the copy of an earlier day."));
        return;
    }
    try {
        draft->TakeName(State().tried.toString(Qt::ISODate));
        TellLeftOut();
        RemoveOldCopies();
    } catch (const RuntimeError& error) {
        // Another copy of the program may have been quicker.
        if (!HasCopyOf(State().tried))
            TellFailure(WhyNot(error));
    }
}
