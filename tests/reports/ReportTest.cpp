#include "tests/reports/ReportTest.h"

#include "platform/runtime/Dates.h"

#include <QCalendarWidget>
#include <QPushButton>
#include <QTest>

void ReportTest::SetUp() {
    for (const QString& name : {u"Mum"_s, u"Anna"_s, u"Ben"_s})
        MakeAccount(name, u"pw"_s, name == u"Mum"_s ? u"Teacher"_s : u"Student"_s);
    MakeChartTable(Chores, {{u"Dust"_s, true}, {u"Sweep"_s}});
    MakeChartTable(Piano, {{u"Scales"_s}});
    MakeChartTable(u"Chores Ben"_s, {{u"Rake"_s}}, u"Ben"_s);
    MakeChartTable(u"Spare"_s, {{u"Dust"_s}}, QString());
    MakeChartTable(Week1, {{u"Dust"_s, true}, {u"Sweep"_s}});
    MakeChartTable(Week2, {{u"Dust"_s}, {u"Sweep"_s, true}, {u"Sweep"_s, true}}, u"Anna"_s,
                   QDate(2001, 3, 11), QDate(2001, 3, 17));
    MakeChartTable(Week3, {{u"Dust"_s, true}}, u"Anna"_s, QDate(2001, 3, 18), QDate(2001, 3, 24));
    MakeChartTable(u"History Chores Ben from: 3/4/2001"_s, {{u"Dust"_s, true}}, u"Ben"_s);
    QFile jobs(Path(u"Jobs/HomeJobs.dat"_s));
    ASSERT_TRUE(jobs.open(QIODevice::WriteOnly));
    jobs.write("Dust\r\nSweep\r\nScales\r\nRake\r\n");
    StartSession(u"Mum"_s, u"Teacher"_s);
}

Reportfrm& ReportTest::Report() {
    return Default<Reportfrm>();
}

DateRangefrm& ReportTest::Dialog() {
    return Default<DateRangefrm>();
}

Reportfrm& ReportTest::Open() {
    Report().Show();
    Settle();
    return Report();
}

bool ReportTest::IsShown(const QString& form) {
    const ::Form* existing = ExistingForm(form);
    return existing != nullptr && existing->Widget().isVisible();
}

void ReportTest::ToFront(::Form& form) {
    form.SetFocus();
    Settle();
}

ClickList& ReportTest::List(const QString& name) {
    return Find<ClickList>(Report(), name);
}

QStringList ReportTest::Entries(const QString& list) {
    QStringList entries;
    for (int row = 0; row < List(list).count(); ++row)
        entries += List(list).item(row)->text();
    return entries;
}

QStringList ReportTest::Selected(const QString& list) {
    QStringList entries;
    for (int row = 0; row < List(list).count(); ++row)
        if (List(list).item(row)->isSelected())
            entries += List(list).item(row)->text();
    return entries;
}

namespace {

QPoint PlaceOf(const ClickList& list, const QString& entry) {
    const auto found = list.findItems(entry, Qt::MatchExactly);
    if (found.isEmpty())
        throw std::runtime_error("not listed: " + entry.toStdString());
    return list.visualItemRect(found.first()).center();
}

} // namespace

void ReportTest::Pick(const QString& list, const QString& entry, Qt::KeyboardModifiers keys) {
    QTest::mouseClick(List(list).viewport(), Qt::LeftButton, keys, PlaceOf(List(list), entry));
    Settle();
}

void ReportTest::ClickBelow(const QString& list, Qt::MouseButton button) {
    QWidget& view = *List(list).viewport();
    QTest::mouseClick(&view, button, {}, QPoint(view.width() / 2, view.height() - 5));
    Settle();
}

void ReportTest::RightClick(const QString& list, const QString& entry) {
    QTest::mouseClick(List(list).viewport(), Qt::RightButton, {}, PlaceOf(List(list), entry));
    Settle();
}

void ReportTest::Push(const QString& button) {
    Click(Find(Report(), button));
}

void ReportTest::AskForDates() {
    Boxes.Expect(WithDates, PromptAnswer::Yes);
    Push(u"Command2"_s);
    ASSERT_TRUE(IsShown(u"DateRangefrm"_s));
}

void ReportTest::ChooseDay(const QDate& date) {
    auto& calendar = Find<QCalendarWidget>(Dialog(), u"Calendar1"_s);
    auto& days = Find(calendar, u"qt_calendar_calendarview"_s);
    const qint64 steps = calendar.selectedDate().daysTo(date);
    for (qint64 step = 0; step < qAbs(steps); ++step)
        Press(days, steps < 0 ? Qt::Key_Left : Qt::Key_Right);
    EXPECT_EQ(calendar.selectedDate(), date);
}

void ReportTest::GiveDate(const QString& button, const QDate& date) {
    Click(Find(Dialog(), button));
    ChooseDay(date);
    Click(Find(Dialog(), u"Ok"_s));
}

void ReportTest::GiveDates(const QDate& start, const QDate& end) {
    GiveDate(u"Command1"_s, start);
    Boxes.Expect(u"Starting from: %1 until %2"_s.arg(DateText(start), DateText(end)));
    GiveDate(u"Command2"_s, end);
}
