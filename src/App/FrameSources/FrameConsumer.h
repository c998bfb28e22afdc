#pragma once

#include "App/FrameSources/FrameRate.h"
#include "Encoding/Pixels/PixelTypes.h"

namespace quillbox {

/// Takes the frames of an input as they are read, so that a long input need not lie in memory whole.
class FrameConsumer {
public:
    virtual ~FrameConsumer() = default;

    /// The input has a rate of its own. Called before the first frame, or never.
    virtual void setRate(FrameRate rate) = 0;

    /// The next frame, oldest first.
    virtual void take(const RGBAFrame& frame) = 0;

protected: // copies are for whole objects
    FrameConsumer() = default;
    FrameConsumer(const FrameConsumer&) = default;
    FrameConsumer& operator=(const FrameConsumer&) = default;
};

} // namespace quillbox
