#include "tests/faults/BusyFamily.h"

#include "platform/runtime/Actions.h"
#include "platform/runtime/Dates.h"
#include "platform/runtime/ProgramFolder.h"
#include "store/DayTexts.h"
#include "tests/common/MemoryFolder.h"

#include <QFile>

const QStringList BusyFamilyTest::Children{QStringLiteral("Anna"), QStringLiteral("Ben"),
                                           QStringLiteral("Carla")};

BusyFamilyTest::BusyFamilyTest() : folder_(MemoryFolder()) {
    const QString anna = Children.first();
    actions_ = {
        {"SavesOverTickedChartsOfMany", [this] { SaveForAll(); }},
        {"RollsOver",
         [anna] {
             SetToday(QDate(2001, 3, 14));
             CurrentUser = anna;
             FakeList list;
             Database().PopulateChartList(list, true);
         }},
        {"AddsPoints", [anna] { Database().AddPoints(anna, 5, false); }},
        {"StoresTheMarksOfADay", [this] { TickAll(QStringLiteral("Chores Anna")); }},
        {"DeletesAnAccountWithItsCharts", [anna] { Database().DeleteAccount(anna); }},
        {"DeletesAChart", [] { Database().DeleteChart(QStringLiteral("Garden Anna")); }},
        {"SetsAnIncentiveWithAPicture",
         [this, anna] { Database().AddToy(anna, QStringLiteral("Bike"), Picture(1), 120); }},
        {"MakesAnAccount",
         [this] {
             Database().AddUser(QStringLiteral("Dora"), QStringLiteral("pw"),
                                QStringLiteral("Student"), Picture(2));
         }},
        {"ChangesAPassword", [anna] { Database().ChangePassword(anna, QStringLiteral("new")); }},
    };
    MakeEmptyDatabase(folder_.path());
    SetProgramFolder(folder_.path());
    Household::MakePictures(folder_.path());
    Database().InitDatabse();
    for (const QString& child : Children)
        RunAction([&] {
            Database().AddUser(child, QStringLiteral("pw"), QStringLiteral("Student"), Picture(0));
        });
    FillEditor(QStringLiteral("Wash"));
    RunAction([this] { SaveForAll(); });
    RunAction([this] { family_.SaveChart(QStringLiteral("Garden"), Children.mid(0, 1), true); });
    for (const QString& child : Children)
        RunAction([&] { TickAll(QStringLiteral("Chores ") + child); });
    EXPECT_EQ(Boxes.Errors(), QStringList());
    ResetSession();
    start_ = BytesOf(Charts());
    FillEditor(QStringLiteral("Sweep"));
}

BusyFamilyTest::~BusyFamilyTest() {
    ResetSession();
}

QString BusyFamilyTest::Picture(int number) const {
    return folder_.path() + QStringLiteral("/picture%1").arg(number);
}

void BusyFamilyTest::FillEditor(const QString& word) {
    editor_.rows.clear();
    for (int job = 0; job < 4; ++job)
        editor_.rows.append({word + QStringLiteral(" number %1").arg(job),
                             QStringLiteral("Sun-Sat"), QStringLiteral("Mum"),
                             QStringLiteral("Easy"), QStringLiteral("3")});
}

void BusyFamilyTest::SaveForAll() {
    family_.SaveChart(QStringLiteral("Chores"), Children, true);
}

void BusyFamilyTest::TickAll(const QString& chart) {
    ChartViewers.RedimPreserve(0);
    viewer_.rows = {ViewerRow{}};
    Database().ReadInfoFromChart(chart, 0, true, DayAbbreviation(2));
    for (ViewerRow& row : viewer_.rows)
        row.Completed = !row.Completed;
    Database().WriteInfoToChart(chart, 0, true, QString(), QDate(), QDate(), false);
}

void BusyFamilyTest::Start() {
    ResetSession();
    QFile::remove(Charts() + QStringLiteral("-journal"));
    WriteBytes(Charts(), start_);
    Database().InitDatabse();
    Boxes.Shown.clear();
}

void BusyFamilyTest::Act(const char* action) {
    RunAction(actions_.at(action));
}
