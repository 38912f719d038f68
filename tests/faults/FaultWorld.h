#pragma once

#include "platform/runtime/Prompts.h"
#include "tests/common/Readable.h"
#include "tests/common/TestRun.h"

#include <QRegularExpression>
#include <QStringList>
#include <QTemporaryDir>
#include <gtest/gtest.h>

/// Message boxes that are all answered with Ok or No; keeps what they showed.
class RecordingPrompts : public Prompts {
public:
    QStringList Shown;

    PromptAnswer Show(const Prompt& prompt) override {
        Shown += prompt.Text;
        return prompt.Buttons == PromptButtons::Ok ? PromptAnswer::Ok : PromptAnswer::No;
    }

    /// The reports of run-time errors among them.
    QStringList Errors() const {
        return Shown.filter(QRegularExpression(QStringLiteral("^Run-time error")));
    }
};

/// The file with the program's data in a program folder.
QString ChartsFile(const QString& programFolder);

/// Makes a program folder's database, empty but for the accounts' table.
void MakeEmptyDatabase(const QString& programFolder);

QByteArray BytesOf(const QString& file);
void WriteBytes(const QString& file, const QByteArray& bytes);

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
