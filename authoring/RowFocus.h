#pragma once

#include <QObject>
#include <QWidget>

/// Watches how the keyboard comes to a control and leaves it by Tab.
class RowFocus : public QObject {
    Q_OBJECT

public:
    explicit RowFocus(QWidget* control);

signals:
    /// The keyboard has come here by Tab or Shift+Tab.
    void ReachedByTab();
    /// Shift+Tab is about to take the keyboard to the control before.
    void GoingBack();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};
