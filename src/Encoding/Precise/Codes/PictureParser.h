#pragma once

#include "Encoding/Bytes.h"
#include "Encoding/Precise/Codes/CodeTree.h"

#include <cstdint>
#include <span>
#include <vector>

namespace quillbox {

/// A picture as the codes may write it: each pixel in its index or, where it is free to be so, transparent.
struct FreePicture {
    std::span<const std::uint8_t> indices = {}; ///< rows top-down
    std::span<const std::uint8_t> isFree = {};  ///< one byte a pixel, not 0 where it may be transparent; empty: nowhere
    std::uint8_t transparentIndex = 0;          ///< no pixel that is not free has it
    int minCodeSize = 2;                        ///< 2…8; all indices are below 2^minCodeSize
};

/// Cuts a picture into sequences that LZW has codes for: each time the longest one that agrees with the picture. One
/// picture after another, each from as many starts as wanted.
class PictureParser {
public:
    using Code = CodeTree::Code;

    /// @param picture  outlives the work on it.
    void setPicture(const FreePicture& picture);

    /// Begins behind a clear code, at that pixel.
    void begin(std::size_t position);

    /// When to take less than the longest sequence.
    struct Lookahead {
        std::size_t pixels = 0; ///< that the sequence may be shorter than the longest; 0: never
        std::size_t gain = 1;   ///< pixels that it and the one after it must reach further, at least 1. The tree learns
                                ///< nothing from a shorter sequence; once it is full, 1 suffices.
    };
    void setLookahead(Lookahead lookahead) { m_lookahead = lookahead; }

    /// Takes the next code's sequence, which ends at `limit` at the latest. @return the code.
    /// @pre `position()` is below `limit`, which is at most the picture's end.
    Code next(std::size_t limit);

    [[nodiscard]] std::size_t position() const { return m_position; }    ///< of the first pixel that has no code yet
    [[nodiscard]] std::int64_t codeCount() const { return m_codeCount; } ///< since the clear code
    [[nodiscard]] bool tableIsFull() const { return m_tree.isFull(); }
    /// Look-ups so far, for a bound on effort that is the same on every machine.
    [[nodiscard]] std::int64_t steps() const { return m_steps; }

private:
    struct Match {
        std::size_t length = 0;
        Code code = 0;
        std::uint8_t first = 0; ///< the sequence's first index
    };

    [[nodiscard]] Match longest(std::size_t position, std::size_t limit);
    template <bool hasChoice>
    void extend(Match& best, std::size_t position, std::size_t limit, std::uint8_t first, std::size_t run);
    [[nodiscard]] bool isFree(std::size_t position) const
    {
        return !m_picture.isFree.empty() && m_picture.isFree[position] != 0;
    }
    [[nodiscard]] bool mayBe(std::size_t position, std::uint8_t index) const
    {
        return m_picture.indices[position] == index || (index == m_picture.transparentIndex && isFree(position));
    }
    void learn(Match& match, std::size_t limit);
    void lookAhead(Match& match, std::size_t limit);
    void write(const Match& match);

    FreePicture m_picture;
    CodeTree m_tree;
    Bytes m_written;                     ///< the indices taken since `begin`, in their places
    std::vector<std::uint32_t> m_starts; ///< where a code's sequence was written first

    std::size_t m_position = 0;
    std::int64_t m_codeCount = 0;
    std::int64_t m_steps = 0;
    Lookahead m_lookahead;
    Match m_previous; ///< length 0 behind a clear code
    Match m_ahead;    ///< found by looking ahead: the longest at `m_position`, if its length is not 0
    std::size_t m_aheadLimit = 0;
};

} // namespace quillbox
