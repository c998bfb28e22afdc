#include "App/FrameSources/BackgroundIntake.h"

#include "Encoding/Precondition.h"

#include <utility>

namespace quillbox {
namespace {

constexpr std::size_t largestQueue = 4; // frames

} // namespace

BackgroundIntake::BackgroundIntake(
    ExportPreset preset, std::optional<std::int64_t> sourceFPS, FrameIntake::Keeper keeper)
    : m_preset(preset)
    , m_sourceFPS(sourceFPS)
    , m_keeper(std::move(keeper))
{
}

void BackgroundIntake::setRate(std::int64_t framesPerSecond)
{
    precondition(!m_thread, "a rate is known before the first frame");
    if (!m_sourceFPS)
        m_sourceFPS = framesPerSecond;
}

void BackgroundIntake::take(const RGBAFrame& frame)
{
    if (!m_thread)
        m_thread.emplace(FrameIntake::sparing(m_sourceFPS.value_or(defaultFPS), m_preset, m_keeper), largestQueue);
    m_thread->take(frame);
}

const FrameIntake& BackgroundIntake::finished()
{
    precondition(m_thread.has_value(), "an input has a frame");
    return m_thread->finished();
}

} // namespace quillbox
