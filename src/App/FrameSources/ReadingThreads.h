#pragma once

#include "App/FrameSources/BackgroundFrames.h"
#include "Encoding/Parallel.h"

namespace quillbox {

/// How the threads of an encoding are shared out while its input is read. No frame depends on it.
struct ReadingThreads {
    Parallelism reader;                ///< for reading and converting, the caller's own counted
    Intake intake = Intake::onAThread; ///< where the frames are taken in
    Parallelism measuring;             ///< for measuring them there, that thread counted

    /// @param threads  All there may be at once, at least 1; 0 for as many as are of use.
    [[nodiscard]] static constexpr ReadingThreads of(int threads)
    {
        switch (threads) {
        case 0:
            return {};
        case 1:
            return {.reader = {1}, .intake = Intake::here, .measuring = {1}};
        case 2:
        case 3:
            return {.reader = {threads - 1}, .intake = Intake::onAThread, .measuring = {1}};
        default:
            return {.reader = {threads - 2}, .intake = Intake::onAThread, .measuring = {2}};
        }
    }
};

} // namespace quillbox
