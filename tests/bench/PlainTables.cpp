#include "tests/bench/PlainTables.h"

#include <stdexcept>
#include <vector>

namespace {

/// No name in the benches holds a quote.
std::string Quoted(const std::string& name) {
    return '"' + name + '"';
}

} // namespace

void PlainTables::MakeTable(const std::string& name) {
    database_.exec("CREATE TABLE " + Quoted(name) +
                   " (Instructions MEMO TEXT, DayOfWeek TEXT(255), AdultResponsable TEXT(255),"
                   " Difficuly TEXT(255), Points LONG INTEGER, Completed BOOLEAN INTEGER,"
                   " FirstDate DATE TEXT, LastDate DATE TEXT, UserName TEXT(255),"
                   " AutoCreate BOOLEAN INTEGER)");
}

void PlainTables::SaveAgain(const std::string& chart, const std::string& history,
                            const std::string& owner, int jobs) {
    database_.exec("DROP TABLE " + Quoted(history));
    MakeTable(history);
    {
        SQLite::Statement rows(database_, "SELECT * FROM " + Quoted(chart) + " ORDER BY rowid");
        SQLite::Statement copy(database_, "INSERT INTO " + Quoted(history) +
                                              " VALUES(?1,?2,?3,?4,?5,?6,?7,?8,?9,0)");
        while (rows.executeStep()) {
            for (int field = 0; field < 9; ++field) {
                const SQLite::Column value = rows.getColumn(field);
                if (value.isNull())
                    copy.bind(field + 1);
                else if (value.isInteger())
                    copy.bind(field + 1, value.getInt64());
                else
                    copy.bindNoCopy(field + 1, value.getText());
            }
            copy.exec();
            copy.reset();
        }
    }
    database_.exec("UPDATE " + Quoted(chart) + " SET Completed = 0");
    database_.exec("DROP TABLE " + Quoted(chart));
    MakeTable(chart);
    SQLite::Statement insert(database_, "INSERT INTO " + Quoted(chart) +
                                            " VALUES(?1,?2,?3,?4,?5,0,?6,?7,?8,?9)");
    InsertRows(insert, 1, owner, jobs, [] {});
}

QStringList PlainTables::ChartNames() {
    SQLite::Statement tables(database_, "SELECT name FROM sqlite_master WHERE type = 'table' AND"
                                        " name <> 'USERS' AND substr(name, 1, 4) NOT IN"
                                        " ('MSys', 'Hist', 'Prin') ORDER BY rowid");
    QStringList names;
    while (tables.executeStep())
        names += QString::fromUtf8(tables.getColumn(0).getText());
    return names;
}

QStringList PlainTables::ChartsOf(const std::string& owner, const std::string& today,
                                  const std::string& weekAgo) {
    // One read transaction: the cheapest way to run many statements.
    database_.exec("BEGIN");
    QStringList found;
    for (const QString& name : ChartNames()) {
        SQLite::Statement row(database_, "SELECT FirstDate, LastDate, UserName, AutoCreate FROM " +
                                             Quoted(name.toStdString()) +
                                             " ORDER BY rowid LIMIT 1");
        if (!row.executeStep())
            continue;
        const std::string first = row.getColumn(0).getText();
        const std::string last = row.getColumn(1).getText();
        if (first <= weekAgo && weekAgo <= last && row.getColumn(3).getInt() != 0)
            throw std::logic_error("a chart is due");
        if (first <= today && today <= last && owner == row.getColumn(2).getText())
            found += name;
    }
    database_.exec("COMMIT");
    return found;
}

int PlainTables::ReadHistory(const std::string& owner) {
    database_.exec("BEGIN");
    std::vector<std::string> names;
    {
        SQLite::Statement tables(database_, "SELECT name FROM sqlite_master WHERE type = 'table'"
                                            " AND substr(name, 1, 4) = 'Hist' ORDER BY rowid");
        while (tables.executeStep())
            names.emplace_back(tables.getColumn(0).getText());
    }
    int done = 0;
    for (const std::string& name : names) {
        SQLite::Statement row(database_, "SELECT Instructions, Completed, UserName FROM " +
                                             Quoted(name) + " ORDER BY rowid");
        if (!row.executeStep() || owner != row.getColumn(2).getText())
            continue;
        do {
            const std::string job = row.getColumn(0).getText();
            done += !job.empty() && row.getColumn(1).getInt() != 0 ? 1 : 0;
        } while (row.executeStep());
    }
    database_.exec("COMMIT");
    return done;
}
