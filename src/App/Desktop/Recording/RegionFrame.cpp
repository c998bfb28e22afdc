#include "App/Desktop/Recording/RegionFrame.h"

#include "App/Desktop/Recording/LayerPlacement.h"
#include "Capture/CaptureBackEnd.h"
#include "Capture/CaptureGeometry.h"
#include "Capture/ScreenRecorder.h"
#include "Capture/ScreenSession.h"
#include "Platform/DisplayError.h"
#include "Platform/Wayland/LayerSurface.h"
#include "Platform/WindowSystem.h"
#include "Platform/X11/X11Bars.h"

#include <QColor>
#include <QGuiApplication>
#include <QImage>
#include <QScreen>

#include <algorithm>
#include <array>
#include <cmath>

namespace quillbox {
namespace {

constexpr std::uint32_t frameColor = 0xE0343C; // as a recording is marked everywhere
constexpr std::uint32_t frameEdge = 0xFFFFFF;  // around it, for what is red or dark

/// One of the frame's two lines.
struct Ring {
    std::int32_t distance; ///< from the region
    std::int32_t thickness;
    std::uint32_t color; ///< 0xRRGGBB
};

std::array<Ring, 2> rings(std::int32_t distance, std::int32_t line)
{
    return {Ring{distance, 2 * line, frameColor}, Ring{distance + 2 * line, line, frameEdge}};
}

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
    for (const Ring& ring : rings(0, line))
        for (const PixelRect& side : RegionFrame::sides(geometry->source, ring.distance, ring.thickness, display))
            bars.push_back({.place = side, .color = ring.color});
    return std::make_unique<X11Bars>(bars);
}

PixelRect fromQt(const QRect& rect)
{
    return {rect.x(), rect.y(), rect.width(), rect.height()};
}

std::vector<std::unique_ptr<LayerSurface>> frameOn(const QScreen& screen, CaptureRegion region)
{
    const auto output = LayerOutput::open(screen.name());
    if (!output)
        return {};
    const QRect covered = LayerPlacement::covered(region, screen.size(), output->points());
    const bool fitsPixels = output->hasWholeScale() && screen.size() == output->points();
    const int distance = fitsPixels ? 0 : 1; // a pixel may belong to the region and the points around it
    std::vector<std::unique_ptr<LayerSurface>> surfaces;
    for (const Ring& ring : rings(distance, 1))
        for (const PixelRect& side : RegionFrame::sides(
                 fromQt(covered), ring.distance, ring.thickness, fromQt(QRect(QPoint(), output->points())))) {
            const QRect place(side.x, side.y, side.width, side.height);
            QImage picture(place.size() * output->scale(), QImage::Format_ARGB32_Premultiplied);
            picture.fill(QColor::fromRgb(ring.color));
            surfaces.push_back(std::make_unique<LayerSurface>(output, place, LayerSurface::Pointer::Passed));
            surfaces.back()->show(picture);
        }
    return surfaces;
}

} // namespace

RegionFrame::RegionFrame(ScreenRecorder& recorder, const ScreenSession& screen, QObject* parent)
    : QObject(parent)
    , m_recorder(recorder)
    , m_screen(screen)
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
    m_surfaces.clear();
    const auto region = m_recorder.region();
    if (!region)
        return;
    const auto backEnd = chooseCapture().backEnd;
    if (const auto* const screen = m_screen.castScreen();
        backEnd == CaptureBackEnd::Portal && screen != nullptr && toolkitWindowSystem() == WindowSystem::Wayland)
        m_surfaces = frameOn(*screen, *region);
    else if (backEnd == CaptureBackEnd::X11)
        frameOnX11(*region);
}

void RegionFrame::frameOnX11(CaptureRegion region)
{
    try {
        m_bars = frameAround(region);
    } catch (const DisplayError&) { // NOLINT(bugprone-empty-catch): the recording tells of a display that is gone
    }
}

} // namespace quillbox

#include "moc_RegionFrame.cpp"
