#include "platform/desktop/SystemPrompts.h"

#include "platform/forms/ActivationTracker.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEventLoop>
#include <QMessageBox>
#include <QPointer>
#include <QStyle>

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
    }
    // The button that Enter presses looks as it does on the forms.
    for (QAbstractButton* button : box->buttons())
        if (box->standardButton(button) != QMessageBox::No) {
            button->setProperty("role", QStringLiteral("primary"));
            button->style()->unpolish(button);
            button->style()->polish(button);
        }

    if (prompt.LeavesFormsReachable) {
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
