#pragma once

#include "App/FrameSources/FrameConsumer.h"
#include "Encoding/FrameResampler.h"
#include "Encoding/Pixels/PixelSize.h"
#include "Encoding/Pixels/PixelTypes.h"

#include <cstdint>
#include <optional>
#include <string>

namespace quillbox {

/// What is to be done with the frames of an input before they become a clip.
struct FrameShape {
    struct Part {
        std::int64_t left = 0; ///< pixels
        std::int64_t top = 0;  ///< pixels
        PixelSize size;        ///< not empty
    };
    std::optional<Part> crop;             ///< the part to take; none for all
    std::optional<std::int64_t> maxWidth; ///< pixels, at least 1; wider frames are shrunk
};

/// Crops and shrinks frames on their way to a receiver. What repeats the frame before goes on sharing its pixels. One
/// thread at a time.
class FrameShaper final : public FrameConsumer {
public:
    /// @param input  For messages.  @param next  Outlives this.
    FrameShaper(std::string input, FrameShape shape, FrameConsumer& next);

    void setRate(FrameRate rate) override { m_next.setRate(rate); }
    /// @throws FrameReadError  the part to take is not in the frame.
    void take(const RGBAFrame& frame) override;

private:
    [[nodiscard]] RGBAFrame shaped(const RGBAFrame& frame);

    struct Latest {
        RGBAFrame original;
        RGBAFrame shaped;
    };

    std::string m_input;
    FrameShape m_shape;
    FrameConsumer& m_next;
    std::optional<FrameResampler::WidthCap> m_cap; ///< of the first frame
    std::optional<Latest> m_latest;
};

} // namespace quillbox
