#include "platform/runtime/Dates.h"

#include "platform/runtime/RuntimeError.h"
#include "platform/runtime/WeekdayNames.h"

#include <QLocale>

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

const QStringList& DayNames() {
    static const QStringList names = {QStringLiteral("Sunday"),   QStringLiteral("Monday"),
                                      QStringLiteral("Tuesday"),  QStringLiteral("Wednesday"),
                                      QStringLiteral("Thursday"), QStringLiteral("Friday"),
                                      QStringLiteral("Saturday")};
    return names;
}

QStringList& OtherDayNames() {
    static QStringList names;
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
    if (!date.isValid())
        return {};
    const QStringList& names = OtherDayNames().isEmpty() ? DayNames() : OtherDayNames();
    return names.at(date.dayOfWeek() % names.size());
}

void SetWeekdayNames(const QStringList& names) {
    OtherDayNames() = names;
}

QString DayAbbreviation(int day) {
    if (day < 1 || day > DayNames().size())
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    return DayNames().at(day - 1).left(3);
}

QString FullDayName(const QString& abbreviation) {
    for (const QString& name : DayNames())
        if (name.left(3) == abbreviation)
            return name;
    return {};
}
