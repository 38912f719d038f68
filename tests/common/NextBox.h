#pragma once

#include "tests/common/TestRun.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QMessageBox>
#include <QTimer>
#include <QWindow>
#include <functional>
#include <gtest/gtest.h>

/// The message box that stands, whether or not it blocks the program's windows.
inline QWidget* ShownMessageBox() {
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (qobject_cast<QMessageBox*>(widget) != nullptr && widget->isVisible())
            return widget;
    return nullptr;
}

/// Does something with the next dialog that blocks the program's windows, or with the next of
/// another kind, as soon as it is on the screen and has the keyboard. Fails the test if none has
/// come in its life or the keyboard does not come to it, and closes one that was to go and stays.
class NextBox {
public:
    explicit NextBox(std::function<void(QWidget&)> act,
                     std::function<QWidget*()> find = &QApplication::activeModalWidget)
        : act_(std::move(act)), find_(std::move(find)) {
        QObject::connect(&look_, &QTimer::timeout, &look_, [this] { Look(); });
        look_.start(10);
    }
    ~NextBox() { EXPECT_FALSE(look_.isActive()) << "no dialog has come"; }
    NextBox(const NextBox&) = delete;
    NextBox& operator=(const NextBox&) = delete;

private:
    void Look() {
        QWidget* box = find_();
        if (box == nullptr || box->windowHandle() == nullptr || !box->windowHandle()->isExposed())
            return;
        if (!exposed_.isValid())
            exposed_.start();
        if (!box->isActiveWindow() && !exposed_.hasExpired(Patience))
            return;
        EXPECT_TRUE(box->isActiveWindow()) << "the dialog does not get the keyboard";
        look_.stop();
        stays_.callOnTimeout(box, [box] {
            ADD_FAILURE() << "the dialog stays";
            box->close();
        });
        stays_.setSingleShot(true);
        stays_.start(Patience);
        act_(*box);
    }

    std::function<void(QWidget&)> act_;
    std::function<QWidget*()> find_;
    QTimer look_;
    QElapsedTimer exposed_;
    QTimer stays_;
};
