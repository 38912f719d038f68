#include "filling/RowFigures.h"
#include "filling/WeekDots.h"
#include "look/LookColors.h"
#include "platform/runtime/Dates.h"
#include "tests/filling/FillingTest.h"

#include <QApplication>
#include <QGroupBox>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

namespace {

using namespace Qt::StringLiterals;

/// What a page is painted like, for those who see it and for those who hear it.
class ViewerLookTest : public FillingTest {
protected:
    /// Jobs of all difficulties on Wednesday, which is today, and one each on Monday and Friday.
    ChartViewer& Open() {
        QList<Job> jobs;
        for (const QString& difficulty : {u"Very Easy"_s, u"Easy"_s, u"Medium"_s, u"Hard"_s,
                                          u"Very Hard"_s, u"Average"_s, u"very hard"_s})
            jobs += Job{u"Feed the cat"_s, u"Wed"_s, u"10"_s, u"Mum"_s, difficulty};
        jobs += Job{u"Sweep"_s, u"Mon"_s};
        jobs += Job{u"Dust"_s, u"Fri"_s};
        MakeChart(u"Chores Anna"_s, jobs);
        return OpenChart(u"Chores Anna"_s);
    }
    /// Everything a person sees of a control, a pixel for each logical one.
    static QImage Seen(QWidget& control) {
        const QImage seen = control.grab().toImage();
        return seen.devicePixelRatio() == 1 ? seen : seen.scaled(control.size());
    }
    static QWidget& List(const ChartViewer& viewer) {
        return Find<QWidget>(viewer, u"CleanUpList"_s);
    }
    static WeekDots& Week(const ChartViewer& viewer) { return Find<WeekDots>(viewer, u"Week"_s); }
};

TEST_F(ViewerLookTest, JobsAndPointsAreLargerThanTheRest) {
    ChartViewer& viewer = Open();
    const qreal usual = QApplication::font().pointSizeF();
    for (const int row : {0, 6}) {
        EXPECT_EQ(viewer.Instructions[row].font().pointSizeF(), 12.5);
        EXPECT_EQ(viewer.Points[row].font().pointSizeF(), 12.5);
        EXPECT_EQ(viewer.Difficulty[row].font().pointSizeF(), usual);
        EXPECT_EQ(viewer.Number[row].font().pointSizeF(), usual);
    }
    Click(viewer.Points[2]);
    EXPECT_TRUE(viewer.Points[2].font().bold());
    EXPECT_EQ(viewer.Points[2].font().pointSizeF(), 12.5);
    for (int row = 0; row < viewer.Points.Count(); ++row) {
        EXPECT_TRUE(viewer.Points[row].TextFits()) << row;
        EXPECT_TRUE(viewer.Difficulty[row].TextFits()) << row;
    }
}

TEST_F(ViewerLookTest, DotsBeforeItsWordTellADifficulty) {
    ChartViewer& viewer = Open();
    for (const auto& [row, dots] : {std::pair(0, 1), {1, 2}, {2, 3}, {3, 4}, {4, 5}, {6, 5}}) {
        SCOPED_TRACE(row);
        EXPECT_EQ(dynamic_cast<DifficultyText&>(viewer.Difficulty[row]).Dots(), dots);
        const QImage seen = Seen(viewer.Difficulty[row]);
        int filled = 0;
        for (int dot = 0; dot < 5; ++dot) {
            const QColor color = seen.pixelColor(dot * 8 + 3, seen.height() / 2);
            filled += color == LookColors::Teal ? 1 : 0;
            EXPECT_EQ(color, dot < dots ? LookColors::Teal : LookColors::Card) << dot;
        }
        EXPECT_EQ(filled, dots);
    }
    EXPECT_EQ(viewer.Difficulty[4].text(), u"Very Hard"_s);
    Click(viewer.Difficulty[4]);
    EXPECT_TRUE(viewer.Difficulty[4].TextFits()) << "in bold letters, too";
    EXPECT_EQ(dynamic_cast<DifficultyText&>(viewer.Difficulty[5]).Dots(), 0);
    const QImage own = Seen(viewer.Difficulty[5]);
    for (int x = 0; x < 38; ++x)
        for (int y = 0; y < own.height(); ++y)
            ASSERT_NE(own.pixelColor(x, y), LookColors::Outline) << "words of the adult's own";
}

TEST_F(ViewerLookTest, AStarStandsBeforePoints) {
    ChartViewer& viewer = Open();
    EXPECT_EQ(Seen(viewer.Points[0]).pixelColor(8, 12), LookColors::Gold);
    EXPECT_GE(viewer.Points[0].contentsRect().left(), 16) << "the number begins behind it";
    viewer.CreateNewTask(7);
    EXPECT_NE(Seen(viewer.Points[7]).pixelColor(8, 12), LookColors::Gold) << "no points, no star";
}

TEST_F(ViewerLookTest, ABoxHasOneEdge) {
    ChartViewer& viewer = Open();
    Click(viewer.ClearImg[1]);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !viewer.CheckImg[1].IsMoving(); }, Patience));
    Button(viewer, u"NextDay"_s).setFocus();
    QCursor::setPos(QPoint(0, 0));
    Click(viewer.Instructions[2]);
    Button(viewer, u"NextDay"_s).setFocus();
    for (const int row : {0, 1, 2})
        EXPECT_TRUE(QTest::qWaitFor([&] { return !viewer.RectCheck[row].underMouse(); }, Patience));
    Settle();
    const QImage list = Seen(*viewer.RectCheck[0].parentWidget());
    for (const auto& [row, edge, ground] : {std::tuple(0, QColor(Qt::black), LookColors::Card),
                                            {1, QColor(Qt::black), LookColors::Ticked},
                                            {2, QColor(Qt::blue), LookColors::Card}}) {
        SCOPED_TRACE(row);
        const QRect box = viewer.RectCheck[row].geometry();
        const int middle = box.center().y();
        EXPECT_EQ(list.pixelColor(box.left(), middle), edge);
        EXPECT_EQ(list.pixelColor(box.right(), middle), edge);
        for (const int inside : {1, 2, 3, 4})
            EXPECT_EQ(list.pixelColor(box.left() + inside, box.top() + 8), ground) << inside;
    }
}

