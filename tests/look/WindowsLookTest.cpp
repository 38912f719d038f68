#include "accounts/AddIncentives.h"
#include "accounts/DisplayAccount.h"
#include "app/RegisterForms.h"
#include "authoring/ChartEditor.h"
#include "authoring/DeleteChartForm.h"
#include "authoring/DisplayAllPeople.h"
#include "authoring/Newfrm.h"
#include "authoring/Openfrm.h"
#include "authoring/ResetDate.h"
#include "filling/ChartViewer.h"
#include "filling/OpenFillfrm.h"
#include "platform/printing/PrintNews.h"
#include "reports/DateRangefrm.h"
#include "reports/Reportfrm.h"
#include "reports/WeekChartRepresentation.h"
#include "session/Settings.h"
#include "shell/BackgroundOptions.h"
#include "shell/ChangePasswordfrm.h"
#include "shell/LogIn.h"
#include "shell/LoginWindow.h"
#include "shell/MainForm.h"
#include "shell/NewUser.h"
#include "shell/OtherOptions.h"
#include "shell/frmAboutDutygrid.h"
#include "tests/look/LookTest.h"
#include "widgets/HeadedList.h"

#include <QApplication>

namespace {

class WindowsLookTest : public LookTest {
protected:
    static void StartFor(const QString& user, const QString& state) {
        StartSession(user, state);
        Default<MainForm>().SetCaption(u"Sparkit Dutygrid - Hi "_s + user);
    }

    static ChartEditor& OpenEditor(int row) {
        auto& dialog = ShowForm<Openfrm>();
        ClickRow(Find(dialog, u"ChartList"_s), row);
        Click(Find(dialog, u"Ok"_s));
        auto* editor = dynamic_cast<ChartEditor*>(ChartEditors.Peek(ChartFormIndex - 1));
        if (editor == nullptr)
            throw std::runtime_error("no editor");
        return *editor;
    }

