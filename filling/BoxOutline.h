#pragma once

#include <QColor>
#include <QWidget>

/// The outline of the place that a mark covers.
class BoxOutline : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;

    const QColor& BorderColor() const { return borderColor_; }
    void SetBorderColor(const QColor& color);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor borderColor_ = Qt::black;
};
