#include "platform/desktop/MotionSetting.h"
#include "tests/common/FormTest.h"

#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusServer>
#include <QDBusVirtualObject>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

namespace {

/// A portal on a connection of its own.
class FakePortal : public QDBusVirtualObject {
public:
    PortalSettings Settings;
    QStringList Asked;
    int Questions = 0;

    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& question, const QDBusConnection& peer) override {
        EXPECT_EQ(question.interface() + QLatin1Char('.') + question.member(),
                  QStringLiteral("org.freedesktop.portal.Settings.ReadAll"));
        ++Questions;
        Asked = question.arguments().value(0).toStringList();
        return peer.send(question.createReply(QVariant::fromValue(Settings)));
    }
};

const QString Root = QStringLiteral("/org/freedesktop/portal/desktop");
const QString Gnome = QStringLiteral("org.gnome.desktop.interface");
const QString Plasma = QStringLiteral("org.kde.kdeglobals.KDE");
const QString Common = QStringLiteral("org.freedesktop.appearance");

class MotionSettingTest : public FormTest {
protected:
    MotionSettingTest() : setting(QDBusConnection(QString())) {}

    void Write(const QString& file, const QByteArray& text) const {
        const QString path = Path(QStringLiteral("UserConfig/") + file);
        QDir().mkpath(QFileInfo(path).path());
        QFile out(path);
        ASSERT_TRUE(out.open(QIODevice::WriteOnly));
        out.write(text);
    }

    MotionSetting setting;
};

TEST_F(MotionSettingTest, ADesktopThatSaysNothingMoves) {
    EXPECT_FALSE(setting.WantsLess());
    EXPECT_FALSE(AskForLessMotion({}));
}

TEST_F(MotionSettingTest, GtksSettingsFileTurnsMotionOff) {
    Write(QStringLiteral("gtk-3.0/settings.ini"), "[Settings]\ngtk-enable-animations=0\n");
    EXPECT_TRUE(setting.WantsLess());
    Write(QStringLiteral("gtk-4.0/settings.ini"), "[Settings]\ngtk-enable-animations=true\n");
    EXPECT_FALSE(setting.WantsLess()) << "the newer file counts";
}

TEST_F(MotionSettingTest, PlasmasFileTurnsMotionOffAtSpeedZeroOnly) {
    Write(QStringLiteral("kdeglobals"), "[KDE]\nAnimationDurationFactor=0.5\n");
    EXPECT_FALSE(setting.WantsLess());
    Write(QStringLiteral("kdeglobals"), "[General]\nName=x\n\n[KDE]\nAnimationDurationFactor=0\n");
    EXPECT_TRUE(MotionSetting(QDBusConnection(QString())).WantsLess());
}

TEST_F(MotionSettingTest, ThePortalsWordsOfEachDesktopAreUnderstood) {
    const QString animations = QStringLiteral("enable-animations");
    const QString factor = QStringLiteral("AnimationDurationFactor");
    const QString reduced = QStringLiteral("reduced-motion");
    EXPECT_TRUE(AskForLessMotion({{Gnome, {{animations, false}}}}));
    EXPECT_FALSE(AskForLessMotion({{Gnome, {{animations, true}}}}));
    EXPECT_TRUE(AskForLessMotion({{Plasma, {{factor, QStringLiteral("0")}}}}));
    EXPECT_TRUE(AskForLessMotion({{Plasma, {{factor, 0.0}}}}));
    EXPECT_FALSE(AskForLessMotion({{Plasma, {{factor, QStringLiteral("0.25")}}}}));
    EXPECT_FALSE(AskForLessMotion({{Plasma, {{factor, QString()}}}}));
    EXPECT_TRUE(AskForLessMotion({{Common, {{reduced, 1U}}}}));
    EXPECT_FALSE(AskForLessMotion({{Common, {{reduced, 0U}}}}));
}

