#include "help/HelpWindow.h"

#include "platform/forms/EnterKey.h"
#include "platform/forms/Handlers.h"
#include "ui_HelpWindow.h"

#include <QAccessibleWidget>
#include <QApplication>
#include <QEvent>
#include <QScreen>
#include <QShortcut>
#include <QSignalBlocker>
#include <QTimer>
#include <algorithm>
#include <utility>

namespace {

// Logical pixels.
constexpr QSize UsualSize(960, 700);
constexpr int ContentsWidth = 250;
// What a window's frame and the desktop's bars take.
constexpr QSize ScreenBorder(40, 80);

constexpr int IdRole = Qt::UserRole;

QAccessibleInterface* MakeHelpAccess(const QString& key, QObject* object) {
    return key == QLatin1String("HelpWindow")
               ? new QAccessibleWidget(static_cast<QWidget*>(object), QAccessible::Window)
               : nullptr;
}

} // namespace

void InstallHelpAccess() {
    QAccessible::installFactory(MakeHelpAccess);
}

HelpWindow::HelpWindow() : ui_(std::make_unique<Ui::HelpWindow>()) {
    ui_->setupUi(this);
    ui_->Splitter->setStretchFactor(1, 1);
    ui_->Splitter->setSizes({ContentsWidth, UsualSize.width() - ContentsWidth});
    ui_->Contents->viewport()->installEventFilter(this);
    resize(UsualSize.boundedTo(QGuiApplication::primaryScreen()->availableSize() - ScreenBorder));

    On(ui_->Back, &QPushButton::clicked, this, [this] { ui_->Page->backward(); });
    On(ui_->Forward, &QPushButton::clicked, this, [this] { ui_->Page->forward(); });
    On(ui_->Home, &QPushButton::clicked, this, [this] { ui_->Page->home(); });
    On(ui_->Smaller, &QPushButton::clicked, this, [this] { ui_->Page->ChangeTextSize(-1); });
    On(ui_->Larger, &QPushButton::clicked, this, [this] { ui_->Page->ChangeTextSize(1); });
    On(ui_->CloseHelp, &QPushButton::clicked, this, [this] { close(); });
    On(ui_->NextHit, &QPushButton::clicked, this, [this] { NextHit(1); });
    On(ui_->SearchText, &QLineEdit::textChanged, this, [this] { Search(); });
    On(new EnterKey(ui_->SearchText), &EnterKey::Pressed, this, [this] { NextHit(1); });
    On(ui_->Results, &QListWidget::currentRowChanged, this, [this](int row) {
        if (row >= 0)
            OpenResult(row, false);
    });
    On(ui_->Contents, &QTreeWidget::currentItemChanged, this,
       [this](const QTreeWidgetItem* entry, const QTreeWidgetItem*) {
           if (entry != nullptr)
               ui_->Page->GoTo(entry->data(0, IdRole).toString());
       });
    // Back to the top of the page that is shown already.
    On(ui_->Contents, &QTreeWidget::itemClicked, this, [this](const QTreeWidgetItem* entry, int) {
        ui_->Page->GoTo(entry->data(0, IdRole).toString());
    });
    On(ui_->Page, &QTextBrowser::sourceChanged, this,
       [this](const QUrl& source) { PageChanged(source.fragment()); });
    On(ui_->Page, &QTextBrowser::backwardAvailable, this,
       [this](bool available) { ui_->Back->setEnabled(available); });
    On(ui_->Page, &QTextBrowser::forwardAvailable, this,
       [this](bool available) { ui_->Forward->setEnabled(available); });
    AddShortcuts();
}

HelpWindow::~HelpWindow() = default;

void HelpWindow::AddShortcuts() {
    const auto add = [this](const QList<QKeySequence>& keys, const auto& action) {
        for (const QKeySequence& key : keys)
            On(new QShortcut(key, this), &QShortcut::activated, this, action);
    };
    add({Qt::ALT | Qt::Key_Left, Qt::Key_Back}, [this] { ui_->Page->backward(); });
    add({Qt::ALT | Qt::Key_Right, Qt::Key_Forward}, [this] { ui_->Page->forward(); });
    add({Qt::ALT | Qt::Key_Home}, [this] { ui_->Page->home(); });
    add({Qt::CTRL | Qt::Key_F}, [this] {
        ui_->SearchText->setFocus(Qt::ShortcutFocusReason);
        ui_->SearchText->selectAll();
    });
    add({Qt::Key_F3}, [this] { NextHit(1); });
    add({Qt::SHIFT | Qt::Key_F3}, [this] { NextHit(-1); });
    add({Qt::CTRL | Qt::Key_Plus, Qt::CTRL | Qt::Key_Equal},
        [this] { ui_->Page->ChangeTextSize(1); });
    add({Qt::CTRL | Qt::Key_Minus}, [this] { ui_->Page->ChangeTextSize(-1); });
    add({Qt::CTRL | Qt::Key_0}, [this] { ui_->Page->ChangeTextSize(0); });
    add({Qt::Key_Escape}, [this] { close(); });
}

void HelpWindow::Open(const QString& helpFile) {
    if (!isVisible()) {
        ui_->SearchText->clear();
        ui_->Page->SetBook(HelpBook(helpFile));
        FillContents();
        ui_->Contents->setFocus();
        // The first time; after that it comes back where it was left.
        if (const QWidget* asking = QApplication::activeWindow();
            asking != nullptr && !testAttribute(Qt::WA_Moved))
            PlaceBeside(*asking);
    }
    if (isMinimized())
        showNormal();
    show();
    raise();
    activateWindow();
}

