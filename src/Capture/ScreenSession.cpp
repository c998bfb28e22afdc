#include "Capture/ScreenSession.h"

#include "Capture/PipeWire/PipeWireStream.h"
#include "Capture/Portal/PortalSource.h"
#include "Capture/Portal/ScreenCastPortal.h"
#include "Translation/Translate.h"

#include <QCoreApplication>
#include <QCoro/QCoroFuture>
#include <QCoro/QCoroTimer>
#include <QPointer>

#include <chrono>
#include <utility>
#include <variant>

namespace quillbox {

namespace {

/// More than any monitor shows; a stream cuts what it is asked for to what there is.
constexpr CaptureRegion everything{0, 0, 1 << 20, 1 << 20};

/// How long compositors fade out the windows that have just gone: our panel, and the question for the screen.
constexpr std::chrono::milliseconds fadingTime{200};

using Kept = std::variant<std::monostate, SelectedCast, CaptureError>;

/// Ends with the application: what a cast is made of needs it, and a question that nobody waits for is withdrawn.
class Keeper : public QObject {
public:
    explicit Keeper(QCoreApplication* application)
        : QObject(application)
    {
        connect(application, &QCoreApplication::aboutToQuit, this, [this] {
            opening.reset();
            content = std::monostate();
        });
    }

    Kept content;
    std::shared_ptr<ScreenCastPortal> opening; // null while the user is not asked
};

Keeper& keeper()
{
    static QPointer<Keeper> only;
    if (!only)
        only = new Keeper(QCoreApplication::instance());
    return *only;
}

/// Asks for a cast of which the keeper has the portal until it is open, and waits until the screen is worth a picture.
/// If the portal goes meanwhile, the task ends with CaptureError::Stopped.
QCoro::Task<std::pair<SelectedCast, FileDescriptor>> openPortal()
{
    keeper().opening = std::make_shared<ScreenCastPortal>();
    auto* const portal = keeper().opening.get();
    SelectedCast selected;
    std::optional<CaptureError> failure;
    std::optional<FileDescriptor> remote;
    try {
        auto opening = portal->open();
        selected.cast = co_await opening;
        const QPointer present(portal);
        auto fading = QCoro::sleepFor(fadingTime);
        co_await fading;
        if (!present)
            throw CaptureError(
                CaptureError::Reason::Stopped, translate("CaptureError", "Screen capture was stopped before it began"));
        auto connecting = portal->openRemote();
        remote = co_await connecting;
    } catch (const CaptureError& error) {
        failure = error;
    }
    if (failure) {
        if (keeper().opening.get() == portal)
            keeper().opening.reset();
        throw CaptureError(*failure);
    }
    selected.portal = std::move(keeper().opening);
    std::pair opened(std::move(selected), std::move(*remote));
    co_return std::move(opened);
}

/// Written by the stream's thread until the stream has started, read afterwards.
struct Snapshot {
    std::optional<RGBAFrame> picture;
    std::optional<PixelSize> points;
};

/// The same source, but in its own pixels; the points are noted.
PipeWireStream::Source inPixels(PipeWireStream::Source source, const std::shared_ptr<Snapshot>& snapshot)
{
    source.points = [ask = std::move(source.points), snapshot](PixelSize picture) {
        if (!snapshot->picture)
            snapshot->points = ask(picture);
        return std::optional<PixelSize>();
    };
    return source;
}

} // namespace

QCoro::Task<SelectedCast::FirstPicture> SelectedCast::open()
{
    auto opening = openPortal();
    auto opened = co_await opening;
    auto& [selected, remote] = opened;

    const auto snapshot = std::make_shared<Snapshot>();
    FrameSink sink;
    sink.frame = [snapshot](const RGBAFrame& frame, CaptureClock::time_point) {
        if (!snapshot->picture)
            snapshot->picture = frame;
    };
    sink.ended = [](const CaptureError&) {
    }; // the first picture is all that is wanted
    PipeWireStream stream(
        inPixels(sourceOf(selected.cast, std::move(remote), std::nullopt), snapshot), everything, std::move(sink));
    const QObject context; // goes before the stream
    QObject::connect(selected.portal.get(), &ScreenCastPortal::ended, &context,
        [&stream](const CaptureError& reason) { stream.end(reason); });
    const auto started = stream.started();
    const auto outcome = co_await started;
    if (outcome)
        throw CaptureError(*outcome);
    selected.points = snapshot->points;
    FirstPicture first{std::move(selected), *snapshot->picture};
    co_return first;
}

void SelectedCast::keep(SelectedCast cast)
{
    keeper().content = std::move(cast);
}

void SelectedCast::keep(CaptureError failure)
{
    keeper().content = std::move(failure);
}

std::optional<SelectedCast> SelectedCast::take()
{
    auto taken = std::exchange(keeper().content, Kept());
    if (auto* const failure = std::get_if<CaptureError>(&taken))
        throw CaptureError(std::move(*failure));
    if (auto* const cast = std::get_if<SelectedCast>(&taken))
        return std::move(*cast);
    return std::nullopt;
}

} // namespace quillbox
