#include "tests/shell/ShellTest.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace {

const QString Incorrect = QStringLiteral("Sorry, incorect password, please try again");

class LoginWindowTest : public ShellTest {
protected:
    LoginWindowTest() {
        MakeAccount(QStringLiteral("Mum"), QStringLiteral("Secret"), QStringLiteral("Teacher"));
        MakeAccount(QStringLiteral("Kim"), QStringLiteral("cat"), QStringLiteral("Student"));
    }

    static LoginWindow& OpenFor(HeadedList& (*list)()) {
        ShowLogIn();
        return OpenLoginWindow(list(), 0);
    }

    static QLineEdit& Box(const char* name) {
        return Find<QLineEdit>(PasswordForm(), QString::fromLatin1(name));
    }

    static QWidget& Ok() { return Find(PasswordForm(), QStringLiteral("Ok")); }
};

TEST_F(LoginWindowTest, ShowsTheNameAndMasksThePassword) {
    LoginWindow& window = OpenFor(Students);
    EXPECT_EQ(window.Caption(), QStringLiteral("Sparkit Dutygrid Username and Password"));
    EXPECT_EQ(Box("UserName").text(), QStringLiteral("Kim"));
    EXPECT_FALSE(Box("UserName").isReadOnly());
    EXPECT_EQ(Box("UserName").maxLength(), 50);
    EXPECT_EQ(Box("Password").maxLength(), 50);
    TypeOn(Box("Password"), QStringLiteral("cat"));
    EXPECT_EQ(Box("Password").displayText(), QStringLiteral("***"));
    EXPECT_EQ(Find<QPushButton>(window, QStringLiteral("Ok")).text(), QStringLiteral("Log in"));
    EXPECT_EQ(Find<QPushButton>(window, QStringLiteral("Cancel")).text(), QStringLiteral("Cancel"));
    EXPECT_EQ(Find<QLabel>(window, QStringLiteral("Heading")).text(),
              QStringLiteral("Please enter your username and password"));
}

TEST_F(LoginWindowTest, GoodPasswordOpensTheSession) {
    ShowLogIn();
    MainForm& window = LogInAs(Students(), 0, QStringLiteral("cat"));
    EXPECT_EQ(CurrentUser, QStringLiteral("Kim"));
    EXPECT_EQ(CurrentState, QStringLiteral("Student"));
    EXPECT_EQ(window.Caption(), QStringLiteral("Sparkit Dutygrid - Hi Kim"));
    EXPECT_TRUE(window.isVisible());
    EXPECT_FALSE(window.ToolbarButton(QLatin1String("New")).isVisible()) << "rights of a child";
    EXPECT_EQ(ExistingForm(QStringLiteral("LoginWindow")), nullptr);
    // The settings read after the password have loaded a hidden log-in form.
    ASSERT_NE(ExistingForm(QStringLiteral("LogIn")), nullptr);
    EXPECT_FALSE(IsShown(QStringLiteral("LogIn")));
}

TEST_F(LoginWindowTest, SettingsAreReadBeforeTheMainWindowShows) {
    OpenFor(Students);
    PutSettings(false, 98765);
    Type(Box("Password"), QStringLiteral("cat"));
    Click(Ok());
    EXPECT_EQ(MainWindow().BackColor(), 98765);
    EXPECT_EQ(CurrentUser, QStringLiteral("Kim"));
}

TEST_F(LoginWindowTest, SchoolVersionSwapsTheColorFromStartToSession) {
    constexpr qint32 stored = 255;
    PutSettings(true, stored);
    ShowLogIn();
    EXPECT_EQ(MainWindow().BackColor(), stored);
    const QString designed = SettingsLines().value(2);
    LogInAs(Students(), 0, QStringLiteral("cat"));
    EXPECT_EQ(MainWindow().BackColor(), designed.trimmed().toInt());
    EXPECT_EQ(SettingsLines().value(2), QStringLiteral(" 255 "));
    EXPECT_EQ(SchoolMode, -1);
}

TEST_F(LoginWindowTest, EnterInEitherBoxIsOk) {
    OpenFor(Students);
    Boxes.Expect(Incorrect);
    Press(Box("UserName"), Qt::Key_Return);
    Boxes.VerifyAllShown();
    Type(Box("Password"), QStringLiteral("cat"));
    Press(Box("Password"), Qt::Key_Return);
    Settle();
    EXPECT_TRUE(IsShown(QStringLiteral("MainForm")));
}

TEST_F(LoginWindowTest, WrongPasswordIsToldAndEmptiedAndTheNameStays) {
    OpenFor(Teachers);
    Type(Box("UserName"), QStringLiteral("Mum"));
    Type(Box("Password"), QStringLiteral("secret"));
    Boxes.Expect(Incorrect);
    Click(Ok());
    EXPECT_EQ(Boxes.Last().Title, QStringLiteral("Sparkit Dutygrid"));
    EXPECT_EQ(Box("Password").text(), QString());
    EXPECT_EQ(Box("UserName").text(), QStringLiteral("Mum"));
    EXPECT_TRUE(CurrentUser.isEmpty());
    EXPECT_FALSE(IsShown(QStringLiteral("MainForm")));
}

