#pragma once

#include "widgets/Movement.h"

#include <QAbstractButton>

/// One of the two pictures of a mark, the inside of a box whose edge is the outline beneath:
/// clicked with the mouse, or with Space or Enter when it has the keyboard. What its user has not
/// seen is not clicked: a press that has just brought up the page does nothing, and a key at a mark
/// out of sight only asks to have it brought into view.
class MarkImage : public QAbstractButton {
    Q_OBJECT

public:
    /// `isTick`: the picture of a job done. `coveredAbove`: pixels in the parent; a mark that has
    /// been scrolled above that line is neither painted nor clicked.
    MarkImage(bool isTick, int coveredAbove, QWidget* parent);

    bool IsTick() const { return isTick_; }

    QSize sizeHint() const override;

    /// Grows into its place in a moment, if motion is welcome.
    void PopIn();
    bool IsMoving() const { return pop_.IsRunning(); }

signals:
    /// The keyboard has come here by Tab, or a key finds the mark out of sight.
    void WantsToBeSeen();
    /// An arrow key; 1 down, -1 up.
    void Moved(int step);

protected:
    bool hitButton(const QPoint& place) const override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    bool IsCovered() const { return y() < coveredAbove_; }
    bool IsOutOfSight() const;
    void PaintBox(QPainter& painter) const;

    bool isTick_;
    int coveredAbove_;
    Movement pop_;
};
