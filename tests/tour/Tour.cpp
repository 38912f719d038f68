#include "tests/tour/Tour.h"

#include "app/RegisterForms.h"
#include "platform/forms/DefaultForms.h"
#include "platform/runtime/Actions.h"
#include "platform/runtime/Dates.h"
#include "platform/runtime/ProgramFolder.h"
#include "tests/common/Readable.h"
#include "tests/common/TestRun.h"
#include "tests/common/WindowsAtRest.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QDirIterator>
#include <QLineEdit>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QRadioButton>
#include <QScrollBar>
#include <QTableView>
#include <QTest>
#include <QToolBar>
#include <stdexcept>

namespace {

void CopyTree(const QString& from, const QString& to) {
    QDirIterator files(from, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString file = files.next();
        const QString copy = to + file.mid(from.size());
        QDir().mkpath(QFileInfo(copy).path());
        EXPECT_TRUE(QFile::copy(file, copy)) << file.toStdString();
    }
}

QWidget* FormInFront() {
    QWidget* window = QApplication::activeWindow();
    if (window == nullptr)
        return nullptr;
    auto* area = window->findChild<QMdiArea*>();
    const QMdiSubWindow* inside = area == nullptr ? nullptr : area->activeSubWindow();
    return inside == nullptr || inside->isHidden() ? window : inside->widget();
}

QString NameOf(const QWidget* form) {
    return form == nullptr ? QStringLiteral("nothing")
                           : QString::fromLatin1(form->metaObject()->className());
}

/// The box that takes the keys.
QWidget& EditOf(QWidget& control) {
    auto* combo = qobject_cast<QComboBox*>(&control);
    return combo == nullptr ? control : *combo->lineEdit();
}

void ReplaceText(QWidget& edit, const QString& text) {
    QTest::keyClick(&edit, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&edit, Qt::Key_Delete);
    QTest::keyClicks(&edit, text);
}

} // namespace

Tour::Tour(const Text& chapter, const QDate& firstDay) : Pictures(chapter), Boxes(Pictures) {
    TheDayIs(firstDay);
    CopyTree(QStringLiteral(DUTYGRID_ASSETS_DIR), folder_.path());
    RegisterForms();
}

