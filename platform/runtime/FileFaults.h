#pragma once

#include "platform/runtime/RuntimeError.h"

/// Errors about a file: below the standard text stand which file it is, what is wrong with it as
/// far as its surroundings tell, and the way out.

/// For a file that cannot be read.
RuntimeError ReadFault(ErrorNumber number, const QString& path);

/// For a file that cannot be written, in place of the one that is there or anew.
RuntimeError WriteFault(ErrorNumber number, const QString& path);

/// For a file of more than `most` bytes where no good one is.
RuntimeError TooLargeFault(ErrorNumber number, const QString& path, qint64 most);

/// Whether this user has the right to read a file.
bool MayRead(const QString& path);

/// The advice of these alone.
QString WhyNotRead(const QString& path);
QString WhyNotWritten(const QString& path);
