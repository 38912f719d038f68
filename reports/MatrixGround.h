#pragma once

#include <QWidget>

/// The place of the rectangle round a line of the matrix. It is painted by the ground beneath, for
/// one line's lower edge is the next one's upper. The mouse goes through it.
class LineOutline : public QWidget {
    Q_OBJECT

public:
    explicit LineOutline(QWidget* parent);
};

/// Carries the lines of the matrix and paints their rectangles.
class MatrixGround : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent* event) override;
};
