#include "platform/desktop/SystemPrompts.h"

#include "platform/forms/ActivationTracker.h"
#include "platform/forms/MainWindowArea.h"
#include "platform/forms/WidgetRole.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEventLoop>
#include <QGridLayout>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMessageBox>
#include <QPointer>
#include <QScreen>
#include <algorithm>

namespace {

/// Below the form that a box is about, or above it where there is no room below: it stands open
/// beside the form, and what is asked for is typed there.
void PlaceBesideFormInFront(QMessageBox& box) {
    constexpr int Gap = 8; // pixels
    constexpr int TitleBar =
        36; // the window system's, which may come on top of the place asked for
    const QMdiArea* area = MainWindowArea();
    const QWidget* form = area == nullptr ? nullptr : area->activeSubWindow();
    if (form == nullptr || !form->isVisible())
        return;
    const QRect place(form->mapToGlobal(QPoint()), form->size());
    const QRect room = form->screen()->availableGeometry();
    box.ensurePolished();
    const QSize size = box.sizeHint();
    const int below = place.bottom() + Gap + TitleBar;
    const int above = place.top() - Gap - TitleBar - size.height();
    const bool fitsBelow = below + size.height() <= room.bottom();
    const int left = place.center().x() - size.width() / 2;
    box.move(std::clamp(left, room.left(), std::max(room.left(), room.right() - size.width())),
             fitsBelow || above < room.top() + TitleBar ? below : above);
}

/// Where there is no icon, the toolkit keeps room for half of one before the text.
void BeginTextAtMargin(QMessageBox& box) {
    auto* grid = qobject_cast<QGridLayout*>(box.layout());
    auto* text = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
    if (grid == nullptr || text == nullptr || box.icon() != QMessageBox::NoIcon)
        return;
    grid->removeWidget(text);
    constexpr int allColumns = -1;
    grid->addWidget(text, 0, 0, 1, allColumns);
}

} // namespace

PromptAnswer SystemPrompts::Show(const Prompt& prompt) {
    // On the heap: the window beneath may be deleted while the box stands.
    const QPointer<QMessageBox> box = new QMessageBox(QApplication::activeWindow());
    box->setWindowTitle(prompt.Title);
    box->setTextFormat(Qt::PlainText);
    box->setText(prompt.Text);
    if (prompt.Icon == PromptIcon::Exclamation)
        box->setIcon(QMessageBox::Warning);
    else if (prompt.Icon == PromptIcon::Critical)
        box->setIcon(QMessageBox::Critical);
    if (prompt.Buttons == PromptButtons::YesNo) {
        // The toolkit takes the No for what closing the box answers.
        box->setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        // Desktops have words of their own language for them.
        box->button(QMessageBox::Yes)->setText(QStringLiteral("&Yes"));
        box->button(QMessageBox::No)->setText(QStringLiteral("&No"));
        if (prompt.BeginsOnNo)
            box->setDefaultButton(QMessageBox::No);
    } else {
        box->setStandardButtons(QMessageBox::Ok);
        box->button(QMessageBox::Ok)->setText(QStringLiteral("Ok"));
        box->button(QMessageBox::Ok)->setProperty("sign", QStringLiteral("tick"));
    }
    // The button that Enter presses looks as it does on the forms.
    const auto other = prompt.BeginsOnNo ? QMessageBox::Yes : QMessageBox::No;
    for (QAbstractButton* button : box->buttons())
        if (box->standardButton(button) != other)
            SetRole(*button, QStringLiteral("primary"));

    BeginTextAtMargin(*box);
    if (prompt.LeavesFormsReachable) {
        PlaceBesideFormInFront(*box);
        box->setModal(false);
        QEventLoop wait;
        QObject::connect(box, &QDialog::finished, &wait, &QEventLoop::quit);
        QObject::connect(box, &QObject::destroyed, &wait, &QEventLoop::quit);
        box->show();
        wait.exec();
    } else {
        box->exec();
    }

    // Where no window manager hands on the focus that the box had, nothing else tells of its end.
    ActivationTracker::Instance().Schedule();
    if (box.isNull())
        return prompt.Buttons == PromptButtons::Ok ? PromptAnswer::Ok : PromptAnswer::No;
    const bool yes = box->clickedButton() == box->button(QMessageBox::Yes);
    delete box.data();
    if (prompt.Buttons == PromptButtons::Ok)
        return PromptAnswer::Ok;
    return yes ? PromptAnswer::Yes : PromptAnswer::No;
}
