#pragma once

#include "tests/common/TestRun.h"

#include <QApplication>
#include <QTimer>
#include <QWindow>
#include <functional>
#include <gtest/gtest.h>

/// Does something with the next dialog that blocks the program's windows, as soon as it is on the
/// screen. Fails the test if none has come in its life, and closes one that was to go and stays.
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
    QTimer stays_;
};
