#include "platform/runtime/Dates.h"
#include "platform/runtime/Numbers.h"
#include "platform/runtime/RuntimeError.h"
#include "store/ChartFields.h"
#include "store/DatabaseCls.h"
#include "store/DayTexts.h"
#include "store/Rows.h"
#include "store/TableNames.h"
#include "support/DateCls.h"

namespace {

/// An empty text is stored as one blank.
QString Filled(const QString& text) {
    return text.isEmpty() ? QStringLiteral(" ") : text;
}

/// What a chart holds besides its jobs, in the rows of the first one.
struct ChartOfWeek {
    QString UserName;
    QDate FirstDate;
    QDate LastDate;
    bool AutoCreate = false;
};

void AddJobs(Recordset& rows, const ChartEditorRows& form, const ChartOfWeek& chart) {
    for (int i = 0; i < form.RowCount(); ++i) {
        const EditorRow job = form.Row(i);
        const double points = Val(job.Points);
        for (const QString& day : DaysOf(job.DayOfWeek)) {
            rows.AddNew();
            rows.SetValue(ChartField::Instructions, Filled(job.Instructions));
            rows.SetValue(ChartField::DayOfWeek, Filled(day));
            rows.SetValue(ChartField::AdultResponsable, Filled(job.AdultResponsable));
            rows.SetValue(ChartField::Difficuly, Filled(job.Difficulty));
            rows.SetValue(ChartField::Points, points);
            if (i == 0) {
                rows.SetValue(ChartField::FirstDate, chart.FirstDate);
                rows.SetValue(ChartField::LastDate, chart.LastDate);
                rows.SetValue(ChartField::UserName, chart.UserName);
                rows.SetValue(ChartField::AutoCreate, chart.AutoCreate);
            }
            rows.Update();
        }
    }
}

bool IsOnDay(const Recordset& rows, const QString& day) {
    return FallsOn(TextOf(rows.Value(ChartField::DayOfWeek)), day);
}

void StoreTicks(Recordset& rows, const ChartViewerRows& form, const QString& day) {
    int i = 0;
    rows.MoveFirst();
    ForEachRow(rows, [&] {
        if (!IsOnDay(rows, day))
            return;
        rows.Edit();
        rows.SetValue(ChartField::Completed, form.CheckVisible(i));
        rows.Update();
        ++i;
    });
}

/// Fills as many lines as the table had rows at first, whatever another program adds meanwhile.
void FillEditor(ChartEditorRows& form, Recordset& rows, qint16 count) {
    int i = 0;
    while (i < count) {
        form.SetRow(i, {TextOf(rows.Value(ChartField::Instructions)),
                        TextOf(rows.Value(ChartField::DayOfWeek)),
                        TextOf(rows.Value(ChartField::AdultResponsable)),
                        TextOf(rows.Value(ChartField::Difficuly)),
                        TextOf(rows.Value(ChartField::Points))});
        ++i;
        if (i < count)
            form.NewTask_Click();
        rows.MoveNext();
    }
}

/// The row as the viewer shows it.
ViewerRow ShownRow(const Recordset& rows) {
    return {TextOf(rows.Value(ChartField::Instructions)), TextOf(rows.Value(ChartField::Difficuly)),
            TextOf(rows.Value(ChartField::Points)),
            TextOf(rows.Value(ChartField::AdultResponsable)),
            BooleanOf(rows.Value(ChartField::Completed))};
}

/// Deletes every row. Of no use where it is called, on a table just made.
void EmptyRecordset(Recordset* Rows) {
    if (Rows == nullptr)
        return;
    while (!(Rows->Eof() && Rows->Bof())) {
        Rows->Delete();
        if (Rows->RecordCount() == 0)
            return;
        Rows->MoveFirst();
    }
}

/// From the first row on, the texts of the rows' days. Raises 3021 if there is no row.
TableWalk WalkThroughDays(TableStore& tables, const QString& chart) {
    TableWalk rows = tables.WalkThrough(chart, {QStringLiteral("DayOfWeek")});
    if (rows.Eof())
        throw RuntimeError(ErrorNumber::NoCurrentRecord);
    return rows;
}

/// What the viewer's DayLbl says for the current row, read for `Day`; "" for a day outside the
/// chart's week, whose dates are read into the store's members.
QString DayCaption(DatabaseCls& store, const Recordset& Rows, const QString& Day) {
    QString abbreviation = TextOf(Rows.Value(ChartField::DayOfWeek));
    if (IsRange(abbreviation))
        abbreviation = Day;
    const QString wanted = FullDayName(abbreviation);

    store.ReadDates(Rows.Name());
    const QDate first = DateFromText(store.FirstDateText);
    DateCls date;
    date.SetValue(DateFromText(store.LastDateText));
    date.Subtract(4, Days);
    const int days = date.Value() == first ? 5 : 7;
    date.SetValue(first);

    QString caption;
    for (int day = 0; day < days; ++day) {
        if (WeekdayName(date.Value()) == wanted)
            caption = wanted + QLatin1Char(' ') + DateText(date.Value());
        date.Add(1, Days);
    }
    return caption;
}

} // namespace

