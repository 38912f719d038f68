#pragma once

#include "session/Session.h"
#include "tests/common/Entries.h"
#include "tests/common/Errors.h"
#include "tests/common/MemoryFolder.h"
#include "tests/common/Readable.h"
#include "tests/common/Scripted.h"
#include "tests/common/TestRun.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

/// True while the program has written what it has not committed, which a kill would undo.
bool IsUnderWay();

/// Writes what stands in the database before the program does something, and commits it.
template <class Write>
void Arrange(Write&& write) {
    EXPECT_FALSE(IsUnderWay()) << "the program has not committed what it did before";
    write();
    Database().Commit();
}

/// A fixture with a program folder of its own: an empty database with its accounts' table,
/// settings, job lists, pictures and sounds as delivered; a fixed clock (Wednesday 7 March 2001),
/// the C locale, scripted prompts, desktop and printer, an empty session. The store is open.
class ProgramTest : public testing::Test {
protected:
    ProgramTest();
    ~ProgramTest() override;

    /// Opens the store anew on the same file, as the next start after a kill would.
    static void Restart();

    /// A path in the test's program folder.
    static QString Path(const QString& tail);

    /// A small valid picture file of the given colour, made if it is not there.
    static QString PictureFile(const QString& name = QStringLiteral("picture.png"),
                               QRgb color = 0xff2266aa);

    // What these tell is what the next start finds after a kill at this moment. They commit
    // nothing, and fail the test where something is under way that a kill would undo.

    /// All rows of a table as another process finds them in the file: each as its fields' texts
    /// joined by "|"; Null as "<null>", true as "-1" and false as "0".
    static QStringList Rows(const QString& table);

    /// Names of all tables in order, USERS among them or not, as they are in the file.
    static QStringList TableNames(bool withAccounts = false);

    ScriptedPrompts Boxes;
    ScriptedDesktop DesktopCalls;

private:
    QTemporaryDir folder_{MemoryFolder()};

protected:
    PdfPrintTarget Paper;
    /// The exit codes with which the process would have ended.
    QList<int> Ends;

private:
    TestRun run_;
};

/// A list of names without a form.
class FakeList : public NameList {
public:
    QStringList items;
    void Clear() override { items.clear(); }
    void AddItem(const QString& text) override { items += text; }
};

/// Rows of a chart editor without a form, for tests of the store. In slot 0 of ChartEditors, and
/// there alone, while it lives.
class FakeEditor : public QObject, public ChartEditorRows {
public:
    FakeEditor();
    ~FakeEditor() override;
    QList<EditorRow> rows{EditorRow{}};

    int RowCount() const override { return static_cast<int>(rows.size()); }
    EditorRow Row(int index) const override { return EntryOf(rows, index); }
    void SetRow(int index, const EditorRow& row) override { EntryOf(rows, index) = row; }
    void NewTask_Click() override { rows.append(EditorRow{}); }

private:
    FormSlots<ChartEditorRows>::Maker former_;
};

/// Rows of a chart viewer without a form, in slot 0 of ChartViewers, and there alone, while it
/// lives.
class FakeViewer : public QObject, public ChartViewerRows {
public:
    FakeViewer();
    ~FakeViewer() override;
    QList<ViewerRow> rows{ViewerRow{}};
    QString dayCaption;

    void SetRow(int index, const ViewerRow& row) override { EntryOf(rows, index) = row; }
    bool CheckVisible(int index) const override {
        if (index < 0 || index >= rows.size())
            throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
        return rows.at(index).Completed;
    }
    void CreateNewTask(int) override { rows.append(ViewerRow{}); }
    void SetDayCaption(const QString& caption) override { dayCaption = caption; }

private:
    FormSlots<ChartViewerRows>::Maker former_;
};
