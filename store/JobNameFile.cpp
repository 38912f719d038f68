#include "store/JobNameFile.h"

#include "platform/runtime/ProgramFolder.h"

QString JobNameFile(bool isSchool) {
    return InProgramFolder(isSchool ? QStringLiteral("Jobs/SchoolJobs.dat")
                                    : QStringLiteral("Jobs/HomeJobs.dat"));
}
