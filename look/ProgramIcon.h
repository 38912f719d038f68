#pragma once

#include <QIcon>

/// The program's icon in every size that desktops ask for, each drawn for its size.
inline QIcon ProgramIcon() {
    QIcon icon;
    for (const int side : {16, 24, 32, 48, 64, 128, 256})
        icon.addFile(QStringLiteral(":/art/Icon%1.png").arg(side), QSize(side, side));
    return icon;
}
