#pragma once

#include <QFile>
#include <QString>
#include <QtGlobal>
#include <gtest/gtest.h>
#include <sys/stat.h>

/// While it lives files and folders that are made lack these rights.
class Umask {
public:
    explicit Umask(mode_t lacking) : former_(::umask(lacking)) {}
    ~Umask() { ::umask(former_); }
    Q_DISABLE_COPY_MOVE(Umask)

private:
    mode_t former_;
};

/// While it lives a file or folder has these rights; fails the test if it does not get them.
class FileMode {
public:
    FileMode(const QString& path, mode_t mode) : path_(QFile::encodeName(path)) {
        struct stat status = {};
        EXPECT_EQ(::stat(path_.constData(), &status), 0) << path_.constData();
        former_ = status.st_mode & 07777;
        EXPECT_EQ(::chmod(path_.constData(), mode), 0) << path_.constData();
    }
    ~FileMode() { EXPECT_EQ(::chmod(path_.constData(), former_), 0) << path_.constData(); }
    Q_DISABLE_COPY_MOVE(FileMode)

private:
    QByteArray path_;
    mode_t former_ = 0;
};
