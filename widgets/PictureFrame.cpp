#include "widgets/PictureFrame.h"

#include "look/LookColors.h"
#include "widgets/Present.h"
#include "widgets/RoundPicture.h"

#include <QPainter>
#include <algorithm>

void PictureFrame::paintEvent(QPaintEvent* event) {
    QLabel::paintEvent(event);
    if (!pixmap().isNull())
        return;
    const QRectF room = contentsRect();
    const qreal side = std::min(room.width(), room.height()) * 0.7;
    QRectF place(0, 0, side, side);
    place.moveCenter(room.center());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (isOfGoal_)
        PaintPresent(painter, place,
                     {LookColors::Line, LookColors::Band, LookColors::Paper, LookColors::Line});
    else
        PaintNobody(painter, place);
}
