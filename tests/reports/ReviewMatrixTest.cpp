#include "tests/reports/ReviewTest.h"

#include "look/LookColors.h"
#include "reports/DayStrip.h"
#include "tests/common/SpoiledRows.h"

#include <QApplication>
#include <QHelpEvent>
#include <QLabel>
#include <QTextDocumentFragment>
#include <QToolTip>

namespace {

using S = QStringList;

/// The matrix on the form: which lines there are, where they stand, what they look like.
class ReviewMatrixTest : public ReviewTest {
protected:
    template <class Control>
    static QList<int> Tops(const ControlArray<Control>& controls) {
        QList<int> tops;
        for (int line = 0; line < controls.Count(); ++line)
            tops += controls.Top(line);
        return tops;
    }
    /// So many tops from the first one on.
    static QList<int> Steps(int first, int pitch, int count) {
        QList<int> tops;
        for (int line = 0; line < count; ++line)
            tops += first + line * pitch;
        return tops;
    }
    template <class Control>
    static void ExpectPlace(const ControlArray<Control>& controls, const TwipRect& place) {
        EXPECT_EQ(controls.Left(0), place.Left);
        EXPECT_EQ(controls.Top(0), place.Top);
        EXPECT_EQ(controls.Width(0), place.Width);
        EXPECT_EQ(controls.Height(0), place.Height);
    }
    static bool Shows(QWidget& widget, const QColor& color) {
        const QImage picture = widget.grab().toImage();
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                if (picture.pixelColor(x, y) == color)
                    return true;
        return false;
    }
};

TEST_F(ReviewMatrixTest, LineZeroStandsWhereTheDesignSays) {
    const WeekChartRepresentation& form = Open();
    ExpectPlace(form.Job, {240, 1320, 2175, 255});
    ExpectPlace(form.Points, {2400, 1320, 525, 255});
    ExpectPlace(form.Sun, {3120, 1320, 615, 255});
    ExpectPlace(form.Mon, {4080, 1320, 615, 255});
    ExpectPlace(form.Tue, {4920, 1320, 615, 255});
    ExpectPlace(form.Wed, {5760, 1320, 615, 255});
    ExpectPlace(form.Thu, {6600, 1320, 615, 255});
    ExpectPlace(form.Fri, {7440, 1320, 615, 255});
    ExpectPlace(form.Sat, {8400, 1320, 615, 255});
    ExpectPlace(form.JobTotal, {9240, 1320, 1095, 255});
    ExpectPlace(form.Patrat, {120, 1200, 9015, 495});
    ASSERT_EQ(form.DayTotal.Count(), 7);
    const QList<int> lefts = {3120, 4080, 4920, 5760, 6600, 7440, 8400};
    for (int day = 0; day < 7; ++day) {
        EXPECT_EQ(form.DayTotal.Left(day), lefts.at(day));
        EXPECT_EQ(form.DayTotal.Top(day), 1800);
        EXPECT_EQ(form.DayTotal.Width(day), 615);
        EXPECT_EQ(form.DayTotal.Height(day), 255);
        EXPECT_TRUE(form.DayTotal.Visible(day));
    }
    EXPECT_EQ(form.Job[0].geometry(), QRect(240 / 15, 1320 / 15, 2175 / 15, 255 / 15));
}

TEST_F(ReviewMatrixTest, FixedControlsStandWhereTheDesignSays) {
    Open();
    const QList<std::pair<const char*, QRect>> places = {{"ChartList", {120, 840, 3255, 3990}},
                                                         {"Surface", {3600, 840, 10455, 4200}},
                                                         {"VScroll", {14040, 840, 255, 4215}},
                                                         {"Picture1", {0, 0, 10335, 1095}},
                                                         {"Calendar1", {2880, 240, 6375, 975}}};
    for (const auto& [name, place] : places)
        EXPECT_EQ(Part(name).geometry(),
                  QRect(place.x() / 15, place.y() / 15, place.width() / 15, place.height() / 15))
            << name;
    for (const char* head : {"Label1", "Label3", "Label4"})
        EXPECT_EQ(Part(head).y(), 480 / 15) << head;
    const QList<int> rules = {3000, 3960, 4800, 5640, 6480, 7320, 8280, 9120};
    for (int rule = 0; rule < rules.size(); ++rule) {
        const QByteArray name = "Line" + QByteArray::number(rule + 2);
        EXPECT_EQ(Part(name.constData()).geometry(), QRect(rules.at(rule) / 15, 80, 1, 200));
    }
}

TEST_F(ReviewMatrixTest, TheRulesAreSeen) {
    MakeChart(QStringLiteral("Chores Anna"), Jobs(1));
    OpenOn(QStringLiteral("Chores Anna"));
    const QImage surface = Surface().grab().toImage();
    const qreal ratio = surface.devicePixelRatio();
    for (const char* name : {"Line1", "Line2", "Line5", "Line9"}) {
        const QRect rule = Part(name).rect();
        const QPoint on = Part(name).mapTo(&Surface(), QPoint(0, 0)) +
                          QPoint(rule.width() * 3 / 4, rule.height() * 3 / 4);
        const QPoint beside = on + (rule.width() == 1 ? QPoint(-3, 0) : QPoint(0, -3));
        EXPECT_NE(surface.pixel((QPointF(on) * ratio).toPoint()),
                  surface.pixel((QPointF(beside) * ratio).toPoint()))
            << name;
    }
}

TEST_F(ReviewMatrixTest, AMatrixOfFourJobsHasTheBoundFour) {
    MakeChart(QStringLiteral("Chores Anna"), Jobs(4));
    const WeekChartRepresentation& form = OpenOn(QStringLiteral("Chores Anna"));
    EXPECT_EQ(form.Job.Count() - 1, 4);
    EXPECT_EQ(Scroll().maximum(), 4);
    EXPECT_TRUE(Captions(form.Job).endsWith(QStringLiteral("Total Points")));
    for (const CellArray* day : DayArrays(form))
        EXPECT_EQ(day->Count(), 5);
    for (const int count : {form.Points.Count(), form.JobTotal.Count(), form.Patrat.Count()})
        EXPECT_EQ(count, 5);
}

TEST_F(ReviewMatrixTest, AFreshMatrixsRectanglesFallBehindItsLabels) {
    MakeChart(QStringLiteral("Chores Anna"), Jobs(4));
    const WeekChartRepresentation& form = OpenOn(QStringLiteral("Chores Anna"));
    EXPECT_EQ(Tops(form.Job), Steps(1320, 510, 5));
    EXPECT_EQ(Tops(form.Patrat), Steps(1200, 495, 5));
    EXPECT_EQ(Tops(form.Points), Steps(1320, 510, 5));
    EXPECT_EQ(Tops(form.JobTotal).mid(0, 4), Steps(1320, 510, 4));
    for (const CellArray* day : DayArrays(form))
        EXPECT_EQ(Tops(*day).mid(0, 4), Steps(1320, 510, 4));
    EXPECT_EQ(form.Patrat[4].y(), (1200 + 4 * 495) / 15);
}

TEST_F(ReviewMatrixTest, TheTotalLineCarriesTheDayTotalsAndTheGrandTotalOnTheRight) {
    MakeChart(QStringLiteral("Chores Anna"),
              {{QStringLiteral("Cook"), QStringLiteral("Mon"), 5, true},
               {QStringLiteral("Cook"), QStringLiteral("Wed"), 5, true},
               {QStringLiteral("Rake"), QStringLiteral("Wed"), 3, false}});
    const WeekChartRepresentation& form = OpenOn(QStringLiteral("Chores Anna"));
    EXPECT_EQ(Captions(form.Job),
              (S{QStringLiteral("Cook"), QStringLiteral("Rake"), QStringLiteral("Total Points")}));
    EXPECT_EQ(CellsOf(form, 0), QStringLiteral("- 1 - 1 - - -"));
    EXPECT_EQ(CellsOf(form, 1), QStringLiteral("- - - o - - -"));
    EXPECT_EQ(CellsOf(form, 2), QStringLiteral("- - - - - - -"));
    EXPECT_EQ(Captions(form.DayTotal).join(QLatin1Char(' ')), QStringLiteral("0 5 0 5 0 0 0"));
    for (int day = 0; day < 7; ++day)
        EXPECT_EQ(form.DayTotal.Top(day), form.Job.Top(2));
    EXPECT_EQ(form.JobTotal.Caption(0), QStringLiteral("10"));
    EXPECT_EQ(form.Points.Caption(2), QStringLiteral("10"));
    // One and a half columns of 615 behind 8400; whole twips, a half to the even neighbour.
    EXPECT_EQ(form.Points.Left(2), 9322);
    EXPECT_EQ(form.Points.Left(1), 2400);
    EXPECT_FALSE(form.JobTotal.Visible(2));
    EXPECT_TRUE(form.Patrat.Visible(2));
    // It stands right below the totals of the jobs.
    const auto middle = [](const QLabel& label) {
        return label.mapTo(&Surface(), label.contentsRect().center()).x();
    };
    EXPECT_EQ(middle(form.Points[2]), middle(form.JobTotal[0]));
}

TEST_F(ReviewMatrixTest, LaterLinesAreSeenAndBeginWithoutTheFirstOnesMarks) {
    MakeChart(QStringLiteral("Chores Anna"),
              {{QStringLiteral("Cook"), QStringLiteral("Mon"), 5, true},
               {QStringLiteral("Rake"), QStringLiteral("Mon"), 5, false},
               {QStringLiteral("Read"), QStringLiteral("Mon"), 5, true}});
    const WeekChartRepresentation& form = OpenOn(QStringLiteral("Chores Anna"));
    EXPECT_EQ(CellsOf(form, 0), QStringLiteral("- 1 - - - - -"));
    EXPECT_EQ(CellsOf(form, 1), QStringLiteral("- o - - - - -"));
    EXPECT_EQ(CellsOf(form, 2), QStringLiteral("- 1 - - - - -"));
    for (const int line : {0, 1, 2, 3}) {
        EXPECT_TRUE(form.Job.Visible(line)) << line;
        EXPECT_TRUE(form.Points.Visible(line)) << line;
        EXPECT_EQ(form.JobTotal.Visible(line), line < 3) << line;
        EXPECT_TRUE(form.Patrat.Visible(line)) << line;
    }
}

TEST_F(ReviewMatrixTest, ACellCountsWhatIsDoneAndStaysDoneWhenALaterRowIsOpen) {
    const QString job = QStringLiteral("Cook");
    MakeChart(QStringLiteral("Chores Anna"), {{job, QStringLiteral("Fri"), 5, true},
                                              {job, QStringLiteral("Fri"), 5, false},
                                              {job, QStringLiteral("Sat"), 5, false},
                                              {job, QStringLiteral("Sat"), 5, true},
                                              {job, QStringLiteral("Sun"), 5, true},
                                              {job, QStringLiteral("Sun"), 5, true}});
    EXPECT_EQ(CellsOf(OpenOn(QStringLiteral("Chores Anna")), 0), QStringLiteral("2 - - - - 1 1"));
}

TEST_F(ReviewMatrixTest, TheFirstLineIsClearedBeforeAFailureInIt) {
    const QString chart = QStringLiteral("Chores Anna");
    const QString job = QStringLiteral("Cook");
    MakeChart(chart, {{job, QStringLiteral("Mon"), 5, true}});
    const WeekChartRepresentation& form = OpenOn(chart);
    Spoil(chart, QStringLiteral("Points = NULL"));
    Boxes.ExpectError(ErrorNumber::InvalidUseOfNull);
    Choose(chart);
    EXPECT_EQ(Captions(form.Job), S{job});
    EXPECT_EQ(Captions(form.Points), S{QString()});
    EXPECT_EQ(CellsOf(form, 0), QStringLiteral("- - - - - - -"));
    EXPECT_EQ(form.Mon.Caption(0), QString());
    EXPECT_EQ(form.Mon.BackStyle(0), 0);
    Spoil(chart, QStringLiteral("Instructions = NULL"));
    Boxes.ExpectError(ErrorNumber::InvalidUseOfNull);
    Choose(chart);
    EXPECT_EQ(Captions(form.Job), S{QString()});
}

TEST_F(ReviewMatrixTest, ColoursAreThoseOfTheDesign) {
    MakeChart(QStringLiteral("Chores Anna"),
              {{QStringLiteral("Cook"), QStringLiteral("Mon"), 5, true}});
    const WeekChartRepresentation& form = OpenOn(QStringLiteral("Chores Anna"));
    EXPECT_EQ(form.Job.ForeColor(0), 0);
    EXPECT_EQ(form.JobTotal.ForeColor(0), 16711680);
    EXPECT_EQ(form.DayTotal.ForeColor(3), 16711680);
    EXPECT_EQ(form.Job.ForeColor(1), 255);
    EXPECT_EQ(form.Points.ForeColor(1), 255);
    EXPECT_TRUE(Shows(form.Job[1], Qt::red));
    EXPECT_TRUE(Shows(form.JobTotal[0], Qt::blue));
    EXPECT_TRUE(Shows(form.DayTotal[3], Qt::blue));
    EXPECT_TRUE(Shows(Part("Label3"), Qt::red));
    EXPECT_TRUE(Shows(Part("Label4"), Qt::red));
    EXPECT_FALSE(Shows(Part("Label1"), Qt::red));
    EXPECT_TRUE(Shows(form.Job[0], Qt::black));
    for (const QLabel* label :
         {static_cast<const QLabel*>(&form.Job[0]), static_cast<const QLabel*>(&form.Mon[0]),
          static_cast<const QLabel*>(&form.DayTotal[0])}) {
        EXPECT_TRUE(label->font().bold());
        EXPECT_EQ(label->font().family(), QStringLiteral("Arial"));
    }
}

TEST_F(ReviewMatrixTest, OnlyADoneCellHasABackOfItsOwn) {
    MakeChart(QStringLiteral("Chores Anna"),
              {{QStringLiteral("Cook"), QStringLiteral("Mon"), 5, true},
               {QStringLiteral("Cook"), QStringLiteral("Tue"), 5, false}});
    const WeekChartRepresentation& form = OpenOn(QStringLiteral("Chores Anna"));
    const auto back = [](QWidget& cell) {
        return Surface()
            .grab(QRect(cell.mapTo(&Surface(), QPoint(6, 3)), QSize(1, 1)))
            .toImage()
            .pixelColor(0, 0);
    };
    EXPECT_NE(back(form.Mon[0]), back(form.Wed[0]));
    // An open cell shows an empty box, one of a day without the job nothing.
    EXPECT_TRUE(form.Tue[0].isVisible());
    EXPECT_EQ(back(form.Tue[0]), back(form.Wed[0]));
    EXPECT_TRUE(Shows(form.Tue[0], LookColors::Outline));
    EXPECT_FALSE(form.Wed[0].isVisible());
    EXPECT_FALSE(Shows(form.Mon[0], LookColors::Outline)) << "it is done";
    EXPECT_FALSE(Shows(form.JobTotal[0], LookColors::Outline)) << "no day";
    EXPECT_EQ(form.Mon[0].toolTip(), QStringLiteral("Number of jobs made"));
    EXPECT_EQ(form.Sat[1].toolTip(), QStringLiteral("Number of jobs made"));
    EXPECT_EQ(form.Job[0].toolTip(), QString());
}

TEST_F(ReviewMatrixTest, FewerJobsAfterMoreLeaveNoStaleLines) {
    MakeChart(QStringLiteral("Chores Anna"), Jobs(6));
    MakeChart(QStringLiteral("Chores Ben"), {{QStringLiteral("Sing"), QStringLiteral("Thu"), 2}});
    const WeekChartRepresentation& form = OpenOn(QStringLiteral("Chores Anna"));
    Choose(QStringLiteral("Chores Ben"));
    EXPECT_EQ(Captions(form.Job), (S{QStringLiteral("Sing"), QStringLiteral("Total Points")}));
    EXPECT_EQ(CellsOf(form, 0), QStringLiteral("- - - - o - -"));
    EXPECT_EQ(Scroll().maximum(), 1);
    EXPECT_EQ(form.findChild<QWidget*>(QStringLiteral("Job(2)")), nullptr);
    EXPECT_EQ(form.findChild<QWidget*>(QStringLiteral("Patrat(2)")), nullptr);
    EXPECT_EQ(form.DayTotal.Top(0), form.Job.Top(1));
}

TEST_F(ReviewMatrixTest, TheMatrixDoesNotFollowLaterChangesUntilTheChartIsClickedAgain) {
    MakeChart(QStringLiteral("Chores Anna"), Jobs(1));
    const WeekChartRepresentation& form = OpenOn(QStringLiteral("Chores Anna"));
    MakeChart(QStringLiteral("Chores Anna"), Jobs(2));
    Settle();
    EXPECT_EQ(form.Job.Count(), 2);
    Choose(QStringLiteral("Chores Anna"));
    EXPECT_EQ(form.Job.Count(), 3);
}

TEST_F(ReviewMatrixTest, ALongJobIsCutAndToldInFullByItsTip) {
    const QString job = QStringLiteral("Put the lunch box into the <b>dishwasher</b> & wipe it ") +
                        QString(200, QLatin1Char('W'));
    MakeChart(QStringLiteral("Chores Anna"), {{job, QStringLiteral("Mon"), 2147483647, false}});
    const WeekChartRepresentation& form = OpenOn(QStringLiteral("Chores Anna"));
    EXPECT_EQ(form.Job.Caption(0), job);
    EXPECT_FALSE(form.Job[0].TextFits());
    EXPECT_EQ(form.Job[0].width(), 2175 / 15);
    EXPECT_EQ(form.Points.Caption(0), QStringLiteral("2147483647"));
    EXPECT_FALSE(form.Points[0].TextFits());
    EXPECT_EQ(form.width(), 961);
    LookAt(*form.window(), QStringLiteral("Review-longnames"));
}

TEST_F(ReviewMatrixTest, TheMouseOverACellTellsWhatItsNumberCounts) {
    MakeChart(QStringLiteral("Chores Anna"),
              {{QString(200, QLatin1Char('W')), QStringLiteral("Mon"), 5, true}});
    const WeekChartRepresentation& form = OpenOn(QStringLiteral("Chores Anna"));
    const auto tipOf = [](QWidget& cell) {
        QHelpEvent ask(QEvent::ToolTip, cell.rect().center(),
                       cell.mapToGlobal(cell.rect().center()));
        QApplication::sendEvent(&cell, &ask);
        return QToolTip::text();
    };
    EXPECT_EQ(tipOf(form.Mon[0]), QStringLiteral("Number of jobs made"));
    EXPECT_EQ(QTextDocumentFragment::fromHtml(tipOf(form.Job[0])).toPlainText(),
              QString(200, QLatin1Char('W')));
    QToolTip::hideText();
}

TEST_F(ReviewMatrixTest, TheLargestSumsFitTheirPlaces) {
    MakeChart(QStringLiteral("Chores Anna"),
              {{QStringLiteral("Cook"), QStringLiteral("Mon"), 32767, true}});
    const WeekChartRepresentation& form = OpenOn(QStringLiteral("Chores Anna"));
    EXPECT_EQ(form.Points.Caption(1), QStringLiteral("32767"));
    EXPECT_TRUE(form.Points[0].TextFits());
    EXPECT_TRUE(form.Points[1].TextFits());
    EXPECT_TRUE(form.JobTotal[0].TextFits());
    EXPECT_TRUE(form.DayTotal[1].TextFits());
}

TEST_F(ReviewMatrixTest, AScreenReaderSaysWhereANumberStands) {
    MakeChart(QStringLiteral("Chores Anna"),
              {{QStringLiteral("Cook"), QStringLiteral("Mon"), 5, true},
               {QStringLiteral("Cook"), QStringLiteral("Tue"), 5, false}});
    const WeekChartRepresentation& form = OpenOn(QStringLiteral("Chores Anna"));
    EXPECT_EQ(form.Points[0].accessibleName(), QStringLiteral("Cook, value: 5"));
    EXPECT_EQ(form.Mon[0].accessibleName(), QStringLiteral("Cook, Monday: 1 made"));
    EXPECT_EQ(form.Tue[0].accessibleName(), QStringLiteral("Cook, Tuesday: open"));
    EXPECT_EQ(form.JobTotal[0].accessibleName(), QStringLiteral("Cook, points: 5"));
    EXPECT_EQ(form.DayTotal[1].accessibleName(), QStringLiteral("Monday, points: 5"));
    for (const char* name : {"ChartList", "VScroll", "Calendar1"})
        EXPECT_FALSE(Part(name).accessibleName().isEmpty()) << name;
}

TEST_F(ReviewMatrixTest, TheDayNamesStandAboveTheirColumns) {
    MakeChart(QStringLiteral("Chores Anna"), Jobs(1));
    const WeekChartRepresentation& form = OpenOn(QStringLiteral("Chores Anna"));
    auto& strip = dynamic_cast<DayStrip&>(Part("Calendar1"));
    const QList<const CellArray*> days = DayArrays(form);
    for (int day = 1; day <= 7; ++day) {
        const QRect name = strip.PlaceOf(day);
        EXPECT_TRUE(strip.rect().contains(name));
        const int column = days.at(day - 1)->Left(0) / 15 + 615 / 15 / 2;
        EXPECT_NEAR(strip.mapTo(&Surface(), name.center()).x(), column, 1) << day;
    }
}

} // namespace
