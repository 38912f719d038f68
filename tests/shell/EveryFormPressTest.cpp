#include "accounts/DisplayAccount.h"
#include "reports/Reportfrm.h"
#include "shell/ChangePasswordfrm.h"
#include "shell/NewUser.h"
#include "shell/frmAboutDutygrid.h"
#include "tests/common/Charts.h"
#include "tests/common/RealInput.h"
#include "tests/shell/ShellTest.h"

#include <QAbstractItemView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QToolBar>

namespace {

using namespace Qt::StringLiterals;

/// What is told of a control at the moment at which a press reaches it.
class PressWatch : public QObject {
public:
    PressWatch(QWidget& watched, std::function<QString()> tell) : tell_(std::move(tell)) {
        watched.installEventFilter(this);
    }

    QStringList Told;

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::MouseButtonPress)
            Told += tell_();
        return false;
    }

private:
    std::function<QString()> tell_;
};

/// A form that does work at its activation: something is spoilt that the work puts right, and a
/// press on a control must find it put right.
struct PressedForm {
    const char* name;
    const char* control;
    const char* user;
    const char* state;
    std::function<void()> prepare;
    std::function<void(QWidget&)> spoil;
    std::function<QString(const QWidget&)> tell;
    const char* expected;
};

void PrintTo(const PressedForm& form, std::ostream* out) {
    *out << form.name;
}

template <class Control>
Control& In(const QWidget& form, const char* name) {
    auto* control = form.findChild<Control*>(QString::fromLatin1(name));
    if (control == nullptr)
        throw std::runtime_error(std::string("no control ") + name);
    return *control;
}

PressedForm ListForm(const char* name, const char* list, const char* user, const char* state,
                     const char* entries) {
    const auto entriesOf = [list](const QWidget& form) {
        const auto* model = In<QAbstractItemView>(form, list).model();
        QStringList texts;
        for (int row = 0; row < model->rowCount(); ++row)
            texts += model->index(row, 0).data().toString();
        return texts.join(u',');
    };
    const auto empty = [list](const QWidget& form) {
        QAbstractItemModel& model = *In<QAbstractItemView>(form, list).model();
        model.removeRows(0, model.rowCount());
    };
    return {name, list, user, state, [] {}, empty, entriesOf, entries};
}

const PressedForm Forms[] = {
    ListForm("LogIn", "StudentsList", "", "", "Anna,Ben"),
    {"LoginWindow", "Password", "", "", [] { Default<LoginWindow>().LoginName = u"Mum"_s; },
     [](QWidget& form) { In<QLineEdit>(form, "UserName").setText(u"x"_s); },
     [](const QWidget& form) { return In<QLineEdit>(form, "UserName").text(); }, "Mum"},
    {"NewUser", "UserName", "", "", [] {},
     [](QWidget& form) { In<QRadioButton>(form, "StudentOp").setText(u"x"_s); },
     [](const QWidget& form) { return In<QRadioButton>(form, "StudentOp").text(); }, "Sparkit"},
    {"ChangePasswordfrm", "OldPAss", "", "",
     [] { Default<ChangePasswordfrm>().AccountName = u"Mum"_s; },
     [](QWidget& form) { In<QLabel>(form, "Heading").setText(u"x"_s); },
     [](const QWidget& form) { return In<QLabel>(form, "Heading").text(); }, "Mum"},
    {"Newfrm", "NameOfNewChart", "Mum", "Teacher", [] {},
     [](QWidget& form) { In<QLineEdit>(form, "NameOfNewChart").setText(u"x"_s); },
     [](const QWidget& form) { return In<QLineEdit>(form, "NameOfNewChart").text(); }, ""},
    ListForm("Openfrm", "ChartList", "Mum", "Teacher", "Chores Anna"),
    ListForm("OpenFillfrm", "ChartList", "Anna", "Student", "Chores Anna"),
    {"DeleteChartForm", "Label1", "Mum", "Teacher", [] {},
     [](QWidget& form) {
         // Its own focus, as it is kept for when it is in front again.
         In<QPushButton>(form, "Yes").setFocus();
         Default<frmAboutDutygrid>().SetFocus();
     },
     [](const QWidget& form) {
         return form.focusWidget() == nullptr ? QString() : form.focusWidget()->objectName();
     },
     "No"},
    {"ResetDate", "NextWeek", "Mum", "Teacher", [] {},
     [](QWidget& form) { In<QRadioButton>(form, "NextWeek").setChecked(true); },
     [](const QWidget& form) {
         return In<QRadioButton>(form, "ThisWeek").isChecked() ? u"this"_s : u"next"_s;
     },
     "this"},
    ListForm("Reportfrm", "StudentsList", "Mum", "Teacher", "Anna,Ben"),
    {"DateRangefrm", "Command1", "Mum", "Teacher", [] {},
     [](QWidget&) { Default<Reportfrm>().DatesChosen = true; },
     [](const QWidget&) { return Default<Reportfrm>().DatesChosen ? u"chosen"_s : u"open"_s; },
     "open"},
    ListForm("DisplayAccount", "StudentsList", "Mum", "Teacher", "Anna,Ben"),
    {"OtherOptions", "Option1", "Mum", "Teacher", [] { SeeOtherAccounts = 1; },
     [](QWidget& form) { In<QRadioButton>(form, "Option1").setChecked(true); },
     [](const QWidget& form) {
         return In<QRadioButton>(form, "Option2").isChecked() ? u"see"_s : u"hide"_s;
     },
     "see"},
};

