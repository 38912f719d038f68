#include "platform/runtime/ProgramFolder.h"

#include <QCoreApplication>
#include <gtest/gtest.h>

namespace {

TEST(ProgramFolderTest, IsTheExecutablesFolderUnlessSet) {
    SetProgramFolder(QString());
    EXPECT_EQ(ProgramFolder(), QCoreApplication::applicationDirPath());
    SetProgramFolder(QStringLiteral("/srv/Our Program"));
    EXPECT_EQ(ProgramFolder(), QStringLiteral("/srv/Our Program"));
    EXPECT_EQ(InProgramFolder(QStringLiteral("Jobs/HomeJobs.dat")),
              QStringLiteral("/srv/Our Program/Jobs/HomeJobs.dat"));
    SetProgramFolder(QString());
}

} // namespace
