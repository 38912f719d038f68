#include "platform/runtime/Dates.h"
#include "tests/common/Rounds.h"
#include "tests/filling/FillingTest.h"
#include "tests/shell/ShellTest.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QPixmapCache>
#include <algorithm>
#include <functional>
#include <iostream>
#include <malloc.h>

namespace {

/// What the process holds at rest.
struct Held {
    qsizetype bytes;
    qsizetype handles;
    qsizetype widgets;
};

Held HeldNow() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    // The toolkit keeps what it has painted of pictures and icons, 10 MB at most, and lets the
    // oldest go: each log-in reads its pictures anew, so that this fills up for a thousand rounds.
    QPixmapCache::clear();
    const struct mallinfo2 memory = mallinfo2();
    return {static_cast<qsizetype>(memory.uordblks + memory.hblkhd),
            QDir(QStringLiteral("/proc/self/fd"))
                .entryList(QDir::NoDotAndDotDot | QDir::AllEntries)
                .size(),
            QApplication::allWidgets().size()};
}

/// Does something over and over and looks that nothing is held for each time, and that the later
/// times are no slower than the earlier ones.
void ExpectLevel(int rounds, const std::function<void(int round)>& use) {
    // Until fonts, styles and pictures have been read.
    constexpr int First = 4;
    for (int round = 0; round < First; ++round)
        use(round);
    const Held before = HeldNow();
    QList<qint64> times;
    for (int round = 0; round < rounds; ++round) {
        QElapsedTimer watch;
        watch.start();
        use(First + round);
        times += watch.elapsed();
    }
    const Held after = HeldNow();
    std::cout << "memory rose by " << after.bytes - before.bytes << " bytes in " << rounds
              << " rounds\n";
    // Of what earlier tests have left open some may be closed meanwhile.
    EXPECT_LE(after.handles, before.handles);
    EXPECT_EQ(after.widgets, before.widgets);
    constexpr qsizetype LargestOfARound = 1500; // bytes
    constexpr qsizetype Caches = 600'000;
    EXPECT_LE(after.bytes - before.bytes, Caches + rounds * LargestOfARound);

    const auto median = [](QList<qint64> some) {
        std::sort(some.begin(), some.end());
        return some.value(some.size() / 2);
    };
    // A busy machine is no reason to fail: only what grows with the rounds gets past this.
    constexpr int Enough = 100;
    if (rounds >= Enough) {
        EXPECT_LE(median(times.last(rounds / 4)), 3 * median(times.first(rounds / 4)) + 50);
    }
}

class LongUseTest : public ShellTest {};

TEST_F(LongUseTest, LogInsLeaveNothingBehind) {
    MakeAccount(QStringLiteral("Mum"), QStringLiteral("m"), QStringLiteral("Teacher"));
    MakeAccount(QStringLiteral("Kim"), QStringLiteral("k"), QStringLiteral("Student"));
    ShowLogIn();
    ExpectLevel(Rounds(6, 1000), [](int round) {
        LogInAs(round % 2 == 0 ? Teachers() : Students(), 0,
                round % 2 == 0 ? QStringLiteral("m") : QStringLiteral("k"));
        Choose(QLatin1String("LogOff"));
        WaitForActive(Default<LogIn>());
    });
}

class LongFillingTest : public FillingTest {};

TEST_F(LongFillingTest, OpenedChartsLeaveNothingBehind) {
    MakeChart(QStringLiteral("Chores Anna"), JobsOn(QStringLiteral("Wed"), 9));
    ExpectLevel(Rounds(8, 1000), [this](int) {
        ChartViewer& viewer = OpenChart(QStringLiteral("Chores Anna"));
        Click(viewer.ClearImg[0]);
        Click(viewer.CheckImg[0]);
        viewer.Unload();
        Settle();
    });
}

TEST_F(LongFillingTest, AYearOfDaysLeavesNothingBehindButItsHistory) {
    QList<Job> jobs;
    for (const char* day : {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"})
        jobs += Job{QStringLiteral("Bed"), QString::fromLatin1(day)};
    MakeChart(QStringLiteral("Chores Anna"), jobs);
    // Nobody reaches that goal in a year.
    SetGoal(QStringLiteral("Moon"), 30'000);
    const QDate firstDay(2001, 3, 7);
    const int days = Rounds(10, 361);
    ExpectLevel(days, [&](int round) {
        SetToday(firstDay.addDays(round));
        ChartViewer& viewer = OpenChart(QStringLiteral("Chores Anna"));
        Click(viewer.ClearImg[0]);
        viewer.Unload();
        Settle();
    });
    // Each of the days that were lived is worth five points, and each week that is past is kept.
    const int lived = days + 4;
    EXPECT_EQ(PointsIn(), QString::number(5 * lived));
    const int weeks = (lived + firstDay.dayOfWeek() % 7 - 1) / 7;
    EXPECT_EQ(TableNames().filter(QStringLiteral("History ")).size(), weeks);
}

} // namespace
