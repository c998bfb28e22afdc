#pragma once

#include "Encoding/Bytes.h"
#include "Encoding/Precondition.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>

namespace quillbox {

/// Immutable bytes that stay in memory as long as a copy of this exists. Thread: any.
class PixelView {
public:
    /// All of `owner`. @pre not null.
    explicit PixelView(std::shared_ptr<const Bytes> owner)
        : m_data(owner->data())
        , m_size(owner->size())
        , m_owner(std::move(owner))
    {
    }

    /// The `count` bytes from `begin` on, of the same owner. @pre they lie within.
    [[nodiscard]] PixelView part(std::size_t begin, std::size_t count) const
    {
        precondition(begin <= m_size && count <= m_size - begin, "a part lies within the whole");
        PixelView result = *this;
        result.m_data += begin;
        result.m_size = count;
        return result;
    }

    [[nodiscard]] std::size_t size() const { return m_size; }
    // A view that is about to go gives no addresses: they might go with it.
    [[nodiscard]] const std::uint8_t* data() const& { return m_data; }
    [[nodiscard]] const std::uint8_t* begin() const& { return m_data; }
    [[nodiscard]] const std::uint8_t* end() const& { return m_data + m_size; }
    [[nodiscard]] const std::uint8_t* data() const&& = delete;
    [[nodiscard]] const std::uint8_t* begin() const&& = delete;
    [[nodiscard]] const std::uint8_t* end() const&& = delete;
    [[nodiscard]] std::uint8_t operator[](std::size_t index) const { return m_data[index]; }

    [[nodiscard]] explicit operator Bytes() const { return {m_data, m_data + m_size}; }
    friend bool operator==(const PixelView& a, const PixelView& b) { return std::ranges::equal(a, b); }
    friend bool operator==(const PixelView& a, const Bytes& b) { return std::ranges::equal(a, b); }

private:
    const std::uint8_t* m_data;
    std::size_t m_size;
    std::shared_ptr<const Bytes> m_owner;
};

} // namespace quillbox
