#include "platform/runtime/Actions.h"
#include "platform/runtime/Dates.h"
#include "platform/tables/Damage.h"
#include "session/Session.h"
#include "tests/common/Rounds.h"
#include "tests/faults/Damages.h"
#include "tests/faults/FaultWorld.h"
#include "tests/faults/Household.h"
#include "tests/faults/Snapshot.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <QDir>
#include <QElapsedTimer>
#include <iostream>

namespace {

/// Milliseconds that no operation on a damaged file may take.
constexpr qint64 Longest = 5'000;

class RandomDamageTest : public FaultTest {
protected:
    RandomDamageTest() {
        QDir(Folder()).mkpath(QStringLiteral("Pictures"));
        for (int picture = 0; picture < 3; ++picture)
            WriteBytes(Pictures() + QStringLiteral("/picture%1").arg(picture),
                       QByteArray(3'000 + 2'000 * picture, char('p' + picture)));
    }

    QString Pictures() const { return Folder() + QStringLiteral("/Pictures"); }

    /// A family has used the program for a while. The file as it was then, and a little before.
    void Fill() {
        Database().InitDatabse();
        Household family(3, Pictures());
        int number = 1;
        for (; number < 90; ++number)
            family.Do(number);
        former_ = BytesOf(File());
        for (; number < 95; ++number)
            family.Do(number);
        ASSERT_EQ(Boxes.Errors(), QStringList());
        ResetSession();
        whole_ = BytesOf(File());
        ASSERT_NE(whole_, former_);
        content_ = ContentOf();
        ASSERT_FALSE(content_.isEmpty());
        ASSERT_EQ(FindDamage(File()), QStringList());
    }

    /// All that stands in the file, read by plain statements, or nothing if it cannot be read.
    QByteArray ContentOf() const {
        try {
            const QByteArray all = SnapshotOf(File());
            // What the engine says of its own structure is for FindDamage to see.
            return all.mid(all.indexOf("\ntable ") + 1);
        } catch (const SQLite::Exception&) {
            return {};
        }
    }

    template <class Work>
    void InTime(const char* what, Work&& work) {
        QElapsedTimer timer;
        timer.start();
        work();
        slowest_ = std::max(slowest_, timer.elapsed());
        EXPECT_LT(timer.elapsed(), Longest) << what;
    }

    /// What the program does in a day, on whatever stands there. It may say that it cannot.
    void Use(int round) {
        InTime("opening", [] { RunAction([] { Database().InitDatabse(); }); });
        QStringList charts;
        InTime("filling the lists", [&] {
            RunAction([] {
                FakeList teachers;
                FakeList students;
                Database().PopulateUserList(&teachers, students);
            });
            RunAction([&] {
                FakeList list;
                Database().PopulateChartList(list, false);
                charts = list.items;
            });
        });
        InTime("opening each chart", [&] {
            for (const QString& chart : std::as_const(charts))
                RunAction([&] {
                    FakeViewer viewer;
                    ChartViewers.RedimPreserve(0);
                    Database().ReadInfoFromChart(chart, 0, true, DayAbbreviation(1 + round % 7));
                });
        });
        InTime("ticks, saves, the next day", [&] {
            Household family(static_cast<quint32>(round), Pictures());
            for (int number = 150; number < 156; ++number)
                family.Do(number);
        });
        ResetSession();
        Boxes.Shown.clear();
    }

    QByteArray whole_;
    QByteArray former_;
    QByteArray content_;
    qint64 slowest_ = 0;
};

} // namespace

TEST_F(RandomDamageTest, NoDamageChangesWhatIsReadWithoutBeingFoundAndNoneCrashesOrHolds) {
    ASSERT_NO_FATAL_FAILURE(Fill());
    const int rounds = Rounds(150, 20'000);
    Damages damages(Seed(), whole_, former_);
    int unread = 0;
    int changed = 0;
    int same = 0;
    int sameFound = 0;
    int onlyBySums = 0;
    for (int round = 0; round < rounds && !HasFailure(); ++round) {
        const QByteArray bytes = damages.Next();
        WriteBytes(File(), bytes);
        QStringList found;
        InTime("looking for damage", [&] { found = FindDamage(File()); });
        QFile::remove(File() + QStringLiteral("-journal"));
        WriteBytes(File(), bytes);
        QByteArray content;
        InTime("reading", [&] { content = ContentOf(); });
        if (content == content_) {
            ++same;
            sameFound += !found.isEmpty();
        } else {
            ++(content.isEmpty() ? unread : changed);
            EXPECT_NE(found, QStringList())
                << "round " << round << ": " << FirstDifference(content_, content).constData();
            onlyBySums += found.size() > 0 &&
                          found.join(QString()).contains(QLatin1String("stored")) &&
                          !found.join(QString()).contains(QLatin1String("The file"));
        }
        WriteBytes(File(), bytes);
        Use(round);
    }
    if (HasFailure())
        return;
    std::cout << rounds << " damages: " << unread << " files cannot be read, " << changed
              << " read otherwise, all found, " << onlyBySums << " of them by the sums alone; "
              << same << " read as before, " << sameFound
              << " of these found damaged; the longest operation took " << slowest_ << " ms"
              << std::endl;
    EXPECT_GT(onlyBySums, rounds / 50);
    EXPECT_GT(same, 0);
}
