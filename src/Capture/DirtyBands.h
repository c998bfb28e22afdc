#pragma once

#include "Encoding/Pixels/PixelTypes.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace quillbox {

/// Which bands of a picture have changed since they were last made.
class DirtyBands {
public:
    /// All of them at first. @param height  Of the picture, pixels; positive.
    explicit DirtyBands(std::int64_t height)
        : m_flags(static_cast<std::size_t>((height + RGBAFrame::rowsPerBand - 1) / RGBAFrame::rowsPerBand), true)
    {
    }

    /// Rows outside the picture are ignored.
    void markRows(std::int64_t first, std::int64_t count)
    {
        const auto last = std::min((first + count - 1) / RGBAFrame::rowsPerBand, std::ssize(m_flags) - 1);
        for (auto band = std::max<std::int64_t>(first, 0) / RGBAFrame::rowsPerBand; count > 0 && band <= last; ++band)
            m_flags[static_cast<std::size_t>(band)] = true;
    }

    [[nodiscard]] std::size_t count() const { return m_flags.size(); }
    [[nodiscard]] bool contains(std::size_t band) const { return m_flags[band]; }
    void clear() { std::fill(m_flags.begin(), m_flags.end(), false); }

private:
    std::vector<bool> m_flags;
};

} // namespace quillbox
