#include "Capture/SelectedCast.h"

#include "Capture/PipeWire/PipeWireStream.h"
#include "Capture/Portal/ScreenCastPortal.h"
#include "Capture/PortalSource.h"

#include <QCoreApplication>
#include <QCoro/QCoroFuture>
#include <QPointer>

#include <utility>
#include <variant>

namespace quillbox {

namespace {

/// More than any monitor shows; a stream cuts what it is asked for to what there is.
constexpr CaptureRegion everything{0, 0, 1 << 20, 1 << 20};

using Kept = std::variant<std::monostate, SelectedCast, CaptureError>;

/// Goes with the application: what a cast is made of needs it.
class Keeper : public QObject {
public:
    using QObject::QObject;
    Kept content;
};

Kept& kept()
{
    static QPointer<Keeper> keeper;
    if (!keeper)
        keeper = new Keeper(QCoreApplication::instance());
    return keeper->content;
}

/// Written by the stream's thread until the stream has started, read afterwards.
struct Snapshot {
    std::optional<RGBAFrame> picture;
    std::optional<FrameResampler::Size> points;
};

/// The same source, but in its own pixels; the points are noted.
PipeWireStream::Source inPixels(PipeWireStream::Source source, const std::shared_ptr<Snapshot>& snapshot)
{
    source.points = [ask = std::move(source.points), snapshot](FrameResampler::Size picture) {
        snapshot->points = ask(picture);
        return std::optional<FrameResampler::Size>();
    };
    return source;
}

} // namespace

QCoro::Task<SelectedCast::FirstPicture> SelectedCast::open()
{
    SelectedCast selected;
    selected.portal = std::make_shared<ScreenCastPortal>();
    auto opening = selected.portal->open();
    selected.cast = co_await opening;
    auto connecting = selected.portal->openRemote();
    auto remote = co_await connecting;

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
    kept() = std::move(cast);
}

void SelectedCast::keep(CaptureError failure)
{
    kept() = std::move(failure);
}

std::optional<SelectedCast> SelectedCast::take()
{
    auto taken = std::exchange(kept(), std::monostate());
    if (auto* const failure = std::get_if<CaptureError>(&taken))
        throw CaptureError(std::move(*failure));
    if (auto* const cast = std::get_if<SelectedCast>(&taken))
        return std::move(*cast);
    return std::nullopt;
}

} // namespace quillbox
