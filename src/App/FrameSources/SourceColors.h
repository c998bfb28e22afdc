#pragma once

#include "App/FrameSources/Transparency.h"
#include "App/FrameSources/Y4M/YUVConversion.h"

#include <optional>

namespace quillbox {

/// How the colours of an input are to be understood.
struct SourceColors {
    std::optional<YUVMatrix> matrix; ///< of a YUV4MPEG2 stream; none for the one that its height suggests
    RGBColor background = Transparency::defaultBackground; ///< what shows through transparent pixels
};

} // namespace quillbox
