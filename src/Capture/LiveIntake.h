#pragma once

#include "Encoding/IntakeThread.h"
#include "Encoding/PixelTypes.h"

#include <optional>
#include <vector>

namespace quillbox {

/// Measures a recording's frames while it goes on, so that at its end only the last ones are left to be measured. Its
/// thread runs from the first frame on. One thread at a time.
class LiveIntake {
public:
    /// Takes in what is new. Never waits.
    /// @param frames  All complete frames so far, 30 a second, oldest first. @pre of() has not been called.
    void follow(const std::vector<RGBAFrame>& frames);

    /// Takes in the rest of the recording and waits until all of it has been measured.
    /// @param frames  The recording; those that were followed are its first ones.
    /// @return What `FrameIntake::forAnyPreset` makes of `frames`, valid as long as this object; null where the
    ///         recording has been cut since, or there is nothing to measure.
    /// @throws std::bad_alloc  measuring ran out of memory.
    [[nodiscard]] const FrameIntake* of(const std::vector<RGBAFrame>& frames);

private:
    void takeUpTo(const std::vector<RGBAFrame>& frames);

    std::optional<IntakeThread> m_thread;
    bool m_isFinished = false;
};

} // namespace quillbox
