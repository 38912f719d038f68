#include "session/Session.h"
#include "tests/common/Readable.h"
#include "tests/tour/FamilyWeek.h"

namespace {

const Text OneAtATime = "You can use only one Dutygrid at a time.  Would you like to close the "
                        "Dutygrid you are working on?";
const Text WithMarks = "Please click the 'Yes' button to print your Sparkit Dutygrid showing check "
                       "marks for those jobs that have been completed for the week.";
const Text WithBoxes = "Please click 'Ok' to print out your Sparkit Dutygrid with checkboxes to be "
                       "filled in by you as you complete the jobs.";

Text DoneIn(const Text& table) {
    return "SELECT DayOfWeek, Instructions FROM \"" + table + "\" WHERE Completed = -1";
}

Text PointsOf(const Text& name) {
    return "SELECT Points FROM USERS WHERE Name = '" + name + "'";
}

} // namespace

void FamilyWeek::AnnaOnSunday() {
    DoublePick("StudentsList", "Anna");
    Front("LoginWindow");
    Shows("UserName", "Anna");
    Shoot("password-anna");
    Click("Cancel");
    ChildLogsIn("Anna", "kite");
    Front("MainForm");
    CaptionIs("Sparkit Dutygrid - Hi Anna");
    EXPECT_EQ(CurrentState, QStringLiteral("Student"));
    ToolbarShows({"Open", "Account", "Help", "Log Off", "Exit"});
    MenuShows("File", {"Open Dutygrid", "View Accounts", "Log Off", "Exit"});
    MenuShows("Optinos", {"Background Options", "Sound On"});
    MenuShows("Help", {"Contents", "Website", "About"});
    Shoot("main-window-child");
    ShowMenu("File", "menu-file-child");

    Toolbar("OpenKid");
    Front("OpenFillfrm");
    CaptionIs("Available Sparkit Dutygrids");
    Lists("ChartList", {"Chores Anna", "Piano Anna"});
    Boxes.Expect("Please select a Dutygrid to open", QMessageBox::Ok, "open-none-selected");
    Click("Ok");
    Front("OpenFillfrm");
    // A box that has been answered is no return to the form: nothing is listed twice.
    Lists("ChartList", {"Chores Anna", "Piano Anna"});
    Shoot("open-for-filling");
    Pick("ChartList", "Chores Anna");
    Click("Ok");
    Front("ChartViewer");
    CaptionIs("Anna's Chores Dutygrid");
    Shows("ChartNamelbl", "Anna's Chores Dutygrid");
    Shows("Label4", "Today is Sunday - 3/4/2001");
    Shows("UsersName", "Anna");
    Shows("ToyName", "Bike 60 Points");
    ShowsPicture("Image2", true);
    ShowsPicture("Image3", true);
    Page("Sunday 3/4/2001", "0", "60");
    Shows("Instructions(0)", "Make the bed");
    Shows("Difficulty(0)", "Easy");
    Shows("Points(0)", "5");
    IsDone(0, false);
    Shoot("viewer-sunday");

    Click("Instructions(0)");
    CanSee("Namelbl", true);
    Shows("Namelbl", "Mum");
    ShowsPicture("Image1", true);
    Shoot("viewer-person-responsible");
    Tick(0);
    Page("Sunday 3/4/2001", "5", "55");
    Shoot("viewer-sunday-done");
    Stored(PointsOf("Anna"), {"5"});   // points move at once
    Stored(DoneIn("Chores Anna"), {}); // marks when the day changes or at the end
    Click("Ok");
    Front("MainForm");
    Stored(DoneIn("Chores Anna"), {"Sun|Make the bed"});
    Heard({}); // Dad has switched the sound off
    Menu("Optinos", "SoundOnOff");
    ShowMenu("Optinos", "menu-options-child");
    LogOff();
}

