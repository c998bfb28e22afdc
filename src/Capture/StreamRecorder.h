#pragma once

#include "Capture/CaptureStream.h"
#include "Capture/FrameTimeline.h"
#include "Capture/Journal/RecordingJournal.h"
#include "Capture/ScreenRecorder.h"
#include "Capture/Spill/FrameSpill.h"
#include "Platform/Mailbox.h"

#include <QString>

#include <cstddef>
#include <cstdint>
#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <utility>
#include <variant>
#include <vector>

namespace quillbox {

class RecordingReducer;
class ScreenSession;

/// Records a region of the main display, 30 frames a second, until told to stop or neither memory nor disk take more.
/// Thread: main; pictures are converted on the stream's thread and appended here.
class StreamRecorder : public ScreenRecorder {
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

    using StreamFactory = std::function<std::unique_ptr<CaptureStream>()>; ///< what it throws comes out of start()
    using Now = std::function<CaptureClock::time_point()>;

    /// Records the screen in a session of its own.
    StreamRecorder();
    /// @param screen  Makes the stream of each recording.
    explicit StreamRecorder(std::shared_ptr<ScreenSession> screen);
    /// @param makeStream  Makes the stream of each recording.
    /// @param now         The clock that ends a recording; called from any thread.
    /// @param limits      What a recording may take up; then it is interrupted.
    /// @param journal     How recordings survive the program; none: they don't.
    explicit StreamRecorder(StreamFactory makeStream, Now now = &CaptureClock::now,
        std::optional<FrameSpill::Limits> limits = std::nullopt,
        std::optional<RecordingJournal::Options> journal = std::nullopt);
    ~StreamRecorder() override;

    [[nodiscard]] bool isRecording() const override { return m_isRecording; }
    QCoro::Task<> start(CaptureRegion region) override;
    QCoro::Task<Recording> stop() override;

    /// A recording that starts later has no more than `count` frames; it goes on until it is stopped.
    void setMaxFrames(std::int64_t count) { m_maxFrames = count; }

    void giveUpStart() override;
    [[nodiscard]] std::int64_t frameCount() const override;
    [[nodiscard]] std::optional<CaptureRegion> region() const override;
    void holdPicture(const void* holder) override;
    void releasePicture(const void* holder) override;
    [[nodiscard]] std::chrono::nanoseconds restWhileHeld() const override;

private:
    /// One recording, successful or not; shared by the stop() that waits for its end.
    struct Session {
        CaptureRegion region;
        FrameTimeline timeline;
        std::shared_ptr<RecordingReducer> reducer;                          // follows the timeline until its end
        std::shared_ptr<RecordingJournal> journal;                          // does so, too; null: there is none
        std::optional<Recording> recording;                                 // none while the timeline may change
        QString interruption;                                               // empty unless it ended by itself
        bool isImpaired = false;                                            // and it was told
        std::optional<std::pair<RGBAFrame, CaptureClock::time_point>> late; // not taken: too many were waiting
    };
    /// What a stream's thread has for the main one.
    struct Delivery {
        std::shared_ptr<Session> session;
        CaptureClock::time_point time;
        std::variant<RGBAFrame, CaptureError> content; // a picture, or why there won't be another
    };

    std::unique_ptr<CaptureStream> takeStarting(const CaptureStream* stream);
    [[nodiscard]] std::shared_ptr<RecordingReducer> makeReducer() const;
    FrameSink sinkFor(const std::shared_ptr<Session>& session);
    void takeDeliveries();
    void noteHold();
    void noteWhileHeld(RGBAFrame frame, CaptureClock::time_point time);
    void resume(CaptureClock::time_point time);
    [[nodiscard]] std::shared_ptr<RecordingJournal> makeJournal() const;
    static void removeJournal(const Session& session);
    static void show(Session& session, const RGBAFrame& frame, CaptureClock::time_point time);
    static void takeLate(Session& session);
    [[nodiscard]] static Recording recordingOf(Session& session);
    static void finish(Session& session, CaptureClock::time_point time);
    static void deliver(Session& session, RGBAFrame frame, CaptureClock::time_point time);
    void tellIfImpaired();
    void end(const std::shared_ptr<Session>& session, CaptureClock::time_point time, const CaptureError& reason);
    void setRecording(bool next);

    /// What the stream showed while the clip did not follow it.
    struct Hold {
        CaptureClock::time_point since;
        CaptureClock::time_point changedAt;
        std::set<const void*> holders;
        std::optional<RGBAFrame> latest{};
        std::optional<CaptureClock::time_point> releasedAt{}; // by all; a picture of that moment or later ends it
        bool isInJournal = false;
    };

    StreamFactory m_makeStream;
    Now m_now;
    std::optional<FrameSpill::Limits> m_limits; // none: the usual ones
    std::optional<RecordingJournal::Options> m_journal;
    std::int64_t m_maxFrames = FrameTimeline::unlimited;
    bool m_isRecording = false;
    std::optional<Hold> m_hold; // only while recording
    Mailbox<Delivery> m_deliveries;
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
