#pragma once

#include <SQLiteCpp/SQLiteCpp.h>

#include <QString>
#include <QStringList>
#include <string>

/// The floor's side: the same file format worked on by plain statements.
class PlainTables {
public:
    explicit PlainTables(const QString& file);

    /// Saves one chart a second time: its table is copied to the history table, unticked, dropped,
    /// made anew and filled with rows for `jobs` jobs on five days each.
    void SaveAgain(const std::string& chart, const std::string& history, const std::string& owner,
                   int jobs);

    /// The names of all charts.
    QStringList ChartNames();

    /// The names of the charts of one owner whose first row's week holds `today` (YYYY-MM-DD),
    /// after a look whether one of them is due to move on from the week that holds `weekAgo`.
    QStringList ChartsOf(const std::string& owner, const std::string& today,
                         const std::string& weekAgo);

    /// Reads the first row of every history table, and all rows of those of one owner; the number
    /// of jobs done.
    int ReadHistory(const std::string& owner);

    void Begin() { database_.exec("BEGIN IMMEDIATE"); }
    void Commit() { database_.exec("COMMIT"); }

private:
    void MakeTable(const std::string& name);

    SQLite::Database database_;
};
