#include "reference/Precise/ColorSearch.h"

#include "Encoding/Precise/ClipAttempt.h"
#include "Encoding/Precise/Colors/ScreenPalette.h"

#include <vector>

std::int64_t quillbox::reference::mostColors(const DistinctFrames::Recording& recording, std::int64_t targetBytes)
{
    for (std::int64_t colors = 256; colors > 1; --colors) {
        const ClipPlan plan{.table = ScreenPalette::make(recording.colors, colors, {.threads = 1}),
            .leavesOut = std::vector<bool>(recording.pictures.size(), false),
            .maxColors = colors};
        if (ClipAttempt::make(recording, plan, {.threads = 1}, {}, {}).byteCount <= targetBytes)
            return colors;
    }
    return 0;
}
