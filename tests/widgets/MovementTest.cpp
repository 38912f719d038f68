#include "widgets/Movement.h"
#include "tests/common/TestRun.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTest>
#include <QTimerEvent>
#include <gtest/gtest.h>

namespace {

/// Something that moves, and counts its pictures.
class Mover : public QObject {
public:
    Movement Move;
    int Own = 0;
    int Others = 0;

protected:
    void timerEvent(QTimerEvent* event) override { ++(Move.Takes(*event) ? Own : Others); }
};

TEST(MovementTest, WhatDoesNotMoveIsAtTheEnd) {
    const Movement movement;
    EXPECT_FALSE(movement.IsRunning());
    EXPECT_EQ(movement.Progress(), 1);
}

TEST(MovementTest, ItBeginsAtTheBeginningEachTime) {
    Mover mover;
    constexpr int hour = 3600 * 1000;
    mover.Move.Start(mover, 1);
    QElapsedTimer time;
    for (time.start(); time.elapsed() < 3;)
        ;
    EXPECT_EQ(mover.Move.Progress(), 1) << "no further than the end";
    mover.Move.Start(mover, hour);
    EXPECT_TRUE(mover.Move.IsRunning());
    EXPECT_GE(mover.Move.Progress(), 0);
    EXPECT_LT(mover.Move.Progress(), 0.1);
    mover.Move.Stop();
    EXPECT_FALSE(mover.Move.IsRunning());
    EXPECT_EQ(mover.Move.Progress(), 1);
}

TEST(MovementTest, ItTakesItsOwnTimersEventsAndStopsWithItsTime) {
    Mover mover;
    mover.Move.Start(mover, 50);
    mover.startTimer(1);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !mover.Move.IsRunning(); }, Patience));
    EXPECT_GE(mover.Own, 1);
    EXPECT_GE(mover.Others, 1);
    const int own = mover.Own;
    mover.Others = 0;
    EXPECT_TRUE(QTest::qWaitFor([&] { return mover.Others > 20; }, Patience));
    EXPECT_EQ(mover.Own, own);
}

} // namespace
