#include "tests/authoring/AuthoringTest.h"

namespace {

/// The pointers that a form has shown, one after the other.
class PointerLog : public QObject {
public:
    explicit PointerLog(QWidget& form) { form.installEventFilter(this); }

    QList<Qt::CursorShape> Shapes;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::CursorChange)
            Shapes += static_cast<QWidget*>(watched)->cursor().shape();
        return false;
    }
};

} // namespace

class ChartEditorPrinting : public AuthoringTest {};

TEST_F(ChartEditorPrinting, PrintingPutsTheRowsAsTheyStandIntoTheScratchTableAndOnPaper) {
    ChartEditor& editor = ThreeJobs();
    Click(Find(editor, u"Print"_s));
    EXPECT_EQ(Rows(u"Printed"_s),
              (QStringList{u"a|Mon|Mum|Easy|1|0|2001-03-04|2001-03-10|Printed|0"_s,
                           u"b|Tue|Dad|Hard|2|0|<null>|<null>|<null>|0"_s,
                           u"c|Sat|Gran|Medium|3|0|<null>|<null>|<null>|0"_s}));
    ASSERT_EQ(Paper.Files().size(), 1);
    const QString paper = PdfPrintTarget::TextOf(Paper.Files().value(0));
    EXPECT_TRUE(paper.contains(u"Saturday"_s)) << paper.toStdString();
    EXPECT_TRUE(paper.contains(u"3 Points"_s)) << paper.toStdString();
    EXPECT_TRUE(Shown(editor));
    EXPECT_EQ(editor.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(ChartEditorPrinting, PrintingReplacesTheFormerScratchTable) {
    ChartEditor& editor = ThreeJobs();
    Click(Find(editor, u"Print"_s));
    Click(RowControl(editor, u"JobDelete"_s, 0));
    Click(Find(editor, u"Print"_s));
    EXPECT_EQ(Rows(u"Printed"_s).size(), 2);
    EXPECT_EQ(TableNames(), QStringList{u"Printed"_s});
    EXPECT_EQ(Paper.Files().size(), 2);
}

TEST_F(ChartEditorPrinting, PrintingAnOpenedChartNamesItsChild) {
    StoreChart(u"Chores Annabella"_s, {Job(u"a"_s)}, u"Annabella"_s);
    Click(Find(OpenChart(u"Chores Annabella"_s), u"Print"_s));
    ASSERT_EQ(Paper.Files().size(), 1);
    EXPECT_TRUE(PdfPrintTarget::TextOf(Paper.Files().value(0)).contains(u"Annabella"_s));
    EXPECT_EQ(Rows(u"Printed"_s).value(0).section(u'|', 8, 8), u"Printed"_s);
}

TEST_F(ChartEditorPrinting, PointsBeyondTheirFieldPassHereAndAreRefusedAtTheSave) {
    ChartEditor& editor = NewChart();
    editor.SetRow(0, Job(u"a"_s, u"Mon"_s, u"99999999999"_s));
    Boxes.ExpectError(ErrorNumber::Overflow);
    Click(Find(editor, u"Print"_s));
    EXPECT_EQ(editor.Row(0).Points, u"99999999999"_s);
    EXPECT_EQ(Paper.Files().size(), 0);
    EXPECT_EQ(editor.cursor().shape(), Qt::ArrowCursor) << "the hourglass does not stay";
}

TEST_F(ChartEditorPrinting, HourglassStandsOverTheFormWhileItPrints) {
    ChartEditor& editor = ThreeJobs();
    const PointerLog pointers(editor);
    Click(Find(editor, u"Print"_s));
    EXPECT_EQ(pointers.Shapes, (QList<Qt::CursorShape>{Qt::WaitCursor, Qt::ArrowCursor}));
}
