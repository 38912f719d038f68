#include "platform/runtime/FileFaults.h"

#include <QDir>
#include <QFileInfo>
#include <QStorageInfo>
#include <algorithm>
#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {

enum class Wish { Read, Write, Enter };

QString Shown(const QString& path) {
    return QDir::toNativeSeparators(path);
}

bool May(Wish wish, const QString& path) {
    const int mode = wish == Wish::Read ? R_OK : wish == Wish::Write ? W_OK : X_OK;
    return ::faccessat(AT_FDCWD, QFile::encodeName(path).constData(), mode, AT_EACCESS) == 0;
}

bool IsMember(gid_t group) {
    std::vector<gid_t> groups(static_cast<std::size_t>(std::max(::getgroups(0, nullptr), 0)));
    const int count = ::getgroups(static_cast<int>(groups.size()), groups.data());
    groups.resize(static_cast<std::size_t>(std::max(count, 0)));
    return ::getegid() == group || std::find(groups.begin(), groups.end(), group) != groups.end();
}

bool MayTheGroup(mode_t mode, Wish wish) {
    switch (wish) {
    case Wish::Read:
        return (mode & S_IRGRP) != 0;
    case Wish::Write:
        return (mode & S_IWGRP) != 0;
    case Wish::Enter:
        return (mode & S_IXGRP) != 0;
    }
    return false;
}

/// How this user gets the right that he has not.
QString WayToTheRight(const QString& path, Wish wish) {
    struct stat status = {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0)
        return {};
    if (status.st_uid == ::geteuid())
        return QStringLiteral("It is yours: give yourself the right to it in its properties.");
    const QString group = QFileInfo(path).group();
    if (MayTheGroup(status.st_mode, wish) && !IsMember(status.st_gid) && !group.isEmpty()) {
        const passwd* me = ::getpwuid(::geteuid());
        const QString name =
            me == nullptr ? QStringLiteral("NAME") : QString::fromLocal8Bit(me->pw_name);
        return QStringLiteral("It is there for the members of the group %1. To become one, have "
                              "whoever looks after this computer type\n\n"
                              "sudo adduser %2 %1\n\n"
                              "in a terminal; then log out of the computer and in again.")
            .arg(group, name);
    }
    return QStringLiteral("Ask its owner (%1) for the right to it.").arg(QFileInfo(path).owner());
}

QString NoRight(const QString& path, Wish wish) {
    const QString verb = wish == Wish::Write ? QStringLiteral("change") : QStringLiteral("open");
    return QStringLiteral("You may not %1 %2. %3")
        .arg(verb, Shown(path), WayToTheRight(path, wish));
}

/// What is wrong with the folder that the file lies in; "" if it can be entered.
QString WhyNoWayTo(const QString& path) {
    QString folder = QFileInfo(path).absolutePath();
    const QString wanted = folder;
    // What lies below a folder that cannot be entered seems to be missing.
    while (!QFileInfo(folder).isDir() && folder != QFileInfo(folder).path())
        folder = QFileInfo(folder).path();
    if (!May(Wish::Enter, folder))
        return NoRight(folder, Wish::Enter);
    if (folder != wanted)
        return QStringLiteral("There is no folder %1. If it was moved or renamed, put it back "
                              "where it was.")
            .arg(Shown(wanted));
    return {};
}

/// What is wrong with what stands in the place of a file; "" if it is a file, or nothing at all.
QString WhyNoFile(const QFileInfo& file) {
    const QString shown = Shown(file.filePath());
    if (!file.exists())
        return {};
    if (file.isDir())
        return QStringLiteral("%1 is a folder, and a file belongs there. Rename the folder, and "
                              "put the file in its place.")
            .arg(shown);
    if (!file.isFile())
        return QStringLiteral("%1 is a pipe or a device, and a file belongs there. Remove it, and "
                              "put the file in its place.")
            .arg(shown);
    return {};
}

RuntimeError Advised(ErrorNumber number, const QString& advice) {
    RuntimeError error(number);
    error.SetAdvice(advice);
    return error;
}

} // namespace

bool MayRead(const QString& path) {
    return May(Wish::Read, path);
}

QString WhyNotRead(const QString& path) {
    if (const QString reason = WhyNoWayTo(path); !reason.isEmpty())
        return reason;
    const QFileInfo file(path);
    const QString shown = Shown(path);
    if (file.isSymLink() && !file.exists())
        return QStringLiteral("%1 is a link to a file that is not there. Put the file itself in "
                              "its place.")
            .arg(shown);
    if (!file.exists())
        return QStringLiteral("There is no file %1. If it was moved or renamed, put it back where "
                              "it was.")
            .arg(shown);
    if (const QString reason = WhyNoFile(file); !reason.isEmpty())
        return reason;
    if (!May(Wish::Read, path))
        return NoRight(path, Wish::Read);
    return QStringLiteral("The disk could not read all of %1. Put a safety copy of the file in its "
                          "place.")
        .arg(shown);
}

QString WhyNotWritten(const QString& path) {
    if (const QString reason = WhyNoWayTo(path); !reason.isEmpty())
        return reason;
    const QFileInfo file(path);
    const QString shown = Shown(path);
    if (file.isSymLink())
        return QStringLiteral("%1 is a link, and nothing is written through a link. Put the file "
                              "itself in its place; a folder may be a link.")
            .arg(shown);
    if (const QString reason = WhyNoFile(file); !reason.isEmpty())
        return reason;
    const QString folder = file.absolutePath();
    if (QStorageInfo(folder).isReadOnly())
        return QStringLiteral("%1 cannot be written: its disk can only be read. Take away the "
                              "write protection, or copy the program's folder to another disk and "
                              "start the program there.")
            .arg(shown);
    if (file.exists() && !May(Wish::Write, path))
        return NoRight(path, Wish::Write);
    if (!May(Wish::Write, folder))
        return NoRight(folder, Wish::Write);
    return QStringLiteral("The disk could not write all of %1. It may be full: make room, and try "
                          "again.")
        .arg(shown);
}

RuntimeError ReadFault(ErrorNumber number, const QString& path) {
    return Advised(number, WhyNotRead(path));
}

RuntimeError WriteFault(ErrorNumber number, const QString& path) {
    return Advised(number, WhyNotWritten(path));
}

RuntimeError TooLargeFault(ErrorNumber number, const QString& path, qint64 most) {
    constexpr qint64 megabyte = 1 << 20;
    return Advised(number, QStringLiteral("%1 is larger than %2 MB. Choose a smaller one, or put a "
                                          "safety copy in its place.")
                               .arg(Shown(path), QString::number(most / megabyte)));
}
