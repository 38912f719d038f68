#include "platform/runtime/Dates.h"
#include "platform/runtime/Numbers.h"
#include "platform/runtime/RuntimeError.h"
#include "store/ChartFields.h"
#include "store/DatabaseCls.h"
#include "store/TableNames.h"
#include "support/DateCls.h"

namespace {

const QString SystemPrefix = QStringLiteral("MSys");
const QString HistoryPrefix = QStringLiteral("Hist");
const QString PrintedPrefix = QStringLiteral("Prin");

QString KeyOfOneWeekAgo() {
    DateCls date;
    date.SetValue(Today());
    date.Subtract(7, Days);
    return DateKey(date.Value());
}

} // namespace

bool DatabaseCls::IsChartName(const QString& tableName) {
    const QString prefix = KindPrefix(tableName);
    return prefix != SystemPrefix && tableName != UsersTable && prefix != HistoryPrefix &&
           prefix != PrintedPrefix;
}

bool DatabaseCls::SpanHolds(const QString& key) const {
    return Val(FirstDateKey) <= Val(key) && Val(LastDateKey) >= Val(key);
}

void DatabaseCls::DeleteChart(const QString& Name) {
    Tables().DeleteTable(Name);
}

bool DatabaseCls::CheckForDuplicates(const QString& Name) {
    const int count = Tables().TableCount();
    for (int index = 0; index < count; ++index)
        if (Tables().TableName(index) == Name)
            return true;
    return false;
}

void DatabaseCls::PopulateChartList(NameList& List, bool OwnOnly) {
    const QString today = DateKey(Today());
    const QString oneWeekAgo = KeyOfOneWeekAgo();
    const TableStore::Reading reading(Tables());
    // The names as they are before the walk: rolling a chart on drops and makes history tables,
    // which would move a chart behind them past the walk.
    QStringList charts;
    const int count = Tables().TableCount();
    for (int index = 0; index < count; ++index)
        if (IsChartName(Tables().TableName(index)))
            charts += Tables().TableName(index);

    for (const QString& name : charts) {
        if (!OwnOnly) {
            List.AddItem(name);
            continue;
        }
        ReadDates(name);
        if (SpanHolds(oneWeekAgo))
            RollOn(name);
        ReadDates(name);
        if (!SpanHolds(today))
            continue;
        Recordset rows = Tables().OpenRecordset(name);
        if (!rows.Eof())
            rows.MoveFirst();
        if (TextOf(rows.Value(ChartField::UserName)) == forms_.CurrentUserName())
            List.AddItem(name);
    }
}

QString DatabaseCls::ReturnExistingKidName(const QString& Name) {
    Recordset rows = Tables().OpenRecordset(Name);
    rows.MoveFirst();
    return TextOf(rows.Value(ChartField::UserName));
}

bool DatabaseCls::ReturnAutoCreate(const QString& Name) {
    bool autoCreate = false;
    WithErrorsSkipped([&] {
        Recordset rows = Tables().OpenRecordset(Name);
        if (rows.Eof())
            return;
        rows.MoveFirst();
        autoCreate = BooleanOf(rows.Value(ChartField::AutoCreate));
    });
    return autoCreate;
}

void DatabaseCls::ListByOwnerAndMonth(const QString& userName, NameList& list, bool history) {
    list.Clear();
    const int count = Tables().TableCount();
    for (int index = 0; index < count; ++index) {
        const QString name = Tables().TableName(index);
        const QString prefix = KindPrefix(name);
        const bool isHistory = prefix == HistoryPrefix;
        if (isHistory != history || prefix == SystemPrefix || name == UsersTable)
            continue;
        Recordset rows = Tables().OpenRecordset(name);
        if (!rows.Eof())
            rows.MoveFirst();
        // The month's number alone, of whatever year.
        if (TextOf(rows.Value(ChartField::UserName)) == userName &&
            DateOf(rows.Value(ChartField::FirstDate)).month() == Today().month())
            list.AddItem(rows.Name());
    }
}

void DatabaseCls::RetreveChartsAvailable(const QString& UserName, NameList& List) {
    ListByOwnerAndMonth(UserName, List, false);
}

void DatabaseCls::RetreveHistoryChartsAvailable(const QString& UserName, NameList& List) {
    ListByOwnerAndMonth(UserName, List, true);
}

void DatabaseCls::CreateChartNames(const QString& UserName, QStringList& Names,
                                   const QDate& StartDate, const QDate& EndDate) {
    qsizetype n = 0;
    const int count = Tables().TableCount();
    for (int index = 0; index < count; ++index) {
        const QString name = Tables().TableName(index);
        if (KindPrefix(name) != HistoryPrefix)
            continue;
        Recordset rows = Tables().OpenRecordset(name);
        if (rows.Eof())
            continue;
        rows.MoveFirst();
        const QString owner = TextOf(rows.Value(ChartField::UserName));
        const QDate first = DateOf(rows.Value(ChartField::FirstDate));
        if (owner == UserName && DateKey(StartDate) <= DateKey(first) &&
            DateKey(first) <= DateKey(EndDate) && first.month() == Today().month()) {
            // From the first find on the array ends at the last one, whatever it held before.
            Names.resize(n + 1);
            Names[n] = rows.Name();
            ++n;
        }
    }
}
