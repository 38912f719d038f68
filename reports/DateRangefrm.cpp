#include "reports/DateRangefrm.h"

#include "platform/forms/DefaultForms.h"
#include "platform/forms/Handlers.h"
#include "platform/runtime/Dates.h"
#include "platform/runtime/Numbers.h"
#include "platform/runtime/Prompts.h"
#include "reports/Reportfrm.h"
#include "ui_DateRangefrm.h"

DateRangefrm::DateRangefrm()
    : FormWidget(Place::InMainWindow), ui_(std::make_unique<Ui::DateRangefrm>()) {
    ui_->setupUi(this);
    HideCalendar();
    On(ui_->Command1, &QPushButton::clicked, this, [this] { ShowCalendar(); });
    On(ui_->Command2, &QPushButton::clicked, this, [this] { ShowCalendar(); });
    On(ui_->Ok, &QPushButton::clicked, this, [this] { Ok_Click(); });
    On(ui_->cmdExit, &QPushButton::clicked, this, [this] { cmdExit_Click(); });
}

DateRangefrm::~DateRangefrm() = default;

void DateRangefrm::Load() {
    const QDate today = Today();
    CalDay = ToInteger(today.day());
    CalMonth = ToInteger(today.month());
    CalYear = ToInteger(today.year());
    ui_->Calendar1->SetDay(CalDay);
    ui_->Calendar1->SetMonth(CalMonth);
    ui_->Calendar1->SetYear(CalYear);
}

void DateRangefrm::Activate() {
    Default<Reportfrm>().DatesChosen = false;
}

void DateRangefrm::Arrange(int height, int exitTop, int okTop, int frameHeight) {
    SetHeight(height);
    ui_->cmdExit->move(ui_->cmdExit->x(), exitTop);
    ui_->Ok->move(ui_->Ok->x(), okTop);
    ui_->Shape1->resize(ui_->Shape1->width(), frameHeight);
}

void DateRangefrm::ShowCalendar() {
    ui_->Calendar1->show();
    ui_->Ok->show();
    Arrange(6500, 370, 370, 402);
    KeepInMainWindow();
    ui_->Calendar1->setFocus();
}

void DateRangefrm::HideCalendar() {
    ui_->Calendar1->hide();
    ui_->Ok->hide();
    Arrange(2790, 136, 128, 153);
}

void DateRangefrm::Ok_Click() {
    // In this order one button serves both dates: the second press finds the end's turn come.
    if (ui_->Command2->isEnabled()) {
        EndDate = ui_->Calendar1->Value();
        ui_->Command2->setEnabled(false);
    }
    if (ui_->Command1->isEnabled()) {
        StartDate = ui_->Calendar1->Value();
        ui_->Command1->setEnabled(false);
        ui_->Command2->setEnabled(true);
    }
    ui_->Label2->setText(QStringLiteral("Starting from: ") + DateText(StartDate) +
                         QStringLiteral(" until ") + DateText(EndDate));
    HideCalendar();
    if (ui_->Command1->isEnabled() || ui_->Command2->isEnabled()) {
        ui_->Command2->setFocus();
        return;
    }
    Default<Reportfrm>().StartDate = StartDate;
    Default<Reportfrm>().EndDate = EndDate;
    Tell(ui_->Label2->text());
    Default<Reportfrm>().DatesChosen = true;
    Unload();
}

void DateRangefrm::cmdExit_Click() {
    Unload();
    SetMousePointer(0);
}
