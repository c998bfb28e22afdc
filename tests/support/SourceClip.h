#pragma once

#include "App/FrameSources/FrameConsumer.h"

#include <optional>
#include <vector>

namespace quillbox::support {

/// Keeps all frames of an input.
class SourceClip final : public FrameConsumer {
public:
    void setRate(FrameRate rate) override { ownRate = rate; }
    void take(const RGBAFrame& frame) override { frames.push_back(frame); }

    std::vector<RGBAFrame> frames;    ///< oldest first
    std::optional<FrameRate> ownRate; ///< the input's, if it has one
};

} // namespace quillbox::support
