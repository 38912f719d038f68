#include "platform/runtime/Actions.h"

#include "platform/runtime/Prompts.h"
#include "tests/common/RuntimeTest.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>
#include <cstdlib>
#include <stdexcept>

namespace {

class ActionsTest : public RuntimeTest {
protected:
    ActionsTest() {
        SetCommitHook([this] {
            log += QStringLiteral("commit");
            // The engine gives up what it cannot commit, and the next commit has nothing to do.
            if (commitsToFail-- > 0)
                throw RuntimeError(ErrorNumber::EngineFault, QStringLiteral("disk full"));
        });
        SetEndProcess([this](int code) { log += QStringLiteral("end %1").arg(code); });
    }

    void Write(const char* what) { log += QLatin1String(what); }

    /// The report of an error is expected next.
    void ExpectReport(int number, const char* text) {
        Boxes.Expect(
            QStringLiteral("Run-time error '%1':\n\n%2").arg(number).arg(QString::fromUtf8(text)));
    }

    static QStringList Steps(std::initializer_list<const char*> steps) {
        QStringList list;
        for (const char* step : steps)
            list += QLatin1String(step);
        return list;
    }

    QStringList log;
    int commitsToFail = 0;
};

TEST_F(ActionsTest, ActionIsCommittedAtItsEnd) {
    RunAction([this] {
        Write("a");
        Write("b");
    });
    EXPECT_EQ(log, Steps({"a", "b", "commit"}));
}

TEST_F(ActionsTest, NestedHandlersAreCommittedOnceAtTheOutermostEnd) {
    RunAction([this] {
        Write("outer");
        RunAction([this] { RunAction([this] { Write("inner"); }); });
        Write("more");
    });
    EXPECT_EQ(log, Steps({"outer", "inner", "more", "commit"}));
}

TEST_F(ActionsTest, MessageAndQuestionAreShownAfterACommit) {
    Boxes.Expect(QStringLiteral("Saved."), PromptAnswer::Ok, [this] { Write("box"); });
    Boxes.Expect(QStringLiteral("More?"), PromptAnswer::Yes, [this] { Write("question"); });
    RunAction([this] {
        Write("a");
        Tell(QStringLiteral("Saved."));
        Write("b");
        EXPECT_TRUE(Ask(QStringLiteral("More?")));
    });
    EXPECT_EQ(log, Steps({"a", "commit", "box", "b", "commit", "question", "commit"}));
}

TEST_F(ActionsTest, DialogsAreShownAfterACommit) {
    DesktopCalls.FileAnswers = {QStringLiteral("a.png")};
    DesktopCalls.ColorAnswers = {255};
    RunAction([this] {
        Write("a");
        EXPECT_EQ(AskForFile(QStringLiteral("Pictures")), QStringLiteral("a.png"));
        EXPECT_EQ(AskForColor(0), 255);
    });
    EXPECT_EQ(log, Steps({"a", "commit", "commit", "commit"}));
    EXPECT_EQ(DesktopCalls.FileFolders, QStringList(QStringLiteral("Pictures")));
}

TEST_F(ActionsTest, HandlerThatRunsDuringABoxIsAnActionOfItsOwn) {
    Boxes.Expect(QStringLiteral("Wait"), PromptAnswer::Ok,
                 [this] { RunAction([this] { Write("other"); }); });
    RunAction([this] {
        Tell(QStringLiteral("Wait"));
        RunAction([this] { Write("nested"); });
        Write("after");
    });
    EXPECT_EQ(log, Steps({"commit", "other", "commit", "nested", "after", "commit"}));
}

TEST_F(ActionsTest, YieldWithNoOtherActionLeavesTheActionWhole) {
    QTimer::singleShot(0, qApp, [this] { Write("no action"); });
    RunAction([this] {
        Write("a");
        DoEvents();
        Write("b");
    });
    EXPECT_EQ(log, Steps({"a", "no action", "b", "commit"}));
}

TEST_F(ActionsTest, YieldRunsPendingEventsAsActionsAfterACommit) {
    QTimer::singleShot(0, qApp, [this] { RunAction([this] { Write("event"); }); });
    RunAction([this] {
        Write("a");
        DoEvents();
        Write("b");
    });
    EXPECT_EQ(log, Steps({"a", "commit", "event", "commit", "b", "commit"}));
}

TEST_F(ActionsTest, WhatCannotBeCommittedBeforeAnotherActionIsReportedAndBothGoOn) {
    commitsToFail = 1;
    ExpectReport(3000, "disk full");
    QTimer::singleShot(0, qApp, [this] { RunAction([this] { Write("event"); }); });
    RunAction([this] {
        Write("a");
        DoEvents();
        Write("b");
    });
    EXPECT_EQ(log, Steps({"a", "commit", "commit", "event", "commit", "b", "commit"}));
}

TEST_F(ActionsTest, ErrorEndsTheOperationIsReportedAndWhatWasWrittenStands) {
    ExpectReport(6, "Overflow");
    RunAction([this] {
        Write("a");
        throw RuntimeError(ErrorNumber::Overflow);
    });
    EXPECT_EQ(log, Steps({"a", "commit", "commit"}));
    EXPECT_EQ(Boxes.Last().Icon, PromptIcon::Critical);
    RunAction([this] { Write("next"); });
    EXPECT_EQ(log.mid(3), Steps({"next", "commit"}));
}

TEST_F(ActionsTest, ErrorOfANestedHandlerIsReportedThereAndTheOuterOneGoesOn) {
    ExpectReport(53, "File not found");
    RunAction([this] {
        RunAction([] { throw RuntimeError(ErrorNumber::FileNotFound); });
        Write("outer");
    });
    EXPECT_EQ(log, Steps({"commit", "outer", "commit"}));
}

TEST_F(ActionsTest, ForeignExceptionIsReportedAsTheEnginesFault) {
    ExpectReport(3000, "out of luck");
    RunAction([] { throw std::runtime_error("out of luck"); });
}

TEST_F(ActionsTest, FailedCommitIsReportedOnceAndDoesNotLeaveTheAction) {
    commitsToFail = 1;
    ExpectReport(3000, "disk full");
    RunAction([this] { Write("a"); });
    EXPECT_EQ(log, Steps({"a", "commit", "commit"}));
    RunAction([this] { Write("b"); });
    EXPECT_EQ(log.mid(3), Steps({"b", "commit"}));
}

TEST_F(ActionsTest, ErrorWhoseWritesCannotBeKeptEitherIsStillReported) {
    commitsToFail = 1;
    Boxes.Expect(QStringLiteral("Run-time error '6':\n\nOverflow\n\n"
                                "Run-time error '3000':\n\ndisk full"));
    RunAction([this] {
        Write("a");
        throw RuntimeError(ErrorNumber::Overflow);
    });
    // A fault of the disk alone, first in a statement and then in the commit, is named once.
    commitsToFail = 1;
    ExpectReport(3000, "disk full");
    RunAction([] { throw RuntimeError(ErrorNumber::EngineFault, QStringLiteral("disk full")); });
}

TEST_F(ActionsTest, ErrorThatEndsTheRunIsReportedAndThenEndsTheProcess) {
    ExpectReport(53, "File not found");
    RunAction(
        [] { WithErrorsEndingTheRun([] { throw RuntimeError(ErrorNumber::FileNotFound); }); });
    EXPECT_EQ(log, Steps({"commit", "commit", "end 1", "commit"}));
}

TEST_F(ActionsTest, OrdinaryErrorDoesNotEndTheProcess) {
    ExpectReport(13, "Type mismatch");
    RunAction([] { throw RuntimeError(ErrorNumber::TypeMismatch); });
    EXPECT_FALSE(log.contains(QStringLiteral("end 1")));
}

TEST_F(ActionsTest, EndingTheProcessCommitsFirst) {
    RunAction([this] {
        Write("a");
        EndProcess();
    });
    EXPECT_EQ(log, Steps({"a", "commit", "end 0", "commit"}));
}

// In a process of its own: after the end no event loop of a process runs any more.
TEST_F(ActionsTest, EndingTheProcessLeavesAllEventLoops) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto leave = [] {
        SetEndProcess({});
        QEventLoop outer;
        int innerCode = 0;
        QTimer::singleShot(0, &outer, [&innerCode] {
            QEventLoop inner;
            QTimer::singleShot(0, &inner, [] { RunAction([] { EndProcess(3); }); });
            innerCode = inner.exec();
        });
        const int outerCode = outer.exec();
        std::_Exit(10 * innerCode + outerCode);
    };
    EXPECT_EXIT(leave(), testing::ExitedWithCode(33), "");
}

TEST_F(ActionsTest, SkippedErrorsLetTheNextStatementRun) {
    WithErrorsSkipped([this] {
        Write("a");
        throw RuntimeError(ErrorNumber::FileNotFound);
    });
    Write("b");
    EXPECT_EQ(log, Steps({"a", "b"}));
}

} // namespace
