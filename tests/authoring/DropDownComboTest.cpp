#include "authoring/DropDownCombo.h"
#include "tests/common/ActiveWindow.h"
#include "tests/common/FormTest.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QLineEdit>
#include <QScreen>
#include <QTest>
#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

/// A box of forty jobs, wherever on the screen it is put.
class DropDownComboTest : public FormTest {
protected:
    DropDownComboTest() {
        for (int number = 1; number <= 40; ++number)
            combo.addItem(u"Job %1"_s.arg(number));
        combo.resize(160, 24);
        window.resize(200, 24);
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&window, Patience));
    }

    /// How many entries the list shows that drops with so many pixels below the box.
    int EntriesWith(int below) {
        const QRect screen = window.screen()->availableGeometry();
        window.move(100, screen.bottom() - below - combo.height());
        EXPECT_TRUE(QTest::qWaitFor(
            [&] {
                return combo.mapToGlobal(QPoint(0, combo.height())).y() == screen.bottom() - below;
            },
            Patience));
        combo.showPopup();
        EXPECT_TRUE(combo.IsDropped());
        combo.hidePopup();
        EXPECT_FALSE(combo.IsDropped());
        return combo.maxVisibleItems();
    }

    // No window manager has a say in where it is.
    QWidget window{nullptr, Qt::Window | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint};
    DropDownCombo combo{&window};
};

TEST_F(DropDownComboTest, TheListEndsAboveTheLowerEdgeUnlessThereIsNoRoomForIt) {
    const int entry = combo.view()->sizeHintForRow(0);
    ASSERT_GT(entry, 0);
    // Pixels for so many entries and the list's edges.
    const auto room = [entry](int entries) { return entries * entry + 4; };
    EXPECT_EQ(EntriesWith(room(25)), 10);
    EXPECT_EQ(EntriesWith(room(10)), 10);
    EXPECT_EQ(EntriesWith(room(10) - 1), 9);
    EXPECT_EQ(EntriesWith(room(4)), 4);
    EXPECT_EQ(EntriesWith(room(4) - 1), 10) << "it drops upwards";
    EXPECT_EQ(EntriesWith(0), 10);
}

TEST_F(DropDownComboTest, TheListIsAsWideAsItsLongestEntryUpToHalfTheScreen) {
    const auto width = [this] {
        combo.showPopup();
        const int least = combo.view()->minimumWidth();
        combo.hidePopup();
        return least;
    };
    const int former = width();
    EXPECT_GT(former, combo.view()->sizeHintForColumn(0));
    const int entry = combo.view()->sizeHintForColumn(0);
    combo.addItem(u"Put the lunch box into the dishwasher"_s);
    EXPECT_EQ(width() - former, combo.view()->sizeHintForColumn(0) - entry);
    combo.addItem(QString(400, u'W'));
    EXPECT_EQ(width(), window.screen()->availableGeometry().width() / 2);
    EXPECT_EQ(combo.view()->textElideMode(), Qt::ElideRight);
}

TEST_F(DropDownComboTest, OfALongTextTheBeginningShowsOnceTheKeyboardHasGone) {
    QLineEdit& text = *combo.lineEdit();
    QLineEdit next(&window);
    next.show();
    window.activateWindow();
    ASSERT_TRUE(BecomesActive(window));
    text.setFocus();
    TypeOn(text, u"Feed the cat, the dog and both of the rabbits"_s);
    EXPECT_EQ(text.cursorPosition(), text.text().size());
    next.setFocus();
    EXPECT_EQ(text.cursorPosition(), 0);
}

TEST_F(DropDownComboTest, AScreenReaderFindsABoxWithAListToOpen) {
    QAccessibleInterface* reader = QAccessible::queryAccessibleInterface(&combo);
    ASSERT_NE(reader, nullptr);
    EXPECT_EQ(reader->role(), QAccessible::ComboBox);
    EXPECT_TRUE(reader->state().expandable);
    EXPECT_TRUE(reader->state().editable);
    EXPECT_TRUE(reader->state().hasPopup);
    EXPECT_FALSE(reader->state().expanded);
    combo.SetSpokenName(u"Jobs, job 1"_s);
    combo.SetText(u"Cook"_s);
    EXPECT_EQ(reader->text(QAccessible::Name), u"Jobs, job 1"_s);
    EXPECT_EQ(reader->text(QAccessible::Value), u"Cook"_s);
    EXPECT_EQ(combo.lineEdit()->accessibleName(), u"Jobs, job 1"_s);
    ASSERT_NE(reader->actionInterface(), nullptr);
    reader->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    EXPECT_TRUE(combo.IsDropped());
    EXPECT_TRUE(reader->state().expanded);
    combo.hidePopup();
    EXPECT_FALSE(reader->state().expanded);
    reader->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    EXPECT_FALSE(combo.IsDropped());
}

} // namespace
