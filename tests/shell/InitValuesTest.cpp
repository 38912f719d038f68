#include "shell/InitValues.h"

#include "tests/shell/ShellTest.h"

#include <QDir>
#include <QFile>

namespace {

class InitValuesTest : public ShellTest {
protected:
    /// The menu entries that are shown, by name.
    static QStringList ShownEntries() {
        QStringList shown;
        for (const char* name :
             {"NewChart", "mnuLine1", "OpenChart", "FillChart", "mnuReviewDutygrid", "JobReport",
              "VicewAccount", "mnuLine2", "LogOff", "Exit", "BackOptions", "SoundOnOff", "OtherOp",
              "Contents", "WebSite", "mnuLine3", "About"})
            if (MainWindow().MenuEntry(QLatin1String(name)).isVisible())
                shown += QString::fromLatin1(name);
        return shown;
    }

    static QStringList ShownButtons() {
        QStringList shown;
        for (const char* key : {"New", "Open", "OpenKid", "Review", "Print", "View", "Options",
                                "Website", "About", "Help", "LogOff", "Exit"})
            if (MainWindow().ToolbarButton(QLatin1String(key)).isVisible())
                shown += QString::fromLatin1(key);
        return shown;
    }

    static QString ViewCaption() {
        return MainWindow().ToolbarButton(QLatin1String("View")).text();
    }

    static void ApplyRights(const char* state) {
        CurrentState = QString::fromLatin1(state);
        SetAccountRights();
    }

    static void ExpectAdult() {
        EXPECT_EQ(ShownEntries().join(QLatin1Char(' ')),
                  QStringLiteral("NewChart mnuLine1 OpenChart mnuReviewDutygrid JobReport "
                                 "VicewAccount mnuLine2 LogOff Exit BackOptions SoundOnOff OtherOp "
                                 "Contents WebSite mnuLine3 About"));
        EXPECT_EQ(
            ShownButtons().join(QLatin1Char(' ')),
            QStringLiteral("New Open Review Print View Options Website About Help LogOff Exit"));
        EXPECT_EQ(ViewCaption(), QStringLiteral("Accounts"));
    }

    static void ExpectChild() {
        EXPECT_EQ(ShownEntries().join(QLatin1Char(' ')),
                  QStringLiteral("FillChart VicewAccount mnuLine2 LogOff Exit BackOptions "
                                 "SoundOnOff Contents WebSite mnuLine3 About"));
        EXPECT_EQ(ShownButtons().join(QLatin1Char(' ')),
                  QStringLiteral("OpenKid View Help LogOff Exit"));
        EXPECT_EQ(ViewCaption(), QStringLiteral("Account"));
    }
};

TEST_F(InitValuesTest, TeacherAndParentSeeTheAdultsEntries) {
    ApplyRights("Teacher");
    ExpectAdult();
    ApplyRights("Student");
    ApplyRights("Parent");
    ExpectAdult();
}

TEST_F(InitValuesTest, StudentAndKidSeeTheChildsEntriesAndKeepOptionsWebSiteAndAboutInTheMenus) {
    ApplyRights("Student");
    ExpectChild();
    ApplyRights("Teacher");
    ApplyRights("Kid");
    ExpectChild();
}

TEST_F(InitValuesTest, OtherKindsChangeNothing) {
    ApplyRights("Student");
    for (const char* state : {"", "teacher", "Sparkit", "Parents"}) {
        ApplyRights(state);
        ExpectChild();
    }
    ApplyRights("Teacher");
    ApplyRights("student");
    ExpectAdult();
}

TEST_F(InitValuesTest, EmptyScratchFolderIsRemoved) {
    ASSERT_TRUE(QDir().mkpath(Path(QStringLiteral("DeleteMe"))));
    RemoveDeleteMe();
    EXPECT_FALSE(QDir(Path(QStringLiteral("DeleteMe"))).exists());
}

TEST_F(InitValuesTest, ScratchFolderWithAFileStays) {
    ASSERT_TRUE(QDir().mkpath(Path(QStringLiteral("DeleteMe"))));
    ASSERT_TRUE(QFile::copy(PictureFile(), Path(QStringLiteral("DeleteMe/Kim"))));
    RemoveDeleteMe();
    EXPECT_TRUE(QFile::exists(Path(QStringLiteral("DeleteMe/Kim"))));
}

TEST_F(InitValuesTest, MissingScratchFolderIsNoError) {
    ASSERT_FALSE(QDir(Path(QStringLiteral("DeleteMe"))).exists());
    EXPECT_NO_THROW(RemoveDeleteMe());
}

TEST_F(InitValuesTest, DateKeyHasEightDigitsInDateOrder) {
    EXPECT_EQ(ReturnDateKey(QDate(2001, 3, 7)), QStringLiteral("20010307"));
    EXPECT_EQ(ReturnDateKey(QDate(2001, 12, 31)), QStringLiteral("20011231"));
    EXPECT_LT(ReturnDateKey(QDate(2001, 9, 30)), ReturnDateKey(QDate(2001, 10, 1)));
}

} // namespace
