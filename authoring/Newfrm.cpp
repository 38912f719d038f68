#include "authoring/Newfrm.h"

#include "authoring/ChartEditor.h"
#include "authoring/EditorSlots.h"
#include "platform/forms/EnterKey.h"
#include "platform/forms/Handlers.h"
#include "platform/runtime/Actions.h"
#include "platform/runtime/Prompts.h"
#include "session/Session.h"
#include "ui_Newfrm.h"

#include <QScopeGuard>

Newfrm::Newfrm() : FormWidget(Place::InMainWindow), ui_(std::make_unique<Ui::Newfrm>()) {
    ui_->setupUi(this);
    On(new EnterKey(ui_->NameOfNewChart), &EnterKey::Pressed, this, [this] { Ok_Click(); });
    On(ui_->Ok, &QPushButton::clicked, this, [this] { Ok_Click(); });
    On(ui_->Cancel, &QPushButton::clicked, this, [this] { Unload(); });
}

Newfrm::~Newfrm() = default;

void Newfrm::Activate() {
    ui_->NameOfNewChart->setText(QString());
    ui_->NameOfNewChart->setFocus();
}

void Newfrm::Ok_Click() {
    // The form can be reached while the message stands, this button too.
    if (insisting_)
        return;
    const QPointer<Newfrm> self(this);
    Prompt taken;
    taken.Text = QStringLiteral("Please try another name, this one already exists.");
    taken.LeavesFormsReachable = true;
    bool foundDuplicate = false;
    const auto calm = qScopeGuard([self] {
        if (!self.isNull())
            self->insisting_ = false;
    });
    while (Database().CheckForDuplicates(ui_->NameOfNewChart->text())) {
        foundDuplicate = true;
        insisting_ = true;
        ShowPrompt(taken);
        DoEvents();
        if (self.isNull() || IsUnloaded() || IsProcessEnding())
            return;
    }
    const QString name = ui_->NameOfNewChart->text();
    if (foundDuplicate || name.isEmpty())
        return;

    OpenEditorInNextSlot([this, &name](ChartEditor& editor) {
        editor.ChartName = name;
        editor.FormIndex = ChartFormIndex;
        editor.IsNewChart = true;
        editor.NextWeek = false;
        editor.ResetTime().hide();
        editor.DeleteChart().hide();
        Hide();
        editor.SetCaption(QLatin1String("Editing ") + name + QLatin1String(" chart"));
        editor.Show();
    });
}
