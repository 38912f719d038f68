#include "reports/Reportfrm.h"

#include "platform/forms/DefaultForms.h"
#include "platform/forms/EnterKey.h"
#include "platform/forms/Handlers.h"
#include "platform/forms/Hourglass.h"
#include "platform/runtime/Actions.h"
#include "platform/runtime/Dates.h"
#include "platform/runtime/Prompts.h"
#include "reports/DateRangefrm.h"
#include "reports/WeekChartRepresentation.h"
#include "session/Session.h"
#include "store/TableNames.h"
#include "ui_Reportfrm.h"
#include "widgets/EmptyNote.h"
#include "widgets/FormViewAdapters.h"
#include "widgets/PersonRows.h"

#include <QPointer>

Reportfrm::Reportfrm() : FormWidget(Place::InMainWindow), ui_(std::make_unique<Ui::Reportfrm>()) {
    ui_->setupUi(this);
    datesAreIn_.setSingleShot(true);
    for (ClickList* list : {ui_->StudentsList, ui_->ListView1, ui_->ListView2}) {
        list->SetRules({.Unselecting = Qt::LeftButton, .TellsRightPress = true});
        // The names of history tables differ in the date at their end.
        list->setTextElideMode(Qt::ElideMiddle);
        list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    }
    new EmptyNote(*ui_->StudentsList, QStringLiteral("No Sparkit yet."));
    noCharts_ = new EmptyNote(*ui_->ListView1, QString());
    noHistory_ = new EmptyNote(*ui_->ListView2, QString());
    // Each list of charts has a button of its own below it.
    On(new EnterKey(ui_->ListView1), &EnterKey::Pressed, this, [this] { ui_->Ok->click(); });
    On(new EnterKey(ui_->ListView2), &EnterKey::Pressed, this, [this] { ui_->Ok2->click(); });
    ui_->StudentsList->setTextElideMode(Qt::ElideRight);
    new PersonRows(*ui_->StudentsList, ShowPictureOf);
    On(&ui_->StudentsList->Clicks, &ListClicks::Clicked, this, [this] { StudentsList_Click(); });
    On(&ui_->ListView1->Clicks, &ListClicks::RightPressed, this,
       [this] { ListView1_RightPress(); });
    On(ui_->Ok, &QPushButton::clicked, this, [this] { Ok_Click(); });
    On(ui_->Ok2, &QPushButton::clicked, this, [this] { Ok2_Click(); });
    On(ui_->Command1, &QPushButton::clicked, this,
       [] { Default<WeekChartRepresentation>().Show(); });
    On(ui_->Command2, &QPushButton::clicked, this, [this] { Command2_Click(); });
    On(ui_->Cancel, &QPushButton::clicked, this, [this] { Unload(); });
    On(&datesAreIn_, &QTimer::timeout, this, [this] {
        if (DatesChosen && !waitingKids_.isEmpty() && !IsProcessEnding())
            PrintDateRange(waitingKids_.takeLast());
    });
}

Reportfrm::~Reportfrm() = default;

void Reportfrm::Activate() {
    ListNames students(*ui_->StudentsList);
    students.Clear();
    Database().PopulateUserList(nullptr, students);
    StudentsList_Click();
}

void Reportfrm::Unloaded() {
    waitingKids_.clear();
}

QString Reportfrm::ReturnSelectedKid() const {
    return SelectedEntry(*ui_->StudentsList);
}

QString Reportfrm::ReturnSelectedChart() {
    return CollectSelected(*ui_->ListView1);
}

QString Reportfrm::ReturnSelectedHistory() {
    return CollectSelected(*ui_->ListView2);
}

QString Reportfrm::CollectSelected(const QListWidget& list) {
    // Without a selection the array keeps that of an earlier call.
    qsizetype k = 0;
    for (int row = 0; row < list.count(); ++row) {
        if (!list.item(row)->isSelected())
            continue;
        SelectedCharts.resize(k + 1);
        SelectedCharts[k] = list.item(row)->text();
        ++k;
    }
    return SelectedEntry(list);
}

