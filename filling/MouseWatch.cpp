#include "filling/MouseWatch.h"

#include "platform/forms/Twips.h"

#include <QLabel>
#include <QMouseEvent>

MouseWatch::MouseWatch(QWidget* watched) : QObject(watched), watched_(watched) {
    watched->installEventFilter(this);
}

bool MouseWatch::eventFilter(QObject*, QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: {
        const QPoint place = static_cast<QMouseEvent*>(event)->position().toPoint();
        pressed_ = qobject_cast<const QLabel*>(watched_->childAt(place)) == nullptr;
        if (pressed_)
            emit Pressed(TwipsOf(place.x()), TwipsOf(place.y()));
        return pressed_;
    }
    case QEvent::MouseMove: {
        if (!pressed_)
            return false;
        const auto* mouse = static_cast<QMouseEvent*>(event);
        const QPoint place = mouse->position().toPoint();
        if (mouse->buttons() == Qt::LeftButton)
            emit Dragged(TwipsOf(place.x()), TwipsOf(place.y()));
        return true;
    }
    case QEvent::MouseButtonRelease:
        if (pressed_ && static_cast<QMouseEvent*>(event)->buttons() == Qt::NoButton)
            emit Released();
        return false;
    default:
        return false;
    }
}
