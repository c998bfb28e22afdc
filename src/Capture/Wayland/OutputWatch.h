#pragma once

#include "Capture/Wayland/CastOutput.h"
#include "Platform/CancelEvent.h"

#include <functional>
#include <memory>
#include <thread>

namespace quillbox {

/// Notices that the output that is cast was switched off or unplugged, by the compositor's own word.
class OutputWatch {
public:
    /// @param picture  The size of the cast's upright picture, pixels.
    /// @param onGone   Called once at most, on a thread of its own, which destroys nothing.
    /// @throws std::system_error  There is no thread, or no file descriptor.
    OutputWatch(const CastFacts& cast, PixelSize picture, std::function<void()> onGone);
    /// Returns when `onGone` can't be called any more.
    ~OutputWatch();
    OutputWatch(const OutputWatch&) = delete;
    OutputWatch& operator=(const OutputWatch&) = delete;

private:
    std::shared_ptr<CancelEvent> m_stop;
    std::thread m_thread;
};

} // namespace quillbox
