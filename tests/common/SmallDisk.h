#pragma once

#include "tests/common/Needed.h"

#include <QByteArray>
#include <QFile>
#include <QTemporaryDir>
#include <cerrno>
#include <cstring>
#include <string>
#include <sys/mount.h>
#include <unistd.h>

/// A file system in memory of a given size, where the machine allows to make one.
class SmallDisk {
public:
    /// What it gives and takes back at a time, in bytes.
    static constexpr qint64 Page = 4096;

    explicit SmallDisk(const char* size) {
        const QByteArray options = QByteArray("size=") + size;
        isMounted_ = ::mount("none", QFile::encodeName(folder_.path()).constData(), "tmpfs", 0,
                             options.constData()) == 0;
        if (!isMounted_)
            why_ = std::strerror(errno);
    }
    ~SmallDisk() {
        if (isMounted_)
            ::umount2(QFile::encodeName(folder_.path()).constData(), MNT_DETACH);
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

    bool IsMounted() const { return isMounted_; }
    /// Skips the test where there is none, or fails it where root runs the tests for others (CI is
    /// set).
    void Need() const {
        if (isMounted_)
            return;
        const std::string why = std::string("no small disk can be mounted: ") + why_;
        if (::geteuid() == 0)
            SkipOrFail(why);
        else
            GTEST_SKIP() << why;
    }
    QString Folder() const { return folder_.path(); }

    /// Fills it but for so many pages. False if that was not possible.
    bool Fill(int pagesLeft) {
        QFile filler(Filler());
        if (!filler.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered))
            return false;
        const QByteArray page(static_cast<qsizetype>(Page), 'x');
        while (filler.write(page) == page.size())
            continue;
        const qint64 pages = filler.size() / Page;
        return filler.resize((pages - pagesLeft) * Page);
    }
    void Empty() { QFile::remove(Filler()); }

private:
    QString Filler() const { return folder_.path() + QStringLiteral("/filler"); }

    QTemporaryDir folder_;
    bool isMounted_ = false;
    std::string why_;
};
