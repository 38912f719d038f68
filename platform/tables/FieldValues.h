#pragma once

#include "platform/tables/TableStore.h"

#include <QVariant>
#include <optional>
#include <string>
#include <variant>

/// What one field of one row holds in the file: Null, a whole number, a fraction (which only a
/// foreign hand can have stored) or bytes. Text is UTF-8. Of a long binary field that has been
/// read, the length in bytes.
using Cell = std::variant<std::monostate, qint64, double, std::string>;

/// The type a field is declared with. It names the field's type, and its affinity is TEXT,
/// INTEGER or BLOB, never NUMERIC, which would turn the text 007 into 7.
std::string DeclaredType(const FieldDefinition& field);

/// The field that has been declared so, or nothing if no field of ours is declared so.
std::optional<FieldDefinition> DeclaredField(const QString& name, const QString& declaredType);

/// A field of a new row before it is set.
Cell InitialCell(const FieldDefinition& field);

/// `value` as it is stored in the field. Raises 6, 13, 94 or 3163 if it does not fit.
Cell CellFor(const FieldDefinition& field, const QVariant& value);

/// What is stored, as the field's type has it. Raises 6 or 13 if no such value can have been
/// stored by this program.
QVariant ValueOf(const FieldDefinition& field, const Cell& cell);
