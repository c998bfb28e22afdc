// Writes one of the generated clips to standard output as tightly packed RGBA frames: generate-clip NAME WxH FRAMES

#include "Clip.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <span>

int main(int argc, char** argv)
{
    const std::span arguments(argv, static_cast<std::size_t>(argc));
    if (arguments.size() != 4) {
        (void)std::fputs("usage: generate-clip NAME WIDTHxHEIGHT FRAMES\n", stderr); // nothing is left if that fails
        return 2;
    }
    try {
        using namespace quillbox::bench;
        const PictureSize size = pictureSize(arguments[2]);
        const auto frameCount = static_cast<int>(std::strtol(arguments[3], nullptr, 10));
        for (const auto& frame : generatedClip(arguments[1], size.width, size.height, frameCount).frames) {
            const quillbox::PixelView pixels = frame.pixels();
            if (std::fwrite(pixels.data(), 1, pixels.size(), stdout) != pixels.size())
                return 1;
        }
        return std::fflush(stdout) == 0 ? 0 : 1;
    } catch (const std::exception& error) {
        (void)std::fprintf(stderr, "generate-clip: %s\n", error.what()); // nothing is left to do if that fails
        return 1;
    }
}
