#pragma once

#include "session/Session.h"
#include "store/ChartFields.h"
#include "tests/common/TestWorld.h"

/// One row of a chart as it lies in the table, also such as no save stores.
struct PlainRow {
    QString job;
    QString day;
    int points = 5;
    bool completed = false;
};

/// Makes a chart of these rows for the week of Sunday 4 March 2001, past the store's own writing.
/// `file`: path of the database.
inline void MakePlainChart(const QString& file, const QString& name, const QList<PlainRow>& rows,
                           const QString& owner = QStringLiteral("Anna")) {
    Database().CreateChart(name);
    Database().Commit();
    const auto tables = TableStore::OpenDatabase(file);
    Recordset table = tables->OpenRecordset(name);
    for (const PlainRow& row : rows) {
        table.AddNew();
        table.SetValue(ChartField::Instructions, row.job);
        table.SetValue(ChartField::DayOfWeek, row.day);
        table.SetValue(ChartField::Points, row.points);
        table.SetValue(ChartField::Completed, row.completed);
        table.SetValue(ChartField::FirstDate, QDate(2001, 3, 4));
        table.SetValue(ChartField::LastDate, QDate(2001, 3, 10));
        table.SetValue(ChartField::UserName, owner);
        table.Update();
    }
    tables->Commit();
}
