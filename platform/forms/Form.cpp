#include "platform/forms/Form.h"

#include "platform/forms/ActivationTracker.h"
#include "platform/forms/DefaultForms.h"
#include "platform/forms/FormAccess.h"
#include "platform/forms/FormFrame.h"
#include "platform/forms/FormKeys.h"
#include "platform/forms/MainWindowArea.h"
#include "platform/forms/Twips.h"
#include "platform/runtime/Actions.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMdiArea>
#include <QScreen>
#include <algorithm>

namespace {

QString& MainWindowForm() {
    static QString name;
    return name;
}

/// Where a title shows that its document has been changed.
const QString ChangeMark = QStringLiteral("[*]");

/// Hands the front to the sub-window used last among those still shown.
void ActivateNextInMainWindow(QMdiArea& area) {
    const QList<QMdiSubWindow*> frames = area.subWindowList(QMdiArea::ActivationHistoryOrder);
    for (auto frame = frames.crbegin(); frame != frames.crend(); ++frame) {
        if (!(*frame)->isHidden()) {
            area.setActiveSubWindow(*frame);
            return;
        }
    }
    area.setActiveSubWindow(nullptr);
}

/// Puts a new sub-window in the middle, and a step further while another one begins there. What
/// fits into the main window is wholly in sight.
void PlaceInArea(const QMdiArea& area, QWidget& frame) {
    constexpr int Step = 24; // pixels
    const QSize room = area.viewport()->size() - frame.size();
    QPoint place(qMax(0, room.width() / 2), qMax(0, room.height() / 3));
    const QList<QMdiSubWindow*> frames = area.subWindowList();
    const auto beginsAt = [&frame](const QPoint& at) {
        return [&frame, at](const QMdiSubWindow* other) {
            return other != &frame && !other->isHidden() && other->pos() == at;
        };
    };
    while (std::any_of(frames.begin(), frames.end(), beginsAt(place)) &&
           place.x() + Step <= room.width() && place.y() + Step <= room.height())
        place += QPoint(Step, Step);
    frame.move(place);
}

/// Window managers differ in whom they hand the focus to when a window goes; the program's other
/// window is what its user means.
void ActivateNextTopLevel() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (dynamic_cast<Form*>(widget) != nullptr && widget->isVisible()) {
            widget->raise();
            widget->activateWindow();
            return;
        }
    }
}

/// Window managers that place windows by themselves tend to put them into a corner.
void MoveToMiddle(QWidget& window) {
    if (!window.testAttribute(Qt::WA_Resized))
        window.adjustSize();
    const QRect room = window.screen()->availableGeometry();
    window.move(room.center() - window.rect().center());
}

/// A maximised or minimised window is not moved or sized by the program.
bool FillsOrLeftItsPlace(const QWidget& frame) {
    return frame.isMaximized() || frame.isMinimized();
}

} // namespace

void SetMainWindowForm(const QString& name) {
    MainWindowForm() = name;
}

FormFrame::FormFrame(Form& form) : form_(form) {
    setAttribute(Qt::WA_DeleteOnClose, false);
}

void FormFrame::closeEvent(QCloseEvent* event) {
    event->ignore();
    RunAction([this] { form_.Unload(); });
}

Form::Form(QWidget& widget, Place place) : widget_(widget), place_(place) {}

Form::~Form() = default;

void Form::EnsureLoaded() {
    if (loaded_)
        return;
    loaded_ = true;
    NameListsByLabels(widget_);
    try {
        Load();
    } catch (...) {
        if (!unloaded_)
            Drop();
        throw;
    }
}

void Form::Show() {
    EnsureLoaded();
    if (unloaded_)
        return;
    if (place_ == Place::TopLevel) {
        if (!widget_.testAttribute(Qt::WA_Moved))
            MoveToMiddle(widget_);
        widget_.show();
    } else {
        ShowInMainWindow();
    }
    SetFocus();
    ActivationTracker::Instance().Schedule();
}

