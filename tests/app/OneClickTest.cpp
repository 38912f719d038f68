#include "authoring/ChartEditor.h"
#include "store/TableNames.h"
#include "tests/common/Charts.h"
#include "tests/common/FormTest.h"

#include <QAbstractItemView>
#include <QPushButton>
#include <QTest>

namespace {

class OneClickTest;

/// A press that takes something away while another row, or another form, was chosen before.
struct OneClick {
    const char* Name;
    void (*Hand)(OneClickTest&);
    /// What goes, and what comes in its place: beginnings of a table's name and a row of it. All of
    /// what goes or comes begins so.
    QStringList Goes{};
    QStringList Comes{};
};

void PrintTo(const OneClick& click, std::ostream* out) {
    *out << click.Name;
}

/// The adult Mum is logged in. Anna and Ben have 50 points, a goal of 20 and charts.
class OneClickTest : public FormTest, public testing::WithParamInterface<OneClick> {
public:
    /// The next question is answered with yes.
    void Yes(const QString& question) { Boxes.Expect(question, PromptAnswer::Yes); }

    /// A press on a row, 0 the first, of a list; on the empty part below them for -1.
    static void On(const QString& form, const QString& list, int row,
                   Qt::MouseButton button = Qt::LeftButton) {
        auto& view = Find<QAbstractItemView>(Shown(form), list);
        const QPoint below(20, view.viewport()->height() - 4);
        const QPoint place =
            row < 0 ? below : view.visualRect(view.model()->index(row, 0)).center();
        EXPECT_EQ(view.indexAt(place).row(), row);
        QTest::mouseClick(view.viewport(), button, {}, place);
        Settle();
    }
    static void Push(const QString& form, const QString& button) {
        Click(Find<QPushButton>(Shown(form), button));
    }
    /// An editor on a chart by its place in the list of charts.
    static ChartEditor& Editor(int row) {
        On(Openfrm, QStringLiteral("ChartList"), row);
        Push(Openfrm, QStringLiteral("Ok"));
        return dynamic_cast<ChartEditor&>(*ChartEditors.Peek(ChartFormIndex - 1));
    }
    static void PushIn(ChartEditor& editor, QPushButton& button) {
        editor.SetFocus();
        Settle();
        Click(button);
    }

    static inline const QString DeleteAccount =
        QStringLiteral("Are you sure you want to delete this account?");
    static inline const QString DeleteChart =
        QStringLiteral("Are you sure you want to delete this chart?");
    static inline const QString DeleteEntireChart =
        QStringLiteral("Are you sure you want to delete the entire chart?");
    static inline const QString ExitWithoutSaving =
        QStringLiteral("Are you sure you want to exit without saving?");
    static inline const QString CashOut = QStringLiteral("Are you sure you want to cash out?");
    static inline const QString Reset = QStringLiteral("Are you sure you want to reset?");

    static inline const QString Accounts = QStringLiteral("DisplayAccount");
    static inline const QString Children = QStringLiteral("StudentsList");
    static inline const QString Report = QStringLiteral("Reportfrm");
    static inline const QString Openfrm = QStringLiteral("Openfrm");
    static inline const QString Confirm = QStringLiteral("DeleteChartForm");

protected:
    OneClickTest() {
        MakeAccount(QStringLiteral("Mum"), QStringLiteral("m"), QStringLiteral("Teacher"));
        for (const QString& child : {QStringLiteral("Anna"), QStringLiteral("Ben")}) {
            MakeAccount(child, QStringLiteral("a"), QStringLiteral("Student"));
            Arrange([&] {
                Database().AddPoints(child, 50, false);
                Database().AddToy(child, QStringLiteral("Bike"), PictureFile(), 20);
            });
            for (const QString& word : {QStringLiteral("Chores "), QStringLiteral("Piano ")})
                Arrange([&] { StoreChart(word + child, {Job()}, child); });
            MakeChartTable(QStringLiteral("History Chores %1 from: 3/4/2001").arg(child),
                           {{QStringLiteral("Dust")}}, child);
        }
        StartSession(QStringLiteral("Mum"), QStringLiteral("Teacher"));
    }

