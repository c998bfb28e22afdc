#pragma once

#include "Platform/PixelRect.h"

#include <QObject>

#include <memory>
#include <vector>

namespace quillbox {

class ScreenRecorder;
class X11Bars;

/// Shows on an X server what is being recorded, by a thin frame just outside the region, as long as the recording
/// lasts. On other window systems a program can't place it. Thread: main.
class RegionFrame : public QObject {
    Q_OBJECT

public:
    /// @pre `recorder` outlives this object.
    explicit RegionFrame(ScreenRecorder& recorder, QObject* parent = nullptr);
    ~RegionFrame() override;

    /// The sides of a frame around `region`, cut to `display`: a side that lies beside it is left out.
    /// @param distance   Between the region and the frame. @param thickness  Above 0. Both, and all else, in device
    ///                   pixels.
    [[nodiscard]] static std::vector<PixelRect> sides(
        PixelRect region, std::int32_t distance, std::int32_t thickness, PixelRect display);

private:
    void follow();

    ScreenRecorder& m_recorder;
    std::unique_ptr<X11Bars> m_bars; // none while nothing is recorded
};

} // namespace quillbox
