#pragma once

#include "platform/tables/TableStore.h"
#include "tests/common/RuntimeTest.h"

#include <atomic>
#include <chrono>
#include <future>
#include <memory>
#include <thread>
#include <unistd.h>
#include <utility>

/// A fixture with a new, empty database that is open as `Store`.
class TablesTest : public RuntimeTest {
protected:
    TablesTest() { Store = TableStore::CreateDatabase(File, QStringLiteral(";LANGID=0x0409")); }

    /// Closes the database without a commit and opens it again.
    void Reopen() {
        Store.reset();
        Store = TableStore::OpenDatabase(File);
    }

    /// A table with one field of each type, named after them.
    Recordset MakeTable(const QString& name = QStringLiteral("Chart")) {
        Store->CreateTable(name, AllTypes());
        return Store->OpenRecordset(name);
    }

    static QList<FieldDefinition> AllTypes() {
        return {{QStringLiteral("Memo"), FieldType::Memo},
                {QStringLiteral("Text"), FieldType::Text, 10},
                {QStringLiteral("Long"), FieldType::Long},
                {QStringLiteral("Boolean"), FieldType::Boolean},
                {QStringLiteral("Date"), FieldType::Date},
                {QStringLiteral("Bytes"), FieldType::LongBinary}};
    }

    static void AddMemo(Recordset& rows, const QString& text) {
        rows.AddNew();
        rows.SetValue(0, text);
        rows.Update();
    }

    /// The memos of a table from its first row to its last.
    static QStringList Memos(TableStore& store, const QString& name = QStringLiteral("Chart")) {
        QStringList memos;
        for (Recordset rows = store.OpenRecordset(name); !rows.Eof(); rows.MoveNext())
            memos.append(rows.Value(0).toString());
        return memos;
    }

    static QStringList Names(TableStore& store) {
        QStringList names;
        for (int i = 0, count = store.TableCount(); i < count; ++i)
            names.append(store.TableName(i));
        return names;
    }

    /// Starts a process of its own that does this and ends, whatever comes of it.
    template <class Work>
    static pid_t InChild(Work&& work) {
        const pid_t child = ::fork();
        if (child != 0)
            return child;
        try {
            work();
        } catch (...) {
            ::_exit(1);
        }
        ::_exit(0);
    }

    /// Does this in a thread of its own, which calls what it is handed once the others may go on;
    /// returns then, or once it has failed. What it raises comes out of the result's get(), and no
    /// test ends before it.
    template <class Work>
    static std::future<void> Beside(Work&& work) {
        const auto begun = std::make_shared<std::atomic<bool>>(false);
        std::future<void> other =
            std::async(std::launch::async, [begun, work = std::forward<Work>(work)] {
                work([&begun] { *begun = true; });
            });
        while (!*begun && other.wait_for(std::chrono::milliseconds(1)) != std::future_status::ready)
            continue;
        return other;
    }

    /// The text of the run-time error that `operation` raises, "" if it raises none.
    template <class Operation>
    static QString ErrorText(Operation&& operation) {
        const std::optional<RuntimeError> error = ErrorOf(operation);
        return error ? error->Text() : QString();
    }

    /// A value with its type, for a value of the wrong type is as wrong as a wrong value.
    static QString Shown(const QVariant& value) {
        if (!value.isValid())
            return QStringLiteral("Null");
        return QLatin1String(value.metaType().name()) + QLatin1Char(' ') + value.toString();
    }

    const QString File = Path(QStringLiteral("Charts.mdb"));
    std::unique_ptr<TableStore> Store;
};
