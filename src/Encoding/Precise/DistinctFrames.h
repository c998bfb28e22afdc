#pragma once

#include "Encoding/FPSAdaptive.h"
#include "Encoding/FrameResampler.h"
#include "Encoding/GIFEncoder.h"
#include "Encoding/Pixels/PixelTypes.h"
#include "Encoding/Precise/Colors/ColorCounts.h"
#include "Encoding/Precise/PictureArea.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <vector>

namespace quillbox {

/// Takes a recording's frames one by one and keeps each that differs from the one before in any pixel, at the size that
/// the GIF will have: what has changed and when, not the whole picture. On the way it counts how long each colour is
/// shown.
///
/// A frame that is smaller than the screen covers its upper left part, one that is larger is shrunk to it, side by
/// side. Alpha is ignored.
///
/// Can be moved; one thread at a time.
class DistinctFrames {
public:
    /// Called once with each picture that is kept. It is made of bands, so that they can be evicted.
    using OnKept = std::function<void(const RGBAFrame&)>;

    struct Options {
        std::int64_t sourceFPS = 30;            ///< rate of the frames to come, frames per second, at least 1
        std::optional<std::int64_t> maxWidth{}; ///< what wider frames are shrunk to, pixels
        std::int64_t maxFPS = 30;               ///< frames a second that are looked at, at least 1
        OnKept onKept{};                        ///< may be empty. What it throws comes out of append().
    };

    /// A picture that differs from the one before.
    struct Picture {
        PictureArea area;               ///< the smallest that holds all changed pixels; of the first all there are
        RGBAFrame pixels;               ///< those of the area; alpha 255 where the pixel has changed, else 0
        std::int64_t tick = 0;          ///< number of the first frame that shows it, from 0
        std::int64_t changedPixels = 0; ///< positive
        std::int64_t pixelTicks = 0;    ///< how many frames each of them lasts until it changes again, summed up
        std::int64_t squaredChange = 0; ///< squared differences from the picture before, summed up over channels
    };

    explicit DistinctFrames(Options options);

    /// Takes the next frame. Its pixels are not held longer than until the next call.
    void append(const RGBAFrame& frame);

    [[nodiscard]] std::int64_t sourceFPS() const { return m_options.sourceFPS; }
    [[nodiscard]] std::int64_t maxFPS() const { return m_options.maxFPS; }
    [[nodiscard]] std::optional<std::int64_t> maxWidth() const { return m_options.maxWidth; }
    /// Frames taken so far.
    [[nodiscard]] std::int64_t frameCount() const { return m_frameCount; }

    /// What the frames came to so far.
    struct Recording {
        PixelSize size;                    ///< of the screen, pixels
        PixelSize recordedSize;            ///< of the first frame before it was shrunk
        std::int64_t sourceFPS = 0;        ///< frames per second
        std::int64_t maxFPS = 0;           ///< of them looked at, frames per second
        std::int64_t frameCount = 0;       ///< all there were
        std::vector<Picture> pictures;     ///< oldest first; the first one covers the screen
        std::vector<WeightedColor> colors; ///< each colour with its pixels times the frames that they last

        /// The same recording with a narrower screen. @param toWidth  pixels, 1…its width
        [[nodiscard]] Recording shrunk(std::int64_t toWidth) const;
    };

    /// @throws GIFEncodingError  the first frame a side of which exceeds 65535 pixels.
    /// @pre at least one frame was taken, and the first one has pixels; a violation ends the process.
    [[nodiscard]] Recording recording() const;

private:
    void begin(const RGBAFrame& frame);
    void take(const RGBAFrame& frame);
    [[nodiscard]] std::vector<FrameResampler::RowRange> changedRows(const RGBAFrame& frame) const;
    /// What a picture changes, as far as it is known.
    struct Change {
        PictureArea area;
        std::int64_t squared = 0;
    };
    void overwrite(std::int64_t row, std::span<const std::uint32_t> pixels, Change& change);
    void addPicture(const Change& change);

    Options m_options;
    FPSAdaptive::Resampler m_sampler;
    std::int64_t m_frameCount = 0;
    PixelSize m_recordedSize;
    PixelSize m_size;
    std::optional<RGBAFrame> m_previous;    ///< the frame looked at last, as it came
    std::vector<std::uint32_t> m_screen;    ///< what it looks like, RGBA
    std::vector<std::uint32_t> m_changedBy; ///< for each pixel, the number of the picture that it is from
    std::vector<Picture> m_pictures;
    ColorCounts m_colors;                                          ///< of what has been overwritten
    std::optional<GIFEncodingError::DimensionTooLarge> m_tooLarge; ///< the first frame that is
};

} // namespace quillbox
