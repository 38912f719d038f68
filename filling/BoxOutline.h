#pragma once

#include <QColor>
#include <QWidget>

/// The outline round a mark; the mouse goes through it.
class BoxOutline : public QWidget {
    Q_OBJECT

public:
    explicit BoxOutline(QWidget* parent);

    const QColor& BorderColor() const { return borderColor_; }
    void SetBorderColor(const QColor& color);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor borderColor_ = Qt::black;
};
