#pragma once

#include <QLabel>

/// A label that tells of clicks on it, and of Space or Enter when it has the keyboard.
class LinkLabel : public QLabel {
    Q_OBJECT

public:
    explicit LinkLabel(QWidget* parent = nullptr);

signals:
    void Clicked();

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};

/// Makes such labels known to screen readers as links.
void InstallLinkAccess();
