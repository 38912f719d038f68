#include "shell/ChangePasswordfrm.h"
#include "shell/NewUser.h"
#include "store/TableNames.h"
#include "tests/shell/ShellTest.h"

#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

namespace {

class AccountFormsTest : public ShellTest {
protected:
    static QString Picture() {
        return PictureFile(QStringLiteral("UsersPictures/red.png"), 0xffff0000);
    }

    static bool HasPicture(const QWidget& form) {
        return !Find<QLabel>(form, QStringLiteral("Image1")).pixmap().isNull();
    }
};

class NewUserTest : public AccountFormsTest {
protected:
    static NewUser& Open() {
        ShowLogIn();
        Click(Find(Default<LogIn>(), QStringLiteral("NewUserbtn")));
        return InFront(Default<NewUser>());
    }

    static QLineEdit& Box(const char* name) {
        return Find<QLineEdit>(Default<NewUser>(), QString::fromLatin1(name));
    }

    /// The log-in form, in front again.
    static LogIn& BackAtLogIn() { return InFront(Default<LogIn>()); }

    static QRadioButton& Option(const char* name) {
        return Find<QRadioButton>(Default<NewUser>(), QString::fromLatin1(name));
    }

    static void PressOk() { Click(Find(Default<NewUser>(), QStringLiteral("Ok"))); }

    void Browse(const std::optional<QString>& answer) {
        DesktopCalls.FileAnswers += answer;
        Click(Find(Default<NewUser>(), QStringLiteral("Command1")));
    }

    static bool IsOpen() { return IsShown(QStringLiteral("NewUser")); }
};

TEST_F(NewUserTest, OpensAsAChildOfTheHomeVersionWithTheLogInBehind) {
    NewUser& form = Open();
    EXPECT_EQ(form.Caption(), QStringLiteral("Create New Sparkit Dutygrid User"));
    EXPECT_TRUE(Option("StudentOp").isChecked());
    EXPECT_EQ(Option("StudentOp").text(), QStringLiteral("Sparkit"));
    EXPECT_EQ(Option("TeacherOp").text(), QStringLiteral("Parent"));
    EXPECT_TRUE(form.PictureFile.isEmpty());
    EXPECT_TRUE(IsShown(QStringLiteral("LogIn")));
    EXPECT_EQ(Box("UserName").maxLength(), 50);
    EXPECT_EQ(Box("Password").maxLength(), 50);
    TypeOn(Box("Password"), QStringLiteral("ab"));
    EXPECT_EQ(Box("Password").displayText(), QStringLiteral("**"));
    const QList<std::pair<const char*, const char*>> captions = {
        {"Command1", "Browse Picture"}, {"Ok", "Ok"}, {"Cancel", "Cancel"}};
    for (const auto& [name, caption] : captions)
        EXPECT_EQ(Find<QPushButton>(form, QString::fromLatin1(name)).text(),
                  QString::fromLatin1(caption));
}

TEST_F(NewUserTest, SchoolVersionCallsTheAdultATeacher) {
    PutSettings(true, 0);
    Open();
    EXPECT_EQ(Option("TeacherOp").text(), QStringLiteral("Teacher"));
    EXPECT_EQ(Option("StudentOp").text(), QStringLiteral("Sparkit"));
}

TEST_F(NewUserTest, ChildIsAddedWithPictureAndCostOfItsIncentive) {
    const QPointer<NewUser> form = &Open();
    Type(Box("UserName"), QStringLiteral("Kim"));
    Type(Box("Password"), QStringLiteral("cat"));
    Browse(Picture());
    EXPECT_EQ(DesktopCalls.FileFolders, QStringList(Path(QStringLiteral("UsersPictures"))));
    EXPECT_EQ(form->PictureFile, Picture());
    EXPECT_EQ(ColorOfLabel(*form, QStringLiteral("Image1")), QColor(Qt::red));
    PressOk();
    EXPECT_TRUE(form.isNull());
    ASSERT_EQ(Rows(UsersTable).size(), 1);
    EXPECT_EQ(Database().RetreveState(QStringLiteral("Kim")), QStringLiteral("Student"));
    EXPECT_EQ(Database().RetrevePassword(QStringLiteral("Kim")), QStringLiteral("cat"));
    BackAtLogIn();
    EXPECT_EQ(Names(Students()), QStringList(QStringLiteral("Kim"))) << "the lists are refreshed";
    ClickRow(Students(), 0);
    EXPECT_EQ(ColorOfLabel(Default<LogIn>(), QStringLiteral("Image1")), QColor(Qt::red));
}

TEST_F(NewUserTest, ParentOfTheHomeVersionIsStoredAsTeacher) {
    Open();
    Click(Option("TeacherOp"));
    Type(Box("UserName"), QStringLiteral("Mum"));
    Type(Box("Password"), QStringLiteral("m"));
    Browse(Picture());
    PressOk();
    EXPECT_EQ(Database().RetreveState(QStringLiteral("Mum")), QStringLiteral("Teacher"));
    BackAtLogIn();
    EXPECT_EQ(Names(Teachers()), QStringList(QStringLiteral("Mum")));
}

TEST_F(NewUserTest, SameNameAndPasswordIsRefusedAndBothBoxesAreEmptied) {
    MakeAccount(QStringLiteral("Kim"), QStringLiteral("cat"), QStringLiteral("Student"));
    Open();
    Type(Box("UserName"), QStringLiteral("Kim"));
    Type(Box("Password"), QStringLiteral("cat"));
    Browse(Picture());
    Boxes.Expect(QStringLiteral("Please try again, this user already exist"));
    PressOk();
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(Box("UserName").text(), QString());
    EXPECT_EQ(Box("Password").text(), QString());
    EXPECT_EQ(Boxes.Last().Title, QStringLiteral("Sparkit Dutygrid"));
    EXPECT_EQ(Rows(UsersTable).size(), 1);
}

TEST_F(NewUserTest, SameNameWithAnotherPasswordIsAdded) {
    MakeAccount(QStringLiteral("Kim"), QStringLiteral("cat"), QStringLiteral("Student"));
    Open();
    Type(Box("UserName"), QStringLiteral("Kim"));
    Type(Box("Password"), QStringLiteral("dog"));
    Browse(Picture());
    PressOk();
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Rows(UsersTable).size(), 2);
    EXPECT_EQ(Database().RetrevePassword(QStringLiteral("Kim")), QStringLiteral("dog"));
}

