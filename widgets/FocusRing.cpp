#include "widgets/FocusRing.h"

#include <QEvent>

FocusRing::FocusRing(QWidget* control) : QFrame(control->parentWidget()), control_(control) {
    constexpr int Width = 2; // pixels
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setLineWidth(Width);
    QPalette colors = palette();
    colors.setColor(QPalette::WindowText, colors.color(QPalette::Highlight));
    setPalette(colors);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
    control->installEventFilter(this);
}

bool FocusRing::eventFilter(QObject* watched, QEvent* event) {
    const auto fit = [this] {
        setGeometry(control_->geometry().adjusted(-lineWidth(), 0, lineWidth(), 0));
    };
    if (event->type() == QEvent::FocusIn) {
        fit();
        raise();
        show();
    } else if (event->type() == QEvent::Resize || event->type() == QEvent::Move) {
        fit();
    } else if (event->type() == QEvent::FocusOut || event->type() == QEvent::Hide) {
        hide();
    }
    return QFrame::eventFilter(watched, event);
}
