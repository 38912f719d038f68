#include "tests/print/JobReportTest.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>

namespace {

const QString ThisWeek = u"History Chores from: 3/4/2001"_s;
const QString LastWeek = u"History Chores from: 2/25/2001"_s;

class JobReportCountsTest : public JobReportTest {};

TEST_F(JobReportCountsTest, JobFoundOnlyOpenShowsZeroCompleted) {
    MakeChartTable(Chores, {{u"Dust"_s, false}, {u"Dust"_s, false}});
    WriteJobs("Dust\r\n");
    EXPECT_EQ(Print({Chores})[0], (QList<Line>{{u"1.     Dust"_s, u"0 "_s, u"2 "_s, 3}}));
}

TEST_F(JobReportCountsTest, NullMarkCountsAsIncomplete) {
    MakeChartTable(Chores, {{u"Dust"_s, true}, {u"Sweep"_s, true}});
    Spoil(Chores, u"Completed = NULL"_s, u"Instructions = 'Dust'"_s);
    WriteJobs("Dust\r\nSweep\r\n");
    EXPECT_EQ(Counts(Print({Chores})), (QStringList{u"Dust 0/1"_s, u"Sweep 1/0"_s}));
}

TEST_F(JobReportCountsTest, SameEntryTwicePrintsTwoLinesWithTheSameCounts) {
    MakeChartTable(Chores, {{u"Dust"_s, true}, {u"Dust"_s}, {u"Sweep"_s}});
    WriteJobs("Dust\r\nSweep\r\nDust\r\n");
    EXPECT_EQ(Counts(Print({Chores})), (QStringList{u"Dust 1/1"_s, u"Sweep 0/1"_s, u"Dust 1/1"_s}));
}

TEST_F(JobReportCountsTest, OtherCaseOrBlanksAreAnotherJob) {
    MakeChartTable(Chores, {{u"Dust"_s}, {u"dust"_s}, {u"Dust "_s}, {u"Éclair"_s}});
    WriteJobs("dust\r\nDUST\r\néclair\r\nDust \r\n");
    EXPECT_EQ(Counts(Print({Chores})), (QStringList{u"dust 0/1"_s, u"Dust  0/1"_s}));
}

TEST_F(JobReportCountsTest, JobOfAChartThatTheListLacksIsNotReported) {
    MakeChartTable(Chores, {{u"Dust"_s}, {u"Sweep"_s}});
    WriteJobs("Sweep\r\n");
    EXPECT_EQ(Counts(Print({Chores})), QStringList{u"Sweep 0/1"_s});
}

TEST_F(JobReportCountsTest, EntryWithACommaIsReadAsTwoJobs) {
    MakeChartTable(Chores, {{u"Feed the dog, cat"_s}, {u"cat"_s}, {u"Feed the dog"_s, true}});
    WriteJobs("Feed the dog, cat\r\n");
    EXPECT_EQ(Counts(Print({Chores})), (QStringList{u"Feed the dog 1/0"_s, u"cat 0/1"_s}));
}

TEST_F(JobReportCountsTest, EmptyEntryIsNotFoundInRowsWithoutAText) {
    MakeChartTable(Chores, {{u"Dust"_s}, {u"Sweep"_s}});
    Spoil(Chores, u"Instructions = NULL"_s, u"Instructions = 'Dust'"_s);
    WriteJobs("\r\nSweep\r\n");
    EXPECT_EQ(Counts(Print({Chores})), QStringList{u"Sweep 0/1"_s});
}

TEST_F(JobReportCountsTest, NamedTablesCountWhoeverOwnsThem) {
    MakeChartTable(Chores, {{u"Dust"_s, true}}, u"Ben"_s);
    MakeChartTable(ThisWeek, {{u"Dust"_s}}, u"Anna"_s);
    MakeChartTable(LastWeek, {{u"Dust"_s}}, u"Anna"_s);
    WriteJobs("Dust\r\n");
    EXPECT_EQ(Counts(Print({Chores, ThisWeek})), QStringList{u"Dust 1/1"_s});
}

TEST_F(JobReportCountsTest, TableNamedTwiceCountsTwiceAndInAnyCase) {
    MakeChartTable(Chores, {{u"Dust"_s, true}});
    WriteJobs("Dust\r\n");
    EXPECT_EQ(Counts(Print({Chores, u"chores"_s})), QStringList{u"Dust 2/0"_s});
}

TEST_F(JobReportCountsTest, AllReachesOnlyHistoryTablesWhoseFirstRowNamesTheChild) {
    MakeChartTable(Chores, {{u"Dust"_s}});
    MakeChartTable(ThisWeek, {{u"Dust"_s}, {u"Dust"_s, true}});
    MakeChartTable(LastWeek, {{u"Dust"_s}}, u"Ben"_s);
    MakeChartTable(u"Historic duties"_s, {{u"Dust"_s}});
    MakeChartTable(u"history of Anna"_s, {{u"Dust"_s}});
    MakeChartTable(u"History nobody"_s, {{u"Dust"_s}});
    Spoil(u"History nobody"_s, u"UserName = NULL"_s);
    WriteJobs("Dust\r\n");
    EXPECT_EQ(Counts(Print({All})), QStringList{u"Dust 1/2"_s});
    EXPECT_EQ(Counts(Print({All}, u"Ben"_s)), QStringList{u"Dust 0/1"_s});
    EXPECT_EQ(Counts(Print({All}, u"anna"_s)), QStringList());
    EXPECT_EQ(Counts(Print({All}, QString())), QStringList());
}

TEST_F(JobReportCountsTest, OnlyTheFirstNameSaysAll) {
    MakeChartTable(ThisWeek, {{u"Dust"_s}});
    MakeChartTable(All, {{u"Dust"_s, true}, {u"Dust"_s, true}});
    WriteJobs("Dust\r\n");
    EXPECT_EQ(Counts(Print({All, u"no such table"_s})), QStringList{u"Dust 0/1"_s});
    EXPECT_EQ(Counts(Print({ThisWeek, All})), QStringList{u"Dust 2/1"_s});
    EXPECT_EQ(Counts(Print({u"all"_s})), QStringList{u"Dust 2/0"_s});
    MakeChartTable(u"All chores"_s, {{u"Dust"_s, true}, {u"Dust"_s, true}, {u"Dust"_s, true}});
    EXPECT_EQ(Counts(Print({u"All chores"_s})), QStringList{u"Dust 3/0"_s});
}

TEST_F(JobReportCountsTest, ModeChoosesTheListOfJobs) {
    MakeChartTable(Chores, {{u"Dust"_s}, {u"Wipe the board"_s}});
    WriteJobs("Dust\r\n");
    WriteJobs("Wipe the board\r\n", u"SchoolJobs.dat"_s);
    EXPECT_EQ(Counts(Print({Chores})), QStringList{u"Dust 0/1"_s});
    SchoolMode = -1;
    EXPECT_EQ(Counts(Print({Chores})), QStringList{u"Wipe the board 0/1"_s});
    SchoolMode = 1;
    EXPECT_EQ(Counts(Print({Chores})), QStringList{u"Dust 0/1"_s}) << "true is -1 alone";
}

TEST_F(JobReportCountsTest, Report2TakesAnyFile) {
    MakeChartTable(Chores, {{u"Dust"_s}});
    WriteJobs("Dust\r\n", u"Other.dat"_s);
    Database().Report2(u"Anna"_s, {Chores}, Path(u"Jobs/Other.dat"_s), u"period"_s);
    EXPECT_EQ(Counts(LinesOfLastJob()), QStringList{u"Dust 0/1"_s});
}

TEST_F(JobReportCountsTest, StrangeNamesAreCountedAndPrinted) {
    const QString job = u"Tidy \"all\" of it/them. 😀 now"_s;
    const QString table = u"History 'Ann/a\" from: 1.2"_s;
    MakeChartTable(table, {{job, true}}, u"😀 O'Neil"_s);
    WriteJobs(job.toUtf8() + "\r\n");
    EXPECT_EQ(Counts(Print({table}, u"😀 O'Neil"_s)), QStringList{job + u" 1/0"_s});
}

// Run-time errors

TEST_F(JobReportCountsTest, MissingListOfJobsRaises53) {
    QFile::remove(Path(u"Jobs/HomeJobs.dat"_s));
    ExpectError(53, {u"no such table"_s});
}

TEST_F(JobReportCountsTest, MissingFolderOfJobsRaises76) {
    QDir(Path(u"Jobs"_s)).removeRecursively();
    ExpectError(76, {Chores});
}

TEST_F(JobReportCountsTest, PrinterThatRefusesRaises482BeforeTheListIsLookedFor) {
    QFile::remove(Path(u"Jobs/HomeJobs.dat"_s));
    class NoPaper : public PrintTarget {
        std::unique_ptr<QPagedPaintDevice> Open() override { return nullptr; }
        void Sent(const QString&) override {}
    } nowhere;
    SetPrintTarget(&nowhere);
    ExpectError(482, {Chores});
    SetPrintTarget(nullptr);
    ExpectError(482, {Chores});
}

TEST_F(JobReportCountsTest, MissingTableRaises3078AndPrintsNothing) {
    MakeChartTable(Chores, {{u"Dust"_s}});
    WriteJobs("Dust\r\n");
    ExpectError(3078, {Chores, u"gone"_s});
    EXPECT_EQ(Counts(Print({Chores})), QStringList{u"Dust 0/1"_s}) << "the next report is whole";
}

TEST_F(JobReportCountsTest, NamedTableWithoutRowsCountsNothing) {
    MakeChartTable(Chores, {{u"Dust"_s}});
    MakeChartTable(ThisWeek, {});
    WriteJobs("Dust\r\n");
    EXPECT_EQ(Counts(Print({ThisWeek, Chores})), QStringList{u"Dust 0/1"_s});
}

TEST_F(JobReportCountsTest, EmptyHistoryTableRaises3021WithAll) {
    MakeChartTable(ThisWeek, {{u"Dust"_s}});
    MakeChartTable(LastWeek, {}, u"Ben"_s);
    WriteJobs("Dust\r\n");
    ExpectError(3021, {All});
}

TEST_F(JobReportCountsTest, NoNamesRaise9) {
    WriteJobs("Dust\r\n");
    ExpectError(9, {});
}

TEST_F(JobReportCountsTest, CountBeyond16BitsRaises6OnlyForAJobOfTheList) {
    MakeChartTable(Chores, QList<ChartRow>(32767, {u"Dust"_s}) + QList<ChartRow>{{u"Sweep"_s}});
    WriteJobs("Sweep\r\nDust\r\n");
    EXPECT_EQ(Counts(Print({Chores})), (QStringList{u"Sweep 0/1"_s, u"Dust 0/32767"_s}));
    MakeChartTable(ThisWeek, {{u"Dust"_s, true}});
    EXPECT_EQ(Counts(Print({Chores, ThisWeek})), (QStringList{u"Sweep 0/1"_s, u"Dust 1/32767"_s}));
    MakeChartTable(LastWeek, {{u"Dust"_s}});
    ExpectError(6, {Chores, LastWeek});
    WriteJobs("Sweep\r\n");
    EXPECT_EQ(Counts(Print({Chores, LastWeek})), QStringList{u"Sweep 0/1"_s});
}

TEST_F(JobReportCountsTest, FirstJobsOwnFaultComesBeforeALaterTables) {
    MakeChartTable(Chores, QList<ChartRow>(32768, {u"Dust"_s}));
    WriteJobs("Dust\r\nSweep\r\n");
    ExpectError(6, {Chores, u"gone"_s});
    WriteJobs("Sweep\r\nDust\r\n");
    ExpectError(3078, {Chores, u"gone"_s});
}

// The same as a walk through all tables for each job

struct ReportedTable {
    QString Name;
    QString Owner;
    QList<ChartRow> Rows;
    QSet<int> NullMarks;
};

/// The counting as it is meant: one job, all tables, row by row.
QStringList LinesOf(const QList<ReportedTable>& tables, const QStringList& jobs,
                    const QStringList& names, const QString& kid) {
    QStringList lines;
    for (const QString& job : jobs) {
        int completed = 0;
        int incomplete = 0;
        const auto countTable = [&](const ReportedTable& table) {
            for (int row = 0; row < table.Rows.size(); ++row) {
                if (table.Rows[row].Instructions != job)
                    continue;
                if (table.Rows[row].Completed && !table.NullMarks.contains(row))
                    ++completed;
                else
                    ++incomplete;
            }
        };
        if (names.first() == u"All") {
            for (const ReportedTable& table : tables)
                if (table.Name.startsWith(u"Hist"_s) && table.Owner == kid)
                    countTable(table);
        } else {
            for (const QString& name : names)
                for (const ReportedTable& table : tables)
                    if (table.Name == name)
                        countTable(table);
        }
        if (completed + incomplete > 0)
            lines += u"%1 %2/%3"_s.arg(job).arg(completed).arg(incomplete);
    }
    return lines;
}

class RandomReports : public JobReportTest, public testing::WithParamInterface<quint32> {
protected:
    int Below(int bound) { return dice_.bounded(bound); }
    QString AnyJob() {
        static const QStringList jobs = {u"Dust"_s,      u"dust"_s,  u"DUST"_s, u"Sweep"_s,
                                         u"Sweep all"_s, u"Rake"_s,  u"rake"_s, u"Cook"_s,
                                         u"Iron"_s,      u"Ironed"_s};
        return jobs[Below(static_cast<int>(jobs.size()))];
    }