TEST_F(NewUserTest, DuplicateIsToldBeforeAMissingPicture) {
    MakeAccount(QStringLiteral("Kim"), QStringLiteral("cat"), QStringLiteral("Student"));
    Open();
    Type(Box("UserName"), QStringLiteral("Kim"));
    Type(Box("Password"), QStringLiteral("cat"));
    Boxes.Expect(QStringLiteral("Please try again, this user already exist"));
    PressOk();
}

TEST_F(NewUserTest, WhatIsMissingIsToldPasswordBeforeNameBeforePicture) {
    Open();
    Boxes.Expect(QStringLiteral("Please enter your password"));
    PressOk();
    Type(Box("Password"), QStringLiteral("cat"));
    Boxes.Expect(QStringLiteral("Please enter your username"));
    PressOk();
    Type(Box("UserName"), QStringLiteral("Kim"));
    Boxes.Expect(QStringLiteral("You have to select a picture for your account"));
    PressOk();
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(Box("UserName").text(), QStringLiteral("Kim"));
    EXPECT_TRUE(Rows(UsersTable).isEmpty());
}

TEST_F(NewUserTest, CancelledDialogKeepsTheFileChosenBefore) {
    NewUser& form = Open();
    Browse(std::nullopt);
    EXPECT_EQ(form.PictureFile, QString());
    Browse(Picture());
    Browse(std::nullopt);
    EXPECT_EQ(form.PictureFile, Picture());
    EXPECT_TRUE(HasPicture(form));
}

