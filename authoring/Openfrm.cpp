#include "authoring/Openfrm.h"

#include "authoring/ChartEditor.h"
#include "authoring/EditorSlots.h"
#include "platform/forms/Handlers.h"
#include "platform/runtime/Prompts.h"
#include "platform/runtime/RuntimeError.h"
#include "session/Session.h"
#include "ui_Openfrm.h"
#include "widgets/EmptyNote.h"
#include "widgets/FormViewAdapters.h"
#include "widgets/HiddenWhile.h"

Openfrm::Openfrm() : FormWidget(Place::InMainWindow), ui_(std::make_unique<Ui::Openfrm>()) {
    ui_->setupUi(this);
    ui_->ChartList->SetRules({.Opens = true, .FirstKeyTakesRow = true});
    new EmptyNote(*ui_->ChartList, QStringLiteral("No Dutygrid yet. F2 begins one."));
    On(&ui_->ChartList->Clicks, &ListClicks::Opened, this, [this] { Ok_Click(); });
    On(ui_->Ok, &QPushButton::clicked, this, [this] { Ok_Click(); });
    On(ui_->Cancel, &QPushButton::clicked, this, [this] { Unload(); });
}

Openfrm::~Openfrm() = default;

namespace {

/// The chart's child; "" for a chart that a failed save has left without rows. Such a one must
/// open all the same: to delete it in the editor is the way to be rid of it.
QString ChildOf(const QString& chart) {
    try {
        return Database().ReturnExistingKidName(chart);
    } catch (const RuntimeError& error) {
        if (error.Number() != static_cast<int>(ErrorNumber::NoCurrentRecord))
            throw;
        return {};
    }
}

} // namespace

QString Openfrm::SelectedChart() const {
    return SelectedEntry(*ui_->ChartList);
}

void Openfrm::Activate() {
    ListNames names(*ui_->ChartList);
    Database().PopulateChartList(names, false);
    ui_->Ok->setHidden(ui_->ChartList->count() == 0);
    ui_->ChartList->setFocus();
}

void Openfrm::Ok_Click() {
    const QString name = SelectedChart();
    if (name.isEmpty()) {
        Tell(QStringLiteral("Please select a Dutygrid to open"));
        return;
    }
    OpenEditorInNextSlot([&name](ChartEditor& editor) {
        editor.ChartName = name;
        editor.FormIndex = ChartFormIndex;
        editor.IsNewChart = false;
        editor.KidName = ChildOf(name);
        editor.ResetTime().show();
        editor.DeleteChart().show();
        editor.NextWeek = false;
        editor.Show();
        const HiddenWhile rowsCome(editor.Rows());
        Database().ReadInfoFromChart(name, ChartFormIndex, false, QString());
    });
    Unload();
}
