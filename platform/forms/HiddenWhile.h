#pragma once

#include <QPointer>
#include <QWidget>

/// Hides a list of rows while many of them are made or go: each control that comes or goes on the
/// screen makes the window look for what lies under the mouse. The keyboard stays where it was if
/// that is still there.
class HiddenWhile {
public:
    explicit HiddenWhile(QWidget& list)
        : list_(list), wasHidden_(list.isHidden()),
          focus_(list.isAncestorOf(list.window()->focusWidget()) ? list.window()->focusWidget()
                                                                 : nullptr) {
        list_.hide();
    }
    ~HiddenWhile() {
        list_.setHidden(wasHidden_);
        if (!focus_.isNull())
            focus_->setFocus();
    }
    HiddenWhile(const HiddenWhile&) = delete;
    HiddenWhile& operator=(const HiddenWhile&) = delete;

private:
    QWidget& list_;
    bool wasHidden_;
    QPointer<QWidget> focus_;
};