    QList<ReportedTable> MakeTables() {
        static const QStringList owners = {u"Anna"_s, u"anna"_s, u"Ben"_s};
        static const QStringList kinds = {u"History "_s, u"Hist"_s, u"hist "_s, u"Chart "_s};
        QList<ReportedTable> tables;
        for (int number = 0; number < 8; ++number) {
            ReportedTable table{
                kinds[Below(4)] + QString::number(number), owners[Below(3)], {}, {}};
            // More rows than are read at once, now and then.
            for (int row = Below(4) == 0 ? 150 : 1 + Below(9); row > 0; --row)
                table.Rows.append({AnyJob(), Below(2) == 0});
            MakeChartTable(table.Name, table.Rows, table.Owner);
            if (Below(2) == 0) {
                table.NullMarks.insert(Below(static_cast<int>(table.Rows.size())));
                Spoil(table.Name, u"Completed = NULL"_s,
                      u"Key & 0xffffffff = %1"_s.arg(*table.NullMarks.cbegin() + 1));
            }
            tables.append(table);
        }
        return tables;
    }

private:
    QRandomGenerator dice_{GetParam()};
};

TEST_P(RandomReports, AreAsCountedJobByJob) {
    const QList<ReportedTable> tables = MakeTables();
    for (int report = 0; report < 12; ++report) {
        QStringList jobs;
        for (int entry = Below(40); entry > 0; --entry)
            jobs += AnyJob();
        WriteJobs(jobs.isEmpty() ? QByteArray() : jobs.join(u"\r\n"_s).toUtf8() + "\r\n");
        QStringList names;
        if (Below(3) == 0)
            names += All;
        for (int name = 1 + Below(5); name > 0; --name)
            names += tables[Below(static_cast<int>(tables.size()))].Name;
        const QString kid = Below(2) == 0 ? u"Anna"_s : u"Ben"_s;
        EXPECT_EQ(Counts(Print(names, kid)), LinesOf(tables, jobs, names, kid));
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomReports, testing::Range(1u, 21u));

} // namespace
