#pragma once

#include "Capture/X11/X11Stream.h"

#include "Gallery.h"
#include "support/Await.h"
#include "TestScreen.h"

#include <gtest/gtest.h>

#include <utility>

namespace quillbox::test {

inline constexpr RGBColor black{0, 0, 0};
inline constexpr RGBColor white{255, 255, 255};
inline constexpr RGBColor red{255, 0, 0};
inline constexpr RGBColor green{0, 255, 0};
inline constexpr RGBColor blue{0, 0, 255};

inline PixelRect pixelsOf(CaptureRegion region)
{
    return {static_cast<std::int32_t>(region.x), static_cast<std::int32_t>(region.y),
        static_cast<std::int32_t>(region.width), static_cast<std::int32_t>(region.height)};
}

/// A picture with a square drawn over it.
inline RGBAFrame withSquare(const RGBAFrame& frame, PixelRect square, RGBColor color)
{
    Bytes pixels(frame.pixels());
    const PixelRect extent{0, 0, static_cast<std::int32_t>(frame.width()), static_cast<std::int32_t>(frame.height())};
    const PixelRect visible = square.intersected(extent);
    for (std::int32_t y = visible.y; y < visible.y + visible.height; ++y) {
        for (std::int32_t x = visible.x; x < visible.x + visible.width; ++x) {
            const auto offset = static_cast<std::size_t>((y * frame.width() + x) * 4);
            pixels[offset] = color.r;
            pixels[offset + 1] = color.g;
            pixels[offset + 2] = color.b;
        }
    }
    return RGBAFrame(frame.width(), frame.height(), std::move(pixels));
}

/// An X11 stream whose pictures a gallery keeps too: the test learns from it what the recorder has got.
class WatchedStream : public CaptureStream {
public:
    explicit WatchedStream(Gallery& gallery)
        : m_gallery(gallery)
    {
    }
    QCoro::Task<> start(CaptureRegion region, FrameSink sink) override
    {
        sink.frame = [kept = m_gallery.sink().frame, passedOn = std::move(sink.frame)](
                         const RGBAFrame& frame, CaptureClock::time_point shownAt) {
            passedOn(frame, shownAt);
            kept(frame, shownAt);
        };
        return m_stream.start(region, std::move(sink));
    }
    QCoro::Task<> stop() override { return m_stream.stop(); }

private:
    Gallery& m_gallery;
    X11Stream m_stream;
};

/// A stream and a screen for it; the X server is the one the caller started.
class X11StreamTest : public testing::Test {
protected:
    /// Colours at the region's corners and in its middle, and others just outside each edge.
    void paintAround(CaptureRegion region)
    {
        const PixelRect inner = pixelsOf(region);
        m_screen.fill({inner.x - 3, inner.y - 3, inner.width + 6, inner.height + 6}, blue);
        m_screen.fill(inner, white);
        m_screen.fill({inner.x, inner.y, 3, 2}, red);
        m_screen.fill({inner.x + inner.width - 2, inner.y, 2, 3}, green);
        m_screen.fill({inner.x, inner.y + inner.height - 1, 1, 1}, black);
        m_screen.fill({inner.x + inner.width - 1, inner.y + inner.height - 1, 1, 1}, blue);
        m_screen.fill({inner.x + inner.width / 2, inner.y + inner.height / 3, 7, 5}, RGBColor(255, 255, 0));
    }
    void start(CaptureRegion region) { await(m_stream.start(region, m_gallery.sink())); }
    void stop() { await(m_stream.stop()); }
    [[nodiscard]] bool shows(const RGBAFrame& expected) const { return m_gallery.shows(expected); }

    TestScreen m_screen;
    Gallery m_gallery; // outlives the stream
    X11Stream m_stream;
};

} // namespace quillbox::test