void DatabaseCls::CreateChart(const QString& Name) {
    RefuseAccountsName(Name);
    if (ChartExist(Name))
        Tables().DeleteTable(Name);
    Tables().CreateTable(Name, ChartTableFields());
}

bool DatabaseCls::ChartExist(const QString& Name) {
    return Tables().HasTable(Name);
}

void DatabaseCls::WriteInfoToChart(const QString& Name, qint16 FormIndex, Mode UpdateTicks,
                                   const QString& UserName, const QDate& FirstDate,
                                   const QDate& LastDate, bool AutoCreate) {
    RefuseAccountsName(Name);
    if (UpdateTicks.IsTrue()) {
        Recordset rows = Tables().OpenRecordset(Name);
        StoreTicks(rows, forms_.Viewer(FormIndex), CurrentDay);
    } else if (UpdateTicks.IsFalse()) {
        // A save never edits rows: the old table goes, with its ticks, and all are written anew.
        if (ChartExist(Name))
            Tables().DeleteTable(Name);
        CreateChart(Name);
        Recordset rows = Tables().OpenRecordset(Name);
        EmptyRecordset(&rows);
        AddJobs(rows, forms_.Editor(FormIndex), {UserName, FirstDate, LastDate, AutoCreate});
    }
}

void DatabaseCls::ReadInfoFromChart(const QString& Name, qint16 FormIndex, Mode ToViewer,
                                    const QString& Day) {
    if (!CheckForDuplicates(Name))
        throw RuntimeError(ErrorNumber::ObjectVariableNotSet);

    Recordset rows = Tables().OpenRecordset(Name);
    const qint16 recordCount = ToInteger(rows.RecordCount());
    if (ToViewer.IsFalse())
        FillEditor(forms_.Editor(FormIndex), rows, recordCount);
    if (!ToViewer.IsTrue())
        return;

    const qint16 count = PrintReturnNr_Articles(Day, rows.Name());
    CurrentDay = Day;
    ChartViewerRows& form = forms_.Viewer(FormIndex);
    if (count == 0)
        return;
    int i = 0;
    ForEachRow(rows, [&] {
        if (!IsOnDay(rows, Day))
            return;
        // The same for all rows of a day.
        if (i == 0)
            form.SetDayCaption(DayCaption(*this, rows, Day));
        form.SetRow(i, ShownRow(rows));
        ++i;
        if (i < count)
            form.CreateNewTask(i);
    });
}

void DatabaseCls::ReadDates(const QString& Name) {
    const Recordset rows = Tables().OpenRecordset(Name);
    if (!rows.Eof())
        KeepDates(rows.Value(ChartField::FirstDate), rows.Value(ChartField::LastDate));
}

void DatabaseCls::KeepDates(const QVariant& first, const QVariant& last) {
    FirstDateText = TextOf(first);
    LastDateText = TextOf(last);
    FirstDateKey = DateKey(DateOf(first));
    LastDateKey = DateKey(DateOf(last));
}

qint16 DatabaseCls::PrintReturnNr_Articles(const QString& DayAbbreviation,
                                           const QString& ChartName) {
    TableWalk rows = WalkThroughDays(Tables(), ChartName);
    qint16 count = 0;
    if (DayAbbreviation.isEmpty())
        return count;
    ForEachRow(rows, [&] {
        if (FallsOn(TextOf(rows.Value(0)), DayAbbreviation))
            count = AddIntegers(count, 1);
    });
    return count;
}

QSet<int> DatabaseCls::DaysWithJobs(const QString& ChartName) {
    TableWalk rows = WalkThroughDays(Tables(), ChartName);
    QSet<int> days;
    ForEachRow(rows, [&] {
        const QString text = TextOf(rows.Value(0));
        for (int day = 1; day <= DaysOfWeek; ++day)
            if (FallsOn(text, DayAbbreviation(day)))
                days.insert(day);
    });
    return days;
}
