#pragma once

#include <QString>

/// True if every user of the machine who may change `shared`, by the rights of its group or of
/// everybody, may also read `path`. True where the file belongs to its owner alone.
bool MayReadWhoMayChange(const QString& path, const QString& shared);
