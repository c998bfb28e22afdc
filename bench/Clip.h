#pragma once

#include "Encoding/Pixels/PixelTypes.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quillbox::bench {

/// The frames of one recording, 30 a second, all of one size, and the name that its figures carry.
struct Clip {
    std::string name;
    std::vector<RGBAFrame> frames;

    [[nodiscard]] double megapixels() const;
};

/// The clips that can be made here, each a different kind of load:
/// - "typing": letters appear one by one on a dark page and now and then a line scrolls in; most of it rests
/// - "scrolling": a light page of text moves up, with stops
/// - "gradient": every pixel changes in every frame and there are many colours
/// - "noise": the same without any order, the worst case of everything that looks for repetition
[[nodiscard]] std::vector<std::string_view> generatedClipNames();

/// @param name  One of `generatedClipNames()`. @pre width, height and frameCount are positive.
/// @throws std::invalid_argument  for another name.
[[nodiscard]] Clip generatedClip(std::string_view name, std::int64_t width, std::int64_t height, int frameCount);

/// Tightly packed RGBA frames from a file; `frameLimit` 0 reads them all.
/// @throws std::runtime_error  it cannot be read, or is no whole number of frames of that size.
[[nodiscard]] Clip rawClip(const std::string& path, std::int64_t width, std::int64_t height, int frameLimit);

/// Splits "WIDTHxHEIGHT". @throws std::invalid_argument  when it is anything else.
struct PictureSize {
    std::int64_t width = 0;
    std::int64_t height = 0;
};
[[nodiscard]] PictureSize pictureSize(std::string_view text);

} // namespace quillbox::bench
