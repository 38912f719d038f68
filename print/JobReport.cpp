#include "platform/printing/Printer.h"
#include "platform/runtime/Dates.h"
#include "platform/runtime/Numbers.h"
#include "platform/runtime/RuntimeError.h"
#include "platform/runtime/TextFiles.h"
#include "print/JobTallies.h"
#include "print/SheetSetUp.h"
#include "store/ChartFields.h"
#include "store/ColorValues.h"
#include "store/DatabaseCls.h"
#include "store/JobNameFile.h"
#include "store/Rows.h"
#include "store/TableNames.h"

#include <optional>

namespace {

/// The first line's grid row; a page ends behind the line with the last number.
constexpr qint16 FirstGridRow = 3;
constexpr qint16 LastLineNo = 28;
/// Jobs and the heading of the counts end before the rule of the next column; the last heading is
/// on small paper as much smaller as the one beside it.
constexpr double ReportedJobsEnd = 10.8;
constexpr double CompletedEnd = 14.95;
constexpr double IncompleteEnd = 19.6;

/// What is read of a table to count its rows, and to find its period; the places in the lists.
const QStringList CountedFields = {QStringLiteral("Instructions"), QStringLiteral("Completed"),
                                   QStringLiteral("UserName")};
constexpr int Instructions = 0;
constexpr int Completed = 1;
constexpr int UserName = 2;
const QStringList PeriodFields = {QStringLiteral("FirstDate"), QStringLiteral("LastDate")};
constexpr int FirstDate = 0;
constexpr int LastDate = 1;

void PrintJobLine(PrinterObject& printer, qint16 lineNo, const QString& job,
                  const JobCounts& counts) {
    const int top = lineNo + FirstGridRow;
    printer.SetFontSize(14);
    printer.SetCurrentX(1.2);
    printer.SetCurrentY(top);
    const QString number = QString::number(lineNo + 1) + QStringLiteral(".     ");
    printer.Print(number + job, {.End = ReportedJobsEnd, .Lead = number.size()});
    printer.SetCurrentX(12);
    printer.SetCurrentY(top);
    printer.Print(QString::number(counts.Completed) + QLatin1Char(' '));
    printer.SetCurrentX(16.5);
    printer.SetCurrentY(top);
    printer.SetForeColor(ColorValue::Red);
    printer.Print(QString::number(counts.Incomplete) + QLatin1Char(' '));
    printer.SetForeColor(ColorValue::Black);
}

void PrintReportHeader(PrinterObject& printer, const QString& KidName,
                       const QString& DateRangeText) {
    SetUpGrid(printer);
    const auto print = [&printer](double x, double y, const QString& text, double end = 0) {
        printer.SetCurrentX(x);
        printer.SetCurrentY(y);
        printer.Print(text, {.End = end});
    };
    printer.SetFontSize(18);
    print(8, 0, KidName + QStringLiteral(" - Job Report"));
    print(5, 1, DateRangeText);
    print(1.2, 2, QStringLiteral("         Jobs"));
    print(11.5, 2, QStringLiteral("Completed"), CompletedEnd);
    print(15.5, 2, QStringLiteral("   Incomplete"), IncompleteEnd);
    printer.Line(3, 3, 21, 3, ColorValue::Black);
    printer.Line(11, 3, 11, 29, ColorValue::Black);
    printer.Line(15, 3, 15, 29, ColorValue::Black);
}

/// The counts of one report.
class JobHistory {
public:
    explicit JobHistory(TableStore& tables) : tables_(tables) {}

    /// How often a job was completed and left open in the tables. The first job that is asked for
    /// takes the counts of all jobs, in one walk, where those after it find them: what is raised
    /// is the same, and in the same order, as with a walk for each.
    JobCounts CountJobHistory(const QString& JobName, const QString& KidName,
                              const QStringList& ChartNames);

private:
    void TakeCounts(const QString& kidName, const QStringList& chartNames);
    void WalkThrough(const QString& kidName, const QStringList& chartNames);

