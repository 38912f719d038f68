#include "platform/runtime/Dates.h"

#include "platform/runtime/RuntimeError.h"

#include <QLocale>
#include <array>

namespace {

QDate& FixedToday() {
    static QDate date;
    return date;
}

QString ShortPattern() {
    const QLocale locale;
    if (locale.language() == QLocale::C)
        return QStringLiteral("M/d/yyyy");
    QString pattern = locale.dateFormat(QLocale::ShortFormat);
    if (!pattern.contains(QLatin1String("yyyy")))
        pattern.replace(QLatin1String("yy"), QLatin1String("yyyy"));
    return pattern;
}

} // namespace

QDate Today() {
    return FixedToday().isValid() ? FixedToday() : QDate::currentDate();
}

void SetToday(const QDate& date) {
    FixedToday() = date;
}

QString DateText(const QDate& date) {
    return QLocale().toString(date, ShortPattern());
}

QDate DateFromText(const QString& text) {
    const QDate date = QLocale().toDate(text, ShortPattern());
    if (!date.isValid())
        throw RuntimeError(ErrorNumber::TypeMismatch);
    return date;
}

QString DateKey(const QDate& date) {
    const QLatin1Char zero('0');
    return QStringLiteral("%1%2%3")
        .arg(date.year())
        .arg(date.month(), 2, 10, zero)
        .arg(date.day(), 2, 10, zero);
}

QString WeekdayName(const QDate& date) {
    return QLocale().standaloneDayName(date.dayOfWeek(), QLocale::LongFormat);
}

QString AbbreviatedWeekdayName(const QDate& date) {
    return QLocale().standaloneDayName(date.dayOfWeek(), QLocale::ShortFormat);
}

QString DayAbbreviation(int day) {
    static const std::array<QString, 7> days = {
        QStringLiteral("Sun"), QStringLiteral("Mon"), QStringLiteral("Tue"), QStringLiteral("Wed"),
        QStringLiteral("Thu"), QStringLiteral("Fri"), QStringLiteral("Sat")};
    if (day < 1 || day > 7)
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    return days.at(static_cast<std::size_t>(day - 1));
}