Tour::~Tour() {
    DropDefaultForms();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void Tour::StartProgram() {
    RunAction([] { WithErrorsEndingTheRun([] { DefaultForm(QStringLiteral("LogIn")).Show(); }); });
    Settle();
}

void Tour::TheDayIs(const QDate& day) {
    SetToday(day);
}

void Tour::Settle() {
    // Lists that drop down are no window manager's.
    constexpr int quiet = 20; // milliseconds
    LetWindowsRest();
    Boxes.WaitForAll();
    QTest::qWait(quiet);
    LetWindowsRest();
}

QString Tour::InFolder(const Text& tail) {
    return InProgramFolder(tail);
}

QWidget& Tour::MainWindow() {
    return DefaultForm(QStringLiteral("MainForm")).Widget();
}

QWidget& Tour::Control(const QString& name) const {
    if (form_.isNull())
        throw std::runtime_error("the form has gone; looking for " + name.toStdString());
    auto* control = form_->findChild<QWidget*>(name);
    if (control == nullptr)
        throw std::runtime_error("no " + name.toStdString() + " on " + NameOf(form_).toStdString());
    return *control;
}

void Tour::Front(const Text& form, Here here) {
    const bool came = QTest::qWaitFor([&form] { return NameOf(FormInFront()) == form; }, Patience);
    Settle();
    form_ = FormInFront();
    if (!came || NameOf(form_) != form) {
        ADD_FAILURE_AT(here.file_name(), static_cast<int>(here.line()))
            << NameOf(form_).toStdString() << " is in front instead of " << form.toStdString();
        throw std::runtime_error("the story cannot go on");
    }
}

void Tour::MainWindowComes(Here here) {
    if (!QTest::qWaitFor([] { return QApplication::activeWindow() == &MainWindow(); }, Patience))
        ADD_FAILURE_AT(here.file_name(), static_cast<int>(here.line()))
            << "the main window does not come to the front";
    Settle();
}

/// Moves the main window's scroll bars until the place is in sight, if it is not.
void Tour::BringIntoView(const QWidget& widget, const QPoint& place) {
    auto* area = widget.window()->findChild<QMdiArea*>();
    if (area == nullptr || !area->isAncestorOf(&widget))
        return;
    constexpr int Margin = 40; // pixels
    const QPoint inArea = widget.mapTo(area->viewport(), place);
    const QRect view = area->viewport()->rect();
    if (view.contains(inArea))
        return;
    QScrollBar* down = area->verticalScrollBar();
    QScrollBar* right = area->horizontalScrollBar();
    if (!(view.top() <= inArea.y() && inArea.y() <= view.bottom()))
        down->setValue(down->value() + inArea.y() - view.bottom() + Margin);
    if (!(view.left() <= inArea.x() && inArea.x() <= view.right()))
        right->setValue(right->value() + inArea.x() - view.right() + Margin);
    LetWindowsRest();
}

void Tour::ClickAt(QWidget& widget, const QPoint& place, const HowToClick& how) {
    BringIntoView(widget, place);
    QWidget* window = widget.window();
    const QPoint inWindow = widget.mapTo(window, place);
    QWidget* hit = window->childAt(inWindow);
    if (hit != nullptr && hit != &widget && !widget.isAncestorOf(hit))
        ADD_FAILURE() << widget.objectName().toStdString() << " is covered by "
                      << hit->metaObject()->className() << ' ' << hit->objectName().toStdString();
    EXPECT_TRUE(hit != nullptr || window == &widget)
        << widget.objectName().toStdString() << " cannot be reached";
    QWindow* surface = window->windowHandle();
    QTest::mouseMove(surface, inWindow);
    if (how.Twice)
        QTest::mouseDClick(surface, how.Button, how.Keys, inWindow);
    else
        QTest::mouseClick(surface, how.Button, how.Keys, inWindow);
}

void Tour::Click(const Text& control) {
    QWidget& widget = Control(control);
    EXPECT_TRUE(widget.isVisible() && widget.isEnabled()) << control.toStdString();
    // An option is hit on its mark and its text alone, however wide it is laid out.
    const bool isOption = qobject_cast<QRadioButton*>(&widget) != nullptr ||
                          qobject_cast<QCheckBox*>(&widget) != nullptr;
    const QPoint middle = widget.rect().center();
    ClickAt(widget, isOption ? QPoint(10, middle.y()) : middle);
    Settle();
}

void Tour::Type(const Text& box, const Text& text) {
    QWidget& edit = EditOf(Control(box));
    ClickAt(edit, edit.rect().center());
    LetWindowsRest();
    EXPECT_TRUE(edit.hasFocus()) << box.toStdString();
    ReplaceText(edit, text);
    Settle();
}

void Tour::TypeBehindBox(const Text& box, const Text& text) {
    ReplaceText(EditOf(Control(box)), text);
}

void Tour::Press(const Text& control, Qt::Key key) {
    QWidget* widget = &EditOf(Control(control));
    widget->setFocus();
    QTest::keyClick(widget, key);
    Settle();
}

void Tour::Choose(const Text& combo, const Text& entry) {
    auto& box = dynamic_cast<QComboBox&>(Control(combo));
    ClickAt(box, QPoint(box.width() - 8, box.height() / 2));
    Settle();
    QAbstractItemView* view = box.view();
    EXPECT_TRUE(view->isVisible()) << combo.toStdString();
    const int row = box.findText(entry);
    if (row < 0)
        throw std::runtime_error(combo.toStdString() + " does not offer " + entry.toStdString());
    const QModelIndex index = view->model()->index(row, box.modelColumn());
    view->scrollTo(index);
    QTest::mouseMove(view->viewport(), view->visualRect(index).center());
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, view->visualRect(index).center());
    Settle();
    EXPECT_EQ(box.currentText(), static_cast<const QString&>(entry)) << combo.toStdString();
}

void Tour::PickEntry(const QString& list, const QString& entry, const HowToClick& how) {
    auto& view = dynamic_cast<QAbstractItemView&>(Control(list));
    const QAbstractItemModel& model = *view.model();
    for (int row = 0; row < model.rowCount(); ++row) {
        const QModelIndex index = model.index(row, 0);
        if (index.data().toString() != entry)
            continue;
        view.scrollTo(index);
        ClickAt(*view.viewport(), view.visualRect(index).center(), how);
        Settle();
        return;
    }
    throw std::runtime_error(list.toStdString() + " does not list " + entry.toStdString());
}

void Tour::Pick(const Text& list, const Text& entry, Qt::KeyboardModifiers keys) {
    PickEntry(list, entry, {keys});
}

void Tour::DoublePick(const Text& list, const Text& entry) {
    PickEntry(list, entry, {{}, Qt::LeftButton, true});
}

