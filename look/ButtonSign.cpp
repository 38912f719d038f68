#include "look/ButtonSign.h"

#include "look/DrawnIcon.h"
#include "look/LookColors.h"
#include "look/TickPath.h"

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
QPainterPath StrokeOf(const QString& sign) {
    QPainterPath stroke;
    if (sign == QLatin1String("tick")) {
        stroke = TickPath(QRectF(0.3, 2.6, 12.2, 11));
    } else if (sign == QLatin1String("back")) {
        stroke.addPolygon(QPolygonF{{11.5, 8}, {1.5, 8}});
        stroke.addPolygon(QPolygonF{{5.5, 4}, {1.5, 8}, {5.5, 12}});
    } else if (sign == QLatin1String("next")) {
        stroke.addPolygon(QPolygonF{{4.5, 8}, {14.5, 8}});
        stroke.addPolygon(QPolygonF{{10.5, 4}, {14.5, 8}, {10.5, 12}});
    }
    return stroke;
}

} // namespace

void DrawSignOf(QPushButton& button) {
    const QString sign = button.property("sign").toString();
    const QPainterPath stroke = StrokeOf(sign);
    // A button is polished again whenever its role changes.
    if (stroke.isEmpty() || !button.icon().isNull())
        return;
    const QPointer<QPushButton> on = &button;
    button.setIcon(DrawnIcon(SignUnits, [on, stroke](QPainter& painter, QIcon::Mode mode) {
        painter.setPen(QPen(SignColor(on, mode), 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.setBrush(Qt::NoBrush);
        painter.drawPath(stroke);
    }));
    // Even, so that a level stroke lies on whole pixels.
    const int side = button.fontMetrics().height() / 2 * 2;
    button.setIconSize(QSize(side, side));
    if (sign == QLatin1String("next"))
        button.setLayoutDirection(Qt::RightToLeft);
}
