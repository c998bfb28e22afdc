#pragma once

#include <cstdint>
#include <initializer_list>
#include <random>

namespace quillbox::support {

/// Numbers that are the same on every machine for the same seed; the standard distributions are not.
class Random {
public:
    explicit Random(std::uint64_t seed)
        : m_engine(seed)
    {
    }

    /// 0…`count` − 1. @pre `count` is positive.
    [[nodiscard]] std::int64_t below(std::int64_t count)
    {
        return static_cast<std::int64_t>(m_engine() % static_cast<std::uint64_t>(count));
    }
    /// `low`…`high`, both included.
    [[nodiscard]] std::int64_t between(std::int64_t low, std::int64_t high) { return low + below(high - low + 1); }
    [[nodiscard]] bool oneIn(std::int64_t count) { return below(count) == 0; }
    [[nodiscard]] std::uint8_t byte() { return static_cast<std::uint8_t>(m_engine() >> 56U); }

    template <typename T> [[nodiscard]] T pick(std::initializer_list<T> choices)
    {
        return choices.begin()[below(static_cast<std::int64_t>(choices.size()))];
    }

private:
    std::mt19937_64 m_engine;
};

} // namespace quillbox::support