TEST_F(ViewerLookTest, ABoxIsOfHoneyUnderTheMouse) {
    ChartViewer& viewer = Open();
    Click(viewer.ClearImg[1]);
    for (MarkImage* mark : {&viewer.ClearImg[2], &viewer.CheckImg[1]}) {
        const auto ground = [mark] { return Seen(*mark).pixelColor(5, 7); };
        QCursor::setPos(QPoint(0, 0));
        EXPECT_TRUE(QTest::qWaitFor([&] { return !mark->underMouse(); }, Patience));
        EXPECT_EQ(ground(), mark->IsTick() ? LookColors::Ticked : LookColors::Card);
        MouseTo(*mark);
        EXPECT_EQ(ground(), LookColors::Honey);
        mark->setDown(true);
        EXPECT_EQ(ground(), LookColors::HoneyDark);
        mark->setDown(false);
    }
}

TEST_F(ViewerLookTest, TheHeadOfTheBoxesIsATickWithoutABox) {
    ChartViewer& viewer = Open();
    auto& head = Find<QLabel>(viewer, u"DoneColumn"_s);
    EXPECT_EQ(head.accessibleName(), u"Done"_s);
    const QImage tick = head.pixmap(Qt::ReturnByValue).toImage();
    int painted = 0;
    for (int y = 0; y < tick.height(); ++y)
        for (int x = 0; x < tick.width(); ++x)
            painted += tick.pixelColor(x, y).alpha() > 0 ? 1 : 0;
    const int pixels = tick.width() * tick.height();
    EXPECT_GT(painted, pixels / 10);
    EXPECT_LT(painted, pixels / 2) << "a box would fill more";
    EXPECT_LT(tick.width() / tick.devicePixelRatio(), viewer.ClearImg[0].width());
}

