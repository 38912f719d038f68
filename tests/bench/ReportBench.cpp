#include "tests/bench/BenchTest.h"
#include "tests/bench/PlainTables.h"

#include "platform/runtime/Actions.h"

#include <QFile>

namespace {

void WriteJobs(const QString& file, int count) {
    QFile list(file);
    ASSERT_TRUE(list.open(QIODevice::WriteOnly));
    for (int job = 0; job < count; ++job)
        list.write("Job number " + QByteArray::number(job) + "\r\n");
}

} // namespace

TEST_F(BenchTest, ReportOfAChildsWholeHistory) {
    OpenLargeDatabase();
    WriteJobs(Path(QStringLiteral("Jobs/HomeJobs.dat")), 100);
    PlainTables plain(Path(QStringLiteral("Database/Charts.mdb")));
    const QStringList all = {QStringLiteral("All")};
    ExpectRatio("a report of 100 jobs over 5,000 history tables", 3, [&] {
        return Measure(
            [&] {
                return TimeOf([&] {
                    RunAction([&] {
                        const QString period = Database().ReturnDateRange(ChildName(7), all);
                        Database().PrintReport2(ChildName(7), all, period);
                    });
                });
            },
            [&] { return TimeOf([&] { plain.ReadHistory(ChildName(7).toStdString()); }); });
    });
    EXPECT_FALSE(Paper.Files().isEmpty());
}
