#include "accounts/DisplayAccount.h"
#include "filling/ChartViewer.h"
#include "filling/OpenFillfrm.h"
#include "look/LookColors.h"
#include "platform/desktop/SystemPrompts.h"
#include "session/Session.h"
#include "shell/ChangePasswordfrm.h"
#include "shell/LogIn.h"
#include "shell/LoginWindow.h"
#include "shell/NewUser.h"
#include "tests/common/NextBox.h"
#include "tests/look/LookTest.h"

#include <QHBoxLayout>
#include <QMessageBox>
#include <QPushButton>
#include <QStyle>
#include <algorithm>
#include <utility>

namespace {

/// Arrows and ticks beside captions.
class ButtonSignTest : public LookTest {
protected:
    static QPushButton& Add(QWidget& row, const QString& caption, const QString& sign,
                            const QString& role = QString()) {
        auto* button = new QPushButton(caption, &row);
        button->setProperty("sign", sign);
        button->setProperty("role", role);
        row.layout()->addWidget(button);
        return *button;
    }
    /// Where a colour is seen on a button, from its left and right edges, in pixels.
    static std::pair<int, int> SidesOf(QPushButton& button, const QColor& color) {
        const QImage seen = button.grab().toImage();
        int first = seen.width();
        int last = -1;
        // Not the edge, which has the keyboard's colour at times.
        for (int y = 4; y < seen.height() - 4; ++y)
            for (int x = 4; x < seen.width() - 4; ++x)
                if (seen.pixelColor(x, y) == color) {
                    first = std::min(first, x);
                    last = std::max(last, x);
                }
        return {first, seen.width() - 1 - last};
    }
    static void ExpectSign(QPushButton& button, const QString& caption, const QString& sign) {
        SCOPED_TRACE(button.window()->windowTitle().toStdString() + ' ' + caption.toStdString());
        EXPECT_EQ(button.text(), caption);
        EXPECT_EQ(button.property("sign").toString(), sign);
        EXPECT_FALSE(button.icon().isNull());
        EXPECT_GE(button.width(), button.sizeHint().width());
        EXPECT_GE(button.height(), button.sizeHint().height());
    }
};

TEST_F(ButtonSignTest, SignsStandBesideTheirCaptionsInTheColourOfTheRole) {
    QWidget row;
    auto* layout = new QHBoxLayout(&row);
    layout->setSpacing(10);
    QPushButton& back = Add(row, u"Back"_s, u"back"_s);
    QPushButton& next = Add(row, u"Next"_s, u"next"_s);
    QPushButton& ok = Add(row, u"Ok"_s, u"tick"_s, u"primary"_s);
    QPushButton& login = Add(row, u"Login"_s, u"next"_s, u"primary"_s);
    QPushButton& unusable = Add(row, u"Ok"_s, u"tick"_s);
    unusable.setEnabled(false);
    QPushButton& plain = Add(row, u"Cancel"_s, QString());
    plain.setFocus();
    row.show();
    Settle();
    LookAt(row, u"signs"_s);
    EXPECT_TRUE(plain.icon().isNull());
    for (QPushButton* button : {&back, &next, &ok, &login, &unusable}) {
        EXPECT_GE(button->iconSize().height(), button->fontMetrics().ascent());
        EXPECT_LE(button->iconSize().height(), button->fontMetrics().height());
        EXPECT_EQ(button->height(), plain.height()) << "no higher than without one";
    }
    const auto [backLeft, backRight] = SidesOf(back, LookColors::Teal);
    EXPECT_LT(backLeft, backRight) << "before the caption";
    const auto [nextLeft, nextRight] = SidesOf(next, LookColors::Teal);
    EXPECT_GT(nextLeft, nextRight) << "after the caption";
    EXPECT_GE(SidesOf(ok, LookColors::Teal).first, 0);
    EXPECT_LT(SidesOf(unusable, LookColors::Unusable).first, unusable.width() / 2);
    EXPECT_EQ(SidesOf(unusable, LookColors::Teal).second, unusable.grab().toImage().width());
}

TEST_F(ButtonSignTest, AButtonThatBecomesTheMainOneHasItsSignInWhite) {
    QWidget row;
    new QHBoxLayout(&row);
    QPushButton& next = Add(row, QString(), u"next"_s);
    next.setFocusPolicy(Qt::NoFocus); // its ring is white too
    row.show();
    Settle();
    EXPECT_LT(SidesOf(next, LookColors::Teal).first, next.width());
    next.setProperty("role", u"primary"_s);
    next.style()->unpolish(&next);
    next.style()->polish(&next);
    EXPECT_LT(SidesOf(next, LookColors::Card).first, next.width());
}

TEST_F(ButtonSignTest, ChildrenMeetSignsAtTheLogInAndOnTheirPages) {
    MakeFamily();
    MakeChart(u"Chores Anna"_s, u"Anna"_s, 2);
    ExpectSign(Find<QPushButton>(ShowForm<LogIn>(), u"LogInbtn"_s), u"Login"_s, u"next"_s);
    ExpectSign(Find<QPushButton>(ShowForm<LoginWindow>(), u"Ok"_s), u"Log in"_s, u"next"_s);
    ExpectSign(Find<QPushButton>(ShowForm<NewUser>(), u"Ok"_s), u"Ok"_s, u"tick"_s);
    ExpectSign(Find<QPushButton>(ShowForm<ChangePasswordfrm>(), u"Ok"_s), u"Ok"_s, u"tick"_s);
    StartSession(u"Anna"_s, u"Student"_s);
    ExpectSign(Find<QPushButton>(ShowForm<DisplayAccount>(), u"Okbtn"_s), u"Ok"_s, u"tick"_s);
    auto& list = ShowForm<OpenFillfrm>();
    QPushButton& open = Find<QPushButton>(list, u"Ok"_s);
    ExpectSign(open, u"Ok"_s, u"tick"_s);
    ClickRow(Find(list, u"ChartList"_s), 0);
    Click(open);
    auto& viewer = dynamic_cast<ChartViewer&>(ChartViewers.At(ChartFormIndex - 1));
    ExpectSign(Find<QPushButton>(viewer, u"PreviousDay"_s), u"Back"_s, u"back"_s);
    ExpectSign(Find<QPushButton>(viewer, u"NextDay"_s), u"Next"_s, u"next"_s);
    ExpectSign(Find<QPushButton>(viewer, u"Ok"_s), u"Ok"_s, u"tick"_s);
}

TEST_F(ButtonSignTest, TheOkOfAMessageHasATick) {
    SystemPrompts prompts;
    Prompt message;
    message.Text = u"Well done."_s;
    const NextBox next([](QWidget& box) {
        ExpectSign(
            *dynamic_cast<QPushButton*>(dynamic_cast<QMessageBox&>(box).button(QMessageBox::Ok)),
            u"Ok"_s, u"tick"_s);
        box.close();
    });
    prompts.Show(message);
}

} // namespace
