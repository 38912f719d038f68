#pragma once

#include <QString>
#include <memory>

/// That a process uses a folder, as long as the object lives; the end of the process ends it too.
/// Many may share a folder, or one have it alone.
class FolderUse {
public:
    /// Null if somebody has the folder alone. Where no such thing can be kept (a read-only medium,
    /// a missing folder) the use is granted.
    static std::unique_ptr<FolderUse> Shared(const QString& folder);
    /// Null if anybody uses the folder. Raises 75 where it cannot be found out.
    static std::unique_ptr<FolderUse> Alone(const QString& folder);

    ~FolderUse();
    FolderUse(const FolderUse&) = delete;
    FolderUse& operator=(const FolderUse&) = delete;

private:
    explicit FolderUse(int handle) : handle_(handle) {}
    int handle_;
};
