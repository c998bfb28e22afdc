#include "reference/FrameDeduplicator.h"

#include <algorithm>

namespace quillbox::reference {

double fractionChanged(const RGBAFrame& a, const RGBAFrame& b, std::int64_t tolerance)
{
    if (a.width() != b.width() || a.height() != b.height())
        return 1.0;
    const std::int64_t pixelCount = a.width() * a.height();
    if (pixelCount < 1)
        return 1.0;
    std::int64_t changed = 0;
    for (std::int64_t i = 0; i < pixelCount; ++i) {
        std::int64_t distance = 0;
        for (std::int64_t channel = 0; channel < 3; ++channel) {
            const auto offset = static_cast<std::size_t>(4 * i + channel);
            const int difference = int{a.pixels()[offset]} - int{b.pixels()[offset]};
            distance += difference * difference;
        }
        if (distance > tolerance)
            ++changed;
    }
    return static_cast<double>(changed) / static_cast<double>(pixelCount);
}

std::vector<FrameDeduplicator::Timed> deduplicate(
    std::span<const RGBAFrame> frames, std::int64_t perFrameDelayCentiseconds, double changeThreshold)
{
    std::vector<FrameDeduplicator::Timed> kept;
    for (const RGBAFrame& frame : frames) {
        if (!kept.empty() && fractionChanged(kept.back().frame, frame, 12) <= changeThreshold) {
            std::int64_t& delay = kept.back().delayCentiseconds;
            std::int64_t longer = 0;
            const bool overflows = __builtin_add_overflow(delay, perFrameDelayCentiseconds, &longer);
            delay = overflows ? 65535 : std::min<std::int64_t>(longer, 65535);
        } else {
            kept.push_back({frame, perFrameDelayCentiseconds});
        }
    }
    return kept;
}

} // namespace quillbox::reference
