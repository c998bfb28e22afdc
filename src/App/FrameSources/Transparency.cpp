#include "App/FrameSources/Transparency.h"

#include <cstddef>

namespace quillbox {

void Transparency::layOn(RGBColor background, std::span<std::uint8_t> pixels)
{
    const auto mixed = [](std::uint8_t color, std::uint8_t behind, unsigned alpha) {
        return static_cast<std::uint8_t>((color * alpha + behind * (255 - alpha) + 127) / 255);
    };
    for (std::size_t i = 0; i + 3 < pixels.size(); i += 4) {
        const unsigned alpha = pixels[i + 3];
        if (alpha == 255)
            continue;
        pixels[i] = mixed(pixels[i], background.r, alpha);
        pixels[i + 1] = mixed(pixels[i + 1], background.g, alpha);
        pixels[i + 2] = mixed(pixels[i + 2], background.b, alpha);
        pixels[i + 3] = 255;
    }
}

} // namespace quillbox
