#include "platform/tables/TableStore.h"
#include "store/ChartFields.h"
#include "store/TableNames.h"
#include "support/clsRegistry.h"
#include "tests/shell/ShellTest.h"

#include <QDir>
#include <QFile>
#include <QVariant>

namespace {

const QString Welcome = QStringLiteral(
    "You have to set up at least two accounts before you can begin, one for you and one for the "
    "child.  Click on the 'New User' button and select either Parent or Teacher.  Enter a "
    "username and password and select a picture for yourself and click the 'OK' button.  Then, "
    "click on the 'New User' button again and select Sparkit.  You will be creating accounts for "
    "the child or children that will be using the application.  Please be sure to create "
    "usernames and passwords that will be easy for them to remember.  Then, login as the Parent "
    "or Teacher and create your first Dutygrid.  Click the Help button on the login screen for "
    "further assistance.  Thank you for trying Sparkit Dutygrid.");

/// The program's first start for a user of the machine.
class FirstRunTest : public ShellTest {
protected:
    FirstRunTest() {
        QDir(Path(QStringLiteral("UserConfig"))).removeRecursively();
        MakeAccount(QStringLiteral("Kim"), QStringLiteral("k"), QStringLiteral("Student"));
        MakeAccount(QStringLiteral("Tom"), QStringLiteral("t"), QStringLiteral("Student"));
    }

    static QVariant Marker() {
        return clsRegistry().GetValue(HKEY_CURRENT_USER, QStringLiteral("Dutygrid"),
                                      QStringLiteral("RunningTimes2"));
    }
};

TEST_F(FirstRunTest, WelcomesOncePerUserEvenIfThereAreAccounts) {
    ASSERT_FALSE(Marker().isValid());
    Boxes.Expect(Welcome);
    ShowLogIn();
    Boxes.VerifyAllShown();
    EXPECT_EQ(Boxes.Last().Title, QStringLiteral("Sparkit Dutygrid"));
    EXPECT_EQ(Marker().toString(), QStringLiteral("1"));
    EXPECT_EQ(Names(Students()).size(), 2) << "the lists have been filled before";

    // Another activation, and another start.
    OpenNewUser();
    BackFromNewUser();
    DropDefaultForms();
    Restart();
    ShowLogIn();
    EXPECT_EQ(Boxes.Shown().size(), 1);
}

TEST_F(FirstRunTest, WelcomesOncePerUserAndNotOncePerDatabase) {
    Boxes.Expect(Welcome);
    ShowLogIn();
    ASSERT_EQ(Boxes.Shown().size(), 1);

    // Another database, with another child.
    DropDefaultForms();
    ResetSession();
    const QString file = Path(QStringLiteral("Database/Charts.mdb"));
    ASSERT_TRUE(QFile::rename(file, Path(QStringLiteral("Database/Former.mdb"))));
    {
        const auto tables = TableStore::CreateDatabase(file, QString());
        tables->CreateTable(UsersTable, UsersTableFields());
        tables->Commit();
    }
    Database().InitDatabse();
    MakeAccount(QStringLiteral("Zoe"), QStringLiteral("z"), QStringLiteral("Student"));
    ShowLogIn();
    EXPECT_EQ(Names(Students()), QStringList{QStringLiteral("Zoe")});
    EXPECT_EQ(Boxes.Shown().size(), 1);

    // The same database, with another user of the machine.
    DropDefaultForms();
    qputenv("XDG_CONFIG_HOME", Path(QStringLiteral("AnotherUser")).toLocal8Bit());
    Boxes.Expect(Welcome);
    ShowLogIn();
    EXPECT_EQ(Boxes.Shown().size(), 2);
    EXPECT_EQ(Marker().toString(), QStringLiteral("1"));
}

TEST_F(FirstRunTest, MarkerOfZeroStillWelcomes) {
    const clsRegistry registry;
    registry.CreateKey(HKEY_CURRENT_USER, QStringLiteral("Dutygrid"));
    registry.SetValue(HKEY_CURRENT_USER, QStringLiteral("Dutygrid"),
                      QStringLiteral("RunningTimes2"), 0);
    Boxes.Expect(Welcome);
    ShowLogIn();
    EXPECT_EQ(Marker().toString(), QStringLiteral("1"));
}

TEST_F(FirstRunTest, DamagedRegistryWelcomesOnceMoreAndTheProgramGoesOn) {
    for (const QByteArray& damaged :
         {QByteArray(), QByteArray("{\"Dutygrid\": {"), QByteArray("x")}) {
        SCOPED_TRACE(damaged.constData());
        const QString folder = Path(QStringLiteral("UserConfig/sparkit-dutygrid"));
        ASSERT_TRUE(QDir().mkpath(folder));
        QFile file(folder + QStringLiteral("/registry.json"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(damaged);
        file.close();
        DropDefaultForms();
        Boxes.Expect(Welcome);
        ShowLogIn();
        Boxes.VerifyAllShown();
        EXPECT_EQ(Marker().toString(), QStringLiteral("1"));
        EXPECT_EQ(Names(Students()).size(), 2);
        EXPECT_TRUE(Ends.isEmpty());
    }
}

TEST_F(FirstRunTest, RegistryThatCannotBeWrittenEndsTheProcess) {
    // A file stands where the user's folder of settings belongs.
    ASSERT_TRUE(QFile::copy(PictureFile(), Path(QStringLiteral("UserConfig"))));
    Boxes.Expect(Welcome);
    Boxes.Expect(
        QStringLiteral("Run-time error '11005':\n\nCreateKey\n\nThere is no folder %1. If it "
                       "was moved or renamed, put it back where it was.")
            .arg(Path(QStringLiteral("UserConfig/sparkit-dutygrid"))));
    ShowLogIn();
    EXPECT_EQ(Ends, QList<int>{1});
}

} // namespace
