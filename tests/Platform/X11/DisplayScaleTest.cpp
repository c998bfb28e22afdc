#include "Platform/X11/DisplayScale.h"

#include <gtest/gtest.h>

namespace quillbox {
namespace {

TEST(DisplayScale, IsOneWhereNothingIsSaid)
{
    EXPECT_EQ(displayScale("", nullptr), 1);
    EXPECT_EQ(displayScale("XTerm*font:\tfixed\n", ""), 1);
}

TEST(DisplayScale, NinetySixDotsAnInchAreOne)
{
    EXPECT_EQ(displayScale("Xft.dpi:\t96\n", nullptr), 1);
    EXPECT_EQ(displayScale("Xft.dpi:\t192\n", nullptr), 2);
    EXPECT_EQ(displayScale("Xft.antialias:\t1\nXft.dpi:\t144\nXft.rgba:\tnone\n", nullptr), 1.5);
    EXPECT_EQ(displayScale("Xft.dpi:\t144", nullptr), 1.5);
}

TEST(DisplayScale, OtherSpellingsDoNotCount)
{
    EXPECT_EQ(displayScale("Xft.dpi:\t\n", nullptr), 1);
    EXPECT_EQ(displayScale("Xft.dpi:\tlarge\n", nullptr), 1);
    EXPECT_EQ(displayScale("Xft.dpi:\t192.5\n", nullptr), 1);
    EXPECT_EQ(displayScale("Xft.dpi:\t0\n", nullptr), 1);
    EXPECT_EQ(displayScale("Xft.dpi:\t-192\n", nullptr), 1);
    EXPECT_EQ(displayScale("Xft.dpi:\t99999999999\n", nullptr), 1);
    EXPECT_EQ(displayScale("*Xft.dpi:\t192\n", nullptr), 1);
}

TEST(DisplayScale, TheScaleFactorMultiplies)
{
    EXPECT_EQ(displayScale("", "2"), 2);
    EXPECT_EQ(displayScale("Xft.dpi:\t144\n", "2"), 3);
    EXPECT_EQ(displayScale("", "0.5"), 0.5);
}

TEST(DisplayScale, AScaleFactorThatIsNoNumberAboveZeroDoesNotCount)
{
    for (const char* const factor : {"0", "-1", "nan", "inf", "two", "2x", "1e9"})
        EXPECT_EQ(displayScale("Xft.dpi:\t144\n", factor), 1.5) << factor;
}

} // namespace
} // namespace quillbox
