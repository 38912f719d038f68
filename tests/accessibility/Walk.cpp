#include "tests/accessibility/Rules.h"

#include <QCoreApplication>
#include <algorithm>
#include <cstdio>
#include <exception>
#include <gtest/gtest.h>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

namespace {

const char NameChanges[] = "object:property-change:accessible-name";
const char Checked[] = "object:state-changed:checked";
const char Focusing[] = "object:state-changed:focused";
const char Selected[] = "object:state-changed:selected";
const char Showing[] = "object:state-changed:showing";

/// One program for all tests; each shows its form in a fresh world.
std::unique_ptr<Shown> Program;

std::vector<std::string> FormNames() {
    std::vector<std::string> names{"MessageBox", "QuestionBox"};
    for (const QString& name : Program->Do(QStringLiteral("names")).split(QLatin1Char('|')))
        names.push_back(name.toStdString());
    return names;
}

std::string Lines(const QStringList& broken) {
    return broken.join(QLatin1String("\n  ")).toStdString();
}

void PrintTree(const Controls& controls) {
    for (const Control& control : controls) {
        int depth = 0;
        for (int around = control.Parent; around >= 0; around = controls.at(around).Parent)
            ++depth;
        QStringList states;
        for (const AtspiStateType state :
             {ATSPI_STATE_FOCUSABLE, ATSPI_STATE_FOCUSED, ATSPI_STATE_CHECKED, ATSPI_STATE_SELECTED,
              ATSPI_STATE_EXPANDED, ATSPI_STATE_ENABLED})
            if (control.Is(state)) {
                static GEnumClass* names =
                    static_cast<GEnumClass*>(g_type_class_ref(ATSPI_TYPE_STATE_TYPE));
                states += QString::fromUtf8(g_enum_get_value(names, state)->value_nick);
            }
        std::cout << std::string(static_cast<std::size_t>(2 * depth), ' ')
                  << control.Said().toStdString() << " ["
                  << states.join(QLatin1Char(' ')).toStdString() << "] "
                  << Reader::DescriptionOf(control).toStdString() << '\n';
    }
}

class FormWalk : public testing::TestWithParam<std::string> {};

TEST_P(FormWalk, EverybodyCanUseIt) {
    const QString form = QString::fromStdString(GetParam());
    Program->Show(form);
    const Controls controls = Program->Read();
    ASSERT_FALSE(controls.isEmpty()) << "no window of that title can be seen";
    if (qEnvironmentVariableIsSet("DUTYGRID_READ_ALOUD"))
        PrintTree(controls);
    QStringList broken = BrokenNames(controls) + BrokenBuddies(controls);
    broken += BrokenTabs(*Program, controls);
    broken += BrokenKeys(*Program, controls);
    EXPECT_TRUE(broken.isEmpty()) << GetParam() << ":\n  " << Lines(broken);
}

std::string TestName(const testing::TestParamInfo<std::string>& info) {
    std::string name = info.param;
    std::replace(name.begin(), name.end(), ' ', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Forms, FormWalk, testing::ValuesIn(FormNames()), TestName);

/// Goes by Tab to the control with that role and name.
Control GoTo(AtspiRole role, const QString& name) {
    const Control control = GoTo(*Program, role, name);
    EXPECT_TRUE(control.Ref) << "Tab does not lead to " << name.toStdString();
    return control;
}

TEST(Announcements, TickedJobAndItsPointsAreSaid) {
    Program->Show(QStringLiteral("ChartViewer"));
    const QString job = QStringLiteral("Job 1: Feed the cat");
    EXPECT_FALSE(GoTo(ATSPI_ROLE_CHECK_BOX, job).Is(ATSPI_STATE_CHECKED));
    Listener marks(Checked);
    Listener names(NameChanges);
    Program->Press(QStringLiteral("Space"));
    EXPECT_TRUE(marks.Heard(job, 1));
    EXPECT_TRUE(names.Heard(QStringLiteral("14"))) << "the account's points";
    EXPECT_TRUE(names.Heard(QStringLiteral("26"))) << "the points needed";
    Program->Press(QStringLiteral("Space"));
    EXPECT_TRUE(marks.Heard(job, 0));
    EXPECT_TRUE(names.Heard(QStringLiteral("12"))) << "the account's points";
}

TEST(Announcements, TurnedPageSaysItsDay) {
    Program->Show(QStringLiteral("ChartViewer"));
    GoTo(ATSPI_ROLE_PUSH_BUTTON, QStringLiteral("Next day"));
    Listener names(NameChanges);
    Program->Press(QStringLiteral("Space"));
    EXPECT_TRUE(names.Heard(QStringLiteral("Thursday 3/8/2001"))) << Lines(names.Names());
}

TEST(Announcements, NewsOfAPrintAreReadOut) {
    const QString news = QStringLiteral("Kept in Printouts: Anna - Chores - 2001-03-04.pdf");
    Listener shown(Showing);
    Program->Show(QStringLiteral("MainForm after a print"));
    EXPECT_TRUE(shown.Heard(news, 1)) << Lines(shown.Names());
    const Controls controls = Program->Read();
    EXPECT_TRUE(std::any_of(controls.begin(), controls.end(), [&](const Control& control) {
        return control.Role == ATSPI_ROLE_NOTIFICATION && control.Name == news;
    }));
    // Those that take the place of others as well.
    Program->Do(QStringLiteral("print Brother HL"));
    EXPECT_TRUE(shown.Heard(QStringLiteral("Printed on Brother HL"), 1)) << Lines(shown.Names());
}

TEST(Announcements, PicturesAreSaidByNameAndPlaceAsTheKeyboardComesToThem) {
    Program->Show(QStringLiteral("PictureDialog"));
    Controls pictures;
    for (const Control& control : Program->Read())
        if (control.Role == ATSPI_ROLE_LIST_ITEM && control.Name.contains(QLatin1Char('.')))
            pictures += control;
    ASSERT_GT(pictures.size(), 3);
    const int count = Reader::NumberOf(pictures.first()).second;
    Listener focus(Focusing);
    for (int number = 1; number <= 3; ++number) {
        Program->Press(QStringLiteral("Right"));
        const Control& picture = pictures.at(number);
        EXPECT_TRUE(focus.Heard(picture.Name, 1)) << Lines(focus.Names());
        EXPECT_TRUE(Reader::HasKeyboard(picture));
        EXPECT_EQ(Reader::NumberOf(picture), std::pair(number, count));
    }
    // All pictures of the folder, also those that are out of sight.
    EXPECT_EQ(count, Program->Do(QStringLiteral("pictures")).toInt());
}

TEST(Announcements, RowChosenInTheViewerIsSelectedAndSaysItsAdult) {
    Program->Show(QStringLiteral("ChartViewer"));
    const Control row = GoTo(ATSPI_ROLE_LIST_ITEM, QStringLiteral("Job 2: Make the bed"));
    EXPECT_EQ(Reader::DescriptionOf(row).section(QLatin1Char('.'), 0, 0),
              QStringLiteral("Medium, 3 points"));
    Listener selection(Selected);
    Program->Press(QStringLiteral("Space"));
    EXPECT_TRUE(selection.Heard(row.Name, 1)) << Lines(selection.Names());
    EXPECT_TRUE(Reader::Again(row).Is(ATSPI_STATE_SELECTED));
    const Controls controls = Program->Read();
    EXPECT_TRUE(std::any_of(controls.begin(), controls.end(), [](const Control& control) {
        return control.Role == ATSPI_ROLE_LABEL && control.Name == QLatin1String("Dad");
    }));
}

TEST(Keys, ArrowsGoFromMarkToMark) {
    Program->Show(QStringLiteral("ChartViewer"));
    GoTo(ATSPI_ROLE_CHECK_BOX, QStringLiteral("Job 1: Feed the cat"));
    Program->Press(QStringLiteral("Down"));
    EXPECT_EQ(Focused(Program->Read()).Name, QStringLiteral("Job 2: Make the bed"));
    EXPECT_EQ(Focused(Program->Read()).Role, ATSPI_ROLE_CHECK_BOX);
    Program->Press(QStringLiteral("Up"));
    EXPECT_EQ(Focused(Program->Read()).Name, QStringLiteral("Job 1: Feed the cat"));
}

TEST(Keys, DeleteAndTheMenuKeyAskWhatTheRightButtonAsks) {
    const QString account = QStringLiteral("Are you sure you want to delete this account?");
    for (const char* key : {"Del", "Menu"}) {
        Program->Show(QStringLiteral("DisplayAccount"));
        Program->Press(QString::fromLatin1(key));
        EXPECT_EQ(Program->Told(), QStringList(account)) << key;
    }
}

TEST(Keys, MenusOpenByF10AndTheirEntriesHaveNames) {
    Program->Show(QStringLiteral("MainForm"));
    Program->Press(QStringLiteral("F10"));
    const Controls controls = Program->ReadAll();
    int entries = 0;
    for (const Control& control : controls)
        if (control.Role == ATSPI_ROLE_MENU_ITEM && !control.Name.isEmpty() &&
            control.Parent >= 0 && controls.at(control.Parent).Role == ATSPI_ROLE_POPUP_MENU)
            ++entries;
    if (entries < 4)
        PrintTree(controls);
    EXPECT_GE(entries, 4);
    EXPECT_TRUE(BrokenNames(controls).isEmpty()) << Lines(BrokenNames(controls));
    Program->Press(QStringLiteral("Esc"));
}

TEST(Keys, F6GoesToTheToolbarAndBack) {
    Program->Show(QStringLiteral("Newfrm"));
    const Control box = Focused(Program->Read());
    EXPECT_EQ(box.Role, ATSPI_ROLE_TEXT);
    Program->Press(QStringLiteral("F6"));
    const Control button = Focused(Program->ReadAll());
    EXPECT_EQ(button.Role, ATSPI_ROLE_PUSH_BUTTON);
    EXPECT_EQ(Reader::DescriptionOf(button), QStringLiteral("New Dutygrid"));
    Program->Press(QStringLiteral("F6"));
    EXPECT_TRUE(Focused(Program->Read()).IsSame(box));
}

} // namespace

/// `argv[1]`: path of accessibility_forms.
int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    if (argc < 2) {
        std::fprintf(stderr, "usage: accessibility_walk <path of accessibility_forms>\n");
        return 2;
    }
    // First, since it knows the forms, which are a test each.
    try {
        std::vector<std::unique_ptr<Attention>> listeners;
        for (const char* event : {NameChanges, Checked, Focusing, Selected, Showing})
            listeners.push_back(std::make_unique<Attention>(event));
        Program = std::make_unique<Shown>(QString::fromLocal8Bit(argv[1]));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    testing::InitGoogleTest(&argc, argv);
    const int result = RUN_ALL_TESTS();
    Program.reset();
    return result;
}
