#include "App/FrameSources/BackgroundReducer.h"

#include "Encoding/Precondition.h"

#include <algorithm>
#include <utility>

namespace quillbox {
namespace {

constexpr std::size_t maxQueue = 4; // frames

} // namespace

BackgroundReducer::BackgroundReducer(ExportPreset preset, FrameReducer::OnKept onKept, Parallelism parallelism)
    : m_preset(preset)
    , m_onKept(std::move(onKept))
    , m_parallelism(parallelism)
{
}

void BackgroundReducer::setRate(FrameRate rate)
{
    precondition(!m_thread && !m_reducer, "a rate is known before the first frame");
    precondition(rate.seconds == 1, "a whole number of frames per second");
    m_sourceFPS = rate.frames;
}

void BackgroundReducer::take(const RGBAFrame& frame)
{
    if (!m_thread && !m_reducer) {
        const int threads = m_parallelism.threads; // the caller's is one of them
        const Parallelism ofReducer{threads == 0 ? 0 : std::max(threads - 1, 1)};
        FrameReducer reducer = FrameReducer::sparing(m_sourceFPS, m_preset, m_onKept, ofReducer);
        if (m_parallelism.threads == 1)
            m_reducer.emplace(std::move(reducer));
        else
            m_thread.emplace(std::move(reducer), maxQueue);
    }
    if (m_reducer)
        m_reducer->append(frame);
    else
        m_thread->take(frame);
}

const FrameReducer& BackgroundReducer::finished()
{
    precondition(m_thread || m_reducer, "an input has a frame");
    return m_reducer ? *m_reducer : m_thread->finished();
}

} // namespace quillbox