void FamilyWeek::AnnaOnMonday() {
    TheDayIs(QDate(2001, 3, 5));
    ChildLogsIn("Anna", "kite");
    Front("MainForm");
    Shortcut(Qt::Key_F4);
    Front("OpenFillfrm");
    DoublePick("ChartList", "Chores Anna");
    Front("ChartViewer");
    Page("Monday 3/5/2001", "5", "55");
    Heard({"Draw"});
    Tick(0);
    Tick(1);
    Untick(1);
    Page("Monday 3/5/2001", "10", "50");
    Tick(1);
    Page("Monday 3/5/2001", "20", "40");
    Heard({"turn", "turn", "turn", "turn"});
    Shoot("viewer-monday");

    // One chart at a time: No brings the open one back to the front, and that turns its page.
    Toolbar("OpenKid");
    Front("OpenFillfrm");
    Pick("ChartList", "Piano Anna");
    Boxes.Expect(OneAtATime, QMessageBox::No, "viewer-one-at-a-time");
    Click("Ok");
    Front("ChartViewer");
    CaptionIs("Anna's Chores Dutygrid");
    Page("Tuesday 3/6/2001", "20", "40");
    Stored(DoneIn("Chores Anna"), {"Sun|Make the bed", "Mon|Make the bed", "Mon|Walk the dog"});
    Click("PreviousDay");
    Page("Monday 3/5/2001", "20", "40");
    IsDone(0, true);
    IsDone(1, true);
    // The week is a ring.
    Click("PreviousDay");
    Click("PreviousDay");
    Page("Saturday 3/10/2001", "20", "40");
    Shows("Instructions(1)", "Wash the car");
    Click("NextDay");
    Page("Sunday 3/4/2001", "20", "40");
    IsDone(0, true);

    Toolbar("OpenKid");
    Front("OpenFillfrm");
    Pick("ChartList", "Piano Anna");
    Boxes.Expect(OneAtATime, QMessageBox::Yes);
    Click("Ok");
    Front("ChartViewer");
    CaptionIs("Anna's Piano Dutygrid");
    Page("Monday 3/5/2001", "20", "40");
    Tick(0);
    Page("Monday 3/5/2001", "30", "30");

    // Back from another form of the program: one page on. A message box is none.
    Menu("Help", "About");
    Front("frmAboutDutygrid");
    Click("cmdExit");
    Front("ChartViewer");
    Page("Tuesday 3/6/2001", "30", "30");
    Boxes.Expect(WithMarks, QMessageBox::Yes, "viewer-print-question");
    Pictures.NameNextPrint("print-from-viewer-with-marks");
    Click("Command1");
    Page("Tuesday 3/6/2001", "30", "30");
    Printed({"Anna's Job List - from 3/4/2001 to 3/10/2001", "Monday", "Practise music",
             "10 Points", "Tuesday", "Friday"});
    Click("Ok");
    Front("MainForm");
    Stored(DoneIn("Piano Anna"), {"Mon|Practise music"});
    LogOff();
}

void FamilyWeek::BenLeavesHisChartOpen() {
    ChildLogsIn("Ben", "ball");
    OpenForFilling("Chores Ben");
    Shows("ChartNamelbl", "Ben's Chores Dutygrid");
    Page("Monday 3/5/2001", "0", "500");
    ShowsPicture("Image3", false);
    Tick(0);
    Tick(1);
    Page("Monday 3/5/2001", "15", "485");
    LogOff();

    // What is open stays open for whoever comes next, one page on.
    AdultLogsIn("Mum", "secret");
    Front("ChartViewer");
    CaptionIs("Mum's Chores Dutygrid");
    ToolbarShows({"New", "Open", "Review", "Print", "Accounts", "Options", "Website", "About",
                  "Help", "Log Off", "Exit"});
    Shows("DayLbl", "Tuesday 3/6/2001");
    Shows("Label3", "0");
    Shoot("viewer-left-open-seen-by-mum");
    Stored(DoneIn("Chores Ben"), {"Mon|Make the bed", "Mon|Walk the dog"});
    LogOff();
    ChildLogsIn("Ben", "ball");
    Front("ChartViewer");
    CaptionIs("Ben's Chores Dutygrid");
    Page("Wednesday 3/7/2001", "15", "485");
    Click("Ok");
    Front("MainForm");
    LogOff();
}

