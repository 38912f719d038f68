#include "platform/tables/Recordset.h"

#include "platform/tables/TableEngine.h"

#include <algorithm>
#include <optional>

namespace {

/// Rows read at once on a walk, while nobody else writes to the table.
constexpr int BatchSize = 64;

struct Row {
    qint64 Key = 0;
    std::vector<Cell> Cells;
};

} // namespace

class Recordset::Cursor {
public:
    Cursor(std::shared_ptr<TableEngine> engine, const QString& tableName);

    TableEngine& Engine() { return *engine_; }
    QString Name() const { return table_->Name; }
    bool Eof() const { return place_ == Place::Behind; }
    bool Bof() { return Eof() && Count() == 0; }
    int Count();
    void MoveFirst();
    void MoveNext();
    int FieldCount() const { return static_cast<int>(table_->Shape->Fields.size()); }
    int Checked(int position) const;
    int PositionOf(const QString& field) const { return table_->Shape->PositionOf(field); }
    int LongBinaryPosition(const QString& field) const;
    QVariant Value(int position);
    void SetValue(int position, const QVariant& value);
    void AddNew();
    void Edit();
    void Update();
    void Delete();
    qint64 FieldSize(const QString& field);
    QByteArray GetChunk(const QString& field, qint64 offset, qint64 size);
    void AppendChunk(const QString& field, const QByteArray& bytes);

private:
    enum class Place { OnRow, OnDeletedRow, Behind };
    enum class Pending { Nothing, NewRow, ChangedRow };

    const FieldDefinition& Field(int position) const {
        return table_->Shape->Fields[static_cast<std::size_t>(position)];
    }
    void RefuseDropped() const;
    void Read(qint64 firstKey, int count);
    void MoveTo(qint64 firstKey, int count);
    void LeaveRow();
    Row& CurrentRow();
    const Cell& CurrentCell(int position) { return CurrentRow().Cells[std::size_t(position)]; }
    bool IsUndisturbed() const { return stamp_ == table_->Changes; }
    /// Rows that were those of the file before a write of the cursor's own still are.
    void CountOwnWrite() { stamp_ += stamp_ == table_->Changes++; }
    void InsertRow();
    bool HoldsPendingCells() const;
    Sum SumOfStored(int position);
    std::string BytesOf(int position);
    void UpdateRow();

    std::shared_ptr<TableEngine> engine_;
    std::shared_ptr<Table> table_;
    Place place_ = Place::Behind;
    /// The key of the current row, also when it has been deleted.
    qint64 row_ = 0;
    /// Rows as they were at `stamp_`, the current one among them if it exists.
    std::vector<Row> rows_;
    std::size_t index_ = 0;
    bool startTable_ = false; ///< The first of them is the table's first row.
    bool endTable_ = false;   ///< The last of them is the table's last row.
    quint64 stamp_ = 0;

    Pending pending_ = Pending::Nothing;
    /// Cells set since AddNew or Edit, by position; nothing for a field that was not set.
    std::vector<std::optional<Cell>> pendingCells_;

    /// The statement of the last edit, and the fields that it writes.
    std::string updateSql_;
    std::vector<int> updatePositions_;

    /// The long binary value of the current row that pieces are being taken of.
    std::string bytes_;
    int bytesPosition_ = -1;
    quint64 bytesStamp_ = 0;
};

Recordset::Cursor::Cursor(std::shared_ptr<TableEngine> engine, const QString& tableName)
    : engine_(std::move(engine)), table_(engine_->Current().Open(tableName)) {
    MoveTo(table_->FirstKey(), 1);
}

void Recordset::Cursor::RefuseDropped() const {
    if (table_->Dropped)
        throw NoSuchTable(table_->Name);
}

int Recordset::Cursor::Count() {
    RefuseDropped();
    Query query(engine_->Sql(),
                "SELECT count(*) FROM " + table_->Shape->Rows + " WHERE Key BETWEEN ?1 AND ?2");
    query.Bind(1, table_->FirstKey());
    query.Bind(2, table_->LastKey());
    query.Step();
    return static_cast<int>(query.Number(0));
}

void Recordset::Cursor::Read(qint64 firstKey, int count) {
    RefuseDropped();
    std::vector<Row> rows;
    Query query(engine_->Sql(), table_->Shape->SelectSql);
    query.Bind(1, firstKey);
    query.Bind(2, table_->LastKey());
    query.Bind(3, count);
    while (query.Step()) {
        const qint64 key = query.Number(0);
        // A walk over rows that go back would have no end.
        if (key < (rows.empty() ? firstKey : rows.back().Key + 1))
            ReportDamage();
        Row& row = rows.emplace_back();
        row.Key = key;
        row.Cells.reserve(table_->Shape->Fields.size());
        for (int position = 0; position < FieldCount(); ++position)
            row.Cells.push_back(query.Read(position + 1));
    }
    rows_ = std::move(rows);
    index_ = 0;
    startTable_ = firstKey == table_->FirstKey();
    endTable_ = rows_.size() < static_cast<std::size_t>(count);
    stamp_ = table_->Changes;
}

