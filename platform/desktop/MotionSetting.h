#pragma once

#include <QDBusConnection>
#include <QMap>
#include <QObject>
#include <QVariantMap>
#include <memory>

/// The desktop's settings as its settings portal gives them: group, key, value.
using PortalSettings = QMap<QString, QVariantMap>;

/// True if the settings ask for less motion, in the words of any desktop.
bool AskForLessMotion(const PortalSettings& settings);

/// Whether the person has asked the desktop for less motion: GNOME's animations, Plasma's
/// animation speed, GTK's settings file.
///
/// Files are read at once. The desktop's portal answers when it gets round to it, so what it says
/// counts from the next question on; nobody waits for it.
class MotionSetting : public QObject {
    Q_OBJECT

public:
    explicit MotionSetting(QDBusConnection bus) : bus_(std::move(bus)) {}
    /// With the bus of the person's session, if there is one.
    static std::unique_ptr<MotionSetting> OfSession();

    /// Also asks the portal afresh.
    bool WantsLess();

private:
    void AskPortal();

    QDBusConnection bus_;
    bool isAsked_ = false;
    bool portalWantsLess_ = false;
};
