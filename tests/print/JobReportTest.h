#pragma once

#include "tests/common/Charts.h"
#include "tests/common/SpoiledRows.h"
#include "tests/common/TestWorld.h"
#include "tests/print/RecordedPaper.h"

using namespace Qt::StringLiterals;

/// A fixture for job reports: tables made straight in the store, job lists in the file.
class JobReportTest : public ProgramTest {
protected:
    JobReportTest() { SetPrintTarget(&Recorded); }

    static inline const QString All = u"All"_s;
    static inline const QString Chores = u"Chores"_s;

    static void WriteJobs(const QByteArray& content, const QString& file = u"HomeJobs.dat"_s);

    /// One line of a report as printed.
    struct Line {
        QString Job;
        QString Completed;
        QString Incomplete;
        double Top = 0;
        bool operator==(const Line&) const = default;
    };

    /// Prints and reads the lines beneath the header, page by page; expects one whole job.
    QList<QList<Line>> Print(const QStringList& chartNames, const QString& kid = u"Anna"_s,
                             const QString& period = u"Starting from: 3/4/2001 until 3/10/2001"_s);
    QList<QList<Line>> LinesOfLastJob() const;

    /// "job completed/incomplete" for every line of all pages, numbers and blanks cut off.
    static QStringList Counts(const QList<QList<Line>>& pages);

    /// A report of Anna's charts raises the run-time error of that number and sends nothing.
    void ExpectError(int number, const QStringList& chartNames);

    RecordedPaper Recorded;
};
