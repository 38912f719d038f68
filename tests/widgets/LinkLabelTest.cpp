#include "widgets/LinkLabel.h"
#include "tests/common/ActiveWindow.h"
#include "tests/common/FormTest.h"
#include "tests/common/Repaint.h"

#include <QAccessible>
#include <QPushButton>
#include <QSignalSpy>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

/// A link and a button to go on to.
class LinkLabelTest : public FormTest {
protected:
    LinkLabelTest() {
        link.setText(u"Home page"_s);
        other.setText(u"Ok"_s);
        auto* column = new QVBoxLayout(&window);
        column->addWidget(&link);
        column->addWidget(&other);
        window.show();
        EXPECT_TRUE(BecomesActive(window));
        other.setFocus();
    }

    QWidget window;
    LinkLabel link{&window};
    QPushButton other{&window};
    QSignalSpy clicks{&link, &LinkLabel::Clicked};
};

TEST_F(LinkLabelTest, TheHandOverItTellsThatItCanBeClicked) {
    EXPECT_EQ(link.cursor().shape(), Qt::PointingHandCursor);
}

TEST_F(LinkLabelTest, ItIsClickedByTheLeftButtonLetGoOnIt) {
    QTest::mouseClick(&link, Qt::LeftButton);
    EXPECT_EQ(clicks.size(), 1);
    QTest::mouseClick(&link, Qt::RightButton);
    QTest::mousePress(&link, Qt::LeftButton);
    QTest::mouseRelease(&link, Qt::LeftButton, {}, QPoint(5, link.height() + 2));
    EXPECT_EQ(clicks.size(), 1);
}

TEST_F(LinkLabelTest, TheKeyboardReachesItByTabAndClicksItBySpaceAndEnter) {
    other.setFocus();
    Press(other, Qt::Key_Tab);
    EXPECT_TRUE(link.hasFocus());
    int expected = 0;
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        Press(link, key);
        EXPECT_EQ(clicks.size(), ++expected);
    }
    Press(link, Qt::Key_A);
    EXPECT_EQ(clicks.size(), expected);
}

TEST_F(LinkLabelTest, ARingShowsWhereTheKeyboardIs) {
    const QColor ring = link.palette().color(QPalette::Highlight);
    const auto isRinged = [&] {
        const QImage seen = link.grab().toImage();
        return seen.pixelColor(1, seen.height() / 2) == ring &&
               seen.pixelColor(seen.width() - 2, seen.height() / 2) == ring;
    };
    EXPECT_FALSE(isRinged());
    EXPECT_TRUE(IsRepainted(link, [&] { link.setFocus(); }));
    EXPECT_TRUE(isRinged());
    EXPECT_TRUE(IsRepainted(link, [&] { other.setFocus(); }));
    EXPECT_FALSE(isRinged());
}

TEST_F(LinkLabelTest, AScreenReaderFindsALinkThatItCanPress) {
    QAccessibleInterface* reader = QAccessible::queryAccessibleInterface(&link);
    ASSERT_NE(reader, nullptr);
    EXPECT_EQ(reader->role(), QAccessible::Link);
    EXPECT_EQ(reader->text(QAccessible::Name), u"Home page"_s);
    ASSERT_NE(reader->actionInterface(), nullptr);
    EXPECT_TRUE(reader->actionInterface()->actionNames().contains(
        QAccessibleActionInterface::pressAction()));
    reader->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(clicks.size(), 1);
    reader->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    EXPECT_TRUE(link.hasFocus());
    EXPECT_EQ(clicks.size(), 1);
    link.setAccessibleName(u"Page of the program"_s);
    EXPECT_EQ(reader->text(QAccessible::Name), u"Page of the program"_s);
}

} // namespace
