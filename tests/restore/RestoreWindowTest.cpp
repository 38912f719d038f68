#include "restore/RestoreWindow.h"
#include "restore/RunRestore.h"

#include "platform/runtime/Actions.h"
#include "platform/runtime/Dates.h"
#include "store/DailyCopies.h"
#include "store/ProgramFiles.h"
#include "store/PutBack.h"
#include "tests/common/ApplicationState.h"
#include "tests/common/NextBox.h"
#include "tests/look/LookTest.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QHeaderView>
#include <QIcon>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScopeGuard>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

class RestoreWindowTest : public LookTest {
protected:
    /// A copy of each of so many days, in which Anna has more points each day.
    static void MakeCopies(int days) {
        MakeFamily();
        KeepDailyCopies(true);
        for (int day = 0; day < days; ++day) {
            SetToday(QDate(2001, 3, 7).addDays(day));
            RunAction([] { Database().AddPoints(u"Anna"_s, 5, false); });
            FinishDailyCopy();
        }
        KeepDailyCopies(false);
        ResetSession();
    }
    static QString Text(RestoreWindow& window, const QString& name) {
        return Find<QLabel>(window, name).text();
    }
};

TEST_F(RestoreWindowTest, WithoutCopiesThereIsNothingToPress) {
    RestoreWindow window;
    window.show();
    Settle();
    EXPECT_FALSE(Find<QPushButton>(window, u"PutBack"_s).isEnabled());
    EXPECT_TRUE(Find<QLabel>(window, u"NoCopies"_s).isVisible());
    EXPECT_TRUE(Find<QPushButton>(window, u"Close"_s).hasFocus());
    LookAt(window, u"Restore-empty"_s);
    Click(Find(window, u"Close"_s));
    EXPECT_FALSE(window.isVisible());
    window.show();
    Settle();
    Press(Find(window, u"Close"_s), Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(RestoreWindowTest, TheCopiesAreListedByDayAndSayWhatIsOtherwise) {
    MakeCopies(3);
    RestoreWindow window;
    window.show();
    Settle();
    auto& copies = Find<QTreeWidget>(window, u"Copies"_s);
    ASSERT_EQ(copies.topLevelItemCount(), 3);
    EXPECT_FALSE(copies.header()->sectionsClickable());
    EXPECT_EQ(copies.topLevelItem(0)->text(0), u"Friday, 9 March 2001"_s);
    EXPECT_EQ(copies.topLevelItem(2)->text(0), u"Wednesday, 7 March 2001"_s);
    EXPECT_EQ(Text(window, u"Difference"_s), u"Compared with now: Anna has 5 points fewer."_s);
    Press(copies, Qt::Key_Down);
    EXPECT_EQ(Text(window, u"Difference"_s), u"Compared with now: Anna has 10 points fewer."_s);
    EXPECT_EQ(copies.currentItem()->data(0, Qt::AccessibleDescriptionRole).toString(),
              u"Compared with now: Anna has 10 points fewer."_s);
    EXPECT_EQ(copies.topLevelItem(2)->data(0, Qt::AccessibleTextRole).toString(),
              u"Wednesday, 7 March 2001: 9 accounts, 0 charts and 0 past weeks"_s);
    LookAt(window, u"Restore"_s);

    Press(copies, Qt::Key_Tab);
    EXPECT_TRUE(Find(window, u"PutBack"_s).hasFocus());
    Press(Find(window, u"PutBack"_s), Qt::Key_Tab);
    EXPECT_TRUE(Find(window, u"Close"_s).hasFocus());
}

TEST_F(RestoreWindowTest, ACopyIsPutBackByTheKeyboardAfterAsking) {
    MakeCopies(2);
    const CopySummary before = SummaryOf(DatabaseFile());
    RestoreWindow window;
    window.show();
    Settle();
    const QString question =
        u"Put back all accounts and Dutygrids as they were on Thursday, 8 March 2001?\n\nCompared "
        "with now: Anna has 5 points fewer.\n\nWhat is stored now is kept as a copy in this list."_s;
    Boxes.Expect(question, PromptAnswer::No);
    Press(Find(window, u"Copies"_s), Qt::Key_Return);
    EXPECT_TRUE(Boxes.Last().BeginsOnNo);
    EXPECT_EQ(Boxes.Last().Icon, PromptIcon::Exclamation);
    EXPECT_EQ(DifferenceOf(SummaryOf(DatabaseFile()), before), QString());

    Boxes.Expect(question, PromptAnswer::Yes);
    Boxes.Expect(u"Everything is as it was on Thursday, 8 March 2001. You can start Sparkit "
                 "Dutygrid now."_s);
    Press(Find(window, u"PutBack"_s), Qt::Key_Space);
    EXPECT_EQ(DifferenceOf(SummaryOf(DatabaseFile()), before), u"Anna has 5 points fewer"_s);
    EXPECT_EQ(Find<QTreeWidget>(window, u"Copies"_s).topLevelItemCount(), 3);
    EXPECT_EQ(Text(window, u"Difference"_s), u"Compared with now: Anna has 5 points more."_s);
}

TEST_F(RestoreWindowTest, ADoubleClickAsksAboutTheDayThatItIsOn) {
    MakeCopies(2);
    RestoreWindow window;
    window.show();
    Settle();
    auto& copies = Find<QTreeWidget>(window, u"Copies"_s);
    ClickRow(copies, 0);
    Boxes.Expect(u"Put back all accounts and Dutygrids as they were on Wednesday, 7 March "
                 "2001?\n\nCompared with now: Anna has 10 points fewer.\n\nWhat is stored now is "
                 "kept as a copy in this list."_s,
                 PromptAnswer::No);
    DoubleClickRow(copies, 1);
}

TEST_F(RestoreWindowTest, ItRefusesWhileTheProgramRuns) {
    MakeCopies(1);
    RestoreWindow window;
    window.show();
    Settle();
    const auto program = UseData();
    Boxes.Expect(u"Put back all accounts and Dutygrids as they were on Wednesday, 7 March "
                 "2001?\n\nCompared with now: Anna has 5 points fewer.\n\nWhat is stored now is "
                 "kept as a copy in this list."_s,
                 PromptAnswer::Yes);
    Boxes.Expect(u"The copy was not put back.\n\nSparkit Dutygrid is still running. Please end it, "
                 "on this screen and for everyone else who uses this computer, and try again."_s);
    Click(Find(window, u"PutBack"_s));
}

TEST_F(RestoreWindowTest, WhatStandsInItsWayIsNamedWithTheWayOut) {
    MakeCopies(1);
    const QString note = Path(u"Backups/PuttingBack.txt"_s);
    ASSERT_TRUE(QDir().mkdir(note));
    RestoreWindow window;
    window.show();
    Settle();
    Boxes.Expect(u"Put back all accounts and Dutygrids as they were on Wednesday, 7 March "
                 "2001?\n\nCompared with now: Anna has 5 points fewer.\n\nWhat is stored now is "
                 "kept as a copy in this list."_s,
                 PromptAnswer::Yes);
    Boxes.Expect(
        u"The copy was not put back.\n\nPath/File access error\n\n%1 is a folder, and a "
        "file belongs there. Rename the folder, and put the file in its place."_s.arg(note));
    Click(Find(window, u"PutBack"_s));
    Boxes.VerifyAllShown();
}

TEST_F(RestoreWindowTest, WhatIsPutBackInPartIsSaidToBeSo) {
    MakeCopies(1);
    const QString journal = DatabaseFile() + u"-journal"_s;
    RestoreWindow window;
    window.show();
    Settle();
    ASSERT_TRUE(QDir().mkdir(journal));
    Boxes.Expect(u"Put back all accounts and Dutygrids as they were on Wednesday, 7 March "
                 "2001?\n\nCompared with now: Anna has 5 points fewer.\n\nWhat is stored now is "
                 "kept as a copy in this list."_s,
                 PromptAnswer::Yes);
    Boxes.Expect(
        u"A copy has been put back only in part. When what stands below is mended, start Sparkit "
        "Dutygrid: it puts back the rest by itself.\n\nPath/File access error\n\n%1 is a folder, "
        "and a file belongs there. Rename the folder, and put the file in its place."_s.arg(
            journal));
    Click(Find(window, u"PutBack"_s));
    Boxes.VerifyAllShown();
}

TEST_F(RestoreWindowTest, TheProgramShowsItUnderItsNameUntilItIsClosed) {
    MakeCopies(1);
    const ApplicationState state;
    const auto prompts = qScopeGuard([this] { SetPrompts(&Boxes); });
    QApplication::setQuitOnLastWindowClosed(true);
    QApplication::setWindowIcon(QIcon());
    QElapsedTimer watch;
    watch.start();
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &look, [&] {
        auto* window = qobject_cast<RestoreWindow*>(QApplication::activeWindow());
        if (window == nullptr && !watch.hasExpired(Patience))
            return;
        look.stop();
        if (window == nullptr) {
            ADD_FAILURE() << "the window does not come";
            QCoreApplication::exit(99);
            return;
        }
        EXPECT_EQ(QCoreApplication::applicationName(), u"Sparkit Dutygrid Restore"_s);
        EXPECT_EQ(QGuiApplication::desktopFileName(),
                  u"example.sparkit_dutygrid.DutygridRestore"_s);
        EXPECT_FALSE(QApplication::windowIcon().isNull());
        EXPECT_EQ(Find<QTreeWidget>(*window, u"Copies"_s).topLevelItemCount(), 1)
            << "of the folder given";
        {
            const NextBox next([](QWidget& box) {
                EXPECT_TRUE(dynamic_cast<QMessageBox&>(box).text().startsWith(u"Put back all"_s));
                box.close();
            });
            QTest::mouseClick(&Find(*window, u"PutBack"_s), Qt::LeftButton);
        }
        QTest::mouseClick(&Find(*window, u"Close"_s), Qt::LeftButton);
    });
    look.start(10);
    QTimer tooLong;
    tooLong.callOnTimeout([] { QCoreApplication::exit(99); });
    tooLong.start(2 * Patience);
    EXPECT_EQ(RunRestore(*qApp, Path(QString())), 0);
}

TEST_F(RestoreWindowTest, AFileThatIsMissingIsToldFromOneThatCannotBeRead) {
    MakeCopies(1);
    const auto wordsOfToday = [] {
        RestoreWindow window;
        return Text(window, u"Today"_s);
    };
    ASSERT_TRUE(QFile::remove(DatabaseFile()));
    EXPECT_EQ(wordsOfToday(), u"The file with your accounts and Dutygrids is missing."_s);
    ASSERT_TRUE(QFile::link(Path(u"nowhere"_s), DatabaseFile()));
    EXPECT_EQ(wordsOfToday(), u"The file with your accounts and Dutygrids cannot be read: it is "
                              "damaged, or you may not open it."_s);
}

TEST_F(RestoreWindowTest, ADamagedFileAndADamagedCopyAreSaidToBeSo) {
    MakeCopies(2);
    for (const QString& path : {DatabaseFile(), DatabaseOfCopy(u"2001-03-08"_s)}) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("damaged");
    }
    RestoreWindow window;
    window.show();
    Settle();
    EXPECT_EQ(Text(window, u"Today"_s),
              u"The file with your accounts and Dutygrids cannot be read: it is damaged, or you "
              "may not open it."_s);
    EXPECT_FALSE(Find<QPushButton>(window, u"PutBack"_s).isEnabled());
    Press(Find(window, u"Copies"_s), Qt::Key_Down);
    EXPECT_TRUE(Find<QPushButton>(window, u"PutBack"_s).isEnabled());
    EXPECT_TRUE(Text(window, u"Difference"_s).startsWith(u"It holds "_s));
    LookAt(window, u"Restore-damaged"_s);
}
