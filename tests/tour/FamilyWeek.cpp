#include "tests/tour/FamilyWeek.h"

#include "session/Session.h"
#include "shell/BackgroundArea.h"
#include "shell/WebPage.h"
#include "tests/common/Readable.h"

namespace {

const Text Welcome =
    "You have to set up at least two accounts before you can begin, one for you and one for the "
    "child.  Click on the 'New User' button and select either Parent or Teacher.  Enter a username "
    "and password and select a picture for yourself and click the 'OK' button.  Then, click on the "
    "'New User' button again and select Sparkit.  You will be creating accounts for the child or "
    "children that will be using the application.  Please be sure to create usernames and "
    "passwords that will be easy for them to remember.  Then, login as the Parent or Teacher and "
    "create your first Dutygrid.  Click the Help button on the login screen for further "
    "assistance.  Thank you for trying Sparkit Dutygrid.";

const Text SelectUser = "Please select a user or create a new one.";

} // namespace

TEST_F(FamilyWeek, FromTheFirstStartThroughTwoWeeks) {
    FirstStart();
    MakeAccounts();
    MumLogsInForTheFirstTime();
    MumWritesChores();
    MumWritesPiano();
    LogOff();
    DadWritesGarden();
    DadSetsOptions();
    DadLooksAround();
    LogOff();
    AnnaOnSunday();
    AnnaOnMonday();
    BenLeavesHisChartOpen();
    AnnaOnTuesday();
    AnnaReachesHerGoalOnWednesday();
    BenUnticksWhatIsSpent();
    ThursdayBeforeTheLogIn();
    AnnaOnThursday();
    AnnaFinishesOnSaturday();
    DadMovesTheGardenOnSaturday();
    TheNextWeekBegins();
    DadDeletesCharts();
    MumPrintsTheAccounts();

    Pictures.Begin("family-second-week");
    MumPaysAnna();
    MumPromisesMore();
    MumGivesPointsByHand();
    TomComesToVisit();
    AnnaLooksAtAllAccounts();
    AnnaAndTomOnMonday();
    DadHidesTheOthersAccounts();
    AnnaLooksAtHerAccount();
    TheChildrenOnWednesday();
    MumReviewsTheWeek();
    TomLeaves();
    TheReviewBeginsTheThirdWeek();
    MumForgetsToChoose();
    MumPrintsChartAndHistory();
    MumPrintsEverything();
    MumPrintsBetweenDates();
    MumLeavesTheDates();
    MumDeletesBensChart();
    AnnaFindsTheReports();
    MumLeaves();
}

void FamilyWeek::FirstStart() {
    Boxes.Expect(Welcome, QMessageBox::Ok, "welcome");
    StartProgram();
    Front("LogIn");
    CaptionIs("Sparkit Dutygrid Login");
    IsChosen("ForHome", true);
    IsChosen("ForSchool", false);
    Lists("TeachersList", {});
    Lists("StudentsList", {});
    Shoot("login-empty");

    Boxes.Expect(SelectUser, QMessageBox::Ok, "login-nobody-selected");
    ClickBelowEntries("TeachersList");
    Boxes.Expect(SelectUser);
    Click("LogInbtn");
    // Nothing happens without an account, and without a word.
    Click("ChangeP");
    Front("LogIn");

    Click("cmdHelp");
    EXPECT_EQ(DesktopCalls.Helped,
              QStringList(InFolder("HelpFile/DutygridHlp.hlp") + QLatin1String(" 9")));
    Click("cmdWebSite");
    EXPECT_EQ(DesktopCalls.Opened.constLast(),
              QLatin1String("open ") + ProductWebPage + QLatin1String(" 3"));
}