TEST_F(NewUserTest, ComingBackToTheFormForgetsThePictureButNotTheTexts) {
    NewUser& form = Open();
    Type(Box("UserName"), QStringLiteral("Kim"));
    Type(Box("Password"), QStringLiteral("cat"));
    Browse(Picture());
    ShowLogIn();
    form.Show();
    WaitForActive(form);
    EXPECT_EQ(form.PictureFile, QString());
    EXPECT_TRUE(HasPicture(form)) << "the preview stays";
    EXPECT_EQ(Box("UserName").text(), QStringLiteral("Kim"));
    Boxes.Expect(QStringLiteral("You have to select a picture for your account"));
    PressOk();
    // The dialog still holds its file name.
    Browse(std::nullopt);
    EXPECT_EQ(form.PictureFile, Picture());
    PressOk();
    EXPECT_EQ(Rows(UsersTable).size(), 1);
}

TEST_F(NewUserTest, FileThatIsNoPictureIsReported) {
    Open();
    Boxes.ExpectError(ErrorNumber::InvalidPicture);
    Browse(Path(QStringLiteral("Settings/Settings.txt")));
    EXPECT_TRUE(IsOpen());
    EXPECT_TRUE(Ends.isEmpty());
}

TEST_F(NewUserTest, FileThatIsNoPictureIsNotChosen) {
    NewUser& form = Open();
    Type(Box("UserName"), QStringLiteral("Kim"));
    Type(Box("Password"), QStringLiteral("cat"));
    Boxes.ExpectError(ErrorNumber::InvalidPicture);
    Browse(Path(QStringLiteral("Settings/Settings.txt")));
    EXPECT_EQ(form.PictureFile, QString());
    Boxes.Expect(QStringLiteral("You have to select a picture for your account"));
    PressOk();
    EXPECT_TRUE(IsOpen());
    EXPECT_TRUE(Rows(UsersTable).isEmpty());
}

TEST_F(NewUserTest, FileThatIsNoPictureKeepsTheOneChosenBefore) {
    NewUser& form = Open();
    Type(Box("UserName"), QStringLiteral("Kim"));
    Type(Box("Password"), QStringLiteral("cat"));
    Browse(Picture());
    for (const auto& [file, error] :
         {std::pair(QStringLiteral("Settings/Settings.txt"), ErrorNumber::InvalidPicture),
          std::pair(QStringLiteral("gone.png"), ErrorNumber::FileNotFound)}) {
        Boxes.ExpectError(error);
        Browse(Path(file));
        EXPECT_EQ(form.PictureFile, Picture());
        EXPECT_EQ(ColorOfLabel(form, QStringLiteral("Image1")), QColor(Qt::red));
    }
    // The dialog holds the former file as well.
    Browse(std::nullopt);
    EXPECT_EQ(form.PictureFile, Picture());
    PressOk();
    EXPECT_EQ(Rows(UsersTable).size(), 1);
    ClickRow(Students(), 0);
    EXPECT_EQ(ColorOfLabel(BackAtLogIn(), QStringLiteral("Image1")), QColor(Qt::red));
}

TEST_F(NewUserTest, PictureThatHasGoneIsReportedAndNothingIsStored) {
    Open();
    Type(Box("UserName"), QStringLiteral("Kim"));
    Type(Box("Password"), QStringLiteral("cat"));
    const QString picture = Picture();
    Browse(picture);
    ASSERT_TRUE(QFile::remove(picture));
    Boxes.ExpectError(ErrorNumber::FileNotFound);
    PressOk();
    EXPECT_TRUE(IsOpen());
    EXPECT_TRUE(Rows(UsersTable).isEmpty());
}

TEST_F(NewUserTest, OddNamesAreStoredAsTyped) {
    const QStringList names = {QStringLiteral("O'Neil \"Bob\""), QStringLiteral("a/b\\c..d"),
                               QStringLiteral("\U0001F98A"), QStringLiteral("   "),
                               QString(50, QLatin1Char('x'))};
    for (const QString& name : names) {
        Open();
        Box("UserName").setText(name);
        Type(Box("Password"), QStringLiteral("p"));
        Browse(Picture());
        PressOk();
    }
    BackAtLogIn();
    EXPECT_EQ(Names(Students()), names);
    for (int row = 0; row < names.size(); ++row) {
        ClickRow(Students(), row);
        EXPECT_TRUE(HasPicture(Default<LogIn>())) << names.at(row).toStdString();
    }
}

