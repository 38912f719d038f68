#include "platform/desktop/SystemPrompts.h"
#include "platform/forms/DefaultForms.h"
#include "tests/common/ActiveWindow.h"
#include "tests/common/FormTest.h"
#include "tests/common/NextBox.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <QTranslator>
#include <QWindow>

namespace {

class SystemPromptsTest : public FormTest {
protected:
    SystemPromptsTest() { question.Buttons = PromptButtons::YesNo; }

    /// Shows a box, and says what it is answered with as soon as it stands.
    PromptAnswer Answer(const Prompt& prompt, const std::function<void(QMessageBox&)>& answer) {
        const NextBox next([&](QWidget& box) { answer(dynamic_cast<QMessageBox&>(box)); });
        return prompts.Show(prompt);
    }

    static std::function<void(QMessageBox&)> Pressing(QMessageBox::StandardButton button) {
        return [button](QMessageBox& box) { box.button(button)->click(); };
    }

    SystemPrompts prompts;
    Prompt message{QStringLiteral("Hello")};
    Prompt question{QStringLiteral("Sure?")};
};

TEST_F(SystemPromptsTest, AMessageHasAnOkButtonAndTheProgramsTitle) {
    const auto look = [](QMessageBox& box) {
        EXPECT_EQ(box.text(), QStringLiteral("Hello"));
        EXPECT_EQ(box.windowTitle(), QStringLiteral("Sparkit Dutygrid"));
        EXPECT_EQ(box.standardButtons(), QMessageBox::Ok);
        EXPECT_EQ(box.button(QMessageBox::Ok)->text(), QStringLiteral("Ok"));
        box.button(QMessageBox::Ok)->click();
    };
    EXPECT_EQ(Answer(message, look), PromptAnswer::Ok);
}

/// As desktops of other languages bring them for the toolkit's own words.
class OtherWords : public QTranslator {
public:
    QString translate(const char*, const char* text, const char*, int) const override {
        const QString word = QString::fromLatin1(text);
        return word == QLatin1String("QT_LAYOUT_DIRECTION") ? QStringLiteral("RTL")
               : word == QLatin1String("&Yes")              ? QStringLiteral("&Ja")
               : word == QLatin1String("&No")               ? QStringLiteral("&Nein")
                                                            : QString();
    }
    bool isEmpty() const override { return false; }
};

TEST_F(SystemPromptsTest, QuestionsAreAnsweredInEnglishOnEverySystem) {
    OtherWords words;
    QCoreApplication::installTranslator(&words);
    Answer(question, [](QMessageBox& box) {
        EXPECT_EQ(box.button(QMessageBox::Yes)->text(), QStringLiteral("&Yes"));
        EXPECT_EQ(box.button(QMessageBox::No)->text(), QStringLiteral("&No"));
        EXPECT_EQ(box.layoutDirection(), Qt::LeftToRight);
        box.close();
    });
    QCoreApplication::removeTranslator(&words);
}

TEST_F(SystemPromptsTest, ABoxHasTheIconOfItsWeight) {
    for (const auto& [icon, shown] : {std::pair(PromptIcon::None, QMessageBox::NoIcon),
                                      {PromptIcon::Exclamation, QMessageBox::Warning},
                                      {PromptIcon::Critical, QMessageBox::Critical}}) {
        message.Icon = icon;
        Answer(message, [expected = shown](QMessageBox& box) {
            EXPECT_EQ(box.icon(), expected);
            box.close();
        });
    }
}

TEST_F(SystemPromptsTest, TheButtonThatEnterPressesStandsOut) {
    Answer(question, [](QMessageBox& box) {
        EXPECT_EQ(box.button(QMessageBox::Yes)->property("role").toString(),
                  QStringLiteral("primary"));
        EXPECT_FALSE(box.button(QMessageBox::No)->property("role").isValid());
        box.close();
    });
    question.BeginsOnNo = true;
    Answer(question, [](QMessageBox& box) {
        EXPECT_EQ(box.button(QMessageBox::No)->property("role").toString(),
                  QStringLiteral("primary"));
        EXPECT_FALSE(box.button(QMessageBox::Yes)->property("role").isValid());
        box.close();
    });
}

TEST_F(SystemPromptsTest, AQuestionAnswersYesForYesAlone) {
    const auto close = [](QMessageBox& box) { box.close(); };
    const auto escape = [](QMessageBox& box) { Press(box, Qt::Key_Escape); };
    const auto enter = [](QMessageBox& box) {
        EXPECT_EQ(box.standardButtons(), QMessageBox::Yes | QMessageBox::No);
        Press(box, Qt::Key_Return);
    };
    EXPECT_EQ(Answer(question, Pressing(QMessageBox::Yes)), PromptAnswer::Yes);
    EXPECT_EQ(Answer(question, enter), PromptAnswer::Yes);
    EXPECT_EQ(Answer(question, Pressing(QMessageBox::No)), PromptAnswer::No);
    EXPECT_EQ(Answer(question, close), PromptAnswer::No);
    EXPECT_EQ(Answer(question, escape), PromptAnswer::No);
}

TEST_F(SystemPromptsTest, AQuestionThatBeginsOnNoIsAnsweredSoByEnter) {
    question.BeginsOnNo = true;
    const auto enter = [](QMessageBox& box) {
        ASSERT_TRUE(box.button(QMessageBox::No)->hasFocus());
        Press(*box.button(QMessageBox::No), Qt::Key_Return);
    };
    EXPECT_EQ(Answer(question, enter), PromptAnswer::No);
    EXPECT_EQ(Answer(question, Pressing(QMessageBox::Yes)), PromptAnswer::Yes);
}

TEST_F(SystemPromptsTest, ABoxThatLeavesFormsReachableCoversNotTheFormThatItIsAbout) {
    StartSession(QStringLiteral("Mum"), QStringLiteral("Teacher"));
    Form& form = DefaultForm(QStringLiteral("Newfrm"));
    form.Show();
    Settle();
    message.Text = QStringLiteral("Please try another name, this one already exists.");
    message.LeavesFormsReachable = true;
    const int room = form.Frame().parentWidget()->height() - form.Frame().height();
    for (const int top : {room / 3, room}) {
        form.Frame().move(form.Frame().x(), top);
        const QRect place(form.Frame().mapToGlobal(QPoint()), form.Frame().size());
        QRect seen;
        const NextBox next(
            [&](QWidget& box) {
                seen = box.frameGeometry();
                dynamic_cast<QMessageBox&>(box).button(QMessageBox::Ok)->click();
            },
            ShownMessageBox);
        prompts.Show(message);
        Settle();
        const auto told = [](const QRect& rect) {
            return QStringLiteral("%1,%2 %3x%4")
                .arg(rect.x())
                .arg(rect.y())
                .arg(rect.width())
                .arg(rect.height())
                .toStdString();
        };
        EXPECT_FALSE(seen.intersects(place)) << told(seen) << " on " << told(place);
        EXPECT_EQ(seen.top() > place.bottom(), top < room) << "below it, if there is room";
        EXPECT_TRUE(form.Widget().screen()->availableGeometry().contains(seen));
    }
}

TEST_F(SystemPromptsTest, NamesWithMarkupAreShownAsTheyStand) {
    message.Text = QStringLiteral("<b>Bob</b>'s Sparkit Dutygrid has been created");
    Answer(message, [this](QMessageBox& box) {
        EXPECT_EQ(box.text(), message.Text);
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        box.close();
    });
}

TEST_F(SystemPromptsTest, ABoxOutlivesTheWindowBeneathIt) {
    QTimer guard;
    QObject::connect(&guard, &QTimer::timeout, &guard, [] {
        ADD_FAILURE() << "the program waits for a box that has gone";
        QCoreApplication::exit();
    });
    guard.start(5 * Patience);
    for (const bool leavesFormsReachable : {false, true})
        for (const PromptButtons buttons : {PromptButtons::Ok, PromptButtons::YesNo}) {
            auto* window = new QWidget;
            window->show();
            window->activateWindow();
            ASSERT_TRUE(BecomesActive(*window));
            const NextBox next([window](QWidget&) { delete window; }, ShownMessageBox);
            Prompt prompt{QStringLiteral("Sure?")};
            prompt.Buttons = buttons;
            prompt.LeavesFormsReachable = leavesFormsReachable;
            EXPECT_EQ(prompts.Show(prompt),
                      buttons == PromptButtons::Ok ? PromptAnswer::Ok : PromptAnswer::No);
        }
}

TEST_F(SystemPromptsTest, ABoxThatLeavesFormsReachableBlocksNoWindow) {
    message.LeavesFormsReachable = true;
    const NextBox next(
        [](QWidget& box) {
            EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
            dynamic_cast<QMessageBox&>(box).button(QMessageBox::Ok)->click();
        },
        ShownMessageBox);
    EXPECT_EQ(prompts.Show(message), PromptAnswer::Ok);
    EXPECT_EQ(ShownMessageBox(), nullptr);
}

} // namespace
