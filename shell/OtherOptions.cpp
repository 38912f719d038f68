#include "shell/OtherOptions.h"

#include "platform/forms/Handlers.h"
#include "session/Session.h"
#include "session/Settings.h"
#include "ui_OtherOptions.h"

OtherOptions::OtherOptions()
    : FormWidget(Place::InMainWindow), ui_(std::make_unique<Ui::OtherOptions>()) {
    ui_->setupUi(this);
    On(ui_->Ok, &QPushButton::clicked, this, [this] { Ok_Click(); });
    On(ui_->Cancel, &QPushButton::clicked, this, [this] { Unload(); });
}

OtherOptions::~OtherOptions() = default;

void OtherOptions::Activate() {
    (SeeOtherAccounts != 0 ? ui_->Option2 : ui_->Option1)->setChecked(true);
}

void OtherOptions::Ok_Click() {
    SeeOtherAccounts = ui_->Option1->isChecked() ? 0 : 1;
    WriteSettings();
    Unload();
}
