#include "Encoding/Pixels/PixelComparison.h"

#include "Encoding/Multiversion.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <limits>

namespace quillbox::FrameDeduplicator {
namespace {

/// Changed pixels among `count` (at most 2^31 − 1).
QUILLBOX_MULTIVERSION std::int64_t changedAmong(
    const std::uint8_t* a, const std::uint8_t* b, std::int64_t count, std::int32_t tolerance)
{
    std::int32_t changed = 0;
    for (std::int64_t i = 0; i < count; ++i) {
        std::uint32_t pa = 0; // loaded whole: four single bytes would not vectorise as well
        std::uint32_t pb = 0;
        std::memcpy(&pa, a + 4 * i, sizeof pa);
        std::memcpy(&pb, b + 4 * i, sizeof pb);
        // Which byte is which channel doesn't matter, only that alpha (the last in memory) is left out.
        const auto difference = [pa, pb](unsigned shift) {
            return static_cast<std::int32_t>(pa >> shift & 255U) - static_cast<std::int32_t>(pb >> shift & 255U);
        };
        const std::int32_t dr = difference(0);
        const std::int32_t dg = difference(8);
        const std::int32_t db = difference(16);
        changed += dr * dr + dg * dg + db * db > tolerance ? 1 : 0;
    }
    return changed;
}
static_assert(std::endian::native == std::endian::little, "alpha is the high byte of a loaded pixel");

constexpr std::int64_t blockPixels = 1024;
constexpr auto all = std::numeric_limits<std::int64_t>::max();

/// Changed pixels between two runs of `count` pixels; where they are `enough`, perhaps only as many of them. Equal
/// blocks, the usual case, cost one comparison of memory.
std::int64_t changedIn(
    const std::uint8_t* a, const std::uint8_t* b, std::int64_t count, std::int64_t tolerance, std::int64_t enough)
{
    constexpr std::int64_t maxDistance = 3 * 255 * 255;
    const auto limit = static_cast<std::int32_t>(std::min(tolerance, maxDistance));
    std::int64_t changed = 0;
    for (std::int64_t done = 0; done < count && changed < enough; done += blockPixels) {
        const std::int64_t block = std::min(blockPixels, count - done);
        const std::uint8_t* left = a + 4 * done;
        const std::uint8_t* right = b + 4 * done;
        if (std::memcmp(left, right, static_cast<std::size_t>(4 * block)) != 0)
            changed += changedAmong(left, right, block, limit);
    }
    return changed;
}

/// `changedIn` for two frames of one size: bands that they share cost nothing.
std::int64_t changedBetween(const RGBAFrame& a, const RGBAFrame& b, std::int64_t tolerance, std::int64_t enough)
{
    if (tolerance < 0)
        return a.pixelCount(); // a distance of zero is above it already
    std::int64_t changed = 0;
    for (std::int64_t band = 0; band < a.bandCount() && changed < enough; ++band) {
        if (a.sharesBand(b, band))
            continue;
        const PixelView left = a.band(band);
        const PixelView right = b.band(band);
        changed += changedIn(
            left.data(), right.data(), std::ssize(left) / RGBAFrame::bytesPerPixel, tolerance, enough - changed);
    }
    return changed;
}

} // namespace

std::int64_t changedPixels(const RGBAFrame& a, const RGBAFrame& b, std::int64_t perPixelTolerance)
{
    precondition(a.width() == b.width() && a.height() == b.height(), "only frames of one size are compared by pixel");
    return changedBetween(a, b, perPixelTolerance, all);
}

double fractionChanged(const RGBAFrame& a, const RGBAFrame& b, std::int64_t perPixelTolerance)
{
    if (a.width() != b.width() || a.height() != b.height() || a.pixelCount() < 1)
        return 1.0;
    return static_cast<double>(changedPixels(a, b, perPixelTolerance)) / static_cast<double>(a.pixelCount());
}

bool changesMoreThan(const RGBAFrame& a, const RGBAFrame& b, std::int64_t perPixelTolerance, double threshold)
{
    if (a.width() != b.width() || a.height() != b.height() || a.pixelCount() < 1)
        return threshold < 1.0; // entirely changed
    const std::int64_t pixels = a.pixelCount();
    const auto exceeds = [pixels, threshold](std::int64_t changed) {
        return static_cast<double>(changed) / static_cast<double>(pixels) > threshold;
    };
    // The least number of changed pixels that exceeds the threshold: near the product, whose rounding does not matter.
    auto enough = static_cast<std::int64_t>(std::floor(std::clamp(threshold, 0.0, 1.0) * static_cast<double>(pixels)));
    while (enough > 0 && exceeds(enough - 1))
        --enough;
    while (enough <= pixels && !exceeds(enough))
        ++enough;
    return changedBetween(a, b, perPixelTolerance, enough) >= enough;
}

} // namespace quillbox::FrameDeduplicator
