#include "shell/NewUser.h"

#include "platform/forms/Handlers.h"
#include "platform/runtime/Desktop.h"
#include "platform/runtime/Pictures.h"
#include "platform/runtime/ProgramFolder.h"
#include "platform/runtime/Prompts.h"
#include "session/Session.h"
#include "shell/PasswordMask.h"
#include "ui_NewUser.h"
#include "widgets/FormViewAdapters.h"

NewUser::NewUser() : FormWidget(Place::TopLevel), ui_(std::make_unique<Ui::NewUser>()) {
    ui_->setupUi(this);
    SetPasswordMask(*ui_->Password, QLatin1Char('*'));
    On(ui_->Command1, &QPushButton::clicked, this, [this] { BrowsePicture(); });
    On(ui_->Ok, &QPushButton::clicked, this, [this] { Ok_Click(); });
    On(ui_->Cancel, &QPushButton::clicked, this, [this] { Unload(); });
}

NewUser::~NewUser() = default;

void NewUser::Activate() {
    PictureFile.clear();
    ui_->StudentOp->setText(QStringLiteral("Sparkit"));
    ui_->TeacherOp->setText(Version::IsHome(SchoolMode) ? AccountKind::Parent
                                                        : AccountKind::Teacher);
}

void NewUser::BrowsePicture() {
    const QString file =
        AskForFile(InProgramFolder(QStringLiteral("UsersPictures"))).value_or(browseFileName_);
    // What cannot be loaded is not chosen.
    const QImage picture = LoadPicture(file);
    browseFileName_ = file;
    PictureFile = file;
    LabelPicture(*ui_->Image1).SetPicture(picture);
}

void NewUser::Ok_Click() {
    const QString name = ui_->UserName->text();
    const QString password = ui_->Password->text();
    const bool complete = !password.isEmpty() && !name.isEmpty() && !PictureFile.isEmpty();
    if (!Database().CheckForUserDuplicates(name, password) && complete) {
        // The stored kind is the same in both versions; "Parent" is a caption only.
        const QString state =
            ui_->TeacherOp->isChecked() ? AccountKind::Teacher : AccountKind::Student;
        Database().AddUser(name, password, state, PictureFile);
        Unload();
    } else {
        TellWhatIsMissing(name, password);
    }
}

void NewUser::TellWhatIsMissing(const QString& name, const QString& password) {
    if (Database().CheckForUserDuplicates(name, password)) {
        Tell(QStringLiteral("Please try again, this user already exist"));
        ui_->UserName->clear();
        ui_->Password->clear();
    } else if (password.isEmpty()) {
        Tell(QStringLiteral("Please enter your password"));
    } else if (name.isEmpty()) {
        Tell(QStringLiteral("Please enter your username"));
    } else if (PictureFile.isEmpty()) {
        Tell(QStringLiteral("You have to select a picture for your account"));
    }
}
