#include "authoring/PersonCard.h"
#include "look/LookColors.h"
#include "tests/common/FormTest.h"
#include "tests/common/Pictures.h"
#include "tests/common/Sheet.h"
#include "widgets/RoundPicture.h"

#include <QIcon>
#include <QStandardItemModel>
#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

/// The card of a person, in the size that it asks for.
class PersonCardTest : public FormTest {
protected:
    PersonCardTest() {
        QImage ground(72, 72, QImage::Format_RGB32);
        ground.fill(Qt::darkMagenta);
        const QPixmap picture = RoundPicture(ground, 72, 1);
        for (const QString& name : {u"Anna"_s, u"Anna-Katharina van der Woodhouse-Smythe"_s,
                                    u"Bartholomewmaximilianthethird the younger"_s, QString()})
            people.appendRow(new QStandardItem(QIcon(picture), name));
        option.decorationSize = QSize(72, 72);
        option.font = QApplication::font();
        option.fontMetrics = QFontMetrics(option.font);
    }

    /// The card of the first person, in its own size, on white.
    QImage Seen(QStyle::State state) {
        option.rect = QRect(QPoint(), card.sizeHint(option, people.index(0, 0)));
        option.state = state;
        QImage image(option.rect.size(), QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        card.paint(&painter, option, people.index(0, 0));
        return image;
    }

    PersonCard card;
    QStandardItemModel people;
    QStyleOptionViewItem option;
};

const QList<QStyle::State> States = {QStyle::State_None,
                                     QStyle::State_MouseOver,
                                     QStyle::State_Selected,
                                     QStyle::State_Selected | QStyle::State_MouseOver,
                                     QStyle::State_HasFocus,
                                     QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange,
                                     QStyle::State_KeyboardFocusChange,
                                     QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange |
                                         QStyle::State_Selected};

TEST_F(PersonCardTest, EachStateLooksOtherwise) {
    const QSize size = card.sizeHint(option, people.index(0, 0));
    Sheet sheet(size + QSize(6, 6), static_cast<int>(States.size()), people.rowCount());
    for (int row = 0; row < people.rowCount(); ++row)
        for (const QStyle::State state : States)
            sheet.Add([&](QPainter& painter, const QRect& room) {
                option.rect = room;
                option.state = state;
                card.paint(&painter, option, people.index(row, 0));
            });
    ExpectPicture(sheet.Image(), u"cards"_s);
}

TEST_F(PersonCardTest, ItHasRoomForThePictureAndTwoLinesOfTheName) {
    QFont font = option.font;
    font.setPointSizeF(12.5);
    const QSize size = card.sizeHint(option, people.index(0, 0));
    EXPECT_EQ(size, QSize(150, 72 + 28 + 2 * QFontMetrics(font).height()));
}

TEST_F(PersonCardTest, ThereIsAsMuchAirAboveThePictureAsAboveAndBelowTheName) {
    const QImage seen = Seen(QStyle::State_None);
    const auto isBlank = [&seen](int y) {
        for (int x = 0; x < seen.width(); ++x)
            if (seen.pixel(x, y) != QColor(Qt::white).rgb())
                return false;
        return true;
    };
    QList<int> heights;
    for (int y = 0, from = 0; y < seen.height(); ++y)
        if (y + 1 == seen.height() || isBlank(y) != isBlank(y + 1)) {
            heights += y + 1 - from;
            from = y + 1;
        }
    ASSERT_EQ(heights.size(), 5) << "air, picture, air, name, air";
    EXPECT_EQ(heights.at(0), 16);
    EXPECT_EQ(heights.at(1), 72);
    // Letters have a little air of their own within their line.
    EXPECT_NEAR(heights.at(2), 19, 2);
    EXPECT_NEAR(heights.at(4), heights.at(2), 3);
    for (const auto& [x, color] : {std::pair(38, Qt::white), std::pair(40, Qt::darkMagenta),
                                   std::pair(109, Qt::darkMagenta), std::pair(111, Qt::white)})
        EXPECT_EQ(seen.pixelColor(x, 16 + 36), QColor(color)) << x;
}

TEST_F(PersonCardTest, AWhiteRingPartsAChosenPicturesGroundFromTheCards) {
    // At the left end of the disc, from the card to the picture.
    constexpr int y = 16 + 36;
    const QImage chosen = Seen(QStyle::State_Selected);
    EXPECT_EQ(chosen.pixelColor(39 - 4, y), LookColors::TealPale);
    EXPECT_EQ(chosen.pixelColor(39 - 1, y), LookColors::Card);
    EXPECT_EQ(chosen.pixelColor(39 + 3, y), QColor(Qt::darkMagenta));
    const QImage hovered = Seen(QStyle::State_MouseOver);
    EXPECT_EQ(hovered.pixelColor(39 - 1, y), LookColors::Honey);
    // The tick stands on the disc's edge.
    EXPECT_EQ(chosen.pixelColor(75 + 27 - 6, 16 + 36 - 27 - 4), LookColors::Teal);
    EXPECT_NE(hovered.pixelColor(75 + 27 - 6, 16 + 36 - 27 - 4), LookColors::Teal);
}

TEST_F(PersonCardTest, ThePainterIsLeftAsItWas) {
    QImage image(200, 200, QImage::Format_RGB32);
    QPainter painter(&image);
    const QPen pen(Qt::red, 7);
    painter.setPen(pen);
    painter.setBrush(Qt::cyan);
    option.rect = QRect(0, 0, 140, 140);
    for (const QStyle::State state : States) {
        option.state = state;
        card.paint(&painter, option, people.index(1, 0));
        EXPECT_EQ(painter.pen(), pen);
        EXPECT_EQ(painter.brush(), QBrush(Qt::cyan));
        EXPECT_FALSE(painter.testRenderHint(QPainter::Antialiasing));
    }
}

} // namespace
