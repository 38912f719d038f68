#include "platform/tables/TableWalk.h"

#include "platform/tables/TableEngine.h"

struct TableWalk::Run {
    std::shared_ptr<TableEngine> engine;
    QStringList names;
    /// The shape that the statement reads, and its fields asked for, in their order.
    std::shared_ptr<const TableShape> shape;
    std::vector<const FieldDefinition*> fields;
    std::unique_ptr<SQLite::Statement> statement;
    bool isAtEnd = true;
};

TableWalk::TableWalk(std::shared_ptr<TableEngine> engine, const QStringList& fields)
    : run_(std::make_unique<Run>()) {
    run_->engine = std::move(engine);
    run_->names = fields;
}

TableWalk::~TableWalk() = default;
TableWalk::TableWalk(TableWalk&&) noexcept = default;
TableWalk& TableWalk::operator=(TableWalk&&) noexcept = default;

void TableWalk::Open(const QString& tableName) {
    Run& run = *run_;
    run.engine->Guard([&] {
        Leave();
        const std::shared_ptr<Table> table = run.engine->Current().Open(tableName);
        if (table->Shape != run.shape) {
            std::vector<const FieldDefinition*> fields;
            std::string columns;
            for (const QString& name : run.names) {
                const auto position = static_cast<std::size_t>(table->Shape->PositionOf(name));
                fields.push_back(&table->Shape->Fields[position]);
                columns += (columns.empty() ? "" : ", ") + Quoted(fields.back()->Name);
            }
            run.statement = std::make_unique<SQLite::Statement>(
                run.engine->Sql().Connection(), "SELECT " + columns + " FROM " +
                                                    table->Shape->Rows +
                                                    " WHERE Key BETWEEN ?1 AND ?2 ORDER BY Key");
            run.fields = std::move(fields);
            run.shape = table->Shape;
        }
        run.statement->bind(1, int64_t{table->FirstKey()});
        run.statement->bind(2, int64_t{table->LastKey()});
        run.isAtEnd = !run.statement->executeStep();
    });
}

void TableWalk::Leave() {
    if (run_->statement)
        run_->statement->tryReset();
    run_->isAtEnd = true;
}

bool TableWalk::Eof() const {
    return run_->isAtEnd;
}

void TableWalk::RefuseEnd() const {
    if (run_->isAtEnd)
        throw RuntimeError(ErrorNumber::NoCurrentRecord);
}

void TableWalk::MoveNext() {
    RefuseEnd();
    run_->engine->Guard([&] { run_->isAtEnd = !run_->statement->executeStep(); });
}

QVariant TableWalk::Value(int place) const {
    RefuseEnd();
    return run_->engine->Guard([&] {
        const FieldDefinition& field = *run_->fields.at(static_cast<std::size_t>(place));
        return ValueOf(field, CellOf(run_->statement->getColumn(place)));
    });
}