void FamilyWeek::AnnaOnTuesday() {
    TheDayIs(QDate(2001, 3, 6));
    ChildLogsIn("Anna", "kite");
    OpenForFilling("Chores Anna");
    Page("Tuesday 3/6/2001", "30", "30");
    Tick(0);
    Tick(1);
    Page("Tuesday 3/6/2001", "45", "15");
    Click("Ok");
    Front("MainForm");
    LogOff();
}

void FamilyWeek::AnnaReachesHerGoalOnWednesday() {
    TheDayIs(QDate(2001, 3, 7));
    ChildLogsIn("Anna", "kite");
    Listen();
    OpenForFilling("Piano Anna");
    Page("Wednesday 3/7/2001", "45", "15");
    Tick(0);
    Click("Ok");
    Front("MainForm");
    OpenForFilling("Chores Anna");
    Page("Wednesday 3/7/2001", "55", "5");
    Heard({"Draw", "turn", "Draw"});
    Tick(0);
    // As many points as the bike costs: nothing is needed any more, but the goal is not passed.
    Page("Wednesday 3/7/2001", "60", "0");
    ExpectGoal("viewer-goal-reached");
    Tick(1);
    Page("Wednesday 3/7/2001", "70", "0");
    Shoot("viewer-wednesday-goal");

    // Back from another form the next day is shown, and the goal is told again.
    Menu("Optinos", "BackOptions");
    Front("BackgroundOptions");
    Click("Cancel");
    Front("ChartViewer");
    Page("Thursday 3/8/2001", "70", "0");
    ExpectGoal();
    Tick(0);
    Untick(0);
    Tick(0);
    Page("Thursday 3/8/2001", "75", "0");
    Click("Ok");
    Front("MainForm");
    LogOff();
}

void FamilyWeek::BenUnticksWhatIsSpent() {
    MumEmptiesBensAccount();
    ChildLogsIn("Ben", "ball");
    Toolbar("OpenKid");
    Front("OpenFillfrm");
    Lists("ChartList", {"Chores Ben", "Garden Ben"});
    // A return to the form lists everything again.
    Menu("Help", "About");
    Front("frmAboutDutygrid");
    Click("cmdExit");
    Front("OpenFillfrm");
    Lists("ChartList", {"Chores Ben", "Garden Ben", "Chores Ben", "Garden Ben"});
    Pick("ChartList", "Chores Ben");
    Listen();
    Click("Ok");
    Front("ChartViewer");
    Page("Wednesday 3/7/2001", "0", "500");
    Click("PreviousDay");
    Click("PreviousDay");
    Page("Monday 3/5/2001", "0", "500");
    Heard({"Draw", "Draw", "Draw"});
    Boxes.Expect("Sorry you have insufficient points to clear the account", QMessageBox::Ok,
                 "viewer-untick-below-zero");
    Untick(1);
    Page("Monday 3/5/2001", "0", "500");
    Heard({"turn"});
    Shoot("viewer-untick-below-zero-after");
    Click("Ok");
    Front("MainForm");
    Stored(PointsOf("Ben"), {"0"});
    Stored(DoneIn("Chores Ben"), {"Mon|Make the bed"});
    LogOff();
}

void FamilyWeek::ThursdayBeforeTheLogIn() {
    TheDayIs(QDate(2001, 3, 8));
    Pick("StudentsList", "Ben");
    Click("ChangeP");
    Front("ChangePasswordfrm");
    CaptionIs("Change Password");
    Shoot("change-account");
    Type("OldPAss", "football");
    Boxes.Expect("Please make a change or click on the 'Cancel' button.", QMessageBox::Ok,
                 "change-account-nothing");
    Click("Ok");
    Front("ChangePasswordfrm");
    // A picture needs no password.
    DesktopCalls.FileAnswers += InFolder("UsersPictures/Rocket.png");
    Click("Command2");
    ShowsPicture("Image1", true);
    Shoot("change-account-picture");
    const Text size = "SELECT length(Image) FROM USERS WHERE Name = 'Ben'";
    const auto bytes = QFileInfo(InFolder("UsersPictures/Rocket.png")).size();
    Click("Ok");
    Front("LogIn");
    Stored(size, {QString::number(bytes + bytes / 32768 + 1)});

    Pick("StudentsList", "Ben");
    Click("ChangeP");
    Front("ChangePasswordfrm");
    Type("OldPAss", "ball");
    Type("NewPass", "comet");
    Boxes.Expect("Your new password is: comet", QMessageBox::Ok, "change-account-new");
    Click("Ok");
    Front("LogIn");
    Stored("SELECT Password FROM USERS WHERE Name = 'Ben'", {"comet"});
    Lists("StudentsList", {"Anna", "Ben"});
}

