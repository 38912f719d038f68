#include "shell/LogIn.h"

#include "platform/forms/DefaultForms.h"
#include "platform/forms/Handlers.h"
#include "platform/forms/WidgetRole.h"
#include "platform/runtime/Actions.h"
#include "platform/runtime/Desktop.h"
#include "platform/runtime/Numbers.h"
#include "platform/runtime/ProgramFolder.h"
#include "platform/runtime/Prompts.h"
#include "session/Session.h"
#include "session/Settings.h"
#include "shell/ChangePasswordfrm.h"
#include "shell/LoginWindow.h"
#include "shell/LogoPicture.h"
#include "shell/NewUser.h"
#include "shell/WebPage.h"
#include "support/clsRegistry.h"
#include "ui_LogIn.h"
#include "widgets/FormViewAdapters.h"
#include "widgets/PersonRows.h"

#include <QCloseEvent>
#include <QScreen>
#include <QSignalBlocker>

namespace {

const QString PleaseSelect = QStringLiteral("Please select a user or create a new one.");

const QString Welcome = QStringLiteral(
    "You have to set up at least two accounts before you can begin, one for you and one for the "
    "child.  Click on the 'New User' button and select either Parent or Teacher.  Enter a "
    "username and password and select a picture for yourself and click the 'OK' button.  Then, "
    "click on the 'New User' button again and select Sparkit.  You will be creating accounts for "
    "the child or children that will be using the application.  Please be sure to create "
    "usernames and passwords that will be easy for them to remember.  Then, login as the Parent "
    "or Teacher and create your first Dutygrid.  Click the Help button on the login screen for "
    "further assistance.  Thank you for trying Sparkit Dutygrid.");

} // namespace

LogIn::LogIn() : FormWidget(Place::TopLevel), ui_(std::make_unique<Ui::LogIn>()) {
    ui_->setupUi(this);
    FitToScreen();
    for (HeadedList* list : {ui_->TeachersList, ui_->StudentsList}) {
        list->SetHeading(list->Heading());
        new PersonRows(*list, ShowPictureOf);
    }

    // What everybody comes for; the version above is chosen once.
    ui_->TeachersList->setFocus();

    On(&ui_->TeachersList->Clicks, &ListClicks::Clicked, this, [this] { List_Click(1); });
    On(&ui_->StudentsList->Clicks, &ListClicks::Clicked, this, [this] { List_Click(2); });
    On(&ui_->TeachersList->Clicks, &ListClicks::Opened, this, [this] {
        ActiveList = 1;
        LogInbtn_Click();
    });
    On(&ui_->StudentsList->Clicks, &ListClicks::Opened, this, [this] {
        ActiveList = 2;
        LogInbtn_Click();
    });
    On(ui_->LogInbtn, &QPushButton::clicked, this, [this] { LogInbtn_Click(); });
    On(ui_->NewUserbtn, &QPushButton::clicked, this, [] { Default<NewUser>().Show(); });
    On(ui_->ChangeP, &QPushButton::clicked, this, [this] { ChangeP_Click(); });
    // Selecting an option counts as its click, by hand or by the settings read.
    On(ui_->ForSchool, &QRadioButton::toggled, this, [this](bool selected) {
        if (selected)
            Version_Click(true);
    });
    On(ui_->ForHome, &QRadioButton::toggled, this, [this](bool selected) {
        if (selected)
            Version_Click(false);
    });
    On(ui_->cmdHelp, &QPushButton::clicked, this, [] {
        CurrentDesktop().ShowHelp(InProgramFolder(QStringLiteral("HelpFile/DutygridHlp.hlp")), 9);
    });
    On(ui_->cmdWebSite, &QPushButton::clicked, this,
       [] { CurrentDesktop().ShellExecute(QStringLiteral("open"), ProductWebPage, 3); });
    On(ui_->Exitbtn, &QPushButton::clicked, this, [this] {
        Unload();
        EndProcess();
    });
}

LogIn::~LogIn() = default;

void LogIn::SelectVersion(bool school) {
    QRadioButton& option = school ? *ui_->ForSchool : *ui_->ForHome;
    if (option.isChecked())
        return;
    {
        // Not by the option's signal: what fails in its handler fails here, in its caller.
        const QSignalBlocker ofSchool(ui_->ForSchool);
        const QSignalBlocker ofHome(ui_->ForHome);
        option.setChecked(true);
    }
    Version_Click(school);
}

/// All of it is to be seen on a small screen, and at twice the size on a middling one.
void LogIn::FitToScreen() {
    constexpr int LowScreen = 520; // pixels
    const bool isLow = screen()->availableSize().height() < LowScreen;
    ui_->Logo->setPixmap(LogoPicture(*this, isLow ? QSize(150, 50) : QSize(240, 80)));
    if (!isLow)
        return;
    ui_->Image1->setFixedSize(100, 100);
    ui_->Side->setAlignment(ui_->Image1, Qt::AlignHCenter);
    for (HeadedList* list : {ui_->TeachersList, ui_->StudentsList})
        list->setMinimumHeight(120);
    constexpr int Tight = 8;
    ui_->Page->setSpacing(Tight);
    ui_->Side->setSpacing(Tight);
    ui_->Page->setContentsMargins(Tight, Tight, Tight, Tight);
}

