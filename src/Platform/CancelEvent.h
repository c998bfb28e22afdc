#pragma once

#include "Platform/FileDescriptor.h"

#include <atomic>
#include <chrono>

namespace quillbox {

/// A latch that poll() can wait for: one thread raises it to have others stop what they do. Thread: any.
class CancelEvent {
public:
    /// @throws std::system_error  There is no free file descriptor.
    CancelEvent();

    void raise();
    [[nodiscard]] bool isRaised() const { return m_isRaised; }
    /// Readable once it is raised.
    [[nodiscard]] int descriptor() const { return m_event.number(); }

    /// Sleeps until `time`. @return false if the signal was raised before.
    [[nodiscard]] bool waitUntil(std::chrono::steady_clock::time_point time) const;

private:
    FileDescriptor m_event;
    std::atomic<bool> m_isRaised = false;
};

} // namespace quillbox
