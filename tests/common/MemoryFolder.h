#pragma once

#include <QDir>
#include <QStorageInfo>
#include <QString>

/// What a QTemporaryDir is made from for tests that need no disk beneath them: a name in memory
/// where there is room, else in the usual folder. Nothing that is synced waits there.
inline QString MemoryFolder() {
    constexpr qint64 room = qint64{256} << 20; // bytes
    const QStorageInfo memory(QStringLiteral("/dev/shm"));
    const bool isGood = memory.fileSystemType() == "tmpfs" && memory.bytesAvailable() > room;
    return (isGood ? memory.rootPath() : QDir::tempPath()) + QStringLiteral("/dutygrid-XXXXXX");
}