TEST_F(LoginWindowTest, WrongPasswordsAreNotCounted) {
    OpenFor(Students);
    for (int attempt = 0; attempt < 6; ++attempt) {
        Type(Box("Password"), QStringLiteral("dog"));
        Boxes.Expect(Incorrect);
        Click(Ok());
    }
    Type(Box("Password"), QStringLiteral("cat"));
    Click(Ok());
    EXPECT_TRUE(IsShown(QStringLiteral("MainForm")));
}

TEST_F(LoginWindowTest, UnknownNameWithAnyPasswordIsAnIncorrectPassword) {
    OpenFor(Students);
    Type(Box("UserName"), QStringLiteral("Nobody's child"));
    Type(Box("Password"), QStringLiteral("x"));
    Boxes.Expect(Incorrect);
    Click(Ok());
}

TEST_F(LoginWindowTest, NameOfABlankIsUnknownLikeAnyOther) {
    OpenFor(Students);
    Type(Box("UserName"), QStringLiteral("   "));
    Type(Box("Password"), QStringLiteral("x"));
    Boxes.Expect(Incorrect);
    Click(Ok());
}

TEST_F(LoginWindowTest, EmptyNameAndPasswordAskForAName) {
    OpenFor(Students);
    Type(Box("UserName"), QString());
    Boxes.Expect(QStringLiteral("Please choose a username from the list, or create a new one"));
    Click(Ok());
    EXPECT_FALSE(IsShown(QStringLiteral("MainForm")));
    EXPECT_TRUE(IsShown(QStringLiteral("LoginWindow")));
}

TEST_F(LoginWindowTest, AccountWithAnEmptyPasswordLogsInWithAnEmptyBox) {
    Database().ChangePassword(QStringLiteral("Kim"), QString());
    OpenFor(Students);
    Click(Ok());
    EXPECT_EQ(CurrentUser, QStringLiteral("Kim"));
    EXPECT_TRUE(IsShown(QStringLiteral("MainForm")));
}

TEST_F(LoginWindowTest, UnknownNameWithAnEmptyPasswordOpensASessionForIt) {
    OpenFor(Students);
    Type(Box("UserName"), QStringLiteral("Stranger"));
    Click(Ok());
    EXPECT_EQ(CurrentUser, QStringLiteral("Stranger"));
    EXPECT_EQ(CurrentState, QStringLiteral("Student"));
}

TEST_F(LoginWindowTest, ChildsNameTypedFromTheAdultsListOpensAnAdultSession) {
    OpenFor(Teachers);
    Type(Box("UserName"), QStringLiteral("Kim"));
    Type(Box("Password"), QStringLiteral("cat"));
    Click(Ok());
    EXPECT_EQ(CurrentUser, QStringLiteral("Kim"));
    EXPECT_EQ(CurrentState, QStringLiteral("Teacher"));
    EXPECT_TRUE(MainWindow().ToolbarButton(QLatin1String("New")).isVisible());
}

TEST_F(LoginWindowTest, NamesDifferByCase) {
    OpenFor(Students);
    Type(Box("UserName"), QStringLiteral("kim"));
    Type(Box("Password"), QStringLiteral("cat"));
    Boxes.Expect(Incorrect);
    Click(Ok());
}

TEST_F(LoginWindowTest, LaterAccountsPasswordCountsForASharedName) {
    MakeAccount(QStringLiteral("Kim"), QStringLiteral("later"), QStringLiteral("Student"));
    OpenFor(Students);
    Type(Box("Password"), QStringLiteral("cat"));
    Boxes.Expect(Incorrect);
    Click(Ok());
    Type(Box("Password"), QStringLiteral("later"));
    Click(Ok());
    EXPECT_TRUE(IsShown(QStringLiteral("MainForm")));
}

TEST_F(LoginWindowTest, CancelGoesBackToAFreshLogInForm) {
    OpenFor(Teachers);
    Click(Find(PasswordForm(), QStringLiteral("Cancel")));
    WaitForActive(Default<LogIn>());
    EXPECT_TRUE(IsShown(QStringLiteral("LogIn")));
    EXPECT_EQ(Default<LogIn>().ActiveList, 0);
    EXPECT_EQ(Names(Students()), QStringList(QStringLiteral("Kim")));
    EXPECT_EQ(ExistingForm(QStringLiteral("LoginWindow")), nullptr);
    EXPECT_TRUE(CurrentUser.isEmpty());
}

TEST_F(LoginWindowTest, ClosingTheWindowGoesBackAsCancelDoes) {
    OpenFor(Teachers).close();
    Settle();
    EXPECT_TRUE(IsShown(QStringLiteral("LogIn")));
    EXPECT_EQ(ExistingForm(QStringLiteral("LoginWindow")), nullptr);
    EXPECT_TRUE(Ends.isEmpty());
}

TEST_F(LoginWindowTest, EscapeGoesBackAsCancelDoes) {
    Press(OpenFor(Teachers), Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([] { return IsShown(QStringLiteral("LogIn")); }, Patience));
    EXPECT_EQ(ExistingForm(QStringLiteral("LoginWindow")), nullptr);
}

} // namespace