void Recordset::Cursor::LeaveRow() {
    pending_ = Pending::Nothing;
    pendingCells_.clear();
    bytes_ = {};
    bytesPosition_ = -1;
}

void Recordset::Cursor::MoveTo(qint64 firstKey, int count) {
    Read(firstKey, count);
    place_ = rows_.empty() ? Place::Behind : Place::OnRow;
    if (!rows_.empty())
        row_ = rows_.front().Key;
}

void Recordset::Cursor::MoveFirst() {
    LeaveRow();
    if (!IsUndisturbed() || !startTable_ || rows_.empty())
        MoveTo(table_->FirstKey(), 1);
    if (rows_.empty()) {
        place_ = Place::Behind;
        throw RuntimeError(ErrorNumber::NoCurrentRecord);
    }
    RefuseDropped();
    index_ = 0;
    row_ = rows_.front().Key;
    place_ = Place::OnRow;
}

void Recordset::Cursor::MoveNext() {
    RefuseDropped();
    if (place_ == Place::Behind)
        throw RuntimeError(ErrorNumber::NoCurrentRecord);
    LeaveRow();
    const bool isUndisturbed = IsUndisturbed();
    // A deleted row has left its place among the rows to the next one.
    const std::size_t next = place_ == Place::OnRow ? index_ + 1 : index_;
    if (isUndisturbed && next < rows_.size()) {
        index_ = next;
        row_ = rows_[next].Key;
        place_ = Place::OnRow;
    } else if (isUndisturbed && endTable_) {
        place_ = Place::Behind;
    } else {
        // While others write, rows read ahead would only be read again.
        MoveTo(row_ + 1, isUndisturbed ? BatchSize : 1);
    }
}

Row& Recordset::Cursor::CurrentRow() {
    RefuseDropped();
    if (place_ != Place::OnRow)
        throw RuntimeError(ErrorNumber::NoCurrentRecord);
    if (!IsUndisturbed()) {
        Read(row_, 1);
        if (!rows_.empty() && rows_.front().Key != row_)
            rows_.clear();
    }
    if (rows_.empty())
        throw RuntimeError(ErrorNumber::NoCurrentRecord);
    return rows_[index_];
}

int Recordset::Cursor::Checked(int position) const {
    if (position < 0 || position >= FieldCount())
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    return position;
}

int Recordset::Cursor::LongBinaryPosition(const QString& field) const {
    const int position = PositionOf(field);
    if (Field(position).Type != FieldType::LongBinary)
        throw RuntimeError(ErrorNumber::TypeMismatch);
    return position;
}

QVariant Recordset::Cursor::Value(int position) {
    return ValueOf(Field(Checked(position)), CurrentCell(position));
}

void Recordset::Cursor::SetValue(int position, const QVariant& value) {
    if (pending_ == Pending::Nothing)
        throw RuntimeError(ErrorNumber::NoCurrentRecord);
    const FieldDefinition& field = Field(Checked(position));
    pendingCells_[static_cast<std::size_t>(position)] = CellFor(field, value);
}

