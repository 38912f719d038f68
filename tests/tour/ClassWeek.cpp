#include "tests/tour/ClassWeek.h"

#include "session/Session.h"
#include "tests/common/Readable.h"

namespace {

const QList<Text> Children = {"Amir", "Bea", "Carl", "Dora", "Emil", "Mary Ann"};

const QList<Job> ClassDuties = {{"Be ready to start on time", "Mon-Fri", "", "Easy", "2"},
                                {"Bring homework", "Mon-Fri", "", "Medium", "3"},
                                {"Put hand up before speaking", "Mon-Fri", "", "Hard", "4"},
                                {"Keep a tidy desk", "Mon-Fri", "", "Medium", "2"},
                                {"Help a classmate", "Mon-Fri", "", "Medium", "3"},
                                {"Push in the chairs", "Mon-Fri", "", "Very Easy", "1"},
                                {"Put the milk cups away", "Mon-Fri", "", "Easy", "1"},
                                {"Line up quietly", "Mon-Fri", "", "Hard", "2"},
                                {"Clean the board", "Mon", "", "Easy", "2"},
                                {"Feed the class pet", "Wed", "Mr Ode", "Easy", "5"},
                                {"Water the plants", "Thu", "", "Very Easy", "2"},
                                {"Put up the chairs", "Fri", "", "Very Hard", "5"}};

} // namespace

TEST_F(ClassWeek, FromTheFirstStartThroughTwoWeeks) {
    FirstStartAtSchool();
    MakeAccounts();
    WriteClassDuties();
    WriteLibraryAndPlants();
    WriteTripForNobody();
    AmirOnMonday();
    BeaAndEmilOnTuesday();
    LibraryIsRewrittenOnWednesday();
    MaryAnnOnWednesday();
    AmirOnFriday();
    TheWeekend();
    TheNextMonday();
    LibraryIsMovedOn();
    TheAccountsArePrinted();

    Pictures.Begin("class-second-week");
    AmirLooksAtHisAccount();
    TheClassIsReviewed();
    CarlMovesAway();
    TheWeeksAreReported();
    LeaveFromTheLogIn();
}

void ClassWeek::FirstStartAtSchool() {
    Boxes.ExpectAny("welcome");
    StartProgram();
    Front("LogIn");
    HeadingIs("TeachersList", "Parents");
    HeadingIs("StudentsList", "Sparkits");
    Click("ForSchool");
    IsChosen("ForHome", false);
    HeadingIs("TeachersList", "Teachers");
    HeadingIs("StudentsList", "Sparkits");
    EXPECT_EQ(SchoolMode, -1);
    FileHolds("Settings/Settings.txt", {" 0 ", "", " 14409673 ", " 1 ", " 1 "});
    Shoot("login-school-version");
}

void ClassWeek::MakeAccounts() {
    Click("NewUserbtn");
    Front("NewUser");
    Shows("TeacherOp", "Teacher");
    Shows("StudentOp", "Sparkit");
    Shoot("new-user-school");
    Click("Cancel");
    NewAccount({"Ms Lind", "chalk", true, "Woman.png"});
    NewAccount({"Amir", "a1", false, "BoyCurls.png"});
    NewAccount({"Bea", "b2", false, "GirlBob.png"});
    NewAccount({"Carl", "c3", false, "BoyGlasses.png"});
    NewAccount({"Dora", "d4", false, "GirlHeadscarf.png"});
    NewAccount({"Emil", "e5", false, "BoyCap.png"});
    NewAccount({"Mary Ann", "m6", false, "GirlCurls.png"});
    // The choice of the school version is read again each time.
    IsChosen("ForSchool", true);
    HeadingIs("TeachersList", "Teachers");
    Lists("TeachersList", {"Ms Lind"});
    Lists("StudentsList", Children);
    Pick("StudentsList", "Mary Ann");
    Shoot("login-seven-accounts");
}

