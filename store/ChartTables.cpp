#include "platform/runtime/Dates.h"
#include "platform/runtime/Numbers.h"
#include "platform/runtime/RuntimeError.h"
#include "store/ChartFields.h"
#include "store/DatabaseCls.h"
#include "store/TableNames.h"
#include "support/DateCls.h"

namespace {

const QString WeekDays = QStringLiteral("Mon-Fri");
const QString AllDays = QStringLiteral("Sun-Sat");

/// An empty text is stored as one blank.
QString Filled(const QString& text) {
    return text.isEmpty() ? QStringLiteral(" ") : text;
}

/// The days on which a job with this day text gets a row.
QStringList StoredDays(const QString& dayOfWeek) {
    const bool weekDays = dayOfWeek == WeekDays;
    if (!weekDays && dayOfWeek != AllDays)
        return {Filled(dayOfWeek)};
    QStringList days;
    for (int day = weekDays ? 2 : 1; day <= (weekDays ? 6 : 7); ++day)
        days += DayAbbreviation(day);
    return days;
}

} // namespace

bool DatabaseCls::FallsOnDay(const QString& dayOfWeek, const QString& day) {
    return dayOfWeek == day || dayOfWeek == WeekDays || dayOfWeek == AllDays;
}

void DatabaseCls::CreateChart(const QString& Name) {
    RefuseAccountsName(Name);
    if (ChartExist(Name))
        Tables().DeleteTable(Name);
    Tables().CreateTable(Name, ChartTableFields());
}

bool DatabaseCls::ChartExist(const QString& Name) {
    return Tables().HasTable(Name);
}

void DatabaseCls::EmptyRecordset(Recordset* Rows) {
    if (Rows == nullptr)
        return;
    while (!(Rows->Eof() && Rows->Bof())) {
        Rows->Delete();
        if (Rows->RecordCount() == 0)
            return;
        Rows->MoveFirst();
    }
}

void DatabaseCls::WriteInfoToChart(const QString& Name, qint16 FormIndex, Mode UpdateTicks,
                                   const QString& UserName, const QDate& FirstDate,
                                   const QDate& LastDate, bool AutoCreate) {
    RefuseAccountsName(Name);
    if (UpdateTicks.IsTrue())
        WriteTicks(Name, FormIndex);
    else if (UpdateTicks.IsFalse())
        WriteEditorRows(Name, FormIndex, UserName, FirstDate, LastDate, AutoCreate);
}

void DatabaseCls::WriteEditorRows(const QString& name, qint16 formIndex, const QString& userName,
                                  const QDate& firstDate, const QDate& lastDate, bool autoCreate) {
    // A save never edits rows: the old table goes, with its ticks, and all rows are written anew.
    if (ChartExist(name))
        Tables().DeleteTable(name);
    CreateChart(name);
    Recordset rows = Tables().OpenRecordset(name);
    EmptyRecordset(&rows);

    ChartEditorRows& form = forms_.Editor(formIndex);
    for (int i = 0; i < form.RowCount(); ++i) {
        const EditorRow job = form.Row(i);
        const double points = Val(job.Points);
        for (const QString& day : StoredDays(job.DayOfWeek)) {
            rows.AddNew();
            rows.SetValue(ChartField::Instructions, Filled(job.Instructions));
            rows.SetValue(ChartField::DayOfWeek, day);
            rows.SetValue(ChartField::AdultResponsable, Filled(job.AdultResponsable));
            rows.SetValue(ChartField::Difficuly, Filled(job.Difficulty));
            rows.SetValue(ChartField::Points, points);
            if (i == 0) {
                rows.SetValue(ChartField::FirstDate, firstDate);
                rows.SetValue(ChartField::LastDate, lastDate);
                rows.SetValue(ChartField::UserName, userName);
                rows.SetValue(ChartField::AutoCreate, autoCreate);
            }
            rows.Update();
        }
    }
}

