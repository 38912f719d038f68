#include "platform/forms/FormKeys.h"
#include "platform/forms/DefaultForms.h"
#include "tests/common/ActiveWindow.h"
#include "tests/common/Charts.h"
#include "tests/common/FormTest.h"
#include "widgets/ClickList.h"

#include <QApplication>
#include <QCheckBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace {

using namespace Qt::StringLiterals;

/// A form of a box, a list and buttons that say that they were pressed.
class FormOfKeys : public FormWidget {
public:
    FormOfKeys() : FormWidget(Place::TopLevel) {
        resize(300, 200);
        Box.move(0, 60);
        List.setGeometry(0, 90, 100, 60);
        List.addItem(u"Entry"_s);
        Tick.move(150, 60);
        for (QPushButton* button : {&First, &Second, &Away}) {
            button->setAutoDefault(true);
            connect(button, &QPushButton::clicked, this,
                    [this, button] { Pressed += button->text(); });
        }
        First.setProperty("role", u"primary"_s);
        Second.setProperty("role", u"primary"_s);
        Second.move(100, 0);
        Away.setProperty("leaves", true);
        Away.move(200, 0);
    }

    QStringList TakePressed() { return std::exchange(Pressed, {}); }

    QStringList Pressed;
    QPushButton First{u"First"_s, this};
    QPushButton Second{u"Second"_s, this};
    QPushButton Away{u"Away"_s, this};
    QLineEdit Box{this};
    QCheckBox Tick{this};
    ClickList List{this};
};

class FormKeysTest : public FormTest {
protected:
    FormKeysTest() {
        form.Show();
        EXPECT_TRUE(BecomesActive(form));
    }

    FormOfKeys form;
};

TEST_F(FormKeysTest, EnterInABoxOrListPressesTheLastButtonThatGoesOn) {
    for (QWidget* control : std::initializer_list<QWidget*>{&form.Box, &form.List, &form.Tick}) {
        Press(*control, Qt::Key_Return);
        EXPECT_EQ(form.TakePressed(), QStringList{u"Second"_s});
        Press(*control, Qt::Key_Enter, Qt::KeypadModifier);
        EXPECT_EQ(form.TakePressed(), QStringList{u"Second"_s});
    }
    form.Second.hide();
    Press(form.Box, Qt::Key_Return);
    EXPECT_EQ(form.TakePressed(), QStringList{u"First"_s});
    form.First.setEnabled(false);
    Press(form.Box, Qt::Key_Return);
    EXPECT_EQ(form.TakePressed(), QStringList());
}

TEST_F(FormKeysTest, EscapePressesTheButtonThatLeaves) {
    for (QWidget* control :
         std::initializer_list<QWidget*>{&form.Box, &form.List, &form.Tick, &form.First}) {
        Press(*control, Qt::Key_Escape);
        EXPECT_EQ(form.TakePressed(), QStringList{u"Away"_s});
    }
    form.Away.hide();
    Press(form.Box, Qt::Key_Escape);
    EXPECT_EQ(form.TakePressed(), QStringList());
}

TEST_F(FormKeysTest, AButtonWithTheKeyboardTakesEnterItself) {
    Press(form.First, Qt::Key_Return);
    EXPECT_EQ(form.TakePressed(), QStringList{u"First"_s});
}

TEST_F(FormKeysTest, OtherKeysHeldKeysAndChordsPressNothing) {
    Press(form.Box, Qt::Key_F7);
    Press(form.Box, Qt::Key_Return, Qt::ControlModifier);
    Press(form.Box, Qt::Key_Escape, Qt::AltModifier);
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, {}, u"\r"_s, true);
    QApplication::sendEvent(&form.Tick, &held);
    EXPECT_EQ(form.TakePressed(), QStringList());
}

/// The forms themselves: which of them Escape leaves.
class LeavingFormsTest : public FormTest {};

TEST_F(LeavingFormsTest, EscapeLeavesEveryFormWithACancelCloseOrExit) {
    StartSession(u"Mum"_s, u"Teacher"_s);
    for (const char* name :
         {"Newfrm", "Openfrm", "OpenFillfrm", "ResetDate", "DeleteChartForm", "Reportfrm",
          "DateRangefrm", "BackgroundOptions", "OtherOptions", "frmAboutDutygrid"}) {
        const QString form = QString::fromLatin1(name);
        DefaultForm(form).Show();
        Settle();
        ASSERT_TRUE(DefaultForm(form).Widget().isAncestorOf(QApplication::focusWidget())) << name;
        KeyToFocus(Qt::Key_Escape);
        Settle();
        EXPECT_EQ(ExistingForm(form), nullptr) << name;
    }
}

} // namespace
