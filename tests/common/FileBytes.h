#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>
#include <gtest/gtest.h>

/// All that a file holds; a file that cannot be read fails the test.
inline QByteArray BytesOf(const QString& file) {
    QFile input(file);
    EXPECT_TRUE(input.open(QIODevice::ReadOnly)) << file.toStdString();
    return input.readAll();
}

/// Writes a file anew, past the program's own way of doing so.
inline void WriteBytes(const QString& file, const QByteArray& bytes) {
    QFile output(file);
    ASSERT_TRUE(output.open(QIODevice::WriteOnly | QIODevice::Truncate)) << file.toStdString();
    ASSERT_EQ(output.write(bytes), bytes.size());
}
