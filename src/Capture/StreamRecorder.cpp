#include "Capture/StreamRecorder.h"

#include "Capture/RecordingReducer.h"
#include "Capture/ScreenSession.h"
#include "Platform/Detach.h"

#include <QPointer>

#include <algorithm>
#include <utility>

namespace quillbox {
namespace {

/// Ends a stream that is starting; its start() tells what came of it.
QCoro::Task<> giveUp(CaptureStream& stream)
{
    try {
        auto stopping = stream.stop();
        co_await stopping;
    } catch (const CaptureError&) { // it delivers nothing even so
    }
}

} // namespace

StreamRecorder::StreamRecorder()
    : StreamRecorder(std::make_shared<ScreenSession>())
{
}

StreamRecorder::StreamRecorder(std::shared_ptr<ScreenSession> screen)
    : StreamRecorder([screen = std::move(screen)] { return screen->makeStream(); }, &CaptureClock::now, std::nullopt,
        RecordingJournal::usualOptions())
{
}

StreamRecorder::StreamRecorder(StreamFactory makeStream, Now now, std::optional<FrameSpill::Limits> limits,
    std::optional<RecordingJournal::Options> journal)
    : m_makeStream(std::move(makeStream))
    , m_now(std::move(now))
    , m_limits(limits)
    , m_journal(std::move(journal))
    , m_deliveries(*this, [this] { takeDeliveries(); })
    , m_session(std::make_shared<Session>())
{
}

StreamRecorder::~StreamRecorder()
{
    // While this object is whole: a stream may call its sink until its destructor returns.
    m_starting.clear();
    m_stream.reset();
}

QCoro::Task<> StreamRecorder::start(CaptureRegion region)
{
    if (m_isRecording)
        co_return;
    const QPointer self(this);
    auto session = std::make_shared<Session>();
    session->region = region.normalized();
    session->timeline = FrameTimeline(m_maxFrames);
    session->reducer = makeReducer();
    session->journal = makeJournal();
    m_starting.push_back(m_makeStream());
    CaptureStream* const stream = m_starting.back().get();
    try {
        auto starting = stream->start(region.normalized(), sinkFor(session));
        co_await starting;
    } catch (const CaptureError& error) {
        if (self)
            (void)takeStarting(stream); // it never ran
        removeJournal(*session);
        if (error.reason() == CaptureError::Reason::NoDisplay)
            throw RecorderError(RecorderError::noDisplay);
        throw;
    } catch (...) {
        if (self)
            (void)takeStarting(stream);
        removeJournal(*session);
        throw;
    }
    if (!self)
        co_return; // the stream went with the recorder
    m_stream = takeStarting(stream);
    m_session = std::move(session); // what arrived before this moment belongs to the recording
    setRecording(true);
    if (!self)
        co_return;
    if (!m_session->interruption.isEmpty()) // it ended before we were told that it had begun
        Q_EMIT interrupted(m_session->interruption);
    else
        takeDeliveries(); // there may have been no room for the first picture
}

void StreamRecorder::giveUpStart()
{
    for (const auto& stream : m_starting)
        detach(giveUp(*stream));
}

QCoro::Task<Recording> StreamRecorder::stop()
{
    const auto session = m_session;
    if (!m_isRecording)
        co_return recordingOf(*session);
    const QPointer self(this);
    const bool isHeld = m_hold && !m_hold->releasedAt;
    const auto stoppedAt = isHeld ? std::min(m_now(), m_hold->since + heldTail) : m_now();
    try {
        auto stopping = m_stream->stop();
        co_await stopping;
    } catch (const std::exception&) { // the frames are here already; a capture that can't be ended costs nothing more
    }
    if (self)
        takeDeliveries(); // what the stream handed over before it ended
    finish(*session, stoppedAt);
    if (self && m_isRecording && m_session == session) { // unless another stop() was faster
        m_stream.reset();
        m_hold.reset();
        setRecording(false);
    }
    co_return recordingOf(*session);
}

std::int64_t StreamRecorder::frameCount() const
{
    return m_session->timeline.frameCount(m_now());
}

std::optional<CaptureRegion> StreamRecorder::region() const
{
    return m_isRecording ? std::optional(m_session->region) : std::nullopt;
}

void StreamRecorder::holdPicture(const void* holder)
{
    takeDeliveries(); // taken before anything covered it
    if (m_hold) {
        m_hold->holders.insert(holder);
        m_hold->releasedAt.reset();
    }
    if (!m_isRecording || m_hold)
        return;
    const auto now = m_now();
    m_hold.emplace(Hold{.since = now, .changedAt = now, .holders = {holder}});
    m_session->timeline.hold(now);
    noteHold();
}

/// Once there is a picture that is held.
void StreamRecorder::noteHold()
{
    if (!m_hold || m_hold->isInJournal || !m_session->journal)
        return;
    if (const auto firstFrame = m_session->timeline.heldFrom()) {
        m_session->journal->hold(*firstFrame);
        m_hold->isInJournal = true;
    }
}

void StreamRecorder::releasePicture(const void* holder)
{
    takeDeliveries();
    if (!m_hold || m_hold->holders.erase(holder) == 0 || !m_hold->holders.empty())
        return;
    const auto now = m_now();
    if (m_session->timeline.hasPicture() && m_stream->requestPicture(now))
        m_hold->releasedAt = now;
    else
        resume(now);
}

void StreamRecorder::resume(CaptureClock::time_point time)
{
    const auto hold = std::exchange(m_hold, std::nullopt);
    if (hold->isInJournal)
        m_session->journal->resume(m_session->timeline.frameAt(time));
    m_session->timeline.resume(time);
    if (hold->latest)
        deliver(*m_session, *hold->latest, time);
}

std::chrono::nanoseconds StreamRecorder::restWhileHeld() const
{
    return m_hold ? m_now() - m_hold->changedAt : std::chrono::nanoseconds::zero();
}

void StreamRecorder::noteWhileHeld(RGBAFrame frame, CaptureClock::time_point time)
{
    m_hold->latest = std::move(frame);
    m_hold->changedAt = m_now();
    if (m_hold->releasedAt && time >= *m_hold->releasedAt)
        resume(time);
}

std::unique_ptr<CaptureStream> StreamRecorder::takeStarting(const CaptureStream* stream)
{
    const auto place = std::find_if(m_starting.begin(), m_starting.end(),
        [stream](const std::unique_ptr<CaptureStream>& candidate) { return candidate.get() == stream; });
    precondition(place != m_starting.end(), "a stream that is starting is kept");
    auto taken = std::move(*place);
    m_starting.erase(place);
    return taken;
}

std::shared_ptr<RecordingReducer> StreamRecorder::makeReducer() const
{
    FrameSpill store(m_limits.value_or(FrameSpill::usualLimits()), FrameSpill::usualFolder());
    return std::make_shared<RecordingReducer>(std::move(store), [sender = m_deliveries.sender()] { sender.wake(); });
}

std::shared_ptr<RecordingJournal> StreamRecorder::makeJournal() const
{
    if (!m_journal)
        return nullptr;
    auto options = *m_journal;
    options.maxFrames = std::min(options.maxFrames, m_maxFrames);
    return std::make_shared<RecordingJournal>(std::move(options));
}

void StreamRecorder::removeJournal(const Session& session)
{
    if (session.journal)
        session.journal->remove();
}

FrameSink StreamRecorder::sinkFor(const std::shared_ptr<Session>& session)
{
    // Both run on the stream's thread, which ends before this object does.
    FrameSink sink;
    sink.frame = [session, sender = m_deliveries.sender()](RGBAFrame frame, CaptureClock::time_point shownAt) {
        sender.send({session, shownAt, std::move(frame)});
    };
    sink.ended = [session, sender = m_deliveries.sender(), now = m_now](CaptureError reason) {
        sender.send({session, now(), std::move(reason)});
    };
    return sink;
}

void StreamRecorder::takeDeliveries()
{
    for (Delivery& delivery : m_deliveries.take()) {
        auto* const frame = std::get_if<RGBAFrame>(&delivery.content);
        if (frame != nullptr && m_hold && delivery.session == m_session && m_session->timeline.hasPicture())
            noteWhileHeld(std::move(*frame), delivery.time);
        else if (frame != nullptr)
            deliver(*delivery.session, std::move(*frame), delivery.time);
        else
            end(delivery.session, delivery.time, std::get<CaptureError>(delivery.content));
    }
    noteHold();
    const auto reason = m_isRecording ? m_session->reducer->fullReason() : std::string();
    if (!reason.empty() && !m_session->timeline.isFinished())
        end(m_session, m_now(), CaptureError(CaptureError::Reason::NoRoom, reason));
    tellIfImpaired();
}

void StreamRecorder::tellIfImpaired()
{
    if (!m_isRecording || m_session->isImpaired || !m_session->reducer->hasFailed())
        return;
    m_session->isImpaired = true;
    Q_EMIT impaired();
}

void StreamRecorder::deliver(Session& session, RGBAFrame frame, CaptureClock::time_point time)
{
    if (!session.interruption.isEmpty())
        return; // the recording is over, if the stream is not
    if (!session.timeline.isFinished() && session.reducer->isBehind(session.timeline.frames())) {
        session.late.emplace(std::move(frame), time); // the picture before is shown until one can be taken
        return;
    }
    takeLate(session);
    show(session, frame, time);
    if (session.timeline.isFinished()) // the picture came after the recording that was measured
        session.recording.reset();
    else
        session.reducer->follow(session.timeline.frames(), session.timeline.held());
}

void StreamRecorder::show(Session& session, const RGBAFrame& frame, CaptureClock::time_point time)
{
    const bool isFinished = session.timeline.isFinished();
    session.timeline.deliver(frame, time);
    if (session.journal && !isFinished)
        session.journal->take(frame, std::ssize(session.timeline.frames())); // where it begins
}

/// The latest picture of those that could not be taken is in the clip, for as long as it was on the screen.
void StreamRecorder::takeLate(Session& session)
{
    if (session.late && !session.timeline.isFinished())
        show(session, session.late->first, session.late->second);
    session.late.reset();
}

void StreamRecorder::finish(Session& session, CaptureClock::time_point time)
{
    if (session.timeline.isFinished())
        return;
    takeLate(session);
    session.timeline.finish(time);
    session.reducer->follow(session.timeline.frames(), session.timeline.held());
    session.recording.emplace(session.timeline.frames(), session.reducer);
    if (session.reducer->hasFailed())
        session.recording.emplace(session.recording->measuredAnew());
    if (session.journal) {
        session.journal->finish(std::ssize(session.timeline.frames()));
        session.recording->setBackup([journal = session.journal] { journal->remove(); });
    }
}

Recording StreamRecorder::recordingOf(Session& session)
{
    if (!session.recording)
        session.recording.emplace(session.timeline.frames());
    return *session.recording;
}

void StreamRecorder::end(
    const std::shared_ptr<Session>& session, CaptureClock::time_point time, const CaptureError& reason)
{
    finish(*session, time);
    session->interruption = QString::fromUtf8(reason.what());
    if (session == m_session && m_isRecording)
        Q_EMIT interrupted(session->interruption);
}

void StreamRecorder::setRecording(bool next)
{
    Q_EMIT isRecordingAboutToChange(next);
    m_isRecording = next;
    Q_EMIT isRecordingChanged();
}

} // namespace quillbox

#include "moc_StreamRecorder.cpp"
