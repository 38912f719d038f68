#include "platform/forms/MainWindowArea.h"
#include "shell/frmAboutDutygrid.h"
#include "support/SoundFunctions.h"
#include "tests/shell/ShellTest.h"

#include <QAccessible>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QPointer>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

namespace {

class MainFormTest : public ShellTest {
protected:
    static QToolBar& Toolbar() {
        return Find<QToolBar>(MainWindow(), QStringLiteral("KidToolbar"));
    }

    /// The menu as lines "name|caption|shortcut", a separator's caption as it stands.
    static QStringList MenuLines(const char* menu) {
        QStringList lines;
        for (const QAction* entry : Find<QMenu>(MainWindow(), QString::fromLatin1(menu)).actions())
            lines += QStringLiteral("%1|%2|%3")
                         .arg(entry->objectName(), entry->text(),
                              entry->shortcut().toString(QKeySequence::PortableText));
        return lines;
    }

    static void StartAdult() { StartSession(QStringLiteral("Mum"), QStringLiteral("Teacher")); }
    static void StartChild() { StartSession(QStringLiteral("Kim"), QStringLiteral("Student")); }

    static QImage Background() {
        const auto& area = Find<QMdiArea>(MainWindow(), QStringLiteral("Area"));
        return area.viewport()->grab().toImage();
    }

