#include "store/ChartHistory.h"

#include "platform/runtime/Numbers.h"
#include "store/ChartFields.h"
#include "store/TableNames.h"
#include "support/DateCls.h"

namespace {

/// All fields of a chart but AutoCreate: history does not roll on.
QStringList FieldsOfHistory() {
    QStringList names;
    for (const FieldDefinition& field : ChartTableFields())
        names += field.Name;
    names.removeAt(ChartField::AutoCreate);
    return names;
}

QDate OneWeekLater(const QDate& date) {
    DateCls moved;
    moved.SetValue(date);
    moved.Add(7, Days);
    return moved.Value();
}

} // namespace

void DatabaseCls::DuplicateChartHistory(const QString& Name) {
    RefuseAccountsName(Name);
    const Recordset chart = Tables().OpenRecordset(Name);
    const QString historyName = HistoryName(Name, TextOf(chart.Value(ChartField::FirstDate)));
    if (ChartExist(historyName))
        Tables().DeleteTable(historyName);
    CreateChart(historyName);
    Tables().CopyRows(Name, historyName, FieldsOfHistory());
}

void RollOn(DatabaseCls& store, TableStore& tables, const QString& name) {
    Recordset rows = tables.OpenRecordset(name);
    if (!BooleanOf(rows.Value(ChartField::AutoCreate)))
        return;
    // The copy before the unticking, so that history holds the week's ticks.
    store.DuplicateChartHistory(name);
    store.ClearChartPoints(name);
    rows.Edit();
    rows.SetValue(ChartField::FirstDate, OneWeekLater(DateOf(rows.Value(ChartField::FirstDate))));
    rows.SetValue(ChartField::LastDate, OneWeekLater(DateOf(rows.Value(ChartField::LastDate))));
    rows.Update();
}
