#include "reports/FaintTable.h"

#include "look/CrispLine.h"
#include "look/LookColors.h"
#include "platform/forms/Twips.h"
#include "reports/CardEdge.h"
#include "reports/ReviewLayout.h"

#include <QPainter>
#include <QPainterPath>
#include <utility>

using namespace ReviewLayout;

namespace {

void PaintArrow(QPainter& painter, const QPointF& from, const QPointF& to) {
    constexpr int bend = 70; // pixels
    constexpr int head = 9;
    QPainterPath arrow(from);
    arrow.cubicTo(from - QPointF(bend, 0), to + QPointF(bend, 0), to);
    arrow.moveTo(to + QPointF(head, -head));
    arrow.lineTo(to);
    arrow.lineTo(to + QPointF(head, head));
    painter.setBrush(Qt::NoBrush);
    // Clear of the table first.
    for (const auto& [color, width] :
         {std::pair(LookColors::Card, 9.0), std::pair(LookColors::Teal, 2.6)}) {
        painter.setPen(QPen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPath(arrow);
    }
}

} // namespace

QRectF FaintTable::Plate() const {
    const QRect text = fontMetrics().boundingRect(contentsRect(), Qt::AlignCenter, this->text());
    return QRectF(text).adjusted(-20, -12, 20, 12);
}

void FaintTable::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    PaintTable(painter);
    const QRectF plate = Plate();
    constexpr int tip = 6; // pixels; its stroke ends 4 from the edge, towards the list
    PaintArrow(painter, QPointF(plate.left(), plate.center().y()),
               QPointF(tip, PixelsOf(OutlineTop + OutlineHeight)));
    painter.setPen(LookColors::Line);
    painter.setBrush(LookColors::Card);
    painter.drawRoundedRect(plate, CardEdge::Round, CardEdge::Round);
    painter.end();
    QLabel::paintEvent(event);
}

void FaintTable::PaintTable(QPainter& painter) const {
    constexpr int band = 73; // pixels
    const QRectF edge = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    QPainterPath card;
    card.addRoundedRect(edge, CardEdge::Round, CardEdge::Round);
    QPainterPath head;
    head.addRect(QRectF(0, 0, width(), band));
    painter.fillPath(card, LookColors::Card);
    painter.fillPath(head.intersected(card), LookColors::Band);

    // Jobs and days as they may be, without a word or a number.
    constexpr int name = 25; // a day's, in pixels
    constexpr int beyond = 4;
    const int left = PixelsOf(OutlineLeft);
    const int right = PixelsOf(OutlineLeft + OutlineWidth);
    const int top = PixelsOf(OutlineTop);
    const int pitch = PixelsOf(2 * LineHeight);
    painter.setPen(Qt::NoPen);
    for (const int day : DayLefts) {
        painter.setBrush(LookColors::TealPale);
        painter.drawRoundedRect(QRect(PixelsOf(day) - beyond, (band - name) / 2 + beyond,
                                      PixelsOf(DayWidth) + 2 * beyond, name),
                                6, 6);
    }
    int bottom = top;
    for (int row = 0; bottom + pitch < height(); ++row, bottom += pitch) {
        const int middle = bottom + pitch / 2;
        painter.setBrush(LookColors::Band);
        painter.drawRoundedRect(QRect(PixelsOf(JobLeft), middle - 4, 84 + row * 29 % 50, 8), 4, 4);
        painter.drawRoundedRect(QRect(PixelsOf(JobTotalLeft) + 12, middle - 4, 22, 8), 4, 4);
        painter.setBrush(LookColors::TealPale);
        for (std::size_t day = 0; day < DayLefts.size(); ++day)
            if ((row * 3 + static_cast<int>(day) * 2) % 5 > 1)
                painter.drawRoundedRect(
                    QRect(PixelsOf(DayLefts.at(day)), middle - 8, PixelsOf(DayWidth), 17), 4, 4);
    }
    for (int line = top; line <= bottom; line += pitch)
        FillCrispLine(painter, QRectF(left, line, right - left, 1), LookColors::Band);
    painter.setPen(LookColors::Line);
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(card);
}
