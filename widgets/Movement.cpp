#include "widgets/Movement.h"

#include "platform/runtime/Desktop.h"

#include <QTimerEvent>
#include <algorithm>

bool Movement::IsWelcome() {
    return !CurrentDesktop().WantsLessMotion();
}

void Movement::Start(QObject& widget, int duration) {
    constexpr int frame = 16; // milliseconds
    duration_ = duration;
    since_.start();
    timer_.start(frame, Qt::PreciseTimer, &widget);
}

bool Movement::Takes(const QTimerEvent& event) {
    if (event.timerId() != timer_.timerId())
        return false;
    if (since_.elapsed() >= duration_)
        Stop();
    return true;
}

double Movement::Progress() const {
    if (!IsRunning())
        return 1;
    return std::min(1.0, static_cast<double>(since_.elapsed()) / duration_);
}
