#include "platform/runtime/Actions.h"
#include "tests/common/OrdinaryUser.h"
#include "tests/faults/FaultWorld.h"

#include "session/Session.h"

#include <QFile>
#include <sys/stat.h>
#include <unistd.h>

namespace {

void SetMode(const QString& path, mode_t mode) {
    ASSERT_EQ(::chmod(QFile::encodeName(path).constData(), mode), 0);
}

} // namespace

/// A database with one child of 10 points, which the user of the program may read but not write.
class ReadOnlyTest : public FaultTest {
protected:
    ReadOnlyTest() {
        Database().InitDatabse();
        RunAction([] {
            Database().AddUser(QStringLiteral("Anna"), QStringLiteral("pw"),
                               QStringLiteral("Student"), QString());
            Database().AddPoints(QStringLiteral("Anna"), 10, false);
        });
        ResetSession();
        bytes_ = BytesOf(File());
        SetMode(Folder(), 0755);
        SetMode(File(), 0444);
    }

    /// Tries to give the child points and expects the engine's words and an unchanged file.
    void ExpectRefusal() {
        {
            const OrdinaryUser user;
            RunAction([] { Database().InitDatabse(); });
            EXPECT_EQ(Boxes.Errors(), QStringList()) << "reading must do";
            RunAction([] { Database().AddPoints(QStringLiteral("Anna"), 5, false); });
            ResetSession();
        }
        ASSERT_EQ(Boxes.Errors().size(), 1);
        EXPECT_TRUE(
            Boxes.Errors().constFirst().contains(QLatin1String("readonly database")) ||
            Boxes.Errors().constFirst().contains(QLatin1String("unable to open database file")))
            << Boxes.Errors().constFirst().toStdString();
        EXPECT_TRUE(BytesOf(File()) == bytes_);
        EXPECT_FALSE(QFile::exists(File() + QStringLiteral("-journal")));
    }

private:
    QByteArray bytes_;
};

TEST_F(ReadOnlyTest, AFileThatMayNotBeWrittenIsReadAndTheFirstWriteSaysSo) {
    SetMode(Folder() + QStringLiteral("/Database"), 0777);
    ExpectRefusal();
}

TEST_F(ReadOnlyTest, AFolderThatMayNotBeWrittenIsReadAndTheFirstWriteSaysSo) {
    SetMode(Folder() + QStringLiteral("/Database"), 0555);
    ExpectRefusal();
    SetMode(Folder() + QStringLiteral("/Database"), 0755);
}

TEST_F(ReadOnlyTest, AWritableFileInAFolderThatMayNotBeWrittenKeepsWhatItHolds) {
    SetMode(File(), 0666);
    SetMode(Folder() + QStringLiteral("/Database"), 0555);
    ExpectRefusal();
    SetMode(Folder() + QStringLiteral("/Database"), 0755);
}
