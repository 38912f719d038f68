#include "tests/reports/ReviewTest.h"

#include "platform/forms/DefaultForms.h"
#include "store/ChartFields.h"

#include <QAction>

ReviewTest::ReviewTest() {
    MakeAccount(QStringLiteral("Mum"), QStringLiteral("m"), QStringLiteral("Teacher"));
    MakeAccount(QStringLiteral("Anna"), QStringLiteral("a"), QStringLiteral("Student"));
    StartSession(QStringLiteral("Mum"), QStringLiteral("Teacher"));
}

void ReviewTest::MakeChart(const QString& name, const QList<PlainRow>& rows, const QString& owner) {
    MakePlainChart(name, rows, owner);
}

QList<PlainRow> ReviewTest::Jobs(int count) {
    QList<PlainRow> jobs;
    for (int job = 1; job <= count; ++job)
        jobs += PlainRow{QStringLiteral("Job %1").arg(job), QStringLiteral("Mon")};
    return jobs;
}

void ReviewTest::MakeChartOfLastWeek(const QString& name) {
    MakeChart(name, Jobs(1));
    const auto tables = TableStore::OpenDatabase(Path(QStringLiteral("Database/Charts.mdb")));
    Recordset rows = tables->OpenRecordset(name);
    rows.Edit();
    rows.SetValue(ChartField::FirstDate, QDate(2001, 2, 25));
    rows.SetValue(ChartField::LastDate, QDate(2001, 3, 3));
    rows.SetValue(ChartField::AutoCreate, true);
    rows.Update();
    tables->Commit();
}

void ReviewTest::OpenByMenu() {
    auto& menu = DefaultForm(QStringLiteral("MainForm")).Widget();
    Find<QAction>(menu, QStringLiteral("mnuReviewDutygrid")).trigger();
    Settle();
}

WeekChartRepresentation& ReviewTest::Open() {
    OpenByMenu();
    return dynamic_cast<WeekChartRepresentation&>(DefaultForm(WeekChartRepresentation::FormName));
}

WeekChartRepresentation& ReviewTest::OpenOn(const QString& chart) {
    WeekChartRepresentation& form = Open();
    Choose(chart);
    return form;
}

void ReviewTest::Choose(const QString& chart) {
    const QList<QListWidgetItem*> found = List().findItems(chart, Qt::MatchExactly);
    if (found.isEmpty())
        throw std::runtime_error("not in the list: " + chart.toStdString());
    List().scrollToItem(found.first());
    ClickRow(List(), List().row(found.first()));
}

QWidget& ReviewTest::Part(const char* name) {
    return Find<QWidget>(DefaultForm(WeekChartRepresentation::FormName).Widget(),
                         QString::fromLatin1(name));
}

QListWidget& ReviewTest::List() {
    return dynamic_cast<QListWidget&>(Part("ChartList"));
}

QScrollBar& ReviewTest::Scroll() {
    return dynamic_cast<QScrollBar&>(Part("VScroll"));
}

QWidget& ReviewTest::Surface() {
    return Part("Surface");
}

QStringList ReviewTest::Listed() {
    QStringList entries;
    for (int row = 0; row < List().count(); ++row)
        entries += List().item(row)->text();
    return entries;
}

QStringList ReviewTest::Captions(const CellArray& cells) {
    QStringList captions;
    for (int line = 0; line < cells.Count(); ++line)
        captions += cells.Caption(line);
    return captions;
}

QList<const CellArray*> ReviewTest::DayArrays(const WeekChartRepresentation& form) {
    return {&form.Sun, &form.Mon, &form.Tue, &form.Wed, &form.Thu, &form.Fri, &form.Sat};
}

QString ReviewTest::CellsOf(const WeekChartRepresentation& form, int line) {
    QStringList cells;
    for (const CellArray* day : DayArrays(form))
        cells += !day->Visible(line)         ? QStringLiteral("-")
                 : day->BackStyle(line) == 0 ? QStringLiteral("o") + day->Caption(line)
                                             : day->Caption(line);
    return cells.join(QLatin1Char(' '));
}
