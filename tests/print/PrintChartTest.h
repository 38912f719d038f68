#pragma once

#include "tests/common/Charts.h"
#include "tests/common/PrintedPages.h"
#include "tests/common/TestWorld.h"
#include "tests/print/RecordedPaper.h"

#include <cmath>

/// What reading a page costs in exactness, in grid units.
inline constexpr double Near = 0.07;

/// A fixture for printed charts.
class PrintChartTest : public ProgramTest {
protected:
    static inline const QString Chart = QStringLiteral("Chores");
    static inline const QString Kid = QStringLiteral("Anna");

    static void MakeChart(const QList<PlainRow>& jobs, const QString& name = Chart) {
        MakePlainChart(name, jobs);
    }

    static QList<PlainRow> Jobs(const QString& day, int count) {
        QList<PlainRow> jobs;
        for (int number = 1; number <= count; ++number)
            jobs.append({QStringLiteral("%1job%2").arg(day).arg(number), day, number});
        return jobs;
    }

    static void Send(bool blankBoxes = false, const QString& openMark = QString()) {
        Database().PrintChart(Chart, blankBoxes, Kid, openMark);
    }

    PrintedPages Print(bool blankBoxes = false, const QString& openMark = QString()) {
        Send(blankBoxes, openMark);
        return PrintedPages(Paper.LastFile());
    }

    /// All that is drawn, in its order and also where no reader of the paper could tell it apart.
    QList<RecordedPage> Record(const QString& openMark = QString()) {
        RecordedPaper paper;
        SetPrintTarget(&paper);
        Send(false, openMark);
        SetPrintTarget(&Paper);
        return paper.Jobs.value(0);
    }

    /// A place to a thousandth of a grid unit.
    static QPointF Rounded(const QPointF& place) {
        return {std::round(place.x() * 1000) / 1000, std::round(place.y() * 1000) / 1000};
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
};
