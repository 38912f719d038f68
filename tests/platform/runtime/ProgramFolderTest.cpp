#include "tests/common/RuntimeTest.h"

#include <QCoreApplication>

namespace {

class ProgramFolderTest : public RuntimeTest {};

TEST_F(ProgramFolderTest, IsTheExecutablesFolderUnlessSet) {
    SetProgramFolder(QString());
    EXPECT_EQ(ProgramFolder(), QCoreApplication::applicationDirPath());
    SetProgramFolder(QStringLiteral("/srv/Our Program"));
    EXPECT_EQ(ProgramFolder(), QStringLiteral("/srv/Our Program"));
    EXPECT_EQ(InProgramFolder(QStringLiteral("Jobs/HomeJobs.dat")),
              QStringLiteral("/srv/Our Program/Jobs/HomeJobs.dat"));
}

} // namespace
