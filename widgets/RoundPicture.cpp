#include "widgets/RoundPicture.h"

#include "look/LookColors.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>

QPixmap RoundPicture(const QImage& picture, int side, qreal scale) {
    const int pixels = qRound(side * scale);
    QPixmap disc(pixels, pixels);
    disc.fill(Qt::transparent);
    QPainter painter(&disc);
    if (picture.isNull()) {
        PaintNobody(painter, disc.rect());
    } else {
        const int edge = std::min(picture.width(), picture.height());
        const QRect middle((picture.width() - edge) / 2, (picture.height() - edge) / 2, edge, edge);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        // As a brush: a clip would leave steps on the edge.
        painter.setBrush(picture.copy(middle).scaled(pixels, pixels, Qt::IgnoreAspectRatio,
                                                     Qt::SmoothTransformation));
        painter.drawEllipse(disc.rect());
    }
    painter.end();
    disc.setDevicePixelRatio(scale);
    return disc;
}

void PaintNobody(QPainter& painter, const QRectF& place) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(LookColors::Band);
    painter.drawEllipse(place);
    QPainterPath disc;
    disc.addEllipse(place);
    const qreal side = place.width();
    const QPointF middle = place.center();
    QPainterPath person;
    person.addEllipse(middle - QPointF(0, side * 0.12), side * 0.17, side * 0.17);
    person.addEllipse(middle + QPointF(0, side * 0.42), side * 0.3, side * 0.27);
    painter.setBrush(LookColors::Line);
    painter.drawPath(person.intersected(disc));
    painter.restore();
}
