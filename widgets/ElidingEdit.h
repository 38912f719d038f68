#pragma once

#include <QLineEdit>

/// A text box that ends in dots where its text is cut, while nobody writes in it; the whole text
/// is its tool tip then. `text()` is always the whole text.
class ElidingEdit : public QLineEdit {
    Q_OBJECT

public:
    using QLineEdit::QLineEdit;

    /// True if the text is wider than the box.
    bool IsCut() const;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QRect TextPlace() const;
};
