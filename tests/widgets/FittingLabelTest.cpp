#include "widgets/FittingLabel.h"
#include "tests/common/FormTest.h"
#include "tests/common/Pictures.h"
#include "tests/common/Repaint.h"
#include "tests/common/Sheet.h"
#include "widgets/KeptUnits.h"

#include <QHelpEvent>
#include <QToolTip>
#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

class FittingLabelTest : public FormTest {
protected:
    const QString longText =
        u"Put the lunch box into the dishwasher, wipe it and hang the bag on its hook"_s;
};

TEST_F(FittingLabelTest, TextsStandAsTheLabelIsAligned) {
    const QList<Qt::Alignment> places = {Qt::AlignLeft | Qt::AlignVCenter,
                                         Qt::AlignHCenter | Qt::AlignTop,
                                         Qt::AlignRight | Qt::AlignBottom};
    const QStringList texts = {u"Cook"_s, u"Feed the\ncat and the dog"_s, longText};
    Sheet sheet(QSize(140, 70), static_cast<int>(places.size()),
                static_cast<int>(texts.size()) + 1);
    const auto add = [&](FittingLabel& label, const QString& text, const Qt::Alignment& place) {
        label.setText(text);
        label.setAlignment(place);
        sheet.Add([&](QPainter& painter, const QRect& room) {
            label.resize(room.size());
            label.render(&painter, room.topLeft());
        });
    };
    FittingLabel label;
    for (const QString& text : texts)
        for (const Qt::Alignment& place : places)
            add(label, text, place);
    FittingLabel framed;
    framed.setFrameStyle(QFrame::Box | QFrame::Plain);
    framed.setLineWidth(2);
    framed.setContentsMargins(20, 4, 4, 4);
    framed.SetForeColor(Qt::blue);
    for (const Qt::Alignment& place : places)
        add(framed, longText, place);
    ExpectPicture(sheet.Image(), u"texts"_s);
}

TEST_F(FittingLabelTest, ATextFitsAsLongAsNothingOfItIsCut) {
    FittingLabel label;
    label.setText(u"Feed the cat"_s);
    const QFontMetrics font = label.fontMetrics();
    const int whole = font.horizontalAdvance(label.text());
    const int line = font.height();
    const int word = font.horizontalAdvance(u"Feed the "_s);
    const QList<std::tuple<int, int, bool>> sizes = {
        {whole, line, true},         {whole - 1, line, false}, {whole, 1, true},
        {word, line * 2 - 1, false}, {word, line * 2, true},   {word, line * 5, true}};
    for (const auto& [width, height, fits] : sizes) {
        label.resize(width, height);
        EXPECT_EQ(label.TextFits(), fits) << width << " x " << height;
    }
    EXPECT_EQ(label.sizeHint(), QSize(whole, line));
    label.setContentsMargins(1, 2, 4, 8);
    EXPECT_EQ(label.sizeHint(), QSize(whole + 5, line + 10));
    EXPECT_EQ(label.minimumSizeHint(), QSize(font.averageCharWidth() * 8, line + 10));
    label.setText(u"a"_s);
    EXPECT_EQ(label.minimumSizeHint(), QSize(font.horizontalAdvance(u'a') + 5, line + 10));
}

TEST_F(FittingLabelTest, ANumberStandsOnOneLineWithItsUnit) {
    FittingLabel label;
    const auto seen = [&label](const QString& text) {
        label.setText(text);
        EXPECT_EQ(label.text(), text);
        return label.grab().toImage();
    };
    const QString start = u"New bicycle 300"_s;
    const QFontMetrics font = label.fontMetrics();
    label.resize(font.horizontalAdvance(start) + 5, font.height() * 2);
    const QString kept = u"New bicycle 300%1Points"_s.arg(QChar(QChar::Nbsp));
    EXPECT_EQ(seen(u"New bicycle 300 Points"_s), seen(kept));
    EXPECT_EQ(WithUnitsKept(u"New bicycle 300 Points"_s), kept);
    EXPECT_EQ(WithUnitsKept(u"Job 2 3 4: a b, 5 - 6"_s), u"Job 2 3 4: a b, 5 - 6"_s);
    EXPECT_EQ(WithUnitsKept(u" 7 "_s), u" 7 "_s);
    EXPECT_EQ(WithUnitsKept(QString()), QString());
}

TEST_F(FittingLabelTest, TheTipIsTheWholeTextWhereItIsCutAndElseTheLabelsOwn) {
    QWidget window;
    window.setToolTip(u"the window's"_s);
    FittingLabel label(&window);
    label.setToolTip(u"the label's"_s);
    const auto tip = [&label] {
        QHelpEvent ask(QEvent::ToolTip, QPoint(5, 5), label.mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(&label, &ask);
        return ShownTip(QToolTip::text());
    };
    window.resize(300, 100);
    window.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&window, Patience));
    label.resize(200, label.fontMetrics().height());
    label.setText(u"Cook"_s);
    EXPECT_EQ(tip(), u"the label's"_s);
    label.setText(u"<b>"_s + longText);
    EXPECT_EQ(tip(), u"<b>"_s + longText);
    QToolTip::hideText();
}

TEST_F(FittingLabelTest, AnotherColourIsPaintedAtOnce) {
    FittingLabel label;
    EXPECT_EQ(label.ForeColor(), label.palette().color(QPalette::WindowText));
    label.setText(u"Cook"_s);
    label.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&label, Patience));
    EXPECT_TRUE(IsRepainted(label, [&] { label.SetForeColor(Qt::red); }));
    EXPECT_EQ(label.ForeColor(), QColor(Qt::red));
}

} // namespace