void FamilyWeek::AnnaOnThursday() {
    ChildLogsIn("Anna", "kite");
    OpenForFilling("Chores Anna");
    Page("Thursday 3/8/2001", "75", "0");
    IsDone(0, true);
    IsDone(1, false);
    ExpectGoal();
    Tick(1);
    Page("Thursday 3/8/2001", "85", "0");
    Click("Ok");
    Front("MainForm");
    LogOff();
}

void FamilyWeek::AnnaFinishesOnSaturday() {
    TheDayIs(QDate(2001, 3, 10));
    ChildLogsIn("Anna", "kite");
    Listen();
    OpenForFilling("Chores Anna");
    Page("Saturday 3/10/2001", "85", "0");
    ExpectGoal();
    Tick(0);
    Tick(1);
    Page("Saturday 3/10/2001", "110", "0");
    Click("PreviousDay");
    Page("Friday 3/9/2001", "110", "0");
    Boxes.Expect(WithMarks, QMessageBox::No);
    Boxes.Expect(WithBoxes, QMessageBox::Ok, "viewer-print-with-boxes");
    Pictures.NameNextPrint("print-from-viewer-with-boxes");
    Click("Command1");
    Printed({"Anna's Job List - from 3/4/2001 to 3/10/2001", "Sunday", "Make the bed", "Saturday",
             "1.", "Make the bed", "5 Points", "2.", "Wash the car", "20 Points"});
    Tick(0);
    Tick(1);
    Page("Friday 3/9/2001", "125", "0");
    Heard({"Draw", "turn", "turn", "Draw", "turn", "turn"});
    Shoot("viewer-friday-all-done");
    Click("Ok");
    Heard({"applause"});
    Front("MainForm");
    Stored("SELECT count(*), sum(Completed) FROM \"Chores Anna\"", {"13|-13"});
    LogOff();
}

void FamilyWeek::DadMovesTheGardenOnSaturday() {
    AdultLogsIn("Dad", "hush");
    Toolbar("Open");
    Front("Openfrm");
    CaptionIs("Open Sparkit Dutygrid");
    Lists("ChartList", {"Chores Anna", "Chores Ben", "Garden Ben", "Piano Anna"});
    Boxes.Expect("Please select a Dutygrid to open");
    Click("Ok");
    Shoot("open-for-editing");
    Pick("ChartList", "Garden Ben");
    Click("Ok");
    Front("ChartEditor");
    CaptionIs("Sparkit Dutygrid Editor");
    Shows("StartingFrom", "Starting from: Sunday 3/4/2001 to Saturday 3/10/2001");
    Shows("Instructions(1)", "Water the plants");
    Shows("DayOfWeek(1)", "Wed");
    Shows("Points(1)", "3");
    IsChosen("AutoCreatechk", false);
    Shoot("editor-opened");

    Click("ResetTime");
    Front("ResetDate");
    CaptionIs("Reset Sparkit Dutygrid Date");
    IsChosen("ThisWeek", true);
    Click("NextWeek");
    Shoot("reset-date");
    Click("ok");
    Front("ChartEditor");
    Shows("StartingFrom", "Starting from: Sunday 3/11/2001 to Saturday 3/17/2001");
    Stored("SELECT FirstDate FROM \"Garden Ben\" LIMIT 1", {"2001-03-04"});

    Pictures.NameNextPrint("print-from-opened-editor");
    Click("Print");
    Printed({"Ben's Printed Dutygrid from 3/11/2001 to 3/17/2001", "Wednesday", "Water the plants",
             "3 Points", "Saturday", "Rake the leaves", "15 Points"});
    SaveChart({"Ben"}, "Ben's Sparkit Dutygrid has been created");
    Stored("SELECT DayOfWeek, FirstDate, LastDate, UserName, AutoCreate FROM \"Garden Ben\"",
           {"Sat|2001-03-11|2001-03-17|Ben|0", "Wed|<null>|<null>|<null>|0"});
    LogOff();
}

