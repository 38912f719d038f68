#pragma once

#include <QtGlobal>

/// What a job report says of one job.
struct JobCounts {
    qint16 Completed = 0;
    /// Rows with any other mark, none included.
    qint16 Incomplete = 0;
    /// At least one row holds the job.
    bool Found = false;
};
