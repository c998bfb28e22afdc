#pragma once

#include "App/FrameSources/FrameRate.h"
#include "App/FrameSources/Y4M/YUVConversion.h"
#include "Encoding/Pixels/PixelSize.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillbox {

/// The first line of a YUV4MPEG2 stream.
/// @see yuv4mpeg(5) of the mjpegtools; the tag XCOLORRANGE and the kinds of more than eight bits are FFmpeg's.
struct Y4MHeader {
    /// The word that every stream starts with.
    static constexpr std::string_view magic = "YUV4MPEG2";

    PixelSize size;
    YUVFormat format; ///< its matrix is a guess by the height, as nothing in the line tells it: BT.709 from 720 rows on
    std::optional<FrameRate> rate; ///< none when it is unknown

    /// @param input  The stream's name, for messages.
    /// @param line   The line without its newline.
    /// @throws FrameReadError  a tag is missing, malformed, or asks for what Quillbox doesn't read.
    [[nodiscard]] static Y4MHeader parse(const std::string& input, std::string_view line);

    friend bool operator==(const Y4MHeader&, const Y4MHeader&) = default;
};

} // namespace quillbox
