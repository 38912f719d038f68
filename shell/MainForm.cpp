#include "shell/MainForm.h"

#include "platform/forms/DefaultForms.h"
#include "platform/forms/Handlers.h"
#include "platform/forms/MainWindowArea.h"
#include "platform/runtime/Actions.h"
#include "platform/runtime/Desktop.h"
#include "platform/runtime/ProgramFolder.h"
#include "session/Session.h"
#include "session/Settings.h"
#include "shell/InitValues.h"
#include "shell/LogIn.h"
#include "shell/PrintLine.h"
#include "shell/ToolbarIcon.h"
#include "shell/WebPage.h"
#include "shell/WelcomePage.h"
#include "ui_MainForm.h"

#include <QGuiApplication>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QScreen>
#include <QShortcut>
#include <QToolBar>
#include <algorithm>
#include <array>

namespace {

struct ToolbarEntry {
    QLatin1String key;
    QLatin1String caption;
    QLatin1String tip;
    /// The form that the button opens; empty for the buttons that do something else.
    QLatin1String form;
};

constexpr std::array ToolbarEntries = {
    ToolbarEntry{QLatin1String("New"), QLatin1String("New"), QLatin1String("New Dutygrid"),
                 FormNames::Newfrm},
    ToolbarEntry{QLatin1String("Open"), QLatin1String("Open"), QLatin1String("Open Dutygrid"),
                 FormNames::Openfrm},
    ToolbarEntry{QLatin1String("OpenKid"), QLatin1String("Open"), QLatin1String("Open Dutygrid"),
                 FormNames::OpenFillfrm},
    ToolbarEntry{QLatin1String("Review"), QLatin1String("Review"), QLatin1String("Review Dutygrid"),
                 FormNames::WeekChartRepresentation},
    ToolbarEntry{QLatin1String("Print"), QLatin1String("Print"), QLatin1String("Print Reports"),
                 FormNames::Reportfrm},
    ToolbarEntry{QLatin1String("View"), QLatin1String("Accounts"), QLatin1String("View Accounts"),
                 FormNames::DisplayAccount},
    ToolbarEntry{QLatin1String("Options"), QLatin1String("Options"),
                 QLatin1String("Background Options"), FormNames::BackgroundOptions},
    ToolbarEntry{QLatin1String("Website"), QLatin1String("Website"),
                 QLatin1String("Sparkit Dutygrid Website"), QLatin1String("")},
    ToolbarEntry{QLatin1String("About"), QLatin1String("About"),
                 QLatin1String("About Larkfen Press"), FormNames::frmAboutDutygrid},
    ToolbarEntry{QLatin1String("Help"), QLatin1String("Help"), QLatin1String("Help"),
                 QLatin1String("")},
    ToolbarEntry{QLatin1String("LogOff"), QLatin1String("Log Off"), QLatin1String("Log Off"),
                 QLatin1String("")},
    ToolbarEntry{QLatin1String("Exit"), QLatin1String("Exit"), QLatin1String("Exit"),
                 QLatin1String("")}};

QString ButtonName(QLatin1String key) {
    return QLatin1String("KidToolbar.") + key;
}

} // namespace

MainForm::MainForm() : Form(*this, Place::TopLevel), ui_(std::make_unique<Ui::MainForm>()) {
    ui_->setupUi(this);
    printLine_ = new PrintLine(*menuBar());
    BuildToolbar();
    ConnectMenus();
    SetMainWindowArea(ui_->Area);

    // High enough for a chart with its responsible person, where the screen is.
    const QSize wanted(1180, 840);
    const QSize room = QGuiApplication::primaryScreen()->availableSize() - QSize(40, 60);
    resize(wanted.boundedTo(room));
    if (size() != wanted)
        setWindowState(Qt::WindowMaximized);
    FitToolbar(room);
}

MainForm::~MainForm() = default;

void MainForm::BuildToolbar() {
    for (const ToolbarEntry& entry : ToolbarEntries) {
        QAction* button = ui_->KidToolbar->addAction(ToolbarIcon(entry.key), entry.caption);
        button->setObjectName(ButtonName(entry.key));
        button->setToolTip(entry.tip);
        button->setData(QString(entry.key));
        ui_->KidToolbar->widgetForAction(button)->setFocusPolicy(Qt::TabFocus);
    }
    On(ui_->KidToolbar, &QToolBar::actionTriggered, this,
       [this](const QAction* button) { KidToolbar_ButtonClick(button->data().toString()); });
}

