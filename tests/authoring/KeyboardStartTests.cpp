#include "tests/authoring/AuthoringTest.h"

#include <QApplication>

namespace {

/// Where the keyboard begins, and where it goes on.
class KeyboardStart : public AuthoringTest {
protected:
    static void ExpectIn(const QWidget& control) {
        const QWidget* focus = QApplication::focusWidget();
        EXPECT_TRUE(focus == &control || (focus != nullptr && focus == control.focusProxy()))
            << (focus == nullptr ? "nowhere" : focus->objectName().toStdString());
    }
};

TEST_F(KeyboardStart, InTheNameAtEveryNew) {
    for (const QString& name : {u"Chores"_s, u"Garden"_s}) {
        Default<Newfrm>().Show();
        Settle();
        ExpectIn(Find(Default<Newfrm>(), u"NameOfNewChart"_s));
        TypeOn(Focused(), name);
        KeyToFocus(Qt::Key_Return);
        Settle();
        EXPECT_EQ(LastEditor().ChartName, name);
        Boxes.Expect(CloseQuestion, PromptAnswer::Yes);
        LastEditor().Unload();
        ChartFormIndex = 0;
        Settle();
    }
}

TEST_F(KeyboardStart, InTheFirstJobOfAnEditor) {
    StoreChart(u"Chores Anna"_s, {Job(u"a"_s), Job(u"b"_s)});
    ExpectIn(RowControl(NewChart(u"Garden"_s), u"Instructions"_s, 0));
    ExpectIn(RowControl(OpenChart(u"Chores Anna"_s), u"Instructions"_s, 0));
}

TEST_F(KeyboardStart, InTheListOfCharts) {
    StoreChart(u"Chores Anna"_s, {Job(u"a"_s)});
    StoreChart(u"Garden Anna"_s, {Job(u"b"_s)});
    auto& dialog = Default<Openfrm>();
    dialog.Show();
    Settle();
    ExpectIn(Find(dialog, u"ChartList"_s));
    KeyToFocus(Qt::Key_Down);
    EXPECT_EQ(dialog.SelectedChart(), u"Chores Anna"_s) << "the first key takes the first row";
    KeyToFocus(Qt::Key_Return);
    Settle();
    EXPECT_EQ(LastEditor().ChartName, u"Chores Anna"_s);
}

TEST_F(KeyboardStart, AnAddedJobTakesTheKeyboardAndIsBroughtIntoView) {
    ChartEditor& editor = NewChart();
    for (int row = 1; row <= 10; ++row) {
        Click(Find(editor, u"NewTask"_s));
        ExpectIn(RowControl(editor, u"Instructions"_s, row));
        EXPECT_EQ(Scroll(editor).value(), 0);
    }
    Click(Find(editor, u"NewTask"_s));
    ExpectIn(RowControl(editor, u"Instructions"_s, 11));
    EXPECT_EQ(Scroll(editor).value(), 1);
    EXPECT_EQ(editor.Points.Top(11), 650 + 10 * 380);
    // By Enter the same, wherever the list was scrolled to.
    Scroll(editor).setValue(0);
    Press(RowControl(editor, u"Points"_s, 0), Qt::Key_Return);
    ExpectIn(RowControl(editor, u"Instructions"_s, 12));
    EXPECT_EQ(Scroll(editor).value(), 2);
    EXPECT_FALSE(RowControl(editor, u"Instructions"_s, 12).visibleRegion().isEmpty());
    Press(RowControl(editor, u"DayOfWeek"_s, 12), Qt::Key_Return);
    ExpectIn(RowControl(editor, u"Instructions"_s, 13));
    EXPECT_EQ(Scroll(editor).value(), 3);
}

TEST_F(KeyboardStart, OnNoBeforeAChartIsDeleted) {
    StoreChart(u"Chores Anna"_s, {Job(u"a"_s)});
    ChartEditor& editor = OpenChart(u"Chores Anna"_s);
    Click(Find(editor, u"DeleteChart"_s));
    ExpectIn(Find(Default<DeleteChartForm>(), u"No"_s));
    KeyToFocus(Qt::Key_Escape);
    Settle();
    EXPECT_EQ(ExistingForm(u"DeleteChartForm"_s), nullptr);
    Boxes.Expect(DeleteQuestion, PromptAnswer::No);
    Click(RowControl(editor, u"JobDelete"_s, 0));
    EXPECT_TRUE(Boxes.Last().BeginsOnNo);
    Boxes.Expect(CloseQuestion, PromptAnswer::No);
    Press(RowControl(editor, u"Points"_s, 0), Qt::Key_Escape);
    EXPECT_TRUE(Boxes.Last().BeginsOnNo);
    EXPECT_TRUE(Shown(editor));
}

} // namespace
