#include "App/Desktop/WindowPlaces/KWinWindows.h"
#include "App/Desktop/WindowPlaces/SwayPlacement.h"
#include "App/Desktop/WindowPlaces/SwayWindows.h"

#include <gtest/gtest.h>

#include <QJsonDocument>
#include <QJsonObject>
#include <QPoint>
#include <QVariantMap>

#include <optional>

namespace quillbox {
namespace {

constexpr qint64 ours = 77;

/// A desktop as sway describes it: in a container of containers, and above them as `kind` says, a window.
QJsonObject desktopWith(const QByteArray& kind, const QByteArray& window)
{
    return QJsonDocument::fromJson(
        R"({"name": "root", "nodes": [{"name": "HEADLESS-1", "nodes": [{"name": "1", "nodes": [
               {"name": "Quillbox", "pid": 5, "visible": true, "rect": {"x": 1, "y": 1, "width": 9, "height": 9}}], ")"
        + kind + R"(": [)" + window + R"(]}]}]})")
        .object();
}

TEST(WindowPlaces, FindsInSwaysTreeTheWindowOfThatTitleAndProgram)
{
    const QByteArray window = R"({"name": "Quillbox", "pid": 77, "visible": true,
        "rect": {"x": 448, "y": -20, "width": 384, "height": 500}})";
    EXPECT_EQ(SwayWindows::placeIn(desktopWith("floating_nodes", window), "Quillbox", ours), QRect(448, -20, 384, 500));
    EXPECT_EQ(SwayWindows::placeIn(desktopWith("floating_nodes", window), "Settings", ours), std::nullopt);
    EXPECT_EQ(SwayWindows::placeIn({}, "Quillbox", ours), std::nullopt) << "no tree";
}

TEST(WindowPlaces, AWindowOnAWorkspaceThatIsNotShownIsNowhere)
{
    const QByteArray window = R"({"name": "Quillbox", "pid": 77, "visible": false,
        "rect": {"x": 4, "y": 2, "width": 384, "height": 500}})";
    EXPECT_EQ(SwayWindows::placeIn(desktopWith("floating_nodes", window), "Quillbox", ours), QRect());
}

/// The second of two outputs, with bars along its upper and lower edges, and a window of 400 × 300 on it.
QJsonObject outputWithWindowAt(int x, int y)
{
    return QJsonDocument::fromJson(
        QStringLiteral(R"({"nodes": [{"rect": {"x": 0, "y": 0, "width": 1000, "height": 900}, "nodes": []},
            {"rect": {"x": 1000, "y": 0, "width": 1280, "height": 720}, "nodes": [
                {"rect": {"x": 1000, "y": 24, "width": 1280, "height": 666}, "floating_nodes": [
                    {"id": 5, "rect": {"x": 1, "y": 1, "width": 9, "height": 9}},
                    {"id": 6, "rect": {"x": %1, "y": %2, "width": 400, "height": 300}}]}]}]})")
            .arg(x)
            .arg(y)
            .toUtf8())
        .object();
}

TEST(PointerPlacement, PutsAWindowNextToTheBarThatThePointerIsOn)
{
    EXPECT_EQ(SwayPlacement::cornerIn(outputWithWindowAt(1200, 0), 6), QPoint(1200, 24 + 8));
    EXPECT_EQ(SwayPlacement::cornerIn(outputWithWindowAt(1200, 420), 6), QPoint(1200, 690 - 8 - 300));
    EXPECT_EQ(SwayPlacement::cornerIn(outputWithWindowAt(1880, 420), 6), QPoint(2280 - 8 - 400, 690 - 8 - 300));
    EXPECT_EQ(SwayPlacement::cornerIn(outputWithWindowAt(1000, 0), 6), QPoint(1000 + 8, 24 + 8));
}

TEST(PointerPlacement, PutsAWindowBesideAPointerThatIsOnNoBar)
{
    EXPECT_EQ(SwayPlacement::cornerIn(outputWithWindowAt(1300, 100), 6), QPoint(1300, 250 + 1 + 8)) << "upper half";
    EXPECT_EQ(SwayPlacement::cornerIn(outputWithWindowAt(1300, 300), 6), QPoint(1300, 450 - 8 - 300)) << "lower half";
}

TEST(PointerPlacement, KnowsNoPlaceForAWindowThatIsNotThere)
{
    EXPECT_EQ(SwayPlacement::cornerIn(outputWithWindowAt(1300, 100), 7), std::nullopt);
    EXPECT_EQ(SwayPlacement::cornerIn({}, 6), std::nullopt);
}

TEST(WindowPlaces, ReadsWhatKWinSaysOfAWindow)
{
    const QVariantMap window{{"x", 10.5}, {"y", -3.0}, {"width", 384.0}, {"height", 500.0}, {"minimized", false}};
    EXPECT_EQ(KWinWindows::placeIn(window), QRect(10, -3, 385, 500)) << "all points that it covers in part";
    QVariantMap minimized = window;
    minimized["minimized"] = true;
    EXPECT_EQ(KWinWindows::placeIn(minimized), QRect());
    QVariantMap unmapped = window;
    unmapped["width"] = 0.0;
    EXPECT_EQ(KWinWindows::placeIn(unmapped), std::nullopt);
    EXPECT_EQ(KWinWindows::placeIn({}), std::nullopt);
}

} // namespace
} // namespace quillbox
