#include "platform/tables/Catalogue.h"

#include "platform/tables/TableFile.h"

#include <algorithm>

namespace {

/// As the engine will have it: half a surrogate pair cannot be stored.
QString Stored(const QString& name) {
    return QString::fromStdString(name.toStdString());
}

QString TextOf(std::string_view bytes) {
    return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

} // namespace

RuntimeError NoSuchTable(const QString& name) {
    return {ErrorNumber::NoSuchTable,
            QStringLiteral("The database cannot find the table '%1'.").arg(name)};
}

int TableShape::PositionOf(const QString& field) const {
    const auto found = std::find_if(Fields.begin(), Fields.end(), [&](const auto& candidate) {
        return candidate.Name.compare(field, Qt::CaseInsensitive) == 0;
    });
    if (found == Fields.end())
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    return static_cast<int>(found - Fields.begin());
}

/// The same for names that differ in case only. Nearly all names are plain ones, for which the
/// rules of all the world's letters would take several times as long.
std::string Catalogue::Folded(const QString& name) {
    std::string folded = name.toStdString();
    for (char& letter : folded) {
        if (static_cast<unsigned char>(letter) >= 0x80)
            return name.toCaseFolded().toStdString();
        if (letter >= 'A' && letter <= 'Z')
            letter = static_cast<char>(letter | 0x20);
    }
    return folded;
}

const std::string Catalogue::InformationSql =
    "CREATE TABLE Information (Name TEXT PRIMARY KEY, Value TEXT)";
const std::string Catalogue::ShapesSql =
    "CREATE TABLE Shapes (Id INTEGER PRIMARY KEY, Fields TEXT UNIQUE)";
// No identity is given twice: keys of rows are made from it.
const std::string Catalogue::CatalogueSql =
    "CREATE TABLE Catalogue (Id INTEGER PRIMARY KEY AUTOINCREMENT, "
    "Name TEXT NOT NULL, FoldedName TEXT NOT NULL UNIQUE, Shape INTEGER NOT NULL, "
    "NextRow INTEGER NOT NULL DEFAULT 1, Sum INTEGER NOT NULL DEFAULT 0)";

std::string Catalogue::RowsSql(qint64 shape, const std::string& declaration) {
    return "CREATE TABLE Rows" + std::to_string(shape) + " (Key INTEGER PRIMARY KEY" +
           (declaration.empty() ? "" : ", ") + declaration + ')';
}

void Catalogue::Make(const std::string& locale) {
    for (const std::string& sql : {InformationSql, ShapesSql, CatalogueSql})
        statements_.Execute(sql);
    {
        Query insert(statements_, "INSERT INTO Information VALUES('Locale', ?1)");
        insert.Bind(1, locale);
        insert.Run();
    }
    SumUp(statements_);
    statements_.Execute("PRAGMA application_id=" + std::to_string(ApplicationId));
    statements_.Execute("PRAGMA user_version=" + std::to_string(FormatVersion));
    isMade_ = true;
}

std::shared_ptr<Table> Catalogue::Take(const Query& query, const std::string& folded) {
    if (const auto known = tables_.find(folded); known != tables_.end())
        return known->second;
    auto table = std::make_shared<Table>();
    table->Id = query.Number(0);
    table->Name = TextOf(query.Bytes(1));
    table->ShapeId = query.Number(2);
    // Only when it is whole: memory may run out before.
    tables_[folded] = table;
    return table;
}

std::shared_ptr<Table> Catalogue::Find(const QString& name) {
    const std::string folded = Folded(name);
    const auto known = tables_.find(folded);
    if (known != tables_.end())
        return known->second;
    if (isWhole_ || !isMade_)
        return nullptr;
    Query query(statements_, "SELECT Id, Name, Shape FROM Catalogue WHERE FoldedName = ?1");
    query.Bind(1, folded);
    return query.Step() ? Take(query, folded) : nullptr;
}

std::shared_ptr<Table> Catalogue::Open(const QString& name) {
    std::shared_ptr<Table> table = Find(name);
    if (!table)
        throw NoSuchTable(name);
    if (!table->Shape)
        table->Shape = ShapeOf(table->ShapeId);
    return table;
}

const std::vector<std::shared_ptr<Table>>& Catalogue::Tables() {
    if (!isWhole_ && isMade_) {
        Query query(statements_, "SELECT Id, Name, Shape, FoldedName FROM Catalogue");
        while (query.Step())
            Take(query, std::string(query.Bytes(3)));
    }
    isWhole_ = true;
    if (inOrder_.size() != tables_.size()) {
        inOrder_.clear();
        inOrder_.reserve(tables_.size());
        for (const auto& [name, table] : tables_)
            inOrder_.push_back(table);
    }
    return inOrder_;
}

std::shared_ptr<const TableShape> Catalogue::ShapeOf(qint64 id) {
    std::shared_ptr<const TableShape>& kept = shapes_[id];
    if (kept)
        return kept;
    auto shape = std::make_shared<TableShape>();
    shape->Rows = "Rows" + std::to_string(id);
    SQLite::Statement all(statements_.Connection(), "SELECT * FROM " + shape->Rows);
    std::string columns = "SELECT Key";
    std::string names = "(Key";
    std::string values = "(?1";
    for (int column = 1; column < all.getColumnCount(); ++column) {
        const QString name = QString::fromUtf8(all.getColumnName(column));
        const std::optional<FieldDefinition> field =
            DeclaredField(name, QString::fromUtf8(all.getColumnDeclaredType(column)));
        if (!field)
            throw UnknownFieldType(name);
        shape->Fields.push_back(*field);
        const std::string quoted = Quoted(name);
        // Pictures are read when they are wanted, piece by piece.
        columns +=
            field->Type == FieldType::LongBinary ? ", length(" + quoted + ')' : ", " + quoted;
        names += ", " + quoted;
        values += ", ?" + std::to_string(column + 1);
    }
    shape->SelectSql =
        columns + " FROM " + shape->Rows + " WHERE Key BETWEEN ?1 AND ?2 ORDER BY Key LIMIT ?3";
    shape->InsertSql = "INSERT INTO " + shape->Rows + names + ") VALUES" + values + ')';
    kept = shape;
    return kept;
}

std::string Catalogue::Declaration(const QList<FieldDefinition>& fields) {
    std::string declaration;
    for (const FieldDefinition& field : fields)
        declaration +=
            (declaration.empty() ? "" : ", ") + Quoted(field.Name) + ' ' + DeclaredType(field);
    return declaration;
}

void Catalogue::RefuseTaken(const QString& name) {
    Quoted(name);
    if (const std::shared_ptr<Table> present = Find(Stored(name)))
        throw RuntimeError(ErrorNumber::EngineFault,
                           QStringLiteral("table %1 already exists").arg(present->Name));
}

qint64 Catalogue::ShapeWith(const std::string& declaration) {
    {
        Query query(statements_, "SELECT Id FROM Shapes WHERE Fields = ?1");
        query.Bind(1, declaration);
        if (query.Step())
            return query.Number(0);
    }
    Query last(statements_, "SELECT max(Id) FROM Shapes");
    last.Step();
    const qint64 id = last.Number(0) + 1;
    // The table first: a field that the engine refuses leaves nothing behind.
    statements_.Execute(RowsSql(id, declaration));
    Query insert(statements_, "INSERT INTO Shapes VALUES(?1, ?2)");
    insert.Bind(1, id);
    insert.Bind(2, declaration);
    insert.Run();
    sums_.PutShapeOn(id, declaration);
    return id;
}

void Catalogue::Add(const QString& name, const std::string& declaration) {
    auto table = std::make_shared<Table>();
    table->Name = Stored(name);
    table->ShapeId = ShapeWith(declaration);
    const std::string stored = table->Name.toStdString();
    const std::string folded = Folded(table->Name);
    Query insert(statements_, "INSERT INTO Catalogue(Name, FoldedName, Shape) VALUES(?1, ?2, ?3)");
    insert.Bind(1, stored);
    insert.Bind(2, folded);
    insert.Bind(3, table->ShapeId);
    insert.Run();
    table->Id = statements_.Connection().getLastInsertRowid();
    sums_.CountIdentity(table->Id);
    sums_.PutEntryOn(table->Id);
    table->NextKey = table->FirstKey() + 1;
    table->IsNextKeySure = true;
    tables_[folded] = std::move(table);
    inOrder_.clear();
}

void Catalogue::Remove(Table& table) {
    {
        Query rows(statements_, "DELETE FROM Rows" + std::to_string(table.ShapeId) +
                                    " WHERE Key BETWEEN ?1 AND ?2");
        rows.Bind(1, table.FirstKey());
        rows.Bind(2, table.LastKey());
        rows.Run();
    }
    sums_.ForgetRows(table.Id);
    sums_.TakeEntryOff(table.Id);
    Query entry(statements_, "DELETE FROM Catalogue WHERE Id = ?1");
    entry.Bind(1, table.Id);
    entry.Run();
    table.Dropped = true;
    inOrder_.clear();
    tables_.erase(Folded(table.Name));
}

qint64 Catalogue::NextKey(Table& table) {
    if (!table.IsNextKeySure) {
        Query last(statements_,
                   "SELECT max(Key) FROM " + table.Shape->Rows + " WHERE Key BETWEEN ?1 AND ?2");
        last.Bind(1, table.FirstKey());
        last.Bind(2, table.LastKey());
        last.Step();
        Query entry(statements_, "SELECT NextRow FROM Catalogue WHERE Id = ?1");
        entry.Bind(1, table.Id);
        entry.Step();
        table.NextKey =
            std::max({table.NextKey, last.Number(0) + 1, table.FirstKey() + entry.Number(0)});
        table.IsNextKeySure = true;
    }
    if (table.NextKey > table.LastKey())
        throw RuntimeError(ErrorNumber::EngineFault,
                           QStringLiteral("The table '%1' is full.").arg(table.Name));
    return table.NextKey;
}

void Catalogue::RetireKey(Table& table, qint64 key) {
    // Those behind which others stand are safe: the next key is behind all of them.
    if (key + 1 < NextKey(table))
        return;
    table.NextKey = key + 1;
    sums_.TakeEntryOff(table.Id);
    Query query(statements_, "UPDATE Catalogue SET NextRow = ?1 WHERE Id = ?2");
    query.Bind(1, table.NextKey - table.FirstKey());
    query.Bind(2, table.Id);
    query.Run();
    sums_.PutEntryOn(table.Id);
}

void Catalogue::Recheck() {
    sums_.Forget();
    isWhole_ = false;
    inOrder_.clear();
    shapes_.clear();
    // First of all, for the file may not be readable: nothing that was read before counts.
    for (const auto& [name, table] : tables_) {
        ++table->Changes;
        table->IsNextKeySure = false;
    }
    isMade_ = Pragma(statements_, "user_version") == FormatVersion;
    for (auto entry = tables_.begin(); entry != tables_.end();) {
        Table& table = *entry->second;
        if (entry->second.use_count() > 1) {
            // A rollback takes identities back: the name tells as well.
            Query query(statements_, "SELECT Name FROM Catalogue WHERE Id = ?1");
            query.Bind(1, table.Id);
            table.Dropped = !isMade_ || !query.Step() || TextOf(query.Bytes(0)) != table.Name;
        }
        const bool isKept = entry->second.use_count() > 1 && !table.Dropped;
        entry = isKept ? std::next(entry) : tables_.erase(entry);
    }
}
