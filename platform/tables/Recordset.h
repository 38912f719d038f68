#pragma once

#include <QByteArray>
#include <QString>
#include <QVariant>
#include <memory>

class TableEngine;

/// A cursor on one table. Rows stand in the order of their making.
///
/// The cursor keeps the identities of rows, no running statement, so that a table can be dropped
/// while cursors exist. Values are read as they are now, also when another cursor has written
/// them. Fields are named by name or by position, 0 first; an unknown one raises 9.
class Recordset {
public:
    Recordset(std::shared_ptr<TableEngine> engine, const QString& tableName);
    ~Recordset();
    Recordset(Recordset&&) noexcept;
    Recordset& operator=(Recordset&&) noexcept;

    /// The table's name as the catalogue has it.
    QString Name() const;

    /// True behind the last row. Both Eof and Bof are true on an empty table.
    bool Eof() const;
    bool Bof() const;

    /// Number of rows in the table now.
    int RecordCount() const;

    /// Raises 3021 on an empty table.
    void MoveFirst();
    /// Raises 3021 if the cursor is behind the last row already.
    void MoveNext();

    /// For who looks at whole rows, as tests do: the program names its fields.
    int FieldCount() const;

    /// A field of the current row; an invalid QVariant for Null. bool, int, QDate or QString by
    /// the field's type; not for long binary fields. Raises 3021 without a current row.
    QVariant Value(int position) const;
    QVariant Value(const QString& field) const;

    /// Sets a field of the row being added or edited; an invalid QVariant is Null. A whole-number
    /// field rounds a half to even and raises 6 out of range, 13 for text that is no number; a
    /// text that is too long raises 3163. Raises 3021 without AddNew or Edit before.
    void SetValue(int position, const QVariant& value);
    void SetValue(const QString& field, const QVariant& value);

    /// Begins a new row with all fields Null, booleans false.
    void AddNew();
    /// Begins to change the current row. Raises 3021 without one.
    void Edit();
    /// Writes the row begun by AddNew or Edit; after AddNew the current row is the one it was.
    /// Raises 3021 if none was begun or if the edited row has gone meanwhile.
    void Update();
    /// Deletes the current row; none is current then until the next move. Raises 3021 without one.
    void Delete();

    /// Length in bytes of a long binary field of the current row, 0 for Null.
    qint64 FieldSize(const QString& field) const;
    /// Up to `size` bytes from `offset` of a long binary field of the current row.
    QByteArray GetChunk(const QString& field, qint64 offset, qint64 size) const;
    /// Adds bytes to a long binary field of the row being added or edited. The first piece
    /// replaces what the field held. Nothing is written before Update.
    void AppendChunk(const QString& field, const QByteArray& bytes);

    /// Ends the use of the cursor; any further use raises 91.
    void Close();

private:
    class Cursor;
    std::unique_ptr<Cursor> cursor_;
};
