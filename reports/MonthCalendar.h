#pragma once

#include <QCalendarWidget>
#include <QDate>

/// A month's calendar with one day chosen: today at first, then by a user or by the three parts.
///
/// The parts are written one after the other. A day that the month before it does not have waits
/// for the month; until then the month's last day stands.
class MonthCalendar : public QCalendarWidget {
    Q_OBJECT

public:
    explicit MonthCalendar(QWidget* parent = nullptr);

    void SetDay(qint16 day);
    void SetMonth(qint16 month);
    void SetYear(qint16 year);
    QDate Value() const { return selectedDate(); }

protected:
    void paintCell(QPainter* painter, const QRect& cell, QDate day) const override;

private:
    /// The parts as last written or chosen.
    struct Parts {
        int day;
        int month;
        int year;
    };
    static Parts PartsOf(const QDate& date);
    void Choose(const Parts& parts);
    /// Turning the pages chooses the same day of the month turned to, or its last: the day that is
    /// marked is the value.
    void TakeDayAlong(int year, int month);

    Parts parts_;
};
