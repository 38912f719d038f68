#include "shell/OtherOptions.h"

#include "platform/forms/Handlers.h"
#include "session/Session.h"
#include "session/Settings.h"
#include "ui_OtherOptions.h"

OtherOptions::OtherOptions()
    : FormWidget(Place::InMainWindow), ui(std::make_unique<Ui::OtherOptions>()) {
    ui->setupUi(this);
    On(ui->Ok, &QPushButton::clicked, this, [this] { Ok_Click(); });
    On(ui->Cancel, &QPushButton::clicked, this, [this] { Unload(); });
}

OtherOptions::~OtherOptions() = default;

void OtherOptions::Activate() {
    (SeeOtherAccounts != 0 ? ui->Option2 : ui->Option1)->setChecked(true);
}

void OtherOptions::Ok_Click() {
    SeeOtherAccounts = ui->Option1->isChecked() ? 0 : 1;
    WriteSettings();
    Unload();
}