    static ChartViewer& OpenViewer(int row) {
        auto& dialog = ShowForm<OpenFillfrm>();
        ClickRow(Find(dialog, u"ChartList"_s), row);
        Click(Find(dialog, u"Ok"_s));
        auto* viewer = dynamic_cast<ChartViewer*>(ChartViewers.Peek(ChartFormIndex - 1));
        if (viewer == nullptr)
            throw std::runtime_error("no viewer");
        return *viewer;
    }
};

TEST_F(WindowsLookTest, LogInWithoutAccounts) {
    Look(ShowForm<LogIn>(), u"LogIn-empty"_s);
}

TEST_F(WindowsLookTest, LogIn) {
    MakeFamily();
    auto& form = ShowForm<::LogIn>();
    ClickRow(Find(form, u"StudentsList"_s), 0);
    Look(form, u"LogIn"_s);
    Click(Find(form, u"LogInbtn"_s));
    Look(Default<LoginWindow>(), u"LoginWindow"_s);
}

TEST_F(WindowsLookTest, MakingAndChangingAccounts) {
    MakeFamily();
    DesktopCalls.FileAnswers = {Path(u"UsersPictures/Owl.png"_s)};
    auto& making = ShowForm<NewUser>();
    Look(making, u"NewUser-empty"_s);
    Click(Find(making, u"Command1"_s));
    Type(Find(making, u"UserName"_s), LongName());
    Look(making, u"NewUser"_s);
    making.Unload();
    auto& changing = Default<ChangePasswordfrm>();
    changing.AccountName = LongName();
    changing.Show();
    Look(changing, u"ChangePasswordfrm"_s);
}

TEST_F(WindowsLookTest, MainWindowOfAnAdultAndOfAChild) {
    MakeFamily();
    StartFor(u"Mum"_s, u"Teacher"_s);
    LookAt(Default<MainForm>().Widget(), u"Main-adult"_s);
    CurrentUser = u"Anna"_s;
    CurrentState = u"Student"_s;
    Default<MainForm>().SetCaption(u"Sparkit Dutygrid - Hi Anna"_s);
    Default<MainForm>().Hide();
    ShowForm<::LogIn>().Hide();
    Default<MainForm>().Show();
    Settle();
    LookAt(Default<MainForm>().Widget(), u"Main-child"_s);
}

TEST_F(WindowsLookTest, MainWindowAfterAPrint) {
    StartFor(u"Mum"_s, u"Teacher"_s);
    auto& form = Default<MainForm>();
    const auto look = [&form](const PrintNews& news, const QString& name) {
        TellPrintNews(news);
        Settle();
        LookAt(form.Widget(), name);
        EXPECT_EQ(Faults(form, Fits::AsItIs).filter(u"Print"_s), QStringList());
    };
    look({.Printer = u"Home_Printer"_s}, u"Main-printed"_s);
    look({.File = Path(u"Printouts/Anna-Katharina - Chores - 2001-03-04.pdf"_s)}, u"Main-kept"_s);
}

TEST_F(WindowsLookTest, SmallDialogs) {
    MakeFamily();
    StartFor(u"Mum"_s, u"Teacher"_s);
    auto& name = ShowForm<Newfrm>();
    Look(name, u"Newfrm"_s);
    name.Hide();
    auto& removing = ShowForm<DeleteChartForm>();
    Look(removing, u"DeleteChartForm"_s);
    removing.Unload();
    auto& options = ShowForm<OtherOptions>();
    Look(options, u"OtherOptions"_s);
    options.Unload();
    auto& background = ShowForm<BackgroundOptions>();
    Look(background, u"BackgroundOptions"_s);
    background.Unload();
    auto& about = ShowForm<frmAboutDutygrid>();
    Look(about, u"frmAboutDutygrid"_s);
    about.Unload();
    auto& date = ShowForm<ResetDate>();
    Look(date, u"ResetDate"_s);
}

TEST_F(WindowsLookTest, ListOfCharts) {
    MakeFamily();
    StartFor(u"Mum"_s, u"Teacher"_s);
    auto& empty = ShowForm<Openfrm>();
    Look(empty, u"Openfrm-empty"_s);
    empty.Unload();
    for (const QString& name :
         {u"Chores Anna"_s, u"Chores Ben"_s, u"Garden "_s + LongName(), u"Homework Maximilian"_s,
          u"Chores Anna-Katharina"_s, u"Kitchen "_s + LongName(), u"Kitchen Ben"_s, u"Pets Anna"_s,
          u"Pets Ben"_s, u"School Anna"_s, u"School Ben"_s})
        MakeChart(name, u"Anna"_s, 1);
    auto& form = ShowForm<Openfrm>();
    ClickRow(Find(form, u"ChartList"_s), 2);
    Look(form, u"Openfrm"_s);
}

TEST_F(WindowsLookTest, ChartEditor) {
    MakeFamily();
    MakeChart(u"Chores Anna"_s, u"Anna"_s, 3);
    MakeChart(u"Long "_s + LongName(), LongName(), 8, LongJob());
    StartFor(u"Mum"_s, u"Teacher"_s);
    ::ChartEditor& editor = OpenEditor(0);
    Look(editor, u"ChartEditor"_s);
    auto& combo = Find<QComboBox>(editor, u"Instructions(1)"_s);
    combo.showPopup();
    Settle();
    LookAt(*QApplication::activePopupWidget(), u"ChartEditor-jobs"_s);
    combo.hidePopup();
    auto& days = Find<QComboBox>(editor, u"DayOfWeek(2)"_s);
    days.showPopup();
    Settle();
    LookAt(*QApplication::activePopupWidget(), u"ChartEditor-days"_s);
    days.hidePopup();
    editor.Hide();
    Look(OpenEditor(1), u"ChartEditor-long"_s);
}

TEST_F(WindowsLookTest, PeopleToSaveFor) {
    MakeFamily();
    StartFor(u"Mum"_s, u"Teacher"_s);
    auto& form = ShowForm<DisplayAllPeople>();
    Look(form, u"DisplayAllPeople"_s);
    ClickRow(Find(form, u"ListView1"_s), 1);
    ClickRow(Find(form, u"ListView1"_s), 3);
    Look(form, u"DisplayAllPeople-selected"_s);
    form.Unload();
    Arrange([] {
        for (int number = 1; number <= 25; ++number)
            Database().AddUser(u"Pupil %1"_s.arg(number), u"x"_s, u"Student"_s,
                               Path(u"UsersPictures/Cat.png"_s));
    });
    Look(ShowForm<DisplayAllPeople>(), u"DisplayAllPeople-class"_s);
}

TEST_F(WindowsLookTest, ChartViewer) {
    MakeFamily();
    MakeChart(u"Chores Anna"_s, u"Anna"_s, 12);
    MakeChart(u"Pets Anna"_s, u"Anna"_s, 1);
    MakeChart(u"Everyday-and-always"_s, u"Anna"_s, 9, LongJob());
    StartFor(u"Anna"_s, u"Student"_s);
    auto& list = ShowForm<OpenFillfrm>();
    Look(list, u"OpenFillfrm"_s);
    list.Unload();
    ::ChartViewer& viewer = OpenViewer(0);
    Click(viewer.ClearImg[0]);
    Click(viewer.ClearImg[2]);
    Look(viewer, u"ChartViewer"_s, Fits::AsItIs);
    Click(viewer.Instructions[1]);
    Look(viewer, u"ChartViewer-highlighted"_s, Fits::AsItIs);
    Click(Find(viewer, u"Ok"_s));
    ::ChartViewer& shortOne = OpenViewer(1);
    Look(shortOne, u"ChartViewer-1row"_s, Fits::AsItIs);
    Click(Find(shortOne, u"Ok"_s));
    Look(OpenViewer(2), u"ChartViewer-long"_s, Fits::AsItIs);
}

TEST_F(WindowsLookTest, ReportsAndReview) {
    MakeFamily();
    MakeChart(u"Chores Anna"_s, u"Anna"_s, 5);
    MakeChart(u"Long "_s + LongName(), LongName(), 12, LongJob());
    StartFor(u"Mum"_s, u"Teacher"_s);
    auto& reports = ShowForm<Reportfrm>();
    Look(reports, u"Reportfrm"_s);
    reports.Unload();
    auto& dates = ShowForm<DateRangefrm>();
    Look(dates, u"DateRangefrm"_s);
    dates.Unload();
    auto& review = ShowForm<WeekChartRepresentation>();
    Look(review, u"WeekChartRepresentation"_s, Fits::AsItIs);
}

TEST_F(WindowsLookTest, Accounts) {
    MakeFamily();
    StartFor(u"Mum"_s, u"Teacher"_s);
    auto& view = ShowForm<DisplayAccount>();
    Look(view, u"DisplayAccount-none"_s);
    auto& students = Find<HeadedList>(view, u"StudentsList"_s);
    students.setCurrentItem(students.topLevelItem(0));
    emit students.Clicks.Clicked();
    Settle();
    Look(view, u"DisplayAccount"_s);
    Click(Find(view, u"Incentivesbtn"_s));
    Look(Default<AddIncentives>(), u"AddIncentives"_s);
}

TEST_F(WindowsLookTest, AccountsForAChildThatSeesTheOthers) {
    MakeFamily();
    StartFor(u"Anna"_s, u"Student"_s);
    SeeOtherAccounts = 1;
    WriteSettings();
    Look(ShowForm<DisplayAccount>(), u"DisplayAccount-others"_s);
}

} // namespace
