#include "tests/bench/PlainRows.h"

#include <algorithm>
#include <cctype>
#include <stdexcept>

namespace {

/// Where the rows of charts stand; the accounts' table was made before the first chart.
const std::string Rows = "Rows2";

/// All names in the benches are plain ones.
std::string Folded(std::string name) {
    std::transform(name.begin(), name.end(), name.begin(),
                   [](unsigned char letter) { return std::tolower(letter); });
    return name;
}

void BindRange(SQLite::Statement& statement, int first, int64_t id) {
    statement.bind(first, id << 32);
    statement.bind(first + 1, (id << 32) | 0xffffffff);
}

} // namespace

int64_t PlainRows::IdOf(const std::string& name) {
    SQLite::Statement entry(database_, "SELECT Id FROM Catalogue WHERE FoldedName = ?1");
    entry.bind(1, Folded(name));
    return entry.executeStep() ? entry.getColumn(0).getInt64() : 0;
}

void PlainRows::Drop(const std::string& name) {
    const int64_t id = IdOf(name);
    SQLite::Statement rows(database_, "DELETE FROM " + Rows + " WHERE Key BETWEEN ?1 AND ?2");
    BindRange(rows, 1, id);
    rows.exec();
    SQLite::Statement entry(database_, "DELETE FROM Catalogue WHERE Id = ?1");
    entry.bind(1, id);
    entry.exec();
}

int64_t PlainRows::Make(const std::string& name) {
    SQLite::Statement entry(database_,
                            "INSERT INTO Catalogue(Name, FoldedName, Shape) VALUES(?1, ?2, 2)");
    entry.bind(1, name);
    entry.bind(2, Folded(name));
    entry.exec();
    return database_.getLastInsertRowid();
}

void PlainRows::SaveAgain(const std::string& chart, const std::string& history,
                          const std::string& owner, int jobs) {
    Drop(history);
    const int64_t copyId = Make(history);
    const int64_t id = IdOf(chart);
    SQLite::Statement copy(
        database_, "INSERT INTO " + Rows +
                       " SELECT Key + ?3, Instructions, DayOfWeek, AdultResponsable, Difficuly,"
                       " Points, Completed, FirstDate, LastDate, UserName, 0 FROM " +
                       Rows + " WHERE Key BETWEEN ?1 AND ?2 ORDER BY Key");
    BindRange(copy, 1, id);
    copy.bind(3, (copyId - id) << 32);
    copy.exec();
    SQLite::Statement clear(database_,
                            "UPDATE " + Rows + " SET Completed = 0 WHERE Key BETWEEN ?1 AND ?2");
    BindRange(clear, 1, id);
    clear.exec();
    Drop(chart);
    int64_t key = Make(chart) << 32;
    SQLite::Statement insert(database_,
                             "INSERT INTO " + Rows + " VALUES(?1,?2,?3,?4,?5,?6,0,?7,?8,?9,?10)");
    InsertRows(insert, 2, owner, jobs, [&] { insert.bind(1, ++key); });
}

QStringList PlainRows::ChartNames() {
    SQLite::Statement tables(database_, "SELECT Name FROM Catalogue WHERE Name <> 'USERS' AND"
                                        " substr(Name, 1, 4) NOT IN ('MSys', 'Hist', 'Prin')"
                                        " ORDER BY FoldedName");
    QStringList names;
    while (tables.executeStep())
        names += QString::fromUtf8(tables.getColumn(0).getText());
    return names;
}

QStringList PlainRows::ChartsOf(const std::string& owner, const std::string& today,
                                const std::string& weekAgo) {
    database_.exec("BEGIN");
    QStringList found;
    SQLite::Statement tables(database_, "SELECT Name, Id FROM Catalogue WHERE Name <> 'USERS' AND"
                                        " substr(Name, 1, 4) NOT IN ('MSys', 'Hist', 'Prin')"
                                        " ORDER BY FoldedName");
    SQLite::Statement row(database_, "SELECT FirstDate, LastDate, UserName, AutoCreate FROM " +
                                         Rows +
                                         " WHERE Key BETWEEN ?1 AND ?2 ORDER BY Key LIMIT 1");
    while (tables.executeStep()) {
        const QString name = QString::fromUtf8(tables.getColumn(0).getText());
        row.reset();
        BindRange(row, 1, tables.getColumn(1).getInt64());
        if (!row.executeStep())
            continue;
        const std::string first = row.getColumn(0).getText();
        const std::string last = row.getColumn(1).getText();
        if (first <= weekAgo && weekAgo <= last && row.getColumn(3).getInt() != 0)
            throw std::logic_error("a chart is due");
        if (first <= today && today <= last && owner == row.getColumn(2).getText())
            found += name;
    }
    row.reset();
    tables.reset();
    database_.exec("COMMIT");
    return found;
}

int PlainRows::ReadHistory(const std::string& owner) {
    database_.exec("BEGIN");
    int done = 0;
    {
        // The period of a report on everything is that of all tables but the accounts'.
        SQLite::Statement all(database_, "SELECT Id FROM Catalogue WHERE substr(Name, 1, 4)"
                                         " NOT IN ('USER', 'MSys') ORDER BY FoldedName");
        SQLite::Statement week(database_, "SELECT FirstDate, LastDate FROM " + Rows +
                                              " WHERE Key BETWEEN ?1 AND ?2 ORDER BY Key LIMIT 1");
        std::string first = "9999";
        std::string last;
        while (all.executeStep()) {
            week.reset();
            BindRange(week, 1, all.getColumn(0).getInt64());
            if (!week.executeStep())
                continue;
            first = std::min(first, week.getColumn(0).getString());
            last = std::max(last, week.getColumn(1).getString());
        }
    }
    {
        SQLite::Statement tables(database_, "SELECT Id FROM Catalogue WHERE"
                                            " substr(Name, 1, 4) = 'Hist' ORDER BY FoldedName");
        SQLite::Statement row(database_, "SELECT Instructions, Completed, UserName FROM " + Rows +
                                             " WHERE Key BETWEEN ?1 AND ?2 ORDER BY Key");
        while (tables.executeStep()) {
            row.reset();
            BindRange(row, 1, tables.getColumn(0).getInt64());
            if (!row.executeStep() || owner != row.getColumn(2).getText())
                continue;
            do {
                const std::string job = row.getColumn(0).getText();
                done += !job.empty() && row.getColumn(1).getInt() != 0 ? 1 : 0;
            } while (row.executeStep());
        }
    }
    database_.exec("COMMIT");
    return done;
}
