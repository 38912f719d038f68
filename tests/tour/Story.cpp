#include "tests/tour/Story.h"

#include "tests/common/Readable.h"

#include <QTest>

namespace {

Text Element(const Text& array, int index) {
    return QStringLiteral("%1(%2)").arg(array).arg(index);
}

} // namespace

void Story::NewAccount(const Account& account, const Text& picture) {
    Front("LogIn");
    Click("NewUserbtn");
    Front("NewUser");
    IsChosen("StudentOp", true);
    Type("UserName", account.Name);
    Type("Password", account.Password);
    if (account.Adult)
        Click("TeacherOp");
    BrowseForPicture("UsersPictures", account.Picture);
    if (!picture.isEmpty())
        Shoot(picture);
    Click("Ok");
    Front("LogIn");
    Stored("SELECT Name, Password, Points, State, IncentiveName, IncentiveCost FROM USERS "
           "LIMIT 1 OFFSET (SELECT count(*) - 1 FROM USERS)",
           {QStringLiteral("%1|%2|0|%3|<null>|%4")
                .arg(account.Name, account.Password,
                     account.Adult ? QStringLiteral("Teacher") : QStringLiteral("Student"),
                     account.Adult ? QStringLiteral("<null>") : QStringLiteral("500"))});
}

void Story::BrowseForPicture(const Text& folder, const Text& file) {
    const Text path = InFolder(folder);
    DesktopCalls.FileAnswers += path + "/" + file;
    DesktopCalls.FileFolders.clear();
    Click("Command1");
    EXPECT_EQ(DesktopCalls.FileFolders, QStringList(path));
    ShowsPicture("Image1", true);
}

void Story::LogIn(const Text& list, const Text& name, const Text& password) {
    Front("LogIn");
    Pick(list, name);
    ShowsPicture("Image1", true);
    Click("LogInbtn");
    Front("LoginWindow");
    Shows("UserName", name);
    Type("Password", password);
    Click("Ok");
    MainWindowComes();
    IsGone("LoginWindow");
    IsGone("LogIn");
}

void Story::AdultLogsIn(const Text& name, const Text& password) {
    LogIn("TeachersList", name, password);
}

void Story::ChildLogsIn(const Text& name, const Text& password) {
    LogIn("StudentsList", name, password);
}

void Story::LogOff() {
    Toolbar("LogOff");
    Front("LogIn");
    IsGone("MainForm");
}

void Story::BeginChart(const Text& name) {
    Toolbar("New");
    Front("Newfrm");
    Shows("NameOfNewChart", "");
    Type("NameOfNewChart", name);
    Click("Ok");
    Front("ChartEditor");
    CaptionIs("Editing " + name + " chart");
    CanSee("ResetTime", false);
    CanSee("DeleteChart", false);
    IsChosen("AutoCreatechk", true);
}

void Story::WriteJob(int row, const Job& job) {
    if (row > 0)
        Click("NewTask");
    Shows(Element("Number", row), QStringLiteral("%1:").arg(row + 1));
    Type(Element("Instructions", row), job.Instructions);
    if (!job.Day.isEmpty())
        Choose(Element("DayOfWeek", row), job.Day);
    if (!job.Adult.isEmpty())
        Type(Element("AdultResponsable", row), job.Adult);
    if (!job.Difficulty.isEmpty())
        Choose(Element("Difficulty", row), job.Difficulty);
    Type(Element("Points", row), job.Points);
}

void Story::SaveChart(const QList<Text>& children, const Text& message, const Text& picture,
                      const Text& print) {
    Click("CreateChart");
    Front("DisplayAllPeople");
    Qt::KeyboardModifiers keys;
    for (const Text& child : children) {
        Pick("ListView1", child, keys);
        keys = Qt::ControlModifier;
    }
    IsChosen("PrintThem", false);
    if (!print.isEmpty()) {
        Click("PrintThem");
        Pictures.NameNextPrint(print);
    }
    if (!picture.isEmpty())
        Shoot(picture);
    if (!message.isEmpty())
        Boxes.Expect(message, QMessageBox::Ok, picture.isEmpty() ? picture : picture + "-done");
    Click("Ok");
    IsGone("DisplayAllPeople");
}

void Story::OpenForEditing(const Text& chart) {
    Toolbar("Open");
    Front("Openfrm");
    Pick("ChartList", chart);
    Click("Ok");
    Front("ChartEditor");
    CaptionIs("Sparkit Dutygrid Editor");
    CanSee("ResetTime", true);
    CanSee("DeleteChart", true);
}

void Story::OpenForFilling(const Text& chart) {
    Toolbar("OpenKid");
    Front("OpenFillfrm");
    Pick("ChartList", chart);
    Click("Ok");
    Front("ChartViewer");
}

/// Nothing is ticked on a page that has only just been turned.
void Story::ClickMark(const Text& mark) {
    constexpr int timeToSee = 210; // milliseconds
    QTest::qWait(timeToSee);
    Click(mark);
}

void Story::Tick(int row) {
    ClickMark(Element("ClearImg", row));
    IsDone(row, true);
}

void Story::Untick(int row) {
    ClickMark(Element("CheckImg", row));
    IsDone(row, false);
}

void Story::IsDone(int row, bool done, Here here) {
    CanSee(Element("CheckImg", row), done, here);
    CanSee(Element("ClearImg", row), !done, here);
}

void Story::Page(const Text& day, const Text& points, const Text& needed, Here here) {
    Shows("DayLbl", day, here);
    Shows("Label3", points, here);
    Shows("Label5", needed, here);
}

void Story::ExpectGoal(const Text& picture) {
    Boxes.Expect("Your goal has been reached, check with your parent to receive your reward.",
                 QMessageBox::Ok, picture);
}
