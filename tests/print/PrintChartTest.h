#pragma once

#include "platform/runtime/RuntimeError.h"
#include "store/ChartFields.h"
#include "store/TableNames.h"
#include "tests/common/PrintedPages.h"
#include "tests/common/TestWorld.h"
#include "tests/print/RecordedPaper.h"

#include <cmath>

/// What reading a page costs in exactness, in grid units.
inline constexpr double Near = 0.07;

inline const QString Chart = QStringLiteral("Chores");
inline const QString Kid = QStringLiteral("Anna");

/// One row of a chart.
struct Job {
    QString Instructions;
    QString Day;
    int Points = 5;
    bool Completed = false;
};

/// A fixture for printed charts.
class PrintChartTest : public ProgramTest {
protected:
    /// A chart of the week from 4 to 10 March 2001; as in every chart only its first row has the
    /// dates.
    static void MakeChart(const QList<Job>& jobs, const QString& name = Chart) {
        const auto tables = Tables();
        tables->CreateTable(name, ChartTableFields());
        Recordset rows = tables->OpenRecordset(name);
        for (const Job& job : jobs) {
            rows.AddNew();
            rows.SetValue(ChartField::Instructions, job.Instructions);
            rows.SetValue(ChartField::DayOfWeek, job.Day);
            rows.SetValue(ChartField::Points, job.Points);
            rows.SetValue(ChartField::Completed, job.Completed);
            if (&job == &jobs.first()) {
                rows.SetValue(ChartField::FirstDate, QDate(2001, 3, 4));
                rows.SetValue(ChartField::LastDate, QDate(2001, 3, 10));
            }
            rows.Update();
        }
        tables->Commit();
    }

    static QList<Job> Jobs(const QString& day, int count) {
        QList<Job> jobs;
        for (int number = 1; number <= count; ++number)
            jobs.append({QStringLiteral("%1job%2").arg(day).arg(number), day, number});
        return jobs;
    }

    /// Sets a field of a row of the chart to Null.
    static void SetNull(int row, int field) {
        const auto tables = Tables();
        Recordset rows = tables->OpenRecordset(Chart);
        while (row-- > 0)
            rows.MoveNext();
        rows.Edit();
        rows.SetValue(field, QVariant());
        rows.Update();
        tables->Commit();
    }

    PrintedPages Print(bool blankBoxes = false, const QString& openMark = QString()) {
        Database().PrintChart(Chart, blankBoxes, Kid, openMark);
        return PrintedPages(Paper.Files().last());
    }

    /// All that is drawn, in its order and also where no reader of the paper could tell it apart.
    QList<RecordedPage> Record(const QString& openMark = QString()) {
        RecordedPaper paper;
        SetPrintTarget(&paper);
        Database().PrintChart(Chart, false, Kid, openMark);
        SetPrintTarget(&Paper);
        return paper.Jobs.value(0);
    }

    /// A place to a thousandth of a grid unit.
    static QPointF Rounded(const QPointF& place) {
        return {std::round(place.x() * 1000) / 1000, std::round(place.y() * 1000) / 1000};
    }

    static int ErrorOfPrint(bool blankBoxes = false) {
        try {
            Database().PrintChart(Chart, blankBoxes, Kid, QString());
        } catch (const RuntimeError& error) {
            return error.Number();
        }
        return 0;
    }

    /// The mark cell of a row whose first grid row is `top`.
    static QRectF MarkCell(int top) { return {18.3, top + 0.08, 1.5, 0.85}; }

    static bool HasEmptyBox(const PrintedPages& pages, int page, int top) {
        const QRectF box = pages.Ink(page, MarkCell(top));
        return !box.isEmpty() && pages.Ink(page, box.adjusted(0.1, 0.1, -0.1, -0.1)).isEmpty();
    }

    static bool HasCheck(const PrintedPages& pages, int page, int top) {
        return !pages.Ink(page, QRectF(19.1, top + 0.25, 0.3, 0.4)).isEmpty();
    }

    static QColor BoxColor(const PrintedPages& pages, int page, double top, double bottom) {
        return pages.MainColor(page, QRectF(0.9, top + 0.1, 0.2, bottom - top - 0.2));
    }

private:
    static std::unique_ptr<TableStore> Tables() {
        Database().Commit();
        return TableStore::OpenDatabase(Path(QStringLiteral("Database/Charts.mdb")));
    }
};