class EveryFormPressTest : public ShellTest,
                           public testing::WithParamInterface<std::tuple<PressedForm, RealPress>> {
protected:
    EveryFormPressTest() {
        MakeAccount(u"Mum"_s, u"m"_s, u"Teacher"_s);
        MakeAccount(u"Anna"_s, u"a"_s, u"Student"_s);
        MakeAccount(u"Ben"_s, u"b"_s, u"Student"_s);
        MakePlainChart(u"Chores Anna"_s, {{u"Cook"_s, u"Wed"_s}});
    }

    /// Another form in front, beside the one that will be pressed.
    static void PutInFront(Form& other, const QPoint& place) {
        // A window manager takes the place of a window that is not shown yet at its word; a form
        // within the main window gets its frame only then.
        if (other.FormPlace() == Form::Place::TopLevel)
            other.Widget().move(place);
        other.Show();
        if (other.FormPlace() == Form::Place::InMainWindow)
            other.Frame().move(place);
        Settle();
    }

    RealInput hand_;
};

TEST_P(EveryFormPressTest, HasDoneItsWorkWhenAPressReachesIt) {
    const auto& [pressed, press] = GetParam();
    const bool isWithin = *pressed.user != '\0';
    if (isWithin)
        StartSession(QString::fromLatin1(pressed.user), QString::fromLatin1(pressed.state));
    pressed.prepare();
    Form& form = DefaultForm(QString::fromLatin1(pressed.name));
    PutInFront(form, {4, 4});
    if (isWithin)
        PutInFront(Default<frmAboutDutygrid>(), {900, 300});
    else if (dynamic_cast<NewUser*>(&form) != nullptr)
        PutInFront(Default<LogIn>(), {600, 40});
    else
        PutInFront(Default<NewUser>(), {800, 40});
    pressed.spoil(form.Widget());

    auto& control = In<QWidget>(form.Widget(), pressed.control);
    auto* list = qobject_cast<QAbstractItemView*>(&control);
    QWidget& target = list != nullptr ? *list->viewport() : control;
    PressWatch watch(target, [&] { return pressed.tell(form.Widget()); });
    hand_.ClickAt(target, list != nullptr ? QPoint(40, 40) : target.rect().center(), press);
    EXPECT_EQ(watch.Told, QStringList{QString::fromLatin1(pressed.expected)});
}

