#include "tests/common/Repaint.h"
#include "tests/filling/FillingTest.h"

#include <QGroupBox>
#include <gtest/gtest.h>

namespace {

/// What the viewer looks like: as designed, and in pictures for a person to look at.
class ViewerDesignTest : public FillingTest {
protected:
    /// A chart of that many jobs today and one tomorrow.
    ChartViewer& OpenRows(int jobs) {
        MakeChart(QStringLiteral("Chores Anna"),
                  JobsOn(QStringLiteral("Wed"), jobs) + JobsOn(QStringLiteral("Thu"), 1));
        return OpenChart(QStringLiteral("Chores Anna"));
    }
};

TEST_F(ViewerDesignTest, DesignTextsStandUntilTheFormIsFilled) {
    const ChartViewer viewer;
    EXPECT_EQ(viewer.Caption(), QStringLiteral("Sparkit Dutygrid Viewer"));
    const QList<std::pair<const char*, const char*>> labels = {
        {"DayLbl", "ZZZ"},
        {"Pointslbl", "Point Value"},
        {"Difficultylbl", "Difficulty Level"},
        {"Instructionslbl", "Jobs"},
        {"Number(0)", "1:"},
        {"Instructions(0)", "zzz"},
        {"Difficulty(0)", "zzz"},
        {"Points(0)", "zzz"},
        {"AdultResponsable(0)", "AdultResponsable"},
        {"Label4", "ZZZ"},
        {"ChartNamelbl", "Sparkit Dutygrid"},
        {"Title", "Sparkit Dutygrid"},
        {"UsersName", ""},
        {"ToyName", ""},
        {"Label2", "Total Points:"},
        {"Label3", "10"},
        {"Label6", "Points Needed:"},
        {"Label5", ""},
        {"Label1", "Person Responsible:"},
        {"Namelbl", ""}};
    for (const auto& [name, caption] : labels)
        EXPECT_EQ(TextAt(viewer, QString::fromLatin1(name)), QString::fromLatin1(caption)) << name;
    const QList<std::pair<const char*, const char*>> buttons = {
        {"PreviousDay", "Back"}, {"NextDay", "Next"}, {"Command1", "Print Dutygrid"}, {"Ok", "Ok"}};
    for (const auto& [name, caption] : buttons)
        EXPECT_EQ(Button(viewer, QString::fromLatin1(name)).text(), QString::fromLatin1(caption));
    EXPECT_EQ(Find<QGroupBox>(viewer, QStringLiteral("CleanUpList")).title(),
              QStringLiteral("Sparkit Dutygrid"));
    for (const char* hidden : {"Title", "Label1", "Namelbl", "Image1", "AdultResponsable(0)"})
        EXPECT_TRUE(Find<QWidget>(viewer, QString::fromLatin1(hidden)).isHidden()) << hidden;
    EXPECT_EQ(viewer.Tag, QString());
    EXPECT_EQ(viewer.DayNumber, 0);
    EXPECT_EQ(viewer.GoalPoints, 0);
}

TEST_F(ViewerDesignTest, AMarkIsExactlyOneOfItsPicturesAlsoOnAFormNeverShown) {
    ChartViewer viewer;
    EXPECT_FALSE(viewer.CheckVisible(0));
    EXPECT_TRUE(viewer.ClearImg.Visible(0));
    viewer.SetRow(0, {QStringLiteral("Cook"), QString(), QString(), QString(), true});
    EXPECT_TRUE(viewer.CheckVisible(0));
    EXPECT_FALSE(viewer.ClearImg.Visible(0));
    EXPECT_ERROR(9, viewer.CheckVisible(1));
    EXPECT_ERROR(9, viewer.SetRow(1, {}));
}

TEST_F(ViewerDesignTest, ControlsAreNamedAfterTheirRows) {
    ChartViewer viewer;
    viewer.CreateNewTask(1);
    for (const char* name :
         {"Number(1)",    "Instructions(1)", "Difficulty(1)", "Points(1)", "AdultResponsable(1)",
          "RectCheck(1)", "ClearImg(1)",     "CheckImg(1)",   "Picture1",  "Picture2",
          "Line1",        "Line2",           "Line3",         "Shape1",    "Shape2",
          "Shape3",       "Shape4",          "Shape5",        "Shape6",    "Shape7",
          "Shape8"})
        EXPECT_NE(viewer.findChild<QWidget*>(QString::fromLatin1(name)), nullptr) << name;
}

TEST_F(ViewerDesignTest, TheMarkThatIsSeenStandsBeforeItsOutlineAndTheCoverBeforeAll) {
    ChartViewer& viewer = OpenRows(3);
    const auto order = [](const QWidget& control) {
        return control.parent()->children().indexOf(const_cast<QWidget*>(&control));
    };
    EXPECT_GT(order(Find<QWidget>(viewer, QStringLiteral("Picture1"))),
              order(Find<QWidget>(viewer, QStringLiteral("RowsClip"))));
    for (int row = 0; row < 3; ++row) {
        EXPECT_GT(order(viewer.ClearImg[row]), order(viewer.RectCheck[row])) << row;
        Click(viewer.ClearImg[row]);
        EXPECT_GT(order(viewer.CheckImg[row]), order(viewer.RectCheck[row])) << row;
        Click(viewer.CheckImg[row]);
        EXPECT_GT(order(viewer.ClearImg[row]), order(viewer.RectCheck[row])) << row;
    }
    Click(viewer.ClearImg[1]);
    Click(Button(viewer, QStringLiteral("NextDay")));
    Click(Button(viewer, QStringLiteral("NextDay")));
    EXPECT_GT(order(viewer.CheckImg[1]), order(viewer.RectCheck[1])) << "as it is stored";
}

TEST_F(ViewerDesignTest, AnotherColourOfAnOutlineIsPaintedAtOnce) {
    ChartViewer& viewer = OpenRows(2);
    BoxOutline& outline = viewer.RectCheck[0];
    const auto edge = [&] { return outline.grab().toImage().pixelColor(0, outline.height() / 2); };
    EXPECT_EQ(edge(), QColor(Qt::black));
    EXPECT_TRUE(IsRepainted(outline, [&] { outline.SetBorderColor(Qt::blue); }));
    EXPECT_EQ(edge(), QColor(Qt::blue));
}

TEST_F(ViewerDesignTest, ALongNameNeverMakesTheFormWider) {
    const QString longName(50, QLatin1Char('W'));
    MakeAccount(longName, QStringLiteral("w"), QStringLiteral("Student"));
    CurrentUser = longName;
    SetGoal(QString(200, QLatin1Char('M')), 32000, PictureFile(), longName);
    MakeChart(QString(60, QLatin1Char('C')),
              {{QString(200, QLatin1Char('J')), QStringLiteral("Wed"), QStringLiteral("32767"),
                longName, QString(200, QLatin1Char('D'))}},
              longName);
    ChartViewer& viewer = OpenChart(QString(60, QLatin1Char('C')));
    EXPECT_EQ(viewer.width(), 734);
    Click(viewer.Instructions[0]);
    EXPECT_EQ(viewer.height(), 9800 / 15);
    EXPECT_EQ(viewer.width(), 734);
    LookAt(viewer.Frame(), QStringLiteral("ChartViewer-longnames"));
}

TEST_F(ViewerDesignTest, ThePagesOfAWeekCanBeLookedAt) {
    Arrange([] {
        Database().ChangePicture(QStringLiteral("Anna"),
                                 Path(QStringLiteral("UsersPictures/Fox.png")));
        Database().ChangePicture(QStringLiteral("Mum"),
                                 Path(QStringLiteral("UsersPictures/Woman.png")));
    });
    SetGoal(QStringLiteral("New bicycle"), 300,
            Path(QStringLiteral("IncentivesPictures/Bike.gif")));
    SetPoints(120);
    QList<Job> jobs = {{QStringLiteral("Feed the cat"), QStringLiteral("Wed")},
                       {QStringLiteral("Lay the table"), QStringLiteral("Thu")}};
    for (const char* text :
         {"Make your bed", "Put your pyjamas away", "Brush your teeth", "Pack your school bag",
          "Put the lunch box into the dishwasher and wipe it", "Do your homework",
          "Practise the recorder", "Water the plants", "Tidy your desk", "Read for ten minutes",
          "Choose tomorrow's clothes"})
        jobs += Job{QString::fromLatin1(text), QStringLiteral("Thu"), QStringLiteral("10"),
                    QStringLiteral("Mum"), QStringLiteral("Average")};
    MakeChart(QStringLiteral("Chores Anna"), jobs);
    ChartViewer& viewer = OpenChart(QStringLiteral("Chores Anna"));
    Click(Button(viewer, QStringLiteral("NextDay")));
    EXPECT_EQ(viewer.Instructions.Count(), 12);
    Click(viewer.ClearImg[0]);
    Click(viewer.ClearImg[2]);
    LookAt(viewer.Frame(), QStringLiteral("ChartViewer-12rows"));
    Click(viewer.Instructions[4]);
    EXPECT_EQ(TextAt(viewer, QStringLiteral("Namelbl")), QStringLiteral("Mum"));
    Scroll(viewer).setValue(5);
    viewer.ClearImg[6].setFocus();
    Settle();
    LookAt(viewer.Frame(), QStringLiteral("ChartViewer-scrolled"));
}

} // namespace
