#pragma once

#include <QApplication>
#include <QEvent>
#include <QWidget>

/// Counts the paints of a form and what it holds.
class PaintCounter : public QObject {
public:
    explicit PaintCounter(QWidget& form) : form_(form) { qApp->installEventFilter(this); }
    int Paints = 0;

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint && watched->isWidgetType() &&
            form_.isAncestorOf(static_cast<QWidget*>(watched)))
            ++Paints;
        return false;
    }

private:
    QWidget& form_;
};
