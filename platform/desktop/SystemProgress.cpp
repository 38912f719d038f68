#include "platform/desktop/SystemProgress.h"

#include "platform/runtime/Progress.h"

#include <QApplication>
#include <QProgressDialog>

SystemProgress::SystemProgress() {
    SetProgressWatch([this](const QString& what, int done, int all) { Show(what, done, all); });
    SetWaitWatch([](bool isWaiting) {
        if (isWaiting)
            QApplication::setOverrideCursor(Qt::WaitCursor);
        else
            QApplication::restoreOverrideCursor();
    });
}

SystemProgress::~SystemProgress() {
    SetProgressWatch({});
    SetWaitWatch({});
}

void SystemProgress::Show(const QString& what, int done, int all) {
    if (done >= all) {
        window_.reset();
        return;
    }
    if (!window_) {
        constexpr int delay = 1000; // milliseconds
        // What cannot be broken off has no button.
        window_ = std::make_unique<QProgressDialog>(what, QString(), 0, all);
        window_->setWindowTitle(QApplication::applicationDisplayName());
        window_->setWindowModality(Qt::ApplicationModal);
        window_->setMinimumDuration(delay);
    }
    window_->setValue(done);
}
