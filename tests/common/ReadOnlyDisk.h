#pragma once

#include <QFile>
#include <QString>
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

/// Makes a folder one of a disk that can only be read, for this process and its life alone: for use
/// in the process of a death test.
inline bool MakeReadOnlyDisk(const QString& folder) {
    const QByteArray path = QFile::encodeName(folder);
    return ::unshare(CLONE_NEWNS | (::geteuid() == 0 ? 0 : CLONE_NEWUSER)) == 0 &&
           ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
           ::mount("none", path.constData(), "tmpfs", MS_RDONLY, nullptr) == 0;
}
