#include "App/FrameSources/BackgroundIntake.h"

#include "Encoding/Precondition.h"

#include <utility>

namespace quillbox {
namespace {

constexpr std::size_t largestQueue = 4; // frames

} // namespace

BackgroundIntake::BackgroundIntake(ExportPreset preset, std::optional<std::int64_t> sourceFPS)
    : m_preset(preset)
    , m_sourceFPS(sourceFPS)
{
}

BackgroundIntake::~BackgroundIntake()
{
    stop();
}

void BackgroundIntake::setRate(std::int64_t framesPerSecond)
{
    precondition(!m_intake, "a rate is known before the first frame");
    if (!m_sourceFPS)
        m_sourceFPS = framesPerSecond;
}

void BackgroundIntake::take(const RGBAFrame& frame)
{
    if (!m_intake) {
        m_intake = FrameIntake::shrinking(m_sourceFPS.value_or(defaultFPS), m_preset);
        m_thread = std::thread([this] { work(); });
    }
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [this] { return m_waiting.size() < largestQueue || m_error; });
    m_waiting.push_back(frame);
    m_changed.notify_all();
}

const FrameIntake& BackgroundIntake::finished()
{
    precondition(m_intake.has_value(), "an input has a frame");
    stop();
    if (m_error)
        std::rethrow_exception(m_error);
    return *m_intake;
}

void BackgroundIntake::work()
{
    std::unique_lock lock(m_mutex);
    for (;;) {
        m_changed.wait(lock, [this] { return !m_waiting.empty() || m_isComplete; });
        if (m_waiting.empty())
            return;
        const RGBAFrame frame = std::move(m_waiting.front());
        m_waiting.pop_front();
        m_changed.notify_all();
        lock.unlock();
        try {
            m_intake->append(frame);
        } catch (...) { // out of memory
            lock.lock();
            m_error = std::current_exception();
            m_changed.notify_all();
            return;
        }
        lock.lock();
    }
}

void BackgroundIntake::stop()
{
    {
        const std::scoped_lock lock(m_mutex);
        m_isComplete = true;
        m_changed.notify_all();
    }
    if (m_thread.joinable())
        m_thread.join();
}

} // namespace quillbox
