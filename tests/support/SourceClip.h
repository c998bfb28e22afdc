#pragma once

#include "App/FrameSources/FrameConsumer.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace quillbox::support {

/// Keeps all frames of an input.
class SourceClip final : public FrameConsumer {
public:
    void setRate(std::int64_t rate) override { framesPerSecond = rate; }
    void take(const RGBAFrame& frame) override { frames.push_back(frame); }

    std::vector<RGBAFrame> frames;               ///< oldest first
    std::optional<std::int64_t> framesPerSecond; ///< the input's own rate, at least 1, if it has one
};

} // namespace quillbox::support
