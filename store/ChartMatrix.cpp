#include "platform/runtime/Dates.h"
#include "platform/runtime/Numbers.h"
#include "platform/runtime/RuntimeError.h"
#include "store/ChartFields.h"
#include "store/DatabaseCls.h"
#include "store/DayTexts.h"
#include "store/Rows.h"

#include <QHash>
#include <optional>

namespace {

bool IsCompleted(const Recordset& rows) {
    // A Null counts as false.
    return rows.Value(ChartField::Completed).toBool();
}

/// A sum in 16 bits. What keeps it from being made is raised when it is asked for, not before.
class PointSum {
public:
    void Add(const Recordset& rows) {
        if (failure_)
            return;
        try {
            sum_ = ToInteger(double(sum_) + LongOf(rows.Value(ChartField::Points)));
        } catch (const RuntimeError& failure) {
            failure_ = failure;
        }
    }

    qint16 Value() const {
        if (failure_)
            throw *failure_;
        return sum_;
    }

private:
    qint16 sum_ = 0;
    std::optional<RuntimeError> failure_;
};

/// The points of a chart's completed rows, by the texts of the job and of the day.
struct PointSums {
    QHash<QString, PointSum> ByJob;
    QHash<QString, PointSum> ByDay;
};

PointSums SumPoints(Recordset rows) {
    PointSums sums;
    ForEachRow(rows, [&] {
        if (!IsCompleted(rows))
            return;
        sums.ByJob[rows.Value(ChartField::Instructions).toString()].Add(rows);
        sums.ByDay[rows.Value(ChartField::DayOfWeek).toString()].Add(rows);
    });
    return sums;
}

/// One filling of the matrix. `jobNames`: the distinct jobs found so far.
class MatrixFilling {
public:
    MatrixFilling(TableStore& tables, QStringList& jobNames)
        : tables_(tables), jobNames_(jobNames) {}

    /// True if the job was not among the names yet; it is then.
    bool CheckJobIsNew(const QString& JobName);
    /// The job's place among the names, 1 the first; 0 if it is not there.
    qint16 ReturnJobRow(const QString& JobName) const;
    /// The points of all completed rows of the chart. Raises 6 beyond 16 bits.
    qint16 ReturnTotalPoints(const QString& ChartName);
    /// The points of the completed rows of one job (`ByJob`) or one day. Raises 6 beyond 16 bits.
    qint16 ReturnPointsMade(const QString& Key, const QString& ChartName, bool ByJob);

private:
    TableStore& tables_;
    QStringList& jobNames_;
    /// Of the one chart: a walk over the table for each job would make a large chart slow.
    std::optional<PointSums> sums_;
};

bool MatrixFilling::CheckJobIsNew(const QString& JobName) {
    if (jobNames_.contains(JobName))
        return false;
    jobNames_ += JobName;
    return true;
}

qint16 MatrixFilling::ReturnJobRow(const QString& JobName) const {
    return ToInteger(static_cast<double>(jobNames_.lastIndexOf(JobName)) + 1);
}

qint16 MatrixFilling::ReturnTotalPoints(const QString& ChartName) {
    PointSum sum;
    Recordset rows = tables_.OpenRecordset(ChartName);
    ForEachRow(rows, [&] {
        if (IsCompleted(rows))
            sum.Add(rows);
    });
    return sum.Value();
}

qint16 MatrixFilling::ReturnPointsMade(const QString& Key, const QString& ChartName, bool ByJob) {
    if (!sums_)
        sums_ = SumPoints(tables_.OpenRecordset(ChartName));
    return (ByJob ? sums_->ByJob : sums_->ByDay).value(Key).Value();
}

} // namespace

void DatabaseCls::FillMatrix(const QString& ChartName) {
    const TableStore::Reading reading(Tables());
    Recordset rows = Tables().OpenRecordset(ChartName);
    JobNames.clear();
    const QString firstDate = TextOf(rows.Value(ChartField::FirstDate));
    const QString lastDate = TextOf(rows.Value(ChartField::LastDate));
    ChartMatrix& form = forms_.Review();
    form.Begin(QStringLiteral("Weekly Dutygrid Review from: ") + firstDate +
               QStringLiteral(" to ") + lastDate);

    MatrixFilling filling(Tables(), JobNames);
    qint16 jobCount = 0;
    ForEachRow(rows, [&] {
        const QString job = TextOf(rows.Value(ChartField::Instructions));
        if (filling.CheckJobIsNew(job)) {
            form.AddJob(job);
            form.SetJobValue(TextOf(rows.Value(ChartField::Points)));
            form.SetJobTotal(filling.ReturnPointsMade(job, ChartName, true));
            jobCount = AddIntegers(jobCount, 1); // for its overflow alone
        }
        const int day = SingleDayNumber(rows.Value(ChartField::DayOfWeek).toString());
        if (day != 0)
            form.AddMark(filling.ReturnJobRow(job) - 1, day, IsCompleted(rows));
    });

    form.AddTotals(QStringLiteral("Total Points"));
    form.SetGrandTotal(filling.ReturnTotalPoints(ChartName));
    for (int day = 1; day <= DaysOfWeek; ++day)
        form.SetDayTotal(day, filling.ReturnPointsMade(DayAbbreviation(day), ChartName, false));
}
