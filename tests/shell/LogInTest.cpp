#include "platform/tables/TableStore.h"
#include "store/ChartFields.h"
#include "store/TableNames.h"
#include "tests/shell/ShellTest.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QRadioButton>
#include <QTest>

namespace {

const QString PleaseSelect = QStringLiteral("Please select a user or create a new one.");

class LogInTest : public ShellTest {
protected:
    LogInTest() {
        MakeAccount(QStringLiteral("Mum"), QStringLiteral("m"), QStringLiteral("Teacher"));
        MakeAccount(QStringLiteral("Kim"), QStringLiteral("k"), QStringLiteral("Student"));
        MakeAccount(QStringLiteral("Dad"), QStringLiteral("d"), QStringLiteral("Teacher"));
        MakeAccount(QStringLiteral("Tom"), QStringLiteral("t"), QStringLiteral("Student"));
    }

    static bool HasPicture() {
        return !Find<QLabel>(Default<LogIn>(), QStringLiteral("Image1")).pixmap().isNull();
    }

    static QWidget& Button(const char* name) {
        return Find(Default<LogIn>(), QString::fromLatin1(name));
    }
};

TEST_F(LogInTest, ShowsTheAccountsInTwoListsByKind) {
    LogIn& form = ShowLogIn();
    EXPECT_EQ(form.Caption(), QStringLiteral("Sparkit Dutygrid Login"));
    EXPECT_EQ(Names(Teachers()), QStringList({QStringLiteral("Mum"), QStringLiteral("Dad")}));
    EXPECT_EQ(Names(Students()), QStringList({QStringLiteral("Kim"), QStringLiteral("Tom")}));
    EXPECT_EQ(Teachers().Heading(), QStringLiteral("Parents"));
    EXPECT_EQ(Students().Heading(), QStringLiteral("Sparkits"));
    EXPECT_EQ(Teachers().accessibleName(), QStringLiteral("Parents"));
    EXPECT_EQ(Students().accessibleName(), QStringLiteral("Sparkits"));
    EXPECT_TRUE(Teachers().hasFocus());
    EXPECT_EQ(form.ActiveList, 0);
    EXPECT_FALSE(IsShown(QStringLiteral("MainForm")));
}

TEST_F(LogInTest, TheAccountsAreListedBeforeTheFormComesToTheFront) {
    Default<LogIn>().Show();
    EXPECT_EQ(Names(Teachers()), QStringList({QStringLiteral("Mum"), QStringLiteral("Dad")}));
    EXPECT_EQ(Names(Students()), QStringList({QStringLiteral("Kim"), QStringLiteral("Tom")}));
    // As they are then, when it comes back after a session.
    Settle();
    Default<LogIn>().Hide();
    Database().DeleteAccount(QStringLiteral("Tom"));
    Default<LogIn>().Show();
    EXPECT_EQ(Names(Students()), QStringList(QStringLiteral("Kim")));
}

TEST_F(LogInTest, CaptionsOfItsButtons) {
    LogIn& form = ShowLogIn();
    const QList<std::pair<const char*, const char*>> captions = {
        {"LogInbtn", "Login"},         {"NewUserbtn", "New User"},
        {"ChangeP", "Change Account"}, {"Exitbtn", "Exit"},
        {"cmdHelp", "Help"},           {"cmdWebSite", "WebSite"},
        {"ForHome", "Home Version"},   {"ForSchool", "School Version"}};
    for (const auto& [name, caption] : captions)
        EXPECT_EQ(Find<QAbstractButton>(form, QString::fromLatin1(name)).text(),
                  QString::fromLatin1(caption));
}

TEST_F(LogInTest, LoadOpensTheStoreAndRepeatedLoadsAreHarmless) {
    Default<LogIn>();
    Database().AddUser(QStringLiteral("Ann"), QStringLiteral("a"), QStringLiteral("Student"),
                       QString());
    EXPECT_TRUE(Default<LogIn>().Unload());
    Default<LogIn>();
    EXPECT_EQ(Database().RetrevePassword(QStringLiteral("Ann")), QStringLiteral("a"));
    EXPECT_EQ(Database().RetrevePassword(QStringLiteral("Mum")), QStringLiteral("m"));
}

TEST_F(LogInTest, ClickShowsThePictureAndSetsTheActiveList) {
    LogIn& form = ShowLogIn();
    EXPECT_FALSE(HasPicture());
    ClickRow(Teachers(), 0);
    EXPECT_EQ(form.ActiveList, 1);
    EXPECT_TRUE(HasPicture());
    EXPECT_EQ(ColorOfLabel(form, QStringLiteral("Image1")), QColor(0x22, 0x66, 0xaa));
    ClickRow(Students(), 1);
    EXPECT_EQ(form.ActiveList, 2);
    EXPECT_TRUE(QDir(Path(QStringLiteral("DeleteMe"))).exists());
}

TEST_F(LogInTest, APictureChangedMeanwhileIsShownWhenTheFormComesBack) {
    LogIn& form = ShowLogIn();
    ClickRow(Students(), 0);
    const auto comeBack = [&form] {
        OpenNewUser();
        BackFromNewUser();
        return ColorOfLabel(form, QStringLiteral("Image1"));
    };
    QImage red(40, 40, QImage::Format_RGB32);
    red.fill(0xffcc2211);
    ASSERT_TRUE(red.save(Path(QStringLiteral("red.png"))));
    Arrange(
        [] { Database().ChangePicture(QStringLiteral("Kim"), Path(QStringLiteral("red.png"))); });
    EXPECT_EQ(comeBack(), QColor(0xcc, 0x22, 0x11));
    Arrange([] { Database().DeleteAccount(QStringLiteral("Kim")); });
    EXPECT_EQ(comeBack(), QColor(0xcc, 0x22, 0x11)) << "what is shown of one that has gone stays";
}

TEST_F(LogInTest, ListingTheAccountsTakesNoPictureOutOfTheStore) {
    ShowLogIn();
    EXPECT_FALSE(QDir(Path(QStringLiteral("DeleteMe"))).exists());
}

TEST_F(LogInTest, ClickOnTheEmptyPartScoldsAndLosesTheSelection) {
    LogIn& form = ShowLogIn();
    ClickRow(Students(), 0);
    Boxes.Expect(PleaseSelect);
    ClickEmptyPart(Students());
    EXPECT_EQ(form.ActiveList, 2);
    EXPECT_EQ(Boxes.Last().Title, QStringLiteral("Sparkit Dutygrid"));
    EXPECT_TRUE(HasPicture()) << "the picture of the account last clicked stays";
    Boxes.Expect(PleaseSelect);
    Click(Button("LogInbtn"));
    EXPECT_TRUE(IsShown(QStringLiteral("LogIn")));
}

TEST_F(LogInTest, ListTouchedLastDecidesWhoLogsIn) {
    ShowLogIn();
    ClickRow(Students(), 0);
    ClickRow(Teachers(), 1);
    Click(Button("LogInbtn"));
    EXPECT_EQ(PasswordForm().LoginName, QStringLiteral("Dad"));
    EXPECT_EQ(PasswordForm().LoginState, QStringLiteral("Teacher"));
}

TEST_F(LogInTest, RightButtonTouchesAListAsTheLeftDoes) {
    ShowLogIn();
    ClickRow(Students(), 0);
    QTest::mouseClick(Teachers().viewport(), Qt::RightButton, {},
                      Teachers().visualItemRect(Teachers().topLevelItem(1)).center());
    Settle();
    Click(Button("LogInbtn"));
    EXPECT_EQ(PasswordForm().LoginName, QStringLiteral("Dad"));
}

TEST_F(LogInTest, LoginHandsTheAccountOverAndUnloadsTheForm) {
    const QPointer<LogIn> form = &ShowLogIn();
    const LoginWindow& window = OpenLoginWindow(Students(), 1);
    EXPECT_EQ(window.LoginName, QStringLiteral("Tom"));
    EXPECT_EQ(window.LoginState, QStringLiteral("Student"));
    EXPECT_TRUE(form.isNull());
    EXPECT_EQ(ExistingForm(QStringLiteral("LogIn")), nullptr);
}

TEST_F(LogInTest, DoubleClickLogsIn) {
    ShowLogIn();
    DoubleClickRow(Teachers(), 0);
    EXPECT_EQ(PasswordForm().LoginName, QStringLiteral("Mum"));
    EXPECT_EQ(PasswordForm().LoginState, QStringLiteral("Teacher"));
    EXPECT_EQ(ExistingForm(QStringLiteral("LogIn")), nullptr);
}

TEST_F(LogInTest, DoubleClickOnTheEmptyPartScoldsAsAClickAndAsALogin) {
    LogIn& form = ShowLogIn();
    ClickRow(Teachers(), 0);
    Boxes.Expect(PleaseSelect);
    Boxes.Expect(PleaseSelect);
    DoubleClickEmptyPart(Students());
    EXPECT_EQ(form.ActiveList, 2);
    EXPECT_TRUE(IsShown(QStringLiteral("LogIn")));
}

TEST_F(LogInTest, LoginWithoutASelectionScolds) {
    ShowLogIn();
    Boxes.Expect(PleaseSelect);
    Click(Button("LogInbtn"));
    EXPECT_FALSE(IsShown(QStringLiteral("LoginWindow")));
}

TEST_F(LogInTest, ChangeAccountWithoutASelectionDoesNothing) {
    ShowLogIn();
    Click(Button("ChangeP"));
    EXPECT_FALSE(IsShown(QStringLiteral("ChangePasswordfrm")));
    EXPECT_TRUE(Boxes.Shown().isEmpty());
}

TEST_F(LogInTest, ArrowKeysChooseAnAccountAndEnterLogsIn) {
    LogIn& form = ShowLogIn();
    Students().setFocus();
    Press(Students(), Qt::Key_Down);
    Settle();
    EXPECT_EQ(form.ActiveList, 2);
    EXPECT_EQ(Students().SelectedName(), QStringLiteral("Kim"));
    EXPECT_TRUE(HasPicture());
    Press(Students(), Qt::Key_Down);
    EXPECT_EQ(Students().SelectedName(), QStringLiteral("Tom"));
    Press(Students(), Qt::Key_Return);
    Settle();
    EXPECT_EQ(PasswordForm().LoginName, QStringLiteral("Tom"));
}

TEST_F(LogInTest, EnterLogsInTheAccountOfItsListThoughTheOtherWasTouchedLast) {
    for (const QString& name : {QStringLiteral("Mum"), QStringLiteral("Kim")}) {
        ShowLogIn();
        const bool isAdult = name == QStringLiteral("Mum");
        HeadedList& list = isAdult ? Teachers() : Students();
        ClickRow(list, 0);
        ClickRow(isAdult ? Students() : Teachers(), 1);
        list.setFocus();
        Press(list, Qt::Key_Return);
        Settle();
        EXPECT_EQ(PasswordForm().LoginName, name);
        Default<LoginWindow>().Unload();
    }
}

TEST_F(LogInTest, FirstLettersOfANameChooseIt) {
    ShowLogIn();
    Students().setFocus();
    TypeOn(Students(), QStringLiteral("to"));
    EXPECT_EQ(Students().SelectedName(), QStringLiteral("Tom"));
    EXPECT_EQ(Default<LogIn>().ActiveList, 2);
}

TEST_F(LogInTest, EnterInAListWithoutASelectionScolds) {
    ShowLogIn();
    Teachers().setFocus();
    Boxes.Expect(PleaseSelect);
    Press(Teachers(), Qt::Key_Return);
    EXPECT_EQ(Default<LogIn>().ActiveList, 1);
}

TEST_F(LogInTest, ComingBackFromAnotherFormRefreshesTheListsAndLosesTheSelection) {
    LogIn& form = ShowLogIn();
    ClickRow(Students(), 0);
    OpenNewUser();
    ASSERT_TRUE(IsShown(QStringLiteral("NewUser")));
    EXPECT_TRUE(form.isVisible());
    MakeAccount(QStringLiteral("Zoe"), QStringLiteral("z"), QStringLiteral("Student"));
    BackFromNewUser();
    EXPECT_EQ(Names(Students()),
              QStringList({QStringLiteral("Kim"), QStringLiteral("Tom"), QStringLiteral("Zoe")}));
    EXPECT_EQ(Students().SelectedName(), QString());
    EXPECT_EQ(form.ActiveList, 2) << "set to 0 by a load only";
    Boxes.Expect(PleaseSelect);
    Click(Button("LogInbtn"));
}

TEST_F(LogInTest, ActivationReadsTheSettingsEachTime) {
    PutSettings(false, 4711);
    ShowLogIn();
    EXPECT_EQ(MainWindow().BackColor(), 4711);
    OpenNewUser();
    PutSettings(false, 1234);
    BackFromNewUser();
    EXPECT_EQ(MainWindow().BackColor(), 1234);
}

TEST_F(LogInTest, SchoolVersionIsStoredAtOnceAndChangesTheHeading) {
    ShowLogIn();
    SoundOn = 0;
    Click(Button("ForSchool"));
    EXPECT_EQ(SchoolMode, -1);
    EXPECT_EQ(SchoolFlag, 1);
    EXPECT_EQ(SettingsLines().value(3), QStringLiteral(" 1 "));
    EXPECT_EQ(SettingsLines().value(4), QStringLiteral(" 0 ")) << "the whole file is rewritten";
    EXPECT_EQ(Teachers().Heading(), QStringLiteral("Teachers"));
    EXPECT_EQ(Teachers().accessibleName(), QStringLiteral("Teachers"));
    EXPECT_EQ(Students().Heading(), QStringLiteral("Sparkits"));

    Click(Button("ForHome"));
    EXPECT_EQ(SchoolMode, 0);
    EXPECT_EQ(SchoolFlag, 0);
    EXPECT_EQ(SettingsLines().value(3), QStringLiteral(" 0 "));
    EXPECT_EQ(Teachers().Heading(), QStringLiteral("Parents"));
}

TEST_F(LogInTest, StartInTheSchoolVersionShowsIt) {
    PutSettings(true, 255);
    LogIn& form = ShowLogIn();
    EXPECT_TRUE(Find<QRadioButton>(form, QStringLiteral("ForSchool")).isChecked());
    EXPECT_EQ(Teachers().Heading(), QStringLiteral("Teachers"));
    EXPECT_EQ(Names(Teachers()).size(), 2);
}

TEST_F(LogInTest, HelpAndWebSite) {
    ShowLogIn();
    Click(Button("cmdHelp"));
    EXPECT_EQ(DesktopCalls.Helped,
              QStringList(Path(QStringLiteral("HelpFile/DutygridHlp.hlp")) + QStringLiteral(" 9")));
    Click(Button("cmdWebSite"));
    EXPECT_EQ(DesktopCalls.Opened,
              QStringList(QStringLiteral("open https://sparkit-dutygrid.example 3")));
}

TEST_F(LogInTest, FaultOfTheStoreAtTheStartEndsTheRun) {
    ASSERT_TRUE(QDir(Path(QStringLiteral("Database"))).removeRecursively());
    EXPECT_END_OF_RUN(3000, Default<LogIn>());
}

TEST_F(LogInTest, FaultOfTheSettingsAtActivationEndsTheProcess) {
    ASSERT_TRUE(QFile::remove(Path(QStringLiteral("Settings/Settings.txt"))));
    Boxes.ExpectError(ErrorNumber::FileNotFound);
    ShowLogIn();
    EXPECT_EQ(Ends, QList<int>{1});
}

TEST_F(LogInTest, FaultOfTheFileRewrittenWithinTheSettingsEndsTheProcess) {
    PutSettings(true, 123);
    MakeSettingsReadOnly();
    Boxes.ExpectError(ErrorNumber::PathFileAccessError);
    ShowLogIn();
    EXPECT_EQ(Ends, QList<int>{1});
    EXPECT_NE(MainWindow().BackColor(), 123) << "the reading ended with the writing within";
    EXPECT_TRUE(Names(Students()).isEmpty()) << "and the activation with the reading";
}

TEST_F(LogInTest, FaultOfTheSettingsAtTheVersionsSwitchDoesNotEndTheProcess) {
    ShowLogIn();
    MakeSettingsReadOnly();
    Boxes.ExpectError(ErrorNumber::PathFileAccessError);
    Click(Button("ForSchool"));
    EXPECT_TRUE(Ends.isEmpty());
}

TEST_F(LogInTest, FaultWhileTheListsAreFilledEndsTheProcess) {
    {
        const auto tables = TableStore::OpenDatabase(Path(QStringLiteral("Database/Charts.mdb")));
        Recordset rows = tables->OpenRecordset(UsersTable);
        rows.AddNew();
        rows.SetValue(AccountField::Name, QStringLiteral("Nobody's child"));
        rows.Update();
        tables->Commit();
    }
    Boxes.ExpectError(ErrorNumber::InvalidUseOfNull);
    ShowLogIn();
    EXPECT_EQ(Ends, QList<int>{1});
}

class NoAccountsTest : public ShellTest {};

TEST_F(NoAccountsTest, ToolTipsShowNamesAsTheyStand) {
    const QString adult = QStringLiteral("<b>Mum</b> & Dad");
    const QString child = QStringLiteral("<b>x</b>");
    MakeAccount(adult, QStringLiteral("m"), QStringLiteral("Teacher"));
    MakeAccount(child, QStringLiteral("k"), QStringLiteral("Student"));
    ShowLogIn();
    EXPECT_EQ(ShownTip(Teachers().topLevelItem(0)->toolTip(0)), adult);
    EXPECT_EQ(ShownTip(Students().topLevelItem(0)->toolTip(0)), child);
}

TEST_F(NoAccountsTest, EmptyListsScoldAndChangeAccountDoesNothing) {
    LogIn& form = ShowLogIn();
    EXPECT_TRUE(Names(Teachers()).isEmpty());
    EXPECT_TRUE(Names(Students()).isEmpty());
    Boxes.Expect(PleaseSelect);
    ClickEmptyPart(Teachers());
    Boxes.Expect(PleaseSelect);
    Click(Find(form, QStringLiteral("LogInbtn")));
    Boxes.Expect(PleaseSelect);
    Boxes.Expect(PleaseSelect);
    DoubleClickEmptyPart(Students());
    Boxes.VerifyAllShown();
    Click(Find(form, QStringLiteral("ChangeP")));
    EXPECT_FALSE(IsShown(QStringLiteral("ChangePasswordfrm")));
    EXPECT_FALSE(IsShown(QStringLiteral("LoginWindow")));
}

TEST_F(NoAccountsTest, TheFirstWhoComesIsLedToMakeAnAccount) {
    const LogIn& form = ShowLogIn();
    const auto role = [&form](const char* button) {
        return Find(form, QString::fromLatin1(button)).property("role").toString();
    };
    EXPECT_EQ(role("NewUserbtn"), QStringLiteral("primary"));
    EXPECT_EQ(role("LogInbtn"), QString());
    EXPECT_TRUE(Find(form, QStringLiteral("NewUserbtn")).hasFocus());
    OpenNewUser();
    MakeAccount(QStringLiteral("Mum"), QStringLiteral("m"), QStringLiteral("Teacher"));
    BackFromNewUser();
    EXPECT_EQ(role("NewUserbtn"), QString());
    EXPECT_EQ(role("LogInbtn"), QStringLiteral("primary"));
}

TEST_F(NoAccountsTest, KeysInAnEmptyListDoNothing) {
    LogIn& form = ShowLogIn();
    Students().setFocus();
    Press(Students(), Qt::Key_Down);
    Press(Students(), Qt::Key_Space);
    EXPECT_EQ(form.ActiveList, 0);
}

TEST_F(NoAccountsTest, ManyAccountsAndLongNamesAreReadable) {
    for (int number = 1; number <= 12; ++number)
        MakeAccount(QStringLiteral("Child number %1").arg(number), QStringLiteral("x"),
                    QStringLiteral("Student"));
    const QString longName(50, QLatin1Char('W'));
    MakeAccount(longName, QStringLiteral("x"), QStringLiteral("Teacher"));
    MakeAccount(QStringLiteral("O'Neil \"Bob\" / \U0001F98A."), QStringLiteral("x"),
                QStringLiteral("Teacher"));
    LogIn& form = ShowLogIn();
    EXPECT_EQ(Students().topLevelItemCount(), 12);
    EXPECT_EQ(ShownTip(Teachers().topLevelItem(0)->toolTip(0)), longName);
    ClickRow(Teachers(), 1);
    LookAt(form, QStringLiteral("LogIn-many"));
    Click(Find(form, QStringLiteral("LogInbtn")));
    EXPECT_EQ(PasswordForm().LoginName, QStringLiteral("O'Neil \"Bob\" / \U0001F98A."));
}

} // namespace
