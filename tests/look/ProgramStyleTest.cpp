#include "look/LookColors.h"
#include "platform/runtime/Colors.h"
#include "shell/BackgroundArea.h"
#include "tests/common/FormTest.h"

#include <QApplication>
#include <QCheckBox>
#include <QMenu>
#include <QPalette>
#include <QRadioButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QToolTip>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

/// WCAG 2.2: the relative luminance of a colour, 0 to 1.
double Luminance(const QColor& color) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

double Contrast(const QColor& one, const QColor& other) {
    const double first = Luminance(one);
    const double second = Luminance(other);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

constexpr double ForText = 4.5;
constexpr double ForControls = 3.0;

struct Rule {
    QString selector;
    QHash<QString, QString> values;

    /// The first colour in the value of a property; invalid if there is none.
    QColor Color(const QString& property) const {
        static const QRegularExpression name(u"#[0-9a-f]{6}"_s);
        const QRegularExpressionMatch found = name.match(values.value(property));
        return found.hasMatch() ? QColor(found.captured()) : QColor();
    }
};

QList<Rule> RulesOfTheStyleSheet() {
    QList<Rule> rules;
    QString sheet = qApp->styleSheet();
    static const QRegularExpression comment(u"/\\*.*?\\*/"_s,
                                            QRegularExpression::DotMatchesEverythingOption);
    sheet.remove(comment);
    for (const QString& block : sheet.split(u'}', Qt::SkipEmptyParts)) {
        Rule rule{block.section(u'{', 0, 0).simplified(), {}};
        for (const QString& line : block.section(u'{', 1).split(u';'))
            rule.values.insert(line.section(u':', 0, 0).trimmed(), line.section(u':', 1).trimmed());
        if (!rule.selector.isEmpty())
            rules += rule;
    }
    return rules;
}

/// The grounds on which a rule's colours are seen.
QList<QColor> GroundsOf(const Rule& rule) {
    const QColor own = rule.Color(u"background"_s);
    return own.isValid() ? QList<QColor>{own} : QList<QColor>{LookColors::Card, LookColors::Paper};
}

TEST(ContrastTest, BlackOnWhiteIsTwentyOneAndTheRatioKnowsNoOrder) {
    EXPECT_NEAR(Contrast(Qt::black, Qt::white), 21, 0.001);
    EXPECT_NEAR(Contrast(Qt::white, Qt::black), 21, 0.001);
    EXPECT_NEAR(Contrast(QColor(0x77, 0x77, 0x77), Qt::white), 4.48, 0.01);
}

class ProgramStyleTest : public FormTest {};

TEST_F(ProgramStyleTest, TextsOfThePaletteStandOutFromTheirGrounds) {
    const QPalette palette = QApplication::palette();
    const QList<std::pair<QPalette::ColorRole, QPalette::ColorRole>> pairs = {
        {QPalette::WindowText, QPalette::Window},
        {QPalette::Text, QPalette::Base},
        {QPalette::Text, QPalette::AlternateBase},
        {QPalette::ButtonText, QPalette::Button},
        {QPalette::HighlightedText, QPalette::Highlight},
        {QPalette::PlaceholderText, QPalette::Base},
        {QPalette::ToolTipText, QPalette::ToolTipBase},
        {QPalette::Link, QPalette::Window},
        {QPalette::Link, QPalette::Base},
        {QPalette::LinkVisited, QPalette::Base},
        {QPalette::BrightText, QPalette::Highlight}};
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive})
        for (const auto& [text, ground] : pairs)
            EXPECT_GE(Contrast(palette.color(group, text), palette.color(group, ground)), ForText)
                << "group " << group << " role " << text;
}

TEST_F(ProgramStyleTest, WhatCannotBeUsedIsPaleAndTipsHaveTheProgramsColours) {
    const QPalette palette = QApplication::palette();
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        EXPECT_EQ(palette.color(QPalette::Disabled, role), LookColors::Unusable) << role;
    EXPECT_EQ(palette.color(QPalette::Disabled, QPalette::Light), LookColors::Card);
    EXPECT_EQ(palette.color(QPalette::Button), LookColors::Card);
    EXPECT_EQ(QToolTip::palette().color(QPalette::ToolTipText), LookColors::Ink);
    EXPECT_EQ(QToolTip::palette().color(QPalette::ToolTipBase), LookColors::Card);
    EXPECT_EQ(QToolTip::palette().color(QPalette::Window), LookColors::Paper);
}

TEST_F(ProgramStyleTest, TextsOfTheStyleSheetStandOutFromTheirGrounds) {
    int texts = 0;
    for (const Rule& rule : RulesOfTheStyleSheet()) {
        const QColor text = rule.Color(u"color"_s);
        if (!text.isValid() || rule.selector.contains(u":disabled"_s))
            continue;
        ++texts;
        for (const QColor& ground : GroundsOf(rule))
            EXPECT_GE(Contrast(text, ground), ForText) << rule.selector.toStdString();
    }
    EXPECT_GE(texts, 6);
}

TEST_F(ProgramStyleTest, TextsStandOutOnEveryGroundThatAControlTakesUnderTheMouse) {
    for (const QColor& ground : {LookColors::Honey, LookColors::HoneyDark, LookColors::TealPale})
        EXPECT_GE(Contrast(LookColors::Ink, ground), ForText);
    for (const QColor& ground : {LookColors::TealHover, LookColors::TealPressed})
        EXPECT_GE(Contrast(LookColors::Card, ground), ForText);
    EXPECT_GE(Contrast(LookColors::Muted, LookColors::Band), ForText);
}

