#pragma once

#include "Capture/FrameTimeline.h"
#include "Capture/Spill/FrameSpill.h"
#include "Encoding/FrameReducer.h"
#include "Encoding/FrameThread.h"
#include "Encoding/Pixels/PixelTypes.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
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
    /// @param frames  All complete frames so far, 30 a second, oldest first.
    /// @param held    Those of them that do not tell what the screen showed, oldest first; each is the frame before,
    ///                repeated.
    /// @pre finished() has not been called.
    void follow(const std::vector<RGBAFrame>& frames, const std::vector<FrameRange>& held = {});

    /// As follow() was told.
    [[nodiscard]] std::vector<FrameRange> held() const { return m_held->ranges(); }

    /// What `FrameReducer::forAnyPreset` makes of the frames. Waits until all of them have been measured; none may
    /// follow. Valid as long as this object. Thread: any. @pre a frame was followed.
    /// @throws std::bad_alloc  measuring ran out of memory.
    [[nodiscard]] const FrameReducer& finished();

private:
    /// Tells the thread which frames are held: all of those that it has been given.
    class HeldFrames {
    public:
        void set(const std::vector<FrameRange>& ranges);
        [[nodiscard]] std::vector<FrameRange> ranges() const;
        [[nodiscard]] bool contains(std::int64_t frame) const;

    private:
        mutable std::mutex m_mutex;
        std::vector<FrameRange> m_ranges;
    };
    /// What the thread works with.
    struct FollowedFrames {
        FrameReducer reducer;
        std::shared_ptr<const HeldFrames> held;

        void append(const RGBAFrame& frame);
    };

    void count(const RGBAFrame& frame);
    void keep(const RGBAFrame& frame);

    std::optional<FrameSpill> m_store;   // the thread's while it runs
    std::optional<RGBAFrame> m_previous; // as is the count
    std::int64_t m_distinctCount = 0;
    std::function<void()> m_onTrouble;
    std::atomic<bool> m_hasFailed = false;
    mutable std::mutex m_mutex;
    std::string m_fullReason;                                            // guarded by m_mutex
    std::shared_ptr<HeldFrames> m_held = std::make_shared<HeldFrames>(); // the thread's, too
    std::optional<FrameThread<FollowedFrames>> m_thread;
    std::mutex m_finishing; // for one thread at a time
};

} // namespace quillbox
