#include "Capture/PipeWire/PipeWireStream.h"

#include "Capture/PipeWire/BufferReading.h"
#include "Capture/PipeWire/CoreListening.h"
#include "Capture/PipeWire/StreamOffer.h"
#include "Platform/CHandle.h"
#include "Translation/Translate.h"

#include <QPromise>

#include <pipewire/pipewire.h>
#include <spa/param/video/format-utils.h>

#include <ctime>
#include <exception>
#include <string>
#include <utility>

namespace quillbox {

namespace {

using Reason = CaptureError::Reason;

constexpr std::int64_t ticksASecond = 30;
constexpr std::int64_t nanosecondsASecond = 1'000'000'000;
/// How long a source may take to begin. Compositors need a tenth of a second.
constexpr std::chrono::seconds startPatience{10};
/// When to have something repainted, and how often.
constexpr std::int64_t repaintNanoseconds = nanosecondsASecond / 10;

// PipeWire's methods are macros in the C of GNU, with its casts.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wold-style-cast"
#ifdef __clang__
#pragma GCC diagnostic ignored "-Wgnu-statement-expression"
#endif

spa_source* addTimer(pw_thread_loop* loop, spa_source_timer_func_t function, void* data)
{
    return pw_loop_add_timer(pw_thread_loop_get_loop(loop), function, data);
}

/// @param time  From now; zero disarms it.
void setTimer(pw_thread_loop* loop, spa_source* timer, timespec time)
{
    (void)pw_loop_update_timer(pw_thread_loop_get_loop(loop), timer, &time, nullptr, false); // it is a timer
}

void removeTimer(pw_thread_loop* loop, spa_source* timer)
{
    pw_loop_destroy_source(pw_thread_loop_get_loop(loop), timer);
}

#pragma GCC diagnostic pop

CaptureError cannotConnect()
{
    return {Reason::Unavailable,
        translate("CaptureError", "PipeWire, which carries the screen's pictures, can't be reached")};
}

CaptureError pipeWireGone()
{
    return {Reason::DisplayGone, translate("CaptureError", "PipeWire, which carries the screen's pictures, went away")};
}

CaptureError sourceGone()
{
    return {Reason::DisplayGone, translate("CaptureError", "The desktop no longer delivers the screen's pictures")};
}

} // namespace

/// All of its functions but the constructor, the destructor and end() are called by the loop's thread.
class PipeWireStream::Connection {
public:
    Connection(Source source, CaptureRegion region, FrameSink sink);
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    [[nodiscard]] QFuture<StartOutcome> started() { return m_started.future(); }
    void end(const CaptureError& reason);

private:
    void connect(FileDescriptor remote);
    void listen();
    void listenForSource();
    void armTimer(std::int64_t nanoseconds);
    void reportStart(StartOutcome outcome);
    void fail(const CaptureError& reason);
    template <typename Step> void guarded(const Step& step) noexcept;

    void noteDone(int asked) const;
    void noteState(pw_stream_state state, const char* error);
    void noteFormat(const spa_pod& param);
    void takeBuffers();
    void takePicture(const spa_buffer& buffer);
    void deliverInTime();
    void noteTimer();

    static Connection& self(void* data) { return *static_cast<Connection*>(data); }

    Source m_source; // without the remote
    std::uint32_t m_node;
    std::function<void()> m_stopSource;
    CaptureRegion m_region;
    FrameSink m_sink;
    std::optional<StreamPicture> m_picture; // none before the first buffer
    QPromise<StartOutcome> m_started;
    CaptureClock::time_point m_deadline = CaptureClock::now() + startPatience;
    bool m_isStarted = false;     // reported, either way
    bool m_hasEnded = false;      // nothing is delivered any more
    bool m_awaitsPicture = false; // of another format than those before
    std::optional<StreamFormat> m_format;
    std::uint64_t m_sequence = 0; // of the latest picture
    bool m_hasNews = false;       // the picture has changed since it was delivered
    CaptureClock::time_point m_zero;
    std::int64_t m_tick = 0; // of the latest delivery

