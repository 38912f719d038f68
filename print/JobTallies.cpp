#include "print/JobTallies.h"

#include "platform/runtime/Numbers.h"

void JobTallies::Add(JobCounts& counts, bool completed) {
    counts.Found = true;
    qint16& count = completed ? counts.Completed : counts.Incomplete;
    count = AddIntegers(count, 1);
}

JobCounts JobTallies::Of(const QString& job) const {
    const Tally tally = tallies_.value(job);
    if (tally.fault)
        throw RuntimeError(*tally.fault);
    return tally.counts;
}