void FamilyWeek::TheNextWeekBegins() {
    TheDayIs(QDate(2001, 3, 11));
    ChildLogsIn("Anna", "kite");
    Toolbar("OpenKid");
    Front("OpenFillfrm");
    Lists("ChartList", {"Chores Anna", "Piano Anna"});
    // The past week is kept with its marks, and the charts of both children have rolled on.
    Stored("SELECT count(*), sum(Completed), max(FirstDate), max(UserName) FROM "
           "\"History Chores Anna from: 3/4/2001\"",
           {"13|-13|2001-03-04|Anna"});
    Stored(DoneIn("History Piano Anna from: 3/4/2001"),
           {"Mon|Practise music", "Wed|Practise music"});
    Stored(DoneIn("History Chores Ben from: 3/4/2001"), {"Mon|Make the bed"});
    for (const Text& chart : QList<Text>{"Chores Anna", "Chores Ben"}) {
        Stored("SELECT FirstDate, LastDate, AutoCreate FROM \"" + chart + "\" LIMIT 1",
               {"2001-03-11|2001-03-17|-1"});
        Stored(DoneIn(chart), {});
    }
    Stored(PointsOf("Anna"), {"125"});
    Pick("ChartList", "Chores Anna");
    Click("Ok");
    Front("ChartViewer");
    Page("Sunday 3/11/2001", "125", "0");
    IsDone(0, false);
    Shoot("viewer-next-week");
    Click("Ok");
    Front("MainForm");
    LogOff();

    ChildLogsIn("Ben", "comet");
    Toolbar("OpenKid");
    Front("OpenFillfrm");
    Lists("ChartList", {"Chores Ben", "Garden Ben"});
    Click("Cancel");
    Front("MainForm");
    LogOff();
}

void FamilyWeek::DadDeletesCharts() {
    AdultLogsIn("Dad", "hush");
    OpenForEditing("Piano Anna");
    Click("DeleteChart");
    Front("DeleteChartForm");
    CaptionIs("Delete Sparkit Dutygrid?");
    Shoot("delete-dutygrid");
    Click("No");
    Front("ChartEditor");
    Click("DeleteChart");
    Front("DeleteChartForm");
    Click("Yes");
    Front("MainForm");

    OpenForEditing("Garden Ben");
    Click("JobDelete(0)");
    Shows("Instructions(0)", "Water the plants");
    const Text entireChart = "Are you sure you want to delete the entire chart?";
    Boxes.Expect(entireChart, QMessageBox::No, "editor-delete-entire-chart");
    Click("JobDelete(0)");
    Front("ChartEditor");
    Boxes.Expect(entireChart, QMessageBox::Yes);
    Boxes.Expect(ExitUnsaved, QMessageBox::Yes);
    Click("JobDelete(0)");
    Front("MainForm");
    Tables({"Chores Anna", "Chores Ben", "History Chores Anna from: 3/4/2001",
            "History Chores Ben from: 3/4/2001", "History Garden Ben from: 3/4/2001",
            "History Piano Anna from: 3/4/2001", "Printed"});
    LogOff();
}

void FamilyWeek::MumLeaves() {
    AdultLogsIn("Mum", "secret");
    Front("MainForm");
    EXPECT_TRUE(Ends.isEmpty());
    Toolbar("Exit");
    EXPECT_EQ(Ends, QList<int>({0}));
    IsGone("MainForm");
}
