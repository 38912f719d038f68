#include "filling/WeekDots.h"

#include "look/LookColors.h"
#include "platform/runtime/Dates.h"
#include "store/DayTexts.h"

#include <QPaintEvent>
#include <QPainter>
#include <QStringList>

namespace {

// Pixels.
constexpr int Pitch = 34;
constexpr int Height = 32;
constexpr double DiscSide = 20;
constexpr double RingGap = 3;
constexpr double RingWidth = 2;
constexpr double BarWidth = 12;
constexpr double BarHeight = 3;

QString DayName(int day) {
    return FullDayName(DayAbbreviation(day));
}

} // namespace

WeekDots::WeekDots(QWidget* parent) : QLabel(parent) {
    setAccessibleName(QStringLiteral("Days of the week"));
}

QSize WeekDots::sizeHint() const {
    return {DaysOfWeek * Pitch, Height};
}

void WeekDots::SetWeek(const QSet<int>& daysWithJobs, int today) {
    if (daysWithJobs == daysWithJobs_ && today == today_)
        return;
    daysWithJobs_ = daysWithJobs;
    today_ = today;
    Tell();
    update();
}

void WeekDots::SetShown(int day) {
    if (day == shown_)
        return;
    shown_ = day;
    Tell();
    // A page is turned often, and only the bar moves.
    update(0, BarsTop(), width(), height());
}

void WeekDots::Tell() {
    QStringList days;
    for (int day = 1; day <= DaysOfWeek; ++day)
        if (daysWithJobs_.contains(day))
            days += DayName(day);
    QStringList words;
    if (!days.isEmpty())
        words += QStringLiteral("Jobs on %1.").arg(days.join(QStringLiteral(", ")));
    if (today_ > 0)
        words += QStringLiteral("Today is %1.").arg(DayName(today_));
    if (shown_ > 0)
        words += QStringLiteral("You see %1.").arg(DayName(shown_));
    setAccessibleDescription(words.join(QLatin1Char(' ')));
    setToolTip(accessibleDescription());
}

int WeekDots::BarsTop() const {
    return height() - static_cast<int>(BarHeight);
}

QRectF WeekDots::Disc(int day) const {
    const double middle = (day - 0.5) * width() / DaysOfWeek;
    return {middle - DiscSide / 2, RingGap + RingWidth / 2, DiscSide, DiscSide};
}

void WeekDots::paintEvent(QPaintEvent* event) {
    using namespace LookColors;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (shown_ > 0) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(Deep);
        const QRectF bar(Disc(shown_).center().x() - BarWidth / 2, BarsTop(), BarWidth, BarHeight);
        painter.drawRoundedRect(bar, BarHeight / 2, BarHeight / 2);
    }
    if (event->rect().top() >= BarsTop())
        return;
    QFont letters = font();
    letters.setWeight(QFont::DemiBold);
    painter.setFont(letters);
    for (int day = 1; day <= DaysOfWeek; ++day) {
        const bool hasJobs = daysWithJobs_.contains(day);
        const QRectF disc = Disc(day);
        painter.setPen(hasJobs ? QPen(Teal, 1) : QPen(Outline, 1));
        painter.setBrush(hasJobs ? Teal : Card);
        painter.drawEllipse(disc.adjusted(0.5, 0.5, -0.5, -0.5));
        painter.setPen(hasJobs ? Card : Muted);
        painter.drawText(disc, Qt::AlignCenter, DayName(day).left(1));
        if (day == today_) {
            const double out = RingGap;
            painter.setPen(QPen(Deep, RingWidth));
            painter.setBrush(Qt::NoBrush);
            painter.drawEllipse(disc.adjusted(-out, -out, out, out));
        }
    }
}
