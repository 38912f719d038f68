#include "filling/RowFigures.h"

#include "look/LookColors.h"
#include "store/DifficultyTexts.h"
#include "widgets/PointsStar.h"

#include <QPainter>
#include <QPixmapCache>

namespace {

// Pixels.
constexpr int MostDots = 5;
constexpr int DotSide = 6;
constexpr int DotPitch = 8;
constexpr QSize DotsSize((MostDots - 1) * DotPitch + DotSide, DotSide);
constexpr QSize StarSize(16, 16);
constexpr int Gap = 6;

/// Paints a figure at the left end of a text, in the middle of its height; from a picture, since a
/// list that is scrolled has many of them.
template <class Paint>
void PaintFigure(QWidget& text, const QString& kind, const QSize& size, Paint&& paint) {
    const qreal scale = text.devicePixelRatioF();
    const QString key = kind + QString::number(scale);
    QPixmap figure;
    if (!QPixmapCache::find(key, &figure)) {
        figure = QPixmap(size * scale);
        figure.setDevicePixelRatio(scale);
        figure.fill(Qt::transparent);
        QPainter painter(&figure);
        painter.setRenderHint(QPainter::Antialiasing);
        paint(painter);
        painter.end();
        QPixmapCache::insert(key, figure);
    }
    QPainter(&text).drawPixmap(0, (text.height() - size.height()) / 2, figure);
}

void PaintDots(QPainter& painter, int filled) {
    for (int dot = 0; dot < MostDots; ++dot) {
        const bool isFilled = dot < filled;
        painter.setPen(QPen(isFilled ? LookColors::Teal : LookColors::Outline, 1));
        painter.setBrush(isFilled ? LookColors::Teal : LookColors::Card);
        painter.drawEllipse(QRectF(dot * DotPitch + 0.5, 0.5, DotSide - 1, DotSide - 1));
    }
}

} // namespace

DifficultyText::DifficultyText(QWidget* parent) : FittingLabel(parent) {
    setContentsMargins(DotsSize.width() + Gap, 0, 0, 0);
}

int DifficultyText::Dots() const {
    return DifficultyLevel(text());
}

void DifficultyText::paintEvent(QPaintEvent* event) {
    FittingLabel::paintEvent(event);
    if (const int dots = Dots(); dots > 0)
        PaintFigure(*this, QStringLiteral("Dots %1 ").arg(dots), DotsSize,
                    [dots](QPainter& painter) { PaintDots(painter, dots); });
}

PointsText::PointsText(QWidget* parent) : FittingLabel(parent) {
    setContentsMargins(StarSize.width() + Gap, 0, 0, 0);
}

void PointsText::paintEvent(QPaintEvent* event) {
    FittingLabel::paintEvent(event);
    if (!text().isEmpty())
        PaintFigure(*this, QStringLiteral("Star "), StarSize, [](QPainter& painter) {
            PaintPointsStar(painter, QRectF(QPointF(), StarSize));
        });
}
