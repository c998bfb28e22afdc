#include "Encoding/Precise/ShrunkRecording.h"

#include <algorithm>

namespace quillbox {

DistinctFrames::Recording shrunk(const DistinctFrames::Recording& recording, std::int64_t width)
{
    DistinctFrames frames({.sourceFPS = recording.sourceFPS,
        .maxWidth = width,
        .maxFPS = std::max(recording.maxFPS, recording.sourceFPS)});
    Bytes screen(static_cast<std::size_t>(recording.size.width * recording.size.height * RGBAFrame::bytesPerPixel), 0);
    for (std::size_t i = 0; i < recording.pictures.size(); ++i) {
        const auto& picture = recording.pictures[i];
        const PixelView pixels = picture.pixels.pixels();
        const auto rowBytes = static_cast<std::size_t>(picture.area.width * RGBAFrame::bytesPerPixel);
        for (std::int64_t y = 0; y < picture.area.height; ++y) {
            std::copy_n(pixels.data() + static_cast<std::size_t>(y) * rowBytes, rowBytes,
                screen.data()
                    + static_cast<std::size_t>(((picture.area.top + y) * recording.size.width + picture.area.left)
                        * RGBAFrame::bytesPerPixel));
        }
        const RGBAFrame frame(recording.size.width, recording.size.height, screen);
        const std::int64_t end
            = i + 1 < recording.pictures.size() ? recording.pictures[i + 1].tick : recording.frameCount;
        for (std::int64_t tick = picture.tick; tick < end; ++tick)
            frames.append(frame);
    }
    DistinctFrames::Recording result = frames.recording();
    result.maxFPS = recording.maxFPS;
    return result;
}

} // namespace quillbox
