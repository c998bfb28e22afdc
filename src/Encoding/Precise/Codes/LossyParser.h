#pragma once

#include "Encoding/Bytes.h"
#include "Encoding/Precise/Codes/CodeTree.h"
#include "Encoding/Precise/Codes/LossyPicture.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace quillbox::LossyLZW {

/// Chooses the pixels of a picture while it cuts it into sequences that LZW has codes for, with a clear code whenever
/// the table is full.
class LossyParser {
public:
    /// How a picture is written: `transparentIndex` is one that no pixel's nearest colour has, none if all pixels have
    /// to be written; `minCodeSize` is 2…8, and no index of 2^minCodeSize or above is chosen; `clears` are the
    /// positions of clear codes, ascending, without the one at the start.
    struct Form {
        std::optional<std::uint8_t> transparentIndex = {};
        int minCodeSize = 2;
        std::span<const std::size_t> clears = {};
    };

    /// Chooses all pixels. @return the code stream.
    [[nodiscard]] Bytes encode(const Picture& picture, Loss loss, const Form& form);

    /// One index a pixel, as the last stream has them.
    [[nodiscard]] std::span<const std::uint8_t> chosen() const { return m_chosen; }

    /// The error of a pixel that is written as `index`.
    [[nodiscard]] std::int64_t errorOf(std::size_t position, std::uint8_t index) const;

private:
    using Code = CodeTree::Code;

    /// A sequence that agrees with the picture, as far as need be.
    struct Match {
        std::size_t length = 0;
        Code code = 0;
        std::uint8_t first = 0;
        std::int64_t price = 0; ///< of its errors, in 1/65536 bit

        [[nodiscard]] bool isBetterThan(const Match& other, std::int64_t bits) const;
    };
    /// A beginning of a sequence that may be continued.
    struct Way {
        Code code = 0;
        std::uint8_t first = 0;
        std::size_t end = 0;
        std::int64_t price = 0;
    };

    void findNearColors();
    [[nodiscard]] std::int64_t excess(std::size_t position, RGBColor color) const;
    [[nodiscard]] std::optional<std::int64_t> priceOf(std::size_t position, std::uint8_t index) const;
    [[nodiscard]] Match best(std::size_t position, std::int64_t bits);
    [[nodiscard]] std::size_t lengthWithoutErrors(std::size_t position) const;
    void follow(Way& way) const;
    void branch(const Way& way);
    void push(const Way& way);
    void learn(Match& match, std::size_t position, std::int64_t bits);

    static constexpr std::size_t maxNear = 6;

    Picture m_picture;
    Loss m_loss;
    bool m_isTransparent = false;
    std::uint8_t m_transparentIndex = 0;
    std::array<std::array<std::uint8_t, maxNear>, 256> m_near{}; ///< each colour's neighbours, nearest first
    std::array<std::uint8_t, 256> m_nearCount{};

    CodeTree m_tree;
    std::vector<std::uint32_t> m_starts; ///< where a code's sequence was written first
    std::vector<Way> m_ways;
    std::vector<Match> m_matches;
    Bytes m_chosen;
    Match m_previous;
    std::size_t m_limit = 0; ///< no sequence reaches beyond
};

} // namespace quillbox::LossyLZW
