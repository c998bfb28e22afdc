#pragma once

#include "Capture/CaptureStream.h"
#include "Capture/OverlayRemains.h"
#include "Capture/Portal/CastPicture.h"

#include <QCoro/QCoroTask>
#include <QPointer>

#include <memory>
#include <optional>
#include <utility>

class QScreen;

namespace quillbox {

struct OpenCast;

/// The screen, as one selector and one recorder share it. On desktops that have to be asked for the screen, the
/// selector opens a cast, whose first picture lies behind the overlay, and the stream of the recording that follows
/// takes this cast over: the user is asked once. Elsewhere it has no state. Thread: main.
class ScreenSession {
public:
    ScreenSession();
    /// A question to the user that is still open is withdrawn.
    ~ScreenSession();
    ScreenSession(const ScreenSession&) = delete;
    ScreenSession& operator=(const ScreenSession&) = delete;

    /// Asks for a cast of a monitor, keeps it, and waits for a picture of it in which the windows that were closed for
    /// it have faded out. If this object is destroyed meanwhile, the task ends with CaptureError::Stopped.
    /// @throws CaptureError  as CaptureStream::start() does; no cast is kept then.
    [[nodiscard]] QCoro::Task<CastPicture> openCast();
    /// A region was selected on the cast, in points of a monitor that has `points` of them.
    /// @param screen  The one that is cast; null where that is not known.
    /// @pre openCast() has succeeded, and nothing has been called since.
    void selectOnCast(PixelSize points, QScreen* screen);
    /// Ends the cast that is kept, if any: nothing was selected.
    void closeCast();

    /// Likewise, and the user is asked anew for the next one: what was chosen is of no use.
    void refuseCast();

    /// An overlay that covered the region which is recorded next has been hidden just now: the next stream begins when
    /// it has left the screen.
    void expectUncovering(OverlayRemains remains);
    /// Whether the latest stream nevertheless began with something of it: the desktop left it there for too long. Told
    /// once.
    [[nodiscard]] bool takeRemainsLeft() { return std::exchange(*m_hasRemainsLeft, false); }

    /// A stream for the desktop that this process runs on. It takes over the cast that is kept; without one it asks
    /// for one.
    /// @throws CaptureError  Unavailable: capture is switched off, or the back end that was asked for is unknown.
    [[nodiscard]] std::unique_ptr<CaptureStream> makeStream();

    /// The screen on whose cast a region was selected last; null where it is not known, or gone.
    [[nodiscard]] QScreen* castScreen() const;

private:
    struct Uncovering {
        OverlayRemains remains;
        CaptureClock::time_point hiddenAt;
    };

    [[nodiscard]] std::unique_ptr<CaptureStream> makeBareStream();

    std::optional<Uncovering> m_uncovering;                                 // for the next stream
    std::shared_ptr<bool> m_hasRemainsLeft = std::make_shared<bool>(false); // a stream may outlive this object
    std::unique_ptr<OpenCast> m_cast; // from the question on, until a stream takes it over
    QPointer<QScreen> m_castScreen;
};

} // namespace quillbox