void Recordset::Cursor::AppendChunk(const QString& field, const QByteArray& bytes) {
    const int position = LongBinaryPosition(field);
    if (pending_ == Pending::Nothing)
        throw RuntimeError(ErrorNumber::NoCurrentRecord);
    std::optional<Cell>& cell = pendingCells_[static_cast<std::size_t>(position)];
    if (!cell || !std::holds_alternative<std::string>(*cell))
        cell = std::string();
    std::get<std::string>(*cell).append(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

void Recordset::Cursor::AddNew() {
    RefuseDropped();
    pendingCells_.assign(table_->Shape->Fields.size(), std::nullopt);
    pending_ = Pending::NewRow;
}

void Recordset::Cursor::Edit() {
    CurrentRow();
    pendingCells_.assign(table_->Shape->Fields.size(), std::nullopt);
    pending_ = Pending::ChangedRow;
}

void Recordset::Cursor::Update() {
    if (pending_ == Pending::Nothing)
        throw RuntimeError(ErrorNumber::NoCurrentRecord);
    RefuseDropped();
    if (pending_ == Pending::NewRow)
        InsertRow();
    else
        UpdateRow();
    pending_ = Pending::Nothing;
    pendingCells_.clear();
}

void Recordset::Cursor::InsertRow() {
    engine_->BeginWrite();
    RefuseDropped();
    const qint64 key = engine_->LastSeen().NextKey(*table_);
    Query query(engine_->Sql(), table_->Shape->InsertSql);
    query.Bind(1, key);
    Sum change = SumOfRow(key);
    for (int position = 0; position < FieldCount(); ++position) {
        std::optional<Cell>& cell = pendingCells_[static_cast<std::size_t>(position)];
        if (!cell)
            cell = InitialCell(Field(position));
        query.Bind(position + 2, Field(position), *cell);
        change += SumOf(key, position, Field(position), *cell);
    }
    query.Run();
    engine_->LastSeen().Sums().ChangeRows(table_->Id, change);
    table_->NextKey = key + 1;
    endTable_ = false;
    CountOwnWrite();
}

/// The row has the values already, so that there is nothing to write. Asked within a transaction,
/// where rows that are undisturbed are those of the file.
bool Recordset::Cursor::HoldsPendingCells() const {
    if (place_ != Place::OnRow || !IsUndisturbed() || rows_.empty())
        return false;
    const std::vector<Cell>& cells = rows_[index_].Cells;
    for (std::size_t i = 0; i < pendingCells_.size(); ++i)
        if (pendingCells_[i] && (Field(static_cast<int>(i)).Type == FieldType::LongBinary ||
                                 cells[i] != *pendingCells_[i]))
            return false;
    return true;
}

void Recordset::Cursor::UpdateRow() {
    // The same fields are written in one row after the other.
    std::vector<int> positions;
    for (int position = 0; position < FieldCount(); ++position)
        if (pendingCells_[static_cast<std::size_t>(position)])
            positions.push_back(position);
    if (positions.empty()) {
        CurrentRow();
        return;
    }
    engine_->BeginWrite();
    RefuseDropped();
    if (HoldsPendingCells())
        return;
    CurrentRow();
    if (positions != updatePositions_) {
        updatePositions_ = positions;
        updateSql_ = "UPDATE " + table_->Shape->Rows + " SET ";
        int column = 1;
        for (const int position : positions) {
            updateSql_ += (column > 1 ? ", " : "") + Quoted(Field(position).Name) + " = ?" +
                          std::to_string(column);
            ++column;
        }
        updateSql_ += " WHERE Key = ?" + std::to_string(column);
    }
    Query query(engine_->Sql(), updateSql_);
    int parameter = 1;
    Sum change = 0;
    for (const int position : positions) {
        const Cell& cell = *pendingCells_[std::size_t(position)];
        query.Bind(parameter++, Field(position), cell);
        change += SumOf(row_, position, Field(position), cell) - SumOfStored(position);
    }
    query.Bind(parameter, row_);
    query.Run();
    engine_->LastSeen().Sums().ChangeRows(table_->Id, change);
    for (const int position : positions) {
        const Cell& cell = *pendingCells_[std::size_t(position)];
        const std::string* bytes = std::get_if<std::string>(&cell);
        const bool isLength = bytes && Field(position).Type == FieldType::LongBinary;
        rows_[index_].Cells[static_cast<std::size_t>(position)] =
            isLength ? Cell(static_cast<qint64>(bytes->size())) : cell;
    }
    CountOwnWrite();
}

std::string Recordset::Cursor::BytesOf(int position) {
    Query query(engine_->Sql(), "SELECT " + Quoted(Field(position).Name) + " FROM " +
                                    table_->Shape->Rows + " WHERE Key = ?1");
    query.Bind(1, row_);
    return query.Step() ? std::string(query.Bytes(0)) : std::string();
}

/// What a field of the current row adds to its table's sum, as the file has it.
Sum Recordset::Cursor::SumOfStored(int position) {
    const FieldDefinition& field = Field(position);
    const Cell& cell = rows_[index_].Cells[static_cast<std::size_t>(position)];
    const bool isLength =
        field.Type == FieldType::LongBinary && std::holds_alternative<qint64>(cell);
    return isLength ? SumOf(row_, position, field, Cell(BytesOf(position)))
                    : SumOf(row_, position, field, cell);
}

void Recordset::Cursor::Delete() {
    CurrentRow();
    LeaveRow();
    engine_->BeginWrite();
    CurrentRow();
    Sum gone = SumOfRow(row_);
    for (int position = 0; position < FieldCount(); ++position)
        gone += SumOfStored(position);
    Query query(engine_->Sql(), "DELETE FROM " + table_->Shape->Rows + " WHERE Key = ?1");
    query.Bind(1, row_);
    // Asked before the row has gone, for it may be the last.
    engine_->LastSeen().NextKey(*table_);
    query.Run();
    engine_->LastSeen().Sums().ChangeRows(table_->Id, -gone);
    engine_->LastSeen().RetireKey(*table_, row_);
    rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(index_));
    place_ = Place::OnDeletedRow;
    CountOwnWrite();
}

qint64 Recordset::Cursor::FieldSize(const QString& field) {
    const qint64* length = std::get_if<qint64>(&CurrentCell(LongBinaryPosition(field)));
    return length ? *length : 0;
}

QByteArray Recordset::Cursor::GetChunk(const QString& field, qint64 offset, qint64 size) {
    const int position = LongBinaryPosition(field);
    CurrentRow();
    if (bytesPosition_ != position || bytesStamp_ != stamp_) {
        bytes_ = BytesOf(position);
        bytesPosition_ = position;
        bytesStamp_ = stamp_;
    }
    const qint64 length = static_cast<qint64>(bytes_.size());
    const qint64 from = std::clamp<qint64>(offset, 0, length);
    return {bytes_.data() + from, std::clamp<qint64>(size, 0, length - from)};
}

namespace {

/// Runs one operation of a cursor that is open.
template <class Cursor, class Operation>
auto Use(const std::unique_ptr<Cursor>& cursor, Operation&& operation) {
    if (!cursor)
        throw RuntimeError(ErrorNumber::ObjectVariableNotSet);
    return cursor->Engine().Guard([&] { return operation(*cursor); });
}

} // namespace

Recordset::Recordset(std::shared_ptr<TableEngine> engine, const QString& tableName)
    : cursor_(engine->Guard([&] { return std::make_unique<Cursor>(engine, tableName); })) {}

Recordset::~Recordset() = default;
Recordset::Recordset(Recordset&&) noexcept = default;
Recordset& Recordset::operator=(Recordset&&) noexcept = default;

QString Recordset::Name() const {
    return Use(cursor_, [](Cursor& cursor) { return cursor.Name(); });
}

bool Recordset::Eof() const {
    return Use(cursor_, [](Cursor& cursor) { return cursor.Eof(); });
}

bool Recordset::Bof() const {
    return Use(cursor_, [](Cursor& cursor) { return cursor.Bof(); });
}

int Recordset::RecordCount() const {
    return Use(cursor_, [](Cursor& cursor) { return cursor.Count(); });
}

void Recordset::MoveFirst() {
    Use(cursor_, [](Cursor& cursor) { cursor.MoveFirst(); });
}

void Recordset::MoveNext() {
    Use(cursor_, [](Cursor& cursor) { cursor.MoveNext(); });
}

int Recordset::FieldCount() const {
    return Use(cursor_, [](Cursor& cursor) { return cursor.FieldCount(); });
}

QVariant Recordset::Value(int position) const {
    return Use(cursor_, [&](Cursor& cursor) { return cursor.Value(position); });
}

QVariant Recordset::Value(const QString& field) const {
    return Use(cursor_, [&](Cursor& cursor) { return cursor.Value(cursor.PositionOf(field)); });
}

void Recordset::SetValue(int position, const QVariant& value) {
    Use(cursor_, [&](Cursor& cursor) { cursor.SetValue(position, value); });
}

void Recordset::SetValue(const QString& field, const QVariant& value) {
    Use(cursor_, [&](Cursor& cursor) { cursor.SetValue(cursor.PositionOf(field), value); });
}

void Recordset::AddNew() {
    Use(cursor_, [](Cursor& cursor) { cursor.AddNew(); });
}

void Recordset::Edit() {
    Use(cursor_, [](Cursor& cursor) { cursor.Edit(); });
}

void Recordset::Update() {
    Use(cursor_, [](Cursor& cursor) { cursor.Update(); });
}

void Recordset::Delete() {
    Use(cursor_, [](Cursor& cursor) { cursor.Delete(); });
}

qint64 Recordset::FieldSize(const QString& field) const {
    return Use(cursor_, [&](Cursor& cursor) { return cursor.FieldSize(field); });
}

QByteArray Recordset::GetChunk(const QString& field, qint64 offset, qint64 size) const {
    return Use(cursor_, [&](Cursor& cursor) { return cursor.GetChunk(field, offset, size); });
}

void Recordset::AppendChunk(const QString& field, const QByteArray& bytes) {
    Use(cursor_, [&](Cursor& cursor) { cursor.AppendChunk(field, bytes); });
}

void Recordset::Close() {
    if (!cursor_)
        throw RuntimeError(ErrorNumber::ObjectVariableNotSet);
    cursor_.reset();
}
