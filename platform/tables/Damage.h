#pragma once

#include <QStringList>

/// What is wrong with a database file: sentences for the user, which name the tables that they are
/// about. Nothing if all that has been stored in the file is there as it was stored.
///
/// Everything is looked at: the engine's own structure, the declarations, each table's name, that
/// each row belongs to a table and can be read by its fields' types, and all sums. A file of a
/// former format has no sums; of it only the engine's structure is.
///
/// Raises nothing: a file that cannot be opened, is empty or is none of ours is found to be so.
/// Writes nothing, but that the engine takes back what a kill has left half done.
QStringList FindDamage(const QString& path);

/// What a user can do about a damaged file, by its path.
using DamageAdviceMaker = QString (*)(const QString& path);

/// Makes the advice of every error from now on that tells of a file that is damaged or no database
/// at all, at its opening and later. There is none before.
void SetDamageAdvice(DamageAdviceMaker maker);

/// "" where none has been set.
QString DamageAdvice(const QString& path);
