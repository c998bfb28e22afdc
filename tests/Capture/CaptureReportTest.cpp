#include "Capture/CaptureReport.h"

#include <gtest/gtest.h>

namespace quillbox {
namespace {

TEST(CaptureReport, KnowsThePackageOfADesktopByTheFirstNameThatItKnows)
{
    EXPECT_EQ(CaptureReport::portalPackage("GNOME"), "xdg-desktop-portal-gnome");
    EXPECT_EQ(CaptureReport::portalPackage("ubuntu:GNOME"), "xdg-desktop-portal-gnome");
    EXPECT_EQ(CaptureReport::portalPackage("KDE"), "xdg-desktop-portal-kde");
    EXPECT_EQ(CaptureReport::portalPackage("labwc:wlroots"), "xdg-desktop-portal-wlr");
}

TEST(CaptureReport, NamesNoPackageForADesktopThatItDoesNotKnow)
{
    EXPECT_EQ(CaptureReport::portalPackage(""), "");
    EXPECT_EQ(CaptureReport::portalPackage("GNOMES"), "");
    EXPECT_EQ(CaptureReport::portalPackage(":"), "");
}

} // namespace
} // namespace quillbox
