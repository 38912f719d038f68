#pragma once

#include <QByteArray>

/// True for the bytes of a wave file of plain samples that is whole: all that its header promises
/// is there. The toolkit waits for ever for the rest of one that was cut off.
bool IsWholeWave(const QByteArray& bytes);