void DatabaseCls::WriteTicks(const QString& name, qint16 formIndex) {
    Recordset rows = Tables().OpenRecordset(name);
    ChartViewerRows& form = forms_.Viewer(formIndex);
    int i = 0;
    rows.MoveFirst();
    while (!rows.Eof()) {
        if (FallsOnDay(TextOf(rows.Value(ChartField::DayOfWeek)), CurrentDay)) {
            rows.Edit();
            rows.SetValue(ChartField::Completed, form.CheckVisible(i));
            rows.Update();
            ++i;
        }
        rows.MoveNext();
    }
}

void DatabaseCls::ReadInfoFromChart(const QString& Name, qint16 FormIndex, Mode ToViewer,
                                    const QString& Day) {
    const int count = Tables().TableCount();
    int index = 0;
    while (index < count && Tables().TableName(index) != Name)
        ++index;
    if (index == count)
        throw RuntimeError(ErrorNumber::ObjectVariableNotSet);

    Recordset rows = Tables().OpenRecordset(Name);
    const qint16 recordCount = ToInteger(rows.RecordCount());
    if (!rows.Eof())
        rows.MoveFirst();
    if (ToViewer.IsTrue())
        ReadIntoViewer(rows, FormIndex, Day);
    else if (ToViewer.IsFalse())
        ReadIntoEditor(rows, recordCount, FormIndex);
}

void DatabaseCls::ReadIntoEditor(Recordset& rows, qint16 recordCount, qint16 formIndex) {
    ChartEditorRows& form = forms_.Editor(formIndex);
    int i = 0;
    while (i < recordCount) {
        form.SetRow(i, {TextOf(rows.Value(ChartField::Instructions)),
                        TextOf(rows.Value(ChartField::DayOfWeek)),
                        TextOf(rows.Value(ChartField::AdultResponsable)),
                        TextOf(rows.Value(ChartField::Difficuly)),
                        TextOf(rows.Value(ChartField::Points))});
        ++i;
        if (i < recordCount)
            form.NewTask_Click();
        rows.MoveNext();
    }
}

void DatabaseCls::ReadIntoViewer(Recordset& rows, qint16 formIndex, const QString& day) {
    const qint16 count = PrintReturnNr_Articles(day, rows.Name());
    CurrentDay = day;
    ChartViewerRows& form = forms_.Viewer(formIndex);
    if (count == 0)
        return;
    int i = 0;
    while (!rows.Eof()) {
        if (FallsOnDay(TextOf(rows.Value(ChartField::DayOfWeek)), day)) {
            // The same for all rows of a day.
            if (i == 0)
                form.SetDayCaption(DayCaption(rows, day));
            form.SetRow(i, {TextOf(rows.Value(ChartField::Instructions)),
                            TextOf(rows.Value(ChartField::Difficuly)),
                            TextOf(rows.Value(ChartField::Points)),
                            TextOf(rows.Value(ChartField::AdultResponsable)),
                            BooleanOf(rows.Value(ChartField::Completed))});
            ++i;
            if (i < count)
                form.CreateNewTask(i);
        }
        rows.MoveNext();
    }
}

QString DatabaseCls::DayCaption(Recordset& Rows, const QString& Day) {
    QString abbreviation = TextOf(Rows.Value(ChartField::DayOfWeek));
    if (abbreviation == WeekDays || abbreviation == AllDays)
        abbreviation = Day;
    const QString wanted = FullDayName(abbreviation);

    ReadDates(Rows.Name());
    const QDate first = DateFromText(FirstDateText);
    DateCls date;
    date.SetValue(DateFromText(LastDateText));
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

void DatabaseCls::ReadDates(const QString& Name) {
    Recordset rows = Tables().OpenRecordset(Name);
    if (rows.Eof())
        return;
    rows.MoveFirst();
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
    TableWalk rows = Tables().WalkThrough(ChartName, {QStringLiteral("DayOfWeek")});
    if (rows.Eof())
        throw RuntimeError(ErrorNumber::NoCurrentRecord);
    qint16 count = 0;
    if (DayAbbreviation.isEmpty())
        return count;
    for (; !rows.Eof(); rows.MoveNext())
        if (FallsOnDay(TextOf(rows.Value(0)), DayAbbreviation))
            count = AddIntegers(count, 1);
    return count;
}
