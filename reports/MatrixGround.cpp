#include "reports/MatrixGround.h"

#include "look/CrispLine.h"

#include <QPainter>

LineOutline::LineOutline(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void MatrixGround::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QColor color = palette().color(QPalette::AlternateBase).darker(135);
    QRect all;
    for (const LineOutline* outline :
         findChildren<const LineOutline*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (outline->isHidden())
            continue;
        const QRect place = outline->geometry();
        FillCrispLine(painter, QRectF(place.left(), place.top(), place.width(), 1), color);
        all |= place;
    }
    if (all.isEmpty())
        return;
    FillCrispLine(painter, QRectF(all.left(), all.bottom(), all.width(), 1), color);
    for (const int side : {all.left(), all.right()})
        FillCrispLine(painter, QRectF(side, all.top(), 1, all.height()), color);
}
