#include "reports/MonthCalendar.h"

#include "look/DrawnIcon.h"
#include "look/LookColors.h"
#include "platform/runtime/Dates.h"

#include <QIcon>
#include <QLocale>
#include <QPainter>
#include <QSpinBox>
#include <QTextCharFormat>
#include <QToolButton>
#include <algorithm>

using namespace LookColors;

namespace {

/// An arrow head that points to the left or to the right.
QIcon Chevron(bool toTheRight) {
    constexpr int Units = 16; // the side of the square that is drawn in
    const qreal tip = toTheRight ? 2.5 : -2.5;
    return DrawnIcon(Units, [tip](QPainter& painter, QIcon::Mode) {
        painter.translate(Units / 2.0, Units / 2.0);
        painter.setPen(QPen(Deep, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPolyline(QPolygonF{{-tip, -5}, {tip, 0}, {-tip, 5}});
    });
}

} // namespace

MonthCalendar::MonthCalendar(QWidget* parent) : QCalendarWidget(parent), parts_(PartsOf(Today())) {
    setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    // Names of months and days are English on every system, as all that the program says.
    setLocale(QLocale::c());
    // As the weeks of the charts; and no day stands out from the others.
    setFirstDayOfWeek(Qt::Sunday);
    for (const Qt::DayOfWeek day : {Qt::Saturday, Qt::Sunday})
        setWeekdayTextFormat(day, QTextCharFormat());
    // As the heads of all columns.
    QTextCharFormat head;
    head.setForeground(Deep);
    head.setFontWeight(QFont::DemiBold);
    setHeaderTextFormat(head);
    setSelectedDate(Today());
    // The toolkit leaves these to their pictures.
    const auto name = [this](const QString& part, const QString& text) {
        if (auto* widget = findChild<QWidget*>(part))
            widget->setAccessibleName(text);
    };
    name(QStringLiteral("qt_calendar_prevmonth"), QStringLiteral("Previous month"));
    name(QStringLiteral("qt_calendar_nextmonth"), QStringLiteral("Next month"));
    name(QStringLiteral("qt_calendar_calendarview"), QStringLiteral("Days of the month"));
    for (const bool forward : {false, true}) {
        const auto* part = forward ? "qt_calendar_nextmonth" : "qt_calendar_prevmonth";
        if (auto* button = findChild<QToolButton*>(QLatin1String(part)))
            button->setIcon(Chevron(forward));
    }
    // The keys and the wheel turn the years; two triangles of the toolkit's would be squeezed in.
    if (auto* year = findChild<QSpinBox*>(QStringLiteral("qt_calendar_yearedit")))
        year->setButtonSymbols(QAbstractSpinBox::NoButtons);
    connect(this, &QCalendarWidget::selectionChanged, this,
            [this] { parts_ = PartsOf(selectedDate()); });
    connect(this, &QCalendarWidget::currentPageChanged, this, &MonthCalendar::TakeDayAlong);
}

void MonthCalendar::paintCell(QPainter* painter, const QRect& cell, QDate day) const {
    const bool isChosen = day == selectedDate();
    const bool isOfMonth = day.month() == monthShown() && day.year() == yearShown();
    painter->save();
    // The toolkit has filled the whole cell of the chosen day.
    painter->fillRect(cell, Card);
    painter->setRenderHint(QPainter::Antialiasing);
    QRectF disc(QPointF(), QSizeF(std::min(cell.width(), 2 * cell.height()), cell.height()));
    disc.moveCenter(QRectF(cell).center());
    disc.adjust(2, 1, -2, -1);
    constexpr qreal Round = 6; // pixels
    if (isChosen) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(Teal);
        painter->drawRoundedRect(disc, Round, Round);
        const auto* days = findChild<QWidget*>(QStringLiteral("qt_calendar_calendarview"));
        if (days != nullptr && days->hasFocus()) {
            painter->setPen(QPen(Card, 2));
            painter->drawRoundedRect(disc.adjusted(3, 3, -3, -3), Round - 2, Round - 2);
        }
    } else if (day == Today()) {
        painter->setPen(QPen(Teal, 1));
        painter->drawRoundedRect(disc.adjusted(0.5, 0.5, -0.5, -0.5), Round, Round);
    }
    painter->setPen(isChosen ? Card : isOfMonth ? Ink : Muted);
    painter->drawText(cell, Qt::AlignCenter, QString::number(day.day()));
    painter->restore();
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
