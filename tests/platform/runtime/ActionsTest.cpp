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

TEST_F(ActionsTest, WhatCannotBeCommittedBeforeAnotherActionIsReportedAndTheOtherRunsInFull) {
    commitsToFail = 1;
    ExpectReport(3000, "disk full");
    QTimer::singleShot(0, qApp, [this] { RunAction([this] { Write("event"); }); });
    RunAction([this] {
        Write("a");
        DoEvents();
        // Its second half is not written without the first.
        EXPECT_ERROR(3000, RefuseAfterFault(FaultAt::Writing));
    });
    EXPECT_EQ(log, Steps({"a", "commit", "commit", "event", "commit"}));
    RunAction([this] { Write("b"); });
    EXPECT_EQ(log.mid(5), Steps({"b", "commit"}));
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

class ActionFaultsTest : public ActionsTest {
protected:
    /// What the database does at a fault.
    [[noreturn]] static void Fail(const char* words = "disk full", FaultAt at = FaultAt::Writing) {
        const RuntimeError fault(ErrorNumber::EngineFault, QString::fromUtf8(words));
        NoteFault(fault, at);
        throw RuntimeError(fault);
    }
    /// A write to the database.
    void Store(const char* what) {
        RefuseAfterFault(FaultAt::Writing);
        Write(what);
    }
};

TEST_F(ActionFaultsTest, AfterASkippedFaultNothingIsWrittenNorSaidToBeDoneAndTheUserIsToldOnce) {
    ExpectReport(3000, "disk full");
    RunAction([this] {
        WithErrorsSkipped([] { Fail(); });
        WithErrorsSkipped([this] { Store("a"); });
        // Nobody hears of a later one: it follows from the first.
        WithErrorsSkipped([] { Fail("disk gone"); });
        EXPECT_ERROR(3000, RefuseAfterFault(FaultAt::Reading));
        Tell(QStringLiteral("Saved."));
        Write("b");
    });
    EXPECT_EQ(log, Steps({"commit"})) << "the box's own";
    RunAction([this] { Store("next"); });
    EXPECT_EQ(log.mid(1), Steps({"next", "commit"}));
}

TEST_F(ActionFaultsTest, AFaultThatEndsNothingIsToldAtTheEndOfTheAction) {
    ExpectReport(3000, "disk full");
    RunAction([this] {
        WithErrorsSkipped([] { Fail(); });
        Write("a");
    });
    EXPECT_EQ(log, Steps({"a", "commit"}));
}

TEST_F(ActionFaultsTest, ASkippedBoxDoesNotTakeTheFaultAway) {
    ExpectReport(3000, "disk full");
    RunAction([this] {
        WithErrorsSkipped([] { Fail(); });
        WithErrorsSkipped([] { Tell(QStringLiteral("Saved.")); });
        WithErrorsSkipped([this] { Store("second half"); });
    });
    EXPECT_EQ(log, Steps({"commit"}));
    // The same where the box's commit is what fails.
    commitsToFail = 1;
    ExpectReport(3000, "disk full");
    RunAction([this] {
        WithErrorsSkipped([] { Tell(QStringLiteral("Saved.")); });
        WithErrorsSkipped([this] { Store("second half"); });
    });
    EXPECT_EQ(log.mid(1), Steps({"commit", "commit"}));
}

TEST_F(ActionFaultsTest, AnotherErrorAtTheEdgeIsToldTogetherWithTheFault) {
    Boxes.Expect(QStringLiteral("Run-time error '91':\n\nObject variable or With block variable "
                                "not set\n\nRun-time error '3000':\n\ndisk full"));
    RunAction([] {
        WithErrorsSkipped([] { Fail(); });
        throw RuntimeError(ErrorNumber::ObjectVariableNotSet);
    });
}

TEST_F(ActionFaultsTest, AFaultToldByANestedHandlerUndoesTheWholeActionAndIsNotToldAgain) {
    ExpectReport(3000, "disk full");
    RunAction([this] {
        RunAction([] { Fail(); });
        Store("outer");
    });
    EXPECT_EQ(log, Steps({"commit"})) << "the box's own";
    // Another error is.
    ExpectReport(3000, "disk full");
    ExpectReport(6, "Overflow");
    RunAction([] {
        RunAction([] { Fail(); });
        throw RuntimeError(ErrorNumber::Overflow);
    });
}

TEST_F(ActionFaultsTest, AFaultInReadingToldByANestedHandlerIsNotToldAgainWhenTheActionWrites) {
    ExpectReport(3000, "unreadable");
    RunAction([this] {
        RunAction([] { Fail("unreadable", FaultAt::Reading); });
        Store("outer");
    });
    EXPECT_EQ(log, Steps({"commit"})) << "the box's own";
}

TEST_F(ActionFaultsTest, AnActionDuringTheBoxThatTellsOfAFaultIsNotAffected) {
    Boxes.Expect(QStringLiteral("Run-time error '3000':\n\ndisk full"), PromptAnswer::Ok,
                 [this] { RunAction([this] { Store("other"); }); });
    RunAction([] { Fail(); });
    EXPECT_EQ(log, Steps({"commit", "other", "commit"}));
}

TEST_F(ActionFaultsTest, TheFaultOfAnActionThatYieldsIsToldBeforeTheOtherOneAndDoesNotReachIt) {
    ExpectReport(3000, "disk full");
    QTimer::singleShot(0, qApp, [this] { RunAction([this] { Store("event"); }); });
    RunAction([this] {
        WithErrorsSkipped([] { Fail(); });
        DoEvents();
        WithErrorsSkipped([this] { Store("second half"); });
    });
    EXPECT_EQ(log, Steps({"commit", "event", "commit"}));
}

TEST_F(ActionFaultsTest, AFaultIsToldBeforeTheProcessEnds) {
    ExpectReport(3000, "disk full");
    RunAction([] {
        WithErrorsSkipped([] { Fail(); });
        EndProcess();
    });
    EXPECT_EQ(log, Steps({"commit", "end 0"}));
}

TEST_F(ActionFaultsTest, AFaultInReadingIsSkippedUnlessTheActionThenWrites) {
    RunAction([this] {
        WithErrorsSkipped([] { Fail("unreadable", FaultAt::Reading); });
        RefuseAfterFault(FaultAt::Reading);
        Write("shown");
    });
    EXPECT_EQ(log, Steps({"shown", "commit"}));
    ExpectReport(3000, "unreadable");
    RunAction([this] {
        WithErrorsSkipped([] { Fail("unreadable", FaultAt::Reading); });
        WithErrorsSkipped([this] { Store("written"); });
    });
    EXPECT_EQ(log.mid(2), Steps({"commit"})) << "the box's own";
}

TEST_F(ActionFaultsTest, OutsideOfActionsAFaultIsNobodys) {
    EXPECT_ERROR(3000, Fail());
    RefuseAfterFault(FaultAt::Writing);
    RunAction([this] { Store("a"); });
    EXPECT_EQ(log, Steps({"a", "commit"}));
}

TEST_F(ActionFaultsTest, WhatWaitsForTheCommitRunsOnceBehindItAndBeforeABoxStands) {
    Boxes.Expect(QStringLiteral("Well done"), PromptAnswer::Ok, [this] { Write("box"); });
    RunAction([this] {
        AfterCommit([this] { Write("sound"); });
        Write("a");
        Tell(QStringLiteral("Well done"));
        AfterCommit([this] { Write("second sound"); });
        Write("b");
    });
    EXPECT_EQ(log, Steps({"a", "commit", "sound", "box", "b", "commit", "second sound"}));
    log.clear();
    AfterCommit([this] { Write("at once"); });
    EXPECT_EQ(log, Steps({"at once"}));
}

TEST_F(ActionFaultsTest, WhatIsUndoneIsPutBackBeforeTheUserIsToldAndIsNotHeard) {
    Boxes.Expect(QStringLiteral("Run-time error '3000':\n\ndisk full"), PromptAnswer::Ok,
                 [this] { Write("told"); });
    commitsToFail = 1;
    RunAction([this] {
        AfterCommit([this] { Write("sound"); });
        IfUndone([this] { Write("put back"); });
        Write("a");
    });
    EXPECT_EQ(log, Steps({"a", "commit", "put back", "commit", "told"}));
    RunAction([this] { IfUndone([this] { Write("put back"); }); });
    EXPECT_EQ(log.mid(5), Steps({"commit"}));
    // The same where it could not even be read what to write.
    ExpectReport(3000, "unreadable");
    RunAction([this] {
        IfUndone([this] { Write("put back"); });
        Fail("unreadable", FaultAt::Reading);
    });
    EXPECT_EQ(log.mid(6), Steps({"put back", "commit"}));
}

TEST_F(ActionFaultsTest, WhereMemoryHasRunOutTheWholeActionIsUndoneAndTheNextOneIsNot) {
    ExpectReport(7, "Out of memory");
    RunAction([this] {
        IfUndone([this] { Write("put back"); });
        Write("a");
        throw std::bad_alloc();
    });
    // By then there is nothing left to commit.
    EXPECT_EQ(log, Steps({"a", "put back", "commit"}));
    RunAction([this] { Write("b"); });
    EXPECT_EQ(log.mid(3), Steps({"b", "commit"}));
}

TEST_F(ActionFaultsTest, AnExceptionThatNobodyForesawUndoesTheWholeActionTheOuterOneToo) {
    ExpectReport(3000, "out of luck");
    RunAction([this] {
        IfUndone([this] { Write("put back"); });
        RunAction([] { throw std::runtime_error("out of luck"); });
    });
    EXPECT_EQ(log, Steps({"put back", "commit"}));
}

} // namespace