    static EditorRow Job() {
        return {QStringLiteral("Practise"), QStringLiteral("Mon"), QStringLiteral("Mum"),
                QStringLiteral("Easy"), QStringLiteral("3")};
    }

    /// All rows of all tables.
    static QStringList Everything() {
        QStringList all;
        for (const QString& table : TableNames(true))
            for (const QString& row : Rows(table))
                all += table + QLatin1Char('|') + row;
        return all;
    }
    static QStringList Without(QStringList some, const QStringList& others) {
        for (const QString& other : others)
            some.removeAll(other);
        return some;
    }
    /// Each begins with one of these, and with each of these one begins.
    static void ExpectBeginnings(const QStringList& some, const QStringList& beginnings) {
        QStringList met;
        for (const QString& one : some) {
            QStringList fitting = beginnings;
            fitting.removeIf([&](const QString& beginning) { return !one.startsWith(beginning); });
            EXPECT_EQ(fitting.size(), 1) << one.toStdString();
            met += fitting;
        }
        for (const QString& beginning : beginnings)
            EXPECT_TRUE(met.contains(beginning)) << beginning.toStdString();
    }

private:
    static QWidget& Shown(const QString& form) {
        Form& shown = DefaultForm(form);
        if (!shown.Widget().isVisible()) {
            shown.Show();
            Settle();
        }
        return shown.Widget();
    }
};

using Presses = OneClickTest;

const OneClick OneClicks[] = {
    {"AccountUnderTheRightButton",
     [](Presses& t) {
         Presses::On(Presses::Accounts, Presses::Children, 0);
         t.Yes(Presses::DeleteAccount);
         Presses::On(Presses::Accounts, Presses::Children, 1, Qt::RightButton);
     },
     {QStringLiteral("USERS|Ben|"), QStringLiteral("Chores Ben|"), QStringLiteral("Piano Ben|"),
      QStringLiteral("History Chores Ben ")}},
    {"RightButtonBelowTheAccounts",
     [](Presses& t) {
         Presses::On(Presses::Accounts, Presses::Children, 0);
         t.Yes(Presses::DeleteAccount);
         Presses::On(Presses::Accounts, Presses::Children, -1, Qt::RightButton);
     }},
    {"CashOutOfTheChildChosenLast",
     [](Presses& t) {
         Presses::On(Presses::Accounts, Presses::Children, 0);
         Presses::On(Presses::Accounts, Presses::Children, 1);
         t.Yes(Presses::CashOut);
         Presses::Push(Presses::Accounts, QStringLiteral("Command1"));
     },
     {QStringLiteral("USERS|Ben|")},
     {QStringLiteral("USERS|Ben|a|30|")}},
    {"CashOutOfNobody",
     [](Presses& t) {
         Presses::On(Presses::Accounts, Presses::Children, 0);
         Presses::On(Presses::Accounts, Presses::Children, -1);
         t.Yes(Presses::CashOut);
         Presses::Push(Presses::Accounts, QStringLiteral("Command1"));
     }},
    {"ResetOfTheChildChosenLast",
     [](Presses& t) {
         Presses::On(Presses::Accounts, Presses::Children, 1);
         Presses::On(Presses::Accounts, Presses::Children, 0);
         t.Yes(Presses::Reset);
         Presses::Push(Presses::Accounts, QStringLiteral("cmdReset"));
     },
     {QStringLiteral("USERS|Anna|")},
     {QStringLiteral("USERS|Anna|a|0|")}},
    {"ResetOfNobody",
     [](Presses& t) {
         Presses::On(Presses::Accounts, Presses::Children, 0);
         Presses::On(Presses::Accounts, Presses::Children, -1);
         t.Yes(Presses::Reset);
         Presses::Push(Presses::Accounts, QStringLiteral("cmdReset"));
     }},
    {"ResetAfterADeletion",
     [](Presses& t) {
         Presses::On(Presses::Accounts, Presses::Children, 1);
         t.Yes(Presses::DeleteAccount);
         Presses::On(Presses::Accounts, Presses::Children, 0, Qt::RightButton);
         t.Yes(Presses::Reset);
         Presses::Push(Presses::Accounts, QStringLiteral("cmdReset"));
     },
     {QStringLiteral("USERS|Anna|"), QStringLiteral("Chores Anna|"), QStringLiteral("Piano Anna|"),
      QStringLiteral("History Chores Anna ")}},
    {"ChartUnderTheRightButtonInTheReports",
     [](Presses& t) {
         Presses::On(Presses::Report, Presses::Children, 0);
         Presses::On(Presses::Report, QStringLiteral("ListView1"), 0);
         t.Yes(Presses::DeleteChart);
         Presses::On(Presses::Report, QStringLiteral("ListView1"), 1, Qt::RightButton);
     },
     {QStringLiteral("Piano Anna|")}},
    {"RightButtonBelowTheChartsInTheReports",
     [](Presses& t) {
         Presses::On(Presses::Report, Presses::Children, 0);
         Presses::On(Presses::Report, QStringLiteral("ListView1"), 0);
         t.Yes(Presses::DeleteChart);
         Presses::On(Presses::Report, QStringLiteral("ListView1"), -1, Qt::RightButton);
     }},
    {"RightButtonOnHistoryAndOnAChildInTheReports",
     [](Presses&) {
         Presses::On(Presses::Report, Presses::Children, 0);
         Presses::On(Presses::Report, QStringLiteral("ListView1"), 0);
         Presses::On(Presses::Report, QStringLiteral("ListView2"), 0, Qt::RightButton);
         Presses::On(Presses::Report, Presses::Children, 1, Qt::RightButton);
     }},
    {"RightButtonInTheListOfChartsToOpen",
     [](Presses&) {
         Presses::On(Presses::Openfrm, QStringLiteral("ChartList"), 0);
         Presses::On(Presses::Openfrm, QStringLiteral("ChartList"), 1, Qt::RightButton);
     }},
    {"ChartOfTheEditorWhoseButtonItIs",
     [](Presses&) {
         ChartEditor& first = Presses::Editor(0);
         Presses::Editor(1);
         Presses::PushIn(first, first.DeleteChart());
         Presses::Push(Presses::Confirm, QStringLiteral("Yes"));
     },
     {QStringLiteral("Chores Anna|")}},
    {"ChartOfTheEditorThatAskedLast",
     [](Presses&) {
         ChartEditor& first = Presses::Editor(0);
         ChartEditor& second = Presses::Editor(1);
         Presses::PushIn(first, first.DeleteChart());
         Presses::PushIn(second, second.DeleteChart());
         Presses::Push(Presses::Confirm, QStringLiteral("Yes"));
     },
     {QStringLiteral("Chores Ben|")}},
    {"ChartOfTheOnlyJob",
     [](Presses& t) {
         ChartEditor& first = Presses::Editor(2);
         Presses::Editor(3);
         t.Yes(Presses::DeleteEntireChart);
         t.Yes(Presses::ExitWithoutSaving);
         Presses::PushIn(first, first.JobDelete[0]);
     },
     {QStringLiteral("Piano Anna|")}},
};

INSTANTIATE_TEST_SUITE_P(Hands, OneClickTest, testing::ValuesIn(OneClicks),
                         [](const auto& click) { return std::string(click.param.Name); });

} // namespace

TEST_P(OneClickTest, TakesAwayWhatItWasOnAndNothingElse) {
    const QStringList before = Everything();
    GetParam().Hand(*this);
    for (const Prompt& box : Boxes.Shown())
        EXPECT_EQ(box.BeginsOnNo, box.Buttons == PromptButtons::YesNo) << box.Text.toStdString();
    const QStringList after = Everything();
    ExpectBeginnings(Without(before, after), GetParam().Goes);
    ExpectBeginnings(Without(after, before), GetParam().Comes);
}
