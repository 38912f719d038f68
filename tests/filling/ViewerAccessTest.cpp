#include "tests/filling/FillingTest.h"

#include <QAccessible>
#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

/// What a screen reader finds on the viewer.
class ViewerAccessTest : public FillingTest {
protected:
    ViewerAccessTest() {
        MakeChart(u"Chores Anna"_s,
                  {{u"Cook"_s, u"Wed"_s, u"5"_s}, {u"Sweep"_s, u"Wed"_s, u"3"_s}});
        viewer_ = &OpenChart(u"Chores Anna"_s);
    }

    ChartViewer& Viewer() { return *viewer_; }
    static QAccessibleInterface& Reader(QWidget& control) {
        QAccessibleInterface* found = QAccessible::queryAccessibleInterface(&control);
        if (found == nullptr || found->actionInterface() == nullptr)
            throw std::runtime_error("nothing for a screen reader");
        return *found;
    }

private:
    ChartViewer* viewer_ = nullptr;
};

TEST_F(ViewerAccessTest, TheNumberOfARowIsTheLabelOfItsJob) {
    for (const int row : {0, 1})
        EXPECT_EQ(Viewer().Number[row].buddy(), &Viewer().Instructions[row]) << row;
}

TEST_F(ViewerAccessTest, AMarkIsABoxToTick) {
    const QString toggle = QAccessibleActionInterface::toggleAction();
    const QString setFocus = QAccessibleActionInterface::setFocusAction();
    MarkImage& box = Viewer().ClearImg[0];
    QAccessibleInterface& clear = Reader(box);
    EXPECT_EQ(clear.role(), QAccessible::CheckBox);
    EXPECT_TRUE(clear.state().checkable);
    EXPECT_FALSE(clear.state().checked);
    EXPECT_TRUE(clear.state().focusable);
    EXPECT_EQ(clear.actionInterface()->actionNames(), (QStringList{toggle, setFocus}));
    clear.actionInterface()->doAction(setFocus);
    EXPECT_TRUE(box.hasFocus());
    EXPECT_FALSE(Viewer().CheckVisible(0));
    clear.actionInterface()->doAction(toggle);
    EXPECT_TRUE(Viewer().CheckVisible(0));
    MarkImage& tick = Viewer().CheckImg[0];
    const QAccessibleInterface& checked = Reader(tick);
    EXPECT_EQ(checked.role(), QAccessible::CheckBox);
    EXPECT_TRUE(checked.state().checkable);
    EXPECT_TRUE(checked.state().checked);
}

TEST_F(ViewerAccessTest, ARowIsAnEntryOfAListThatCanBeChosen) {
    const QString press = QAccessibleActionInterface::pressAction();
    const QString setFocus = QAccessibleActionInterface::setFocusAction();
    RowText& row = Viewer().Instructions[1];
    RowText& other = Viewer().Instructions[0];
    QAccessibleInterface& reader = Reader(row);
    EXPECT_EQ(reader.role(), QAccessible::ListItem);
    EXPECT_EQ(reader.text(QAccessible::Name), u"Job 2: Sweep"_s);
    EXPECT_EQ(reader.text(QAccessible::Description),
              u"Easy, 3 points. Space shows who is responsible."_s);
    EXPECT_TRUE(reader.state().selectable);
    EXPECT_FALSE(reader.state().selected);
    EXPECT_FALSE(reader.state().checkable);
    EXPECT_EQ(reader.actionInterface()->actionNames(), (QStringList{press, setFocus}));
    reader.actionInterface()->doAction(setFocus);
    EXPECT_TRUE(row.hasFocus());
    EXPECT_FALSE(reader.state().selected);
    reader.actionInterface()->doAction(press);
    EXPECT_TRUE(reader.state().selected);
    EXPECT_EQ(row.ForeColor(), QColor(Qt::blue));
    Press(other, Qt::Key_Space);
    EXPECT_FALSE(reader.state().selected);
    EXPECT_TRUE(Reader(other).state().selected);
}

TEST_F(ViewerAccessTest, OtherTextsOfARowAreNoEntries) {
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&Viewer().Points[0])->role(),
              QAccessible::StaticText);
}

} // namespace
