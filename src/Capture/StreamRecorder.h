#pragma once

#include "Capture/CaptureStream.h"
#include "Capture/FrameTimeline.h"
#include "Capture/RecorderControlling.h"
#include "Capture/Spill/FrameSpill.h"

#include <QEvent>
#include <QObject>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace quillbox {

/// Records a region of the main display, 30 frames a second, until told to stop or neither memory nor disk take more.
/// Thread: main; pictures are converted on the stream's thread and appended here.
class StreamRecorder : public QObject, public RecorderControlling {
    Q_OBJECT

public:
    /// What only a recorder can fail with. A value; it has no text for the user.
    class RecorderError : public std::exception {
    public:
        enum class Case { noDisplay };
        static constexpr Case noDisplay = Case::noDisplay;

        // NOLINTNEXTLINE(google-explicit-constructor): an error can be compared with its case
        RecorderError(Case which)
            : m_case(which)
        {
        }
        [[nodiscard]] Case which() const { return m_case; }
        [[nodiscard]] const char* what() const noexcept override { return "no display"; }
        friend bool operator==(const RecorderError& a, const RecorderError& b) { return a.m_case == b.m_case; }

    private:
        Case m_case;
    };

    using StreamFactory = std::function<std::unique_ptr<CaptureStream>()>;
    using Now = std::function<CaptureClock::time_point()>;

    /// @param makeStream  Makes the stream of each recording.
    /// @param now         The clock that ends a recording; called from any thread.
    /// @param limits      What a recording may take up; then it is interrupted.
    explicit StreamRecorder(StreamFactory makeStream = &makeCaptureStream, Now now = &CaptureClock::now,
        std::optional<FrameSpill::Limits> limits = std::nullopt, QObject* parent = nullptr);
    ~StreamRecorder() override;

    [[nodiscard]] bool isRecording() const override { return m_isRecording; }
    QCoro::Task<> start(CaptureRegion region) override;
    QCoro::Task<std::vector<RGBAFrame>> stop() override;
    [[nodiscard]] std::shared_ptr<RecordingReducer> reducer() const override;

    /// Ends a start() that is under way, as when the user goes away from the question whether the screen may be
    /// recorded: it fails with CaptureError::Stopped, unless it has just succeeded. Ignored otherwise.
    void giveUpStart();

    /// How many frames stop() would return now.
    [[nodiscard]] std::int64_t frameCount() const;

    /// What is being recorded; none while nothing is.
    [[nodiscard]] std::optional<CaptureRegion> region() const;

    /// From now on the clip goes on showing the latest picture, whatever the screen shows: something of our own is
    /// about to cover a part of the region. Where there was no picture yet, the first one is taken. Ignored while not
    /// recording; a stop() ends it.
    void holdPicture();
    /// What covered the region has left the screen and the programs below have repainted it: the clip shows the latest
    /// picture that arrived meanwhile, and follows the screen again.
    void releasePicture();

Q_SIGNALS:
    /// Announced before isRecording() becomes `next`.
    void isRecordingAboutToChange(bool next);
    /// Announced after isRecording() has changed.
    void isRecordingChanged();
    /// The screen can't be captured any longer, for `reason` (one sentence without a full stop). isRecording() stays
    /// true, no frame follows, and stop() returns those recorded so far.
    void interrupted(const QString& reason);

protected:
    void customEvent(QEvent* event) override;

private:
    /// One recording, successful or not; shared by the stop() that waits for its end.
    struct Session {
        CaptureRegion region;
        FrameTimeline timeline;
        std::shared_ptr<RecordingReducer> reducer;                          // follows the timeline until its end
        QString interruption;                                               // empty unless it ended by itself
        std::optional<std::pair<RGBAFrame, CaptureClock::time_point>> late; // not taken: too many were waiting
    };
    class Inbox;

    std::unique_ptr<CaptureStream> takeStarting(const CaptureStream* stream);
    [[nodiscard]] std::shared_ptr<RecordingReducer> makeReducer() const;
    FrameSink sinkFor(const std::shared_ptr<Session>& session);
    void takeDeliveries();
    static void takeLate(Session& session);
    static void finish(Session& session, CaptureClock::time_point time);
    static void deliver(Session& session, RGBAFrame frame, CaptureClock::time_point time);
    void end(const std::shared_ptr<Session>& session, CaptureClock::time_point time, const CaptureError& reason);
    void setRecording(bool next);

    /// What the stream showed while the clip did not follow it.
    struct Hold {
        std::optional<RGBAFrame> latest;
    };

    StreamFactory m_makeStream;
    Now m_now;
    std::optional<FrameSpill::Limits> m_limits; // none: the usual ones
    bool m_isRecording = false;
    std::optional<Hold> m_hold; // only while recording
    std::shared_ptr<Inbox> m_inbox;
    std::shared_ptr<Session> m_session;                     // of the last successful start
    std::unique_ptr<CaptureStream> m_stream;                // the running one
    std::vector<std::unique_ptr<CaptureStream>> m_starting; // usually empty or one
};

} // namespace quillbox

template <> struct std::hash<quillbox::StreamRecorder::RecorderError> {
    std::size_t operator()(const quillbox::StreamRecorder::RecorderError& error) const noexcept
    {
        return std::hash<int>{}(static_cast<int>(error.which()));
    }
};
