#pragma once

#include <QFrame>

/// A frame round a control as long as the control has the keyboard, for controls whose own look
/// does not tell.
class FocusRing : public QFrame {
    Q_OBJECT

public:
    explicit FocusRing(QWidget* control);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* control_;
};