TEST_F(MotionSettingTest, ThePortalsAnswerCountsOnceItIsThereAndFollowsTheDesktop) {
    qDBusRegisterMetaType<PortalSettings>();
    FakePortal portal;
    portal.Settings = {{Gnome, {{QStringLiteral("enable-animations"), false}}}};
    QDBusServer server(QStringLiteral("unix:tmpdir=/tmp"));
    ASSERT_TRUE(server.isConnected()) << qPrintable(server.lastError().message());
    server.setAnonymousAuthenticationAllowed(true);
    QDBusConnection peer(QString{});
    QObject::connect(&server, &QDBusServer::newConnection, &server, [&](QDBusConnection asked) {
        asked.registerVirtualObject(Root, &portal);
        peer = asked;
    });
    MotionSetting asking(
        QDBusConnection::connectToPeer(server.address(), QStringLiteral("motion")));
    EXPECT_FALSE(asking.WantsLess()) << "nobody waits for the portal";
    EXPECT_FALSE(asking.WantsLess());
    EXPECT_TRUE(QTest::qWaitFor([&] { return portal.Questions > 0; }, Patience));
    Settle();
    EXPECT_EQ(portal.Questions, 1) << "not asked again before it has answered";
    EXPECT_TRUE(QTest::qWaitFor([&] { return asking.children().isEmpty(); }, Patience))
        << "nothing is kept of a question";
    EXPECT_TRUE(QTest::qWaitFor([&] { return asking.WantsLess(); }, Patience));
    EXPECT_EQ(portal.Asked, (QStringList{Gnome, Plasma, Common}));
    portal.Settings[Gnome][QStringLiteral("enable-animations")] = true;
    EXPECT_TRUE(QTest::qWaitFor([&] { return !asking.WantsLess(); }, Patience));
    QDBusConnection::disconnectFromPeer(QStringLiteral("motion"));
    // The connection's own thread may be about to ask again.
    peer.unregisterObject(Root);
}

/// Where a session keeps its bus.
enum class BusAt { Address, RuntimeFolder };

class SessionsMotionTest : public MotionSettingTest, public testing::WithParamInterface<BusAt> {};

TEST_P(SessionsMotionTest, ThePortalOfTheSessionIsAsked) {
    // A process looks for its session's bus once: another one does here.
    const QString roleOfChild = QStringLiteral("DUTYGRID_ASKS_THE_SESSION");
    if (qEnvironmentVariableIsSet(roleOfChild.toLatin1())) {
        const auto ofSession = MotionSetting::OfSession();
        EXPECT_TRUE(QTest::qWaitFor([&] { return ofSession->WantsLess(); }, Patience));
        return;
    }
    qDBusRegisterMetaType<PortalSettings>();
    const QTemporaryDir runtime(MemoryFolder());
    const QString address = QStringLiteral("unix:path=%1/bus").arg(runtime.path());
    QProcess daemon;
    daemon.start(QStringLiteral("dbus-daemon"),
                 {QStringLiteral("--session"), QStringLiteral("--nofork"),
                  QStringLiteral("--print-address"), QStringLiteral("--address=") + address});
    ASSERT_TRUE(daemon.waitForReadyRead()) << daemon.readAllStandardError().constData();
    FakePortal portal;
    portal.Settings = {{Gnome, {{QStringLiteral("enable-animations"), false}}}};
    QDBusConnection bus = QDBusConnection::connectToBus(address, QStringLiteral("portal"));
    ASSERT_TRUE(bus.registerService(QStringLiteral("org.freedesktop.portal.Desktop")));
    ASSERT_TRUE(bus.registerVirtualObject(Root, &portal));

    QProcess child;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(roleOfChild, QStringLiteral("1"));
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), runtime.path());
    environment.remove(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"));
    if (GetParam() == BusAt::Address) {
        environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), address);
        environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), Path(QString()));
    }
    for (const char* ofThisProcess : {"GTEST_TOTAL_SHARDS", "GTEST_SHARD_INDEX"})
        environment.remove(QLatin1String(ofThisProcess));
    child.setProcessEnvironment(environment);
    const auto* self = testing::UnitTest::GetInstance()->current_test_info();
    child.start(QCoreApplication::applicationFilePath(),
                {QStringLiteral("--gtest_filter=%1.%2")
                     .arg(QLatin1String(self->test_suite_name()), QLatin1String(self->name()))});
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return child.state() == QProcess::NotRunning; }, 2 * Patience));
    EXPECT_EQ(child.exitCode(), 0) << child.readAllStandardOutput().constData();
    EXPECT_EQ(portal.Asked, (QStringList{Gnome, Plasma, Common}));
    bus.unregisterObject(Root);
    QDBusConnection::disconnectFromBus(QStringLiteral("portal"));
    daemon.kill();
    daemon.waitForFinished();
}

INSTANTIATE_TEST_SUITE_P(Sessions, SessionsMotionTest,
                         testing::Values(BusAt::Address, BusAt::RuntimeFolder),
                         [](const auto& bus) {
                             return std::string(bus.param == BusAt::Address ? "ByAddress"
                                                                            : "ByFolder");
                         });

} // namespace
