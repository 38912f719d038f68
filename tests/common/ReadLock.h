#pragma once

#include "tests/common/ShortLockWait.h"

#include <QString>
#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>

/// While it lives another connection reads in the database: writes succeed, but no commit does.
class ReadLock {
public:
    explicit ReadLock(const QString& file)
        : reader_(file.toStdString(), SQLite::OPEN_READONLY),
          reading_(reader_, "SELECT Name FROM Catalogue") {
        EXPECT_TRUE(reading_.executeStep());
    }

private:
    SQLite::Database reader_;
    SQLite::Statement reading_;
    ShortLockWait shortWait_;
};

/// What the user is told of a lock that does not go away.
inline const QString OtherCopyWrites = QStringLiteral(
    "Another copy of Sparkit Dutygrid is writing at this moment, so that what you did last could "
    "not be done. Nothing of it has been stored. Please try again; if this message comes again, "
    "close the other copy first. (database is locked)");