TEST_F(NewUserTest, TextsBeyondFiftyLettersAreNotTaken) {
    Open();
    Type(Box("UserName"), QString(200, QLatin1Char('n')));
    EXPECT_EQ(Box("UserName").text().size(), 50);
}

TEST_F(NewUserTest, CancelUnloadsWithoutAnAccount) {
    const QPointer<NewUser> form = &Open();
    Type(Box("UserName"), QStringLiteral("Kim"));
    Click(Find(*form, QStringLiteral("Cancel")));
    EXPECT_TRUE(form.isNull());
    EXPECT_TRUE(Rows(UsersTable).isEmpty());
    Open();
    EXPECT_EQ(Box("UserName").text(), QString()) << "a fresh form";
}

class ChangePasswordTest : public AccountFormsTest {
protected:
    ChangePasswordTest() {
        MakeAccount(QStringLiteral("Kim"), QStringLiteral("cat"), QStringLiteral("Student"));
    }

    static ChangePasswordfrm& Open() {
        ShowLogIn();
        ClickRow(Students(), 0);
        Click(Find(Default<LogIn>(), QStringLiteral("ChangeP")));
        return InFront(Default<ChangePasswordfrm>());
    }

    static QLineEdit& Box(const char* name) {
        return Find<QLineEdit>(Default<ChangePasswordfrm>(), QString::fromLatin1(name));
    }

    static void PressOk() { Click(Find(Default<ChangePasswordfrm>(), QStringLiteral("Ok"))); }

    void Browse(const std::optional<QString>& answer) {
        DesktopCalls.FileAnswers += answer;
        Click(Find(Default<ChangePasswordfrm>(), QStringLiteral("Command2")));
    }

    static bool IsOpen() { return IsShown(QStringLiteral("ChangePasswordfrm")); }

    static QString Password() { return Database().RetrevePassword(QStringLiteral("Kim")); }

    /// The colour of the picture that the log-in form shows for the account.
    static QColor StoredColor() {
        WaitForActive(Default<LogIn>());
        ClickRow(Students(), 0);
        return ColorOfLabel(Default<LogIn>(), QStringLiteral("Image1"));
    }
};

TEST_F(ChangePasswordTest, OpensForTheSelectedAccountWithTheLogInBehind) {
    ChangePasswordfrm& form = Open();
    EXPECT_EQ(form.Caption(), QStringLiteral("Change Password"));
    EXPECT_EQ(form.AccountName, QStringLiteral("Kim"));
    EXPECT_TRUE(IsShown(QStringLiteral("LogIn")));
    for (const char* box : {"OldPAss", "NewPass"}) {
        EXPECT_EQ(Box(box).maxLength(), 50);
        TypeOn(Box(box), QStringLiteral("abc"));
        EXPECT_EQ(Box(box).displayText(), QStringLiteral("???"));
    }
    const QList<std::pair<const char*, const char*>> captions = {
        {"Command2", "Browse Picture"}, {"Ok", "Ok"}, {"Command1", "Cancel"}};
    for (const auto& [name, caption] : captions)
        EXPECT_EQ(Find<QPushButton>(form, QString::fromLatin1(name)).text(),
                  QString::fromLatin1(caption));
}

TEST_F(ChangePasswordTest, RightOldPasswordStoresTheNewOneAndShowsItInClear) {
    const QPointer<ChangePasswordfrm> form = &Open();
    Type(Box("OldPAss"), QStringLiteral("cat"));
    Type(Box("NewPass"), QStringLiteral("Dog 1"));
    Boxes.Expect(QStringLiteral("Your new password is: Dog 1"), PromptAnswer::Ok,
                 [] { EXPECT_EQ(Password(), QStringLiteral("Dog 1")); });
    PressOk();
    EXPECT_EQ(Boxes.Last().Title, QStringLiteral("Sparkit Dutygrid"));
    EXPECT_TRUE(form.isNull());
    EXPECT_EQ(Password(), QStringLiteral("Dog 1"));
}

