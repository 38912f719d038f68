#include "tests/common/Readable.h"
#include "tests/tour/ClassWeek.h"

void ClassWeek::AmirOnMonday() {
    ChildLogsIn("Amir", "a1");
    Toolbar("OpenKid");
    Front("OpenFillfrm");
    Lists("ChartList", {"Class Amir"});
    Pick("ChartList", "Class Amir");
    Click("Ok");
    Front("ChartViewer");
    CaptionIs("Amir's Class Dutygrid");
    Shows("Label4", "Today is Monday - 3/5/2001");
    Shows("ToyName", "Ice cream for all 20 Points");
    Page("Monday 3/5/2001", "0", "20");
    Shoot("viewer-nine-jobs");
    Tick(0);
    Tick(1);
    // The last two jobs stand below the list's edge.
    ScrollTo("VScroll", 2);
    CanSee("Instructions(0)", false);
    CanSee("Instructions(2)", true);
    Tick(7);
    Tick(8);
    Page("Monday 3/5/2001", "9", "11");
    Shoot("viewer-scrolled");
    ScrollTo("VScroll", 0);
    IsDone(0, true);
    IsDone(2, false);
    Click("Difficulty(4)");
    Shows("Namelbl", "Ms Lind");
    ShowsPicture("Image1", true);
    Shoot("viewer-row-selected");
    Click("NextDay");
    CanSee("Namelbl", false);
    Page("Tuesday 3/6/2001", "9", "11");
    // A school week has no weekend.
    Click("PreviousDay");
    Click("PreviousDay");
    Page("Friday 3/9/2001", "9", "11");
    Click("Ok");
    Front("MainForm");
    Stored("SELECT Instructions FROM \"Class Amir\" WHERE Completed = -1 AND DayOfWeek = 'Mon'",
           {"Be ready to start on time", "Bring homework", "Line up quietly", "Clean the board"});
    LogOff();
}

void ClassWeek::BeaAndEmilOnTuesday() {
    TheDayIs(QDate(2001, 3, 6));
    for (const Account& child :
         QList<Account>{{"Bea", "b2", false, ""}, {"Emil", "e5", false, ""}}) {
        ChildLogsIn(child.Name, child.Password);
        Toolbar("OpenKid");
        Front("OpenFillfrm");
        Lists("ChartList", {"Class " + child.Name, "Library " + child.Name});
        DoublePick("ChartList", "Library " + child.Name);
        Front("ChartViewer");
        CaptionIs(child.Name + "'s Library Dutygrid");
        Page("Tuesday 3/6/2001", "0", "500");
        Tick(0);
        Page("Tuesday 3/6/2001", "6", "494");
        // Two days have jobs: forward from the second is the first again.
        Click("NextDay");
        Page("Thursday 3/8/2001", "6", "494");
        Click("NextDay");
        Page("Tuesday 3/6/2001", "6", "494");
        IsDone(0, true);
        Click("Ok");
        Front("MainForm");
        LogOff();
    }
}

void ClassWeek::LibraryIsRewrittenOnWednesday() {
    TheDayIs(QDate(2001, 3, 7));
    AdultLogsIn("Ms Lind", "chalk");
    Toolbar("Open");
    Front("Openfrm");
    const QList<Text> charts = {
        "Class Amir",     "Class Bea",   "Class Carl",   "Class Dora",      "Class Emil",
        "Class Mary Ann", "Library Bea", "Library Emil", "Plants Mary Ann", "Trip"};
    Lists("ChartList", charts);
    // A return to the form lists everything again.
    Toolbar("About");
    Front("frmAboutDutygrid");
    Click("cmdExit");
    Front("Openfrm");
    Lists("ChartList", charts + charts);
    DoublePick("ChartList", "Library Bea");
    Front("ChartEditor");
    WriteJob(2, {"Sort the lost property", "Fri", "", "Hard", "3"});
    Shoot("editor-opened-chart");
    SaveChart({"Bea"}, "Bea's Sparkit Dutygrid has been created");
    Front("MainForm");
    // The ticks go to history with the old rows; the points stay.
    Stored("SELECT DayOfWeek, Completed FROM \"Library Bea\"", {"Tue|0", "Thu|0", "Fri|0"});
    Stored("SELECT DayOfWeek, Completed FROM \"History Library Bea from: 3/5/2001\"",
           {"Tue|-1", "Thu|0"});
    Stored("SELECT Points FROM USERS WHERE Name = 'Bea'", {"6"});
    LogOff();
}

void ClassWeek::MaryAnnOnWednesday() {
    ChildLogsIn("Mary Ann", "m6");
    OpenForFilling("Plants Mary Ann");
    CaptionIs("Mary Ann's Plants Dutygrid");
    Page("Wednesday 3/7/2001", "0", "500");
    Click("Instructions(0)");
    // An adult without an account has a name and no picture.
    Shows("Namelbl", "Mr Ode");
    ShowsPicture("Image1", false);
    Tick(0);
    Listen();
    Click("Ok");
    Heard({"applause"});
    Front("MainForm");
    Stored("SELECT Completed FROM \"Plants Mary Ann\"", {"-1"});
    LogOff();
}

