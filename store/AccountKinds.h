#pragma once

#include <QString>

/// The kinds of accounts, as they are stored and as the session holds that of the account logged
/// in. Only "Teacher" and "Student" are ever stored or set.
namespace AccountKind {
inline const QString Teacher = QStringLiteral("Teacher");
inline const QString Student = QStringLiteral("Student");
inline const QString Parent = QStringLiteral("Parent");
inline const QString Kid = QStringLiteral("Kid");
} // namespace AccountKind

/// True for an adult's kind.
bool IsAdult(const QString& kind);
/// True for a child's kind; a text can be neither.
bool IsChild(const QString& kind);

/// True for the one kind of an adult, or of a child, that is ever stored. In a few places the other
/// names count for nothing, unlike everywhere else.
bool IsStoredAdult(const QString& kind);
bool IsStoredChild(const QString& kind);
