#include "tests/filling/FillingTest.h"

#include "platform/forms/DefaultForms.h"
#include "tests/common/ActiveWindow.h"

#include <QFileDialog>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QProcess>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace {

using S = QStringList;

/// The viewer turns a page each time it comes to the front from another form of the program, and
/// at nothing else.
class ViewerActivationTest : public FillingTest {
protected:
    ViewerActivationTest() {
        QList<Job> jobs;
        for (const char* day : {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"})
            jobs += Job{QStringLiteral("Job"), QString::fromLatin1(day)};
        MakeChart(QStringLiteral("Chores Anna"), jobs);
        viewer_ = &OpenChart(QStringLiteral("Chores Anna"));
        EXPECT_EQ(viewer_->DayNumber, Wednesday);
    }

    ChartViewer& Viewer() { return *viewer_; }
    QWidget& Main() { return *viewer_->window(); }
    void ExpectDay(int day, int pages) {
        EXPECT_EQ(viewer_->DayNumber, day);
        EXPECT_EQ(DesktopCalls.Sounds.count(PageSound()), pages);
    }

    static constexpr int Wednesday = 4;

private:
    ChartViewer* viewer_ = nullptr;
};

TEST_F(ViewerActivationTest, OpeningTurnsToTodayAndNoFurther) {
    Settle();
    ExpectDay(Wednesday, 0);
}

TEST_F(ViewerActivationTest, ReturningFromAnotherFormTurnsOnePageAndStoresTheTicks) {
    Click(Viewer().ClearImg[0]);
    Form& other = DefaultForm(QStringLiteral("frmAboutDutygrid"));
    other.Show();
    Settle();
    ExpectDay(Wednesday, 0);
    EXPECT_EQ(Ticked(QStringLiteral("Chores Anna")), S{});
    other.Unload();
    Settle();
    ExpectDay(Wednesday + 1, 1);
    EXPECT_EQ(Ticked(QStringLiteral("Chores Anna")), S{QStringLiteral("Job|Wed")});
}

TEST_F(ViewerActivationTest, ReturningByAClickOnPlainTextTurnsOnePage) {
    Form& other = DefaultForm(QStringLiteral("frmAboutDutygrid"));
    other.Show();
    Settle();
    other.Move(0, 4500);
    Settle();
    QWidget& window = Main();
    const auto& label = Find<QLabel>(Viewer(), QStringLiteral("Label4"));
    const QPoint place = label.mapTo(&window, label.rect().center());
    ASSERT_EQ(window.childAt(place), &label);
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, place);
    Settle();
    ExpectDay(Wednesday + 1, 1);
}

TEST_F(ViewerActivationTest, AReturnArmsTheGoalAgain) {
    SetGoal(QStringLiteral("Kite"), 3);
    Viewer().GoalPoints = 0;
    Form& other = DefaultForm(QStringLiteral("frmAboutDutygrid"));
    other.Show();
    Settle();
    other.Unload();
    Settle();
    EXPECT_EQ(Viewer().GoalPoints, 3);
    Boxes.Expect(GoalMessage);
    Click(Viewer().ClearImg[0]);
    EXPECT_EQ(Viewer().GoalPoints, 0);
}

TEST_F(ViewerActivationTest, AMessageBoxTurnsNothing) {
    QMessageBox box(&Main());
    box.setText(QStringLiteral("Please read"));
    box.addButton(QMessageBox::Ok);
    QTimer::singleShot(0, &box, [&box] {
        EXPECT_TRUE(BecomesActive(box));
        box.accept();
    });
    box.exec();
    Settle();
    ExpectDay(Wednesday, 0);
}

TEST_F(ViewerActivationTest, AFileDialogTurnsNothing) {
    QFileDialog dialog(&Main());
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    QTimer::singleShot(0, &dialog, [&dialog] {
        EXPECT_TRUE(BecomesActive(dialog));
        dialog.reject();
    });
    dialog.exec();
    Settle();
    ExpectDay(Wednesday, 0);
}

TEST_F(ViewerActivationTest, AMenuTurnsNothing) {
    auto& menus = Find<QMenuBar>(Main(), QStringLiteral("Menus"));
    QMenu* menu = menus.actions().first()->menu();
    menu->popup(menus.mapToGlobal(QPoint(0, menus.height())));
    EXPECT_TRUE(QTest::qWaitForWindowExposed(menu, Patience));
    Settle();
    EXPECT_TRUE(menu->isVisible());
    menu->close();
    Settle();
    ExpectDay(Wednesday, 0);
}

TEST_F(ViewerActivationTest, AnotherProgramsWindowTurnsNothing) {
    QProcess other;
    ASSERT_TRUE(StartAnotherProgram(other));
    ASSERT_TRUE(QTest::qWaitFor([this] { return !Main().isActiveWindow(); }, Patience));
    Settle(Keyboard::InAnotherProgram);
    ExpectDay(Wednesday, 0);
    other.terminate();
    other.waitForFinished();
    Main().activateWindow();
    ASSERT_TRUE(BecomesActive(Main()));
    Settle();
    ExpectDay(Wednesday, 0);
}

TEST_F(ViewerActivationTest, MinimisingTheMainWindowTurnsNothing) {
    Main().showMinimized();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !Main().isActiveWindow(); }, Patience));
    Settle();
    ExpectDay(Wednesday, 0);
    Main().showNormal();
    Main().activateWindow();
    ASSERT_TRUE(BecomesActive(Main()));
    Settle();
    ExpectDay(Wednesday, 0);
}

TEST_F(ViewerActivationTest, LogOffAndLogInTurnOnePage) {
    Form& mainForm = DefaultForm(QStringLiteral("MainForm"));
    mainForm.Hide();
    Form& logIn = DefaultForm(QStringLiteral("LogIn"));
    logIn.Show();
    ASSERT_TRUE(BecomesActive(logIn.Widget()));
    Settle();
    ExpectDay(Wednesday, 0);
    logIn.Unload();
    mainForm.Show();
    ASSERT_TRUE(BecomesActive(mainForm.Widget()));
    EXPECT_TRUE(QTest::qWaitFor([this] { return Viewer().DayNumber != Wednesday; }, Patience));
    Settle();
    // From the log-in window, a form of the program, back to the viewer.
    ExpectDay(Wednesday + 1, 1);
}

TEST_F(ViewerActivationTest, TheGoalMessageAndThePrintQuestionsTurnNothing) {
    SetGoal(QStringLiteral("Kite"), 3);
    Viewer().GoalPoints = 3;
    const auto realBox = [this] {
        QMessageBox box(&Main());
        QTimer::singleShot(0, &box, [&box] {
            EXPECT_TRUE(BecomesActive(box));
            box.accept();
        });
        box.exec();
    };
    Boxes.Expect(GoalMessage, PromptAnswer::Ok, realBox);
    Click(Viewer().ClearImg[0]);
    Settle();
    ExpectDay(Wednesday, 0);
}

TEST_F(ViewerActivationTest, EveryReturnTurnsOnePage) {
    for (int round = 1; round <= 3; ++round) {
        DefaultForm(QStringLiteral("frmAboutDutygrid")).Show();
        Settle();
        Viewer().SetFocus();
        Settle();
        ExpectDay(Wednesday + round, round);
    }
}

} // namespace
