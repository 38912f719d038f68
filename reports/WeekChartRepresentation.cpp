#include "reports/WeekChartRepresentation.h"

#include "platform/forms/DefaultForms.h"
#include "platform/forms/Handlers.h"
#include "platform/runtime/Numbers.h"
#include "reports/ReviewLayout.h"
#include "session/Session.h"
#include "ui_WeekChartRepresentation.h"
#include "widgets/EmptyNote.h"
#include "widgets/FocusRing.h"
#include "widgets/FormViewAdapters.h"

#include <QRegularExpression>
#include <QScopeGuard>
#include <QWheelEvent>
#include <algorithm>
#include <initializer_list>
#include <utility>

using namespace ReviewLayout;

WeekChartRepresentation::WeekChartRepresentation()
    : FormWidget(Place::InMainWindow), ui_(std::make_unique<Ui::WeekChartRepresentation>()) {
    ui_->setupUi(this);
    DesignHeader();
    DesignLines();
    ui_->ChartList->SetRules({.ProgramClicks = true});
    new EmptyNote(*ui_->ChartList, QStringLiteral("No Dutygrid yet."));
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
    ui_->ChooseFirst->setVisible(ui_->ChartList->count() > 0);
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
    ui_->ChooseFirst->hide();
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
    // Also between its lines, which are painted as one.
    lines_->update();
}

/// A form higher than it was made shows more of what it lists, a wider one holds it in its middle.
void WeekChartRepresentation::resizeEvent(QResizeEvent* event) {
    FormWidget::resizeEvent(event);
    const int spare = std::max(0, height() - minimumHeight());
    const int more = spare - spare_;
    spare_ = spare;
    QList<QWidget*> high = {ui_->ChartList,   ui_->Surface, ui_->Edge,
                            ui_->ChooseFirst, ui_->VScroll, lines_};
    high += ui_->Surface->findChildren<QWidget*>(QRegularExpression(QStringLiteral("^Line[2-9]$")));
    for (QWidget* part : high)
        part->resize(part->width(), part->height() + more);
    ui_->Buttons->move(ui_->Buttons->x(), ui_->Buttons->y() + more);
    const int air = std::max(0, (width() - minimumWidth()) / 2);
    const int aside = air - std::exchange(air_, air);
    for (QWidget* part :
         std::initializer_list<QWidget*>{ui_->Label2, ui_->ChartList, ui_->ChooseFirst,
                                         ui_->Surface, ui_->VScroll, ui_->Buttons})
        part->move(part->x() + aside, part->y());
    const int linesInView = (TwipsOf(ui_->Surface->height()) - OutlineTop) / LinePitch(0);
    ui_->VScroll->setPageStep(linesInView);
}

void WeekChartRepresentation::wheelEvent(QWheelEvent* event) {
    if (ui_->Surface->geometry().contains(event->position().toPoint()))
        QCoreApplication::sendEvent(ui_->VScroll, event);
}
