#include "filling/ChartViewer.h"
#include "filling/OpenFillfrm.h"
#include "tests/authoring/AuthoringTest.h"

#include <QLocale>

namespace {

/// A system of another language, and the week of the tests there: Sunday, Saturday and the
/// Wednesday that is today.
struct OtherSystem {
    const char* Name;
    const char16_t* Sunday;
    const char16_t* Saturday;
    const char16_t* Wednesday;
};

/// A chart's way from the adult's "New" to the child's tick, on systems of other languages.
class OtherLanguagesTest : public AuthoringTest, public testing::WithParamInterface<OtherSystem> {
protected:
    OtherLanguagesTest() { QLocale::setDefault(QLocale(QLatin1String(GetParam().Name))); }

    void SetUp() override {
        MakeAccount(u"Anna"_s, u"a"_s, u"Student"_s);
        AuthoringTest::SetUp();
    }

    const QString sunday = QString::fromUtf16(GetParam().Sunday);
    const QString saturday = QString::fromUtf16(GetParam().Saturday);
    const QString wednesday = QString::fromUtf16(GetParam().Wednesday);
};

TEST_P(OtherLanguagesTest, AChartIsMadeGivenToAChildAndTicked) {
    ChartEditor& editor = NewChart();
    EXPECT_EQ(CaptionOf(editor, u"StartingFrom"_s),
              u"Starting from: Sunday %1 to Saturday %2"_s.arg(sunday, saturday));
    EXPECT_EQ(editor.FirstDate, QDate(2001, 3, 4));
    EXPECT_EQ(editor.LastDate, QDate(2001, 3, 10));
    editor.SetRow(0, Job(u"Sweep"_s, u"Wed"_s));
    Click(Find(editor, u"CreateChart"_s));
    ClickRow(Find<QListWidget>(Default<DisplayAllPeople>(), u"ListView1"_s), 0);
    Boxes.Expect(u"Anna's Sparkit Dutygrid has been created"_s);
    Click(Find(Default<DisplayAllPeople>(), u"Ok"_s));
    EXPECT_EQ(Rows(u"Chores Anna"_s),
              QStringList{u"Sweep|Wed|Mum|Easy|3|0|2001-03-04|2001-03-10|Anna|-1"_s});

    StartSession(u"Anna"_s, u"Student"_s);
    auto& list = Default<OpenFillfrm>();
    list.Show();
    Settle();
    ClickRow(Find<QListWidget>(list, u"ChartList"_s), 0);
    Click(Find(list, u"Ok"_s));
    auto* viewer = dynamic_cast<ChartViewer*>(ChartViewers.Peek(ChartFormIndex - 1));
    ASSERT_NE(viewer, nullptr);
    EXPECT_EQ(CaptionOf(*viewer, u"Label4"_s), u"Today is Wednesday - "_s + wednesday);
    EXPECT_EQ(CaptionOf(*viewer, u"DayLbl"_s), u"Wednesday "_s + wednesday);
    Click(viewer->ClearImg[0]);
    Click(Find(*viewer, u"Ok"_s));
    EXPECT_EQ(Rows(u"Chores Anna"_s),
              QStringList{u"Sweep|Wed|Mum|Easy|3|-1|2001-03-04|2001-03-10|Anna|-1"_s});
}

INSTANTIATE_TEST_SUITE_P(
    Systems, OtherLanguagesTest,
    testing::Values(OtherSystem{"de_DE", u"04.03.2001", u"10.03.2001", u"07.03.2001"},
                    OtherSystem{"fr_FR", u"04/03/2001", u"10/03/2001", u"07/03/2001"},
                    // Its digits are its own, and marks of its direction stand between them.
                    OtherSystem{"ar_EG", u"\u0664\u200F/\u0663\u200F/\u0662\u0660\u0660\u0661",
                                u"\u0661\u0660\u200F/\u0663\u200F/\u0662\u0660\u0660\u0661",
                                u"\u0667\u200F/\u0663\u200F/\u0662\u0660\u0660\u0661"},
                    OtherSystem{"tr_TR", u"4.03.2001", u"10.03.2001", u"7.03.2001"},
                    OtherSystem{"zh_CN", u"2001/3/4", u"2001/3/10", u"2001/3/7"}),
    [](const auto& system) { return std::string(system.param.Name); });

} // namespace