    // Destroyed from the last to the first, with the loop stopped.
    CHandle<pw_thread_loop, pw_thread_loop_destroy> m_loop;
    CHandle<pw_context, pw_context_destroy> m_context;
    pw_core* m_core = nullptr; // the context's
    spa_source* m_timer = nullptr;
    CHandle<pw_stream, pw_stream_destroy> m_stream;
    pw_registry* m_registry = nullptr; // the core's
    int m_listing = 0;                 // what the core says when it has told of all there is
    bool m_hasSource = false;          // it has told of the source
    spa_hook m_coreListener{};
    spa_hook m_registryListener{};
    spa_hook m_streamListener{};
};

PipeWireStream::Connection::Connection(Source source, CaptureRegion region, FrameSink sink)
    : m_source(std::move(source))
    , m_node(m_source.node)
    , m_stopSource(std::move(m_source.stop))
    , m_region(region)
    , m_sink(std::move(sink))
{
    m_started.start();
    pw_init(nullptr, nullptr); // counts its calls
    if (qEnvironmentVariableIsEmpty("PIPEWIRE_DEBUG"))
        pw_log_set_level(SPA_LOG_LEVEL_NONE); // what matters to the user we say ourselves
    try {
        connect(std::move(m_source.remote));
    } catch (const CaptureError& error) {
        m_hasEnded = true;
        reportStart(error);
    }
}

PipeWireStream::Connection::~Connection()
{
    m_stopSource(); // else the lock might have to wait for the source
    if (m_stream) { // first: without the loop, PipeWire would have its data thread call us
        pw_thread_loop_lock(m_loop.get());
        m_hasEnded = true;
        (void)pw_stream_disconnect(m_stream.get()); // it may be broken already
        pw_thread_loop_unlock(m_loop.get());
    }
    if (m_loop)
        pw_thread_loop_stop(m_loop.get()); // from here on nothing is called
    if (m_stream)
        spa_hook_remove(&m_streamListener);
    m_stream.reset();
    if (m_timer != nullptr)
        removeTimer(m_loop.get(), m_timer);
    if (m_registry != nullptr)
        CoreListening::leaveRegistry(m_registry, m_registryListener);
    if (m_core != nullptr) {
        spa_hook_remove(&m_coreListener);
        (void)pw_core_disconnect(m_core); // it may be broken already
    }
    m_context.reset();
    m_loop.reset();
    pw_deinit();
    if (!m_isStarted)
        reportStart(CaptureError::stopped());
}

void PipeWireStream::Connection::connect(FileDescriptor remote)
{
    m_loop.reset(pw_thread_loop_new("screen capture", nullptr));
    if (!m_loop)
        throw cannotConnect();
    pw_loop* const loop = pw_thread_loop_get_loop(m_loop.get());
    m_context.reset(pw_context_new(loop, nullptr, 0));
    if (!m_context)
        throw cannotConnect();
    m_core = pw_context_connect_fd(m_context.get(), remote.release(), nullptr, 0);
    if (m_core == nullptr)
        throw cannotConnect();
    m_stream.reset(pw_stream_new(m_core, "Quillbox",
        pw_properties_new(
            PW_KEY_MEDIA_TYPE, "Video", PW_KEY_MEDIA_CATEGORY, "Capture", PW_KEY_MEDIA_ROLE, "Screen", nullptr)));
    if (!m_stream)
        throw cannotConnect();
    listen();
    listenForSource();

    StreamOffer::Memory memory{};
    const spa_pod* parameter = StreamOffer::formats(memory);
    const auto flags = static_cast<pw_stream_flags>(
        PW_STREAM_FLAG_AUTOCONNECT | PW_STREAM_FLAG_MAP_BUFFERS | PW_STREAM_FLAG_DONT_RECONNECT);
    if (pw_stream_connect(m_stream.get(), PW_DIRECTION_INPUT, m_node, flags, &parameter, 1) < 0)
        throw cannotConnect();
    m_timer = addTimer(
        m_loop.get(), [](void* data, std::uint64_t) { self(data).guarded([data] { self(data).noteTimer(); }); }, this);
    if (m_timer == nullptr)
        throw cannotConnect();
    armTimer(repaintNanoseconds);
    if (pw_thread_loop_start(m_loop.get()) < 0)
        throw cannotConnect();
}

void PipeWireStream::Connection::listen()
{
    static const pw_core_events coreEvents = [] {
        pw_core_events events{};
        events.version = PW_VERSION_CORE_EVENTS;
        events.done = [](void* data, std::uint32_t id, int asked) {
            if (id == PW_ID_CORE)
                self(data).guarded([=] { self(data).noteDone(asked); });
        };
        events.error = [](void* data, std::uint32_t id, int, int result, const char*) {
            if (id == PW_ID_CORE && result == -EPIPE)
                self(data).guarded([data] { self(data).fail(pipeWireGone()); });
        };
        return events;
    }();
    static const pw_stream_events streamEvents = [] {
        pw_stream_events events{};
        events.version = PW_VERSION_STREAM_EVENTS;
        events.state_changed = [](void* data, pw_stream_state, pw_stream_state state, const char* error) {
            self(data).guarded([=] { self(data).noteState(state, error); });
        };
        events.param_changed = [](void* data, std::uint32_t id, const spa_pod* param) {
            if (id == SPA_PARAM_Format && param != nullptr)
                self(data).guarded([=] { self(data).noteFormat(*param); });
        };
        events.process = [](void* data) {
            self(data).guarded([data] { self(data).takeBuffers(); });
        };
        return events;
    }();
    CoreListening::listenTo(m_core, m_coreListener, coreEvents, this);
    pw_stream_add_listener(m_stream.get(), &m_streamListener, &streamEvents, this);
}

/// PipeWire goes on waiting for a source that has gone before it was connected to the stream.
void PipeWireStream::Connection::listenForSource()
{
    static const pw_registry_events events = [] {
        pw_registry_events listeners{};
        listeners.version = PW_VERSION_REGISTRY_EVENTS;
        listeners.global
            = [](void* data, std::uint32_t id, std::uint32_t, const char*, std::uint32_t, const spa_dict*) {
                  self(data).m_hasSource = self(data).m_hasSource || id == self(data).m_node;
              };
        listeners.global_remove = [](void* data, std::uint32_t id) {
            if (id == self(data).m_node)
                self(data).guarded([data] { self(data).fail(sourceGone()); });
        };
        return listeners;
    }();
    m_registry = CoreListening::listenToRegistry(m_core, m_registryListener, events, this);
    if (m_registry == nullptr)
        throw cannotConnect();
    m_listing = CoreListening::askWhenDone(m_core);
}

/// Nothing is thrown into a C function.
template <typename Step> void PipeWireStream::Connection::guarded(const Step& step) noexcept
{
    if (m_hasEnded)
        return;
    try {
        step();
    } catch (const CaptureError& error) {
        fail(error);
    } catch (const std::exception& error) { // out of memory
        fail(CaptureError::failed(error));
    }
}

void PipeWireStream::Connection::reportStart(StartOutcome outcome)
{
    m_isStarted = true;
    m_started.addResult(std::move(outcome));
    m_started.finish();
}

void PipeWireStream::Connection::fail(const CaptureError& reason)
{
    if (std::exchange(m_hasEnded, true))
        return;
    if (m_isStarted)
        m_sink.ended(reason);
    else
        reportStart(reason);
}

void PipeWireStream::Connection::end(const CaptureError& reason)
{
    if (!m_loop)
        return; // it never ran
    pw_thread_loop_lock(m_loop.get());
    fail(reason);
    pw_thread_loop_unlock(m_loop.get());
}

void PipeWireStream::Connection::noteDone(int asked) const
{
    if (asked == m_listing && !m_hasSource)
        throw sourceGone();
}

void PipeWireStream::Connection::noteState(pw_stream_state state, const char* error)
{
    if (state == PW_STREAM_STATE_ERROR)
        throw CaptureError(m_isStarted ? Reason::DisplayGone : Reason::Unreadable,
            withArguments(translate("CaptureError", "PipeWire does not deliver the screen's pictures: %1"),
                {error != nullptr ? error : translate("CaptureError", "unknown error")}));
    if (state == PW_STREAM_STATE_UNCONNECTED && m_format)
        throw sourceGone();
}

void PipeWireStream::Connection::noteFormat(const spa_pod& param)
{
    std::uint32_t type = SPA_MEDIA_TYPE_unknown;
    std::uint32_t subtype = SPA_MEDIA_SUBTYPE_unknown;
    spa_video_info_raw video{};
    const bool isRaw = spa_format_parse(&param, &type, &subtype) >= 0 && type == SPA_MEDIA_TYPE_video
        && subtype == SPA_MEDIA_SUBTYPE_raw && spa_format_video_raw_parse(&param, &video) >= 0;
    const auto order = isRaw ? StreamOffer::orderOf(video.format) : std::nullopt;
    if (!order)
        throw CaptureError(Reason::Unreadable,
            translate("CaptureError", "The screen's pictures come in a format that was not asked for"));
    m_format = StreamFormat{
        *order, static_cast<std::int32_t>(video.size.width), static_cast<std::int32_t>(video.size.height)};
    m_sequence = 0;
    if (!m_picture)
        m_source.connect();
    if (m_isStarted) { // nor does a still screen of a new size show itself everywhere
        m_awaitsPicture = true;
        m_deadline = CaptureClock::now() + startPatience;
        armTimer(repaintNanoseconds);
    }
    StreamOffer::Memory buffersMemory{};
    StreamOffer::Memory metadataMemory{};
    std::vector<const spa_pod*> parameters = StreamOffer::metadata(metadataMemory);
    parameters.push_back(StreamOffer::buffers(buffersMemory));
    if (pw_stream_update_params(m_stream.get(), parameters.data(), static_cast<std::uint32_t>(parameters.size())) < 0)
        throw CaptureError(
            Reason::Unreadable, translate("CaptureError", "PipeWire refuses to deliver the screen's pictures"));
}

/// All that have come: those before the last have been overtaken, but what they say of damage counts.
void PipeWireStream::Connection::takeBuffers()
{
    while (pw_buffer* const buffer = pw_stream_dequeue_buffer(m_stream.get())) {
        std::exception_ptr failure;
        try {
            takePicture(*buffer->buffer);
        } catch (...) {
            failure = std::current_exception();
        }
        (void)pw_stream_queue_buffer(m_stream.get(), buffer); // fails only where the stream is broken, which it tells
        if (failure)
            std::rethrow_exception(failure);
    }
    if (m_hasNews)
        deliverInTime();
}

void PipeWireStream::Connection::takePicture(const spa_buffer& buffer)
{
    if (!m_format)
        return;
    auto read = readBuffer(buffer, *m_format);
    if (!read)
        return;
    // Damage is counted from the picture before: if one was lost on the way, so was what it told.
    const bool follows = m_sequence != 0 && read->sequence == m_sequence + 1;
    m_sequence = read->sequence;
    if (!follows)
        read->damage.reset();
    if (!m_picture)
        m_picture.emplace(m_region, m_source.points);
    m_awaitsPicture = false;
    if (m_picture->update(read->picture, read->damage))
        m_hasNews = true;
}

/// Now, or, if the present tick has had its picture, with the next one.
void PipeWireStream::Connection::deliverInTime()
{
    const auto now = CaptureClock::now();
    if (!m_isStarted) {
        m_zero = now;
    } else {
        const auto elapsed = std::chrono::duration_cast<std::chrono::nanoseconds>(now - m_zero).count();
        const std::int64_t tick = checkedMul<std::int64_t>(elapsed, ticksASecond) / nanosecondsASecond;
        if (tick <= m_tick) {
            armTimer((m_tick + 1) * nanosecondsASecond / ticksASecond + 1 - elapsed);
            return;
        }
        m_tick = tick;
    }
    m_hasNews = false;
    const auto shownAt = m_zero + std::chrono::nanoseconds(m_tick * nanosecondsASecond / ticksASecond);
    m_sink.frame(m_picture->frame(), shownAt);
    if (!m_isStarted) {
        armTimer(0);
        reportStart(std::nullopt);
    }
}

/// @param nanoseconds  From now; 0 disarms.
void PipeWireStream::Connection::armTimer(std::int64_t nanoseconds)
{
    setTimer(m_loop.get(), m_timer, {nanoseconds / nanosecondsASecond, nanoseconds % nanosecondsASecond});
}

void PipeWireStream::Connection::noteTimer()
{
    if (m_isStarted) {
        if (m_hasNews) {
            deliverInTime();
        } else if (m_awaitsPicture && CaptureClock::now() < m_deadline) {
            m_source.repaint();
            armTimer(repaintNanoseconds);
        }
        return;
    }
    if (CaptureClock::now() >= m_deadline)
        throw CaptureError(
            Reason::Unreadable, translate("CaptureError", "The desktop delivers no picture of the screen"));
    if (m_format)
        m_source.repaint();
    armTimer(repaintNanoseconds);
}

PipeWireStream::PipeWireStream(Source source, CaptureRegion region, FrameSink sink)
    : m_connection(std::make_unique<Connection>(std::move(source), region, std::move(sink)))
{
}

PipeWireStream::~PipeWireStream() = default;

QFuture<PipeWireStream::StartOutcome> PipeWireStream::started()
{
    return m_connection->started();
}

void PipeWireStream::end(const CaptureError& reason)
{
    m_connection->end(reason);
}

} // namespace quillbox
