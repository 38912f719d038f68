#pragma once

#include "tests/common/FileBytes.h"
#include "tests/common/Readable.h"
#include "tests/common/Scripted.h"
#include "tests/common/TestRun.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

/// The file with the program's data in a program folder.
QString ChartsFile(const QString& programFolder);

/// Makes a program folder's database, empty but for the accounts' table.
void MakeEmptyDatabase(const QString& programFolder);

/// A fixture with a program folder of its own that holds an empty database, which is not open
/// yet. It lies on the disk, where a kill can fall between two writes, not in memory.
class FaultTest : public testing::Test {
protected:
    FaultTest();

    QString Folder() const { return folder_.path(); }
    QString File() const { return ChartsFile(Folder()); }

    RecordingPrompts Boxes;

private:
    QTemporaryDir folder_;
    TestRun run_{{.Boxes = &Boxes, .ProgramFolder = folder_.path()}};
};