TEST_F(ViewerLookTest, SevenDotsShowTheWeek) {
    ChartViewer& viewer = Open();
    WeekDots& week = Week(viewer);
    EXPECT_EQ(week.DaysWithJobs(), (QSet<int>{2, 4, 6}));
    EXPECT_EQ(week.Today(), 4);
    EXPECT_EQ(week.ShownDay(), 4);
    const auto look = [&week](const std::function<QPoint(const QRectF&)>& place,
                              const QColor& color) {
        const QImage seen = Seen(week);
        QList<int> days;
        for (int day = 1; day <= 7; ++day)
            if (seen.pixelColor(place(week.Disc(day))) == color)
                days += day;
        return days;
    };
    const auto inside = [](const QRectF& disc) {
        return QPoint(qRound(disc.left()) + 3, qRound(disc.center().y()));
    };
    const auto ring = [](const QRectF& disc) {
        return QPoint(qRound(disc.center().x()), qRound(disc.bottom()) + 2);
    };
    const auto bar = [&week](const QRectF& disc) {
        return QPoint(qRound(disc.center().x()), week.height() - 2);
    };
    using Days = QList<int>;
    EXPECT_EQ(look(inside, LookColors::Teal), (Days{2, 4, 6}));
    EXPECT_EQ(look(inside, LookColors::Card), (Days{1, 3, 5, 7}));
    EXPECT_EQ(look(ring, LookColors::Deep), Days{4});
    EXPECT_EQ(look(bar, LookColors::Deep), Days{4});
    EXPECT_EQ(week.accessibleName(), u"Days of the week"_s);
    const QString words = u"Jobs on Monday, Wednesday, Friday. Today is Wednesday. You see %1."_s;
    EXPECT_EQ(week.accessibleDescription(), words.arg(u"Wednesday"_s));
    EXPECT_EQ(week.toolTip(), words.arg(u"Wednesday"_s));
    const auto heard = [&viewer](const QString& button) {
        return Button(viewer, button).accessibleDescription();
    };
    EXPECT_EQ(heard(u"NextDay"_s), u"You see Wednesday."_s);

    Click(Button(viewer, u"NextDay"_s));
    EXPECT_EQ(heard(u"NextDay"_s), u"You see Friday."_s);
    EXPECT_EQ(heard(u"PreviousDay"_s), u"You see Friday."_s);
    EXPECT_EQ(week.ShownDay(), 6);
    EXPECT_EQ(look(ring, LookColors::Deep), Days{4});
    EXPECT_EQ(look(bar, LookColors::Deep), Days{6});
    EXPECT_EQ(week.accessibleDescription(), words.arg(u"Friday"_s));
    EXPECT_FALSE(week.geometry().intersects(Find<QWidget>(viewer, u"DayLbl"_s).geometry()));
    LookAt(viewer.Frame(), u"week"_s);
}

TEST_F(ViewerLookTest, TheWeekIsReadAnewWhenTheFormComesBack) {
    ChartViewer& viewer = Open();
    MakeChart(u"Chores Anna"_s, {Job{u"Sweep"_s, u"Wed"_s}, Job{u"Dust"_s, u"Sat"_s}});
    SetToday(QDate(2001, 3, 8));
    ShowList();
    viewer.SetFocus();
    Settle();
    EXPECT_EQ(Week(viewer).DaysWithJobs(), (QSet<int>{4, 7}));
    EXPECT_EQ(Week(viewer).Today(), 5);
}

TEST_F(ViewerLookTest, TheBandOfTheHeadsGoesFromEdgeToEdgeOverOneLine) {
    ChartViewer& viewer = Open();
    QWidget& list = List(viewer);
    const QImage seen = Seen(list);
    for (const int x : {2, 300, 630, 670, list.width() - 3})
        EXPECT_EQ(seen.pixelColor(x, 56), LookColors::Band) << x;
    for (int x = 2; x < list.width() - 2; ++x) {
        ASSERT_EQ(seen.pixelColor(x, 78), LookColors::Line) << x;
        ASSERT_EQ(seen.pixelColor(x, 79), LookColors::Card) << x;
    }
}

