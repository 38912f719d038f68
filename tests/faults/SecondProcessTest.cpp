#include "platform/runtime/Actions.h"
#include "tests/faults/ChildProcess.h"
#include "tests/faults/FaultWorld.h"
#include "tests/faults/Household.h"
#include "tests/faults/Snapshot.h"

#include <QElapsedTimer>

namespace {

constexpr int HoldTime = 1'000; ///< milliseconds

} // namespace

/// Another copy of the program writes while this one wants to.
class SecondProcessTest : public FaultTest {
protected:
    SecondProcessTest() {
        Database().InitDatabse();
        RunAction([] {
            Database().AddUser(QStringLiteral("Anna"), QStringLiteral("pw"),
                               QStringLiteral("Student"), QString());
        });
    }

    /// Runs `action` while the other process holds its lock, begun by the statement `begin`.
    template <class Action>
    void RunBeside(const QString& begin, Action&& action) {
        ChildProcess other({HoldCommand, File(), begin, QString::number(HoldTime)});
        ASSERT_TRUE(other.NextReport().has_value());
        QElapsedTimer timer;
        timer.start();
        RunAction(action);
        EXPECT_GE(timer.elapsed(), HoldTime / 2) << "the lock was not in the way";
        EXPECT_EQ(other.WaitForExit(), 0);
        EXPECT_EQ(Boxes.Errors(), QStringList());
        const QByteArray content = SnapshotOf(File());
        EXPECT_TRUE(content.startsWith(SoundFile));
        EXPECT_EQ(content.count("Other copy"), 1) << "what the other copy wrote is lost";
    }
};

TEST_F(SecondProcessTest, PointsAddedWhileAnotherCopyHoldsAWriteLockAreNotLost) {
    RunBeside(QStringLiteral("BEGIN IMMEDIATE"),
              [] { Database().AddPoints(QStringLiteral("Anna"), 12, false); });
    EXPECT_EQ(SnapshotOf(File()).count("text Anna | text pw | number 12 "), 1);
}

TEST_F(SecondProcessTest, AnAccountAddedWhileAnotherCopyLocksTheWholeFileIsNotLost) {
    RunBeside(QStringLiteral("BEGIN EXCLUSIVE"), [] {
        Database().AddUser(QStringLiteral("Ben"), QStringLiteral("pw"), QStringLiteral("Student"),
                           QString());
    });
    EXPECT_EQ(SnapshotOf(File()).count("text Ben | "), 1);
}

TEST_F(SecondProcessTest, AChartSavedWhileAnotherCopyHoldsAWriteLockIsNotLost) {
    Household family(3, QString());
    FakeEditor editor;
    editor.rows = {{QStringLiteral("Sweep"), QStringLiteral("Mon-Fri"), QString(), QString(),
                    QStringLiteral("2")}};
    RunBeside(QStringLiteral("BEGIN IMMEDIATE"), [&] {
        family.SaveChart(QStringLiteral("Garden"), {QStringLiteral("Anna"), QStringLiteral("Ben")},
                         true);
    });
    // Two charts and their history, five days each.
    EXPECT_EQ(SnapshotOf(File()).count("text Sweep | "), 20);
}

TEST_F(SecondProcessTest, TwoCopiesThatBothMakeChartsLoseNone) {
    QTemporaryDir pictures;
    Household::MakePictures(pictures.path());
    ChildProcess other(
        {PlayCommand, Folder(), pictures.path(), QStringLiteral("5"), QStringLiteral("1")});
    ASSERT_TRUE(other.NextReport().has_value());
    constexpr int charts = 60;
    for (int chart = 0; chart < charts; ++chart)
        RunAction([&] {
            // Not among the charts that the other copy deletes: it knows no such kind.
            Database().CreateChart(QStringLiteral("History %1 of this copy").arg(chart));
        });
    std::optional<qint32> done = other.NextReport();
    EXPECT_TRUE(done.has_value()) << "the other copy has failed";
    EXPECT_TRUE(other.Kill());
    EXPECT_EQ(Boxes.Errors(), QStringList());
    const QByteArray content = SnapshotOf(File());
    EXPECT_TRUE(content.startsWith(SoundFile));
    EXPECT_EQ(content.count("of this copy | text "), charts);
}