TEST_F(ChangePasswordTest, NewPasswordMayBeEmptyAndThenAnEmptyOldOneMatches) {
    Open();
    Type(Box("OldPAss"), QStringLiteral("cat"));
    Boxes.Expect(QStringLiteral("Your new password is: "));
    PressOk();
    EXPECT_EQ(Password(), QString());

    Open();
    Type(Box("NewPass"), QStringLiteral("owl"));
    Boxes.Expect(QStringLiteral("Your new password is: owl"));
    PressOk();
    EXPECT_EQ(Password(), QStringLiteral("owl"));
}

TEST_F(ChangePasswordTest, PictureChosenWithTheRightPasswordIsIgnored) {
    Open();
    Type(Box("OldPAss"), QStringLiteral("cat"));
    Type(Box("NewPass"), QStringLiteral("dog"));
    Browse(Picture());
    Boxes.Expect(QStringLiteral("Your new password is: dog"));
    PressOk();
    EXPECT_EQ(StoredColor(), QColor(0x22, 0x66, 0xaa));
}

TEST_F(ChangePasswordTest, WrongPasswordWithAPictureChangesThePictureAlone) {
    const QPointer<ChangePasswordfrm> form = &Open();
    Type(Box("OldPAss"), QStringLiteral("wrong"));
    Type(Box("NewPass"), QStringLiteral("dog"));
    Browse(Picture());
    EXPECT_EQ(DesktopCalls.FileFolders, QStringList(Path(QStringLiteral("UsersPictures"))));
    EXPECT_EQ(ColorOfLabel(*form, QStringLiteral("Image1")), QColor(Qt::red));
    PressOk();
    EXPECT_TRUE(form.isNull());
    EXPECT_TRUE(Boxes.Shown().isEmpty());
    EXPECT_EQ(Password(), QStringLiteral("cat"));
    EXPECT_EQ(StoredColor(), QColor(Qt::red));
}

TEST_F(ChangePasswordTest, WrongPasswordWithoutAPictureAsksForAChange) {
    Open();
    Type(Box("OldPAss"), QStringLiteral("CAT"));
    Type(Box("NewPass"), QStringLiteral("dog"));
    Boxes.Expect(QStringLiteral("Please make a change or click on the 'Cancel' button."));
    PressOk();
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(Box("OldPAss").text(), QStringLiteral("CAT"));
    EXPECT_EQ(Password(), QStringLiteral("cat"));
}

TEST_F(ChangePasswordTest, FileThatIsNoPictureIsNotChosen) {
    Open();
    Type(Box("OldPAss"), QStringLiteral("wrong"));
    Boxes.ExpectError(ErrorNumber::InvalidPicture);
    Browse(Path(QStringLiteral("Settings/Settings.txt")));
    Boxes.Expect(QStringLiteral("Please make a change or click on the 'Cancel' button."));
    PressOk();
    EXPECT_TRUE(IsOpen());

    Browse(Picture());
    Boxes.ExpectError(ErrorNumber::InvalidPicture);
    Browse(Path(QStringLiteral("Settings/Settings.txt")));
    PressOk();
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(StoredColor(), QColor(Qt::red)) << "the one chosen before";
}

TEST_F(ChangePasswordTest, CancelledDialogIsNoPicture) {
    Open();
    Browse(std::nullopt);
    Boxes.Expect(QStringLiteral("Please make a change or click on the 'Cancel' button."));
    PressOk();
    EXPECT_TRUE(IsOpen());
}

TEST_F(ChangePasswordTest, CancelUnloadsAndChangesNothing) {
    const QPointer<ChangePasswordfrm> form = &Open();
    Type(Box("OldPAss"), QStringLiteral("cat"));
    Type(Box("NewPass"), QStringLiteral("dog"));
    Click(Find(*form, QStringLiteral("Command1")));
    EXPECT_TRUE(form.isNull());
    EXPECT_EQ(Password(), QStringLiteral("cat"));
}

} // namespace
