#include "shell/BackgroundArea.h"

#include "platform/forms/Handlers.h"
#include "platform/runtime/Colors.h"

#include <QApplication>
#include <QMdiSubWindow>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>

BackgroundArea::BackgroundArea(QWidget* parent)
    : QMdiArea(parent), welcome_(new WelcomePage(viewport())) {
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setFrameShape(QFrame::NoFrame);
    // The toolkit would hand the state of a maximised form on to each form that opens beside it.
    setOption(QMdiArea::DontMaximizeSubWindowOnActivation);
    On(qApp, &QApplication::focusChanged, this, [this](const QWidget*, const QWidget* now) {
        // Under a pressed button nothing may move away.
        if (now != nullptr && QGuiApplication::mouseButtons() == Qt::NoButton &&
            viewport()->isAncestorOf(now) && qobject_cast<const QMdiSubWindow*>(now) == nullptr)
            BringIntoView(*now);
    });
}

namespace {

/// How far to scroll for a stretch to lie within 0 and `room`; its start counts more.
int ScrollFor(int first, int last, int room) {
    constexpr int Margin = 8; // pixels
    if (first < 0)
        return first - Margin;
    return last < room ? 0 : std::min(last - room + Margin, first);
}

} // namespace

void BackgroundArea::BringIntoView(const QWidget& control) {
    const QRect place(control.mapTo(viewport(), QPoint()), control.size());
    QScrollBar& across = *horizontalScrollBar();
    QScrollBar& down = *verticalScrollBar();
    const int stepAcross = ScrollFor(place.left(), place.right(), viewport()->width());
    const int stepDown = ScrollFor(place.top(), place.bottom(), viewport()->height());
    across.setValue(across.value() + stepAcross);
    down.setValue(down.value() + stepDown);
}

void BackgroundArea::SetBackColor(qint32 color) {
    backColor_ = color;
    LookAfterWelcome();
    viewport()->update();
}

void BackgroundArea::SetPicture(const QImage& picture) {
    // The settings are read anew far more often than they change.
    if (picture.cacheKey() == picture_.cacheKey())
        return;
    picture_ = picture;
    fittedFor_ = QSize();
    LookAfterWelcome();
    viewport()->update();
}

void BackgroundArea::SetGreeting(const Greeting& greeting) {
    welcome_->SetGreeting(greeting);
    LookAfterWelcome();
}

bool BackgroundArea::IsAsDelivered() const {
    return backColor_ == DeliveredColor || backColor_ == FormerDeliveredColor;
}

bool BackgroundArea::ShowsWelcome() const {
    const QList<QMdiSubWindow*> frames = subWindowList();
    return !welcome_->IsEmpty() && picture_.isNull() &&
           std::all_of(frames.begin(), frames.end(),
                       [](const QMdiSubWindow* frame) { return frame->isHidden(); });
}

void BackgroundArea::LookAfterWelcome() {
    if (!ShowsWelcome()) {
        welcome_->hide();
        return;
    }
    // Over the area, not inside it: of what an area holds screen readers are told the forms alone.
    if (welcome_->parentWidget() != window())
        welcome_->setParent(window());
    welcome_->ShowIn({viewport()->mapTo(window(), QPoint()), viewport()->size()}, IsAsDelivered());
    welcome_->raise();
}

bool BackgroundArea::eventFilter(QObject* watched, QEvent* event) {
    const bool comesOrGoes = event->type() == QEvent::Show || event->type() == QEvent::Hide;
    if (comesOrGoes && qobject_cast<QMdiSubWindow*>(watched) != nullptr)
        LookAfterWelcome();
    return QMdiArea::eventFilter(watched, event);
}

void BackgroundArea::resizeEvent(QResizeEvent* event) {
    QMdiArea::resizeEvent(event);
    LookAfterWelcome();
}

void BackgroundArea::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    painter.fillRect(event->rect(), ColorFromValue(IsAsDelivered() ? DeliveredColor : backColor_));
    if (picture_.isNull())
        return;
    const QPixmap& pixmap = FittedPicture();
    QRect place(QPoint(), pixmap.deviceIndependentSize().toSize());
    place.moveCenter(viewport()->rect().center());
    painter.drawPixmap(place.topLeft(), pixmap);
}

const QPixmap& BackgroundArea::FittedPicture() {
    const QSize area = viewport()->size();
    if (fittedFor_ != area) {
        const qreal ratio = devicePixelRatioF();
        const QSize covering = picture_.size().scaled(area, Qt::KeepAspectRatioByExpanding);
        const bool tooLarge =
            picture_.width() > covering.width() || picture_.height() > covering.height();
        const QSize size = tooLarge ? covering : picture_.size();
        fitted_ = QPixmap::fromImage(
            picture_.scaled(size * ratio, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
        fitted_.setDevicePixelRatio(ratio);
        fittedFor_ = area;
    }
    return fitted_;
}
