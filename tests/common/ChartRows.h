#pragma once

#include "platform/runtime/ProgramFolder.h"
#include "session/Session.h"
#include "store/ChartFields.h"
#include "store/TableNames.h"

#include <QDate>
#include <QList>

/// One row of a table that a report counts.
struct ChartRow {
    QString Instructions;
    bool Completed = false;
};

/// Makes a chart or history table straight in the file. As in every chart the owner and the week
/// stand on the first row.
inline void MakeChartTable(const QString& name, const QList<ChartRow>& rows,
                           const QString& owner = QStringLiteral("Anna"),
                           const QDate& first = QDate(2001, 3, 4),
                           const QDate& last = QDate(2001, 3, 10)) {
    Database().Commit();
    const auto tables =
        TableStore::OpenDatabase(InProgramFolder(QStringLiteral("Database/Charts.mdb")));
    tables->CreateTable(name, ChartTableFields());
    Recordset table = tables->OpenRecordset(name);
    for (const ChartRow& row : rows) {
        table.AddNew();
        table.SetValue(ChartField::Instructions, row.Instructions);
        table.SetValue(ChartField::DayOfWeek, QStringLiteral("Mon"));
        table.SetValue(ChartField::Points, 5);
        table.SetValue(ChartField::Completed, row.Completed);
        if (&row == &rows.first()) {
            table.SetValue(ChartField::UserName, owner);
            table.SetValue(ChartField::FirstDate, first);
            table.SetValue(ChartField::LastDate, last);
        }
        table.Update();
    }
    tables->Commit();
}