/// A new frame has a size of its own making: a form keeps the one it has been given, or comes in
/// the one that its controls ask for.
void Form::ShowInMainWindow() {
    if (!frame_.isNull()) {
        frame_->show();
        return;
    }
    if (MainWindowArea() == nullptr)
        DefaultForm(MainWindowForm());
    QMdiArea* area = MainWindowArea();
    if (area == nullptr)
        throw RuntimeError(ErrorNumber::ObjectVariableNotSet);
    const bool hasOwnSize = widget_.testAttribute(Qt::WA_Resized) || widget_.layout() == nullptr;
    const QSize inside = hasOwnSize ? widget_.size() : widget_.sizeHint();
    auto* frame = new FormFrame(*this);
    frame_ = frame;
    // So that the area computes none.
    frame->setAttribute(Qt::WA_Resized);
    // Empty: each move of a form to another parent styles all its controls anew.
    area->addSubWindow(frame);
    frame->setWidget(&widget_);
    QSize whole = inside.grownBy(frame->contentsMargins());
    if (area->isVisible())
        whole = whole.boundedTo(area->viewport()->size()).expandedTo(frame_->minimumSizeHint());
    frame_->resize(whole);
    PlaceInArea(*area, *frame_);
    frame_->show();
}

void Form::SetFocus() {
    QWidget& frame = Frame();
    if (frame.isMinimized())
        frame.showNormal();
    if (place_ == Place::InMainWindow) {
        if (MainWindowArea() != nullptr && !frame_.isNull())
            MainWindowArea()->setActiveSubWindow(static_cast<FormFrame*>(frame_.data()));
    } else {
        frame.raise();
        frame.activateWindow();
    }
}

void Form::Hide() {
    if (place_ == Place::InMainWindow) {
        if (frame_.isNull())
            return;
        frame_->hide();
        if (MainWindowArea() != nullptr)
            ActivateNextInMainWindow(*MainWindowArea());
    } else {
        widget_.hide();
        ActivateNextTopLevel();
    }
    ActivationTracker::Instance().Schedule();
}

bool Form::Unload() {
    if (unloaded_)
        return true;
    if (!QueryUnload())
        return false;
    // What was done on the form is stored before it goes: after a fault it is there to try again.
    CommitAction();
    // The question may have let other events run, and one of them may have ended the form.
    if (!unloaded_)
        Drop();
    return true;
}

void Form::Drop() {
    unloaded_ = true;
    ForgetDefaultForm(*this);
    Unloaded();
    const bool wasShown = Frame().isVisible() || (!frame_.isNull() && !frame_->isHidden());
    if (wasShown)
        Hide();
    Frame().deleteLater();
}

// The toolkit takes the mark away where it stands in a title by itself, and shows one for two.
QString Form::Caption() const {
    return widget_.windowTitle().replace(ChangeMark + ChangeMark, ChangeMark);
}

void Form::SetCaption(const QString& caption) {
    widget_.setWindowTitle(QString(caption).replace(ChangeMark, ChangeMark + ChangeMark));
}

void Form::SetMousePointer(int pointer) {
    if (pointer == 11)
        widget_.setCursor(Qt::WaitCursor);
    else
        widget_.unsetCursor();
}

QWidget& Form::Frame() const {
    return frame_.isNull() ? widget_ : *frame_;
}

int Form::Left() const {
    return TwipsOf(Frame().x());
}

int Form::Top() const {
    return TwipsOf(Frame().y());
}

void Form::Move(int left, int top) {
    if (FillsOrLeftItsPlace(Frame()))
        return;
    Frame().move(PixelsOf(left), PixelsOf(top));
}

void Form::SetHeight(int twips) {
    if (FillsOrLeftItsPlace(Frame()))
        return;
    const int change = PixelsOf(twips) - widget_.height();
    Frame().resize(Frame().width(), Frame().height() + change);
}

void Form::KeepInMainWindow() {
    const QMdiArea* area = MainWindowArea();
    if (frame_.isNull() || area == nullptr || !area->isVisible() || FillsOrLeftItsPlace(*frame_))
        return;
    const int lowest = std::max(0, area->viewport()->height() - frame_->height());
    if (frame_->y() > lowest)
        frame_->move(frame_->x(), lowest);
}

void Form::HandleClose(QCloseEvent& event) {
    event.ignore();
    RunAction([this] { Unload(); });
}

FormWidget::FormWidget(Place place) : Form(*static_cast<QWidget*>(this), place) {}

void FormWidget::closeEvent(QCloseEvent* event) {
    HandleClose(*event);
}

void FormWidget::keyPressEvent(QKeyEvent* event) {
    if (!PressFormButton(*this, *event))
        QWidget::keyPressEvent(event);
}
