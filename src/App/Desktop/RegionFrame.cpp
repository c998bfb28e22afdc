#include "App/Desktop/RegionFrame.h"

#include "Capture/CaptureBackEnd.h"
#include "Capture/CaptureGeometry.h"
#include "Capture/ScreenRecorder.h"
#include "Platform/DisplayError.h"
#include "Platform/X11/X11Bars.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <cmath>

namespace quillbox {
namespace {

constexpr std::uint32_t frameColor = 0xE0343C; // as a recording is marked everywhere
constexpr std::uint32_t frameEdge = 0xFFFFFF;  // around it, for what is red or dark

std::unique_ptr<X11Bars> frameAround(CaptureRegion region)
{
    const auto* const screen = QGuiApplication::primaryScreen();
    if (screen == nullptr)
        return nullptr;
    const double scale = screen->devicePixelRatio();
    const PixelRect display = X11Display().mainMonitor();
    const auto geometry = captureGeometry(region, display, scale);
    if (!geometry)
        return nullptr;
    const auto line = std::max(1, static_cast<std::int32_t>(std::lround(scale)));
    std::vector<X11Bars::Bar> bars;
    for (const PixelRect& side : RegionFrame::sides(geometry->source, 0, 2 * line, display))
        bars.push_back({.place = side, .color = frameColor});
    for (const PixelRect& side : RegionFrame::sides(geometry->source, 2 * line, line, display))
        bars.push_back({.place = side, .color = frameEdge});
    return std::make_unique<X11Bars>(bars);
}

} // namespace

RegionFrame::RegionFrame(ScreenRecorder& recorder, QObject* parent)
    : QObject(parent)
    , m_recorder(recorder)
{
    connect(&recorder, &ScreenRecorder::isRecordingChanged, this, &RegionFrame::follow);
}

RegionFrame::~RegionFrame() = default;

std::vector<PixelRect> RegionFrame::sides(
    PixelRect region, std::int32_t distance, std::int32_t thickness, PixelRect display)
{
    const std::int32_t reach = distance + thickness;
    const PixelRect inner{
        region.x - distance, region.y - distance, region.width + 2 * distance, region.height + 2 * distance};
    const std::int32_t outerWidth = region.width + 2 * reach;
    std::vector<PixelRect> sides{
        {region.x - reach, region.y - reach, outerWidth, thickness},
        {region.x - reach, inner.y + inner.height, outerWidth, thickness},
        {region.x - reach, inner.y, thickness, inner.height},
        {inner.x + inner.width, inner.y, thickness, inner.height},
    };
    for (PixelRect& side : sides)
        side = side.intersected(display);
    std::erase_if(sides, [](const PixelRect& side) { return side.isEmpty(); });
    return sides;
}

void RegionFrame::follow()
{
    m_bars.reset();
    const auto region = m_recorder.region();
    if (!region || chooseCapture().backEnd != CaptureBackEnd::X11)
        return;
    try {
        m_bars = frameAround(*region);
    } catch (const DisplayError&) { // NOLINT(bugprone-empty-catch): the recording tells of a display that is gone
    }
}

} // namespace quillbox

#include "moc_RegionFrame.cpp"
