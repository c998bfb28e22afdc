#pragma once

#include "Encoding/Pixels/PixelTypes.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace quillbox {

class FrameReducer;
class RecordingReducer;

/// What was recorded: the frames, 30 a second, and what was measured of them meanwhile. A value that never changes;
/// copies share everything. It outlives its recorder. Thread: any.
class Recording {
public:
    /// Without a frame.
    Recording() = default;
    /// Frames of which nothing is known yet: begins to measure them.
    /// @param frames  Oldest first.
    // NOLINTNEXTLINE(google-explicit-constructor): a recording is its frames
    Recording(std::vector<RGBAFrame> frames);
    /// @param reducer  Has followed all of `frames`, and follows nothing else.
    Recording(std::vector<RGBAFrame> frames, std::shared_ptr<RecordingReducer> reducer);

    /// Oldest first.
    [[nodiscard]] const std::vector<RGBAFrame>& frames() const { return *m_frames; }

    /// The frames as the encoder takes them, for any preset. Waits until all have been measured.
    /// @return Valid as long as a copy of this recording is.
    /// @pre there is a frame; a violation ends the process.
    /// @throws std::bad_alloc  measuring ran out of memory.
    [[nodiscard]] const FrameReducer& reduced() const;

    /// Frames that differ from the one before in any pixel, the first included. Waits and throws as reduced() does.
    /// @pre there is a frame.
    [[nodiscard]] std::int64_t distinctCount() const;

    /// The same, of which nothing is known yet: as when what was measured failed.
    [[nodiscard]] Recording measuredAnew() const;

    /// @param remove  Removes what would bring the recording back if the program ended; any thread may call it.
    void setBackup(std::function<void()> remove);
    /// The clip is saved, or not wanted: nothing needs to bring the recording back. Its frames stay.
    void settle() const;

    /// Moves the frames' pixels to the disk as far as it has room, since hardly anybody will look at them again. They
    /// can still be looked at.
    void moveToDisk() const;

    /// What of the frames lies in a file. Waits as reduced() does. @pre there is a frame.
    [[nodiscard]] std::int64_t fileBytes() const;

private:
    std::shared_ptr<const std::vector<RGBAFrame>> m_frames = std::make_shared<const std::vector<RGBAFrame>>();
    std::shared_ptr<RecordingReducer> m_reducer;
    std::function<void()> m_removeBackup; // may be empty
};

} // namespace quillbox