void ClassWeek::WriteClassDuties() {
    AdultLogsIn("Ms Lind", "chalk");
    Front("MainForm");
    CaptionIs("Sparkit Dutygrid - Hi Ms Lind");
    BeginChart("Class duties");
    Shows("StartingFrom", "Starting from: Monday 3/5/2001 to Friday 3/9/2001");
    Offers("DayOfWeek(0)", {"Mon", "Tue", "Wed", "Thu", "Fri", "Mon-Fri"});
    for (int row = 0; row < ClassDuties.size(); ++row) {
        if (row == 11)
            ScrollTo("VScroll", 4); // the last rows are below the list's edge
        WriteJob(row, ClassDuties[row]);
    }
    CanSee("Instructions(3)", false);
    CanSee("Instructions(4)", true);
    Shoot("editor-scrolled");
    ScrollTo("VScroll", 0);
    CanSee("Instructions(0)", true);
    Shoot("editor-twelve-jobs");

    Pictures.NameNextPrint("print-from-editor");
    Click("Print");
    Printed({"Sparkit Dutygrid from 3/5/2001 to 3/9/2001", "Monday", "1.",
             "Be ready to start on time", "2 Points", "9.", "Clean the board", "Tuesday", "8.",
             "Line up quietly", "Wednesday", "9.", "Feed the class pet", "5 Points", "Thursday",
             "Friday", "Put up the chairs"},
            3);

    SaveChart(Children, "All charts have been created", "select-six-sparkits");
    Front("MainForm");
    Stored("SELECT count(*), sum(Points), max(UserName), max(AutoCreate), min(AutoCreate) FROM "
           "\"Class Mary Ann\"",
           {"44|104|Mary Ann|0|-1"});
    Stored("SELECT count(*) FROM Catalogue WHERE Name LIKE 'Class %'", {"6"});
    Stored("SELECT count(*) FROM Catalogue WHERE Name LIKE 'History Class % from: 3/5/2001'",
           {"6"});
    FileHasLines("Jobs/SchoolJobs.dat", {"Put up the chairs", "Water the plants"});
}

void ClassWeek::WriteLibraryAndPlants() {
    BeginChart("Library");
    WriteJob(0, {"Library helper", "Tue", "", "Medium", "6"});
    WriteJob(1, {"Book corner helper", "Thu", "", "Easy", "4"});
    Click("AutoCreatechk");
    SaveChart({"Bea", "Emil"}, "All charts have been created", "select-two-sparkits-to-print",
              "print-for-two-sparkits");
    Printed({"Bea's Library Dutygrid from 3/5/2001 to 3/9/2001", "Tuesday", "Library helper",
             "6 Points", "Thursday", "Book corner helper", "4 Points",
             "Emil's Library Dutygrid from 3/5/2001 to 3/9/2001", "Tuesday", "Thursday"},
            2);
    Front("MainForm");
    Shoot("printed-for-two-sparkits");
    BeginChart("Plants");
    WriteJob(0, {"Plant waterer", "Wed", "Mr Ode", "Easy", "5"});
    SaveChart({"Mary Ann"}, "Mary Ann's Sparkit Dutygrid has been created");
    Front("MainForm");
    Stored("SELECT * FROM \"Library Emil\"",
           {"Library helper|Tue|Ms Lind|Medium|6|0|2001-03-05|2001-03-09|Emil|0",
            "Book corner helper|Thu|Ms Lind|Easy|4|0|<null>|<null>|<null>|0"});
}

void ClassWeek::WriteTripForNobody() {
    BeginChart("Trip");
    WriteJob(0, {"Pack a lunch", "Fri", "", "Easy", "1"});
    SaveChart({}, "");
    Front("MainForm");
    Stored("SELECT UserName FROM \"Trip\"", {""});
    OpenForEditing("Trip");
    SaveChart({}, "");
    Front("MainForm");
    Stored("SELECT UserName FROM \"Trip\"", {"Nobody"});

    OpenAccounts();
    Pick("StudentsList", "Amir");
    Figures("Amir", "0", "", "500", "500");
    Promise("Ice cream for all", "20", "IceCream.png", "incentive");
    Stored("SELECT IncentiveName, IncentiveCost FROM USERS WHERE Name = 'Amir'",
           {"Ice cream for all|20"});
    Click("Okbtn");
    Front("MainForm");
    LogOff();
}
