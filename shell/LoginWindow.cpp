#include "shell/LoginWindow.h"

#include "platform/forms/DefaultForms.h"
#include "platform/forms/EnterKey.h"
#include "platform/forms/Handlers.h"
#include "platform/runtime/Prompts.h"
#include "session/Session.h"
#include "session/Settings.h"
#include "shell/LogIn.h"
#include "shell/MainForm.h"
#include "shell/PasswordMask.h"
#include "ui_LoginWindow.h"

#include <QCloseEvent>

LoginWindow::LoginWindow() : FormWidget(Place::TopLevel), ui_(std::make_unique<Ui::LoginWindow>()) {
    ui_->setupUi(this);
    SetPasswordMask(*ui_->Password, QLatin1Char('*'));
    // The name is filled in; what is left to type is the password.
    ui_->Password->setFocus();

    for (QLineEdit* box : {ui_->UserName, ui_->Password})
        On(new EnterKey(box), &EnterKey::Pressed, this, [this] { Ok_Click(); });
    On(ui_->Ok, &QPushButton::clicked, this, [this] { Ok_Click(); });
    On(ui_->Cancel, &QPushButton::clicked, this, [this] {
        Default<LogIn>().Show();
        Unload();
    });
}

LoginWindow::~LoginWindow() = default;

void LoginWindow::Activate() {
    ui_->UserName->setText(LoginName);
}

void LoginWindow::Ok_Click() {
    const QString name = ui_->UserName->text();
    if (Database().RetrevePassword(name) != ui_->Password->text()) {
        Tell(QStringLiteral("Sorry, incorect password, please try again"));
        ui_->Password->clear();
        return;
    }
    if (Database().RetrevePassword(name) == ui_->Password->text() && !name.isEmpty())
        OpenSession(name);
    else if (name.isEmpty())
        Tell(QStringLiteral("Please choose a username from the list, or create a new one"));
}

void LoginWindow::OpenSession(const QString& user) {
    // The kind comes from the list that was clicked, whatever name has been typed since.
    CurrentState = LoginState;
    CurrentUser = user;
    auto& window = Default<MainForm>();
    window.SetCaption(QStringLiteral("Sparkit Dutygrid - Hi ") + CurrentUser);
    ReadSettings();
    window.Show();
    Unload();
}

void LoginWindow::closeEvent(QCloseEvent* event) {
    FormWidget::closeEvent(event);
    // The window's own close button goes back as Cancel does; otherwise no window would be left.
    if (IsUnloaded())
        RunAction([] { Default<LogIn>().Show(); });
}
