#include "Capture/StreamRecorder.h"

#include "Capture/LiveIntake.h"

#include <QCoreApplication>
#include <QPointer>

#include <algorithm>
#include <mutex>
#include <utility>
#include <variant>

namespace quillbox {

/// Where the streams' threads leave what the main thread then takes. An event tells that there is something.
class StreamRecorder::Inbox {
public:
    struct Delivery {
        std::shared_ptr<Session> session;
        CaptureClock::time_point time;
        std::variant<RGBAFrame, CaptureError> content; // a picture, or why there won't be another
    };

    /// @param recorder  Who to tell, as long as it exists.
    explicit Inbox(StreamRecorder* recorder)
        : m_recorder(recorder)
    {
    }

    void put(Delivery delivery)
    {
        {
            const std::scoped_lock lock(m_mutex);
            m_deliveries.push_back(std::move(delivery));
        }
        if (m_recorder)
            QCoreApplication::postEvent(m_recorder, new QEvent(QEvent::User)); // the event queue owns it
    }

    [[nodiscard]] std::vector<Delivery> takeAll()
    {
        const std::scoped_lock lock(m_mutex);
        return std::exchange(m_deliveries, {});
    }

private:
    QPointer<StreamRecorder> m_recorder;
    std::mutex m_mutex;
    std::vector<Delivery> m_deliveries;
};

StreamRecorder::StreamRecorder(StreamFactory makeStream, Now now, QObject* parent)
    : QObject(parent)
    , m_makeStream(std::move(makeStream))
    , m_now(std::move(now))
    , m_inbox(std::make_shared<Inbox>(this))
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
    session->intake = std::make_shared<LiveIntake>();
    m_starting.push_back(m_makeStream());
    CaptureStream* const stream = m_starting.back().get();
    try {
        auto starting = stream->start(region.normalized(), sinkFor(session));
        co_await starting;
    } catch (const CaptureError& error) {
        if (self)
            (void)takeStarting(stream); // it never ran
        if (error.reason() == CaptureError::Reason::NoDisplay)
            throw RecorderError(RecorderError::noDisplay);
        throw;
    } catch (...) {
        if (self)
            (void)takeStarting(stream);
        throw;
    }
    if (!self)
        co_return; // the stream went with the recorder
    m_stream = takeStarting(stream);
    m_session = std::move(session); // what arrived before this moment belongs to the recording
    setRecording(true);
    if (self && !m_session->interruption.isEmpty()) // it ended before we were told that it had begun
        Q_EMIT interrupted(m_session->interruption);
}

QCoro::Task<std::vector<RGBAFrame>> StreamRecorder::stop()
{
    const auto session = m_session;
    if (!m_isRecording)
        co_return session->timeline.frames();
    const QPointer self(this);
    const auto stoppedAt = m_now();
    try {
        auto stopping = m_stream->stop();
        co_await stopping;
    } catch (const std::exception&) { // the frames are here already; a capture that can't be ended costs nothing more
    }
    if (self)
        takeDeliveries(); // what the stream handed over before it ended
    session->timeline.finish(stoppedAt);
    if (self && m_isRecording && m_session == session) { // unless another stop() was faster
        m_stream.reset();
        m_hold.reset();
        setRecording(false);
    }
    co_return session->timeline.frames();
}

std::shared_ptr<LiveIntake> StreamRecorder::intake() const
{
    return m_session->intake;
}

std::int64_t StreamRecorder::frameCount() const
{
    return m_session->timeline.frameCount(m_now());
}

std::optional<CaptureRegion> StreamRecorder::region() const
{
    return m_isRecording ? std::optional(m_session->region) : std::nullopt;
}

void StreamRecorder::holdPicture()
{
    takeDeliveries(); // taken before anything covered it
    if (m_isRecording && !m_hold)
        m_hold.emplace();
}

void StreamRecorder::releasePicture()
{
    takeDeliveries();
    const auto hold = std::exchange(m_hold, std::nullopt);
    if (hold && hold->latest)
        deliver(*m_session, *hold->latest, m_now());
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

FrameSink StreamRecorder::sinkFor(const std::shared_ptr<Session>& session)
{
    // Both run on the stream's thread, which ends before this object does.
    FrameSink sink;
    sink.frame = [session, inbox = m_inbox](RGBAFrame frame, CaptureClock::time_point shownAt) {
        inbox->put({session, shownAt, std::move(frame)});
    };
    sink.ended = [session, inbox = m_inbox, now = m_now](CaptureError reason) {
        inbox->put({session, now(), std::move(reason)});
    };
    return sink;
}

void StreamRecorder::customEvent(QEvent* /*event*/)
{
    takeDeliveries(); // the only event of our own; one too many does no harm
}

void StreamRecorder::takeDeliveries()
{
    for (Inbox::Delivery& delivery : m_inbox->takeAll()) {
        auto* const frame = std::get_if<RGBAFrame>(&delivery.content);
        if (frame != nullptr && m_hold && delivery.session == m_session)
            m_hold->latest = std::move(*frame);
        else if (frame != nullptr)
            deliver(*delivery.session, std::move(*frame), delivery.time);
        else
            end(delivery.session, delivery.time, std::get<CaptureError>(delivery.content));
    }
}

void StreamRecorder::deliver(Session& session, RGBAFrame frame, CaptureClock::time_point time)
{
    session.timeline.deliver(std::move(frame), time);
    if (!session.timeline.isFinished()) // a picture that comes later is in no clip
        session.intake->follow(session.timeline.frames());
}

void StreamRecorder::end(
    const std::shared_ptr<Session>& session, CaptureClock::time_point time, const CaptureError& reason)
{
    session->timeline.finish(time);
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
