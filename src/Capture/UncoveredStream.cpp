#include "Capture/UncoveredStream.h"

#include "Capture/FrameTimeline.h"
#include "Encoding/Precondition.h"

#include <QCoro/QCoroTimer>

#include <algorithm>
#include <chrono>
#include <mutex>
#include <optional>
#include <utility>

namespace quillbox {
namespace {

/// How often it is asked whether the time has come, where no picture says so.
constexpr std::chrono::milliseconds gateInterval{10};

/// The latest of the moments, a thirtieth of a second apart, one of which is `tick`, that is not after `now`.
CaptureClock::time_point latestTick(CaptureClock::time_point tick, CaptureClock::time_point now)
{
    constexpr std::int64_t rate = FrameTimeline::framesPerSecond;
    constexpr std::int64_t second = std::chrono::nanoseconds(std::chrono::seconds(1)).count();
    const auto elapsed = std::chrono::nanoseconds(std::max(now, tick) - tick).count();
    const std::int64_t ticks = checkedMul<std::int64_t>(elapsed, rate) / second;
    return tick + std::chrono::nanoseconds(ticks * second / rate);
}

} // namespace

/// Between the stream's thread and the main one: keeps the pictures until one of them may begin.
class UncoveredStream::Gate {
public:
    using Now = std::function<CaptureClock::time_point()>;

    Gate(OverlayRemains remains, CaptureClock::time_point hiddenAt, Now now)
        : m_remains(std::move(remains))
        , m_hiddenAt(hiddenAt)
        , m_now(std::move(now))
    {
    }

    void setSink(FrameSink sink)
    {
        const std::scoped_lock lock(m_mutex);
        m_sink = std::move(sink);
    }

    void take(RGBAFrame frame, CaptureClock::time_point shownAt)
    {
        const std::scoped_lock lock(m_mutex);
        if (m_failure)
            return;
        if (m_isOpen) {
            m_sink.frame(std::move(frame), std::max(shownAt, m_openedAt));
            return;
        }
        const auto likeness = m_remains.likenessOf(frame);
        m_latest.emplace(Picture{std::move(frame), shownAt, m_now(), likeness});
        openIfTime();
    }

    void end(const CaptureError& reason)
    {
        const std::scoped_lock lock(m_mutex);
        if (m_failure)
            return;
        m_failure = reason;
        if (m_isOpen)
            m_sink.ended(reason);
    }

    /// Nothing gets through that has not yet.
    void giveUp()
    {
        const std::scoped_lock lock(m_mutex);
        if (!m_isOpen && !m_failure)
            m_failure = CaptureError::stopped();
    }

    /// Whether the first picture has got through. @throws CaptureError  none will.
    [[nodiscard]] bool isOpen()
    {
        const std::scoped_lock lock(m_mutex);
        if (!m_isOpen && m_failure)
            throw CaptureError(*m_failure);
        openIfTime();
        return m_isOpen;
    }

    [[nodiscard]] bool letRemainsThrough()
    {
        const std::scoped_lock lock(m_mutex);
        return m_letRemainsThrough;
    }

private:
    struct Picture {
        RGBAFrame frame;
        CaptureClock::time_point shownAt;
        CaptureClock::time_point cameAt;
        OverlayRemains::Likeness likeness;
    };

    void openIfTime()
    {
        if (m_isOpen || !m_latest)
            return;
        const auto now = m_now();
        const auto answer = OverlayRemains::answer(m_latest->likeness, now - m_hiddenAt, now - m_latest->cameAt);
        if (answer == OverlayRemains::Answer::Wait)
            return;
        m_isOpen = true;
        m_letRemainsThrough = answer == OverlayRemains::Answer::BeginAnyway;
        m_openedAt = latestTick(m_latest->shownAt, now);
        m_sink.frame(std::exchange(m_latest, std::nullopt)->frame, m_openedAt);
    }

    OverlayRemains m_remains;
    CaptureClock::time_point m_hiddenAt;
    Now m_now;
    std::mutex m_mutex; // guards what follows
    FrameSink m_sink;
    std::optional<Picture> m_latest; // until it is open
    bool m_isOpen = false;
    bool m_letRemainsThrough = false;
    CaptureClock::time_point m_openedAt;
    std::optional<CaptureError> m_failure;
};

UncoveredStream::UncoveredStream(std::unique_ptr<CaptureStream> stream, OverlayRemains remains,
    CaptureClock::time_point hiddenAt, std::function<void()> onRemainsLeft,
    std::function<CaptureClock::time_point()> now)
    : m_gate(std::make_shared<Gate>(std::move(remains), hiddenAt, std::move(now)))
    , m_stream(std::move(stream))
    , m_onRemainsLeft(std::move(onRemainsLeft))
{
}

UncoveredStream::~UncoveredStream()
{
    m_stream.reset(); // it calls nothing any more
    m_gate->giveUp();
}

QCoro::Task<> UncoveredStream::start(CaptureRegion region, FrameSink sink)
{
    const auto gate = m_gate; // this object may be gone after each wait
    const auto onRemainsLeft = m_onRemainsLeft;
    gate->setSink(std::move(sink));
    FrameSink gated;
    gated.frame = [gate](RGBAFrame frame, CaptureClock::time_point shownAt) {
        gate->take(std::move(frame), shownAt);
    };
    gated.ended = [gate](const CaptureError& reason) {
        gate->end(reason);
    };
    auto starting = m_stream->start(region, std::move(gated));
    co_await starting;
    while (!gate->isOpen()) {
        auto pause = QCoro::sleepFor(gateInterval);
        co_await pause;
    }
    if (gate->letRemainsThrough() && onRemainsLeft)
        onRemainsLeft();
}

QCoro::Task<> UncoveredStream::stop()
{
    m_gate->giveUp();
    auto stopping = m_stream->stop();
    co_await stopping;
}

} // namespace quillbox