std::string NameOfCase(const testing::TestParamInfo<std::tuple<PressedForm, RealPress>>& tested) {
    const auto& [pressed, press] = tested.param;
    return pressed.name + std::to_string(press.heldMs) + (press.isBusy ? "WhileBusy" : "");
}

INSTANTIATE_TEST_SUITE_P(RealInput, EveryFormPressTest,
                         testing::Combine(testing::ValuesIn(Forms),
                                          testing::Values(RealInput::Short, RealInput::Long,
                                                          RealInput::LongWhileBusy)),
                         NameOfCase);

class PressFromBehindTest : public ShellTest, public testing::WithParamInterface<RealPress> {
protected:
    PressFromBehindTest() {
        MakeAccount(u"Mum"_s, u"m"_s, u"Teacher"_s);
        MakeAccount(u"Anna"_s, u"a"_s, u"Student"_s);
        MakeAccount(u"Ben"_s, u"b"_s, u"Student"_s);
    }

    void PressRow(QAbstractItemView& list, int row) {
        hand_.ClickAt(*list.viewport(), list.visualRect(list.model()->index(row, 0)).center(),
                      GetParam());
        Settle();
    }

    RealInput hand_;
};

TEST_P(PressFromBehindTest, AChildChosenInTheLogInBehindNewUserIsLoggedIn) {
    LogIn& logIn = ShowLogIn();
    auto& newUser = Default<NewUser>();
    logIn.move(4, 40);
    newUser.move(900, 40);
    newUser.Show();
    WaitForActive(newUser);
    PressRow(Students(), 1);
    EXPECT_EQ(Students().SelectedName(), u"Ben"_s);
    Click(Find(logIn, u"LogInbtn"_s));
    EXPECT_EQ(PasswordForm().LoginName, u"Ben"_s);
}

TEST_P(PressFromBehindTest, AChildChosenInTheAccountViewBehindTheIncentiveEditorShowsItsName) {
    StartSession(u"Mum"_s, u"Teacher"_s);
    auto& view = Default<DisplayAccount>();
    view.Show();
    Settle();
    view.Move(0, 0);
    auto& list = Find<QAbstractItemView>(view, u"StudentsList"_s);
    ClickRow(list, 0);
    Click(Find(view, u"Incentivesbtn"_s));
    Form& editor = DefaultForm(u"AddIncentives"_s);
    editor.Move(15 * 800, 15 * 60);
    Settle();
    PressRow(list, 1);
    EXPECT_EQ(Find<QLabel>(view, u"KidName"_s).text(), u"Ben"_s);
    EXPECT_EQ(Find<QLabel>(view, u"Pointslbl"_s).text(), u"0"_s);
}

TEST_P(PressFromBehindTest, AButtonOfTheMainWindowBehindActsAfterTheWindowHasItsRights) {
    StartSession(u"Mum"_s, u"Teacher"_s);
    auto& newUser = Default<NewUser>();
    newUser.move(600, 400);
    newUser.Show();
    WaitForActive(newUser);
    QAction& menuEntry = MainWindow().MenuEntry(QLatin1String("NewChart"));
    menuEntry.setVisible(false);
    QWidget& button = *Find<QToolBar>(MainWindow(), u"KidToolbar"_s)
                           .widgetForAction(&MainWindow().ToolbarButton(QLatin1String("New")));
    PressWatch watch(button, [&] { return menuEntry.isVisible() ? u"rights"_s : u"none"_s; });
    hand_.Click(button, GetParam());
    Settle();
    EXPECT_EQ(watch.Told, QStringList{u"rights"_s});
    EXPECT_TRUE(IsShown(u"Newfrm"_s));
}

INSTANTIATE_TEST_SUITE_P(RealInput, PressFromBehindTest,
                         testing::Values(RealInput::Short, RealInput::Long,
                                         RealInput::ShortWhileBusy, RealInput::LongWhileBusy));

} // namespace
