#include "look/ButtonSign.h"

#include "look/DrawnIcon.h"
#include "look/LookColors.h"

#include <QPainter>
#include <QPointer>
#include <QPushButton>

using namespace LookColors;

namespace {

constexpr int SignUnits = 16; // the side of the square that is drawn in

QColor SignColor(const QWidget* button, QIcon::Mode mode) {
    if (mode == QIcon::Disabled)
        return Unusable;
    const bool isPrimary =
        button != nullptr && button->property("role") == QLatin1String("primary");
    return isPrimary ? Card : Teal;
}

/// Away from the caption, to which the toolkit leaves two pixels alone.
QList<QPolygonF> StrokesOf(const QString& sign) {
    if (sign == QLatin1String("back"))
        return {{{11.5, 8}, {1.5, 8}}, {{5.5, 4}, {1.5, 8}, {5.5, 12}}};
    if (sign == QLatin1String("next"))
        return {{{4.5, 8}, {14.5, 8}}, {{10.5, 4}, {14.5, 8}, {10.5, 12}}};
    if (sign == QLatin1String("tick"))
        return {{{1.5, 8.5}, {5, 12}, {11.5, 4.5}}};
    return {};
}

} // namespace

void DrawSignOf(QPushButton& button) {
    const QString sign = button.property("sign").toString();
    const QList<QPolygonF> strokes = StrokesOf(sign);
    // A button is polished again whenever its role changes.
    if (strokes.isEmpty() || !button.icon().isNull())
        return;
    const QPointer<QPushButton> on = &button;
    button.setIcon(DrawnIcon(SignUnits, [on, strokes](QPainter& painter, QIcon::Mode mode) {
        painter.setPen(QPen(SignColor(on, mode), 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        for (const QPolygonF& stroke : strokes)
            painter.drawPolyline(stroke);
    }));
    // Even, so that a level stroke lies on whole pixels.
    const int side = button.fontMetrics().height() / 2 * 2;
    button.setIconSize(QSize(side, side));
    if (sign == QLatin1String("next"))
        button.setLayoutDirection(Qt::RightToLeft);
}
