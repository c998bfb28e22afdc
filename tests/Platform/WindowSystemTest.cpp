#include "Platform/WindowSystem.h"

#include <gtest/gtest.h>

#include <QByteArray>
#include <QtGlobal>

#include <map>

namespace quillbox {
namespace {

/// Lets the process see these variables and none of the others that tell of a window system.
void enter(const std::map<const char*, QByteArray>& session)
{
    for (const char* name : {"QT_QPA_PLATFORM", "WAYLAND_DISPLAY", "DISPLAY", "XDG_SESSION_TYPE"})
        qunsetenv(name);
    for (const auto& [name, value] : session)
        qputenv(name, value);
}

TEST(WindowSystem, OfTheSessionIsWaylandWhateverXServerThereIs)
{
    enter({{"WAYLAND_DISPLAY", "wayland-0"}, {"DISPLAY", ":7"}});
    EXPECT_EQ(sessionWindowSystem(), WindowSystem::Wayland);
    enter({{"XDG_SESSION_TYPE", "wayland"}, {"DISPLAY", ":7"}});
    EXPECT_EQ(sessionWindowSystem(), WindowSystem::Wayland);
    enter({{"XDG_SESSION_TYPE", "x11"}, {"DISPLAY", ":7"}});
    EXPECT_EQ(sessionWindowSystem(), WindowSystem::X11);
    enter({{"XDG_SESSION_TYPE", "tty"}});
    EXPECT_EQ(sessionWindowSystem(), WindowSystem::None);
}

TEST(WindowSystem, OfTheToolkitIsTheOneThatWasAskedFor)
{
    enter({{"QT_QPA_PLATFORM", "xcb"}, {"WAYLAND_DISPLAY", "wayland-0"}});
    EXPECT_EQ(toolkitWindowSystem(), WindowSystem::X11);
    enter({{"QT_QPA_PLATFORM", "wayland-egl;xcb"}, {"DISPLAY", ":7"}});
    EXPECT_EQ(toolkitWindowSystem(), WindowSystem::Wayland);
    enter({{"QT_QPA_PLATFORM", "offscreen:size=1x1;xcb"}, {"DISPLAY", ":7"}});
    EXPECT_EQ(toolkitWindowSystem(), WindowSystem::Other);
    EXPECT_EQ(toolkitPlatform(), "offscreen");
}

TEST(WindowSystem, OfTheToolkitIsOtherwiseThatOfTheDisplayThereIs)
{
    enter({{"WAYLAND_DISPLAY", "wayland-0"}, {"DISPLAY", ":7"}});
    EXPECT_EQ(toolkitWindowSystem(), WindowSystem::Wayland);
    enter({{"DISPLAY", ":7"}});
    EXPECT_EQ(toolkitWindowSystem(), WindowSystem::X11);
    enter({});
    EXPECT_EQ(toolkitWindowSystem(), WindowSystem::None);
}

TEST(WindowSystem, NeedsX11WhereTheToolkitHasNothingElse)
{
    enter({});
    EXPECT_TRUE(toolkitNeedsX11());
    enter({{"QT_QPA_PLATFORM", "xcb"}});
    EXPECT_TRUE(toolkitNeedsX11());
    enter({{"QT_QPA_PLATFORM", "xcb;wayland"}});
    EXPECT_FALSE(toolkitNeedsX11());
    enter({{"QT_QPA_PLATFORM", "xcb"}, {"WAYLAND_DISPLAY", "wayland-0"}});
    EXPECT_FALSE(toolkitNeedsX11());
}

} // namespace
} // namespace quillbox
