#include "tests/common/Readable.h"
#include "tests/tour/FamilyWeek.h"

void FamilyWeek::TomComesToVisit() {
    NewAccount({"Tom", "tent", false, "BoyCap.png"});
    AdultLogsIn("Dad", "hush");
    BeginChart("Visit");
    WriteJob(0, {"Lay the table", "Mon-Fri", "Mum", "Easy", "5"});
    SaveChart({"Tom"}, "Tom's Sparkit Dutygrid has been created");
    Front("MainForm");
    LogOff();
}

void FamilyWeek::AnnaAndTomOnMonday() {
    OpenForFilling("Chores Anna");
    Shows("ToyName", "Day at the zoo 40 Points");
    Page("Monday 3/12/2001", "5", "35");
    Tick(0);
    Tick(1);
    Click("PreviousDay");
    Page("Sunday 3/11/2001", "20", "20");
    Tick(0);
    Page("Sunday 3/11/2001", "25", "15");
    Click("Ok");
    Front("MainForm");
    LogOff();

    ChildLogsIn("Tom", "tent");
    OpenForFilling("Visit Tom");
    Page("Monday 3/12/2001", "0", "500");
    Tick(0);
    Click("Ok");
    Front("MainForm");
    LogOff();
}

void FamilyWeek::TheChildrenOnWednesday() {
    OpenForFilling("Chores Anna");
    Page("Wednesday 3/14/2001", "25", "15");
    Tick(0);
    Tick(1);
    Click("PreviousDay");
    Page("Tuesday 3/13/2001", "40", "0");
    ExpectGoal();
    Tick(0);
    Click("Ok");
    Front("MainForm");
    LogOff();

    ChildLogsIn("Ben", "comet");
    OpenForFilling("Chores Ben");
    Shows("ToyName", "Cinema 30 Points");
    ShowsPicture("Image3", false);
    Page("Wednesday 3/14/2001", "10", "20");
    Tick(0);
    Tick(1);
    Click("PreviousDay");
    Click("PreviousDay");
    Page("Monday 3/12/2001", "25", "5");
    ExpectGoal();
    Tick(1);
    Page("Monday 3/12/2001", "35", "0");
    Shoot("viewer-goal-without-picture");
    Click("Ok");
    Front("MainForm");
    LogOff();
}

void FamilyWeek::MumReviewsTheWeek() {
    AdultLogsIn("Mum", "secret");
    Front("MainForm");
    OpenReview({"Chores Anna", "Chores Ben", "Visit Tom"});
    Shows("Label2", "Weekly Dutygrid Review");
    Shoot("review-no-chart");
    Pick("ChartList", "Chores Anna");
    Shows("Label2", "Weekly Dutygrid Review from: 3/11/2001 to 3/17/2001");
    const QList<ReviewLine> annas = {
        {"Make the bed", "5", {"1", "1", "1", "1", "", "", ""}, "20"},
        {"Walk the dog", "10", {"-", "1", "", "1", "", "", "-"}, "20"},
        {"Wash the car", "20", {"-", "-", "-", "-", "-", "-", ""}, "0"}};
    const QList<Text> annasDays = {"5", "15", "5", "15", "0", "0", "0"};
    Review(annas, annasDays, "40");
    Shoot("review");
    ScrollTo("VScroll", 1);
    Review(annas, annasDays, "40");
    Shoot("review-scrolled");

    // The next chart is laid out from where the last one was scrolled to.
    Pick("ChartList", "Chores Ben");
    Review({{"Make the bed", "5", {"", "", "", "1", "", "", ""}, "5"},
            {"Walk the dog", "10", {"-", "1", "", "1", "", "", "-"}, "20"},
            {"Wash the car", "20", {"-", "-", "-", "-", "-", "-", ""}, "0"}},
           {"0", "10", "0", "15", "0", "0", "0"}, "25");
    ScrollTo("VScroll", 0);
    Pick("ChartList", "Visit Tom");
    Review({{"Lay the table", "5", {"-", "1", "", "", "", "", "-"}, "5"}},
           {"0", "5", "0", "0", "0", "0", "0"}, "5");
    Shoot("review-one-job");

    // Review and accounts open each other.
    Click("Command1");
    Front("DisplayAccount");
    Pick("StudentsList", "Anna");
    Figures("Anna", "45", "Day at the zoo", "40", "0");
    Click("Exitbtn");
    Front("WeekChartRepresentation");
    Shows("Job(0)", "Lay the table");
    Click("Ok");
    Front("DisplayAccount");
    Click("Okbtn");
    Front("MainForm");
    LogOff();
}

void FamilyWeek::TheReviewBeginsTheThirdWeek() {
    TheDayIs(QDate(2001, 3, 18));
    AdultLogsIn("Mum", "secret");
    Front("MainForm");
    OpenReview({"Chores Anna", "Chores Ben"});
    Tables({"Chores Anna", "Chores Ben", "History Chores Anna from: 3/11/2001",
            "History Chores Anna from: 3/4/2001", "History Chores Ben from: 3/11/2001",
            "History Chores Ben from: 3/4/2001", "History Garden Ben from: 3/4/2001",
            "History Piano Anna from: 3/4/2001", "Printed"});
    Stored("SELECT count(*), sum(Completed), max(FirstDate), max(UserName) FROM "
           "\"History Chores Anna from: 3/11/2001\"",
           {"13|-6|2001-03-11|Anna"});
    Pick("ChartList", "Chores Anna");
    Shows("Label2", "Weekly Dutygrid Review from: 3/18/2001 to 3/24/2001");
    Review({{"Make the bed", "5", {"", "", "", "", "", "", ""}, "0"},
            {"Walk the dog", "10", {"-", "", "", "", "", "", "-"}, "0"},
            {"Wash the car", "20", {"-", "-", "-", "-", "-", "-", ""}, "0"}},
           {"0", "0", "0", "0", "0", "0", "0"}, "0");
    Shoot("review-new-week");
    Click("Ok");
    Front("MainForm");
}
