#pragma once

#include "App/FrameSources/ByteSource.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <utility>

namespace quillbox::support {

/// Bytes that lie in memory and outlive the source.
class MemoryByteSource final : public ByteSource {
public:
    MemoryByteSource(std::string name, std::span<const std::uint8_t> bytes)
        : ByteSource(std::move(name))
        , m_bytes(bytes)
    {
    }

    [[nodiscard]] bool canReadAhead() const override { return true; }

private:
    std::size_t readSome(std::span<std::uint8_t> into) override
    {
        const auto count = std::min(into.size(), m_bytes.size());
        std::copy_n(m_bytes.begin(), count, into.begin());
        m_bytes = m_bytes.subspan(count);
        return count;
    }
    [[nodiscard]] std::size_t readSomeAhead(std::int64_t distance, std::span<std::uint8_t> into) const override
    {
        const auto rest = m_bytes.subspan(std::min(static_cast<std::size_t>(distance), m_bytes.size()));
        const auto count = std::min(into.size(), rest.size());
        std::copy_n(rest.begin(), count, into.begin());
        return count;
    }
    void skipBelow(std::int64_t count) override { m_bytes = m_bytes.subspan(static_cast<std::size_t>(count)); }
    [[nodiscard]] std::optional<std::int64_t> remainingBelow() const override { return std::ssize(m_bytes); }

    std::span<const std::uint8_t> m_bytes;
};

} // namespace quillbox::support