void Reportfrm::StudentsList_Click() {
    const QString kid = ReturnSelectedKid();
    const QString chooseFirst = QStringLiteral("Choose a name first.");
    noCharts_->Say(kid.isEmpty() ? chooseFirst : QStringLiteral("No Dutygrid of this month."));
    noHistory_->Say(kid.isEmpty() ? chooseFirst : QStringLiteral("No history of this month yet."));
    ListNames charts(*ui_->ListView1);
    ListNames histories(*ui_->ListView2);
    Database().RetreveChartsAvailable(kid, charts);
    Database().RetreveHistoryChartsAvailable(kid, histories);
}

void Reportfrm::ListView1_RightPress() {
    if (!IsAdult(CurrentState) ||
        !AskBeforeLoss(QStringLiteral("Are you sure you want to delete this chart?")))
        return;
    QStringList former;
    for (int row = 0; row < ui_->ListView1->count(); ++row)
        former += ui_->ListView1->item(row)->text();
    IfUndone([form = QPointer(this), former] {
        if (!form)
            return;
        ListNames charts(*form->ui_->ListView1);
        charts.Clear();
        for (const QString& chart : former)
            charts.AddItem(chart);
    });
    for (int row = 0; row < ui_->ListView1->count(); ++row) {
        if (!ui_->ListView1->item(row)->isSelected())
            continue;
        Database().DeleteChart(ui_->ListView1->item(row)->text());
        delete ui_->ListView1->takeItem(row);
        --row;
    }
}

void Reportfrm::Ok_Click() {
    const Hourglass hourglass(*this);
    const QString chart = ReturnSelectedChart();
    const QString kid = ReturnSelectedKid();
    if (!chart.isEmpty() && !kid.isEmpty())
        Database().PrintChart(chart, false, kid, QString());
    else
        Tell(QStringLiteral("Please select a Sparkit from the name list and the Dutygrid you would "
                            "like to print."));
}

void Reportfrm::Ok2_Click() {
    const Hourglass hourglass(*this);
    const QString history = ReturnSelectedHistory();
    const QString kid = ReturnSelectedKid();
    if (!history.isEmpty() && !kid.isEmpty())
        PrintSelected(kid);
    else
        Tell(QStringLiteral("Please select a Sparkit from the name list and the History Report you "
                            "would like to print."));
}

void Reportfrm::PrintSelected(const QString& kid) {
    const QString period = Database().ReturnDateRange(kid, SelectedCharts);
    Database().PrintReport2(kid, SelectedCharts, period);
}

void Reportfrm::Command2_Click() {
    const Hourglass hourglass(*this);
    if (!ReturnSelectedChart().isEmpty()) {
        PrintSelected(ReturnSelectedKid());
        return;
    }
    if (Ask(QStringLiteral("Would you like to define a date range for your report?  If not, the "
                           "entire Dutygrid history for this Sparkit will be printed."))) {
        AskForDates();
        return;
    }
    if (ReturnSelectedChart().isEmpty())
        SelectedCharts = {AllHistory};
    if (Ask(QStringLiteral(
            "Are you sure you want to print this Sparkit's entire Dutygrid history?")))
        PrintSelected(ReturnSelectedKid());
}

void Reportfrm::AskForDates() {
    const QString kid = ReturnSelectedKid();
    Default<DateRangefrm>().Show();
    // The dialog's activation does so as well, but only when control is back in the event loop.
    DatesChosen = false;
    waitingKids_.append(kid);
}

void Reportfrm::PrintDateRange(const QString& kid) {
    Database().CreateChartNames(kid, SelectedCharts, StartDate, EndDate);
    const QString period = QStringLiteral("Starting from: ") + DateText(StartDate) +
                           QStringLiteral(" until ") + DateText(EndDate);
    const Hourglass hourglass(*this);
    if (StartDate < EndDate) {
        bool isPrinted = false;
        WithErrorsSkipped([&] {
            // A single table does not make a report over a span of dates.
            if (SelectedCharts.size() > 1) {
                Database().PrintReport2(kid, SelectedCharts, period);
                isPrinted = true;
            }
        });
        if (!isPrinted)
            Tell(QStringLiteral("There are no Dutygrids included in the date range you selected.  "
                                "Please select a new date range."));
    } else {
        Tell(QStringLiteral("Please make sure the Ending Date selected is greater than the "
                            "Starting Date selected."));
    }
    DatesChosen = false;
}
