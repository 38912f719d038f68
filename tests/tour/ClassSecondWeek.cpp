#include "tests/common/Readable.h"
#include "tests/tour/ClassWeek.h"

namespace {

/// Of each child that has not left; in the order of their making.
const QList<Text> Charts = {"Class Amir",   "Class Bea",       "Class Dora",
                            "Class Emil",   "Class Mary Ann",  "Library Bea",
                            "Library Emil", "Plants Mary Ann", "Trip"};

} // namespace

void ClassWeek::TheAccountsArePrinted() {
    OpenAccounts();
    PrintAccounts();
    Printed({"List of Sparkit Dutygrid users and passwords",
             "User Name Is: Ms Lind Password Is: chalk", "User Name Is: Mary Ann Password Is: m6"});
    Click("Okbtn");
    LogOff();
}

void ClassWeek::AmirLooksAtHisAccount() {
    ChildLogsIn("Amir", "a1");
    OpenAccounts();
    // A class's children see their own accounts unless an adult wants it otherwise.
    CanSee("StudentsList", false);
    Figures("Amir", "23", "Ice cream for all", "20", "0");
    Shoot("account-child-sees-its-own");
    Click("Okbtn");
    Front("MainForm");
    OpenForFilling("Class Amir");
    Page("Monday 3/12/2001", "23", "0");
    ExpectGoal();
    Tick(0);
    Tick(1); // told once
    Page("Monday 3/12/2001", "28", "0");
    Click("Ok");
    Front("MainForm");
    LogOff();
}

void ClassWeek::TheClassIsReviewed() {
    TheDayIs(QDate(2001, 3, 16));
    AdultLogsIn("Ms Lind", "chalk");
    QList<Text> charts = Charts;
    charts.insert(2, "Class Carl");
    OpenReview(charts);
    Pick("ChartList", "Class Amir");
    Shows("Label2", "Weekly Dutygrid Review from: 3/12/2001 to 3/16/2001");
    const QList<Text> open = {"-", "", "", "", "", "", "-"};
    const QList<Text> doneOnMonday = {"-", "1", "", "", "", "", "-"};
    Review({{"Be ready to start on time", "2", doneOnMonday, "2"},
            {"Bring homework", "3", doneOnMonday, "3"},
            {"Put hand up before speaking", "4", open, "0"},
            {"Keep a tidy desk", "2", open, "0"},
            {"Help a classmate", "3", open, "0"},
            {"Push in the chairs", "1", open, "0"},
            {"Put the milk cups away", "1", open, "0"},
            {"Line up quietly", "2", open, "0"},
            {"Clean the board", "2", {"-", "", "-", "-", "-", "-", "-"}, "0"},
            {"Feed the class pet", "5", {"-", "-", "-", "", "-", "-", "-"}, "0"},
            {"Water the plants", "2", {"-", "-", "-", "-", "", "-", "-"}, "0"},
            {"Put up the chairs", "5", {"-", "-", "-", "-", "-", "", "-"}, "0"}},
           {"0", "5", "0", "0", "0", "0", "0"}, "5");
    Shoot("review");
    ScrollTo("VScroll", 7);
    Shoot("review-scrolled");
    ScrollTo("VScroll", 12);
    Shoot("review-scrolled-to-the-end");
    Click("Ok");
    Front("MainForm");
}

void ClassWeek::CarlMovesAway() {
    OpenAccounts();
    Pick("StudentsList", "Carl");
    Boxes.Expect("Are you sure you want to delete this account?", QMessageBox::Yes,
                 "account-delete-question");
    RightPress("StudentsList", "Carl");
    NobodyIsSelected();
    Lists("StudentsList", {"Amir", "Bea", "Dora", "Emil", "Mary Ann"});
    Stored("SELECT Name FROM Catalogue WHERE Name LIKE '%Carl%'", {});
    Click("Okbtn");
    Front("MainForm");
}

void ClassWeek::TheWeeksAreReported() {
    TheDayIs(QDate(2001, 3, 19));
    OpenReview(Charts); // rolls the charts on
    Click("Ok");
    Front("MainForm");
    OpenReports({"Amir", "Bea", "Dora", "Emil", "Mary Ann"});
    ReportsOf("Amir", {"Class Amir"},
              {"History Class Amir from: 3/12/2001", "History Class Amir from: 3/5/2001"});
    Shoot("reports");
    AskForDates();
    Pictures.NameNextPrint("print-date-range-report");
    ChooseDates(QDate(2001, 3, 5), QDate(2001, 3, 12));
    Printed({"Amir - Job Report", "Starting from: 3/5/2001 until 3/12/2001",
             "1. Put up the chairs 0 2", "4. Clean the board 1 1", "5. Line up quietly 1 9",
             "10. Put hand up before speaking 1 9", "11. Bring homework 3 7",
             "12. Be ready to start on time 3 7", "13. Bring homework 3 7",
             "20. Put up the chairs 0 2"});

    ReportsOf("Mary Ann", {"Class Mary Ann", "Plants Mary Ann"},
              {"History Class Mary Ann from: 3/12/2001", "History Class Mary Ann from: 3/5/2001",
               "History Plants Mary Ann from: 3/12/2001",
               "History Plants Mary Ann from: 3/5/2001"});
    Pick("ListView1", "Plants Mary Ann");
    Pictures.NameNextPrint("print-dutygrid-report");
    Click("Ok");
    Printed({"Mary Ann's Job List - from 3/19/2001 to 3/23/2001", "Wednesday", "Plant waterer",
             "5 Points"});
    Click("Cancel");
    Front("MainForm");
    LogOff();
}
