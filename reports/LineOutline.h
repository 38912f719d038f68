#pragma once

#include <QWidget>

/// The plain rectangle round a line of the matrix; the mouse goes through it.
class LineOutline : public QWidget {
    Q_OBJECT

public:
    explicit LineOutline(QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
};
