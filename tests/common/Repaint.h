#pragma once

#include "tests/common/TestRun.h"
#include "tests/common/WindowsAtRest.h"

#include <QEvent>
#include <QTest>
#include <functional>
#include <gtest/gtest.h>

/// Whether a widget at rest is painted anew after something has been done to it.
inline bool IsRepainted(QWidget& widget, const std::function<void()>& act) {
    class Watch : public QObject {
    public:
        bool IsPainted = false;

    protected:
        bool eventFilter(QObject*, QEvent* event) override {
            IsPainted = IsPainted || event->type() == QEvent::Paint;
            return false;
        }
    };
    LetWindowsRest();
    Watch watch;
    widget.installEventFilter(&watch);
    act();
    return QTest::qWaitFor([&watch] { return watch.IsPainted; }, Patience);
}

/// Whether something that moves is painted once more when it has come to rest.
template <class Mover>
bool IsPaintedAtRest(Mover& mover) {
    class Watch : public QObject {
    public:
        explicit Watch(Mover& mover) : mover_(mover) { mover.installEventFilter(this); }
        bool IsEndPainted = false;

    protected:
        bool eventFilter(QObject*, QEvent* event) override {
            IsEndPainted = IsEndPainted || (event->type() == QEvent::Paint && !mover_.IsMoving());
            return false;
        }

    private:
        const Mover& mover_;
    };
    EXPECT_TRUE(mover.IsMoving());
    const Watch watch(mover);
    return QTest::qWaitFor([&watch] { return watch.IsEndPainted; }, Patience);
}
