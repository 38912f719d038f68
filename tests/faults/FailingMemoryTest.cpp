#include "tests/faults/FailingMemory.h"

#include "platform/runtime/Numbers.h"
#include "tests/common/Rounds.h"
#include "tests/faults/BusyFamily.h"
#include "tests/faults/Snapshot.h"

#include <algorithm>
#include <fcntl.h>
#include <iostream>
#include <new>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

/// What a process whose memory has run out tells of itself.
struct Told {
    bool hasFailed;
    qint64 allocations;
    bool isUndone;
    bool isDone;
    qsizetype errors;
    qsizetype boxes;
    bool isDoneByAnotherPress;
};

/// Memory that a process and its copies share.
class SharedTold {
public:
    SharedTold()
        : told_(static_cast<Told*>(::mmap(nullptr, sizeof(Told), PROT_READ | PROT_WRITE,
                                          MAP_SHARED | MAP_ANONYMOUS, -1, 0))) {
        if (told_ == MAP_FAILED)
            throw std::runtime_error("no shared memory");
    }
    ~SharedTold() { ::munmap(told_, sizeof(Told)); }
    SharedTold(const SharedTold&) = delete;
    SharedTold& operator=(const SharedTold&) = delete;

    Told* operator->() const { return told_; }
    void Forget() const { *told_ = {}; }

private:
    Told* told_;
};

/// Does something as the whole of a process. An exception that leaves it ends the process, as it
/// does where it leaves the toolkit's event loop; what is said of that is nothing new.
template <class Work>
[[noreturn]] void EndAs(Work&& work) noexcept {
    constexpr rlimit noCore{0, 0};
    ::setrlimit(RLIMIT_CORE, &noCore);
    ::dup2(::open("/dev/null", O_WRONLY | O_CLOEXEC), STDERR_FILENO);
    work();
    ::_exit(0);
}

/// Actions of a family whose program finds no memory at one allocation, or from then on.
class FailingMemoryTest : public BusyFamilyTest, public testing::WithParamInterface<const char*> {
protected:
    /// The same in a copy of this process; false if that was ended by its lack of memory.
    bool ActInChild(qint64 failing, bool forGood) {
        told_.Forget();
        const pid_t child = ::fork();
        if (child < 0)
            throw std::runtime_error("no child process");
        if (child == 0)
            EndAs([&] { Tell(failing, forGood); });
        int status = 0;
        ::waitpid(child, &status, 0);
        return WIFEXITED(status);
    }

    void Tell(qint64 failing, bool forGood) {
        Start();
        FailingMemory::FailAt(failing, forGood);
        Act(GetParam());
        told_->allocations = FailingMemory::Mend();
        told_->hasFailed = FailingMemory::HasFailed();
        const QByteArray found = SnapshotOf(Charts());
        told_->isUndone = found == before_;
        told_->isDone = found == after_;
        told_->errors = Boxes.Errors().size();
        told_->boxes = Boxes.Shown.size();
        Boxes.Shown.clear();
        if (!told_->isDone)
            Act(GetParam());
        told_->isDoneByAnotherPress = SnapshotOf(Charts()) == after_ && Boxes.Errors().isEmpty();
        if (!told_->isDoneByAnotherPress)
            std::cout << Boxes.Shown.join(u'\n').toStdString() << std::endl;
    }

    void JudgeTold() {
        ASSERT_TRUE(told_->isUndone || told_->isDone) << "half of it";
        ++(told_->isDone ? done_ : undone_);
        EXPECT_TRUE(told_->isDoneByAnotherPress);
        if (told_->isDone)
            return;
        EXPECT_EQ(told_->errors, 1);
        EXPECT_EQ(told_->boxes, told_->errors) << "something undone was said to be done";
    }

    void JudgeFile() {
        ++ended_;
        const QByteArray found = SnapshotOf(Charts());
        EXPECT_TRUE(found == before_ || found == after_)
            << "half of it: " << FirstDifference(before_, found).constData();
    }

    QByteArray before_;
    QByteArray after_;
    SharedTold told_;
    int undone_ = 0;
    int done_ = 0;
    int ended_ = 0;
};

INSTANTIATE_TEST_SUITE_P(Actions, FailingMemoryTest, BusyFamilyTest::Actions,
                         BusyFamilyTest::NameOf);

} // namespace

TEST_P(FailingMemoryTest, LeavesTheActionWholeOrUndoneAndTold) {
    before_ = SnapshotOf(Charts());
    Start();
    Act(GetParam());
    ASSERT_EQ(Boxes.Errors(), QStringList());
    after_ = SnapshotOf(Charts());
    // A connection is nothing to share with a copy of the process.
    ResetSession();
    ASSERT_TRUE(ActInChild(0, false));
    ASSERT_FALSE(told_->hasFailed);
    const qint64 allocations = told_->allocations;
    ASSERT_GT(allocations, 20);

    const qint64 step = std::max(qint64{1}, allocations / Rounds(12, 2'000));
    for (const bool forGood : {false, true})
        for (qint64 failing = 1 + (forGood ? step / 2 : 0); failing <= allocations;
             failing += step) {
            SCOPED_TRACE(testing::Message()
                         << "allocation " << failing << (forGood ? " and all that follow" : ""));
            if (ActInChild(failing, forGood))
                JudgeTold();
            else
                JudgeFile();
            if (HasFailure())
                return;
        }
    std::cout << undone_ + done_ + ended_ << " faults at " << allocations
              << " allocations: " << undone_ << " undone and told, " << done_ << " done, " << ended_
              << " ended the process; none half\n";
    EXPECT_GT(undone_, 0);
}

TEST(FailingMemoryOfNumbersTest, ANumberIsReadAsItIsOrNotAtAll) {
    const QString text = QStringLiteral("-5.5");
    ASSERT_EQ(Val(text), -5.5);
    enum Outcome { Read, Refused, Wrong };
    int refused = 0;
    for (qint64 failing = 1; failing <= 20; ++failing) {
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            FailingMemory::FailAt(failing, false);
            Outcome outcome = Refused;
            try {
                outcome = Val(text) == -5.5 ? Read : Wrong;
            } catch (const std::bad_alloc&) {
                outcome = Refused;
            }
            ::_exit(outcome);
        }
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        EXPECT_FALSE(WIFEXITED(status) && WEXITSTATUS(status) == Wrong) << failing;
        refused += WIFEXITED(status) && WEXITSTATUS(status) == Refused ? 1 : 0;
    }
    EXPECT_GT(refused, 0);
}