void Tour::RightPress(const Text& list, const Text& entry) {
    PickEntry(list, entry, {{}, Qt::RightButton});
}

void Tour::ChooseDay(const Text& calendar, const QDate& day) {
    auto& month = dynamic_cast<QCalendarWidget&>(Control(calendar));
    EXPECT_EQ(QPoint(month.yearShown(), month.monthShown()), QPoint(day.year(), day.month()))
        << calendar.toStdString() << " shows another month";
    auto& days = *month.findChild<QTableView*>(QStringLiteral("qt_calendar_calendarview"));
    // The numbers of the days before the month's first end in a greater one than 1.
    int before = -1;
    for (int row = 0; row < days.model()->rowCount(); ++row)
        for (int column = 0; column < days.model()->columnCount(); ++column) {
            const QModelIndex index = days.model()->index(row, column);
            if (days.isColumnHidden(column) || (before < 0 && index.data().toInt() != 1))
                continue;
            if (++before == day.day() - 1)
                ClickAt(*days.viewport(), days.visualRect(index).center());
        }
    Settle();
    EXPECT_EQ(month.selectedDate(), day) << calendar.toStdString();
}

void Tour::ScrollTo(const Text& bar, int value) {
    auto& scrollBar = dynamic_cast<QScrollBar&>(Control(bar));
    while (scrollBar.value() != value) {
        const int before = scrollBar.value();
        const bool down = value > before;
        ClickAt(scrollBar, QPoint(scrollBar.width() / 2, down ? scrollBar.height() - 4 : 4));
        Settle();
        if (scrollBar.value() == before)
            throw std::runtime_error(bar.toStdString() + " does not move");
    }
}

void Tour::ClickBelowEntries(const Text& list) {
    auto& view = dynamic_cast<QAbstractItemView&>(Control(list));
    const QPoint place = view.viewport()->rect().bottomLeft() + QPoint(20, -6);
    EXPECT_FALSE(view.indexAt(place).isValid()) << "the list is full";
    ClickAt(*view.viewport(), place);
    Settle();
}

void Tour::Toolbar(const Text& key) {
    auto* bar = MainWindow().findChild<QToolBar*>(QStringLiteral("KidToolbar"));
    auto* action = bar->findChild<QAction*>(QLatin1String("KidToolbar.") + key);
    if (action == nullptr)
        throw std::runtime_error("no toolbar button " + key.toStdString());
    QWidget* button = bar->widgetForAction(action);
    EXPECT_TRUE(button->isVisible() && button->isEnabled()) << key.toStdString();
    ClickAt(*button, button->rect().center());
    Settle();
}

namespace {

/// Opens a menu by a click on its title.
QMenu& OpenMenu(QWidget& mainWindow, const QString& name) {
    auto* menu = mainWindow.findChild<QMenu*>(name);
    if (menu == nullptr)
        throw std::runtime_error("no menu " + name.toStdString());
    QMenuBar* bar = dynamic_cast<QMainWindow&>(mainWindow).menuBar();
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(menu->menuAction()).center());
    EXPECT_TRUE(QTest::qWaitForWindowExposed(menu, Patience)) << name.toStdString();
    return *menu;
}

QAction& EntryOf(QMenu& menu, const QString& name) {
    for (QAction* entry : menu.actions())
        if (entry->objectName() == name)
            return *entry;
    throw std::runtime_error("no menu entry " + name.toStdString());
}

} // namespace

void Tour::Menu(const Text& menu, const Text& entry) {
    QMenu& open = OpenMenu(MainWindow(), menu);
    QAction& action = EntryOf(open, entry);
    EXPECT_TRUE(action.isVisible() && action.isEnabled()) << entry.toStdString();
    QTest::mouseClick(&open, Qt::LeftButton, {}, open.actionGeometry(&action).center());
    Settle();
}

void Tour::ShowMenu(const Text& menu, const Text& picture) {
    QMenu& open = OpenMenu(MainWindow(), menu);
    LetWindowsRest();
    Pictures.TakeScreen(picture);
    QTest::keyClick(&open, Qt::Key_Escape);
    Settle();
}

void Tour::Shortcut(Qt::Key key) {
    QTest::keyClick(MainWindow().windowHandle(), key);
    Settle();
}

void Tour::Shoot(const Text& picture) {
    Settle();
    if (form_.isNull())
        throw std::runtime_error("the form has gone: " + picture.toStdString());
    Pictures.Take(*form_->window(), picture, form_);
}
