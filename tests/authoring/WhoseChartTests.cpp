#include "tests/authoring/AuthoringTest.h"

/// Which chart it is, and whose.
class WhoseChart : public AuthoringTest {
protected:
    static QString Whose(const ChartEditor& editor) { return CaptionOf(editor, u"Whose"_s); }
};

TEST_F(WhoseChart, AnOpenedChartsEditorNamesTheChartAndItsOwner) {
    StoreChart(u"Chores Anna"_s, {Job(u"a"_s)}, u"Anna"_s);
    EXPECT_EQ(Whose(OpenChart(u"Chores Anna"_s)), u"Chores Anna, for Anna"_s);
}

TEST_F(WhoseChart, AChartWithoutAnOwnerIsNamedAlone) {
    StoreChart(u"Spare"_s, {Job(u"a"_s)}, QString());
    EXPECT_EQ(Whose(OpenChart(u"Spare"_s)), u"Spare"_s);
}

TEST_F(WhoseChart, ANewOneIsNobodysYet) {
    EXPECT_EQ(Whose(NewChart()), QString());
}
