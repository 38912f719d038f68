#include "tests/common/FormTest.h"

#include "app/RegisterForms.h"
#include "platform/forms/ActivationTracker.h"
#include "support/clsRegistry.h"
#include "tests/common/ActiveWindow.h"
#include "tests/common/Pictures.h"
#include "tests/common/TestRun.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QCursor>
#include <QDir>
#include <QLineEdit>
#include <QScreen>
#include <QTest>
#include <QTextDocumentFragment>

FormTest::FormTest() {
    // What an earlier test has pressed and never released is not held here.
    QWidget anywhere;
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton})
        if (QGuiApplication::mouseButtons().testFlag(button))
            QTest::mouseRelease(&anywhere, button);
    EXPECT_EQ(QGuiApplication::mouseButtons(), Qt::NoButton);
    QTestPrivate::qtestMouseButtons = Qt::NoButton;
    // A blinking cursor is in one picture of two.
    QApplication::setCursorFlashTime(0);
    // Nothing is under the mouse where an earlier test has left it.
    QCursor::setPos(QApplication::primaryScreen()->geometry().bottomRight());
    clsRegistry registry;
    const QString key = QStringLiteral("Dutygrid");
    registry.CreateKey(HKEY_CURRENT_USER, key);
    registry.SetValue(HKEY_CURRENT_USER, key, QStringLiteral("RunningTimes2"), 1);
    RegisterForms();
}

FormTest::~FormTest() {
    DropDefaultForms();
    // Deferred deletions belong to this test, and so does the focus that its windows leave behind.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    // It would take the focus from the next test, and hold up a program that ends with its windows.
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible()) {
            ADD_FAILURE() << "left behind: " << window->windowTitle().toStdString();
            window->hide();
        }
    LetWindowsRest();
}

namespace {

void ExpectCommitted() {
    EXPECT_FALSE(IsUnderWay()) << "a kill would undo what has just been done";
}

} // namespace

void FormTest::Settle(Keyboard keyboard) {
    LetWindowsRest(keyboard);
    ExpectCommitted();
}

void FormTest::MakeAccount(const QString& name, const QString& password, const QString& state) {
    Arrange([&] { Database().AddUser(name, password, state, PictureFile()); });
}

void FormTest::StartSession(const QString& user, const QString& state) {
    CurrentUser = user;
    CurrentState = state;
    Form& mainForm = DefaultForm(QStringLiteral("MainForm"));
    mainForm.Show();
    EXPECT_TRUE(BecomesActive(mainForm.Widget()));
    Settle();
}

void FormTest::Click(QWidget& control) {
    QTest::mouseClick(&control, Qt::LeftButton);
    Settle();
}

void FormTest::SizeWindow(QWidget& window, const QSize& size) {
    // A window manager that is behind may give it the size before once more.
    const auto holds = [&] {
        window.resize(size);
        Settle();
        Settle();
        return window.size() == size;
    };
    EXPECT_TRUE(QTest::qWaitFor(holds, Patience));
}

void FormTest::SizeMainWindow(const QSize& size) {
    QWidget& window = DefaultForm(QStringLiteral("MainForm")).Widget();
    window.setWindowState(Qt::WindowNoState);
    Settle();
    SizeWindow(window, size);
}

void FormTest::MouseTo(const QWidget& control) {
    const QPoint middle = control.mapToGlobal(control.rect().center());
    QCursor::setPos(middle);
    EXPECT_TRUE(QTest::qWaitFor([&] { return control.underMouse(); }, Patience));
    // No hand lies still: a button is told of the mouse only as it moves on it.
    QCursor::setPos(middle + QPoint(1, 0));
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
    TypeOn(*box, text);
}

void FormTest::TypeOn(QWidget& control, const QString& text) {
    QTest::keyClicks(&control, text);
    ExpectCommitted();
}

void FormTest::Press(QWidget& control, Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(&control, key, modifiers);
    ExpectCommitted();
}

void FormTest::KeyToWindow(const QWidget& window, Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(window.windowHandle(), key, modifiers);
    ExpectCommitted();
}

QWidget& FormTest::Focused() {
    QWidget* focused = QApplication::focusWidget();
    if (focused == nullptr)
        throw std::runtime_error("no control has the focus");
    return *focused;
}

void FormTest::KeyToFocus(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    Press(Focused(), key, modifiers);
}

void FormTest::LookAt(QWidget& seen, const QString& name) {
    ExpectPicture([&seen] { return seen.grab().toImage(); }, name);
}
