#include "platform/runtime/Dates.h"
#include "reports/MonthCalendar.h"
#include "tests/common/RuntimeTest.h"
#include "tests/reports/ReportTest.h"

#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <QToolButton>

namespace {

class DateRangefrmTest : public ReportTest {
protected:
    void SetUp() override {
        ReportTest::SetUp();
        Open();
        Dialog().Show();
        Settle();
    }

    static QString RangeShown() { return Find<QLabel>(Dialog(), u"Label2"_s).text(); }
    static bool IsEnabled(const QString& button) { return Find(Dialog(), button).isEnabled(); }

    static void ExpectCalendarShown() {
        EXPECT_TRUE(Find(Dialog(), u"Calendar1"_s).isVisible());
        EXPECT_TRUE(Find(Dialog(), u"Ok"_s).isVisible());
        EXPECT_EQ(Dialog().height() * 15, 6495) << "6500 twips in whole pixels";
        EXPECT_EQ(Find(Dialog(), u"cmdExit"_s).y(), 370);
        EXPECT_EQ(Find(Dialog(), u"Ok"_s).y(), 370);
        EXPECT_EQ(Find(Dialog(), u"Shape1"_s).height(), 402);
    }
    static void ExpectCalendarHidden() {
        EXPECT_TRUE(Find(Dialog(), u"Calendar1"_s).isHidden());
        EXPECT_TRUE(Find(Dialog(), u"Ok"_s).isHidden());
        EXPECT_EQ(Dialog().height() * 15, 2790);
        EXPECT_EQ(Find(Dialog(), u"cmdExit"_s).y(), 136);
        EXPECT_EQ(Find(Dialog(), u"Ok"_s).y(), 128);
        EXPECT_EQ(Find(Dialog(), u"Shape1"_s).height(), 153);
    }
};

TEST_F(DateRangefrmTest, DesignOfTheForm) {
    EXPECT_EQ(Dialog().Caption(), u"Select Date Range"_s);
    EXPECT_EQ(Find<QLabel>(Dialog(), u"Label1"_s).text(),
              u"The date range you have selected is:"_s);
    EXPECT_EQ(RangeShown(), QString());
    for (const auto& [name, text] :
         QList<std::pair<QString, QString>>{{u"Command1"_s, u"Starting Date"_s},
                                            {u"Command2"_s, u"Ending Date"_s},
                                            {u"Ok"_s, u"Ok"_s},
                                            {u"cmdExit"_s, u"Exit"_s}})
        EXPECT_EQ(Find<QPushButton>(Dialog(), name).text(), text);
    EXPECT_TRUE(IsEnabled(u"Command1"_s));
    EXPECT_FALSE(IsEnabled(u"Command2"_s));
    ExpectCalendarHidden();
}

TEST_F(DateRangefrmTest, CalendarStandsOnTheDayOfTheOpening) {
    EXPECT_EQ(Dialog().CalDay, 7);
    EXPECT_EQ(Dialog().CalMonth, 3);
    EXPECT_EQ(Dialog().CalYear, 2001);
    EXPECT_EQ(Find<MonthCalendar>(Dialog(), u"Calendar1"_s).Value(), QDate(2001, 3, 7));
    Dialog().Unload();
    SetToday(QDate(2004, 2, 29));
    EXPECT_EQ(Find<MonthCalendar>(Dialog(), u"Calendar1"_s).Value(), QDate(2004, 2, 29));
}

TEST_F(DateRangefrmTest, EitherDateButtonShowsTheCalendarAndOkHidesIt) {
    Click(Find(Dialog(), u"Command1"_s));
    ExpectCalendarShown();
    LookAt(Dialog(), u"DateRangefrm-calendar"_s);
    Click(Find(Dialog(), u"Ok"_s));
    ExpectCalendarHidden();
    EXPECT_FALSE(IsEnabled(u"Command1"_s));
    EXPECT_TRUE(IsEnabled(u"Command2"_s));
    LookAt(Dialog(), u"DateRangefrm-start"_s);
    Click(Find(Dialog(), u"Command2"_s));
    ExpectCalendarShown();
}

TEST_F(DateRangefrmTest, FirstOkTakesTheStartAndShowsAnEmptyEnd) {
    GiveDate(u"Command1"_s, QDate(2001, 2, 26));
    EXPECT_EQ(Dialog().StartDate, QDate(2001, 2, 26));
    EXPECT_FALSE(Dialog().EndDate.isValid());
    EXPECT_EQ(RangeShown(), u"Starting from: 2/26/2001 until "_s);
    EXPECT_FALSE(Report().StartDate.isValid()) << "nothing is handed over yet";
}

TEST_F(DateRangefrmTest, SecondOkHandsBothDatesOverSaysThemAndUnloads) {
    GiveDate(u"Command1"_s, QDate(2001, 3, 1));
    Boxes.Expect(u"Starting from: 3/1/2001 until 3/12/2001"_s, PromptAnswer::Ok, [] {
        EXPECT_EQ(RangeShown(), u"Starting from: 3/1/2001 until 3/12/2001"_s);
        ExpectCalendarHidden();
        EXPECT_FALSE(IsEnabled(u"Command1"_s));
        EXPECT_FALSE(IsEnabled(u"Command2"_s));
        EXPECT_EQ(Report().StartDate, QDate(2001, 3, 1));
        EXPECT_EQ(Report().EndDate, QDate(2001, 3, 12));
        EXPECT_FALSE(Report().DatesChosen) << "set behind the box";
    });
    GiveDate(u"Command2"_s, QDate(2001, 3, 12));
    EXPECT_TRUE(Report().DatesChosen);
    EXPECT_EQ(ExistingForm(u"DateRangefrm"_s), nullptr);
}

TEST_F(DateRangefrmTest, OkTakesTheDayMarkedInTheMonthTurnedTo) {
    Click(Find(Dialog(), u"Command1"_s));
    Click(Find(Dialog(), u"qt_calendar_prevmonth"_s));
    Click(Find(Dialog(), u"Ok"_s));
    EXPECT_EQ(Dialog().StartDate, QDate(2001, 2, 7));
    EXPECT_EQ(RangeShown(), u"Starting from: 2/7/2001 until "_s);
}

TEST_F(DateRangefrmTest, EndMayBeBeforeTheStart) {
    GiveDates(QDate(2001, 3, 9), QDate(2001, 3, 2));
    EXPECT_EQ(Report().StartDate, QDate(2001, 3, 9));
    EXPECT_EQ(Report().EndDate, QDate(2001, 3, 2));
}

TEST_F(DateRangefrmTest, DatesAreInTheSystemsShortForm) {
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    GiveDate(u"Command1"_s, QDate(2001, 3, 6));
    EXPECT_EQ(RangeShown(), u"Starting from: 06.03.2001 until "_s);
}

TEST_F(DateRangefrmTest, ActivationTakesTheReportsFlagBack) {
    ToFront(Report());
    Report().DatesChosen = true;
    ToFront(Dialog());
    EXPECT_FALSE(Report().DatesChosen);
}

TEST_F(DateRangefrmTest, ExitUnloadsAndChoosesNothing) {
    GiveDate(u"Command1"_s, QDate(2001, 3, 6));
    const QPointer<DateRangefrm> dialog = &Dialog();
    Click(Find(Dialog(), u"cmdExit"_s));
    EXPECT_TRUE(dialog.isNull());
    EXPECT_EQ(ExistingForm(u"DateRangefrm"_s), nullptr);
    EXPECT_FALSE(Report().DatesChosen);
    EXPECT_FALSE(Report().StartDate.isValid());
    // Named again it begins anew.
    EXPECT_TRUE(IsEnabled(u"Command1"_s));
    EXPECT_EQ(RangeShown(), QString());
}

class MonthCalendarTest : public RuntimeTest {};

TEST_F(MonthCalendarTest, MonthsAndDaysHaveEnglishNamesOnEverySystem) {
    QLocale::setDefault(QLocale(QLocale::Arabic, QLocale::Egypt));
    const MonthCalendar calendar;
    EXPECT_EQ(calendar.findChild<QToolButton*>(u"qt_calendar_monthbutton"_s)->text(), u"March"_s);
    EXPECT_EQ(calendar.findChild<QToolButton*>(u"qt_calendar_yearbutton"_s)->text(), u"2001"_s);
    const auto& view = *calendar.findChild<QTableView*>(u"qt_calendar_calendarview"_s);
    QStringList names;
    for (int column = 0; column < 7; ++column)
        names += view.model()->index(0, column).data().toString();
    EXPECT_EQ(names.join(u' '), u"Sun Mon Tue Wed Thu Fri Sat"_s);
}

TEST_F(MonthCalendarTest, PartsAreWrittenInAnyOrder) {
    SetToday(QDate(2001, 2, 10));
    MonthCalendar calendar;
    EXPECT_EQ(calendar.Value(), QDate(2001, 2, 10));
    calendar.SetDay(31);
    EXPECT_EQ(calendar.Value(), QDate(2001, 2, 28)) << "the month has no 31st";
    calendar.SetMonth(3);
    EXPECT_EQ(calendar.Value(), QDate(2001, 3, 31)) << "the day waited for its month";
    calendar.SetYear(1999);
    EXPECT_EQ(calendar.Value(), QDate(1999, 3, 31));
    calendar.SetMonth(2);
    calendar.SetYear(2004);
    EXPECT_EQ(calendar.Value(), QDate(2004, 2, 29));
}

/// The texts of the days that a calendar marks.
QStringList Marked(const MonthCalendar& calendar) {
    QStringList days;
    const auto& view = *calendar.findChild<QTableView*>(u"qt_calendar_calendarview"_s);
    for (const QModelIndex& cell : view.selectionModel()->selectedIndexes())
        days += cell.data().toString();
    return days;
}

void ExpectMarkedDayIs(const MonthCalendar& calendar, const QDate& day) {
    EXPECT_EQ(calendar.Value(), day);
    EXPECT_EQ(QDate(calendar.yearShown(), calendar.monthShown(), 1),
              QDate(day.year(), day.month(), 1));
    EXPECT_EQ(Marked(calendar), QStringList{QString::number(day.day())});
}

void Turn(const MonthCalendar& calendar, const QString& button) {
    QTest::mouseClick(calendar.findChild<QWidget*>(button), Qt::LeftButton);
}

TEST_F(MonthCalendarTest, TheMarkedDayIsTheValueHoweverThePagesAreTurned) {
    SetToday(QDate(2001, 1, 31));
    MonthCalendar calendar;
    calendar.show();
    ExpectMarkedDayIs(calendar, QDate(2001, 1, 31));
    Turn(calendar, u"qt_calendar_nextmonth"_s);
    ExpectMarkedDayIs(calendar, QDate(2001, 2, 28));
    Turn(calendar, u"qt_calendar_nextmonth"_s);
    ExpectMarkedDayIs(calendar, QDate(2001, 3, 28));
    for (int month = 0; month < 3; ++month)
        Turn(calendar, u"qt_calendar_prevmonth"_s);
    ExpectMarkedDayIs(calendar, QDate(2000, 12, 28));
    auto& days = *calendar.findChild<QTableView*>(u"qt_calendar_calendarview"_s);
    QTest::keyClick(&days, Qt::Key_Right);
    ExpectMarkedDayIs(calendar, QDate(2000, 12, 29));
    QTest::keyClick(&days, Qt::Key_PageDown);
    ExpectMarkedDayIs(calendar, QDate(2001, 1, 29));
    QTest::keyClick(&days, Qt::Key_Down);
    ExpectMarkedDayIs(calendar, QDate(2001, 2, 5));
    calendar.setCurrentPage(2004, 2);
    ExpectMarkedDayIs(calendar, QDate(2004, 2, 5));
}

TEST_F(MonthCalendarTest, ChoiceOfAUserTakesThePlaceOfWhatWasWritten) {
    SetToday(QDate(2001, 1, 31));
    MonthCalendar calendar;
    calendar.setSelectedDate(QDate(2002, 5, 9));
    calendar.SetMonth(6);
    EXPECT_EQ(calendar.Value(), QDate(2002, 6, 9));
}

} // namespace
