#include "App/Desktop/WindowPlaces/KWinWindows.h"
#include "App/Desktop/WindowPlaces/SwayWindows.h"

#include <gtest/gtest.h>

#include <QJsonDocument>
#include <QJsonObject>
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
