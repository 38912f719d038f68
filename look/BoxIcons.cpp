#include "look/BoxIcons.h"

#include "look/LookColors.h"

#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>

using namespace LookColors;

namespace {

/// Draws in a square of 40 by 40.
using Drawing = void (*)(QPainter& painter);

class DrawnIcon : public QIconEngine {
public:
    explicit DrawnIcon(Drawing drawing) : drawing_(drawing) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode, QIcon::State) override {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.topLeft());
        painter->scale(rect.width() / 40.0, rect.height() / 40.0);
        drawing_(*painter);
        painter->restore();
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return picture;
    }
    QIconEngine* clone() const override { return new DrawnIcon(drawing_); }

private:
    Drawing drawing_;
};

void DrawExclamation(QPainter& painter, const QColor& color, double top) {
    painter.setPen(QPen(color, 4, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(20, top), QPointF(20, top + 9));
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawEllipse(QPointF(20, top + 16), 2.4, 2.4);
}

void DrawWarning(QPainter& painter) {
    QPainterPath triangle;
    triangle.addPolygon(QPolygonF{{20, 6}, {35, 33}, {5, 33}});
    triangle.closeSubpath();
    painter.setPen(QPen(Ink, 5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Gold);
    painter.drawPath(triangle);
    painter.setPen(QPen(Gold, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(triangle);
    DrawExclamation(painter, Ink, 14);
}

void DrawError(QPainter& painter) {
    painter.setPen(QPen(Ink, 2));
    painter.setBrush(Coral);
    painter.drawEllipse(QPointF(20, 20), 17, 17);
    DrawExclamation(painter, Card, 12);
}

} // namespace

QIcon WarningIcon() {
    return QIcon(new DrawnIcon(DrawWarning));
}

QIcon ErrorIcon() {
    return QIcon(new DrawnIcon(DrawError));
}
