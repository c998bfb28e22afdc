#include "Capture/Portal/CastPicture.h"

#include "Capture/PipeWire/PipeWireStream.h"
#include "Capture/Portal/PortalSource.h"
#include "Capture/Portal/ScreenCastPortal.h"

#include <QCoro/QCoroFuture>
#include <QCoro/QCoroTimer>

#include <chrono>
#include <memory>
#include <mutex>
#include <utility>

namespace quillbox {
namespace {

/// More than any monitor shows; a stream cuts what it is asked for to what there is.
constexpr CaptureRegion everything{0, 0, 1 << 20, 1 << 20};

/// The screen rests when it has shown nothing new for so long: the windows that were closed for the cast, our panel and
/// the question for the screen, have then faded out.
constexpr std::chrono::milliseconds restTime{100};
/// Some screens never rest.
constexpr std::chrono::milliseconds restLimit{300};
constexpr std::chrono::milliseconds restInterval{10};

/// What the stream has shown. Thread: any.
class Snapshot {
public:
    void take(const RGBAFrame& frame)
    {
        const std::scoped_lock lock(m_mutex);
        m_picture = frame;
        m_changedAt = CaptureClock::now();
    }
    void setPoints(std::optional<PixelSize> points)
    {
        const std::scoped_lock lock(m_mutex);
        if (!m_picture)
            m_points = points;
    }
    [[nodiscard]] bool hasPicture() const
    {
        const std::scoped_lock lock(m_mutex);
        return m_picture.has_value();
    }
    void fail(const CaptureError& reason)
    {
        const std::scoped_lock lock(m_mutex);
        m_failure = reason;
    }
    /// @throws CaptureError  nothing follows any more.
    [[nodiscard]] bool isAtRest() const
    {
        const std::scoped_lock lock(m_mutex);
        if (m_failure)
            throw CaptureError(*m_failure);
        return CaptureClock::now() - m_changedAt >= restTime;
    }
    [[nodiscard]] CastPicture result(std::optional<QPoint> position) const
    {
        const std::scoped_lock lock(m_mutex);
        return {*m_picture, m_points, position};
    }

private:
    mutable std::mutex m_mutex;
    std::optional<RGBAFrame> m_picture; // the latest
    std::optional<PixelSize> m_points;  // of the first
    CaptureClock::time_point m_changedAt;
    std::optional<CaptureError> m_failure;
};

/// The same source, but in its own pixels; the points are noted.
PipeWireStream::Source inPixels(PipeWireStream::Source source, const std::shared_ptr<Snapshot>& snapshot)
{
    source.points = [ask = std::move(source.points), snapshot](PixelSize picture) {
        if (!snapshot->hasPicture())
            snapshot->setPoints(ask(picture));
        return std::optional<PixelSize>();
    };
    return source;
}

FrameSink sinkOf(const std::shared_ptr<Snapshot>& snapshot)
{
    FrameSink sink;
    sink.frame = [snapshot](const RGBAFrame& frame, CaptureClock::time_point) {
        snapshot->take(frame);
    };
    sink.ended = [snapshot](const CaptureError& reason) {
        snapshot->fail(reason);
    };
    return sink;
}

} // namespace

QCoro::Task<CastPicture> firstPicture(ScreenCastPortal& portal, ScreenCast cast)
{
    auto connecting = portal.openRemote();
    auto remote = co_await connecting; // throws if the portal's object is gone
    const auto snapshot = std::make_shared<Snapshot>();
    PipeWireStream stream(
        inPixels(sourceOf(cast, std::move(remote), std::nullopt), snapshot), everything, sinkOf(snapshot));
    const QObject context; // goes before the stream
    QObject::connect(
        &portal, &ScreenCastPortal::ended, &context, [&stream](const CaptureError& reason) { stream.end(reason); });
    QObject::connect(&portal, &QObject::destroyed, &context, [&stream] { stream.end(CaptureError::stopped()); });
    const auto started = stream.started();
    const auto outcome = co_await started;
    if (outcome)
        throw CaptureError(*outcome);
    const auto deadline = CaptureClock::now() + restLimit;
    while (!snapshot->isAtRest() && CaptureClock::now() < deadline) {
        auto pause = QCoro::sleepFor(restInterval);
        co_await pause;
    }
    co_return snapshot->result(cast.facts.position);
}

} // namespace quillbox
