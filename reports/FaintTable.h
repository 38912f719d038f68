#pragma once

#include <QLabel>

class QPainter;

/// What stands in the place of a week before one is chosen: the table that is to come, faint, and
/// on it what to do first, with an arrow to the list at the left.
class FaintTable : public QLabel {
    Q_OBJECT

public:
    using QLabel::QLabel;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void PaintTable(QPainter& painter) const;
    /// Where the text stands.
    QRectF Plate() const;
};
