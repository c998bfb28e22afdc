#pragma once

#include "Encoding/Parallel.h"

namespace quillbox {

/// How the threads of an encoding are shared out while its input is read. No frame depends on it.
struct ReadingThreads {
    Parallelism reader;  ///< for reading and converting, the caller's own counted
    Parallelism reducer; ///< for what takes the frames: 1, the caller's own; 2, one apart; more, that one has help

    /// @param threads  All there may be at once, at least 1; 0 for as many as are of use.
    [[nodiscard]] static constexpr ReadingThreads of(int threads)
    {
        switch (threads) {
        case 0:
            return {};
        case 1:
        case 2:
            return {.reader = {1}, .reducer = {threads}};
        case 3:
            return {.reader = {2}, .reducer = {2}};
        default:
            return {.reader = {threads - 2}, .reducer = {3}};
        }
    }
};

} // namespace quillbox
