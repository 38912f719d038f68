#include "platform/runtime/Actions.h"
#include "platform/runtime/Dates.h"
#include "store/DailyCopies.h"
#include "tests/bench/BenchTest.h"

#include <QFileInfo>

TEST_F(BenchTest, TheFirstChangeOfADayWaitsForItsCopy) {
    OpenLargeDatabase();
    KeepDailyCopies(true);
    QDate day = Today();
    ExpectTime("the day's first change with its copy", 250, [&] {
        SetToday(day = day.addDays(1));
        const double time =
            TimeOf([] { RunAction([] { Database().AddPoints(ChildName(3), 1, false); }); });
        FinishDailyCopy();
        return time;
    });
    // When the program rests: a click that comes meanwhile waits so long.
    ExpectTime("the check of that copy", 1000, [&] {
        SetToday(day = day.addDays(1));
        RunAction([] { Database().AddPoints(ChildName(3), 1, false); });
        return TimeOf(FinishDailyCopy);
    });
    EXPECT_TRUE(
        QFileInfo(Path(QStringLiteral("Backups/%1/Charts.mdb").arg(day.toString(Qt::ISODate))))
            .isFile());
    KeepDailyCopies(false);
}
