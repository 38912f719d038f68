#pragma once

#include <QDate>
#include <QtGlobal>

/// The units of DateCls's steps.
enum DateUnits : qint32 { Days = 0, Weeks = 1, Months = 2, Years = 3 };

/// A calendar date of the years 100 to 9999 that steps by days, weeks, months and years. The
/// program itself takes only steps of days.
class DateCls {
public:
    /// Holds today.
    DateCls();

    QDate Value() const { return value_; }

    /// Raises 13 for a date outside the years 100 to 9999.
    void SetValue(const QDate& date);

    /// Moves the date forward by `Number` of `Units` (a DateUnits value). The day of the month is
    /// kept by month and year steps: raises 13 if the month reached has no such day, or for a year
    /// outside 100 to 9999; 6 if 16-bit arithmetic or the span of dates is left. Units of no
    /// known value are told to the user and change nothing.
    void Add(qint16 Number, qint32 Units);

    /// Moves the date back likewise. What Add raises is told to the user instead, and the date
    /// stays. A step of 13 months or more that crosses a New Year ends two years too late.
    void Subtract(qint16 Number, qint32 Units);

private:
    QDate value_;
};
