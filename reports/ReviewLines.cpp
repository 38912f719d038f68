#include "platform/runtime/Numbers.h"
#include "reports/ReviewLayout.h"
#include "reports/WeekChartRepresentation.h"
#include "store/ColorValues.h"
#include "ui_WeekChartRepresentation.h"

using namespace ReviewLayout;

void WeekChartRepresentation::Begin(const QString& title) {
    ui_->Label2->setText(title);
    for (int day = 1; day <= DaysOfWeek; ++day) {
        Day(day).SetCaption(0, QString());
        Day(day).SetBackStyle(0, MatrixCell::Transparent);
    }
    Points.SetCaption(0, QString());
    Job.SetCaption(0, QString());
    while (LastLine() > 0)
        UnloadLastRow(Columns());
    hasJobs_ = false;
}

int WeekChartRepresentation::LinePitch(int line) const {
    return 2 * Job.Height(line);
}

int WeekChartRepresentation::LastLine() const {
    return Job.Count() - 1;
}

/// Puts everything of a line but its rectangle where its job stands.
void WeekChartRepresentation::AlignWithJob(int line) {
    const int top = Job.Top(line);
    for (int day = 1; day <= DaysOfWeek; ++day)
        Day(day).SetTop(line, top);
    Points.SetTop(line, top);
    JobTotal.SetTop(line, top);
}

/// Adds an empty, hidden line below the others, its job and its rectangle in their places.
void WeekChartRepresentation::LoadLine() {
    LoadRow(Columns());
    const int line = LastLine();
    Job.SetTop(line, Job.Top(line - 1) + LinePitch(line - 1));
    // Not by the pitch of the jobs: the rectangles fall behind until the lines are scrolled.
    Patrat.SetTop(line, Patrat.Top(line - 1) + Patrat.Height(line - 1));
}

void WeekChartRepresentation::LoadJobLine() {
    LoadLine();
    const int line = LastLine();
    AlignWithJob(line);
    Job.SetVisible(line, true);
    Points.SetVisible(line, true);
    JobTotal.SetVisible(line, true);
    Patrat.SetVisible(line, true);
}

void WeekChartRepresentation::AddJob(const QString& job) {
    if (hasJobs_)
        LoadJobLine();
    hasJobs_ = true;
    Job.SetCaption(LastLine(), job);
}

void WeekChartRepresentation::SetJobValue(const QString& value) {
    Points.SetCaption(LastLine(), value);
}

void WeekChartRepresentation::SetJobTotal(qint16 points) {
    JobTotal.SetCaption(LastLine(), QString::number(points));
}

void WeekChartRepresentation::AddMark(int line, int day, bool completed) {
    CellArray& cells = Day(day);
    if (completed) {
        cells.SetCaption(line, NumberText(Val(cells.Caption(line)) + 1));
        cells.SetBackStyle(line, MatrixCell::Opaque);
    }
    cells.SetVisible(line, true);
}

void WeekChartRepresentation::AddTotals(const QString& heading) {
    LoadLine();
    const int line = LastLine();
    Points.SetTop(line, Job.Top(line));
    // To the right of the days, under the points of the jobs.
    Points.SetLeft(line, ToLong(Sat.Left(line) + 1.5 * Sat.Width(line)));
    for (CellArray* labels : {&Job, &Points}) {
        labels->SetForeColor(line, ColorValue::Red);
        labels->SetVisible(line, true);
    }
    Patrat.SetVisible(line, true);
    Job.SetCaption(line, heading);
}

void WeekChartRepresentation::SetGrandTotal(qint16 points) {
    Points.SetCaption(LastLine(), QString::number(points));
}

void WeekChartRepresentation::SetDayTotal(int day, qint16 points) {
    DayTotal.SetCaption(day - 1, QString::number(points));
    DayTotal.SetTop(day - 1, Job.Top(LastLine()));
}
