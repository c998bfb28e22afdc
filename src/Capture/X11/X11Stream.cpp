#include "Capture/X11/X11Stream.h"

#include "Capture/X11/ScreenGrabber.h"
#include "Encoding/Precondition.h"
#include "Platform/CancelEvent.h"
#include "Platform/WindowSystem.h"
#include "Platform/X11/X11Display.h"
#include "Translation/Translate.h"

#include <QCoro/QCoroFuture>
#include <QFuture>
#include <QGuiApplication>
#include <QPromise>
#include <QScreen>

#include <pthread.h>
#include <sys/socket.h>

#include <atomic>
#include <limits>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>

namespace quillbox {

namespace {

/// The moment of a tick, counted from the first one.
CaptureClock::time_point tickTime(CaptureClock::time_point start, std::int64_t tick)
{
    constexpr std::int64_t ticksPerSecond = 30;
    return start + std::chrono::nanoseconds(checkedMul(tick, std::int64_t{1'000'000'000}) / ticksPerSecond);
}

/// Device pixels a point in the windows of this process; none if it has none on the X server. Its settings are many,
/// and it alone knows what they come to. Thread: main.
std::optional<double> toolkitScale()
{
    const bool hasWindows = qobject_cast<QGuiApplication*>(QCoreApplication::instance()) != nullptr;
    if (!hasWindows || toolkitWindowSystem() != WindowSystem::X11)
        return std::nullopt;
    const auto* const screen = QGuiApplication::primaryScreen();
    return screen == nullptr ? std::nullopt : std::optional(screen->devicePixelRatio());
}

} // namespace

/// The thread that captures. Its connection stays open until the thread has been joined.
class X11Stream::Worker {
public:
    using StartOutcome = std::optional<CaptureError>; // none: it runs

    Worker(CaptureRegion region, FrameSink sink)
        : m_region(region)
        , m_sink(std::move(sink))
    {
        m_started.start();
        m_ended.start();
        m_thread = std::thread([this] { run(); });
    }
    ~Worker()
    {
        requestStop();
        m_thread.join();
    }
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    [[nodiscard]] QFuture<StartOutcome> started() { return m_started.future(); }
    [[nodiscard]] QFuture<void> ended() { return m_ended.future(); }

    void requestPicture(CaptureClock::time_point moment) { m_requested = moment.time_since_epoch().count(); }

    void requestStop()
    {
        m_stop.raise();
        const int socket = m_socket;
        if (socket >= 0)
            (void)::shutdown(socket, SHUT_RDWR); // ends a wait for a server that does not answer; it may be gone
    }

private:
    void run();
    void capture();
    [[nodiscard]] bool takeRequest(CaptureClock::time_point time);
    void reportStart(StartOutcome outcome);

    CaptureRegion m_region;
    std::optional<double> m_scale = toolkitScale();
    FrameSink m_sink;
    CancelEvent m_stop;
    std::atomic<int> m_socket = -1;
    static constexpr CaptureClock::rep noRequest = std::numeric_limits<CaptureClock::rep>::max();
    std::atomic<CaptureClock::rep> m_requested = noRequest; // the moment of a picture that is to come in any case
    std::optional<X11Display> m_display;
    QPromise<StartOutcome> m_started;
    QPromise<void> m_ended;
    bool m_isRunning = false; // start() has succeeded
    std::thread m_thread;
};

void X11Stream::Worker::run()
{
    (void)::pthread_setname_np(::pthread_self(), "screen capture"); // for those who look at the process
    StartOutcome failure;
    try {
        capture();
    } catch (const CaptureError& error) {
        failure = error;
    } catch (const DisplayError& error) {
        failure.emplace(error);
    } catch (const std::exception& error) { // out of memory
        failure = CaptureError::failed(error);
    }
    if (m_stop.isRaised()) // whatever broke then, broke because of it
        failure = CaptureError::stopped();
    if (!m_isRunning)
        reportStart(failure);
    else if (!m_stop.isRaised())
        m_sink.ended(*failure);
    m_ended.finish();
}

void X11Stream::Worker::capture()
{
    m_display.emplace();
    m_socket = m_display->socket();
    if (m_stop.isRaised()) // before the socket was known
        return;
    ScreenGrabber grabber(*m_display, m_region, m_scale.value_or(m_display->scale()));
    auto first = grabber.grab();
    if (!first)
        throw CaptureError(
            CaptureError::Reason::Unreadable, translate("CaptureError", "The X11 display refuses to show its pixels"));
    const auto start = CaptureClock::now();
    m_sink.frame(std::move(*first), start);
    m_isRunning = true;
    reportStart(std::nullopt);

    for (std::int64_t tick = 1; m_stop.waitUntil(tickTime(start, tick)); ++tick) {
        while (tickTime(start, tick + 1) <= CaptureClock::now())
            ++tick; // held up: those are lost
        if (takeRequest(tickTime(start, tick)))
            grabber.fetchAnew();
        if (auto frame = grabber.grab())
            m_sink.frame(std::move(*frame), tickTime(start, tick));
    }
}

/// Whether the picture of the tick at `time`, which is taken after that, answers a request; then it is taken back.
bool X11Stream::Worker::takeRequest(CaptureClock::time_point time)
{
    CaptureClock::rep requested = m_requested;
    return requested <= time.time_since_epoch().count() && m_requested.compare_exchange_strong(requested, noRequest);
}

void X11Stream::Worker::reportStart(StartOutcome outcome)
{
    m_started.addResult(std::move(outcome));
    m_started.finish();
}

X11Stream::X11Stream() = default;
X11Stream::~X11Stream() = default;

QCoro::Task<> X11Stream::start(CaptureRegion region, FrameSink sink)
{
    precondition(!m_worker, "a stream is started once");
    try {
        m_worker = std::make_unique<Worker>(region, std::move(sink));
    } catch (const std::system_error& error) { // no thread, or no descriptor for it
        throw CaptureError::failed(error);
    }
    const QFuture<Worker::StartOutcome> started = m_worker->started();
    const Worker::StartOutcome outcome = co_await started; // this object may be gone from here on
    if (outcome)
        throw CaptureError(*outcome);
}

bool X11Stream::requestPicture(CaptureClock::time_point moment)
{
    m_worker->requestPicture(moment);
    return true;
}

QCoro::Task<> X11Stream::stop()
{
    if (!m_worker)
        co_return;
    m_worker->requestStop();
    const QFuture<void> ended = m_worker->ended();
    co_await ended;
}

} // namespace quillbox