/// On a small screen, or at a large scale, the room is the forms'.
void MainForm::FitToolbar(const QSize& room) {
    constexpr QSize Ample(800, 800); // pixels
    constexpr int Medium = 620;
    if (room.height() >= Ample.height())
        return;
    const bool isNarrow = room.width() < Ample.width();
    const bool isMedium = room.height() >= Medium && !isNarrow;
    if (!isMedium)
        ui_->KidToolbar->setIconSize(QSize(24, 24));
    ui_->KidToolbar->setProperty("room", isMedium   ? QStringLiteral("medium")
                                         : isNarrow ? QStringLiteral("small")
                                                    : QStringLiteral("low"));
}

/// To and fro between the toolbar and the form in front, or the greeting, by way of the line about
/// a print while it has a button; Tab stays within each of them.
void MainForm::SwapToolbarAndForm() {
    const bool isOnToolbar = ui_->KidToolbar->isAncestorOf(focusWidget());
    if (isOnToolbar && printLine_->TakeKeyboard())
        return;
    const bool isAbove = isOnToolbar || printLine_->isAncestorOf(focusWidget());
    if (QMdiSubWindow* front = ui_->Area->activeSubWindow(); isAbove && front != nullptr) {
        front->setFocus(Qt::ShortcutFocusReason);
        return;
    }
    if (isAbove && ui_->Area->FocusWelcome())
        return;
    for (QAction* action : ui_->KidToolbar->actions())
        if (action->isVisible()) {
            ui_->KidToolbar->widgetForAction(action)->setFocus(Qt::TabFocusReason);
            return;
        }
}

void MainForm::ConnectMenus() {
    OpenWith(ui_->NewChart, FormNames::Newfrm);
    OpenWith(ui_->OpenChart, FormNames::Openfrm);
    OpenWith(ui_->FillChart, FormNames::OpenFillfrm);
    OpenWith(ui_->mnuReviewDutygrid, FormNames::WeekChartRepresentation);
    OpenWith(ui_->JobReport, FormNames::Reportfrm);
    OpenWith(ui_->VicewAccount, FormNames::DisplayAccount);
    OpenWith(ui_->BackOptions, FormNames::BackgroundOptions);
    OpenWith(ui_->OtherOp, FormNames::OtherOptions);
    OpenWith(ui_->About, FormNames::frmAboutDutygrid);
    On(new QShortcut(Qt::Key_F10, this), &QShortcut::activated, this,
       [this] { menuBar()->setActiveAction(ui_->File->menuAction()); });
    On(new QShortcut(Qt::Key_F6, this), &QShortcut::activated, this,
       [this] { SwapToolbarAndForm(); });
    On(ui_->LogOff, &QAction::triggered, this, [this] { LogOffNow(); });
    On(ui_->Exit, &QAction::triggered, this, [this] {
        Unload();
        // Also if a form within refused: this way out ends the process whatever the answer.
        EndProcess();
    });
    On(ui_->SoundOnOff, &QAction::triggered, this,
       [this](bool nowChecked) { SoundOnOff_Click(nowChecked); });
    On(ui_->Contents, &QAction::triggered, this, [this] { ShowHelpFile(); });
    On(ui_->WebSite, &QAction::triggered, this, [this] { OpenWebPage(); });
}

void MainForm::OpenWith(QAction* entry, const QString& form) {
    On(entry, &QAction::triggered, this, [form] { DefaultForm(form).Show(); });
}

void MainForm::KidToolbar_ButtonClick(const QString& Key) {
    for (const ToolbarEntry& entry : ToolbarEntries) {
        if (Key != entry.key)
            continue;
        if (!entry.form.isEmpty())
            DefaultForm(entry.form).Show();
        else if (Key == QLatin1String("Website"))
            OpenWebPage();
        else if (Key == QLatin1String("Help"))
            ShowHelpFile();
        else if (Key == QLatin1String("LogOff"))
            LogOffNow();
        else
            Unload();
        return;
    }
}

