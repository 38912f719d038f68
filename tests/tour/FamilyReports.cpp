#include "tests/common/Readable.h"
#include "tests/tour/FamilyWeek.h"

namespace {

const Text ChooseChart = "Please select a Sparkit from the name list and the Dutygrid you would "
                         "like to print.";
const Text ChooseHistory = "Please select a Sparkit from the name list and the History Report you "
                           "would like to print.";
const Text WithDates = "Would you like to define a date range for your report?  If not, the entire "
                       "Dutygrid history for this Sparkit will be printed.";
const Text Everything = "Are you sure you want to print this Sparkit's entire Dutygrid history?";
const Text NoneInRange = "There are no Dutygrids included in the date range you selected.  Please "
                         "select a new date range.";
const Text EndBeforeStart = "Please make sure the Ending Date selected is greater than the "
                            "Starting Date selected.";

const QDate FirstSunday(2001, 3, 4);
const QDate SecondSunday(2001, 3, 11);
const QDate SecondSaturday(2001, 3, 17);

const QList<Text> AnnasHistory = {"History Chores Anna from: 3/11/2001",
                                  "History Chores Anna from: 3/4/2001",
                                  "History Piano Anna from: 3/4/2001"};
const QList<Text> BensHistory = {"History Chores Ben from: 3/11/2001",
                                 "History Chores Ben from: 3/4/2001",
                                 "History Garden Ben from: 3/4/2001"};

/// A job that stands in the list of jobs twice is reported twice.
const QList<Text> AnnasJobs = {"Jobs",
                               "Completed",
                               "Incomplete",
                               "1. Practise music 2 3",
                               "2. Wash the car 1 1",
                               "3. Walk the dog 7 3",
                               "4. Make the bed 11 3",
                               "5. Practise music 2 3",
                               "6. Walk the dog 7 3",
                               "7. Wash the car 1 1"};

QList<Text> AnnasReport(const Text& period) {
    return QList<Text>{"Anna - Job Report", period} + AnnasJobs;
}

} // namespace

void FamilyWeek::MumForgetsToChoose() {
    OpenReports({"Anna", "Ben"});
    Shoot("reports-nobody-chosen");
    Boxes.Expect(ChooseChart, QMessageBox::Ok, "reports-choose-dutygrid");
    Click("Ok");
    Boxes.Expect(ChooseHistory, QMessageBox::Ok, "reports-choose-history");
    Click("Ok2");
    ReportsOf("Anna", {"Chores Anna"}, AnnasHistory);
    Boxes.Expect(ChooseChart);
    Click("Ok");
    // A chart is no history.
    Pick("ListView1", "Chores Anna");
    Boxes.Expect(ChooseHistory);
    Click("Ok2");

    Click("Command1");
    Front("WeekChartRepresentation");
    Click("Ok");
    Front("Reportfrm");
    // Back from another form everything has to be chosen again.
    Lists("ListView1", {});
}

void FamilyWeek::MumPrintsChartAndHistory() {
    ReportsOf("Anna", {"Chores Anna"}, AnnasHistory);
    Pick("ListView1", "Chores Anna");
    Shoot("reports-dutygrid-chosen");
    Pictures.NameNextPrint("print-dutygrid-report");
    Click("Ok");
    Printed({"Anna's Job List - from 3/18/2001 to 3/24/2001", "Sunday", "Make the bed", "5 Points",
             "Monday", "Walk the dog", "10 Points", "Saturday", "Wash the car"});

    // The report by dates asks for none while a chart is chosen.
    Pictures.NameNextPrint("print-report-of-chosen-dutygrid");
    Click("Command2");
    Printed({"Anna - Job Report", "Starting from: 3/18/2001 until 3/24/2001", "Jobs", "Completed",
             "Incomplete", "1. Wash the car 0 1", "2. Walk the dog 0 5", "3. Make the bed 0 7",
             "4. Walk the dog 0 5", "5. Wash the car 0 1"});

    ReportsOf("Anna", {"Chores Anna"}, AnnasHistory);
    Pick("ListView2", AnnasHistory[0]);
    Pictures.NameNextPrint("print-history-report-one-week");
    Click("Ok2");
    Printed(
        {"Anna - Job Report", "1. Wash the car 0 1", "2. Walk the dog 2 3", "3. Make the bed 4 3"});
    Pick("ListView2", AnnasHistory[0]);
    Pick("ListView2", AnnasHistory[1], Qt::ControlModifier);
    Pick("ListView2", AnnasHistory[2], Qt::ControlModifier);
    Shoot("reports-history-chosen");
    Pictures.NameNextPrint("print-history-report");
    Click("Ok2");
    Printed(AnnasReport("Starting from: 3/4/2001 until 3/17/2001"));
}

