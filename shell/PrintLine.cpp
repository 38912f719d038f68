#include "shell/PrintLine.h"

#include "platform/forms/Handlers.h"
#include "platform/printing/PrintNews.h"
#include "platform/runtime/Desktop.h"
#include "widgets/FittingLabel.h"

#include <QAccessibleWidget>
#include <QApplication>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMenuBar>
#include <QPushButton>
#include <algorithm>
#include <array>

namespace {

// Pixels.
constexpr int RowMargin = 2;
constexpr int LineEdge = 8;
constexpr int MenusGap = 24;
/// Widths come rounded to whole pixels; a text that just fits is not to be cut for that.
constexpr int Spare = 2;

QString TextOf(const PrintNews& news) {
    if (!news.File.isEmpty())
        return QStringLiteral("Kept in Printouts: ") + QFileInfo(news.File).fileName();
    if (news.IsWaiting)
        return QStringLiteral("%1 has stopped, and the pages wait there").arg(news.Printer);
    return QStringLiteral("Printed on ") + news.Printer;
}

/// What comes into view is read out at once, as the news of a desktop are.
QAccessibleInterface* MakeNewsAccess(const QString& key, QObject* object) {
    return key == QLatin1String("PrintLine")
               ? new QAccessibleWidget(static_cast<QWidget*>(object), QAccessible::Notification)
               : nullptr;
}

/// Keys by which one comes to the button.
bool MovesTheKeyboard(const QKeyEvent& event) {
    constexpr std::array keys = {Qt::Key_Tab,     Qt::Key_Backtab, Qt::Key_F6,    Qt::Key_Shift,
                                 Qt::Key_Control, Qt::Key_Alt,     Qt::Key_AltGr, Qt::Key_Meta};
    return std::find(keys.begin(), keys.end(), event.key()) != keys.end();
}

} // namespace

PrintLine::PrintLine(QMenuBar& menus)
    // Over the menus, not inside: of what they hold screen readers are told the menus alone.
    : QFrame(menus.window()), menus_(menus), text_(new FittingLabel(this)),
      open_(new QPushButton(QStringLiteral("Open"), this)) {
    setObjectName(QStringLiteral("PrintLine"));
    setProperty("role", QStringLiteral("news"));
    setAttribute(Qt::WA_NoMousePropagation);
    text_->setObjectName(QStringLiteral("PrintText"));
    text_->setAlignment(Qt::AlignVCenter);
    open_->setObjectName(QStringLiteral("OpenPrintout"));
    open_->setAccessibleName(QStringLiteral("Open the printed page"));
    open_->setFocusPolicy(Qt::TabFocus);
    open_->setAutoDefault(true); // Enter presses it, as it does all buttons
    auto* parts = new QHBoxLayout(this);
    parts->setSpacing(LineEdge);
    parts->addWidget(text_, 1);
    parts->addWidget(open_);
    On(open_, &QPushButton::clicked, this,
       [this] { CurrentDesktop().ShellExecute(QStringLiteral("open"), file_, 0); });
    hide();
}

void PrintLine::Tell(const PrintNews& news) {
    const bool wasInView = isVisible();
    // First: of what is not shown nothing is said aloud, and it does not know its size.
    show();
    raise();
    file_ = news.File;
    text_->setText(TextOf(news));
    setAccessibleName(text_->text());
    text_->setToolTip(file_);
    open_->setVisible(!file_.isEmpty());
    layout()->setContentsMargins(LineEdge, 0, file_.isEmpty() ? LineEdge : RowMargin, 0);
    Place();
    if (!wasInView)
        return;
    // One that takes the place of another is read out as well.
    QAccessibleEvent shown(this, QAccessible::ObjectShow);
    QAccessible::updateAccessibility(&shown);
}

void PrintLine::Place() {
    const QList<QAction*> titles = menus_.actions();
    const int menusEnd = titles.isEmpty() ? 0 : menus_.actionGeometry(titles.last()).right();
    const QRect row(menus_.mapTo(window(), QPoint()), menus_.size());
    const int width = std::min(sizeHint().width() + Spare, row.width() - menusEnd - MenusGap);
    setGeometry(row.right() - width - LineEdge, row.top() + RowMargin, width,
                row.height() - 2 * RowMargin);
}

bool PrintLine::TakeKeyboard() {
    if (!open_->isVisible())
        return false;
    open_->setFocus(Qt::TabFocusReason);
    return true;
}

void PrintLine::showEvent(QShowEvent* event) {
    QFrame::showEvent(event);
    qApp->installEventFilter(this);
}

void PrintLine::hideEvent(QHideEvent* event) {
    QFrame::hideEvent(event);
    qApp->removeEventFilter(this);
}

bool PrintLine::IsNextAction(const QWidget& at, const QEvent& event) const {
    // Keys of the menus come as the second kind alone.
    if (event.type() == QEvent::KeyPress || event.type() == QEvent::ShortcutOverride)
        return !isAncestorOf(QApplication::focusWidget()) &&
               !MovesTheKeyboard(static_cast<const QKeyEvent&>(event));
    return event.type() == QEvent::MouseButtonPress && &at != this && !isAncestorOf(&at);
}

bool PrintLine::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &menus_ && event->type() == QEvent::Resize)
        Place();
    if (watched->isWidgetType() && IsNextAction(*static_cast<QWidget*>(watched), *event))
        hide();
    return QFrame::eventFilter(watched, event);
}

void InstallPrintLineAccess() {
    QAccessible::installFactory(MakeNewsAccess);
}
