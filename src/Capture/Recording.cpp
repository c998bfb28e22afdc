#include "Capture/Recording.h"

#include "Capture/RecordingReducer.h"
#include "Capture/Spill/FrameSpill.h"

#include <utility>

namespace quillbox {

Recording::Recording(std::vector<RGBAFrame> frames)
    : Recording(std::move(frames), std::make_shared<RecordingReducer>())
{
    m_reducer->follow(*m_frames);
}

Recording::Recording(std::vector<RGBAFrame> frames, std::shared_ptr<RecordingReducer> reducer)
    : m_frames(std::make_shared<const std::vector<RGBAFrame>>(std::move(frames)))
    , m_reducer(std::move(reducer))
{
}

const FrameReducer& Recording::reduced() const
{
    precondition(!m_frames->empty(), "a recording that is encoded has a frame");
    return m_reducer->finished();
}

Recording Recording::measuredAnew() const
{
    auto reducer = std::make_shared<RecordingReducer>();
    reducer->follow(frames(), m_reducer->held());
    Recording recording(frames(), std::move(reducer));
    recording.m_removeBackup = m_removeBackup;
    return recording;
}

void Recording::setBackup(std::function<void()> remove)
{
    m_removeBackup = std::move(remove);
}

void Recording::settle() const
{
    if (m_removeBackup)
        m_removeBackup();
}

std::int64_t Recording::distinctCount() const
{
    (void)reduced();
    return m_reducer->distinctCount();
}

void Recording::moveToDisk() const
{
    try {
        FrameSpill::moveToFile(frames(), FrameSpill::usualLimits().diskSpaceToLeave, FrameSpill::usualFolder());
    } catch (const SpillError&) {
        // What found no room stays in memory.
    }
}

std::int64_t Recording::fileBytes() const
{
    (void)reduced();
    return m_reducer->fileBytes();
}

} // namespace quillbox
