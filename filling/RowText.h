#pragma once

#include "widgets/FittingLabel.h"

/// The text of a job, by which its row is chosen from the keyboard.
class RowText : public FittingLabel {
    Q_OBJECT

public:
    explicit RowText(QWidget* parent);

    void setText(const QString& text);

    bool IsSelected() const { return selected_; }
    void SetSelected(bool selected);

signals:
    /// Space or Enter.
    void Chosen();
    /// The keyboard has come here by Tab.
    void ReachedByTab();
    /// An arrow key; 1 down, -1 up.
    void Moved(int step);

protected:
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    bool selected_ = false;
};
