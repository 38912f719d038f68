#include "accounts/DisplayAccount.h"
#include "filling/ChartViewer.h"
#include "filling/OpenFillfrm.h"
#include "reports/WeekChartRepresentation.h"
#include "tests/authoring/AuthoringTest.h"

#include <QGroupBox>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QRegularExpression>
#include <QScrollArea>

namespace {

/// Forms in main windows of small and large screens.
class FormRoomTest : public AuthoringTest {
protected:
    static QWidget& MainWindow() { return DefaultForm(u"MainForm"_s).Widget(); }
    static QRect Room() {
        const QWidget& room = *Find<QMdiArea>(MainWindow(), u"Area"_s).viewport();
        return {room.mapToGlobal(QPoint()), room.size()};
    }
    /// The buttons of a form that are not wholly in the main window.
    static QStringList ButtonsOutOfView(const QWidget& form) {
        QStringList out;
        for (const auto* button : form.findChildren<QPushButton*>()) {
            const QRect place(button->mapToGlobal(QPoint()), button->size());
            if (button->isVisible() && (!Room().contains(place) ||
                                        button->visibleRegion().boundingRect() != button->rect()))
                out += button->objectName();
        }
        return out;
    }
    static ChartViewer& OpenViewer(int jobs) {
        QList<EditorRow> rows;
        for (int job = 1; job <= jobs; ++job)
            rows += Job(u"job %1"_s.arg(job), u"Wed"_s);
        StoreChart(u"Chores Mum"_s, rows, u"Mum"_s);
        auto& form = DefaultForm(OpenFillfrm::FormName);
        form.Show();
        Settle();
        ClickRow(Find(form.Widget(), u"ChartList"_s), 0);
        Click(Find(form.Widget(), u"Ok"_s));
        return dynamic_cast<ChartViewer&>(ChartViewers.At(ChartFormIndex - 1));
    }
    static int RowsInSight(const ChartViewer& viewer) {
        int count = 0;
        for (int row = 0; row < viewer.ClearImg.Count(); ++row)
            count +=
                viewer.ClearImg[row].visibleRegion().boundingRect() == viewer.ClearImg[row].rect()
                    ? 1
                    : 0;
        return count;
    }
    static QRect PlaceIn(const QWidget& form, const QString& name) {
        const QWidget& part = Find(form, name);
        return {part.mapTo(&form, QPoint()), part.size()};
    }
    /// What a form holds has as much air at its left as at its right, within a pixel, and the
    /// first parts begin, the last ones end on one line.
    static void ExpectAirBeside(const QWidget& form, int air, const QStringList& first,
                                const QStringList& last) {
        const int begin = PlaceIn(form, first.first()).left();
        EXPECT_NEAR(begin, air, 1);
        for (const QString& name : first)
            EXPECT_EQ(PlaceIn(form, name).left(), begin) << name.toStdString();
        const int end = PlaceIn(form, last.first()).right();
        EXPECT_NEAR(form.width() - 1 - end, air, 1);
        for (const QString& name : last)
            EXPECT_EQ(PlaceIn(form, name).right(), end) << name.toStdString();
    }
    static QScrollBar& RowsBar(const ChartViewer& viewer) {
        return Find<QScrollBar>(viewer, u"VScroll"_s);
    }
    static QScrollBar& ContentBar(const ChartViewer& viewer) {
        return *Find<QScrollArea>(viewer, u"ContentScroll"_s).verticalScrollBar();
    }
};

TEST_F(FormRoomTest, ButtonsAreInViewInSmallMainWindows) {
    // What the title bars and panels of a desktop leave of 1024 x 600 and 1366 x 768.
    for (const QSize& size : {QSize(1024, 560), QSize(1366, 730)}) {
        SizeMainWindow(size);
        for (const char* name :
             {"Newfrm", "Openfrm", "OpenFillfrm", "ResetDate", "DeleteChartForm", "Reportfrm",
              "DateRangefrm", "WeekChartRepresentation", "DisplayAccount", "AddIncentives",
              "BackgroundOptions", "OtherOptions", "frmAboutDutygrid", "DisplayAllPeople"}) {
            Form& form = DefaultForm(QString::fromLatin1(name));
            form.Show();
            Settle();
            EXPECT_EQ(ButtonsOutOfView(form.Widget()), QStringList()) << name;
            form.Unload();
            Settle();
        }
        EXPECT_EQ(ButtonsOutOfView(NewChart()), QStringList());
    }
}

TEST_F(FormRoomTest, AViewersButtonsStayInViewWithThePersonShown) {
    ChartViewer& viewer = OpenViewer(9);
    for (const QSize& size : {QSize(1024, 560), QSize(1366, 730), QSize(1180, 760)}) {
        SizeMainWindow(size);
        viewer.Move(900, 0);
        Click(Find(viewer, u"NextDay"_s));
        EXPECT_EQ(viewer.height(), 8700 / 15);
        EXPECT_EQ(ButtonsOutOfView(viewer), QStringList()) << size.height();
        Press(viewer.Instructions[0], Qt::Key_Space);
        Settle();
        EXPECT_EQ(viewer.height(), 9800 / 15);
        EXPECT_EQ(ButtonsOutOfView(viewer), QStringList()) << size.height() << " with the person";
        LookAt(MainWindow(), u"viewer-%1"_s.arg(size.height()));
        EXPECT_EQ(Find(viewer, u"CleanUpList"_s).height(), 4200 / 15);
        // What has no room is scrolled to.
        EXPECT_EQ(ContentBar(viewer).maximum() > 0, size.height() < 600);
    }
}

TEST_F(FormRoomTest, TheContentFollowsTheKeyboard) {
    ChartViewer& viewer = OpenViewer(7);
    SizeMainWindow({1024, 560});
    viewer.Move(900, 0);
    Settle();
    ContentBar(viewer).setValue(0);
    ASSERT_TRUE(viewer.ClearImg[6].visibleRegion().isEmpty());
    viewer.ClearImg[5].setFocus();
    Press(viewer.ClearImg[5], Qt::Key_Down);
    EXPECT_EQ(viewer.ClearImg[6].visibleRegion().boundingRect(), viewer.ClearImg[6].rect());
    EXPECT_EQ(RowsBar(viewer).value(), 0);
    // A key at a mark out of view ticks nothing unseen.
    ContentBar(viewer).setValue(0);
    Press(viewer.ClearImg[6], Qt::Key_Space);
    EXPECT_FALSE(viewer.CheckVisible(6));
    EXPECT_FALSE(viewer.ClearImg[6].visibleRegion().isEmpty());
    Press(viewer.ClearImg[6], Qt::Key_Space);
    EXPECT_TRUE(viewer.CheckVisible(6));
}

TEST_F(FormRoomTest, AMaximisedViewerShowsMoreRows) {
    ChartViewer& viewer = OpenViewer(12);
    EXPECT_EQ(RowsInSight(viewer), 7);
    SizeMainWindow({1366, 740});
    viewer.Frame().showMaximized();
    Settle();
    const int spare = viewer.height() - 8700 / 15;
    ASSERT_GT(spare, 28);
    EXPECT_EQ(Find(viewer, u"CleanUpList"_s).height(), 4200 / 15 + spare);
    const int rows = (3000 + spare * 15) / 425;
    EXPECT_EQ(RowsInSight(viewer), rows);
    EXPECT_EQ(RowsBar(viewer).pageStep(), rows - 1);
    // The keyboard knows where the list ends now.
    viewer.ClearImg[rows - 1].setFocus();
    Press(viewer.ClearImg[rows - 1], Qt::Key_Down);
    EXPECT_EQ(RowsBar(viewer).value(), 1);
    viewer.Frame().showNormal();
    Settle();
    EXPECT_EQ(Find(viewer, u"CleanUpList"_s).height(), 4200 / 15);
}

TEST_F(FormRoomTest, AMaximisedEditorShowsMoreRows) {
    ChartEditor& editor = NewChart();
    for (int added = 1; added < 30; ++added)
        editor.NewTask_Click();
    auto& frame = Find(editor, u"EditChartFrame"_s);
    EXPECT_EQ(frame.height(), 5055 / 15);
    SizeMainWindow({1366, 740});
    editor.Frame().showMaximized();
    Settle();
    EXPECT_GT(frame.height(), 5055 / 15 + 100);
    const int last = (frame.height() * 15 - 650) / 380 - 1;
    ASSERT_GT(last, 13);
    const QWidget& box = RowControl(editor, u"Points"_s, last);
    EXPECT_EQ(box.visibleRegion().boundingRect(), box.rect());
    EXPECT_EQ(ButtonsOutOfView(editor).filter(QRegularExpression(u"^(?!JobDelete)"_s)),
              QStringList());
    const QStringList begin = {u"StartingFrom"_s, u"EditChartFrame"_s, u"NewTask"_s, u"Print"_s};
    const QStringList end = {u"EditChartFrame"_s, u"Whose"_s, u"AutoCreatechk"_s, u"Close"_s};
    ExpectAirBeside(editor, (editor.width() - 825) / 2, begin, end);
    LookAt(editor, u"editor-maximised"_s);
    editor.Frame().showNormal();
    Settle();
    EXPECT_EQ(frame.height(), 5055 / 15);
    EXPECT_EQ(editor.width(), 14 + 825 + 14);
    ExpectAirBeside(editor, 14, begin, end);
}

TEST_F(FormRoomTest, AMaximisedReviewShowsMoreLines) {
    QList<EditorRow> jobs;
    for (int job = 1; job <= 20; ++job)
        jobs += Job(u"job %1"_s.arg(job), u"Wed"_s);
    StoreChart(u"Chores Anna"_s, jobs);
    Form& form = DefaultForm(WeekChartRepresentation::FormName);
    form.Show();
    Settle();
    ClickRow(Find(form.Widget(), u"ChartList"_s), 0);
    auto& surface = Find(form.Widget(), u"Surface"_s);
    const QSize designed(10455 / 15, 4200 / 15);
    EXPECT_EQ(surface.size(), designed);
    SizeMainWindow({1366, 740});
    form.Frame().showMaximized();
    Settle();
    const int spare = form.Widget().height() - 394;
    ASSERT_GT(spare, 100);
    EXPECT_EQ(surface.size(), designed + QSize(0, spare));
    EXPECT_EQ(ButtonsOutOfView(form.Widget()), QStringList());
    const auto& line = dynamic_cast<WeekChartRepresentation&>(form).Job[9];
    EXPECT_EQ(line.visibleRegion().boundingRect(), line.rect());
    const QStringList begin = {u"Label2"_s, u"ChartList"_s};
    const QStringList end = {u"VScroll"_s, u"Ok"_s};
    ExpectAirBeside(form.Widget(), (form.Widget().width() - 945) / 2, begin, end);
    EXPECT_EQ(PlaceIn(form.Widget(), u"Surface"_s).left(),
              PlaceIn(form.Widget(), u"ChartList"_s).left() + 232);
    LookAt(form.Widget(), u"review-maximised"_s);
    form.Frame().showNormal();
    Settle();
    EXPECT_EQ(surface.size(), designed);
    EXPECT_EQ(surface.pos(), QPoint(240, 56));
    ExpectAirBeside(form.Widget(), 8, begin, end);
}

TEST_F(FormRoomTest, AMaximisedAccountViewHoldsItsCardsInTheMiddle) {
    MakeAccount(u"Anna"_s, u"a"_s, u"Student"_s);
    Arrange([] { Database().AddPoints(u"Anna"_s, 12, false); });
    Form& form = DefaultForm(DisplayAccount::FormName);
    form.Show();
    Settle();
    const QWidget& view = form.Widget();
    const int designed = view.width() - 2 * 16;
    const QStringList begin = {u"Label2"_s, u"StudentsList"_s};
    const QStringList end = {u"Incentivesbtn"_s, u"Infobtn"_s, u"Okbtn"_s};
    ExpectAirBeside(view, 16, begin, end);
    SizeMainWindow({1366, 740});
    form.Frame().showMaximized();
    Settle();
    ClickRow(Find(view, u"StudentsList"_s), 0);
    ExpectAirBeside(view, (view.width() - designed) / 2, begin, end);
    for (const char* part : {"StudentsList", "GoalCard", "Okbtn"})
        EXPECT_EQ(PlaceIn(view, QString::fromLatin1(part)).bottom(), view.height() - 1 - 8) << part;
    LookAt(form.Widget(), u"accounts-maximised"_s);
    form.Frame().showNormal();
    Settle();
    ExpectAirBeside(view, 16, begin, end);
}

} // namespace
