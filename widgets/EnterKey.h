#pragma once

#include <QComboBox>
#include <QObject>

/// Watches for the Enter key going down in a box. The key then does nothing else there.
class EnterKey : public QObject {
    Q_OBJECT

public:
    explicit EnterKey(QWidget* box);
    /// Watches a combo box together with the line edit inside.
    explicit EnterKey(QComboBox* box);

signals:
    void Pressed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};
