#include "support/DateCls.h"

#include "platform/runtime/Dates.h"
#include "platform/runtime/Numbers.h"
#include "platform/runtime/Prompts.h"

namespace {

bool IsInSpan(const QDate& date) {
    return date.isValid() && date.year() >= 100 && date.year() <= 9999;
}

/// The date that the text MM/DD/YYYY stands for. It is put together from its numbers, so that no
/// locale can read the day before the month.
QDate MonthFirst(int month, int day, int year) {
    const QDate date(year, month, day);
    if (!IsInSpan(date))
        throw RuntimeError(ErrorNumber::TypeMismatch);
    return date;
}

QDate DaysAway(const QDate& from, qint64 days) {
    const QDate date = from.addDays(days);
    if (!IsInSpan(date))
        throw RuntimeError(ErrorNumber::Overflow);
    return date;
}

qint16 Month(const QDate& date) {
    return ToInteger(date.month());
}

qint16 Year(const QDate& date) {
    return ToInteger(date.year());
}

qint16 SubtractIntegers(qint16 left, qint16 right) {
    return ToInteger(int{left} - int{right});
}

void TellInvalidUnits(qint32 units) {
    Tell(QStringLiteral("Invalid DateUnits Format: %1").arg(units), PromptIcon::Exclamation);
}

QDate MonthsForward(const QDate& from, qint16 number) {
    qint16 month = 0;
    qint16 year = 0;
    if (number < 13) {
        month = AddIntegers(Month(from), number);
        year = Year(from);
        if (month > 12) {
            month = AddIntegers(month, -12);
            year = AddIntegers(year, 1);
        } else if (month < 1) {
            month = AddIntegers(month, 12);
            year = AddIntegers(year, -1);
        }
    } else {
        auto offset = static_cast<qint16>(number / 12);
        month = AddIntegers(Month(from), static_cast<qint16>(number % 12));
        if (month > 12) {
            month = AddIntegers(month, -12);
            offset = AddIntegers(offset, 1);
        }
        year = AddIntegers(Year(from), offset);
    }
    return MonthFirst(month, from.day(), year);
}

QDate MonthsBack(const QDate& from, qint16 number) {
    qint16 month = 0;
    qint16 year = 0;
    if (number < 13) {
        month = SubtractIntegers(Month(from), number);
        year = Year(from);
        if (month < 1) {
            month = AddIntegers(month, 12);
            year = AddIntegers(year, -1);
        } else if (month > 12) {
            month = AddIntegers(month, -12);
            year = AddIntegers(year, 1);
        }
    } else {
        auto offset = static_cast<qint16>(number / 12);
        month = SubtractIntegers(Month(from), static_cast<qint16>(number % 12));
        if (month < 1) {
            month = AddIntegers(month, 12);
            // The offset shrinks where a calendar's would grow. Charts have always been stepped
            // so, and stay so.
            offset = AddIntegers(offset, -1);
        }
        year = SubtractIntegers(Year(from), offset);
    }
    return MonthFirst(month, from.day(), year);
}

QDate StepBack(const QDate& from, qint16 number, DateUnits units) {
    switch (units) {
    case Days:
        break;
    case Weeks:
        return DaysAway(from, -qint64{MultiplyIntegers(number, 7)});
    case Months:
        return MonthsBack(from, number);
    case Years:
        return MonthFirst(from.month(), from.day(), SubtractIntegers(Year(from), number));
    }
    return DaysAway(from, -qint64{number});
}

} // namespace

DateCls::DateCls() : value_(Today()) {}

void DateCls::SetValue(const QDate& date) {
    value_ = MonthFirst(date.month(), date.day(), date.year());
}

void DateCls::Add(qint16 Number, qint32 Units) {
    switch (Units) {
    case Days:
        value_ = DaysAway(value_, Number);
        break;
    case Weeks:
        value_ = DaysAway(value_, MultiplyIntegers(Number, 7));
        break;
    case Months:
        value_ = MonthsForward(value_, Number);
        break;
    case Years:
        value_ = MonthFirst(value_.month(), value_.day(), AddIntegers(Year(value_), Number));
        break;
    default:
        TellInvalidUnits(Units);
    }
}

void DateCls::Subtract(qint16 Number, qint32 Units) {
    if (Units < Days || Units > Years) {
        TellInvalidUnits(Units);
        return;
    }
    try {
        value_ = StepBack(value_, Number, static_cast<DateUnits>(Units));
    } catch (const RuntimeError& error) {
        Tell(QStringLiteral("Error subtracting value from date: ") + error.Text(),
             PromptIcon::Exclamation);
    }
}
