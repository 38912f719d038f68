#include "platform/desktop/SystemPrompts.h"
#include "tests/common/FormTest.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace {

class SystemPromptsTest : public FormTest {
protected:
    /// Answers the box that comes up next and keeps what it showed.
    void Answer(QMessageBox::StandardButton button) {
        QTimer::singleShot(100, [this, button] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            shownText = box->text();
            shownTitle = box->windowTitle();
            buttons = box->standardButtons();
            format = box->textFormat();
            box->button(button)->click();
        });
    }

    SystemPrompts prompts;
    QString shownText;
    QString shownTitle;
    QMessageBox::StandardButtons buttons;
    Qt::TextFormat format = Qt::AutoText;
};

TEST_F(SystemPromptsTest, AMessageHasAnOkButtonAndTheProgramsTitle) {
    Answer(QMessageBox::Ok);
    Prompt prompt;
    prompt.Text = QStringLiteral("Hello");
    EXPECT_EQ(prompts.Show(prompt), PromptAnswer::Ok);
    EXPECT_EQ(shownText, QStringLiteral("Hello"));
    EXPECT_EQ(shownTitle, QStringLiteral("Sparkit Dutygrid"));
    EXPECT_EQ(buttons, QMessageBox::Ok);
}

TEST_F(SystemPromptsTest, AQuestionAnswersYesForYesAlone) {
    Prompt prompt;
    prompt.Text = QStringLiteral("Sure?");
    prompt.Buttons = PromptButtons::YesNo;
    Answer(QMessageBox::Yes);
    EXPECT_EQ(prompts.Show(prompt), PromptAnswer::Yes);
    EXPECT_EQ(buttons, QMessageBox::Yes | QMessageBox::No);
    Answer(QMessageBox::No);
    EXPECT_EQ(prompts.Show(prompt), PromptAnswer::No);
}

TEST_F(SystemPromptsTest, ClosingAQuestionAnswersNo) {
    Prompt prompt;
    prompt.Text = QStringLiteral("Sure?");
    prompt.Buttons = PromptButtons::YesNo;
    QTimer::singleShot(100, [] { QApplication::activeModalWidget()->close(); });
    EXPECT_EQ(prompts.Show(prompt), PromptAnswer::No);
}

TEST_F(SystemPromptsTest, NamesWithMarkupAreShownAsTheyStand) {
    Answer(QMessageBox::Ok);
    Prompt prompt;
    prompt.Text = QStringLiteral("<b>Bob</b>'s Sparkit Dutygrid has been created");
    prompts.Show(prompt);
    EXPECT_EQ(shownText, prompt.Text);
    EXPECT_EQ(format, Qt::PlainText);
}

TEST_F(SystemPromptsTest, ABoxOutlivesTheWindowBeneathIt) {
    auto* window = new QWidget;
    window->show();
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window, Patience));
    QTimer::singleShot(100, [window] { delete window; });
    Prompt prompt;
    prompt.Text = QStringLiteral("Sure?");
    prompt.Buttons = PromptButtons::YesNo;
    EXPECT_EQ(prompts.Show(prompt), PromptAnswer::No);
}

TEST_F(SystemPromptsTest, ABoxThatLeavesFormsReachableBlocksNoWindow) {
    QTimer::singleShot(100, [] {
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (auto* box = qobject_cast<QMessageBox*>(widget))
                box->button(QMessageBox::Ok)->click();
    });
    Prompt prompt;
    prompt.Text = QStringLiteral("Please try another name, this one already exists.");
    prompt.LeavesFormsReachable = true;
    EXPECT_EQ(prompts.Show(prompt), PromptAnswer::Ok);
}

} // namespace
