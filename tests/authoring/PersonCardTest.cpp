#include "authoring/PersonCard.h"
#include "tests/common/FormTest.h"
#include "tests/common/Pictures.h"
#include "tests/common/Sheet.h"

#include <QIcon>
#include <QStandardItemModel>
#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

/// The card of a person, in the size that it asks for.
class PersonCardTest : public FormTest {
protected:
    PersonCardTest() {
        QPixmap picture(64, 64);
        picture.fill(Qt::darkMagenta);
        for (const QString& name : {u"Anna"_s, u"Anna-Katharina van der Woodhouse-Smythe"_s,
                                    u"Bartholomewmaximilianthethird the younger"_s, QString()})
            people.appendRow(new QStandardItem(QIcon(picture), name));
        option.decorationSize = QSize(64, 64);
        option.font = QApplication::font();
        option.fontMetrics = QFontMetrics(option.font);
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
    const QSize size = card.sizeHint(option, people.index(0, 0));
    EXPECT_EQ(size, QSize(64 + 2 * 34, 64 + 18 + 2 * option.fontMetrics.height()));
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
