#include "platform/runtime/Dates.h"

#include "platform/runtime/RuntimeError.h"

#include <QLocale>
#include <array>

namespace {

QDate& FixedToday() {
    static QDate date;
    return date;
}

QString ShortPattern(const QLocale& locale) {
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

/// How the short text looks in a locale.
struct ShortForm {
    explicit ShortForm(const QLocale& locale)
        : Locale(locale), Pattern(ShortPattern(locale)),
          Digits(locale.zeroDigit().size() > 1 ? QLocale::c() : locale) {}

    QLocale Locale;
    QString Pattern;
    /// The locale whose digits the text has. The platform writes digits from beyond the basic
    /// plane (Adlam, Chakma) but cannot read them back: Latin ones there.
    QLocale Digits;
};

/// That of the system, kept while it is the same: lists turn thousands of dates into texts.
const ShortForm& SystemsShortForm() {
    static ShortForm form{QLocale()};
    if (form.Locale != QLocale())
        form = ShortForm(QLocale());
    return form;
}

} // namespace

QDate Today() {
    return FixedToday().isValid() ? FixedToday() : QDate::currentDate();
}

void SetToday(const QDate& date) {
    FixedToday() = date;
}

QString DateText(const QDate& date) {
    const ShortForm& form = SystemsShortForm();
    return form.Digits.toString(date, form.Pattern);
}

QDate DateFromText(const QString& text) {
    const ShortForm& form = SystemsShortForm();
    const QDate date = form.Digits.toDate(text, form.Pattern);
    if (!date.isValid())
        throw RuntimeError(ErrorNumber::TypeMismatch);
    return date;
}

QString DateKey(const QDate& date) {
    return QString::asprintf("%04d%02d%02d", date.year(), date.month(), date.day());
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
