#include "accounts/AddIncentives.h"

#include "accounts/DisplayAccount.h"
#include "platform/forms/DefaultForms.h"
#include "platform/forms/EnterKey.h"
#include "platform/forms/Handlers.h"
#include "platform/runtime/Desktop.h"
#include "platform/runtime/Numbers.h"
#include "platform/runtime/Pictures.h"
#include "platform/runtime/ProgramFolder.h"
#include "platform/runtime/Prompts.h"
#include "session/Session.h"
#include "store/SmallPicture.h"
#include "ui_AddIncentives.h"
#include "widgets/FormViewAdapters.h"
#include "widgets/RoundPicture.h"

AddIncentives::AddIncentives()
    : FormWidget(Place::InMainWindow), ui_(std::make_unique<Ui::AddIncentives>()) {
    ui_->setupUi(this);
    ui_->Image1->setContentsMargins(5, 5, 5, 5);
    On(ui_->Command1, &QPushButton::clicked, this, [this] { Command1_Click(); });
    On(ui_->AddIncentive, &QPushButton::clicked, this, [this] { AddIncentive_Click(); });
    On(ui_->AddPoints, &QPushButton::clicked, this, [this] { AddPoints_Click(); });
    On(ui_->Close, &QPushButton::clicked, this, [this] { Close_Click(); });
    // The form's main button is the incentive's.
    On(new EnterKey(ui_->Points), &EnterKey::Pressed, this, [this] { ui_->AddPoints->click(); });
}

AddIncentives::~AddIncentives() = default;

void AddIncentives::Load() {
    opFileName_ = InProgramFolder(QStringLiteral("IncentivesPictures/Bike.gif"));
}

void AddIncentives::Activate() {
    // Whose it is: the form can be asked for again, for another child, while it stands.
    constexpr int side = 32; // pixels
    SmallPicture picture(qRound(side * devicePixelRatioF()));
    if (!AccountName.isEmpty())
        Database().RetrevePicture(AccountName, picture);
    ui_->ChildPicture->setPixmap(RoundPicture(picture.Picture(), side, devicePixelRatioF()));
    ui_->ChildName->setText(AccountName.isEmpty() ? QStringLiteral("No Sparkit is chosen")
                                                  : AccountName);
}

void AddIncentives::Command1_Click() {
    opFileName_ =
        AskForFile(InProgramFolder(QStringLiteral("IncentivesPictures"))).value_or(QString());
    WithErrorsSkipped([this] { LabelPicture(*ui_->Image1).SetPicture(LoadPicture(opFileName_)); });
}

void AddIncentives::AddIncentive_Click() {
    if (!opFileName_.isEmpty() ||
        Ask(QStringLiteral("You haven't selected a picture for this incentive, are you sure you "
                           "want to continue?"))) {
        Database().AddToy(AccountName, ui_->ToyName->text(), opFileName_,
                          ToInteger(Val(ui_->Value->text())));
        TellStored(AccountName, QStringLiteral("incentive"));
    } else {
        // The form goes after this, and with it the picture chosen now.
        Tell(QStringLiteral("Please select a picture"));
        Command1_Click();
    }
    Unload();
}

void AddIncentives::AddPoints_Click() {
    Database().AddPoints(AccountName, ToInteger(Val(ui_->Points->text())), false);
    Unload();
}

void AddIncentives::Close_Click() {
    Unload();
    DefaultForm(FormNames::DisplayAccount).Show();
}
