#pragma once

#include "Capture/CaptureRegion.h"
#include "Platform/PixelRect.h"

#include <QObject>

#include <memory>
#include <vector>

namespace quillbox {

class LayerSurface;
class ScreenRecorder;
class ScreenSession;
class X11Bars;

/// Shows what is being recorded, by a thin frame just outside the region, as long as the recording lasts: on an X
/// server, and on Wayland where the compositor lets programs place something on the monitor that is recorded. Thread:
/// main.
class RegionFrame : public QObject {
    Q_OBJECT

public:
    /// @param screen  The recorder's.
    /// @pre Both outlive this object.
    RegionFrame(ScreenRecorder& recorder, const ScreenSession& screen, QObject* parent = nullptr);
    ~RegionFrame() override;

    /// The sides of a frame around `region`, cut to `display`: a side that lies beside it is left out.
    /// @param distance   Between the region and the frame. @param thickness  Above 0. Both, and all else, in device
    ///                   pixels of an X server, or points of a Wayland output.
    [[nodiscard]] static std::vector<PixelRect> sides(
        PixelRect region, std::int32_t distance, std::int32_t thickness, PixelRect display);

private:
    void follow();
    void frameOnX11(CaptureRegion region);

    ScreenRecorder& m_recorder;
    const ScreenSession& m_screen;
    // None while nothing is recorded.
    std::unique_ptr<X11Bars> m_bars;
    std::vector<std::unique_ptr<LayerSurface>> m_surfaces;
};

} // namespace quillbox
