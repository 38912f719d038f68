#include "tests/bench/BenchTest.h"

#include "platform/runtime/Actions.h"
#include "platform/runtime/Dates.h"
#include "store/ChartFields.h"
#include "store/TableNames.h"
#include "tests/common/FormerFile.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>

namespace {

constexpr int Runs = 21;
constexpr int Attempts = 3;

const QDate FirstDate(2001, 3, 4);

void FillChart(TableStore& tables, const QString& name, const QString& owner, const QDate& first) {
    tables.CreateTable(name, ChartTableFields());
    Recordset rows = tables.OpenRecordset(name);
    for (int row = 0; row < 35; ++row) {
        rows.AddNew();
        rows.SetValue(ChartField::Instructions, QStringLiteral("Job number %1").arg(row / 7));
        rows.SetValue(ChartField::DayOfWeek, DayAbbreviation(row % 7 + 1));
        rows.SetValue(ChartField::AdultResponsable, QStringLiteral("Mum"));
        rows.SetValue(ChartField::Difficuly, QStringLiteral("Easy"));
        rows.SetValue(ChartField::Points, 5);
        if (row < 7) {
            rows.SetValue(ChartField::FirstDate, first);
            rows.SetValue(ChartField::LastDate, first.addDays(6));
            rows.SetValue(ChartField::UserName, owner);
            rows.SetValue(ChartField::AutoCreate, true);
        }
        rows.Update();
    }
}

} // namespace

QString BenchTest::ChildName(int child) {
    return QStringLiteral("Child%1").arg(child);
}

void BenchTest::OpenLargeDatabase() {
    static const QTemporaryDir madeIn;
    const QString made = madeIn.filePath(QStringLiteral("Charts.mdb"));
    const QString file = Path(QStringLiteral("Database/Charts.mdb"));
    ResetSession();
    if (!QFile::exists(made)) {
        const auto tables = TableStore::OpenDatabase(file);
        Recordset accounts = tables->OpenRecordset(UsersTable);
        for (int child = -2; child < Children; ++child) {
            accounts.AddNew();
            accounts.SetValue(AccountField::Name, child < 0 ? QStringLiteral("Parent%1").arg(-child)
                                                            : ChildName(child));
            accounts.SetValue(AccountField::Password, QStringLiteral("pw"));
            accounts.SetValue(AccountField::Points, 0);
            accounts.SetValue(AccountField::State,
                              child < 0 ? QStringLiteral("Teacher") : QStringLiteral("Student"));
            accounts.Update();
        }
        for (int chart = 0; chart < Charts; ++chart) {
            const QString owner = ChildName(chart % Children);
            const QString name = QStringLiteral("Chart%1 ").arg(chart / Children) + owner;
            FillChart(*tables, name, owner, FirstDate);
            for (int week = 1; week <= HistoryTables / Charts; ++week) {
                const QDate first = FirstDate.addDays(-7 * week);
                FillChart(*tables, QStringLiteral("History %1 from: %2").arg(name, DateText(first)),
                          owner, first);
            }
        }
        tables->Commit();
        ASSERT_TRUE(QFile::copy(file, made));
    } else {
        QFile::remove(file);
        ASSERT_TRUE(QFile::copy(made, file));
    }
    Database().InitDatabse();
}

QString BenchTest::PresentFile() {
    return Path(QStringLiteral("Database/Charts.mdb"));
}

QString BenchTest::FormerFile() {
    const QString file = Path(QStringLiteral("former.sqlite"));
    if (!QFile::exists(file))
        WriteFormerFile(file, PresentFile());
    return file;
}

double BenchTest::TimeOf(const std::function<void()>& work) {
    QElapsedTimer timer;
    timer.start();
    work();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

double BenchTest::Median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

BenchTest::Medians BenchTest::Measure(const std::function<double()>& program,
                                      const std::function<double()>& floor) {
    // The first run of each warms the caches and counts for nothing.
    program();
    floor();
    std::vector<double> programRuns;
    std::vector<double> floorRuns;
    for (int run = 0; run < Runs; ++run) {
        programRuns.push_back(program());
        floorRuns.push_back(floor());
    }
    return {Median(programRuns), Median(floorRuns)};
}

void BenchTest::ExpectRatio(const char* what, double limit, const std::function<Medians()>& measure,
                            const char* unit) {
    double ratio = 0;
    for (int attempt = 0; attempt < Attempts; ++attempt) {
        const Medians medians = measure();
        if (::testing::Test::HasFatalFailure())
            return;
        ratio = medians.Program / medians.Floor;
        std::printf("%-44s %8.2f %s, floor %8.2f %s, ratio %5.2f, at most %.2f\n", what,
                    medians.Program, unit, medians.Floor, unit, ratio, limit);
        std::fflush(stdout);
        if (ratio <= limit)
            return;
    }
    ADD_FAILURE() << what << ": " << ratio << " times the floor";
}

void BenchTest::ExpectTime(const char* what, double limit, const std::function<double()>& run) {
    double median = 0;
    for (int attempt = 0; attempt < Attempts; ++attempt) {
        // The first run warms the caches and counts for nothing.
        run();
        std::vector<double> times;
        for (int count = 0; count < Runs && !::testing::Test::HasFatalFailure(); ++count)
            times.push_back(run());
        if (::testing::Test::HasFatalFailure())
            return;
        median = Median(times);
        std::printf("%-44s %8.2f ms, best %8.2f ms, less than %.0f ms\n", what, median,
                    *std::min_element(times.begin(), times.end()), limit);
        std::fflush(stdout);
        if (median < limit)
            return;
    }
    ADD_FAILURE() << what << ": " << median << " ms";
}
