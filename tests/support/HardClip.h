#pragma once

#include "Encoding/Pixels/PixelTypes.h"
#include "support/Pictures.h"

#include <vector>

namespace quillbox::support {

/// A second of noise, 30 pictures, for which the smallest preset makes every attempt that it has: twelve of them are in
/// its GIF, 4.5 million pixels of at least 4 bits, more than its 2,000,000 bytes at any number of colours.
[[nodiscard]] inline std::vector<RGBAFrame> hardClip()
{
    Random random(7);
    std::vector<RGBAFrame> pictures;
    for (int i = 0; i < 7; ++i)
        pictures.push_back(noise(750, 500, random));
    std::vector<RGBAFrame> frames;
    for (std::size_t i = 0; i < 30; ++i) // every second or third is taken, so no two alike follow each other
        frames.push_back(pictures[i % pictures.size()]);
    return frames;
}

} // namespace quillbox::support
