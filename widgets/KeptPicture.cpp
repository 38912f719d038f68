#include "widgets/KeptPicture.h"

#include <QPainter>
#include <QPixmapCache>
#include <QStyleOption>
#include <QWidget>

void PaintFromPicture(QWidget& control, const QRect& place, const QString& kind,
                      const QStyleOption& option, const std::function<void(QPainter&)>& paint) {
    const qreal scale = control.devicePixelRatioF();
    const QString key = QStringLiteral("%1 %2 %3 %4 %5 %6")
                            .arg(kind)
                            .arg(place.width())
                            .arg(place.height())
                            .arg(scale)
                            .arg(int(option.state))
                            .arg(option.palette.cacheKey());
    QPixmap picture;
    if (!QPixmapCache::find(key, &picture)) {
        picture = QPixmap(place.size() * scale);
        picture.setDevicePixelRatio(scale);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(painter);
        painter.end();
        QPixmapCache::insert(key, picture);
    }
    QPainter(&control).drawPixmap(place.topLeft(), picture);
}