TEST_F(ProgramStyleTest, TheGroundOfTheMainWindowStandsApartFromTheFormsOnIt) {
    const QColor ground = ColorFromValue(BackgroundArea::DeliveredColor);
    EXPECT_GE(Contrast(ground, LookColors::Paper), 1.25);
    EXPECT_GE(Contrast(ground, LookColors::Teal), ForControls) << "title bars";
    EXPECT_GE(Contrast(ground, LookColors::Ink), ForText);
}

TEST_F(ProgramStyleTest, TicksStandOutFromTheirBoxes) {
    for (const QColor& ground : {LookColors::Ticked, LookColors::Honey, LookColors::HoneyDark})
        EXPECT_GE(Contrast(LookColors::Tick, ground), ForControls);
}

TEST_F(ProgramStyleTest, TextsStandOutOnJobsDoneAndOnWordsFound) {
    EXPECT_GE(Contrast(Qt::black, LookColors::Done), ForText);
    EXPECT_GE(Contrast(Qt::blue, LookColors::Done), ForText);
    EXPECT_GE(Contrast(LookColors::DoneEdge, LookColors::Card), ForControls);
    for (const QColor& ground : {LookColors::Found, LookColors::FoundHere})
        EXPECT_GE(Contrast(LookColors::Ink, ground), ForText);
}

TEST_F(ProgramStyleTest, EdgesAndFocusOfControlsStandOutFromTheGroundsAround) {
    static const QRegularExpression control(
        u"QPushButton|QLineEdit|QComboBox|QListView|QTreeView"_s);
    int edges = 0;
    for (const Rule& rule : RulesOfTheStyleSheet()) {
        if (!rule.selector.contains(control) || rule.selector.contains(u":disabled"_s))
            continue;
        QColor edge = rule.Color(u"border"_s);
        if (!edge.isValid())
            edge = rule.Color(u"border-color"_s);
        if (!edge.isValid())
            continue;
        ++edges;
        for (const QColor& ground : {LookColors::Card, LookColors::Paper})
            EXPECT_GE(Contrast(edge, ground), ForControls) << rule.selector.toStdString();
    }
    EXPECT_GE(edges, 5);
}

TEST_F(ProgramStyleTest, MarksStandOutFromTheGroundWhetherOnOrOff) {
    for (const bool on : {false, true}) {
        QCheckBox square(u"x"_s);
        QRadioButton disc(u"x"_s);
        for (QAbstractButton* button :
             {static_cast<QAbstractButton*>(&square), static_cast<QAbstractButton*>(&disc)}) {
            button->setChecked(on);
            button->ensurePolished();
            button->resize(button->sizeHint());
            const QImage picture = button->grab().toImage();
            double best = 0;
            for (int x = 0; x < 20; ++x)
                best = std::max(
                    best, Contrast(picture.pixelColor(x, picture.height() / 2), LookColors::Paper));
            EXPECT_GE(best, ForControls) << on;
        }
    }
}

QRect PlaceOfThumb(const QScrollBar& bar) {
    QStyleOptionSlider option;
    option.initFrom(&bar);
    option.subControls = QStyle::SC_All;
    option.orientation = bar.orientation();
    option.minimum = bar.minimum();
    option.maximum = bar.maximum();
    option.pageStep = bar.pageStep();
    option.sliderPosition = option.sliderValue = bar.value();
    return bar.style()->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider,
                                       &bar);
}

TEST_F(ProgramStyleTest, AScrollBarsThumbStandsOutFromItsGroove) {
    QScrollBar bar(Qt::Vertical);
    bar.setRange(0, 20);
    bar.setPageStep(5);
    bar.resize(16, 200);
    const QImage picture = bar.grab().toImage();
    const QPoint thumb = PlaceOfThumb(bar).center();
    const QPoint groove(8, PlaceOfThumb(bar).bottom() + 20);
    const auto colorAt = [&picture](const QPoint& place) {
        return picture.pixelColor((QPointF(place) * picture.devicePixelRatio()).toPoint());
    };
    EXPECT_GE(Contrast(colorAt(thumb), colorAt(groove)), ForControls);
}

TEST_F(ProgramStyleTest, AScrollBarWithNothingToScrollHasNoThumb) {
    QScrollBar bar(Qt::Vertical);
    bar.setRange(0, 0);
    bar.resize(16, 200);
    EXPECT_EQ(bar.grab().toImage().pixelColor(8, 100), LookColors::Band);
}

TEST_F(ProgramStyleTest, NoColourIsLeftToTheDesktop) {
    const QPalette palette = QApplication::palette();
    for (const QPalette::ColorGroup group :
         {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
        for (int role = 0; role < QPalette::NColorRoles; ++role)
            if (role != QPalette::NoRole) {
                EXPECT_TRUE(palette.isBrushSet(group, static_cast<QPalette::ColorRole>(role)))
                    << group << " " << role;
            }
    EXPECT_EQ(QToolTip::palette().color(QPalette::ToolTipBase), LookColors::Card);
    const QMenu menu;
    EXPECT_EQ(menu.palette().color(QPalette::Window), LookColors::Paper);
}

} // namespace