void FamilyWeek::MakeAccounts() {
    Click("NewUserbtn");
    Front("NewUser");
    CaptionIs("Create New Sparkit Dutygrid User");
    Shows("TeacherOp", "Parent");
    Shows("StudentOp", "Sparkit");
    Shoot("new-user");
    Boxes.Expect("Please enter your password", QMessageBox::Ok, "new-user-no-password");
    Click("Ok");
    Type("Password", "secret");
    Boxes.Expect("Please enter your username", QMessageBox::Ok, "new-user-no-name");
    Click("Ok");
    Type("UserName", "Mum");
    Boxes.Expect("You have to select a picture for your account", QMessageBox::Ok,
                 "new-user-no-picture");
    Click("Ok");
    // A dialog that is cancelled leaves no picture.
    DesktopCalls.FileAnswers += std::nullopt;
    Click("Command1");
    ShowsPicture("Image1", false);
    Click("Cancel");
    Front("LogIn");
    Stored("SELECT Name FROM USERS", {});

    NewAccount({"Mum", "secret", true, "Woman.png"}, "new-user-mum");
    NewAccount({"Dad", "hush", true, "Man.png"});
    NewAccount({"Anna", "kite", false, "GirlPlaits.png"}, "new-user-anna");
    NewAccount({"Ben", "ball", false, "Dinosaur.png"});

    Click("NewUserbtn");
    Front("NewUser");
    Type("UserName", "Anna");
    Type("Password", "kite");
    Boxes.Expect("Please try again, this user already exist", QMessageBox::Ok, "new-user-again");
    Click("Ok");
    Shows("UserName", "");
    Shows("Password", "");
    Click("Cancel");

    Front("LogIn");
    Lists("TeachersList", {"Mum", "Dad"});
    Lists("StudentsList", {"Anna", "Ben"});
    Pick("StudentsList", "Anna");
    ShowsPicture("Image1", true);
    Shoot("login-four-accounts");
}

void FamilyWeek::MumLogsInForTheFirstTime() {
    DoublePick("TeachersList", "Mum");
    Front("LoginWindow");
    CaptionIs("Sparkit Dutygrid Username and Password");
    Shows("UserName", "Mum");
    Shoot("password");
    Type("Password", "Secret");
    Boxes.Expect("Sorry, incorect password, please try again", QMessageBox::Ok, "password-wrong");
    Click("Ok");
    Shows("Password", "");
    Shows("UserName", "Mum");
    Type("UserName", "");
    Boxes.Expect("Please choose a username from the list, or create a new one", QMessageBox::Ok,
                 "password-no-name");
    Click("Ok");
    Click("Cancel");
    Front("LogIn");
    Lists("TeachersList", {"Mum", "Dad"});

    DoublePick("TeachersList", "Mum");
    Front("LoginWindow");
    Type("Password", "secret");
    Press("Password", Qt::Key_Return);
    Front("MainForm");
    CaptionIs("Sparkit Dutygrid - Hi Mum");
    EXPECT_EQ(CurrentUser, QStringLiteral("Mum"));
    EXPECT_EQ(CurrentState, QStringLiteral("Teacher"));
    ToolbarShows({"New", "Open", "Review", "Print", "Accounts", "Options", "Website", "About",
                  "Help", "Log Off", "Exit"});
    MenuShows("File", {"New Dutygrid", "Open Dutygrid", "Review Dutygrid", "Print Reports",
                       "View Accounts", "Log Off", "Exit"});
    MenuShows("Optinos", {"Background Options", "Sound On", "Other Options"});
    MenuShows("Help", {"Contents", "Website", "About"});
    Shoot("main-window-adult");
    ShowMenu("File", "menu-file-adult");
    ShowMenu("Optinos", "menu-options-adult");
    ShowMenu("Help", "menu-help");
}

