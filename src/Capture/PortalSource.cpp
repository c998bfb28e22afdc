#include "Capture/PortalSource.h"

#include "Capture/Wayland/Compositor.h"

#include <memory>
#include <utility>

namespace quillbox {

PipeWireStream::Source sourceOf(
    const ScreenCast& cast, FileDescriptor remote, std::optional<FrameResampler::Size> points)
{
    PipeWireStream::Source source;
    source.remote = std::move(remote);
    source.node = cast.node;
    const auto compositor = std::make_shared<std::optional<Compositor>>(); // connected by the thread that asks
    const auto stop = std::make_shared<StopSignal>();
    source.stop = [stop] {
        stop->raise();
    };
    source.connect = [compositor, stop] {
        compositor->emplace(stop);
    };
    source.points = [compositor, points, facts = cast.facts](FrameResampler::Size picture) {
        return points ? points : pointsOfCast(facts, picture, (*compositor)->outputs());
    };
    source.repaint = [compositor] {
        (*compositor)->repaint();
    };
    return source;
}

} // namespace quillbox
