#include "shell/ChangePasswordfrm.h"

#include "platform/forms/Handlers.h"
#include "platform/runtime/Desktop.h"
#include "platform/runtime/Pictures.h"
#include "platform/runtime/ProgramFolder.h"
#include "platform/runtime/Prompts.h"
#include "session/Session.h"
#include "shell/PasswordMask.h"
#include "ui_ChangePasswordfrm.h"
#include "widgets/FormViewAdapters.h"

ChangePasswordfrm::ChangePasswordfrm()
    : FormWidget(Place::TopLevel), ui_(std::make_unique<Ui::ChangePasswordfrm>()) {
    ui_->setupUi(this);
    SetPasswordMask(*ui_->OldPAss, QLatin1Char('?'));
    SetPasswordMask(*ui_->NewPass, QLatin1Char('?'));
    On(ui_->Command2, &QPushButton::clicked, this, [this] { BrowsePicture(); });
    On(ui_->Ok, &QPushButton::clicked, this, [this] { Ok_Click(); });
    On(ui_->Command1, &QPushButton::clicked, this, [this] { Unload(); });
}

ChangePasswordfrm::~ChangePasswordfrm() = default;

void ChangePasswordfrm::Activate() {
    // The log-in form loses its selection whenever it is refreshed, so the name stands here.
    ui_->Heading->setText(AccountName);
}

void ChangePasswordfrm::BrowsePicture() {
    const QString file =
        AskForFile(InProgramFolder(QStringLiteral("UsersPictures"))).value_or(opFileName_);
    // What cannot be loaded is not chosen.
    const QImage picture = LoadPicture(file);
    opFileName_ = file;
    LabelPicture(*ui_->Image1).SetPicture(picture);
}

void ChangePasswordfrm::Ok_Click() {
    if (Database().RetrevePassword(AccountName) == ui_->OldPAss->text()) {
        const QString newPassword = ui_->NewPass->text();
        Database().ChangePassword(AccountName, newPassword);
        Tell(QStringLiteral("Your new password is: ") + newPassword);
        Unload();
    } else if (!opFileName_.isEmpty()) {
        // A new picture takes no password.
        Database().ChangePicture(AccountName, opFileName_);
        Unload();
    } else {
        Tell(QStringLiteral("Please make a change or click on the 'Cancel' button."));
    }
}
