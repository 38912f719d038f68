#pragma once

#include "shell/WelcomePage.h"

#include <QPushButton>

/// A button that tells with its name what it is for and which key does the same, with an arrow head
/// at its end: here it goes on.
class WelcomeStep : public QPushButton {
    Q_OBJECT

public:
    WelcomeStep(const Greeting::Step& step, QWidget* parent);

    QFont NameFont() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    int IconSide() const;
    int TextHeight() const;
    /// Width of the key with its frame, 0 without a key.
    int KeyWidth() const;
    QRect TextPlace() const;

    void PaintKey(QPainter& painter) const;
    void PaintArrow(QPainter& painter) const;

    QString hint_;
    QString key_;
    bool isLarge_;
};
