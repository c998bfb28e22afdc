#include "Capture/Portal/PortalSource.h"

#include "Capture/Wayland/Compositor.h"

#include <memory>
#include <system_error>
#include <utility>

namespace quillbox {

namespace {

std::shared_ptr<CancelEvent> makeCancelEvent()
{
    try {
        return std::make_shared<CancelEvent>();
    } catch (const std::system_error& error) {
        throw CaptureError::failed(error);
    }
}

} // namespace

PipeWireStream::Source sourceOf(const ScreenCast& cast, FileDescriptor remote, std::optional<PixelSize> points)
{
    PipeWireStream::Source source;
    source.remote = std::move(remote);
    source.node = cast.node;
    const auto compositor = std::make_shared<std::optional<Compositor>>(); // connected by the thread that asks
    const auto stop = makeCancelEvent();
    source.stop = [stop] {
        stop->raise();
    };
    source.connect = [compositor, stop] {
        compositor->emplace(stop);
    };
    source.points = [compositor, stop, points, facts = cast.facts](PixelSize picture) mutable {
        auto answer = std::exchange(points, std::nullopt); // known of the first picture only
        if (!answer) {
            if (!*compositor)
                compositor->emplace(stop);
            answer = pointsOfCast(facts, picture, (*compositor)->outputs());
        }
        facts.size.reset();  // it was the first picture's
        compositor->reset(); // what it tells changes with the size
        return answer;
    };
    source.repaint = [compositor, stop] {
        if (!*compositor)
            compositor->emplace(stop);
        (*compositor)->repaint();
    };
    return source;
}

} // namespace quillbox
