#include "widgets/EmptyNote.h"
#include "tests/common/FormTest.h"
#include "widgets/ClickList.h"

#include <QTest>

namespace {

using namespace Qt::StringLiterals;

class EmptyNoteTest : public FormTest {
protected:
    EmptyNoteTest() {
        list.resize(220, 140);
        list.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&list, Patience));
    }

    ClickList list;
    EmptyNote& note = *new EmptyNote(list, u"Nothing here yet. Come back tomorrow."_s);
};

TEST_F(EmptyNoteTest, IsSeenAndHeardWhileTheListIsEmpty) {
    EXPECT_TRUE(note.isVisible());
    EXPECT_EQ(list.accessibleDescription(), note.text());
    LookAt(list, u"empty"_s);
    list.addItem(u"One"_s);
    EXPECT_FALSE(note.isVisible());
    EXPECT_EQ(list.accessibleDescription(), QString());
    delete list.takeItem(0);
    EXPECT_TRUE(note.isVisible());
    list.addItems({u"One"_s, u"Two"_s});
    EXPECT_FALSE(note.isVisible());
    list.clear();
    EXPECT_TRUE(note.isVisible());
    note.Say(u"Choose a name first."_s);
    EXPECT_EQ(list.accessibleDescription(), u"Choose a name first."_s);
}

TEST_F(EmptyNoteTest, FillsTheListAndLetsTheMouseThrough) {
    list.resize(300, 90);
    EXPECT_EQ(note.geometry(), list.viewport()->rect());
    EXPECT_EQ(list.childAt(list.rect().center()), list.viewport());
}

} // namespace
