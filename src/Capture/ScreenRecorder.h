#pragma once

#include "Capture/RecorderControlling.h"

#include <QObject>
#include <QString>

#include <chrono>
#include <cstdint>
#include <optional>

namespace quillbox {

/// What the application asks of its recorder beyond the workflow's contract. Thread: main.
class ScreenRecorder : public QObject, public RecorderControlling {
    Q_OBJECT

public:
    using QObject::QObject;

    /// How long a clip goes on with a held picture at its end: whoever opened the panel to stop wants none of that, but
    /// the last picture is to be seen.
    static constexpr std::chrono::milliseconds heldTail{300};

    /// Ends a start() that is under way, as when the user goes away from the question whether the screen may be
    /// recorded: it fails with CaptureError::Stopped, unless it has just succeeded. Ignored otherwise.
    virtual void giveUpStart() = 0;

    /// How many frames stop() would return now; where a picture is held, if that ended first.
    [[nodiscard]] virtual std::int64_t frameCount() const = 0;

    /// What is being recorded; none while nothing is.
    [[nodiscard]] virtual std::optional<CaptureRegion> region() const = 0;

    /// From now on the clip goes on showing the latest picture, whatever the screen shows: something of our own is
    /// about to cover a part of the region. Where there was no picture yet, the first one is taken. Ignored while not
    /// recording; a stop() ends it, and then no more than `heldTail` of it is in the clip.
    /// @param holder  Who has to release it: several may hold it at a time.
    virtual void holdPicture(const void* holder) = 0;
    /// What `holder` covered the region with has left the screen, and the programs below have repainted it. Once that
    /// is so for all who held it, the clip shows the latest picture that arrived meanwhile, and follows the screen
    /// again; ignored from others. Where the screen's picture can be asked for, it does so with the first one that was
    /// taken after this call: those before may show what covered it, however late they arrive. Until then holdPicture()
    /// takes it back.
    virtual void releasePicture(const void* holder) = 0;

    /// For how long nothing new has arrived while a picture is held; zero where none is.
    [[nodiscard]] virtual std::chrono::nanoseconds restWhileHeld() const = 0;

Q_SIGNALS:
    /// Announced before isRecording() becomes `next`.
    void isRecordingAboutToChange(bool next);
    /// Announced after isRecording() has changed.
    void isRecordingChanged();
    /// The screen can't be captured any longer, for `reason` (one sentence without a full stop). isRecording() stays
    /// true, no frame follows, and stop() returns those recorded so far.
    void interrupted(const QString& reason);
    /// What measures the recording while it goes on has failed, as without memory. It goes on, in memory alone; its
    /// clip is made from the frames, and takes longer. Once a recording.
    void impaired();
};

} // namespace quillbox
