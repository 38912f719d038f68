#include "tests/common/FormTest.h"

#include "app/RegisterForms.h"
#include "platform/forms/ActivationTracker.h"
#include "support/clsRegistry.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDeadlineTimer>
#include <QDir>
#include <QLineEdit>
#include <QTest>
#include <QTextDocumentFragment>
#include <QWindow>
#include <utility>

FormTest::FormTest() {
    // What an earlier test has pressed and never released is not held here.
    QTestPrivate::qtestMouseButtons = Qt::NoButton;
    clsRegistry registry;
    const QString key = QStringLiteral("Dutygrid");
    registry.CreateKey(HKEY_CURRENT_USER, key);
    registry.SetValue(HKEY_CURRENT_USER, key, QStringLiteral("RunningTimes2"), 1);
    RegisterForms();
}

FormTest::~FormTest() {
    DropDefaultForms();
    // Deferred deletions belong to this test, not to the next.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

namespace {

/// Counts what tells that windows are still on their way: a window that comes, goes, moves or is
/// drawn afresh, and focus that travels.
class WindowUnrest : public QObject {
public:
    WindowUnrest() { qApp->installEventFilter(this); }

    int Events() const { return events_; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        switch (event->type()) {
        case QEvent::WindowActivate:
        case QEvent::WindowDeactivate:
        case QEvent::ApplicationStateChange:
        case QEvent::WindowStateChange:
        case QEvent::FocusIn:
        case QEvent::FocusOut:
        case QEvent::Show:
        case QEvent::Hide:
            ++events_;
            break;
        case QEvent::Expose:
        case QEvent::Move:
        case QEvent::Resize:
            events_ += watched->isWindowType() ? 1 : 0;
            break;
        default:
            break;
        }
        return false;
    }

private:
    int events_ = 0;
};

/// True while a form is shown as a window of its own, and one of them is not drawn yet or none
/// has the focus: the window manager has not come to it.
bool WindowManagerIsBehind() {
    if (QApplication::activeModalWidget() != nullptr)
        return false;
    bool anyShown = false;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (dynamic_cast<Form*>(window) == nullptr || !window->isVisible() || window->isMinimized())
            continue;
        anyShown = true;
        if (window->windowHandle() == nullptr || !window->windowHandle()->isExposed())
            return true;
    }
    return anyShown && QApplication::activeWindow() == nullptr;
}

} // namespace

void FormTest::Settle() {
    constexpr int QuietRounds = 3;
    constexpr int RoundMs = 15;
    // Another program may keep the focus for good.
    const QDeadlineTimer latest(2000);
    const WindowUnrest unrest;
    int seen = 0;
    for (int quiet = 0; quiet < QuietRounds && !latest.hasExpired();) {
        QTest::qWait(RoundMs);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        const bool calm = std::exchange(seen, unrest.Events()) == unrest.Events();
        quiet = calm && !WindowManagerIsBehind() ? quiet + 1 : 0;
    }
    EXPECT_FALSE(IsUnderWay()) << "a kill would undo what has just been done";
}

void FormTest::MakeAccount(const QString& name, const QString& password, const QString& state) {
    Arrange([&] { Database().AddUser(name, password, state, PictureFile()); });
}

void FormTest::StartSession(const QString& user, const QString& state) {
    CurrentUser = user;
    CurrentState = state;
    Form& mainForm = DefaultForm(QStringLiteral("MainForm"));
    mainForm.Show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&mainForm.Widget()));
    Settle();
}

void FormTest::Click(QWidget& control) {
    QTest::mouseClick(&control, Qt::LeftButton);
    Settle();
}

void FormTest::DoubleClick(QWidget& control) {
    QTest::mouseClick(&control, Qt::LeftButton);
    QTest::mouseDClick(&control, Qt::LeftButton);
    Settle();
}

namespace {

QPoint RowMiddle(const QAbstractItemView& view, int row) {
    return view.visualRect(view.model()->index(row, 0)).center();
}

} // namespace

void FormTest::ClickRow(QWidget& list, int row) {
    auto& view = dynamic_cast<QAbstractItemView&>(list);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, RowMiddle(view, row));
    Settle();
}

void FormTest::DoubleClickRow(QWidget& list, int row) {
    auto& view = dynamic_cast<QAbstractItemView&>(list);
    const QPoint middle = RowMiddle(view, row);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, middle);
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, middle);
    Settle();
}

namespace {

QPoint EmptyPart(const QAbstractItemView& view) {
    const QPoint below(20, view.viewport()->height() - 4);
    EXPECT_FALSE(view.indexAt(below).isValid()) << "the list is full";
    return below;
}

} // namespace

void FormTest::ClickEmptyPart(QWidget& list) {
    auto& view = dynamic_cast<QAbstractItemView&>(list);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, EmptyPart(view));
    Settle();
}

void FormTest::DoubleClickEmptyPart(QWidget& list) {
    auto& view = dynamic_cast<QAbstractItemView&>(list);
    const QPoint place = EmptyPart(view);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, place);
    Settle();
}

QString FormTest::ShownTip(const QString& toolTip) {
    return Qt::mightBeRichText(toolTip) ? QTextDocumentFragment::fromHtml(toolTip).toPlainText()
                                        : toolTip;
}

QString FormTest::ShownTitle(const QWidget& form) {
    return form.window()->windowHandle()->title();
}

void FormTest::Type(QWidget& control, const QString& text) {
    QWidget* box = &control;
    if (auto* combo = qobject_cast<QComboBox*>(box))
        box = combo->lineEdit();
    QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(box, Qt::Key_Delete);
    QTest::keyClicks(box, text);
}

void FormTest::Press(QWidget& control, Qt::Key key) {
    QTest::keyClick(&control, key);
}

void FormTest::Shoot(QWidget& form, const QString& name) {
    const QString folder = qEnvironmentVariable("DUTYGRID_SHOTS");
    if (!folder.isEmpty())
        form.grab().save(QDir(folder).filePath(name + QStringLiteral(".png")));
}
