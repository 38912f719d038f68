#pragma once

#include <QLabel>

/// A label that tells of clicks on it.
class LinkLabel : public QLabel {
    Q_OBJECT

public:
    explicit LinkLabel(QWidget* parent = nullptr);

signals:
    void Clicked();

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
};
