#pragma once

#include "platform/runtime/Actions.h"
#include "platform/tables/Catalogue.h"
#include "platform/tables/LockWait.h"
#include "platform/tables/TableFile.h"

#include <QScopeGuard>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

/// One connection to a database file: statements, the transaction under way and the catalogue.
/// Faults of the engine leave the operations of this class as SQLite::Exception; Guard turns
/// them into run-time errors where an operation of the store or of a cursor ends. A fault while a
/// transaction is under way rolls it back, and the action under way is told of every fault. What
/// else undoes an action rolls it back as well.
class TableEngine : public std::enable_shared_from_this<TableEngine> {
public:
    /// Opens an existing file; one of a former format is carried over, and `watch` is told of
    /// it. Raises 3000 for one that is not ours; it is left as it is.
    static std::shared_ptr<TableEngine> Open(const QString& path, const CarryOverWatch& watch);
    /// Opens an existing file of the present format for reading only. Raises 3000.
    static std::shared_ptr<TableEngine> OpenToRead(const QString& path);
    /// Makes a file that keeps `locale` for the record. Raises 3000 if there is one already.
    static std::shared_ptr<TableEngine> Make(const QString& path, const QString& locale);

    /// Rolls back what is under way and closes the file. Any use afterwards raises 91.
    void Close();

    /// Runs one operation. Raises 91 on a closed engine, 3000 with the engine's words for a fault,
    /// and again for what an action does after a fault has undone it.
    template <class Operation>
    auto Guard(Operation&& operation) {
        if (!link_)
            throw RuntimeError(ErrorNumber::ObjectVariableNotSet);
        RefuseAfterFault(FaultAt::Reading);
        const auto end = qScopeGuard([wait = &link_->wait] { wait->End(); });
        try {
            return operation();
        } catch (const SQLite::Exception& fault) {
            throw AfterFault(fault);
        }
    }

    Statements& Sql() { return link_->statements; }

    /// The catalogue as it is now, after a look whether others have written.
    Catalogue& Current();
    /// The catalogue as last looked at.
    Catalogue& LastSeen() { return link_->catalogue; }

    void Create(const QString& name, const QList<FieldDefinition>& fields);
    void Drop(const QString& name);
    /// Adds all rows of one table to another.
    void CopyRows(const QString& from, const QString& to, const QStringList& fields);
    /// Gives a field the same value in all rows of a table.
    void SetField(const QString& name, const QString& field, const QVariant& value);

    /// Run whenever a transaction is about to begin, when nothing has been written yet.
    void SetBeforeWrite(std::function<void()> before) { beforeWrite_ = std::move(before); }
    /// Copies the file as it is, without what a transaction under way has written, into another
    /// that is there already. It is not synchronised.
    void CopyTo(const QString& path);

    /// Begins a transaction if none is under way.
    void BeginWrite();
    /// If the engine refuses, Guard takes back all of it.
    void Commit();

    /// Keeps one view of the file from the first call to the last end, or to the first write or
    /// commit: many reads in a row need not look for the writes of others each time.
    void BeginReading();
    void EndReading();

private:
    /// What lives as long as the file is open.
    struct Link {
        explicit Link(std::unique_ptr<SQLite::Database> connection)
            : database(std::move(connection)), statements(*database), catalogue(statements) {
            wait.Watch(*database);
        }
        LockWait wait;
        std::unique_ptr<SQLite::Database> database;
        Statements statements;
        Catalogue catalogue;
    };

    explicit TableEngine(std::unique_ptr<SQLite::Database> database)
        : link_(std::make_unique<Link>(std::move(database))) {}

    void Execute(const std::string& sql) { link_->statements.Execute(sql); }
    void NoticeOthers();
    void StopReading();
    /// Rolls back what is under way.
    void Undo();
    /// The same; the error to raise.
    RuntimeError AfterFault(const SQLite::Exception& fault);
    Sum SumOfCopied(const Table& source, const Table& target, qint64 next,
                    const std::vector<int>& leftOut);
    bool IsRolledBack() const;

    std::unique_ptr<Link> link_;
    std::function<void()> beforeWrite_;
    bool inTransaction_ = false;
    bool isReading_ = false;
    int readers_ = 0;
    /// The engine's count of what others have written, as of the last look; nothing after a fault.
    std::optional<int> dataVersion_;
};
