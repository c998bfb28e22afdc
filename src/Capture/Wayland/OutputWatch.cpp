#include "Capture/Wayland/OutputWatch.h"

#include "Capture/Wayland/Compositor.h"

#include <pthread.h>

#include <utility>

namespace quillbox {

OutputWatch::OutputWatch(const CastFacts& cast, PixelSize picture, std::function<void()> onGone)
    : m_stop(std::make_shared<CancelEvent>())
    , m_thread([stop = m_stop, cast, picture, onGone = std::move(onGone)] {
        (void)::pthread_setname_np(::pthread_self(), "output watch"); // for those who look at the process
        Compositor compositor(stop);
        if (compositor.waitUntilGone(cast, picture) && !stop->isRaised())
            onGone();
    })
{
}

OutputWatch::~OutputWatch()
{
    m_stop->raise();
    m_thread.join();
}

} // namespace quillbox
