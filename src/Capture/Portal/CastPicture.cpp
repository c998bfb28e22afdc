#include "Capture/Portal/CastPicture.h"

#include "Capture/PipeWire/PipeWireStream.h"
#include "Capture/Portal/PortalSource.h"
#include "Capture/Portal/ScreenCastPortal.h"

#include <QCoro/QCoroFuture>

#include <memory>
#include <utility>

namespace quillbox {
namespace {

/// More than any monitor shows; a stream cuts what it is asked for to what there is.
constexpr CaptureRegion everything{0, 0, 1 << 20, 1 << 20};

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

FrameSink firstOnly(const std::shared_ptr<Snapshot>& snapshot)
{
    FrameSink sink;
    sink.frame = [snapshot](const RGBAFrame& frame, CaptureClock::time_point) {
        if (!snapshot->picture)
            snapshot->picture = frame;
    };
    sink.ended = [](const CaptureError&) {
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
        inPixels(sourceOf(cast, std::move(remote), std::nullopt), snapshot), everything, firstOnly(snapshot));
    const QObject context; // goes before the stream
    QObject::connect(
        &portal, &ScreenCastPortal::ended, &context, [&stream](const CaptureError& reason) { stream.end(reason); });
    QObject::connect(&portal, &QObject::destroyed, &context, [&stream] { stream.end(CaptureError::stopped()); });
    const auto started = stream.started();
    const auto outcome = co_await started;
    if (outcome)
        throw CaptureError(*outcome);
    CastPicture first{*snapshot->picture, snapshot->points, cast.facts.position};
    co_return first;
}

} // namespace quillbox
