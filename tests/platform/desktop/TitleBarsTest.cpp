#include "platform/desktop/TitleBars.h"

#include "tests/common/EnvironmentVariable.h"

#include <gtest/gtest.h>

namespace {

/// The environment that a start looks at; what was there before comes back.
class TitleBarsTest : public testing::Test {
protected:
    TitleBarsTest() {
        qputenv("DISPLAY", ":1");
        qunsetenv("QT_QPA_PLATFORM");
    }

    static QByteArray PlatformUnder(const char* desktop) {
        qputenv("XDG_CURRENT_DESKTOP", desktop);
        PreferWindowsWithTitleBars();
        return qgetenv("QT_QPA_PLATFORM");
    }

private:
    EnvironmentVariable desktop_{"XDG_CURRENT_DESKTOP"};
    EnvironmentVariable display_{"DISPLAY"};
    EnvironmentVariable platform_{"QT_QPA_PLATFORM"};
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
