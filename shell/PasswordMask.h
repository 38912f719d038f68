#pragma once

#include <QLineEdit>

/// Shows each character of a password box as `mask`, in the place of the style's own bullet.
inline void SetPasswordMask(QLineEdit& box, QChar mask) {
    // A box takes the mask over only when its style changes after it has been polished.
    box.ensurePolished();
    box.setStyleSheet(QStringLiteral("lineedit-password-character: %1").arg(mask.unicode()));
    box.setEchoMode(QLineEdit::Password);
}
