#include "platform/runtime/Numbers.h"
#include "store/ChartFields.h"
#include "store/DatabaseCls.h"
#include "support/DateCls.h"

namespace {

QDate OneWeekLater(const QDate& date) {
    DateCls moved;
    moved.SetValue(date);
    moved.Add(7, Days);
    return moved.Value();
}

} // namespace

void DatabaseCls::DuplicateChartHistory(const QString& Name) {
    Recordset chart = Tables().OpenRecordset(Name);
    if (!chart.Eof())
        chart.MoveFirst();
    const QString historyName = QStringLiteral("History ") + Name + QStringLiteral(" from: ") +
                                TextOf(chart.Value(ChartField::FirstDate));
    if (ChartExist(historyName))
        Tables().DeleteTable(historyName);
    CreateChart(historyName);
    Recordset history = Tables().OpenRecordset(historyName);
    for (; !chart.Eof(); chart.MoveNext()) {
        history.AddNew();
        for (int field = ChartField::Instructions; field <= ChartField::UserName; ++field)
            history.SetValue(field, chart.Value(field));
        history.Update();
    }
}

/// Moves a chart of the week just past to the next week, if it rolls on by itself. The copy comes
/// before the unticking, so that history holds the week's ticks.
void DatabaseCls::RollOn(const QString& name) {
    Recordset rows = Tables().OpenRecordset(name);
    rows.MoveFirst();
    if (!BooleanOf(rows.Value(ChartField::AutoCreate)))
        return;
    DuplicateChartHistory(name);
    ClearChartPoints(name);
    rows.Edit();
    rows.SetValue(ChartField::FirstDate, OneWeekLater(DateOf(rows.Value(ChartField::FirstDate))));
    rows.SetValue(ChartField::LastDate, OneWeekLater(DateOf(rows.Value(ChartField::LastDate))));
    rows.Update();
}
