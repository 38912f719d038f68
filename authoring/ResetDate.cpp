#include "authoring/ResetDate.h"

#include "authoring/ChartEditor.h"
#include "authoring/EditorSlots.h"
#include "platform/forms/Handlers.h"
#include "session/Session.h"
#include "ui_ResetDate.h"

ResetDate::ResetDate() : FormWidget(Place::InMainWindow), ui_(std::make_unique<Ui::ResetDate>()) {
    ui_->setupUi(this);
    On(ui_->ok, &QPushButton::clicked, this, [this] { ok_Click(); });
    On(ui_->Cancel, &QPushButton::clicked, this, [this] { Unload(); });
}

ResetDate::~ResetDate() = default;

void ResetDate::Activate() {
    // Choosing one option takes the choice off the other.
    (OutsideChartWeek ? ui_->NextWeek : ui_->ThisWeek)->setChecked(true);
}

void ResetDate::ok_Click() {
    if (ChartEditor* editor = EditorInSlot(FormIndex)) {
        editor->NextWeek = ui_->NextWeek->isChecked();
        editor->IsNewChart = true;
        // The modes stand crossed; the text is the same for both.
        if (Version::IsHome(SchoolMode))
            editor->StartingFrom().setText(editor->Title(Version::SchoolName));
        else if (Version::IsSchool(SchoolMode))
            editor->StartingFrom().setText(editor->Title(Version::HomeName));
    }
    Unload();
}
