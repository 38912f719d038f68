#include "authoring/DeleteChartForm.h"

#include "authoring/ChartEditor.h"
#include "authoring/EditorSlots.h"
#include "platform/forms/Handlers.h"
#include "platform/runtime/Actions.h"
#include "session/Session.h"
#include "ui_DeleteChartForm.h"

DeleteChartForm::DeleteChartForm()
    : FormWidget(Place::InMainWindow), ui_(std::make_unique<Ui::DeleteChartForm>()) {
    ui_->setupUi(this);
    On(ui_->Yes, &QPushButton::clicked, this, [this] { Yes_Click(); });
    On(ui_->No, &QPushButton::clicked, this, [this] { Unload(); });
}

DeleteChartForm::~DeleteChartForm() = default;

void DeleteChartForm::Activate() {
    // What cannot be undone is not one press of Enter away.
    ui_->No->setFocus();
}

void DeleteChartForm::Yes_Click() {
    Database().DeleteChart(ChartName);
    // The editor stays with a chart that could not be deleted.
    CommitAction();
    // Hidden, not unloaded: an unload would ask whether to go without saving.
    if (ChartEditor* editor = EditorInSlot(FormIndex))
        editor->Hide();
    Unload();
}