void ClassWeek::AmirOnFriday() {
    TheDayIs(QDate(2001, 3, 9));
    ChildLogsIn("Amir", "a1");
    OpenForFilling("Class Amir");
    Page("Friday 3/9/2001", "9", "11");
    Tick(0);
    Tick(1);
    Tick(2);
    Tick(3);
    Page("Friday 3/9/2001", "20", "0");
    ExpectGoal("viewer-goal");
    Tick(4);
    Page("Friday 3/9/2001", "23", "0");
    Boxes.Expect("Please click the 'Yes' button to print your Sparkit Dutygrid showing check "
                 "marks for those jobs that have been completed for the week.",
                 QMessageBox::Yes);
    Pictures.NameNextPrint("print-from-viewer");
    Click("Command1");
    Printed({"Amir's Job List - from 3/5/2001 to 3/9/2001", "Monday", "Be ready to start on time",
             "Clean the board", "Friday", "Put up the chairs"},
            3);
    Click("Ok");
    Front("MainForm");
    LogOff();
}

void ClassWeek::TheWeekend() {
    for (const QDate& day : {QDate(2001, 3, 10), QDate(2001, 3, 11)}) {
        TheDayIs(day);
        ChildLogsIn("Amir", "a1");
        Toolbar("OpenKid");
        Front("OpenFillfrm");
        Lists("ChartList", {});
        CanSee("Ok", false);
        if (day.dayOfWeek() == Qt::Saturday)
            Shoot("open-for-filling-weekend");
        Click("Cancel");
        Front("MainForm");
        LogOff();
    }
    Stored("SELECT FirstDate FROM \"Class Amir\" LIMIT 1", {"2001-03-05"});
}

void ClassWeek::TheNextMonday() {
    TheDayIs(QDate(2001, 3, 12));
    ChildLogsIn("Amir", "a1");
    Toolbar("OpenKid");
    Front("OpenFillfrm");
    Lists("ChartList", {"Class Amir"});
    CanSee("Ok", true);
    for (const Text& child : QList<Text>{"Amir", "Bea", "Carl", "Dora", "Emil", "Mary Ann"})
        Stored("SELECT FirstDate, LastDate, Completed FROM \"Class " + child + "\" LIMIT 1",
               {"2001-03-12|2001-03-16|0"});
    Stored("SELECT count(*) FROM \"History Class Amir from: 3/5/2001\" WHERE Completed = -1",
           {"9"});
    // What is not to be created again stays where it was.
    Stored("SELECT FirstDate FROM \"Library Bea\" LIMIT 1", {"2001-03-05"});
    Stored("SELECT FirstDate FROM \"Trip\" LIMIT 1", {"2001-03-12"});
    Pick("ChartList", "Class Amir");
    Click("Ok");
    Front("ChartViewer");
    Page("Monday 3/12/2001", "23", "0");
    IsDone(0, false);
    Click("Ok");
    Front("MainForm");
    LogOff();

    ChildLogsIn("Bea", "b2");
    Toolbar("OpenKid");
    Front("OpenFillfrm");
    Lists("ChartList", {"Class Bea"});
    Click("Cancel");
    LogOff();
}

void ClassWeek::LibraryIsMovedOn() {
    AdultLogsIn("Ms Lind", "chalk");
    OpenForEditing("Library Bea");
    Shows("StartingFrom", "Starting from: Monday 3/5/2001 to Friday 3/9/2001");
    Click("ResetTime");
    Front("ResetDate");
    IsChosen("NextWeek", true); // today is outside the chart's week
    Shoot("reset-date");
    Click("Cancel");
    Front("ChartEditor");
    Shows("StartingFrom", "Starting from: Monday 3/5/2001 to Friday 3/9/2001");
    Click("ResetTime");
    Front("ResetDate");
    Click("ok");
    Front("ChartEditor");
    // On its first day the next week is the one that starts today.
    Shows("StartingFrom", "Starting from: Monday 3/12/2001 to Friday 3/16/2001");
    SaveChart({"Bea"}, "Bea's Sparkit Dutygrid has been created");
    Stored("SELECT FirstDate FROM \"Library Bea\" LIMIT 1", {"2001-03-12"});
}

void ClassWeek::LeaveFromTheLogIn() {
    Click("Exitbtn");
    EXPECT_EQ(Ends, QList<int>({0}));
    IsGone("LogIn");
    // Leaving from here keeps the folder of pictures taken out.
    EXPECT_TRUE(QFileInfo::exists(InFolder("DeleteMe")));
}
