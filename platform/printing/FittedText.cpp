#include "platform/printing/FittedText.h"

#include <QFontMetricsF>
#include <algorithm>

namespace {

/// Nobody is asked to read anything smaller.
constexpr double LeastPoints = 7;

double WidthOf(const FittedText& part, const QPaintDevice& device) {
    return QFontMetricsF(part.Font, &device).horizontalAdvance(part.Text);
}

void Shrink(FittedText& part, double room, const QPaintDevice& device) {
    double points = part.Font.pointSizeF();
    for (double width = WidthOf(part, device); width > room && points > LeastPoints;
         width = WidthOf(part, device)) {
        // A font is not quite as wide as its size says: at least a little smaller each time.
        constexpr double LeastStep = 0.1;
        points = std::max(LeastPoints, std::min(points * room / width, points - LeastStep));
        part.Font.setPointSizeF(points);
    }
}

} // namespace

QList<FittedText> Fitted(const FittedText& whole, double room, qsizetype lead,
                         const QPaintDevice& device) {
    if (WidthOf(whole, device) <= room)
        return {whole};
    QList<FittedText> parts;
    FittedText rest = whole;
    if (lead > 0) {
        parts += {whole.Text.left(lead), whole.Font, whole.BaseLine};
        const double leadWidth = WidthOf(parts.first(), device);
        rest.Text = whole.Text.mid(lead);
        rest.BaseLine.rx() += leadWidth;
        room -= leadWidth;
    }
    Shrink(rest, room, device);
    rest.Text = QFontMetricsF(rest.Font, &device).elidedText(rest.Text, Qt::ElideRight, room);
    parts += rest;
    return parts;
}
