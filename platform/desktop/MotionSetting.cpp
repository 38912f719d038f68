#include "platform/desktop/MotionSetting.h"

#include "platform/forms/Handlers.h"

#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>

namespace {

const QString GnomeGroup = QStringLiteral("org.gnome.desktop.interface");
const QString PlasmaGroup = QStringLiteral("org.kde.kdeglobals.KDE");
const QString CommonGroup = QStringLiteral("org.freedesktop.appearance");

/// Plasma's factor by which all movements are made longer or shorter; 0 is none at all.
bool IsStandstill(const QVariant& factor) {
    bool isNumber = false;
    return factor.toString().toDouble(&isNumber) == 0 && isNumber;
}

/// A file in the person's folder of settings; null if it does not say.
QVariant InFile(const QString& file, const QString& key) {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return QSettings(folder + QLatin1Char('/') + file, QSettings::IniFormat).value(key);
}

bool FilesAskForLess() {
    if (IsStandstill(
            InFile(QStringLiteral("kdeglobals"), QStringLiteral("KDE/AnimationDurationFactor"))))
        return true;
    for (const char* file : {"gtk-4.0/settings.ini", "gtk-3.0/settings.ini"}) {
        const QVariant animations =
            InFile(QLatin1String(file), QStringLiteral("Settings/gtk-enable-animations"));
        if (!animations.isNull())
            return !animations.toBool();
    }
    return false;
}

/// Without an address, asking for the session's bus would start one.
bool SessionHasBus() {
    return qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") ||
           QFileInfo::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus"));
}

} // namespace

bool AskForLessMotion(const PortalSettings& settings) {
    const QVariantMap gnome = settings.value(GnomeGroup);
    return !gnome.value(QStringLiteral("enable-animations"), true).toBool() ||
           IsStandstill(
               settings.value(PlasmaGroup).value(QStringLiteral("AnimationDurationFactor"))) ||
           settings.value(CommonGroup).value(QStringLiteral("reduced-motion")).toUInt() == 1;
}

std::unique_ptr<MotionSetting> MotionSetting::OfSession() {
    return std::make_unique<MotionSetting>(SessionHasBus() ? QDBusConnection::sessionBus()
                                                           : QDBusConnection(QString()));
}

bool MotionSetting::WantsLess() {
    AskPortal();
    return portalWantsLess_ || FilesAskForLess();
}

void MotionSetting::AskPortal() {
    if (isAsked_ || !bus_.isConnected())
        return;
    isAsked_ = true;
    qDBusRegisterMetaType<PortalSettings>();
    QDBusMessage question = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.portal.Desktop"),
        QStringLiteral("/org/freedesktop/portal/desktop"),
        QStringLiteral("org.freedesktop.portal.Settings"), QStringLiteral("ReadAll"));
    question << QStringList{GnomeGroup, PlasmaGroup, CommonGroup};
    auto* answer = new QDBusPendingCallWatcher(bus_.asyncCall(question), this);
    On(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        isAsked_ = false;
        answer->deleteLater();
        const QDBusPendingReply<PortalSettings> reply = *answer;
        if (reply.isValid())
            portalWantsLess_ = AskForLessMotion(reply.value());
    });
}
