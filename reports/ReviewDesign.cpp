#include "platform/runtime/Dates.h"
#include "platform/runtime/RuntimeError.h"
#include "reports/ReviewLayout.h"
#include "reports/WeekChartRepresentation.h"
#include "store/ColorValues.h"
#include "ui_WeekChartRepresentation.h"

#include <QRegularExpression>
#include <array>
#include <functional>

using namespace ReviewLayout;

namespace {

/// Pixels at the right of a job's total that put it right above the grand total, which begins a
/// little further to the right and is narrower.
constexpr int GrandTotalSlack = 28;

} // namespace

CellArray& WeekChartRepresentation::Day(int day) {
    const std::array<CellArray*, DaysOfWeek> days = {&Sun, &Mon, &Tue, &Wed, &Thu, &Fri, &Sat};
    if (day < 1 || day > DaysOfWeek)
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    CellArray* const cells = days[static_cast<std::size_t>(day) - 1];
    return *cells;
}

void WeekChartRepresentation::DesignHeader() {
    // The strip is narrower than the frame: its back goes on to the frame's edge.
    for (QWidget* back : {ui_->HeaderBack, ui_->Picture1}) {
        back->setAutoFillBackground(true);
        back->setBackgroundRole(QPalette::AlternateBase);
    }
    // Filled, not stroked: a stroke one pixel wide is lost at some fractional scales.
    QPalette softLine = palette();
    softLine.setColor(QPalette::Window, softLine.color(QPalette::AlternateBase).darker(115));
    for (QWidget* line :
         ui_->Surface->findChildren<QWidget*>(QRegularExpression(QStringLiteral("^Line[1-9]$")))) {
        line->setAutoFillBackground(true);
        line->setBackgroundRole(QPalette::Window);
        line->setPalette(softLine);
    }
    for (QLabel* head : {ui_->Label1, ui_->Label3, ui_->Label4})
        head->setFont(MatrixCell::Face());
    QPalette red = palette();
    red.setColor(QPalette::WindowText, ColorFromValue(ColorValue::Red));
    ui_->Label3->setPalette(red);
    ui_->Label4->setPalette(red);
}

/// Line 0, as it stands until it is first filled.
void WeekChartRepresentation::DesignLines() {
    lines_ = new MatrixGround(ui_->Surface);
    lines_->setGeometry(ui_->Surface->rect());
    ui_->HeaderBack->raise();
    ui_->Picture1->raise();
    ui_->Edge->raise();
    ui_->VScroll->raise();

    const auto makeOutline = [this] { return new LineOutline(lines_); };
    Patrat.Design(QStringLiteral("Patrat"), makeOutline(),
                  {OutlineLeft, OutlineTop, OutlineWidth, OutlineHeight}, makeOutline);
    using Style = std::function<void(MatrixCell&)>;
    const auto design = [this](CellArray& cells, const QString& name, int left, int width,
                               const Style& style) {
        const auto make = [this, style] {
            auto* cell = new MatrixCell(lines_);
            style(*cell);
            return cell;
        };
        cells.Design(name, make(), {left, LineTop, width, LineHeight}, make);
    };
    const Style blue = [](MatrixCell& cell) {
        cell.SetForeColor(ColorFromValue(ColorValue::Blue));
    };
    design(Job, QStringLiteral("Job"), JobLeft, JobWidth,
           [](MatrixCell& cell) { cell.setAlignment(Qt::AlignLeft | Qt::AlignVCenter); });
    design(Points, QStringLiteral("Points"), PointsLeft, PointsWidth, [](MatrixCell&) {});
    for (int day = 1; day <= DaysOfWeek; ++day)
        design(Day(day), DayAbbreviation(day), DayLefts.at(std::size_t(day) - 1), DayWidth,
               [](MatrixCell& cell) {
                   cell.setToolTip(QStringLiteral("Number of jobs made"));
                   cell.OutlineWhenOpen();
               });
    design(JobTotal, QStringLiteral("JobTotal"), JobTotalLeft, JobTotalWidth,
           [blue](MatrixCell& cell) {
               blue(cell);
               cell.setContentsMargins(0, 0, GrandTotalSlack, 0);
           });
    design(DayTotal, QStringLiteral("DayTotal"), DayLefts.front(), DayWidth, blue);
    for (int day = 0; day < DaysOfWeek; ++day) {
        if (day > 0)
            DayTotal.LoadElement();
        DayTotal.SetLeft(day, DayLefts.at(std::size_t(day)));
        DayTotal.SetTop(day, DayTotalTop);
        DayTotal.SetVisible(day, true);
    }
}

/// What a screen reader says of a number is where it stands as well.
void WeekChartRepresentation::NameCells() {
    for (int line = 0; line < JobTotal.Count(); ++line) {
        const QString job = Job.Caption(line);
        Points[line].setAccessibleName(
            QStringLiteral("%1, value: %2").arg(job, Points.Caption(line)));
        JobTotal[line].setAccessibleName(
            QStringLiteral("%1, points: %2").arg(job, JobTotal.Caption(line)));
        for (int day = 1; day <= DaysOfWeek; ++day) {
            const CellArray& cells = Day(day);
            const QString state = cells.BackStyle(line) == MatrixCell::Transparent
                                      ? QStringLiteral("open")
                                      : cells.Caption(line) + QStringLiteral(" made");
            cells[line].setAccessibleName(
                QStringLiteral("%1, %2: %3").arg(job, FullDayName(DayAbbreviation(day)), state));
        }
    }
    for (int day = 0; day < DaysOfWeek; ++day)
        DayTotal[day].setAccessibleName(
            QStringLiteral("%1, points: %2")
                .arg(FullDayName(DayAbbreviation(day + 1)), DayTotal.Caption(day)));
}