    TableStore& tables_;
    std::optional<JobTallies> tallies_;
    /// What ended the walk before its time.
    std::optional<RuntimeError> failure_;
};

JobCounts JobHistory::CountJobHistory(const QString& JobName, const QString& KidName,
                                      const QStringList& ChartNames) {
    if (!tallies_)
        TakeCounts(KidName, ChartNames);
    // A row of this job that cannot be counted comes before the table that cannot be walked.
    const JobCounts counts = tallies_->Of(JobName);
    if (failure_)
        throw *failure_;
    return counts;
}

void JobHistory::TakeCounts(const QString& kidName, const QStringList& chartNames) {
    tallies_.emplace();
    try {
        WalkThrough(kidName, chartNames);
    } catch (const RuntimeError& failure) {
        failure_ = failure;
    }
}

void JobHistory::WalkThrough(const QString& kidName, const QStringList& chartNames) {
    const TableStore::Reading reading(tables_);
    TableWalk rows = tables_.WalkThrough(CountedFields);
    const auto countRows = [&] {
        ForEachRow(rows, [&] {
            tallies_->Count(rows.Value(Instructions), [&] { return rows.Value(Completed); });
        });
    };
    if (!MeansAllHistory(chartNames)) {
        for (const QString& name : chartNames) {
            rows.Open(name);
            countRows();
        }
        return;
    }
    const int count = tables_.TableCount();
    for (int index = 0; index < count; ++index) {
        const QString name = tables_.TableName(index);
        if (!IsHistory(name))
            continue;
        rows.Open(name);
        // Whose table it is says its first row, whatever the table is called.
        if (Holds(rows.Value(UserName), kidName))
            countRows();
    }
}

} // namespace

void DatabaseCls::PrintReport2(const QString& KidName, const QStringList& ChartNames,
                               const QString& DateRangeText) {
    Report2(KidName, ChartNames, JobNameFile(forms_.IsSchool()), DateRangeText);
}

void DatabaseCls::Report2(const QString& KidName, const QStringList& ChartNames,
                          const QString& JobFile, const QString& DateRangeText) {
    PrinterObject& printer = Printer();
    const PrintJobGuard job(printer);
    printer.SetDocName(
        SheetName({KidName, QStringLiteral("Job Report"), Today().toString(Qt::ISODate)}));
    PrintReportHeader(printer, KidName, DateRangeText);

    InputFile names(JobFile);
    JobHistory history(Tables());
    qint16 LineNo = 0;
    while (!names.AtEnd()) {
        const QString JobName = names.InputText();
        const JobCounts counts = history.CountJobHistory(JobName, KidName, ChartNames);
        if (!counts.Found)
            continue;
        PrintJobLine(printer, LineNo, JobName, counts);
        LineNo = AddIntegers(LineNo, 1);
        // The limit is the number's, not the paper's: the last two lines stand beyond its edge.
        if (LineNo > LastLineNo) {
            printer.NewPage();
            PrintReportHeader(printer, KidName, DateRangeText);
            LineNo = 0;
        }
    }
    printer.EndDoc();
}

QString DatabaseCls::ReturnDateRange(const QString&, const QStringList& ChartNames) {
    const TableStore::Reading reading(Tables());
    TableWalk row = Tables().WalkThrough(PeriodFields);
    const bool isAll = MeansAllHistory(ChartNames);
    const int tableCount = Tables().TableCount();
    const qsizetype count = isAll ? tableCount : ChartNames.size();
    QDate StartDate;
    QDate EndDate;
    qint16 Opened = 0;
    for (int index = 0; index < count; ++index) {
        // Also for a name of the list: the table at its place in the catalogue decides.
        const QString tableName = Tables().TableName(index);
        if (!HasPeriod(tableName))
            continue;
        row.Open(isAll ? tableName : ChartNames.at(index));
        Opened = AddIntegers(Opened, 1);
        const QDate first = DateOf(row.Value(FirstDate));
        const QDate last = DateOf(row.Value(LastDate));
        // Dates stand in the same order as their keys.
        if (Opened == 1 || EndDate < last)
            EndDate = last;
        if (Opened == 1 || StartDate > first)
            StartDate = first;
    }
    return QStringLiteral("Starting from: ") + DateText(StartDate) + QStringLiteral(" until ") +
           DateText(EndDate);
}
