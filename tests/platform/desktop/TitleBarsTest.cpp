#include "platform/desktop/TitleBars.h"

#include <QByteArrayList>
#include <QHash>
#include <gtest/gtest.h>

namespace {

/// The environment that a start looks at; what was there before comes back.
class TitleBarsTest : public testing::Test {
protected:
    TitleBarsTest() {
        for (const char* name : {"XDG_CURRENT_DESKTOP", "DISPLAY", "QT_QPA_PLATFORM"})
            former_.insert(name, qEnvironmentVariableIsSet(name) ? qgetenv(name) : QByteArray());
        qputenv("DISPLAY", ":1");
        qunsetenv("QT_QPA_PLATFORM");
    }
    ~TitleBarsTest() override {
        for (auto variable = former_.cbegin(); variable != former_.cend(); ++variable) {
            if (variable.value().isNull())
                qunsetenv(variable.key());
            else
                qputenv(variable.key(), variable.value());
        }
    }

    static QByteArray PlatformUnder(const char* desktop) {
        qputenv("XDG_CURRENT_DESKTOP", desktop);
        PreferWindowsWithTitleBars();
        return qgetenv("QT_QPA_PLATFORM");
    }

private:
    QHash<const char*, QByteArray> former_;
};

TEST_F(TitleBarsTest, UnderGnomeTheXServerComesFirst) {
    EXPECT_EQ(PlatformUnder("ubuntu:GNOME"), "xcb;wayland");
}

TEST_F(TitleBarsTest, OtherDesktopsDrawTitleBarsThemselves) {
    EXPECT_EQ(PlatformUnder("KDE"), "");
    EXPECT_EQ(PlatformUnder(""), "");
}

TEST_F(TitleBarsTest, WithoutAnXServerOrWhereSomebodyHasChosenNothingIsTakenFirst) {
    qunsetenv("DISPLAY");
    EXPECT_EQ(PlatformUnder("GNOME"), "");
    qputenv("DISPLAY", ":1");
    qputenv("QT_QPA_PLATFORM", "wayland");
    EXPECT_EQ(PlatformUnder("GNOME"), "wayland");
}

} // namespace
