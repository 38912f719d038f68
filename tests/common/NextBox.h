#pragma once

#include "tests/common/TestRun.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>
#include <QWindow>
#include <functional>
#include <gtest/gtest.h>

/// Does something with the next dialog that blocks the program's windows, as soon as it is on the
/// screen and has the keyboard; a desktop that never gives it that is not waited for much longer.
/// Fails the test if none has come in its life, and closes one that was to go and stays.
class NextBox {
public:
    explicit NextBox(std::function<void(QWidget&)> act) : act_(std::move(act)) {
        QObject::connect(&look_, &QTimer::timeout, &look_, [this] { Look(); });
        look_.start(10);
    }
    ~NextBox() { EXPECT_FALSE(look_.isActive()) << "no dialog has come"; }
    NextBox(const NextBox&) = delete;
    NextBox& operator=(const NextBox&) = delete;

private:
    void Look() {
        QWidget* box = QApplication::activeModalWidget();
        if (box == nullptr || box->windowHandle() == nullptr || !box->windowHandle()->isExposed())
            return;
        constexpr int keyboardComesWithin = 2000; // milliseconds
        if (!exposed_.isValid())
            exposed_.start();
        if (!box->isActiveWindow() && !exposed_.hasExpired(keyboardComesWithin))
            return;
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
    QTimer look_;
    QElapsedTimer exposed_;
    QTimer stays_;
};
