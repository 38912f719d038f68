#pragma once

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <functional>

/// Something painted in every state it can be in, in a grid of cells.
class Sheet {
public:
    Sheet(QSize cell, int columns, int rows)
        : cell_(cell), columns_(columns),
          image_(QSize(cell.width() * columns, cell.height() * rows) * qApp->devicePixelRatio(),
                 QImage::Format_RGB32) {
        image_.setDevicePixelRatio(qApp->devicePixelRatio());
        image_.fill(Qt::white);
    }

    /// The next cell; its contents stand 3 pixels from its edges.
    void Add(const std::function<void(QPainter&, const QRect&)>& paint) {
        const QPoint corner(next_ % columns_ * cell_.width(), next_ / columns_ * cell_.height());
        ++next_;
        QPainter painter(&image_);
        painter.translate(corner);
        paint(painter, QRect(QPoint(), cell_).adjusted(3, 3, -3, -3));
    }

    const QImage& Image() const { return image_; }

private:
    QSize cell_;
    int columns_;
    int next_ = 0;
    QImage image_;
};
