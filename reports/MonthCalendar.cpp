#include "reports/MonthCalendar.h"

#include "platform/runtime/Dates.h"

#include <QLocale>
#include <QTextCharFormat>

MonthCalendar::MonthCalendar(QWidget* parent) : QCalendarWidget(parent), parts_(PartsOf(Today())) {
    setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    // Names of months and days are English on every system, as all that the program says.
    setLocale(QLocale::c());
    // As the weeks of the charts; and no day stands out from the others.
    setFirstDayOfWeek(Qt::Sunday);
    for (const Qt::DayOfWeek day : {Qt::Saturday, Qt::Sunday})
        setWeekdayTextFormat(day, QTextCharFormat());
    setSelectedDate(Today());
    // The toolkit leaves these to their pictures.
    const auto name = [this](const QString& part, const QString& text) {
        if (auto* widget = findChild<QWidget*>(part))
            widget->setAccessibleName(text);
    };
    name(QStringLiteral("qt_calendar_prevmonth"), QStringLiteral("Previous month"));
    name(QStringLiteral("qt_calendar_nextmonth"), QStringLiteral("Next month"));
    name(QStringLiteral("qt_calendar_calendarview"), QStringLiteral("Days of the month"));
    connect(this, &QCalendarWidget::selectionChanged, this,
            [this] { parts_ = PartsOf(selectedDate()); });
    connect(this, &QCalendarWidget::currentPageChanged, this, &MonthCalendar::TakeDayAlong);
}

MonthCalendar::Parts MonthCalendar::PartsOf(const QDate& date) {
    return {date.day(), date.month(), date.year()};
}

void MonthCalendar::SetDay(qint16 day) {
    Choose({day, parts_.month, parts_.year});
}

void MonthCalendar::SetMonth(qint16 month) {
    Choose({parts_.day, month, parts_.year});
}

void MonthCalendar::SetYear(qint16 year) {
    Choose({parts_.day, parts_.month, year});
}

void MonthCalendar::TakeDayAlong(int year, int month) {
    const QDate day = selectedDate();
    if (day.year() == year && day.month() == month)
        return;
    const QDate first(year, month, 1);
    setSelectedDate(first.addDays(qMin(day.day(), first.daysInMonth()) - 1));
}

void MonthCalendar::Choose(const Parts& parts) {
    const QDate first(parts.year, parts.month, 1);
    setSelectedDate(first.addDays(qMin(parts.day, first.daysInMonth()) - 1));
    // The choice has put the day that stands in the place of the one that was written.
    parts_ = parts;
}
