#include "reports/MonthCalendar.h"

#include "look/LookColors.h"
#include "tests/common/FormTest.h"

#include <QImage>
#include <QPainter>
#include <QSpinBox>
#include <QStyleOptionToolButton>
#include <QTest>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

class CalendarLookTest : public FormTest {
protected:
    CalendarLookTest() {
        calendar_.resize(396, 232);
        calendar_.show();
        Settle();
    }

    QToolButton& Part(const QString& name) { return Find<QToolButton>(calendar_, name); }

    /// One of the buttons above the days, painted in a state.
    static QImage Painted(QToolButton& button, QStyle::State state) {
        QStyleOptionToolButton option;
        option.initFrom(&button);
        option.rect = QRect(QPoint(), button.size());
        option.state = state;
        option.subControls = QStyle::SC_ToolButton;
        option.toolButtonStyle = button.toolButtonStyle();
        option.icon = button.icon();
        option.iconSize = button.iconSize();
        option.text = button.text();
        QImage picture(button.size(), QImage::Format_RGB32);
        picture.fill(LookColors::Card);
        QPainter painter(&picture);
        button.style()->drawComplexControl(QStyle::CC_ToolButton, &option, &painter, &button);
        return picture;
    }

    MonthCalendar calendar_;
};

TEST_F(CalendarLookTest, WhatTurnsThePageHasHoneyUnderTheMouse) {
    for (const QString& name : {u"qt_calendar_prevmonth"_s, u"qt_calendar_nextmonth"_s,
                                u"qt_calendar_monthbutton"_s, u"qt_calendar_yearbutton"_s}) {
        QToolButton& part = Part(name);
        const QPoint besideTheText(part.width() / 2, 3);
        EXPECT_EQ(Painted(part, QStyle::State_Enabled | QStyle::State_AutoRaise)
                      .pixelColor(besideTheText),
                  LookColors::Card)
            << name.toStdString();
        EXPECT_EQ(
            Painted(part, QStyle::State_Enabled | QStyle::State_AutoRaise | QStyle::State_MouseOver)
                .pixelColor(besideTheText),
            LookColors::Honey)
            << name.toStdString();
    }
}

TEST_F(CalendarLookTest, ArrowsAreSharpAtEveryScale) {
    for (const QString& name : {u"qt_calendar_prevmonth"_s, u"qt_calendar_nextmonth"_s})
        for (const double scale : {1.0, 1.5, 2.0})
            EXPECT_EQ(Part(name).icon().pixmap(QSize(16, 16), scale).size(), QSize(16, 16) * scale)
                << name.toStdString();
}

TEST_F(CalendarLookTest, TheMonthThatOpensAMenuHasNoTriangle) {
    QToolButton& month = Part(u"qt_calendar_monthbutton"_s);
    const QImage picture = month.grab().toImage();
    const qreal scale = picture.devicePixelRatio();
    const int text = qRound(month.fontMetrics().horizontalAdvance(month.text()) * scale);
    constexpr int padding = 8;
    for (int x = picture.width() - 1; x > (picture.width() + text) / 2 + padding; --x)
        for (int y = 0; y < picture.height(); ++y)
            ASSERT_GT(picture.pixelColor(x, y).lightness(), 128) << x << ", " << y;
}

TEST_F(CalendarLookTest, TheYearIsWrittenInABoxWithoutTriangles) {
    Click(Part(u"qt_calendar_yearbutton"_s));
    auto& year = Find<QSpinBox>(calendar_, u"qt_calendar_yearedit"_s);
    ASSERT_TRUE(year.isVisible());
    EXPECT_EQ(year.buttonSymbols(), QAbstractSpinBox::NoButtons);
    const QImage picture = year.grab().toImage();
    for (const int x : {0, picture.width() - 1})
        EXPECT_EQ(picture.pixelColor(x, picture.height() / 2), LookColors::Teal) << x;
    Press(year, Qt::Key_Up);
    Press(year, Qt::Key_Return);
    Settle();
    EXPECT_EQ(calendar_.Value(), QDate(2002, 3, 7));
}

} // namespace
