#include "platform/runtime/Dates.h"
#include "platform/runtime/Numbers.h"
#include "platform/runtime/RuntimeError.h"
#include "store/ChartFields.h"
#include "store/ChartHistory.h"
#include "store/DatabaseCls.h"
#include "store/TableNames.h"
#include "support/DateCls.h"

#include <optional>
#include <utility>

namespace {

/// What a list asks of a chart's first row; the places in the list of fields.
const QStringList WeekFields = {QStringLiteral("FirstDate"), QStringLiteral("LastDate"),
                                QStringLiteral("UserName"), QStringLiteral("AutoCreate")};
namespace Week {
constexpr int FirstDate = 0;
constexpr int LastDate = 1;
constexpr int UserName = 2;
constexpr int AutoCreate = 3;
} // namespace Week

QString KeyOfOneWeekAgo() {
    DateCls date; // of today
    date.Subtract(7, Days);
    return DateKey(date.Value());
}

using NameFilter = bool (*)(const QString& tableName);

QStringList TableNamesWhere(TableStore& tables, NameFilter isWanted) {
    QStringList names = tables.TableNames();
    names.removeIf([isWanted](const QString& name) { return !isWanted(name); });
    return names;
}

/// True if the week that was read last holds the day of the key.
bool WeekReadHolds(const DatabaseCls& store, const QString& key) {
    return Val(store.FirstDateKey) <= Val(key) && Val(store.LastDateKey) >= Val(key);
}

void ListByOwnerAndMonth(TableStore& tables, const QString& userName, NameFilter isListed,
                         NameList& list) {
    const TableStore::Reading reading(tables);
    TableWalk rows = tables.WalkThrough(WeekFields);
    for (const QString& name : TableNamesWhere(tables, isListed)) {
        rows.Open(name);
        // The month's number alone, of whatever year.
        if (Holds(rows.Value(Week::UserName), userName) &&
            DateOf(rows.Value(Week::FirstDate)).month() == Today().month())
            list.AddItem(name);
    }
}

} // namespace

void DatabaseCls::DeleteChart(const QString& Name) {
    RefuseAccountsName(Name);
    Tables().DeleteTable(Name);
}

bool DatabaseCls::CheckForDuplicates(const QString& Name) {
    return Tables().TableNames().contains(Name);
}

void DatabaseCls::PopulateChartList(NameList& List, Mode OwnOnly) {
    const QString today = DateKey(Today());
    const QString oneWeekAgo = KeyOfOneWeekAgo();
    const TableStore::Reading reading(Tables());
    // The names as they are before the walk: rolling a chart on drops and makes history tables,
    // which would move a chart behind them past the walk.
    const QStringList charts = TableNamesWhere(Tables(), IsChart);
    if (OwnOnly.IsFalse()) {
        for (const QString& name : charts)
            List.AddItem(name);
        return;
    }
    if (!OwnOnly.IsTrue())
        return;

    TableWalk rows = Tables().WalkThrough(WeekFields);
    std::optional<std::pair<QVariant, QVariant>> kept;
    const auto readDates = [&] {
        if (rows.Eof())
            return;
        // Most charts are of one week, whose texts need not be made for each of them.
        std::pair<QVariant, QVariant> week(rows.Value(Week::FirstDate), rows.Value(Week::LastDate));
        if (week == kept)
            return;
        KeepDates(week.first, week.second);
        kept = std::move(week);
    };
    for (const QString& name : charts) {
        rows.Open(name);
        readDates();
        if (WeekReadHolds(*this, oneWeekAgo) && BooleanOf(rows.Value(Week::AutoCreate))) {
            rows.Leave();
            RollOn(*this, Tables(), name);
            rows.Open(name);
            readDates();
        }
        if (WeekReadHolds(*this, today) &&
            Holds(rows.Value(Week::UserName), forms_.CurrentUserName()))
            List.AddItem(name);
    }
}

QString DatabaseCls::ReturnExistingKidName(const QString& Name) {
    const Recordset rows = Tables().OpenRecordset(Name);
    return TextOf(rows.Value(ChartField::UserName));
}

bool DatabaseCls::ReturnAutoCreate(const QString& Name) {
    bool autoCreate = false;
    WithErrorsButFaultsSkipped([&] {
        Recordset rows = Tables().OpenRecordset(Name);
        if (!rows.Eof())
            autoCreate = BooleanOf(rows.Value(ChartField::AutoCreate));
    });
    return autoCreate;
}

void DatabaseCls::RetreveChartsAvailable(const QString& UserName, NameList& List) {
    List.Clear();
    ListByOwnerAndMonth(Tables(), UserName, IsChartOrPrinted, List);
}

void DatabaseCls::RetreveHistoryChartsAvailable(const QString& UserName, NameList& List) {
    List.Clear();
    ListByOwnerAndMonth(Tables(), UserName, IsHistory, List);
}

void DatabaseCls::CreateChartNames(const QString& UserName, QStringList& Names,
                                   const QDate& StartDate, const QDate& EndDate) {
    qsizetype n = 0;
    const TableStore::Reading reading(Tables());
    TableWalk rows = Tables().WalkThrough(WeekFields);
    for (const QString& name : TableNamesWhere(Tables(), IsHistory)) {
        rows.Open(name);
        if (rows.Eof())
            continue;
        const bool isOwn = Holds(rows.Value(Week::UserName), UserName);
        const QDate first = DateOf(rows.Value(Week::FirstDate));
        if (isOwn && DateKey(StartDate) <= DateKey(first) && DateKey(first) <= DateKey(EndDate) &&
            first.month() == Today().month()) {
            // From the first find on the array ends at the last one, whatever it held before.
            Names.resize(n + 1);
            Names[n] = name;
            ++n;
        }
    }
}
