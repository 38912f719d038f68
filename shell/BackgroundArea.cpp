#include "shell/BackgroundArea.h"

#include "platform/forms/Colors.h"

#include <QPaintEvent>
#include <QPainter>

BackgroundArea::BackgroundArea(QWidget* parent) : QMdiArea(parent) {
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setFrameShape(QFrame::NoFrame);
}

void BackgroundArea::SetBackColor(qint32 color) {
    backColor_ = color;
    viewport()->update();
}

void BackgroundArea::SetPicture(const QImage& picture) {
    picture_ = picture;
    fittedFor_ = QSize();
    viewport()->update();
}

void BackgroundArea::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    painter.fillRect(event->rect(), ColorFromValue(backColor_));
    if (picture_.isNull())
        return;
    const QPixmap& pixmap = FittedPicture();
    QRect place(QPoint(), pixmap.deviceIndependentSize().toSize());
    place.moveCenter(viewport()->rect().center());
    painter.drawPixmap(place.topLeft(), pixmap);
}

const QPixmap& BackgroundArea::FittedPicture() {
    const QSize area = viewport()->size();
    if (fittedFor_ != area) {
        const qreal ratio = devicePixelRatioF();
        const QSize covering = picture_.size().scaled(area, Qt::KeepAspectRatioByExpanding);
        const bool tooLarge =
            picture_.width() > covering.width() || picture_.height() > covering.height();
        const QSize size = tooLarge ? covering : picture_.size();
        fitted_ = QPixmap::fromImage(
            picture_.scaled(size * ratio, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
        fitted_.setDevicePixelRatio(ratio);
        fittedFor_ = area;
    }
    return fitted_;
}
