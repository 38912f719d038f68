#pragma once

#include "platform/runtime/RuntimeError.h"

#include <QHash>
#include <QString>
#include <QVariant>
#include <optional>

/// What a job report says of one job.
struct JobCounts {
    qint16 Completed = 0;
    /// Rows with any other mark, none included.
    qint16 Incomplete = 0;
    /// At least one row holds the job.
    bool Found = false;
};

/// The counts of all jobs of a report under way, by a job's exact text.
///
/// They stand for one walk through the tables for each job, one job after the other: what makes a
/// job's own rows uncountable ends the report only when its turn comes.
class JobTallies {
public:
    /// Counts a row with that job and the mark that `completed` reads. What makes it uncountable,
    /// a mark of no kind or a count beyond 16 bits (6), is kept for the job.
    template <class Mark>
    void Count(const QVariant& job, Mark&& completed) {
        // Nothing stored is no job's text, not even the empty one.
        if (job.isNull())
            return;
        Tally& tally = tallies_[job.toString()];
        if (tally.fault)
            return;
        try {
            Add(tally.counts, completed().toBool());
        } catch (const RuntimeError& fault) {
            tally.fault = fault;
        }
    }

    /// The counts of a job. Raises what has been kept for it.
    JobCounts Of(const QString& job) const;

private:
    struct Tally {
        JobCounts counts;
        std::optional<RuntimeError> fault;
    };

    static void Add(JobCounts& counts, bool completed);

    QHash<QString, Tally> tallies_;
};
