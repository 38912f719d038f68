#include "shell/LinkLabel.h"

#include <QMouseEvent>

LinkLabel::LinkLabel(QWidget* parent) : QLabel(parent) {
    setCursor(Qt::PointingHandCursor);
}

void LinkLabel::mouseReleaseEvent(QMouseEvent* event) {
    QLabel::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        emit Clicked();
}
