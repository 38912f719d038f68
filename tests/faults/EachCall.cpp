#include "tests/faults/EachCall.h"

#include "tests/common/MemoryFolder.h"
#include "tests/common/Rounds.h"
#include "tests/faults/ChildProcess.h"
#include "tests/faults/disk/Recorded.h"

#include <QTemporaryDir>
#include <algorithm>
#include <cerrno>
#include <gtest/gtest.h>
#include <random>

namespace {

/// From one call to the next that is tried.
int Next(std::mt19937& chance, int step) {
    return 1 + static_cast<int>(chance() % static_cast<quint32>(step));
}

} // namespace

QList<RecordedCall> RecordOf(const QStringList& arguments, const QString& folder) {
    const QTemporaryDir place(MemoryFolder());
    const QString file = place.filePath(QStringLiteral("record"));
    ChildProcess child(arguments, RecordedTo(file, folder));
    EXPECT_EQ(child.WaitForExit(), 0);
    return ReadRecord(file);
}

int KillAtEachCall(const QString& folder, const QStringList& arguments, int step,
                   const std::function<void()>& prepare,
                   const std::function<std::optional<bool>()>& isDone) {
    std::mt19937 chance(Seed());
    bool wasDone = false;
    int kills = 0;
    for (int moment = 0;; moment += Next(chance, step), ++kills) {
        prepare();
        const int code = ChildProcess(arguments, KilledAt(moment, folder)).WaitForExit();
        const std::optional<bool> done = isDone();
        if (code == 0) {
            EXPECT_EQ(done, true);
            return kills;
        }
        EXPECT_EQ(code, KilledByRecorder) << moment;
        EXPECT_TRUE(done.has_value()) << "half of it at " << moment;
        EXPECT_TRUE(!wasDone || done == true) << "undone at " << moment;
        if (testing::Test::HasFailure())
            return kills;
        wasDone = done == true;
    }
}

int FailEachCall(const QString& folder, const QStringList& arguments, int step,
                 const std::function<void()>& prepare, const std::function<void(int told)>& judge) {
    prepare();
    const QList<RecordedCall> record = RecordOf(arguments, folder);
    const auto calls = std::count_if(record.begin(), record.end(), [](const RecordedCall& call) {
        return call.note.call != FileCall::Report;
    });
    std::mt19937 chance(Seed());
    int faults = 0;
    for (const int error : {EIO, ENOSPC, EACCES})
        for (const bool stays : {false, true})
            for (int call = Next(chance, step) - 1; call < calls;
                 call += Next(chance, step), ++faults) {
                SCOPED_TRACE(testing::Message() << "error " << error << " of call " << call
                                                << (stays ? " and all that follow" : ""));
                prepare();
                judge(ChildProcess(arguments, FailingAt(call, error, stays, folder)).WaitForExit());
                if (testing::Test::HasFailure())
                    return faults;
            }
    return faults;
}