void FamilyWeek::MumWritesChores() {
    Toolbar("New");
    Front("Newfrm");
    Shoot("new-chart-name");
    Click("Ok");
    Front("Newfrm"); // no name, no word
    Type("NameOfNewChart", "Chores");
    Press("NameOfNewChart", Qt::Key_Return);
    Front("ChartEditor");
    CaptionIs("Editing Chores chart");
    Shows("EditChartFrame", "Create Sparkit Dutygrid");
    Shows("StartingFrom", "Starting from: Sunday 3/4/2001 to Saturday 3/10/2001");
    Shows("AdultResponsable(0)", "Mum");
    Offers("DayOfWeek(0)", {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat", "Mon-Fri", "Sun-Sat"});
    Offers("Difficulty(0)", {"Very Easy", "Easy", "Medium", "Hard", "Very Hard"});
    CanSee("ResetTime", false);
    CanSee("DeleteChart", false);
    Shoot("editor-new");

    WriteJob(0, {"", "Sun-Sat", "", "Easy", "5"});
    Choose("Instructions(0)", "Make the bed");
    Press("Points(0)", Qt::Key_Return); // adds a row as the button does
    Type("Instructions(1)", "Walk Rex, our dog");
    Choose("DayOfWeek(1)", "Mon-Fri");
    Type("AdultResponsable(1)", "Dad");
    Choose("Difficulty(1)", "Medium");
    Boxes.Expect("That is not a valid number, please enter a number", QMessageBox::Ok,
                 "editor-points-invalid");
    Type("Points(1)", "x");
    Shows("Points(1)", "");
    Type("Points(1)", "10");
    Type("Instructions(1)", "Walk the dog");
    WriteJob(2, {"Sleep until noon", "Sun", "", "Very Easy", "50"});
    WriteJob(3, {"Wash the car", "Sat", "Dad", "Hard", "20"});
    Shoot("editor-four-jobs");
    Click("JobDelete(2)");
    Shows("Instructions(2)", "Wash the car");
    Shows("Number(2)", "3:");

    Pictures.NameNextPrint("print-from-new-editor");
    Click("Print");
    Printed({"Sparkit Dutygrid from 3/4/2001 to 3/10/2001", "Sunday", "1.", "Make the bed",
             "5 Points", "Monday", "1.", "Make the bed", "2.", "Walk the dog", "10 Points",
             "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday", "Wash the car",
             "20 Points"});

    SaveChart({"Anna", "Ben"}, "All charts have been created", "select-sparkits");
    Front("MainForm");
    Tables({"Chores Anna", "Chores Ben", "History Chores Anna from: 3/4/2001",
            "History Chores Ben from: 3/4/2001", "Printed"});
    Stored("SELECT * FROM \"Chores Ben\" WHERE DayOfWeek IN ('Sun', 'Mon', 'Sat')",
           {"Make the bed|Sun|Mum|Easy|5|0|2001-03-04|2001-03-10|Ben|-1",
            "Make the bed|Mon|Mum|Easy|5|0|2001-03-04|2001-03-10|Ben|-1",
            "Make the bed|Sat|Mum|Easy|5|0|2001-03-04|2001-03-10|Ben|-1",
            "Walk the dog|Mon|Dad|Medium|10|0|<null>|<null>|<null>|0",
            "Wash the car|Sat|Dad|Hard|20|0|<null>|<null>|<null>|0"});
    Stored("SELECT count(*), sum(Completed) FROM \"History Chores Ben from: 3/4/2001\"", {"13|0"});
}

void FamilyWeek::MumWritesPiano() {
    BeginChart("Piano lessons");
    Boxes.Expect(ExitUnsaved, QMessageBox::No, "editor-exit-unsaved");
    Click("Close");
    Front("ChartEditor");
    WriteJob(0, {"Practise music", "Mon-Fri", "", "Hard", "10"});
    // The first word of the name and the child's name make the chart's.
    SaveChart({"Anna"}, "Anna's Sparkit Dutygrid has been created", "select-anna");
    Front("MainForm");
    Stored("SELECT DayOfWeek, FirstDate, UserName FROM \"Piano Anna\"",
           {"Mon|2001-03-04|Anna", "Tue|2001-03-04|Anna", "Wed|2001-03-04|Anna",
            "Thu|2001-03-04|Anna", "Fri|2001-03-04|Anna"});
    FileHasLines("Jobs/HomeJobs.dat",
                 {"Load the dishwasher", "Wash the car", "Walk the dog", "Make the bed"});
}

void FamilyWeek::DadWritesGarden() {
    AdultLogsIn("Dad", "hush");
    Front("MainForm");
    CaptionIs("Sparkit Dutygrid - Hi Dad");
    BeginChart("Garden");
    WriteJob(0, {"Rake the leaves", "Sat", "", "Very Hard", "15"});
    WriteJob(1, {"Water the plants", "Wed", "Mum", "Very Easy", "3"});
    Shows("AdultResponsable(0)", "Dad");
    Click("AutoCreatechk");
    SaveChart({"Ben"}, "Ben's Sparkit Dutygrid has been created");
    Stored("SELECT DayOfWeek, AutoCreate FROM \"Garden Ben\"", {"Sat|0", "Wed|0"});

    // A name in use: the message comes until the name behind it has been changed.
    Toolbar("New");
    Front("Newfrm");
    Type("NameOfNewChart", "Garden Ben");
    const Text tryAnother = "Please try another name, this one already exists.";
    Boxes.Expect(tryAnother, QMessageBox::Ok, "new-chart-name-in-use");
    Boxes.Expect(tryAnother, QMessageBox::Ok, {},
                 [this] { TypeBehindBox("NameOfNewChart", "Holiday"); });
    Click("Ok");
    Front("Newfrm");
    Shows("NameOfNewChart", "Holiday");
    Click("Cancel");
    Front("MainForm");
}

void FamilyWeek::DadSetsOptions() {
    Menu("Optinos", "OtherOp");
    Front("OtherOptions");
    CaptionIs("Sparkit Dutygrid Account Options");
    IsChosen("Option1", true);
    Shoot("other-options");
    Click("Option2");
    Click("Ok");
    Front("MainForm");
    FileHolds("Settings/Settings.txt", {" 1 ", "", " 14409673 ", " 0 ", " 1 "});

    Toolbar("Options");
    Front("BackgroundOptions");
    CaptionIs("Set Background Color/Picture");
    Shoot("background-options");
    const qint32 softGreen = 0xd5eed8;
    DesktopCalls.ColorAnswers += softGreen;
    Click("SetColorbtn");
    CanSee("Picture1", true);
    Shoot("background-options-color");
    const QString camping = InFolder("IncentivesPictures/Camping.png");
    DesktopCalls.FileAnswers += camping;
    Click("BrowseButton");
    CanSee("Picture1", false);
    ShowsPicture("Image1", true);
    Shoot("background-options-picture");
    Click("Ok");
    Front("MainForm");
    Shoot("main-window-with-picture");
    FileHolds("Settings/Settings.txt",
              {" 1 ", camping, QStringLiteral(" %1 ").arg(softGreen), " 0 ", " 1 "});

    // A colour alone takes the picture away; Cancel leaves everything.
    Menu("Optinos", "BackOptions");
    Front("BackgroundOptions");
    DesktopCalls.ColorAnswers += softGreen;
    Click("SetColorbtn");
    Click("Ok");
    Menu("Optinos", "BackOptions");
    Front("BackgroundOptions");
    Click("Cancel");
    Front("MainForm");
    FileHolds("Settings/Settings.txt",
              {" 1 ", "", QStringLiteral(" %1 ").arg(softGreen), " 0 ", " 1 "});

    // Back to what came with the program, also from a picture just chosen.
    Menu("Optinos", "BackOptions");
    Front("BackgroundOptions");
    DesktopCalls.FileAnswers += camping;
    Click("BrowseButton");
    ShowsPicture("Image1", true);
    Click("Deliveredbtn");
    ShowsPicture("Image1", false);
    CanSee("Picture1", true);
    Shoot("background-options-delivered");
    Click("Ok");
    Front("MainForm");
    Shoot("main-window-delivered");
    const Text delivered = QStringLiteral(" %1 ").arg(BackgroundArea::DeliveredColor);
    FileHolds("Settings/Settings.txt", {" 1 ", "", delivered, " 0 ", " 1 "});

    Menu("Optinos", "SoundOnOff");
    FileHolds("Settings/Settings.txt", {" 1 ", "", delivered, " 0 ", " 0 "});
}

void FamilyWeek::DadLooksAround() {
    Menu("Help", "About");
    Front("frmAboutDutygrid");
    CaptionIs("About Sparkit Dutygrid");
    Shows("Label3", "Sparkit Dutygrid 1.0");
    Shows("Label8", "Larkfen Press");
    Shoot("about");
    const QString maximised = QLatin1String("open ") + ProductWebPage + QLatin1String(" 3");
    for (const Text& way : QList<Text>{"cmdContact", "cmdWeb", "Label7", "Label8"}) {
        DesktopCalls.Opened.clear();
        Click(way);
        EXPECT_EQ(DesktopCalls.Opened, QStringList(maximised)) << way.toStdString();
    }
    Click("cmdExit");
    Front("MainForm");

    DesktopCalls.Opened.clear();
    Toolbar("Website");
    Menu("Help", "WebSite");
    const QString asItIs = QLatin1String("open ") + ProductWebPage + QLatin1String(" 0");
    EXPECT_EQ(DesktopCalls.Opened, QStringList({asItIs, asItIs}));
    DesktopCalls.Helped.clear();
    Toolbar("Help");
    Shortcut(Qt::Key_F1);
    EXPECT_EQ(DesktopCalls.Helped.size(), 2);

    PromiseAnnaABike();
}

void FamilyWeek::PromiseAnnaABike() {
    OpenAccounts();
    Lists("StudentsList", {"Anna", "Ben"});
    NobodyIsSelected();
    Pick("StudentsList", "Anna");
    Figures("Anna", "0", "", "500", "500");
    Promise("Bike", "60", "Bike.gif", "incentive");
    Stored("SELECT IncentiveName, IncentiveCost FROM USERS WHERE Name = 'Anna'", {"Bike|60"});
    Pick("StudentsList", "Anna");
    Figures("Anna", "0", "Bike", "60", "60");
    Shoot("accounts");
    Click("Okbtn");
    Front("MainForm");
}
