#pragma once

#include <QIcon>
#include <QPixmap>
#include <QWidget>

/// The program's logo, as sharp as the screen is.
inline QPixmap LogoPicture(const QWidget& onWidget, const QSize& size) {
    return QIcon(QStringLiteral(":/art/Logo.png")).pixmap(size, onWidget.devicePixelRatioF());
}
