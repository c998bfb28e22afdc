#include "Encoding/FrameDeduplicator.h"

#include "Encoding/FrameComparisons.h"

#include <algorithm>

namespace quillbox::FrameDeduplicator {
namespace {

constexpr std::int64_t maxDelay = 65535; // what a GIF frame can carry

} // namespace

Deduplicator::Deduplicator(std::int64_t perFrameDelayCentiseconds, double changeThreshold)
    : m_delayCentiseconds(perFrameDelayCentiseconds)
    , m_changeThreshold(changeThreshold)
{
}

bool Deduplicator::append(const RGBAFrame& frame, FrameComparisons& comparisons)
{
    if (!m_last || comparisons.changesMoreThan(*m_last, m_changeThreshold)) {
        m_kept.push_back({frame, m_delayCentiseconds});
        m_last = frame;
        return true;
    }
    std::int64_t& delay = m_kept.back().delayCentiseconds;
    if (__builtin_add_overflow(delay, m_delayCentiseconds, &delay))
        delay = maxDelay;
    delay = std::min(delay, maxDelay);
    return false;
}

void Deduplicator::replaceLast(const RGBAFrame& substitute)
{
    precondition(!m_kept.empty(), "a frame was kept");
    m_kept.back().frame = substitute;
}

std::vector<Timed> deduplicate(
    std::span<const RGBAFrame> frames, std::int64_t perFrameDelayCentiseconds, double changeThreshold)
{
    Deduplicator deduplicator(perFrameDelayCentiseconds, changeThreshold);
    FrameComparisons comparisons;
    for (const RGBAFrame& frame : frames) {
        comparisons.turnTo(frame);
        (void)deduplicator.append(frame, comparisons); // all that matters here is what is kept in the end
    }
    return deduplicator.kept();
}

} // namespace quillbox::FrameDeduplicator
