#include "platform/tables/TableWalk.h"

#include "platform/tables/TableEngine.h"

#include <algorithm>

struct TableWalk::Run {
    std::shared_ptr<TableEngine> engine;
    std::shared_ptr<Table> table;
    /// The fields asked for, in their order.
    std::vector<const FieldDefinition*> fields;
    std::unique_ptr<SQLite::Statement> statement;
    bool isAtEnd = false;
};

namespace {

const FieldDefinition& FieldNamed(const TableShape& shape, const QString& name) {
    const auto found =
        std::find_if(shape.Fields.begin(), shape.Fields.end(), [&](const auto& field) {
            return field.Name.compare(name, Qt::CaseInsensitive) == 0;
        });
    if (found == shape.Fields.end())
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    return *found;
}

} // namespace

TableWalk::TableWalk(std::shared_ptr<TableEngine> engine, const QString& tableName,
                     const QStringList& fields)
    : run_(std::make_unique<Run>()) {
    run_->engine = std::move(engine);
    run_->engine->Guard([&] {
        run_->table = run_->engine->Find(tableName);
        std::string sql = "SELECT ";
        for (const QString& name : fields) {
            run_->fields.push_back(&FieldNamed(*run_->table->Shape, name));
            sql += (run_->fields.size() > 1 ? ", " : "") + Quoted(run_->fields.back()->Name);
        }
        sql += " FROM " + Quoted(run_->table->Name) + " ORDER BY rowid";
        run_->statement = run_->engine->Prepare(sql);
        run_->isAtEnd = !run_->statement->executeStep();
    });
}

TableWalk::~TableWalk() = default;

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
