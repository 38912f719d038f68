#include "reports/WeekChartRepresentation.h"

#include "platform/forms/DefaultForms.h"
#include "platform/forms/Handlers.h"
#include "platform/runtime/Numbers.h"
#include "reports/ReviewLayout.h"
#include "session/Session.h"
#include "ui_WeekChartRepresentation.h"
#include "widgets/FocusRing.h"
#include "widgets/FormViewAdapters.h"

#include <QScopeGuard>
#include <QWheelEvent>

using namespace ReviewLayout;

WeekChartRepresentation::WeekChartRepresentation()
    : FormWidget(Place::InMainWindow), ui_(std::make_unique<Ui::WeekChartRepresentation>()) {
    ui_->setupUi(this);
    DesignHeader();
    DesignLines();
    ui_->ChartList->SetRules({.ProgramClicks = true});
    On(&ui_->ChartList->Clicks, &ListClicks::Clicked, this, [this] { ChartList_Click(); });
    new FocusRing(ui_->VScroll);
    On(ui_->VScroll, &QScrollBar::valueChanged, this, [this] { VScroll_Change(); });
    On(ui_->Command1, &QPushButton::clicked, this,
       [] { DefaultForm(FormNames::DisplayAccount).Show(); });
    On(ui_->Ok, &QPushButton::clicked, this, [this] { Unload(); });
}

WeekChartRepresentation::~WeekChartRepresentation() = default;

void WeekChartRepresentation::Load() {
    ListNames list(*ui_->ChartList);
    // The first pass rolls the charts of the week just past on; what the second lists stays.
    Database().PopulateChartList(list, true);
    list.Clear();
    Database().PopulateChartList(list, false);
    ui_->Surface->setVisible(false);
}

QString WeekChartRepresentation::ReturnSelectedChart() const {
    return SelectedEntry(*ui_->ChartList);
}

void WeekChartRepresentation::ChartList_Click() {
    Job.SetVisible(0, true);
    Points.SetVisible(0, true);
    for (int day = 1; day <= DaysOfWeek; ++day)
        Day(day).SetVisible(0, false);
    {
        // Lines on the screen would be looked at for the mouse one label after the other.
        lines_->hide();
        const auto showAgain = qScopeGuard([this] {
            NameCells();
            lines_->show();
        });
        Database().FillMatrix(ReturnSelectedChart());
    }
    ui_->VScroll->setMaximum(LastLine());
    ui_->Surface->setVisible(true);
    ui_->VScroll->setVisible(true);
}

// A line above the matrix is not hidden: it slides under Picture1. Nothing keeps the first line
// from leaving the matrix altogether.
void WeekChartRepresentation::VScroll_Change() {
    const qint16 delta = ToInteger(ScrollValue - ui_->VScroll->value());
    ScrollValue = ToInteger(ui_->VScroll->value());
    for (int line = 0; line <= LastLine(); ++line) {
        Job.SetTop(line, Job.Top(line) + LinePitch(line) * delta);
        Patrat.SetTop(line, Job.Top(line) - OutlineAboveJob);
        AlignWithJob(line);
    }
    for (int day = 0; day < DaysOfWeek; ++day)
        DayTotal.SetTop(day, Job.Top(LastLine()));
}

void WeekChartRepresentation::wheelEvent(QWheelEvent* event) {
    if (ui_->Surface->geometry().contains(event->position().toPoint()))
        QCoreApplication::sendEvent(ui_->VScroll, event);
}
