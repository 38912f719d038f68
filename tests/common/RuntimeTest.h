#pragma once

#include "platform/runtime/Actions.h"
#include "platform/runtime/Dates.h"
#include "platform/runtime/ProgramFolder.h"
#include "tests/common/Errors.h"
#include "tests/common/MemoryFolder.h"
#include "tests/common/Readable.h"
#include "tests/common/Scripted.h"
#include "tests/common/TestRun.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

/// A fixture for what needs no database: an empty program folder and user of its own, a fixed
/// clock (Wednesday 7 March 2001), the C locale, scripted prompts and desktop.
class RuntimeTest : public testing::Test {
protected:
    ~RuntimeTest() override { Boxes.VerifyAllShown(); }

    /// A path in the test's program folder.
    static QString Path(const QString& tail) { return InProgramFolder(tail); }

    /// Writes a file as it stands; makes its folder.
    static void WriteFile(const QString& path, const QByteArray& content) {
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
        file.write(content);
    }

    static QByteArray ReadFile(const QString& path) {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
        return file.readAll();
    }

    ScriptedPrompts Boxes;
    ScriptedDesktop DesktopCalls;

private:
    QTemporaryDir folder_{MemoryFolder()};
    TestRun run_{{.Boxes = &Boxes, .Desktop = &DesktopCalls, .ProgramFolder = folder_.path()}};
};
