#include "tests/bench/BenchTest.h"
#include "tests/bench/PlainRows.h"
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
    const QStringList all = {QStringLiteral("All")};
    const auto expect = [&](const char* what, double limit, PlainSql& plain) {
        ExpectRatio(what, limit, [&] {
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
    };
    PlainTables tables(FormerFile());
    expect("a report on all history, to a table a chart", 1.0, tables);
    PlainRows rows(PresentFile());
    expect("a report on all history, to this layout", 1.7, rows);
    EXPECT_FALSE(Paper.Files().isEmpty());
}
