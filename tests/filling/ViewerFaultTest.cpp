#include "tests/common/FullDisk.h"
#include "tests/common/ReadLock.h"
#include "tests/common/ShortLockWait.h"
#include "tests/filling/FillingTest.h"

#include <QListWidget>
#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>

namespace {

using S = QStringList;

const QString Chart = QStringLiteral("Chores Anna");

/// A chart of one job of five points on two days, on a disk that refuses to write for a while.
class ViewerFaultTest : public FillingTest {
protected:
    ViewerFaultTest() {
        SetPoints(20);
        MakeChart(Chart, {{QStringLiteral("Cook"), QStringLiteral("Wed")},
                          {QStringLiteral("Sweep"), QStringLiteral("Thu")}});
        viewer_ = &OpenChart(Chart);
    }

    ChartViewer& Viewer() { return *viewer_; }

    /// Does something while there is no room for a write, of which the user is told once.
    template <class Hand>
    void WithoutRoom(Hand&& hand) {
        constexpr qint64 noRoom = 512;
        Boxes.ExpectError(ErrorNumber::EngineFault, QStringLiteral("disk I/O error"));
        const FullDisk full(noRoom);
        hand();
        Boxes.VerifyAllShown();
    }

    void ExpectState(bool isTicked, const char* points) {
        EXPECT_EQ(Viewer().CheckVisible(0), isTicked);
        EXPECT_EQ(Viewer().CheckImg.Visible(0), isTicked);
        EXPECT_EQ(Viewer().ClearImg.Visible(0), !isTicked);
        EXPECT_EQ(PointsIn(), QLatin1String(points));
        EXPECT_EQ(TextAt(Viewer(), QStringLiteral("Label3")), QLatin1String(points));
    }

private:
    ChartViewer* viewer_ = nullptr;
};

TEST_F(ViewerFaultTest, ATickWhosePointsCannotBeStoredGoesAgainAndTheNextOneCounts) {
    WithoutRoom([this] { Click(Viewer().ClearImg[0]); });
    ExpectState(false, "20");
    EXPECT_EQ(DesktopCalls.Sounds, S{}) << "nothing to be cheerful about";
    Click(Viewer().ClearImg[0]);
    ExpectState(true, "25");
    EXPECT_EQ(DesktopCalls.Sounds, S{MarkSound()});
}

TEST_F(ViewerFaultTest, AnUntickWhosePointsCannotBeStoredLeavesTheMark) {
    Click(Viewer().ClearImg[0]);
    WithoutRoom([this] { Click(Viewer().CheckImg[0]); });
    ExpectState(true, "25");
    Click(Viewer().CheckImg[0]);
    ExpectState(false, "20");
}

TEST_F(ViewerFaultTest, ByKeyboardTheMarkThatReturnsKeepsTheKeyboard) {
    Viewer().ClearImg[0].setFocus();
    WithoutRoom([this] { Press(Viewer().ClearImg[0], Qt::Key_Space); });
    ExpectState(false, "20");
    EXPECT_TRUE(Viewer().ClearImg[0].hasFocus());
    Press(Viewer().ClearImg[0], Qt::Key_Space);
    ExpectState(true, "25");
    WithoutRoom([this] { Press(Viewer().CheckImg[0], Qt::Key_Space); });
    ExpectState(true, "25");
    EXPECT_TRUE(Viewer().CheckImg[0].hasFocus());
}

TEST_F(ViewerFaultTest, ATickWhoseCommitFailsGoesAgainToo) {
    Boxes.ExpectError(ErrorNumber::EngineFault, OtherCopyWrites);
    {
        const ReadLock lock(Path(QStringLiteral("Database/Charts.mdb")));
        Click(Viewer().ClearImg[0]);
    }
    Boxes.VerifyAllShown();
    ExpectState(false, "20");
    EXPECT_EQ(DesktopCalls.Sounds, S{});
    Click(Viewer().ClearImg[0]);
    ExpectState(true, "25");
}

TEST_F(ViewerFaultTest, APageWhoseMarksCannotBeStoredStaysWithThem) {
    Click(Viewer().ClearImg[0]);
    WithoutRoom([this] { Click(Button(Viewer(), QStringLiteral("NextDay"))); });
    EXPECT_EQ(Jobs(Viewer()), S{QStringLiteral("Cook")});
    ExpectState(true, "25");
    EXPECT_EQ(Ticked(Chart), S{});
    Click(Button(Viewer(), QStringLiteral("NextDay")));
    EXPECT_EQ(Jobs(Viewer()), S{QStringLiteral("Sweep")});
    EXPECT_EQ(Ticked(Chart), S{QStringLiteral("Cook|Wed")});
}

TEST_F(ViewerFaultTest, OkWithMarksThatCannotBeStoredKeepsTheFormForAnotherOk) {
    Click(Viewer().ClearImg[0]);
    WithoutRoom([this] { Click(Button(Viewer(), QStringLiteral("Ok"))); });
    ASSERT_EQ(ViewerAt(0), &Viewer());
    EXPECT_TRUE(Viewer().isVisible());
    ExpectState(true, "25");
    EXPECT_EQ(Ticked(Chart), S{});
    Click(Button(Viewer(), QStringLiteral("Ok")));
    EXPECT_EQ(ViewerAt(0), nullptr);
    EXPECT_EQ(Ticked(Chart), S{QStringLiteral("Cook|Wed")});
}

/// Not opened yet.
class UnreadableChartTest : public FillingTest {};

TEST_F(UnreadableChartTest, AChartThatCannotBeReadIsNotOpenedAndKeepsItsTicks) {
    MakeChart(Chart, {{QStringLiteral("Cook"), QStringLiteral("Sun")}});
    Arrange([] {
        FakeViewer viewer;
        Database().ReadInfoFromChart(Chart, 0, true, QStringLiteral("Sun"));
        viewer.rows[0].Completed = true;
        Database().WriteInfoToChart(Chart, 0, true, QString(), {}, {}, false);
    });
    auto& list = Find<QListWidget>(ShowList(), QStringLiteral("ChartList"));
    ClickRow(list, 0);
    SQLite::Database other(Path(QStringLiteral("Database/Charts.mdb")).toStdString(),
                           SQLite::OPEN_READWRITE);
    other.exec("BEGIN EXCLUSIVE");
    const ShortLockWait shortWait;
    bool isTold = false;
    Boxes.Expect(RuntimeError(ErrorNumber::EngineFault, OtherCopyWrites).Report(), PromptAnswer::Ok,
                 [&] {
                     isTold = true;
                     other.exec("COMMIT");
                 });
    Click(Button(Default<OpenFillfrm>(), QStringLiteral("Ok")));
    ASSERT_TRUE(isTold);
    EXPECT_EQ(ViewerAt(0), nullptr);
    EXPECT_EQ(Ticked(Chart), S{QStringLiteral("Cook|Sun")});
    Pick(Chart);
    ASSERT_NE(ViewerAt(0), nullptr);
    EXPECT_EQ(Ticked(Chart), S{QStringLiteral("Cook|Sun")});
}

} // namespace
