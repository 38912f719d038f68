#include "platform/desktop/TitleBars.h"

#include <QByteArrayList>

void PreferWindowsWithTitleBars() {
    const bool isGnome = qgetenv("XDG_CURRENT_DESKTOP").split(':').contains("GNOME");
    if (isGnome && qEnvironmentVariableIsSet("DISPLAY") &&
        !qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "xcb;wayland");
}
