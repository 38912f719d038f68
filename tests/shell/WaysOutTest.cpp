#include "tests/shell/ShellTest.h"

#include <QDir>
#include <QFile>
#include <QPointer>
#include <QTest>

namespace {

const QString WithoutSaving = QStringLiteral("Are you sure you want to exit without saving?");

/// The ways out of the program. A number in Ends stands for an end of the process.
class WaysOutTest : public ShellTest {
protected:
    WaysOutTest() { QDir().mkpath(Path(QStringLiteral("DeleteMe"))); }

    static bool ScratchFolderIsThere() { return QDir(Path(QStringLiteral("DeleteMe"))).exists(); }

    static void StartAdult() { StartSession(QStringLiteral("Mum"), QStringLiteral("Teacher")); }
};

TEST_F(WaysOutTest, MenuExitUnloadsTheWindowAndThenEndsTheProcess) {
    StartAdult();
    Choose(QLatin1String("Exit"));
    // Once by the window's unload, once by the menu entry itself.
    EXPECT_EQ(Ends, QList<int>({0, 0}));
    EXPECT_EQ(ExistingForm(QStringLiteral("MainForm")), nullptr);
    EXPECT_FALSE(ScratchFolderIsThere());
}

TEST_F(WaysOutTest, KeyOfMenuExit) {
    StartAdult();
    Press(MainWindow(), Qt::Key_X, Qt::ControlModifier);
    Settle();
    EXPECT_EQ(Ends, QList<int>({0, 0}));
}

TEST_F(WaysOutTest, ToolbarExitUnloadsTheWindowWhichEndsTheProcess) {
    StartAdult();
    Push(QLatin1String("Exit"));
    EXPECT_EQ(Ends, QList<int>{0});
    EXPECT_EQ(ExistingForm(QStringLiteral("MainForm")), nullptr);
    EXPECT_FALSE(ScratchFolderIsThere());
}

TEST_F(WaysOutTest, ClosingTheWindowIsAsTheToolbar) {
    StartAdult();
    MainWindow().close();
    Settle();
    EXPECT_EQ(Ends, QList<int>{0});
    EXPECT_EQ(ExistingForm(QStringLiteral("MainForm")), nullptr);
    EXPECT_FALSE(ScratchFolderIsThere());
}

TEST_F(WaysOutTest, LogInExitEndsTheProcessWithoutTheMainWindow) {
    LogIn& form = ShowLogIn();
    Click(Find(form, QStringLiteral("Exitbtn")));
    EXPECT_EQ(Ends, QList<int>{0});
    EXPECT_EQ(ExistingForm(QStringLiteral("LogIn")), nullptr);
    EXPECT_NE(ExistingForm(QStringLiteral("MainForm")), nullptr) << "not unloaded on this way";
    EXPECT_TRUE(ScratchFolderIsThere());
}

TEST_F(WaysOutTest, ClosingTheLogInWindowIsAsItsExit) {
    ShowLogIn().close();
    Settle();
    EXPECT_EQ(Ends, QList<int>{0});
    EXPECT_EQ(ExistingForm(QStringLiteral("LogIn")), nullptr);
    EXPECT_TRUE(ScratchFolderIsThere());
}

TEST_F(WaysOutTest, ScratchFolderWithAFileOutlivesTheMainWindow) {
    ASSERT_TRUE(QFile::copy(PictureFile(), Path(QStringLiteral("DeleteMe/Kim"))));
    StartAdult();
    Push(QLatin1String("Exit"));
    EXPECT_EQ(Ends, QList<int>{0});
    EXPECT_TRUE(QFile::exists(Path(QStringLiteral("DeleteMe/Kim"))));
}

TEST_F(WaysOutTest, OpenEditorIsAskedAndMayKeepTheWindow) {
    StartAdult();
    const QPointer<ChartEditor> editor = &OpenEditor(QStringLiteral("Chart 1"));
    Boxes.Expect(WithoutSaving, PromptAnswer::No, [this] {
        EXPECT_FALSE(ScratchFolderIsThere()) << "removed before any form is asked";
    });
    Push(QLatin1String("Exit"));
    EXPECT_TRUE(Ends.isEmpty());
    EXPECT_TRUE(MainWindow().isVisible());
    ASSERT_FALSE(editor.isNull());
    EXPECT_TRUE(editor->isVisible());

    Boxes.Expect(WithoutSaving, PromptAnswer::Yes);
    Push(QLatin1String("Exit"));
    EXPECT_EQ(Ends, QList<int>{0});
    EXPECT_TRUE(editor.isNull());
}

TEST_F(WaysOutTest, MenuExitEndsTheProcessWhateverAnEditorAnswers) {
    StartAdult();
    OpenEditor(QStringLiteral("Chart 2"));
    Boxes.Expect(WithoutSaving, PromptAnswer::No);
    Choose(QLatin1String("Exit"));
    EXPECT_EQ(Ends, QList<int>{0});
}

TEST_F(WaysOutTest, HiddenEditorIsNotAsked) {
    StartAdult();
    OpenEditor(QStringLiteral("Chart 3")).Hide();
    Push(QLatin1String("Exit"));
    EXPECT_EQ(Ends, QList<int>{0});
}

TEST_F(WaysOutTest, EveryOpenEditorIsAskedUntilOneRefuses) {
    StartAdult();
    OpenEditor(QStringLiteral("Chart 4"));
    OpenEditor(QStringLiteral("Chart 5"));
    OpenEditor(QStringLiteral("Chart 6"));
    Boxes.Expect(WithoutSaving, PromptAnswer::Yes);
    Boxes.Expect(WithoutSaving, PromptAnswer::No);
    MainWindow().close();
    Settle();
    EXPECT_TRUE(Ends.isEmpty());
    EXPECT_EQ(ChartEditors.Peek(0), nullptr);
    EXPECT_NE(ChartEditors.Peek(1), nullptr);
    EXPECT_NE(ChartEditors.Peek(2), nullptr);
}

TEST_F(WaysOutTest, LogInExitWithASessionsEditorAsksNothing) {
    MakeAccount(QStringLiteral("Mum"), QStringLiteral("m"), QStringLiteral("Teacher"));
    ShowLogIn();
    LogInAs(Teachers(), 0, QStringLiteral("m"));
    OpenEditor(QStringLiteral("Chart 7"));
    Push(QLatin1String("LogOff"));
    WaitForActive(Default<LogIn>());
    Click(Find(Default<LogIn>(), QStringLiteral("Exitbtn")));
    EXPECT_EQ(Ends, QList<int>{0});
}

} // namespace
