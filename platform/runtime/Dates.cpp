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

const std::array<QString, 7>& DayNames() {
    static const std::array<QString, 7> names = {
        QStringLiteral("Sunday"),    QStringLiteral("Monday"),   QStringLiteral("Tuesday"),
        QStringLiteral("Wednesday"), QStringLiteral("Thursday"), QStringLiteral("Friday"),
        QStringLiteral("Saturday")};
    return names;
}

/// The locale whose digits the short text has. The platform writes digits from beyond the basic
/// plane (Adlam, Chakma) but cannot read them back: Latin ones there.
QLocale DigitsLocale() {
    const QLocale locale;
    return locale.zeroDigit().size() > 1 ? QLocale::c() : locale;
}

} // namespace

QDate Today() {
    return FixedToday().isValid() ? FixedToday() : QDate::currentDate();
}

void SetToday(const QDate& date) {
    FixedToday() = date;
}

QString DateText(const QDate& date) {
    return DigitsLocale().toString(date, ShortPattern());
}

QDate DateFromText(const QString& text) {
    const QDate date = DigitsLocale().toDate(text, ShortPattern());
    if (!date.isValid())
        throw RuntimeError(ErrorNumber::TypeMismatch);
    return date;
}

QString DateKey(const QDate& date) {
    const QLatin1Char zero('0');
    return QStringLiteral("%1%2%3")
        .arg(date.year(), 4, 10, zero)
        .arg(date.month(), 2, 10, zero)
        .arg(date.day(), 2, 10, zero);
}

QString WeekdayName(const QDate& date) {
    return QLocale().standaloneDayName(date.dayOfWeek(), QLocale::LongFormat);
}

QString DayAbbreviation(int day) {
    if (day < 1 || day > 7)
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    return DayNames().at(static_cast<std::size_t>(day - 1)).left(3);
}

QString FullDayName(const QString& abbreviation) {
    for (const QString& name : DayNames())
        if (name.left(3) == abbreviation)
            return name;
    return {};
}