TEST_F(ViewerLookTest, TheGoldenBarIsAsHighAsTheCard) {
    ChartViewer& viewer = Open();
    QWidget& list = List(viewer);
    const QWidget& bar = Find<QWidget>(viewer, u"Line3"_s);
    const QImage seen = Seen(viewer);
    const QPoint card = list.mapTo(&viewer, QPoint(list.width() / 2, 0));
    const int barX = bar.mapTo(&viewer, QPoint(1, 0)).x();
    const auto stretch = [&](int x, const QColor& color) {
        QList<int> rows;
        for (int y = card.y(); y < card.y() + list.height(); ++y)
            if (seen.pixelColor(x, y) == color)
                rows += y;
        return rows.isEmpty() ? std::pair(0, 0) : std::pair(rows.first(), rows.last());
    };
    const auto golden = stretch(barX, LookColors::Gold);
    const auto edge = stretch(card.x(), LookColors::Line);
    ASSERT_GT(edge.second - edge.first, 200);
    EXPECT_LE(std::abs(golden.first - edge.first), 1);
    EXPECT_LE(std::abs(golden.second - edge.second), 1);
}

TEST_F(ViewerLookTest, ThePersonResponsibleMovesNoButton) {
    ChartViewer& viewer = Open();
    SizeMainWindow({1200, 900});
    viewer.Move(0, 0);
    Settle();
    const auto places = [&viewer] {
        QList<QRect> found;
        for (const char* name : {"PreviousDay", "NextDay", "Command1", "Ok"}) {
            const QWidget& button = Button(viewer, QString::fromLatin1(name));
            found += QRect(button.mapTo(&viewer, QPoint()), button.size());
        }
        return found;
    };
    const QList<QRect> before = places();
    Click(viewer.Instructions[1]);
    EXPECT_EQ(viewer.height(), 9800 / 15);
    EXPECT_EQ(places(), before);
    auto& person = Find<QWidget>(viewer, u"Shape6"_s);
    const QRect card(person.mapTo(&viewer, QPoint()), person.size());
    EXPECT_GT(card.top(), before.last().bottom());
    EXPECT_LT(card.bottom(), viewer.height());
    EXPECT_EQ(person.visibleRegion().boundingRect(), person.rect());
    LookAt(viewer.Frame(), u"person"_s);
}

TEST_F(ViewerLookTest, MaximisedThePersonResponsibleMovesTheButtonsOnce) {
    ChartViewer& viewer = Open();
    SizeMainWindow({1366, 740});
    viewer.Frame().showMaximized();
    Settle();
    const auto lowest = [&viewer] {
        const QWidget& button = Button(viewer, u"NextDay"_s);
        return button.mapTo(&viewer, button.rect().bottomLeft()).y();
    };
    const auto& person = Find<QWidget>(viewer, u"Shape6"_s);
    EXPECT_GT(lowest(), viewer.height() - person.height());
    Click(viewer.Instructions[0]);
    ASSERT_TRUE(person.isVisible());
    const int below = lowest();
    EXPECT_LT(below, viewer.height() - person.height());
    Click(Button(viewer, u"NextDay"_s));
    ASSERT_FALSE(person.isVisible());
    EXPECT_EQ(lowest(), below);
    Click(viewer.Instructions[0]);
    EXPECT_EQ(lowest(), below);
    viewer.Frame().showNormal();
    Settle();
    Click(Button(viewer, u"NextDay"_s));
    EXPECT_GT(lowest(), viewer.height() - person.height());
}

TEST_F(ViewerLookTest, ThePersonResponsibleMovesNothingSideways) {
    ChartViewer& viewer = Open();
    SizeMainWindow({1366, 730});
    const auto left = [&viewer](const char* name) {
        return Find<QWidget>(viewer, QString::fromLatin1(name)).mapTo(&viewer, QPoint()).x();
    };
    const int before = left("Shape7");
    Click(viewer.Instructions[1]);
    for (const char* card : {"Shape1", "Shape6", "Shape7"})
        EXPECT_EQ(left(card), before) << card;

    // With a scroll bar at their side all parts are still in view.
    auto& scroll = Find<QScrollArea>(viewer, u"ContentScroll"_s);
    SizeMainWindow({1366, 560});
    EXPECT_TRUE(scroll.verticalScrollBar()->isVisible());
    EXPECT_EQ(scroll.widget()->width(), scroll.viewport()->width());
    EXPECT_LT(left("Shape7"), before);
}

} // namespace