    static QColor Middle(const QImage& image) { return image.pixelColor(image.rect().center()); }
};

TEST_F(MainFormTest, Menus) {
    EXPECT_EQ(MainWindow().Caption(), QStringLiteral("Sparkit Dutygrid"));
    EXPECT_EQ(MenuLines("File").join(QLatin1Char('\n')),
              QStringLiteral("NewChart|New Dutygrid|F2\n"
                             "mnuLine1|--------------------|\n"
                             "OpenChart|Open Dutygrid|F3\n"
                             "FillChart|Open Dutygrid|F4\n"
                             "mnuReviewDutygrid|Review Dutygrid|F5\n"
                             "JobReport|Print Reports|Ctrl+P\n"
                             "VicewAccount|View Accounts|F8\n"
                             "mnuLine2|--------------------|\n"
                             "LogOff|Log Off|F12\n"
                             "Exit|Exit|Ctrl+X"));
    EXPECT_EQ(MenuLines("Optinos").join(QLatin1Char('\n')),
              QStringLiteral("BackOptions|Background Options|\n"
                             "SoundOnOff|Sound On|\n"
                             "OtherOp|Other Options|"));
    EXPECT_EQ(MenuLines("Help").join(QLatin1Char('\n')),
              QStringLiteral("Contents|Contents|F1\n"
                             "WebSite|Website|\n"
                             "mnuLine3|--------------------|\n"
                             "About|About|"));
    EXPECT_EQ(Find<QMenu>(MainWindow(), QStringLiteral("File")).title(), QStringLiteral("&File"));
    EXPECT_EQ(Find<QMenu>(MainWindow(), QStringLiteral("Optinos")).title(),
              QStringLiteral("&Options"));
    EXPECT_EQ(Find<QMenu>(MainWindow(), QStringLiteral("Help")).title(), QStringLiteral("&Help"));
    EXPECT_TRUE(MainWindow().MenuEntry(QLatin1String("mnuLine2")).isSeparator());
    EXPECT_TRUE(MainWindow().SoundMark()) << "checked by default";
}

TEST_F(MainFormTest, Toolbar) {
    QStringList lines;
    for (const QAction* button : Toolbar().actions()) {
        lines +=
            QStringLiteral("%1|%2|%3").arg(button->objectName(), button->text(), button->toolTip());
        EXPECT_FALSE(button->icon().isNull()) << button->objectName().toStdString();
    }
    EXPECT_EQ(lines.join(QLatin1Char('\n')),
              QStringLiteral("KidToolbar.New|New|New Dutygrid\n"
                             "KidToolbar.Open|Open|Open Dutygrid\n"
                             "KidToolbar.OpenKid|Open|Open Dutygrid\n"
                             "KidToolbar.Review|Review|Review Dutygrid\n"
                             "KidToolbar.Print|Print|Print Reports\n"
                             "KidToolbar.View|Accounts|View Accounts\n"
                             "KidToolbar.Options|Options|Background Options\n"
                             "KidToolbar.Website|Website|Sparkit Dutygrid Website\n"
                             "KidToolbar.About|About|About Larkfen Press\n"
                             "KidToolbar.Help|Help|Help\n"
                             "KidToolbar.LogOff|Log Off|Log Off\n"
                             "KidToolbar.Exit|Exit|Exit"));
    EXPECT_EQ(Toolbar().toolButtonStyle(), Qt::ToolButtonTextUnderIcon);
}

TEST_F(MainFormTest, AdultsEntriesOpenTheirForms) {
    MakeAccount(QStringLiteral("Mum"), QStringLiteral("m"), QStringLiteral("Teacher"));
    StartAdult();
    const QList<std::pair<QLatin1String, QString>> entries = {
        {QLatin1String("NewChart"), QStringLiteral("Newfrm")},
        {QLatin1String("OpenChart"), QStringLiteral("Openfrm")},
        {QLatin1String("mnuReviewDutygrid"), QStringLiteral("WeekChartRepresentation")},
        {QLatin1String("JobReport"), QStringLiteral("Reportfrm")},
        {QLatin1String("VicewAccount"), QStringLiteral("DisplayAccount")},
        {QLatin1String("BackOptions"), QStringLiteral("BackgroundOptions")},
        {QLatin1String("OtherOp"), QStringLiteral("OtherOptions")},
        {QLatin1String("About"), QStringLiteral("frmAboutDutygrid")}};
    for (const auto& [entry, form] : entries) {
        SCOPED_TRACE(form.toStdString());
        EXPECT_FALSE(IsShown(form));
        Choose(entry);
        EXPECT_TRUE(IsShown(form));
        EXPECT_TRUE(DefaultForm(form).Unload());
        Settle();
    }
    const QList<std::pair<QLatin1String, QString>> buttons = {
        {QLatin1String("New"), QStringLiteral("Newfrm")},
        {QLatin1String("Open"), QStringLiteral("Openfrm")},
        {QLatin1String("Review"), QStringLiteral("WeekChartRepresentation")},
        {QLatin1String("Print"), QStringLiteral("Reportfrm")},
        {QLatin1String("View"), QStringLiteral("DisplayAccount")},
        {QLatin1String("Options"), QStringLiteral("BackgroundOptions")},
        {QLatin1String("About"), QStringLiteral("frmAboutDutygrid")}};
    for (const auto& [key, form] : buttons) {
        SCOPED_TRACE(form.toStdString());
        Push(key);
        EXPECT_TRUE(IsShown(form));
        EXPECT_TRUE(DefaultForm(form).Unload());
        Settle();
    }
}

TEST_F(MainFormTest, ChildsOpenLeadsToFilling) {
    StartChild();
    Push(QLatin1String("OpenKid"));
    EXPECT_TRUE(IsShown(QStringLiteral("OpenFillfrm")));
    EXPECT_TRUE(DefaultForm(QStringLiteral("OpenFillfrm")).Unload());
    Settle();
    Choose(QLatin1String("FillChart"));
    EXPECT_TRUE(IsShown(QStringLiteral("OpenFillfrm")));
}

TEST_F(MainFormTest, SecondPressBringsUpTheSameInstanceBesideOthers) {
    StartAdult();
    Push(QLatin1String("Options"));
    const QWidget* first = &DefaultForm(QStringLiteral("BackgroundOptions")).Widget();
    Push(QLatin1String("About"));
    Push(QLatin1String("Options"));
    EXPECT_EQ(&DefaultForm(QStringLiteral("BackgroundOptions")).Widget(), first);
    EXPECT_TRUE(IsShown(QStringLiteral("frmAboutDutygrid")));
    const auto& area = Find<QMdiArea>(MainWindow(), QStringLiteral("Area"));
    EXPECT_EQ(area.subWindowList().size(), 2);
    ASSERT_NE(area.activeSubWindow(), nullptr);
    EXPECT_EQ(area.activeSubWindow()->widget(), first);
}

TEST_F(MainFormTest, F6GoesFromTheToolbarToTheFormInFrontAndBack) {
    StartAdult();
    Push(QLatin1String("Options"));
    const QWidget& form = DefaultForm(QStringLiteral("BackgroundOptions")).Widget();
    ASSERT_TRUE(form.isAncestorOf(QApplication::focusWidget()));
    KeyToWindow(MainWindow(), Qt::Key_F6);
    EXPECT_TRUE(Toolbar().isAncestorOf(QApplication::focusWidget()));
    KeyToWindow(MainWindow(), Qt::Key_F6);
    EXPECT_TRUE(form.isAncestorOf(QApplication::focusWidget()));
}

TEST_F(MainFormTest, F10LeadsToTheFirstMenu) {
    StartAdult();
    KeyToWindow(MainWindow(), Qt::Key_F10);
    EXPECT_EQ(MainWindow().menuBar()->activeAction(),
              Find<QMenu>(MainWindow(), QStringLiteral("File")).menuAction());
    KeyToWindow(MainWindow(), Qt::Key_Escape);
}

TEST_F(MainFormTest, AltAndItsLetterOpensAMenu) {
    StartAdult();
    for (const auto& [key, menu] :
         {std::pair(Qt::Key_F, "File"), {Qt::Key_O, "Optinos"}, {Qt::Key_H, "Help"}}) {
        KeyToWindow(MainWindow(), key, Qt::AltModifier);
        auto& opened = Find<QMenu>(MainWindow(), QString::fromLatin1(menu));
        EXPECT_TRUE(QTest::qWaitFor([&] { return opened.isVisible(); }, Patience)) << menu;
        opened.close();
        Settle();
    }
}

TEST_F(MainFormTest, UnknownToolbarKeysDoNothing) {
    StartAdult();
    for (const char* key : {"", "new", "Log Off", "exit", "NewChart"})
        MainWindow().KidToolbar_ButtonClick(QString::fromLatin1(key));
    Settle();
    EXPECT_FALSE(IsShown(QStringLiteral("Newfrm")));
    EXPECT_TRUE(MainWindow().isVisible());
    EXPECT_TRUE(Ends.isEmpty());
}

TEST_F(MainFormTest, ShortcutOfAHiddenEntryDoesNothing) {
    StartChild();
    Press(MainWindow(), Qt::Key_F2);
    Settle();
    EXPECT_FALSE(IsShown(QStringLiteral("Newfrm")));
    Press(MainWindow(), Qt::Key_F4);
    Settle();
    EXPECT_TRUE(IsShown(QStringLiteral("OpenFillfrm")));
}

TEST_F(MainFormTest, HelpFromMenuButtonAndKey) {
    StartChild();
    Choose(QLatin1String("Contents"));
    Push(QLatin1String("Help"));
    Press(MainWindow(), Qt::Key_F1);
    const QString call = Path(QStringLiteral("HelpFile/DutygridHlp.hlp")) + QStringLiteral(" 9");
    EXPECT_EQ(DesktopCalls.Helped, QStringList({call, call, call}));
}

TEST_F(MainFormTest, WebPageOpensWithShowStateZero) {
    StartAdult();
    Choose(QLatin1String("WebSite"));
    Push(QLatin1String("Website"));
    const QString call = QStringLiteral("open https://sparkit-dutygrid.example 0");
    EXPECT_EQ(DesktopCalls.Opened, QStringList({call, call}));
}

TEST_F(MainFormTest, SoundSwitchRewritesTheSettingsEachTimeAndKeepsItsCaption) {
    StartAdult();
    QFile::remove(Path(QStringLiteral("Settings/Settings.txt")));
    Choose(QLatin1String("SoundOnOff"));
    EXPECT_FALSE(MainWindow().SoundMark());
    EXPECT_EQ(SoundOn, 0);
    EXPECT_EQ(SettingsLines().value(4), QStringLiteral(" 0 "));
    EXPECT_EQ(MainWindow().MenuEntry(QLatin1String("SoundOnOff")).text(),
              QStringLiteral("Sound On"));

    QFile::remove(Path(QStringLiteral("Settings/Settings.txt")));
    Choose(QLatin1String("SoundOnOff"));
    EXPECT_TRUE(MainWindow().SoundMark());
    EXPECT_EQ(SoundOn, 1);
    EXPECT_EQ(SettingsLines().value(4), QStringLiteral(" 1 "));
    EXPECT_EQ(MainWindow().MenuEntry(QLatin1String("SoundOnOff")).text(),
              QStringLiteral("Sound On"));
}

TEST_F(MainFormTest, SoundsFollowTheCheckMarkNotTheVariable) {
    StartAdult();
    SoundOn = 0;
    PlaySoundEffect(QStringLiteral("Applause"));
    EXPECT_EQ(DesktopCalls.Sounds.size(), 1);
    SoundOn = 1;
    MainWindow().SetSoundMark(false);
    PlaySoundEffect(QStringLiteral("Applause"));
    EXPECT_EQ(DesktopCalls.Sounds.size(), 1);
}

TEST_F(MainFormTest, ColorFillsTheBackground) {
    StartAdult();
    MainWindow().SetBackColor(255 + 256 * 128);
    EXPECT_EQ(Middle(Background()), QColor(255, 128, 0));
    MainWindow().SetBackColor(16711680);
    EXPECT_EQ(Middle(Background()), QColor(0, 0, 255));
}

TEST_F(MainFormTest, SmallPictureStandsInTheMiddleBeforeTheColor) {
    StartAdult();
    QImage picture(40, 20, QImage::Format_RGB32);
    picture.fill(Qt::green);
    MainWindow().SetBackColor(255);
    MainWindow().SetPicture(picture);
    const QImage background = Background();
    EXPECT_EQ(Middle(background), QColor(Qt::green));
    EXPECT_EQ(background.pixelColor(2, 2), QColor(Qt::red));
    EXPECT_EQ(background.pixelColor(background.rect().center() + QPoint(0, 30)), QColor(Qt::red));
    MainWindow().SetPicture(QImage());
    EXPECT_EQ(Middle(Background()), QColor(Qt::red));
}

TEST_F(MainFormTest, LargePictureCoversTheWholeBackground) {
    StartAdult();
    QImage picture(4000, 3000, QImage::Format_RGB32);
    picture.fill(Qt::green);
    QPainter painter(&picture);
    painter.fillRect(2000, 0, 2000, 1500, Qt::yellow);
    painter.fillRect(0, 1500, 2000, 1500, Qt::cyan);
    painter.fillRect(2000, 1500, 2000, 1500, Qt::magenta);
    painter.end();
    MainWindow().SetBackColor(255);
    MainWindow().SetPicture(picture);
    const QImage background = Background();
    const int right = background.width() - 1;
    const int bottom = background.height() - 1;
    EXPECT_EQ(background.pixelColor(0, 0), QColor(Qt::green));
    EXPECT_EQ(background.pixelColor(right, 0), QColor(Qt::yellow));
    EXPECT_EQ(background.pixelColor(0, bottom), QColor(Qt::cyan));
    EXPECT_EQ(background.pixelColor(right, bottom), QColor(Qt::magenta));
    EXPECT_EQ(background.pixelColor(right / 2 - 4, bottom / 2 - 4), QColor(Qt::green))
        << "its middle is in the middle";
    EXPECT_EQ(background.pixelColor(right / 2 + 4, bottom / 2 + 4), QColor(Qt::magenta));
}

TEST_F(MainFormTest, LogOffHidesTheWindowAndKeepsTheSession) {
    MakeAccount(QStringLiteral("Kim"), QStringLiteral("k"), QStringLiteral("Student"));
    ShowLogIn();
    LogInAs(Students(), 0, QStringLiteral("k"));
    const QPointer<MainForm> window = &MainWindow();
    const QPointer<LogIn> hidden = &Default<LogIn>();
    Choose(QLatin1String("BackOptions"));
    hidden->ActiveList = 7;
    Push(QLatin1String("LogOff"));
    WaitForActive(Default<LogIn>());
    EXPECT_FALSE(window.isNull());
    EXPECT_FALSE(window->isVisible());
    EXPECT_TRUE(IsShown(QStringLiteral("LogIn")));
    EXPECT_EQ(&Default<LogIn>(), hidden.data());
    EXPECT_EQ(hidden->ActiveList, 7) << "shown, not loaded anew";
    EXPECT_EQ(Names(Students()), QStringList(QStringLiteral("Kim")));
    EXPECT_EQ(CurrentUser, QStringLiteral("Kim"));
    EXPECT_EQ(CurrentState, QStringLiteral("Student"));
    EXPECT_NE(ExistingForm(QStringLiteral("BackgroundOptions")), nullptr);
    EXPECT_TRUE(Ends.isEmpty());
}

TEST_F(MainFormTest, ChildAfterAnAdultSeesOnlyItsOwnEntriesAndTheLatestName) {
    MakeAccount(QStringLiteral("Mum"), QStringLiteral("m"), QStringLiteral("Teacher"));
    MakeAccount(QStringLiteral("Kim"), QStringLiteral("k"), QStringLiteral("Student"));
    ShowLogIn();
    const QPointer<MainForm> window = &LogInAs(Teachers(), 0, QStringLiteral("m"));
    EXPECT_EQ(window->Caption(), QStringLiteral("Sparkit Dutygrid - Hi Mum"));
    EXPECT_TRUE(window->MenuEntry(QLatin1String("OtherOp")).isVisible());
    Choose(QLatin1String("LogOff"));
    WaitForActive(Default<LogIn>());
    LogInAs(Students(), 0, QStringLiteral("k"));
    EXPECT_EQ(&MainWindow(), window.data());
    EXPECT_EQ(window->Caption(), QStringLiteral("Sparkit Dutygrid - Hi Kim"));

    QStringList shown;
    for (QAction* button : Toolbar().actions())
        if (Toolbar().widgetForAction(button)->isVisible())
            shown += button->text();
    EXPECT_EQ(shown, QStringList({QStringLiteral("Open"), QStringLiteral("Account"),
                                  QStringLiteral("Help"), QStringLiteral("Log Off"),
                                  QStringLiteral("Exit")}));
    for (const char* entry : {"Contents", "WebSite", "About", "BackOptions", "SoundOnOff"})
        EXPECT_TRUE(window->MenuEntry(QLatin1String(entry)).isVisible()) << entry;
    EXPECT_FALSE(window->MenuEntry(QLatin1String("OtherOp")).isVisible());
}

TEST_F(MainFormTest, EditorLeftOpenByAnAdultIsVisibleToTheChildAfterALogOff) {
    MakeAccount(QStringLiteral("Mum"), QStringLiteral("m"), QStringLiteral("Teacher"));
    MakeAccount(QStringLiteral("Kim"), QStringLiteral("k"), QStringLiteral("Student"));
    ShowLogIn();
    LogInAs(Teachers(), 0, QStringLiteral("m"));
    const ChartEditor& editor = OpenEditor(QStringLiteral("Chores"));
    Push(QLatin1String("LogOff"));
    WaitForActive(Default<LogIn>());
    EXPECT_FALSE(editor.isVisible());
    LogInAs(Students(), 0, QStringLiteral("k"));
    EXPECT_TRUE(editor.isVisible());
    EXPECT_EQ(ChartEditors.Peek(ChartFormIndex - 1), &editor);
    EXPECT_FALSE(MainWindow().ToolbarButton(QLatin1String("New")).isVisible());
    EXPECT_TRUE(MainWindow().ToolbarButton(QLatin1String("OpenKid")).isVisible());
}

TEST_F(MainFormTest, EditorLeftOpenByAnAdultIsVisibleToTheNextAdultAfterALogOff) {
    MakeAccount(QStringLiteral("Dad"), QStringLiteral("d"), QStringLiteral("Teacher"));
    MakeAccount(QStringLiteral("Mum"), QStringLiteral("m"), QStringLiteral("Teacher"));
    ShowLogIn();
    LogInAs(Teachers(), 0, QStringLiteral("d"));
    const ChartEditor& editor = OpenEditor(QStringLiteral("Chores"));
    Push(QLatin1String("LogOff"));
    WaitForActive(Default<LogIn>());
    EXPECT_FALSE(editor.isVisible());
    LogInAs(Teachers(), 1, QStringLiteral("m"));
    EXPECT_EQ(CurrentUser, QStringLiteral("Mum"));
    EXPECT_TRUE(editor.isVisible());
    EXPECT_EQ(editor.ChartName, QStringLiteral("Chores"));
    EXPECT_EQ(ChartEditors.Peek(ChartFormIndex - 1), &editor);
}

TEST_F(MainFormTest, VersionChangedWhileAnEditorIsOpenDoesNotTouchIt) {
    MakeAccount(QStringLiteral("Mum"), QStringLiteral("m"), QStringLiteral("Teacher"));
    ShowLogIn();
    LogInAs(Teachers(), 0, QStringLiteral("m"));
    const ChartEditor& editor = OpenEditor(QStringLiteral("Chores"));
    const auto days = [&editor](int row) {
        const auto& list = Find<QComboBox>(editor, QStringLiteral("DayOfWeek(%1)").arg(row));
        QStringList entries;
        for (int entry = 0; entry < list.count(); ++entry)
            entries += list.itemText(entry);
        return entries.join(QLatin1Char(' '));
    };
    const auto expectHomeWeek = [&] {
        EXPECT_EQ(days(0), QStringLiteral("Sun Mon Tue Wed Thu Fri Sat Mon-Fri Sun-Sat"));
        EXPECT_EQ(editor.FirstDate, QDate(2001, 3, 4));
        EXPECT_EQ(editor.LastDate, QDate(2001, 3, 10));
        EXPECT_EQ(Find<QLabel>(editor, QStringLiteral("StartingFrom")).text(),
                  QStringLiteral("Starting from: Sunday 3/4/2001 to Saturday 3/10/2001"));
        EXPECT_EQ(editor.Caption(), QStringLiteral("Editing Chores chart"));
    };
    expectHomeWeek();

    Push(QLatin1String("LogOff"));
    WaitForActive(Default<LogIn>());
    Click(Find(Default<LogIn>(), QStringLiteral("ForSchool")));
    ASSERT_EQ(SchoolMode, -1);
    LogInAs(Teachers(), 0, QStringLiteral("m"));
    ASSERT_TRUE(editor.isVisible());
    expectHomeWeek();
    // A row that is added now is the school's.
    Click(Find(editor, QStringLiteral("NewTask")));
    EXPECT_EQ(days(1), QStringLiteral("Mon Tue Wed Thu Fri Mon-Fri"));
    expectHomeWeek();
}

TEST_F(MainFormTest, TitlesShowNamesAsTheyStand) {
    const QString name = QStringLiteral("a[*]b [*][*]");
    MakeAccount(name, QStringLiteral("m"), QStringLiteral("Teacher"));
    ShowLogIn();
    LogInAs(Teachers(), 0, QStringLiteral("m"));
    const QString greeting = QStringLiteral("Sparkit Dutygrid - Hi ") + name;
    EXPECT_EQ(ShownTitle(MainWindow()), greeting);
    EXPECT_EQ(MainWindow().Caption(), greeting);

    const ChartEditor& editor = OpenEditor(QStringLiteral("[*]"));
    EXPECT_EQ(editor.Caption(), QStringLiteral("Editing [*] chart"));
    QWidget& frame = editor.Frame();
    QAccessibleInterface* reader = QAccessible::queryAccessibleInterface(&frame);
    ASSERT_NE(reader, nullptr);
    EXPECT_EQ(reader->text(QAccessible::Name), QStringLiteral("Editing [*] chart"));
    // On its own frame a title is only painted: it has to differ from one without the name.
    const QImage titled = frame.grab().toImage();
    LookAt(frame, QStringLiteral("ChartEditor-title"));
    editor.Widget().setWindowTitle(QStringLiteral("Editing  chart"));
    EXPECT_NE(frame.grab().toImage(), titled);
    // The toolkit's way to write one mark.
    editor.Widget().setWindowTitle(QStringLiteral("Editing [*][*] chart"));
    EXPECT_EQ(frame.grab().toImage(), titled);

    OpenEditor(QStringLiteral("[*]")).Frame().showMaximized();
    Settle();
    EXPECT_EQ(ShownTitle(MainWindow()), greeting + QStringLiteral(" - [Editing [*] chart]"));
}

TEST_F(MainFormTest, TakesItsAreaAlong) {
    StartAdult();
    EXPECT_EQ(MainWindowArea(), &Find<QMdiArea>(MainWindow(), QStringLiteral("Area")));
    DropDefaultForms();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(MainWindowArea(), nullptr);
}

TEST_F(MainFormTest, LastSlotOfTheRunOverflowsTheCounter) {
    StartAdult();
    ChartFormIndex = 32767;
    Push(QLatin1String("New"));
    const QWidget& form = DefaultForm(QStringLiteral("Newfrm")).Widget();
    Type(Find(form, QStringLiteral("NameOfNewChart")), QStringLiteral("Chores"));
    Boxes.ExpectError(ErrorNumber::Overflow);
    Click(Find(form, QStringLiteral("Ok")));
    EXPECT_EQ(ChartFormIndex, 32767);
    EXPECT_TRUE(Ends.isEmpty());
}

TEST_F(MainFormTest, AboutFormTellsAndOpensTheWebPageEverywhere) {
    StartAdult();
    Choose(QLatin1String("About"));
    auto& form = Default<frmAboutDutygrid>();
    EXPECT_EQ(form.Caption(), QStringLiteral("About Sparkit Dutygrid"));
    EXPECT_EQ(Find<QLabel>(form, QStringLiteral("Label3")).text(),
              QStringLiteral("Sparkit Dutygrid 1.0"));
    EXPECT_EQ(Find<QLabel>(form, QStringLiteral("Label8")).text(), QStringLiteral("Larkfen Press"));
    EXPECT_FALSE(Find<QLabel>(form, QStringLiteral("Label7")).text().isEmpty());
    EXPECT_FALSE(Find<QLabel>(form, QStringLiteral("Picture1")).pixmap().isNull());
    EXPECT_TRUE(Find(form, QStringLiteral("cmdExit")).hasFocus());
    for (const char* control : {"cmdContact", "cmdWeb", "Label7", "Label8"})
        Click(Find(form, QString::fromLatin1(control)));
    EXPECT_EQ(DesktopCalls.Opened,
              QStringList(4, QStringLiteral("open https://sparkit-dutygrid.example 3")));
    Click(Find(form, QStringLiteral("cmdExit")));
    EXPECT_EQ(ExistingForm(QStringLiteral("frmAboutDutygrid")), nullptr);
}

} // namespace
