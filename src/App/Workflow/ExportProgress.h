#pragma once

#include <cstdint>

namespace quillbox {

/// How far a clip is that is being made. A value.
struct ExportProgress {
    std::int64_t attempt = 0;    ///< from 1, as `GIFOptimizer::Progress` counts; 0: none has begun
    std::int64_t attempts = 0;   ///< at most, 1 or more: the first file within the byte budget ends the search
    std::int64_t framesDone = 0; ///< of this attempt
    std::int64_t frameCount = 0; ///< in the file

    /// The share of all the work that is done, 0…1, as one number that never falls while a clip is made.
    ///
    /// Nobody knows beforehand which attempt will be the last. So each fills half of what is left when it begins, frame
    /// by frame, and the last that there can be fills all of it: with three, the first ends at 1/2, the second at 3/4,
    /// the third at 1. A clip that fits at once ends halfway. An attempt that is left early jumps to where it would
    /// have ended; one that takes up an attempt left before begins with the frames that are done already.
    [[nodiscard]] double fraction() const;

    friend bool operator==(const ExportProgress&, const ExportProgress&) = default;
};

} // namespace quillbox
