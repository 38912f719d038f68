#include "filling/OpenFillfrm.h"

#include "filling/ChartViewer.h"
#include "platform/forms/Handlers.h"
#include "platform/runtime/Dates.h"
#include "platform/runtime/Numbers.h"
#include "platform/runtime/Prompts.h"
#include "session/Session.h"
#include "ui_OpenFillfrm.h"
#include "widgets/EmptyNote.h"
#include "widgets/FormViewAdapters.h"

#include <QScopeGuard>

OpenFillfrm::OpenFillfrm()
    : FormWidget(Place::InMainWindow), ui_(std::make_unique<Ui::OpenFillfrm>()) {
    ui_->setupUi(this);
    // Names of charts are read by children who have just learnt to.
    QFont large = ui_->ChartList->font();
    large.setPointSizeF(large.pointSizeF() * 1.25);
    ui_->ChartList->setFont(large);
    new EmptyNote(*ui_->ChartList, QStringLiteral("Nothing to do this week.\nAsk the grown-up\n"
                                                  "who writes your Dutygrid."));
    On(ui_->Ok, &QPushButton::clicked, this, [this] { Ok_Click(); });
    ui_->ChartList->SetRules({.Opens = true, .FirstKeyTakesRow = true});
    On(&ui_->ChartList->Clicks, &ListClicks::Opened, this, [this] { Ok_Click(); });
    On(ui_->Cancel, &QPushButton::clicked, this, [this] { Unload(); });
}

OpenFillfrm::~OpenFillfrm() = default;

// The list is not cleared: a return to the open form adds its entries once more.
void OpenFillfrm::Activate() {
    ListNames list(*ui_->ChartList);
    Database().PopulateChartList(list, true);
    ui_->Ok->setVisible(ui_->ChartList->count() > 0);
    ui_->ChartList->setFocus();
}

QString OpenFillfrm::SelectedChart() const {
    return SelectedEntry(*ui_->ChartList);
}

qint16 OpenFillfrm::DayBeforeToday() {
    // Counted from Monday as 1, today has the number that yesterday has when Sunday is 1.
    return static_cast<qint16>(Today().dayOfWeek());
}

void OpenFillfrm::Ok_Click() {
    const QString name = SelectedChart();
    if (name.isEmpty()) {
        Tell(QStringLiteral("Please select a Dutygrid to open"), PromptIcon::Exclamation);
        return;
    }
    // From here on each statement that fails is skipped and the next one runs.
    if (CloseChartInUse())
        OpenViewer(name);
    WithErrorsSkipped([&] { Unload(); });
}

/// Only the slot filled last is looked at. False if the chart in it stays in use.
bool OpenFillfrm::CloseChartInUse() {
    ChartViewer* inUse = nullptr;
    WithErrorsSkipped(
        [&] { inUse = dynamic_cast<ChartViewer*>(ChartViewers.Peek(ChartFormIndex - 1)); });
    if (inUse == nullptr || inUse->Tag.isEmpty())
        return true;
    bool close = false;
    WithErrorsSkipped([&] {
        close = AskBeforeLoss(
            QStringLiteral("You can use only one Dutygrid at a time.  Would you like to "
                           "close the Dutygrid you are working on?"));
    });
    if (close)
        WithErrorsSkipped([&] { inUse->Unload(); });
    else
        WithErrorsSkipped([&] { inUse->SetFocus(); });
    return close;
}

void OpenFillfrm::OpenViewer(const QString& name) {
    WithErrorsSkipped([] { ChartViewers.RedimPreserve(ChartFormIndex); });
    ChartViewer* viewer = nullptr;
    WithErrorsSkipped(
        [&] { viewer = dynamic_cast<ChartViewer*>(&ChartViewers.At(ChartFormIndex)); });
    if (viewer != nullptr) {
        viewer->Tag = QStringLiteral("USED");
        viewer->ChartName = name;
        viewer->FormIndex = ChartFormIndex;
        viewer->DayNumber = DayBeforeToday();
        viewer->SetCaption(QStringLiteral("Filling %1 chart").arg(name));
        WithErrorsSkipped([&] { viewer->Show(); });
        viewer->PlaceInMainWindow();
    }
    // Rows and the store's day agree on Sunday before the viewer comes to the front for the first
    // time, so that its first turn of the page writes back the marks that it read.
    // Of a chart that could not be read it would write back other marks.
    auto withoutRows = qScopeGuard([&] {
        if (viewer != nullptr)
            viewer->Abandon();
    });
    WithErrorsButFaultsSkipped(
        [&] { Database().ReadInfoFromChart(name, ChartFormIndex, true, DayAbbreviation(1)); });
    withoutRows.dismiss();
    WithErrorsSkipped([] { ChartFormIndex = AddIntegers(ChartFormIndex, 1); });
}
