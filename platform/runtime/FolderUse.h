#pragma once

#include "platform/runtime/FileHandle.h"

#include <QString>
#include <memory>

/// That a process uses a folder, as long as the object lives; the end of the process ends it too.
/// Many may share a folder, or one have it alone.
class FolderUse {
public:
    /// Null if somebody has the folder alone. Where no such thing can be kept (a read-only medium,
    /// a missing folder) the use is granted.
    static std::unique_ptr<FolderUse> Shared(const QString& path);
    /// Null if anybody uses the folder. Raises 75 where it cannot be found out.
    static std::unique_ptr<FolderUse> Alone(const QString& path);

private:
    explicit FolderUse(FileHandle folder) : folder_(std::move(folder)) {}
    FileHandle folder_;
};