void FamilyWeek::MumPrintsEverything() {
    ReportsOf("Anna", {"Chores Anna"}, AnnasHistory);
    Boxes.Expect(WithDates, QMessageBox::No, "reports-dates-question");
    Boxes.Expect(Everything, QMessageBox::No, "reports-everything-question");
    Click("Command2");
    Boxes.Expect(WithDates, QMessageBox::No);
    Boxes.Expect(Everything, QMessageBox::Yes);
    Pictures.NameNextPrint("print-entire-history");
    Click("Command2");
    // The child's jobs; the period is that of everybody's charts.
    Printed(AnnasReport("Starting from: 3/4/2001 until 3/24/2001"));
}

void FamilyWeek::MumPrintsBetweenDates() {
    ReportsOf("Anna", {"Chores Anna"}, AnnasHistory);
    AskForDates();
    CanSee("Calendar1", false);
    Shoot("date-range");
    Click("Command1");
    CanSee("Calendar1", true);
    ChooseDay("Calendar1", FirstSunday);
    Shoot("date-range-calendar");
    Click("Ok");
    Shows("Label2", "Starting from: 3/4/2001 until ");
    Shoot("date-range-half");
    Click("Command2");
    ChooseDay("Calendar1", SecondSaturday);
    Boxes.Expect("Starting from: 3/4/2001 until 3/17/2001", QMessageBox::Ok, "date-range-chosen");
    Pictures.NameNextPrint("print-date-range-report");
    Click("Ok");
    IsGone("DateRangefrm");
    Front("Reportfrm");
    Printed(AnnasReport("Starting from: 3/4/2001 until 3/17/2001"));

    // One history table alone counts as none.
    ReportsOf("Anna", {"Chores Anna"}, AnnasHistory);
    AskForDates();
    ChooseDates(SecondSunday, SecondSaturday, NoneInRange, "date-range-none");
    ReportsOf("Anna", {"Chores Anna"}, AnnasHistory);
    AskForDates();
    ChooseDates(SecondSunday, SecondSunday, EndBeforeStart, "date-range-equal-dates");
}

void FamilyWeek::MumLeavesTheDates() {
    ReportsOf("Anna", {"Chores Anna"}, AnnasHistory);
    AskForDates();
    Click("cmdExit");
    IsGone("DateRangefrm");
    Front("Reportfrm");
    // Anna's report waits on; the dates that come next are for Ben's.
    ReportsOf("Ben", {"Chores Ben"}, BensHistory);
    AskForDates();
    Pictures.NameNextPrint("print-date-range-report-second-run");
    ChooseDates(FirstSunday, SecondSaturday);
    Printed({"Ben - Job Report", "Starting from: 3/4/2001 until 3/17/2001",
             "1. Water the plants 0 1", "2. Rake the leaves 0 1", "5. Wash the car 0 2",
             "6. Walk the dog 2 8", "7. Make the bed 2 12", "11. Water the plants 0 1"});
}

void FamilyWeek::MumDeletesBensChart() {
    const Text sure = "Are you sure you want to delete this chart?";
    ReportsOf("Ben", {"Chores Ben"}, BensHistory);
    Boxes.Expect(sure, QMessageBox::No, "reports-delete-question");
    RightPress("ListView1", "Chores Ben");
    Lists("ListView1", {"Chores Ben"});
    Stored("SELECT count(*) FROM \"Chores Ben\"", {"13"});
    // History stays, whichever button is pressed on it.
    RightPress("ListView2", BensHistory[1]);
    Boxes.Expect(sure, QMessageBox::Yes);
    RightPress("ListView1", "Chores Ben");
    Lists("ListView1", {});
    Lists("ListView2", BensHistory);
    Shoot("reports-dutygrid-deleted");
    Stored("SELECT Name FROM Catalogue WHERE Name LIKE '%Ben%' ORDER BY FoldedName", BensHistory);
}

void FamilyWeek::AnnaFindsTheReports() {
    LogOff();
    ChildLogsIn("Anna", "kite");
    // What an adult has left open is there; a child deletes nothing in it.
    Front("Reportfrm");
    ReportsOf("Anna", {"Chores Anna"}, AnnasHistory);
    RightPress("ListView1", "Chores Anna");
    Lists("ListView1", {"Chores Anna"});
    Stored("SELECT count(*) FROM \"Chores Anna\"", {"13"});
    Click("Cancel");
    Front("MainForm");
    LogOff();
}
