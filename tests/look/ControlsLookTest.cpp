#include "look/DutygridStyle.h"
#include "look/ProgramIcon.h"
#include "look/TitleBar.h"
#include "tests/common/Pictures.h"
#include "tests/common/Sheet.h"
#include "tests/look/LookTest.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionSlider>

namespace {

const QList<QStyle::State> States = {
    QStyle::State_None, QStyle::State_Enabled, QStyle::State_Enabled | QStyle::State_MouseOver,
    QStyle::State_Enabled | QStyle::State_Sunken | QStyle::State_MouseOver,
    QStyle::State_Enabled | QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange};

class ControlsLookTest : public LookTest {};

TEST_F(ControlsLookTest, Marks) {
    Sheet sheet(QSize(24, 24), static_cast<int>(States.size()), 4);
    QCheckBox square;
    QRadioButton disc;
    for (QAbstractButton* button :
         {static_cast<QAbstractButton*>(&square), static_cast<QAbstractButton*>(&disc)})
        for (const QStyle::State mark : {QStyle::State_Off, QStyle::State_On})
            for (const QStyle::State state : States)
                sheet.Add([&](QPainter& painter, const QRect& room) {
                    QStyleOptionButton option;
                    option.rect = room;
                    option.state = state | mark;
                    button->style()->drawPrimitive(button == &square
                                                       ? QStyle::PE_IndicatorCheckBox
                                                       : QStyle::PE_IndicatorRadioButton,
                                                   &option, &painter, button);
                });
    ExpectPicture(sheet.Image(), u"marks"_s);
}

TEST_F(ControlsLookTest, Buttons) {
    Sheet sheet(QSize(110, 40), static_cast<int>(States.size()), 2);
    QPushButton usual;
    QPushButton primary;
    primary.setProperty("role", u"primary"_s);
    for (QPushButton* button : {&usual, &primary})
        for (const QStyle::State state : States)
            sheet.Add([&](QPainter& painter, const QRect& room) {
                button->ensurePolished();
                button->resize(room.size());
                QStyleOptionButton option;
                option.initFrom(button);
                option.state = state;
                option.text = u"Chores"_s;
                painter.translate(room.topLeft());
                button->style()->drawControl(QStyle::CE_PushButton, &option, &painter, button);
            });
    ExpectPicture(sheet.Image(), u"buttons"_s);
}

void PaintScrollBar(QPainter& painter, QScrollBar& bar, QStyle::SubControls active,
                    QStyle::State state) {
    QStyleOptionSlider option;
    option.initFrom(&bar);
    option.subControls = QStyle::SC_All;
    option.activeSubControls = active;
    option.orientation = bar.orientation();
    option.minimum = bar.minimum();
    option.maximum = bar.maximum();
    option.pageStep = bar.pageStep();
    option.sliderPosition = option.sliderValue = bar.value();
    option.direction = bar.layoutDirection();
    option.state = state;
    if (bar.orientation() == Qt::Horizontal)
        option.state |= QStyle::State_Horizontal;
    bar.style()->drawComplexControl(QStyle::CC_ScrollBar, &option, &painter, &bar);
}

/// Nothing to scroll, at the start, between, at the end, in a window that cannot be used.
const QList<std::pair<int, int>> Scrolled = {{0, 0}, {0, 20}, {9, 20}, {20, 20}};

TEST_F(ControlsLookTest, ScrollBars) {
    const QList<QStyle::SubControls> parts = {QStyle::SC_None, QStyle::SC_ScrollBarSubLine,
                                              QStyle::SC_ScrollBarAddLine,
                                              QStyle::SC_ScrollBarSlider};
    constexpr QStyle::State usable = QStyle::State_Enabled;
    const QList<QStyle::State> states = {
        QStyle::State_None, usable, usable | QStyle::State_MouseOver,
        usable | QStyle::State_Sunken | QStyle::State_MouseOver, usable | QStyle::State_HasFocus};
    for (const auto& [name, orientation, direction, size] :
         {std::tuple(u"scroll-down"_s, Qt::Vertical, Qt::LeftToRight, QSize(16, 90)),
          std::tuple(u"scroll-across"_s, Qt::Horizontal, Qt::LeftToRight, QSize(90, 16)),
          std::tuple(u"scroll-back"_s, Qt::Horizontal, Qt::RightToLeft, QSize(90, 16))}) {
        Sheet sheet(size + QSize(6, 6), static_cast<int>(states.size() * parts.size()),
                    static_cast<int>(Scrolled.size()));
        QScrollBar bar(orientation);
        bar.setLayoutDirection(direction);
        bar.setPageStep(5);
        bar.resize(size);
        for (const auto& [value, last] : Scrolled)
            for (const QStyle::State state : states)
                for (const QStyle::SubControls part : parts)
                    sheet.Add([&](QPainter& painter, const QRect& room) {
                        bar.setRange(0, last);
                        bar.setValue(value);
                        painter.translate(room.topLeft());
                        PaintScrollBar(painter, bar, part, state);
                    });
        ExpectPicture(sheet.Image(), name);
    }
}

TEST_F(ControlsLookTest, TitleBars) {
    constexpr auto smaller = QStyle::SC_TitleBarMinButton;
    constexpr auto larger = QStyle::SC_TitleBarMaxButton;
    constexpr auto back = QStyle::SC_TitleBarNormalButton;
    constexpr auto close = QStyle::SC_TitleBarCloseButton;
    // A form's state and the signs that its bar has then.
    const QList<std::pair<Qt::WindowState, QList<QStyle::SubControl>>> states = {
        {Qt::WindowNoState, {smaller, larger, close}},
        {Qt::WindowMinimized, {back, larger, close}},
        {Qt::WindowMaximized, {smaller, back, close}}};
    constexpr int columns = 7;
    Sheet sheet(QSize(276, TitleBarHeight + 6), columns, 6);
    QWidget form;
    form.ensurePolished();
    for (const bool isInFront : {true, false})
        for (const auto& [state, signs] : states) {
            const auto add = [&, state = state](QStyle::SubControl touched, bool isHeld) {
                sheet.Add([&](QPainter& painter, const QRect& room) {
                    QStyleOptionTitleBar option;
                    option.initFrom(&form);
                    option.rect = room;
                    option.text = u"Editing Chores chart"_s;
                    option.icon = ProgramIcon();
                    option.titleBarFlags = Qt::SubWindow | Qt::WindowTitleHint |
                                           Qt::WindowSystemMenuHint | Qt::WindowMinMaxButtonsHint |
                                           Qt::WindowCloseButtonHint;
                    option.titleBarState =
                        static_cast<int>(state) |
                        static_cast<int>(isInFront ? QStyle::State_Active : QStyle::State_None);
                    option.activeSubControls = touched;
                    option.state.setFlag(QStyle::State_Sunken, isHeld);
                    form.style()->drawComplexControl(QStyle::CC_TitleBar, &option, &painter, &form);
                });
            };
            add(QStyle::SC_None, false);
            for (const bool isHeld : {false, true})
                for (const QStyle::SubControl sign : signs)
                    add(sign, isHeld);
        }
    ExpectPicture(sheet.Image(), u"title-bars"_s);
}

TEST_F(ControlsLookTest, ThePainterIsLeftAsItWas) {
    QImage paper(100, 100, QImage::Format_RGB32);
    QPainter painter(&paper);
    const QPen pen(Qt::red, 3);
    const QBrush brush(Qt::blue);
    painter.setPen(pen);
    painter.setBrush(brush);
    const auto expectAsItWas = [&](const char* after) {
        EXPECT_EQ(painter.pen(), pen) << after;
        EXPECT_EQ(painter.brush(), brush) << after;
        EXPECT_EQ(painter.renderHints(), QPainter::RenderHints(QPainter::TextAntialiasing))
            << after;
        EXPECT_TRUE(painter.transform().isIdentity()) << after;
    };
    QScrollBar bar;
    bar.setRange(0, 20);
    bar.resize(16, 90);
    PaintScrollBar(painter, bar, QStyle::SC_ScrollBarSlider, QStyle::State_Enabled);
    expectAsItWas("scroll bar");
    QPushButton primary;
    primary.setProperty("role", u"primary"_s);
    primary.ensurePolished();
    QStyleOptionButton option;
    option.initFrom(&primary);
    option.rect = QRect(0, 0, 18, 18);
    option.state = QStyle::State_Enabled | QStyle::State_On;
    bar.style()->drawPrimitive(QStyle::PE_IndicatorCheckBox, &option, &painter, &bar);
    expectAsItWas("mark");
    DutygridStyle().drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, &primary);
    expectAsItWas("focus of a button");
}

TEST_F(ControlsLookTest, MeasuresAreThoseOfTheDesign) {
    const QList<std::pair<QStyle::PixelMetric, int>> measures = {
        {QStyle::PM_FocusFrameHMargin, 6},         {QStyle::PM_IndicatorWidth, 18},
        {QStyle::PM_IndicatorHeight, 18},          {QStyle::PM_ExclusiveIndicatorWidth, 18},
        {QStyle::PM_ExclusiveIndicatorHeight, 18}, {QStyle::PM_CheckBoxLabelSpacing, 8},
        {QStyle::PM_RadioButtonLabelSpacing, 8},   {QStyle::PM_ScrollBarExtent, 16},
        {QStyle::PM_ToolBarExtensionExtent, 22},   {QStyle::PM_ScrollBarSliderMin, 28}};
    for (const auto& [measure, pixels] : measures)
        EXPECT_EQ(QApplication::style()->pixelMetric(measure), pixels) << measure;
}

} // namespace
