#include "tests/common/Charts.h"

#include "platform/runtime/ProgramFolder.h"
#include "platform/tables/TableStore.h"
#include "store/ChartFields.h"
#include "store/TableNames.h"
#include "tests/common/TestWorld.h"

namespace {

std::unique_ptr<TableStore> OpenFile() {
    return TableStore::OpenDatabase(InProgramFolder(QStringLiteral("Database/Charts.mdb")));
}

} // namespace

void StoreChart(const QString& name, const QList<EditorRow>& rows, const QString& owner,
                const QDate& first, const QDate& last, bool autoCreate) {
    FakeEditor editor;
    editor.rows = rows;
    Arrange([&] { Database().WriteInfoToChart(name, 0, false, owner, first, last, autoCreate); });
}

void MakePlainChart(const QString& name, const QList<PlainRow>& rows, const QString& owner,
                    const QDate& first, const QDate& last) {
    const auto tables = OpenFile();
    if (tables->HasTable(name))
        tables->DeleteTable(name);
    tables->CreateTable(name, ChartTableFields());
    Recordset table = tables->OpenRecordset(name);
    for (const PlainRow& row : rows) {
        table.AddNew();
        table.SetValue(ChartField::Instructions, row.job);
        table.SetValue(ChartField::DayOfWeek, row.day);
        table.SetValue(ChartField::Points, row.points);
        table.SetValue(ChartField::Completed, row.completed);
        if (&row == &rows.first()) {
            table.SetValue(ChartField::UserName, owner);
            table.SetValue(ChartField::FirstDate, first);
            table.SetValue(ChartField::LastDate, last);
        }
        table.Update();
    }
    tables->Commit();
}

void MakeChartTable(const QString& name, const QList<ChartRow>& rows, const QString& owner,
                    const QDate& first, const QDate& last) {
    QList<PlainRow> plain;
    for (const ChartRow& row : rows)
        plain += PlainRow{row.Instructions, QStringLiteral("Mon"), 5, row.Completed};
    MakePlainChart(name, plain, owner, first, last);
}

void SetNull(const QString& table, int row, int field) {
    const auto tables = OpenFile();
    Recordset rows = tables->OpenRecordset(table);
    while (row-- > 0)
        rows.MoveNext();
    rows.Edit();
    rows.SetValue(field, QVariant());
    rows.Update();
    tables->Commit();
}