void MainForm::SoundOnOff_Click(bool nowChecked) {
    SoundOn = nowChecked ? 1 : 0;
    WriteSettings();
}

void MainForm::ShowPrintNews(const PrintNews& news) {
    printLine_->Tell(news);
}

void MainForm::ShowHelpFile() {
    CurrentDesktop().ShowHelp(InProgramFolder(QStringLiteral("HelpFile/DutygridHlp.hlp")), 9);
}

void MainForm::OpenWebPage() {
    CurrentDesktop().ShellExecute(QStringLiteral("open"), ProductWebPage, 0);
}

void MainForm::LogOffNow() {
    Hide();
    Default<LogIn>().Show();
}

void MainForm::Activate() {
    SetAccountRights();
    ui_->Area->SetGreeting(MakeGreeting());
}

/// Made of the toolbar's buttons that the account sees and of the menu's keys.
Greeting MainForm::MakeGreeting() const {
    struct Hint {
        QLatin1String key;
        QLatin1String menuEntry;
        QLatin1String text;
    };
    const Hint hints[] = {
        {QLatin1String("New"), QLatin1String("NewChart"),
         QLatin1String("Write down the jobs of a week and choose who does them.")},
        {QLatin1String("Open"), QLatin1String("OpenChart"),
         QLatin1String("Change or print a Dutygrid.")},
        {QLatin1String("OpenKid"), QLatin1String("FillChart"),
         QLatin1String("See your jobs and tick off what you have done.")},
        {QLatin1String("Review"), QLatin1String("mnuReviewDutygrid"),
         QLatin1String("See what has been done, day by day.")},
        {QLatin1String("View"), QLatin1String("VicewAccount"),
         IsAdult(CurrentState) ? QLatin1String("See points, and set a goal to save up for.")
                               : QLatin1String("See your points and what you save up for.")}};
    Greeting greeting{
        QLatin1String("Hi ") + CurrentUser, QStringLiteral("What would you like to do?"), {}};
    for (const Hint& hint : hints) {
        QAction& button = ToolbarButton(hint.key);
        if (!button.isVisible())
            continue;
        Greeting::Step step{&button, button.text(), QString(hint.text), {}, false};
        if (IsAdult(CurrentState))
            step.key = MenuEntry(hint.menuEntry).shortcut().toString();
        else
            step.isLarge = true;
        greeting.steps += step;
    }
    return greeting;
}

bool MainForm::QueryUnload() {
    RemoveDeleteMe();
    // Nothing is refused here; a form within may refuse to go, and then the window stays.
    const QList<QMdiSubWindow*> frames = ui_->Area->subWindowList();
    return std::all_of(frames.begin(), frames.end(), [](const QMdiSubWindow* frame) {
        auto* form = dynamic_cast<Form*>(frame->widget());
        return form == nullptr || frame->isHidden() || form->Unload();
    });
}

void MainForm::Unloaded() {
    EndProcess();
}

void MainForm::closeEvent(QCloseEvent* event) {
    HandleClose(*event);
}

qint32 MainForm::BackColor() const {
    return ui_->Area->BackColor();
}

void MainForm::SetBackColor(qint32 color) {
    ui_->Area->SetBackColor(color);
}

QImage MainForm::Picture() const {
    return ui_->Area->Picture();
}

void MainForm::SetPicture(const QImage& picture) {
    ui_->Area->SetPicture(picture);
}

bool MainForm::SoundMark() const {
    return ui_->SoundOnOff->isChecked();
}

void MainForm::SetSoundMark(bool on) {
    ui_->SoundOnOff->setChecked(on);
}

QAction& MainForm::MenuEntry(QLatin1String name) const {
    auto* entry = findChild<QAction*>(name);
    if (entry == nullptr)
        throw RuntimeError(ErrorNumber::ObjectVariableNotSet);
    return *entry;
}

QAction& MainForm::ToolbarButton(QLatin1String key) const {
    auto* button = ui_->KidToolbar->findChild<QAction*>(ButtonName(key));
    if (button == nullptr)
        throw RuntimeError(ErrorNumber::ObjectVariableNotSet);
    return *button;
}
