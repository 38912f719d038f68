#include "platform/runtime/Dates.h"
#include "platform/runtime/Numbers.h"
#include "platform/runtime/RuntimeError.h"
#include "store/ChartFields.h"
#include "store/DatabaseCls.h"

#include <QHash>
#include <QScopeGuard>
#include <optional>

namespace {

constexpr int DaysOfWeek = 7;
constexpr int Transparent = 0;
constexpr int Opaque = 1;
constexpr qint32 Red = 255;

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

/// `act` on each control array with one element a line.
template <class Act>
void ForEachColumn(ChartMatrix& form, Act&& act) {
    act(form.Jobs());
    for (int day = 1; day <= DaysOfWeek; ++day)
        act(form.Cells(day));
    act(form.Outlines());
    act(form.Values());
    act(form.JobTotals());
}

void ClearFirstLine(ChartMatrix& form) {
    for (int day = 1; day <= DaysOfWeek; ++day) {
        form.Cells(day).SetCaption(0, QString());
        form.Cells(day).SetBackStyle(0, Transparent);
    }
    form.Values().SetCaption(0, QString());
    form.Jobs().SetCaption(0, QString());
}

void RemoveLines(ChartMatrix& form) {
    ForEachColumn(form, [](MatrixControls& controls) {
        while (controls.Count() > 1)
            controls.UnloadLast();
    });
}

/// Creates a line; its job stands below the job before it by twice the label's height, and its
/// outline right below the outline before.
void CreateLine(ChartMatrix& form, int line) {
    ForEachColumn(form, [](MatrixControls& controls) { controls.LoadElement(); });
    MatrixLabels& jobs = form.Jobs();
    jobs.SetTop(line, jobs.Top(line - 1) + 2 * jobs.Height(line - 1));
    MatrixControls& outlines = form.Outlines();
    outlines.SetTop(line, outlines.Top(line - 1) + outlines.Height(line - 1));
}

void CreateJobLine(ChartMatrix& form, int line) {
    CreateLine(form, line);
    const int top = form.Jobs().Top(line);
    for (int day = 1; day <= DaysOfWeek; ++day) {
        MatrixLabels& cells = form.Cells(day);
        cells.SetTop(line, top);
        cells.SetVisible(line, false);
        cells.SetBackStyle(line, Transparent);
        cells.SetCaption(line, QString());
    }
    for (MatrixLabels* labels : {&form.Values(), &form.JobTotals()}) {
        labels->SetTop(line, top);
        labels->SetVisible(line, true);
        labels->SetCaption(line, QString());
    }
    form.Jobs().SetVisible(line, true);
    form.Outlines().SetVisible(line, true);
}

/// 1 to 7 for "Sun" to "Sat"; 0 for any other text, a range of days included: unlike on paper, it
/// is not spread over its days.
int DayNumberOf(const QString& dayOfWeek) {
    for (int day = 1; day <= DaysOfWeek; ++day)
        if (dayOfWeek == DayAbbreviation(day))
            return day;
    return 0;
}

void ShowInCell(MatrixLabels& cells, int line, bool completed) {
    if (completed) {
        cells.SetCaption(line, NumberText(Val(cells.Caption(line)) + 1));
        cells.SetBackStyle(line, Opaque);
    }
    cells.SetVisible(line, true);
}

} // namespace

/// The points of a chart's completed rows, by the texts of the job and of the day.
struct DatabaseCls::PointSums {
    QHash<QString, PointSum> ByJob;
    QHash<QString, PointSum> ByDay;
};

