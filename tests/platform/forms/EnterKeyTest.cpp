#include "platform/forms/EnterKey.h"

#include "tests/common/FormTest.h"

#include <QComboBox>
#include <QListWidget>
#include <QTest>

namespace {

/// How often Enter has been told of while keys went down and up on the widget.
template <class Box>
int Presses(Box& box, QWidget& keyboard, const QList<Qt::Key>& keys) {
    EnterKey enter(&box);
    int presses = 0;
    QObject::connect(&enter, &EnterKey::Pressed, [&presses] { ++presses; });
    for (const Qt::Key key : keys)
        QTest::keyClick(&keyboard, key);
    return presses;
}

class EnterKeyTest : public FormTest {};

TEST_F(EnterKeyTest, OnePressIsToldOnceByEitherKeyAndNoOtherKeyIs) {
    QListWidget list;
    EXPECT_EQ(Presses(list, list, {Qt::Key_Return}), 1);
    EXPECT_EQ(Presses(list, list, {Qt::Key_Enter}), 1);
    EXPECT_EQ(Presses(list, list, {Qt::Key_Space, Qt::Key_A, Qt::Key_Down, Qt::Key_Escape}), 0);
}

TEST_F(EnterKeyTest, ABoxWithAListIsTypedIntoByItsLine) {
    QComboBox box;
    box.setEditable(true);
    EXPECT_EQ(Presses(box, *box.lineEdit(), {Qt::Key_A, Qt::Key_Return}), 1);
    EXPECT_EQ(Presses(box, box, {Qt::Key_Return}), 1);
}

} // namespace
