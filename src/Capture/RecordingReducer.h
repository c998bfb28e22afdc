#pragma once

#include "Capture/Spill/FrameSpill.h"
#include "Encoding/FrameReducer.h"
#include "Encoding/FrameThread.h"
#include "Encoding/Pixels/PixelTypes.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace quillbox {

/// Measures a recording's frames while it goes on, so that at its end only the last ones are left to be measured, and
/// keeps what they take up within a bound. Its thread runs from the first frame on. One thread at a time.
class RecordingReducer {
public:
    /// For frames that stay in memory.
    RecordingReducer() = default;
    /// @param store      Takes care of the frames.
    /// @param onTrouble  Called on the reducer's thread when the store has no room any more, and when hasFailed(). May
    ///                   be empty. Frames that come later stay in memory.
    explicit RecordingReducer(FrameSpill store, std::function<void()> onTrouble = nullptr);

    /// Why there is no room any more, one sentence without a full stop; empty while there is. Thread: any.
    [[nodiscard]] std::string fullReason() const;

    /// Whether measuring has ended before its time, as without memory, or where a file can't be read: finished() will
    /// throw. The frames are as good as before. Thread: any.
    [[nodiscard]] bool hasFailed() const { return m_hasFailed; }

    /// What lies in a file. @pre finished() has been called.
    [[nodiscard]] std::int64_t fileBytes() const { return m_store ? m_store->fileBytes() : 0; }

    /// Frames that differ from the one before in any pixel, the first included. @pre finished() has been called.
    [[nodiscard]] std::int64_t distinctCount() const { return m_distinctCount; }

    /// Whether pictures come faster than they can be taken care of: more bytes of them wait than the store's limit. Not
    /// once it hasFailed().
    /// @param frames  As for follow().
    [[nodiscard]] bool isBehind(const std::vector<RGBAFrame>& frames) const;

    /// Takes in what is new. Never waits.
    /// @param frames  All complete frames so far, 30 a second, oldest first. @pre finished() has not been called.
    void follow(const std::vector<RGBAFrame>& frames);

    /// What `FrameReducer::forAnyPreset` makes of the frames. Waits until all of them have been measured; none may
    /// follow. Valid as long as this object. Thread: any. @pre a frame was followed.
    /// @throws std::bad_alloc  measuring ran out of memory.
    [[nodiscard]] const FrameReducer& finished();

private:
    void count(const RGBAFrame& frame);
    void keep(const RGBAFrame& frame);

    std::optional<FrameSpill> m_store;   // the thread's while it runs
    std::optional<RGBAFrame> m_previous; // as is the count
    std::int64_t m_distinctCount = 0;
    std::function<void()> m_onTrouble;
    std::atomic<bool> m_hasFailed = false;
    mutable std::mutex m_mutex;
    std::string m_fullReason; // guarded by m_mutex
    std::optional<FrameThread<FrameReducer>> m_thread;
    std::mutex m_finishing; // for one thread at a time
};

} // namespace quillbox