void DatabaseCls::FillMatrix(const QString& ChartName) {
    const TableStore::Reading reading(Tables());
    Recordset rows = Tables().OpenRecordset(ChartName);
    JobNames.clear();
    if (!rows.Eof())
        rows.MoveFirst();
    const QString firstDate = TextOf(rows.Value(ChartField::FirstDate));
    const QString lastDate = TextOf(rows.Value(ChartField::LastDate));
    ChartMatrix& form = forms_.Review();
    form.Title().SetCaption(QStringLiteral("Weekly Dutygrid Review from: ") + firstDate +
                            QStringLiteral(" to ") + lastDate);
    ClearFirstLine(form);
    RemoveLines(form);

    const auto forgetSums = qScopeGuard([this] { pointSums_.reset(); });
    qint16 line = 0;
    while (!rows.Eof()) {
        const QString job = TextOf(rows.Value(ChartField::Instructions));
        if (CheckJobIsNew(job)) {
            ShowJob(form, line, rows, ChartName);
            line = AddIntegers(line, 1);
        }
        const int day = DayNumberOf(rows.Value(ChartField::DayOfWeek).toString());
        if (day != 0)
            ShowInCell(form.Cells(day), ReturnJobRow(job) - 1, IsCompleted(rows));
        rows.MoveNext();
    }
    ShowTotals(form, line, ChartName);
}

void DatabaseCls::ShowJob(ChartMatrix& form, qint16 line, const Recordset& rows,
                          const QString& chartName) {
    if (line != 0)
        CreateJobLine(form, line);
    const QString job = TextOf(rows.Value(ChartField::Instructions));
    form.Jobs().SetCaption(line, job);
    form.Values().SetCaption(line, TextOf(rows.Value(ChartField::Points)));
    form.JobTotals().SetCaption(line, QString::number(ReturnPointsMade(job, chartName, true)));
}

void DatabaseCls::ShowTotals(ChartMatrix& form, qint16 line, const QString& chartName) {
    CreateLine(form, line);
    MatrixLabels& jobs = form.Jobs();
    MatrixLabels& values = form.Values();
    values.SetTop(line, jobs.Top(line));
    // To the right of the days, under the points of the jobs.
    const MatrixLabels& saturdays = form.Cells(DaysOfWeek);
    values.SetLeft(line, ToLong(saturdays.Left(line) + 1.5 * saturdays.Width(line)));
    jobs.SetForeColor(line, Red);
    values.SetForeColor(line, Red);
    jobs.SetVisible(line, true);
    values.SetVisible(line, true);
    form.Outlines().SetVisible(line, true);
    jobs.SetCaption(line, QStringLiteral("Total Points"));
    values.SetCaption(line, QString::number(ReturnTotalPoints(chartName)));

    for (int day = 1; day <= DaysOfWeek; ++day) {
        const qint16 points = ReturnPointsMade(DayAbbreviation(day), chartName, false);
        form.DayTotals().SetCaption(day - 1, QString::number(points));
        form.DayTotals().SetTop(day - 1, jobs.Top(line));
    }
}

bool DatabaseCls::CheckJobIsNew(const QString& JobName) {
    if (JobNames.contains(JobName))
        return false;
    JobNames += JobName;
    return true;
}

qint16 DatabaseCls::ReturnJobRow(const QString& JobName) const {
    return ToInteger(static_cast<double>(JobNames.lastIndexOf(JobName)) + 1);
}

qint16 DatabaseCls::ReturnTotalPoints(const QString& ChartName) {
    PointSum sum;
    Recordset rows = Tables().OpenRecordset(ChartName);
    if (!rows.Eof())
        rows.MoveFirst();
    while (!rows.Eof()) {
        if (IsCompleted(rows))
            sum.Add(rows);
        rows.MoveNext();
    }
    return sum.Value();
}

qint16 DatabaseCls::ReturnPointsMade(const QString& Key, const QString& ChartName, bool ByJob) {
    if (!pointSums_)
        pointSums_ = std::make_shared<PointSums>(SumPoints(ChartName));
    return (ByJob ? pointSums_->ByJob : pointSums_->ByDay).value(Key).Value();
}

DatabaseCls::PointSums DatabaseCls::SumPoints(const QString& chartName) {
    PointSums sums;
    Recordset rows = Tables().OpenRecordset(chartName);
    if (!rows.Eof())
        rows.MoveFirst();
    while (!rows.Eof()) {
        if (IsCompleted(rows)) {
            sums.ByJob[rows.Value(ChartField::Instructions).toString()].Add(rows);
            sums.ByDay[rows.Value(ChartField::DayOfWeek).toString()].Add(rows);
        }
        rows.MoveNext();
    }
    return sums;
}
