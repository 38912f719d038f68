#pragma once

#include <QLabel>

/// The room that the small star before points takes of a label at its left, in pixels.
inline constexpr int PointsStarRoom = 22;

/// Paints the star that stands for points into that room; nothing where the label is empty.
void PaintPointsStar(QLabel& label);

/// A number of points with its star before it; nothing where it is empty.
class PointsLabel : public QLabel {
    Q_OBJECT

public:
    explicit PointsLabel(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};
