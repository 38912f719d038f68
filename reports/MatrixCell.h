#pragma once

#include "widgets/FittingLabel.h"

/// A label of the matrix: one line of bold text in the middle, on a back of its own if that is
/// opaque.
class MatrixCell : public FittingLabel {
    Q_OBJECT

public:
    explicit MatrixCell(QWidget* parent);

    static constexpr int Transparent = 0;
    static constexpr int Opaque = 1;
    int BackStyle() const { return backStyle_; }
    void SetBackStyle(int backStyle);

    /// An empty box is drawn where the back is transparent: for a job that is due.
    void OutlineWhenOpen() { outlinedWhenOpen_ = true; }

    /// The bold face of the whole matrix.
    static QFont Face();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void PaintBack();

    int backStyle_ = Transparent;
    bool outlinedWhenOpen_ = false;
};
