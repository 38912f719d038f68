#pragma once

#include "store/FormViews.h"

#include <QDate>
#include <QList>
#include <QString>

/// Saves rows as a chart, as the editor would, without a window; before any editor is opened.
void StoreChart(const QString& name, const QList<EditorRow>& rows,
                const QString& owner = QStringLiteral("Anna"),
                const QDate& first = QDate(2001, 3, 4), const QDate& last = QDate(2001, 3, 10),
                bool autoCreate = false);

/// Makers of charts past the store's own writing, straight in the file of the test's database: what
/// is under way in the store has to be committed before.

/// One row of a chart as it lies in the table, also such as no save stores.
struct PlainRow {
    QString job;
    QString day;
    int points = 5;
    bool completed = false;
};

/// Makes a chart or history table of these rows, in the place of any of that name. As in every
/// chart the owner and the week stand on the first row.
void MakePlainChart(const QString& name, const QList<PlainRow>& rows,
                    const QString& owner = QStringLiteral("Anna"),
                    const QDate& first = QDate(2001, 3, 4), const QDate& last = QDate(2001, 3, 10));

/// One row of a table that a report counts.
struct ChartRow {
    QString Instructions;
    bool Completed = false;
};

/// The same of rows that are all on Monday, for 5 points.
void MakeChartTable(const QString& name, const QList<ChartRow>& rows,
                    const QString& owner = QStringLiteral("Anna"),
                    const QDate& first = QDate(2001, 3, 4), const QDate& last = QDate(2001, 3, 10));

/// Sets a field of a row, 0 the first, to Null.
void SetNull(const QString& table, int row, int field);