void LogIn::Load() {
    WithErrorsEndingTheRun([] { Database().InitDatabse(); });
}

void LogIn::showEvent(QShowEvent* event) {
    FormWidget::showEvent(event);
    // To be seen with the form's first paint. The activation comes later, when the window system
    // has handed over the focus; it lists them again, and tells of errors.
    if (!event->spontaneous())
        WithErrorsSkipped([this] { ListAccounts(); });
}

void LogIn::ClearAccounts() {
    ui_->TeachersList->Clear();
    ui_->StudentsList->Clear();
}

void LogIn::ListAccounts() {
    ClearAccounts();
    Database().PopulateUserList(ui_->TeachersList, *ui_->StudentsList);
    // The first who comes can do nothing but make an account.
    const bool isFirst =
        ui_->TeachersList->topLevelItemCount() + ui_->StudentsList->topLevelItemCount() == 0;
    const QString primary = QStringLiteral("primary");
    SetRole(*ui_->NewUserbtn, isFirst ? primary : QString());
    SetRole(*ui_->LogInbtn, isFirst ? QString() : primary);
    if (isFirst && ui_->TeachersList->hasFocus())
        ui_->NewUserbtn->setFocus();
}

// No session can begin where one of these steps fails.
void LogIn::Activate() {
    WithErrorsEndingTheRun([this] {
        // The accounts listed ahead go with an error in the settings.
        ClearAccounts();
        ReadSettings();
        ListAccounts();
        ShowPictureAgain();
        SelectVersion(Version::CountsAsSchool(SchoolMode));
        WelcomeOnFirstRun();
    });
}

void LogIn::WelcomeOnFirstRun() {
    const QString key = QStringLiteral("Dutygrid");
    const QString value = QStringLiteral("RunningTimes2");
    clsRegistry registry;
    const QVariant shown = registry.GetValue(HKEY_CURRENT_USER, key, value);
    if (!shown.isNull() && IntegerOf(shown) != 0)
        return;
    Tell(Welcome);
    registry.CreateKey(HKEY_CURRENT_USER, key);
    registry.SetValue(HKEY_CURRENT_USER, key, value, QVariant::fromValue(qint16{0}));
    registry.SetValue(HKEY_CURRENT_USER, key, value, QVariant::fromValue(qint16{1}));
}

void LogIn::SetListHeaders() {
    ui_->TeachersList->SetHeading(ui_->ForSchool->isChecked() ? QStringLiteral("Teachers")
                                                              : QStringLiteral("Parents"));
    ui_->StudentsList->SetHeading(QStringLiteral("Sparkits"));
    ui_->TeachersList->viewport()->update();
    ui_->StudentsList->viewport()->update();
}

LogIn::SelectedUser LogIn::ReturnSelectedUser() const {
    SelectedUser user;
    // The list decides the kind, not what is stored with the account.
    if (ActiveList == 1)
        user = {ui_->TeachersList->SelectedName(), AccountKind::Teacher};
    else if (ActiveList == 2)
        user = {ui_->StudentsList->SelectedName(), AccountKind::Student};
    return user.Name.isEmpty() ? SelectedUser() : user;
}

void LogIn::List_Click(qint16 list) {
    ActiveList = list;
    const SelectedUser user = ReturnSelectedUser();
    if (user.Name.isEmpty()) {
        Tell(PleaseSelect);
        return;
    }
    pictured_ = user.Name;
    LabelPicture picture(*ui_->Image1);
    Database().RetrevePicture(user.Name, picture);
}

/// It may have been changed meanwhile. Of an account that has gone the picture stays.
void LogIn::ShowPictureAgain() {
    for (const HeadedList* list : {ui_->TeachersList, ui_->StudentsList})
        if (!list->findItems(pictured_, Qt::MatchExactly).isEmpty())
            WithErrorsSkipped([this] {
                LabelPicture picture(*ui_->Image1);
                Database().RetrevePicture(pictured_, picture);
            });
}

void LogIn::LogInbtn_Click() {
    const SelectedUser user = ReturnSelectedUser();
    if (user.Name.isEmpty()) {
        Tell(PleaseSelect);
        return;
    }
    auto& window = Default<LoginWindow>();
    window.LoginName = user.Name;
    window.LoginState = user.State;
    window.Show();
    Unload();
}

void LogIn::ChangeP_Click() {
    const SelectedUser user = ReturnSelectedUser();
    if (user.Name.isEmpty())
        return;
    auto& form = Default<ChangePasswordfrm>();
    form.AccountName = user.Name;
    form.Show();
}

void LogIn::Version_Click(bool school) {
    SetListHeaders();
    SchoolMode = Version::Of(school);
    SchoolFlag = school ? 1 : 0;
    WriteSettings();
}

void LogIn::closeEvent(QCloseEvent* event) {
    FormWidget::closeEvent(event);
    // The window's own close button leaves the program as the Exit button does; otherwise the
    // process would go on with no window at all.
    if (IsUnloaded())
        EndProcess();
}
