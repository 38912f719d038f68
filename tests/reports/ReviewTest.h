#pragma once

#include "reports/WeekChartRepresentation.h"
#include "tests/common/Charts.h"
#include "tests/common/FormTest.h"

#include <QListWidget>
#include <QScrollBar>

/// An adult, Mum, with the weekly review of the children's charts, on Wednesday 7 March 2001.
class ReviewTest : public FormTest {
protected:
    ReviewTest();

    static void MakeChart(const QString& name, const QList<PlainRow>& rows,
                          const QString& owner = QStringLiteral("Anna"));
    /// As many jobs, each on Monday and open.
    static QList<PlainRow> Jobs(int count);
    /// Puts the chart's week seven days back and lets it roll on by itself.
    static void MakeChartOfLastWeek(const QString& name);

    /// Opens the form as the menu does, and gives it.
    static void OpenByMenu();
    static WeekChartRepresentation& Open();
    /// Opens the form and clicks a chart.
    static WeekChartRepresentation& OpenOn(const QString& chart);
    /// Clicks a chart in the list of the open form.
    static void Choose(const QString& chart);

    static QListWidget& List();
    static QScrollBar& Scroll();
    static QWidget& Surface();
    static QWidget& Part(const char* name);
    static QStringList Listed();
    static QStringList Captions(const CellArray& cells);
    /// The cells of a line from Sunday to Saturday: "-" not scheduled, "o" open, a count if done.
    static QString CellsOf(const WeekChartRepresentation& form, int line);
    static QList<const CellArray*> DayArrays(const WeekChartRepresentation& form);
};