/// Beside the window that asks if there is room, else in the lower right corner of its screen: the
/// corner where menus and buttons begin stays in sight.
void HelpWindow::PlaceBeside(const QWidget& asking) {
    const QRect screen = asking.screen()->availableGeometry();
    const QRect frame = asking.frameGeometry();
    const QSize needed = size() + ScreenBorder / 2;
    const int lowest = screen.bottom() + 1 - needed.height();
    QPoint place(screen.right() + 1 - needed.width(), lowest);
    if (screen.right() - frame.right() >= needed.width())
        place = {frame.right() + 1, std::min(frame.top(), lowest)};
    else if (frame.left() - screen.left() >= needed.width())
        place = {frame.left() - needed.width(), std::min(frame.top(), lowest)};
    move(place.x(), std::max(place.y(), screen.top()));
}

/// Where a press turns the page, the list is laid out anew when the button is up: entries that move
/// away below the mouse would leave another one marked. A second quick click, for which they have
/// moved, does nothing.
bool HelpWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched != ui_->Contents->viewport())
        return QWidget::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::MouseButtonDblClick:
        if (pressTurnedPage_)
            return true;
        [[fallthrough]];
    case QEvent::MouseButtonPress:
        isPressed_ = true;
        pressTurnedPage_ = false;
        break;
    case QEvent::MouseButtonRelease:
        isPressed_ = false;
        if (pressTurnedPage_)
            QTimer::singleShot(0, this, [this] { MarkInContents(); });
        break;
    default:
        break;
    }
    return false;
}

void HelpWindow::FillContents() {
    const QSignalBlocker quiet(ui_->Contents);
    ui_->Contents->clear();
    const auto describe = [](QTreeWidgetItem& entry, const QString& id, const QString& title) {
        entry.setText(0, title);
        entry.setToolTip(0, title);
        entry.setData(0, IdRole, id);
    };
    for (const HelpTopic& topic : ui_->Page->Book().Topics()) {
        auto* page = new QTreeWidgetItem(ui_->Contents);
        describe(*page, topic.Id, topic.Title);
        for (const HelpSection& section : topic.Sections)
            describe(*new QTreeWidgetItem(page), section.Id, section.Title);
    }
    PageChanged(QString());
}

QTreeWidgetItem* HelpWindow::ContentsEntry(const QString& id) const {
    for (QTreeWidgetItemIterator entry(ui_->Contents); *entry != nullptr; ++entry)
        if ((*entry)->data(0, IdRole).toString() == id)
            return *entry;
    return nullptr;
}

void HelpWindow::PageChanged(const QString& section) {
    const qsizetype page = ui_->Page->Page();
    if (page < 0)
        return;
    const HelpTopic& topic = ui_->Page->Book().Topics().at(page);
    setWindowTitle(topic.Title + QStringLiteral(" - Sparkit Dutygrid Help"));
    ui_->Page->setAccessibleName(topic.Title);

    shown_ = section.isEmpty() ? topic.Id : section;
    if (isPressed_)
        pressTurnedPage_ = true;
    else
        MarkInContents();
    const QSignalBlocker quiet(ui_->Results);
    ui_->Results->setCurrentRow(static_cast<int>(results_.indexOf(page)));
}

void HelpWindow::MarkInContents() {
    QTreeWidgetItem* entry = ContentsEntry(shown_);
    if (entry == nullptr)
        return;
    const QSignalBlocker quiet(ui_->Contents);
    // Only the sections of this page, or the list grows longer than the window.
    ui_->Contents->collapseAll();
    ui_->Contents->setCurrentItem(entry);
    ui_->Contents->expandItem(entry->parent() == nullptr ? entry : entry->parent());
}

void HelpWindow::Search() {
    const QStringList words = SearchWords(ui_->SearchText->text());
    ui_->Page->Mark(words);
    results_ = ui_->Page->Book().Find(words);
    {
        const QSignalBlocker quiet(ui_->Results);
        ui_->Results->clear();
        for (const qsizetype page : std::as_const(results_))
            ui_->Results->addItem(ui_->Page->Book().Topics().at(page).Title);
        ui_->Results->setCurrentRow(static_cast<int>(results_.indexOf(ui_->Page->Page())));
    }
    const bool searching = !words.isEmpty();
    ui_->Lists->setCurrentWidget(searching ? ui_->FoundPages : ui_->AllPages);
    ui_->Found->setText(results_.isEmpty() ? QStringLiteral("No page has all these words.")
                        : results_.size() == 1
                            ? QStringLiteral("1 page found")
                            : QStringLiteral("%1 pages found").arg(results_.size()));
    ui_->NextHit->setEnabled(!results_.isEmpty());
}

/// Goes to the next hit (step 1) or the one before (step -1), through all pages found.
void HelpWindow::NextHit(int step) {
    if (results_.isEmpty())
        return;
    const qsizetype result = results_.indexOf(ui_->Page->Page());
    const qsizetype count = ui_->Page->HitCount();
    const qsizetype hit = ui_->Page->Hit() < 0 && step < 0 ? count - 1 : ui_->Page->Hit() + step;
    if (result >= 0 && hit >= 0 && hit < count)
        ui_->Page->GoToHit(hit);
    else if (result < 0)
        OpenResult(step > 0 ? 0 : results_.size() - 1, step < 0);
    else
        OpenResult((result + step + results_.size()) % results_.size(), step < 0);
}

void HelpWindow::OpenResult(qsizetype result, bool atEnd) {
    const qsizetype page = results_.at(result);
    ui_->Page->GoTo(ui_->Page->Book().Topics().at(page).Id);
    if (const qsizetype count = ui_->Page->HitCount(); count > 0)
        ui_->Page->GoToHit(atEnd ? count - 1 : 0);
}
