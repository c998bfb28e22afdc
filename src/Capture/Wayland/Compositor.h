#pragma once

#include "Capture/Wayland/CastOutput.h"
#include "Platform/CancelEvent.h"

#include <memory>
#include <vector>

namespace quillbox {

/// Our own connection to the Wayland compositor, for what the portal leaves out. Used by one thread; no answer is
/// waited for longer than two seconds, or any more once the signal is raised.
class Compositor {
public:
    /// Connects to the compositor that WAYLAND_DISPLAY names. Where none answers, the functions know nothing.
    explicit Compositor(std::shared_ptr<const CancelEvent> stop);
    ~Compositor();
    Compositor(const Compositor&) = delete;
    Compositor& operator=(const Compositor&) = delete;

    [[nodiscard]] std::vector<OutputFacts> outputs() const;

    /// Has the compositor paint all its outputs again, by a transparent point that comes and goes below all windows.
    /// Some show the first picture of a cast only once something has changed. Does nothing where the compositor does
    /// not let us.
    void repaint();

    /// Waits, as long as it takes, until the output that is cast was switched off or unplugged; where several may be
    /// the one, until all of them were.
    /// @param picture  The size of the cast's upright picture, pixels.
    /// @return false where the compositor does not tell; and once the signal is raised.
    [[nodiscard]] bool waitUntilGone(const CastFacts& cast, PixelSize picture);

private:
    class Connection;
    std::unique_ptr<Connection> m_connection;
};

} // namespace quillbox
