#pragma once

#include "Capture/CaptureStream.h"

#include "support/Await.h"

#include <mutex>
#include <utility>
#include <vector>

namespace quillbox::test {

/// Keeps what a stream delivers.
class Gallery {
public:
    [[nodiscard]] FrameSink sink()
    {
        FrameSink result;
        result.frame = [this](RGBAFrame frame, CaptureClock::time_point shownAt) {
            const std::scoped_lock lock(m_mutex);
            m_frames.push_back(std::move(frame));
            m_times.push_back(shownAt);
        };
        result.ended = [this](CaptureError reason) {
            const std::scoped_lock lock(m_mutex);
            m_ends.push_back(std::move(reason));
        };
        return result;
    }

    [[nodiscard]] std::vector<RGBAFrame> frames() const
    {
        const std::scoped_lock lock(m_mutex);
        return m_frames;
    }
    [[nodiscard]] std::vector<CaptureClock::time_point> times() const
    {
        const std::scoped_lock lock(m_mutex);
        return m_times;
    }
    [[nodiscard]] std::vector<CaptureError> ends() const
    {
        const std::scoped_lock lock(m_mutex);
        return m_ends;
    }

    [[nodiscard]] bool latestIs(const RGBAFrame& expected) const
    {
        const std::scoped_lock lock(m_mutex);
        return !m_frames.empty() && m_frames.back() == expected;
    }
    /// Waits until the latest picture is `expected`. @return false when patience ran out.
    [[nodiscard]] bool shows(const RGBAFrame& expected) const
    {
        return eventually([&] { return latestIs(expected); });
    }

private:
    mutable std::mutex m_mutex;
    std::vector<RGBAFrame> m_frames;
    std::vector<CaptureClock::time_point> m_times;
    std::vector<CaptureError> m_ends;
};

} // namespace quillbox::test
