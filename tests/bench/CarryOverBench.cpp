#include "tests/bench/BenchTest.h"

#include <QDir>
#include <QFile>
#include <cstdio>

TEST_F(BenchTest, CarryingOverAFileOf6000Tables) {
    constexpr double limit = 2'000; // milliseconds
    OpenLargeDatabase();
    const QString former = FormerFile();
    std::vector<double> times;
    for (int run = 0; run < 5; ++run) {
        const QString folder = Path(QStringLiteral("Carried%1").arg(run));
        ASSERT_TRUE(QDir().mkpath(folder));
        const QString file = folder + QStringLiteral("/Charts.mdb");
        ASSERT_TRUE(QFile::copy(former, file));
        times.push_back(TimeOf([&] { TableStore::OpenDatabase(file); }));
    }
    const double median = Median(times);
    std::printf("%-44s %8.2f ms, less than %.0f ms\n", "carrying 6,000 tables over", median, limit);
    EXPECT_LT(median, limit);
}
