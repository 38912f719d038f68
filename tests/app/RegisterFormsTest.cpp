#include "app/RegisterForms.h"

#include "authoring/ChartEditor.h"
#include "authoring/DropDownCombo.h"
#include "filling/ChartViewer.h"
#include "filling/MarkImage.h"
#include "filling/RowText.h"
#include "help/HelpWindow.h"
#include "platform/forms/MainWindowArea.h"
#include "session/FormNames.h"
#include "session/Session.h"
#include "tests/common/FormTest.h"
#include "widgets/LinkLabel.h"

#include <QAccessible>
#include <QMdiArea>
#include <utility>

namespace {

/// All forms, under the names by which other rooms open them.
class RegisterFormsTest : public FormTest, public testing::WithParamInterface<QLatin1String> {};

TEST_P(RegisterFormsTest, ANameMakesAFormOfItsOwnClass) {
    MakeAccount(QStringLiteral("Mum"), QStringLiteral("m"), QStringLiteral("Teacher"));
    StartSession(QStringLiteral("Mum"), QStringLiteral("Teacher"));
    const QWidget& form = DefaultForm(GetParam()).Widget();
    EXPECT_EQ(QLatin1String(form.metaObject()->className()), GetParam());
    EXPECT_EQ(&DefaultForm(GetParam()).Widget(), &form);
}

INSTANTIATE_TEST_SUITE_P(Forms, RegisterFormsTest,
                         testing::Values(FormNames::BackgroundOptions, FormNames::ChangePasswordfrm,
                                         FormNames::LogIn, FormNames::LoginWindow,
                                         FormNames::MainForm, FormNames::NewUser,
                                         FormNames::OtherOptions, FormNames::frmAboutDutygrid,
                                         FormNames::AddIncentives, FormNames::DisplayAccount,
                                         FormNames::DeleteChartForm, FormNames::DisplayAllPeople,
                                         FormNames::Newfrm, FormNames::Openfrm,
                                         FormNames::ResetDate, FormNames::ChartViewer,
                                         FormNames::OpenFillfrm, FormNames::DateRangefrm,
                                         FormNames::Reportfrm, FormNames::WeekChartRepresentation),
                         [](const auto& shown) { return std::string(shown.param.latin1()); });

class RegisteredMakersTest : public FormTest {};

TEST_F(RegisteredMakersTest, AFormOfTheMainWindowBringsItAlong) {
    StartSession(QStringLiteral("Mum"), QStringLiteral("Teacher"));
    DropDefaultForms();
    ASSERT_EQ(MainWindowArea(), nullptr);
    Form& about = DefaultForm(FormNames::frmAboutDutygrid);
    about.Show();
    ASSERT_NE(MainWindowArea(), nullptr);
    EXPECT_EQ(MainWindowArea()->window(), &DefaultForm(FormNames::MainForm).Widget());
    EXPECT_EQ(about.Widget().window(), MainWindowArea()->window());
}

TEST_F(RegisteredMakersTest, SlotsAreFilledWithFormsOfTheirClass) {
    ChartEditors.RedimPreserve(0);
    ChartViewers.RedimPreserve(0);
    auto* editor = dynamic_cast<ChartEditor*>(&ChartEditors.At(0));
    auto* viewer = dynamic_cast<ChartViewer*>(&ChartViewers.At(0));
    ASSERT_NE(editor, nullptr);
    ASSERT_NE(viewer, nullptr);
    ASSERT_TRUE(WeeklyReview);
    EXPECT_EQ(dynamic_cast<QWidget*>(&WeeklyReview()),
              &DefaultForm(FormNames::WeekChartRepresentation).Widget());
    editor->Abandon();
    viewer->Abandon();
    ChartEditors.Clear();
    ChartViewers.Clear();
}

TEST_F(RegisteredMakersTest, ScreenReadersAreToldWhatControlsOfOurOwnAre) {
    QWidget form;
    LinkLabel link(&form);
    DropDownCombo combo(&form);
    MarkImage mark(true, 0, &form);
    RowText row(&form);
    HelpWindow help;
    const std::pair<QWidget*, QAccessible::Role> roles[] = {{&link, QAccessible::Link},
                                                            {&combo, QAccessible::ComboBox},
                                                            {&mark, QAccessible::CheckBox},
                                                            {&row, QAccessible::ListItem},
                                                            {&help, QAccessible::Window}};
    for (const auto& [control, role] : roles) {
        QAccessibleInterface* access = QAccessible::queryAccessibleInterface(control);
        ASSERT_NE(access, nullptr) << control->metaObject()->className();
        EXPECT_EQ(access->role(), role) << control->metaObject()->className();
    }
}

TEST_F(RegisteredMakersTest, TheEditorThatIsInNoSlotHasNoChartToLoad) {
    EXPECT_ERROR(3078, DefaultForm(FormNames::ChartEditor));
}

} // namespace
