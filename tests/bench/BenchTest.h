#pragma once

#include "tests/common/Charts.h"
#include "tests/common/FormTest.h"

#include <functional>
#include <vector>

/// A fixture for comparisons of the program with the least that does the same work.
class BenchTest : public FormTest {
protected:
    static constexpr int Children = 30;
    static constexpr int Charts = 1000;
    static constexpr int HistoryTables = 5000;

    /// Puts a database with the children, 1,000 charts and 5,000 history tables in the place of
    /// the test's and opens it. The charts' week holds today.
    void OpenLargeDatabase();

    static QString ChildName(int child);

    /// The test's database file.
    static QString PresentFile();
    /// The same tables in the former format, a table of the engine for each of them.
    static QString FormerFile();

    /// One run of each kind at a time, so that both meet the same weather; milliseconds.
    struct Medians {
        double Program = 0;
        double Floor = 0;
    };
    static Medians Measure(const std::function<double()>& program,
                           const std::function<double()>& floor);

    /// Fails the test if the program takes more than `limit` times the floor. A machine that is
    /// busy with other things gets two more chances.
    static void ExpectRatio(const char* what, double limit, const std::function<Medians()>& measure,
                            const char* unit = "ms");

    /// Fails the test if the median of 21 runs is not below `limit` milliseconds. `run` gives the
    /// time of one. A machine that is busy with other things gets two more chances.
    static void ExpectTime(const char* what, double limit, const std::function<double()>& run);

    /// Wall time of a piece of work, milliseconds.
    static double TimeOf(const std::function<void()>& work);

    static double Median(std::vector<double> values);
};
