#include "filling/RowFigures.h"

#include "look/LookColors.h"
#include "store/DifficultyTexts.h"
#include "widgets/KeptPicture.h"
#include "widgets/PointsStar.h"

#include <QPainter>
#include <QStyleOption>

namespace {

// Pixels.
constexpr int MostDots = 5;
constexpr int DotSide = 6;
constexpr int DotPitch = 8;
constexpr QSize DotsSize((MostDots - 1) * DotPitch + DotSide, DotSide);
constexpr int Gap = 6;

void PaintDots(QPainter& painter, int filled) {
    painter.setRenderHint(QPainter::Antialiasing);
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
        PaintFromPicture(*this, QRect(QPoint(0, (height() - DotSide) / 2), DotsSize),
                         QStringLiteral("dots %1").arg(dots), {},
                         [dots](QPainter& painter) { PaintDots(painter, dots); });
}

PointsText::PointsText(QWidget* parent) : FittingLabel(parent) {
    setContentsMargins(PointsStarRoom, 0, 0, 0);
}

void PointsText::paintEvent(QPaintEvent* event) {
    FittingLabel::paintEvent(event);
    PaintPointsStar(*this);
}
