#pragma once

#include <QLabel>

class QPainter;

/// The small star that stands for points, in a square.
void PaintPointsStar(QPainter& painter, const QRectF& place);

/// A number of points with its star before it; nothing where it is empty.
class PointsLabel : public QLabel {
    Q_OBJECT

public:
    explicit PointsLabel(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};
