#pragma once

#include <QStyle>
#include <QWidget>

/// Gives a widget a role, by which the style sheet knows it, also where the sheet has been applied
/// to it before.
inline void SetRole(QWidget& widget, const QString& role) {
    if (widget.property("role").toString() == role)
        return;
    widget.setProperty("role", role);
    widget.style()->unpolish(&widget);
    widget.style()->polish(&widget);
}
