#pragma once

#include <SQLiteCpp/SQLiteCpp.h>

#include <QString>
#include <QStringList>
#include <string>

/// The floor's side: the same work done by plain statements on a layout of the tables.
class PlainSql {
public:
    explicit PlainSql(const QString& file);
    virtual ~PlainSql() = default;
    PlainSql(const PlainSql&) = delete;
    PlainSql& operator=(const PlainSql&) = delete;

    /// Saves one chart a second time: it is copied to the history table, unticked, dropped, made
    /// anew and filled with rows for `jobs` jobs on five days each.
    virtual void SaveAgain(const std::string& chart, const std::string& history,
                           const std::string& owner, int jobs) = 0;

    /// The names of all charts.
    virtual QStringList ChartNames() = 0;

    /// The names of the charts of one owner whose first row's week holds `today` (YYYY-MM-DD),
    /// after a look whether one of them is due to move on from the week that holds `weekAgo`.
    virtual QStringList ChartsOf(const std::string& owner, const std::string& today,
                                 const std::string& weekAgo) = 0;

    /// Reads the first row of every history table, and all rows of those of one owner; the number
    /// of jobs done. On the layout of today also the period that is printed above it.
    virtual int ReadHistory(const std::string& owner) = 0;

    void Begin() { database_.exec("BEGIN IMMEDIATE"); }
    void Commit() { database_.exec("COMMIT"); }

protected:
    /// Adds the rows of a chart by a statement that takes the nine fields but Completed from
    /// parameter `first` on; `eachRow` binds what else it takes.
    template <class EachRow>
    static void InsertRows(SQLite::Statement& insert, int first, const std::string& owner, int jobs,
                           EachRow&& eachRow);

    SQLite::Database database_;
};

template <class EachRow>
void PlainSql::InsertRows(SQLite::Statement& insert, int first, const std::string& owner, int jobs,
                          EachRow&& eachRow) {
    for (int job = 0; job < jobs; ++job) {
        const std::string instructions = "Job number " + std::to_string(job);
        for (const char* day : {"Mon", "Tue", "Wed", "Thu", "Fri"}) {
            eachRow();
            insert.bindNoCopy(first, instructions);
            insert.bindNoCopy(first + 1, day);
            insert.bindNoCopy(first + 2, "Mum");
            insert.bindNoCopy(first + 3, "Easy");
            insert.bind(first + 4, 5);
            if (job == 0) {
                insert.bindNoCopy(first + 5, "2001-03-04");
                insert.bindNoCopy(first + 6, "2001-03-10");
                insert.bindNoCopy(first + 7, owner);
                insert.bind(first + 8, -1);
            } else {
                for (int field = first + 5; field <= first + 7; ++field)
                    insert.bind(field);
                insert.bind(first + 8, 0);
            }
            insert.exec();
            insert.reset();
        }
    }
}
