#pragma once

#include "Capture/Journal/JournalFile.h"
#include "Capture/Journal/JournalWriter.h"
#include "Encoding/Pixels/PixelTypes.h"
#include "Platform/AtExit.h"

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <filesystem>
#include <mutex>
#include <optional>
#include <thread>

namespace quillbox {

/// Keeps a recording on disk while it goes on, so that it survives the program: a thread writes the pictures into a
/// journal and has them reach the disk. At most two seconds are missing whenever the program ends. The file stays until
/// it is removed. Where it can't be written, the recording goes on without it, and the thread tries again.
///
/// Compressing costs up to a tenth of a core: of pictures that come faster than that allows, some are left out, but
/// never for more than a second.
/// Thread: main, but for remove().
class RecordingJournal {
public:
    struct Options {
        std::filesystem::path folder;
        std::uint64_t diskSpaceToLeave = 1'000'000'000;
        double coreShare = 0.1;                            ///< of a core's time
        std::int64_t bytesPerSecond = 16'000'000;          ///< on disk, in the long run
        std::chrono::milliseconds batchInterval{250};      ///< how long pictures wait for others
        std::chrono::milliseconds longestPause{1000};      ///< between two things that are written, and between syncs
        std::int64_t maxFrames = JournalFormat::maxFrames; ///< none beyond is kept
    };
    /// In the program's cache folder; none if the environment says QUILLBOX_JOURNAL=off.
    [[nodiscard]] static std::optional<Options> usualOptions();

    explicit RecordingJournal(Options options);
    /// Writes what has been taken, unless the journal was removed.
    ~RecordingJournal();
    RecordingJournal(const RecordingJournal&) = delete;
    RecordingJournal& operator=(const RecordingJournal&) = delete;

    /// Takes the next picture. Never waits. @param firstFrame  The frame that it begins at; not below the one before.
    void take(const RGBAFrame& picture, std::int64_t firstFrame);
    /// From that frame on the latest picture is repeated though the screen may show something else; until resume()
    /// tells the first frame that shows the screen again, which is called before the next picture is taken. Neither
    /// waits.
    void hold(std::int64_t firstFrame);
    void resume(std::int64_t firstFrame);
    /// The recording is over: no picture follows. Never waits. A second call does nothing.
    void finish(std::int64_t frameCount);
    /// The process ends: writes what has been taken, and waits until it is in the file, for `limit` at most. No picture
    /// is taken any more. Thread: any.
    void end(std::chrono::milliseconds limit);
    /// The recording is safe elsewhere, or not wanted: the file loses its name at once, or as soon as it has got one if
    /// it is just being made; its pixels stay readable. Never waits for the disk. Thread: any.
    void remove();

private:
    using Clock = std::chrono::steady_clock;
    struct Picture {
        RGBAFrame picture;
        std::int64_t firstFrame;
    };
    /// That frames are held from there on, or no longer.
    struct HoldChange {
        bool isHeld;
        std::int64_t firstFrame;
    };
    /// What may be spent; refilled as time passes.
    struct Allowance {
        std::chrono::duration<double> time{0};
        double bytes = 0;
        Clock::time_point refilledAt;
    };

    void work();
    void write(std::deque<Picture> batch, bool isLast);
    void writeHoldChanges();
    void add(HoldChange change);
    [[nodiscard]] bool writePicture(const Picture& next);
    void writeStill();
    void writeEnd(std::int64_t frameCount);
    void open();
    void refill();
    void syncIfDue();

    const Options m_options;
    const JournalFormat::WallClock::time_point m_began = JournalFormat::WallClock::now();
    std::optional<AtExit> m_atExit; ///< until the object goes

    std::mutex m_mutex; ///< guards what follows
    std::condition_variable m_changed;
    std::deque<Picture> m_waiting;
    std::deque<HoldChange> m_holdChanges;
    std::int64_t m_latestBegin = 0; ///< of the last picture taken
    Clock::time_point m_latestCame;
    std::optional<std::int64_t> m_frameCount; ///< once finished
    bool m_isEnding = false;
    bool m_hasEnded = false; ///< the thread has done all that it was to do
    bool m_isRemoved = false;
    std::filesystem::path m_path; ///< empty until there is a file

    // The thread's.
    std::optional<JournalWriter> m_writer;
    std::optional<Picture> m_leftOut;              ///< the latest, if it was not written
    std::deque<HoldChange> m_unwrittenHoldChanges; ///< oldest first
    Allowance m_allowance;
    Clock::time_point m_pictureAt; ///< when one was written
    Clock::time_point m_recordAt;  ///< when anything was
    Clock::time_point m_failedAt;
    Clock::time_point m_syncedAt;
    bool m_hasPicture = false;
    bool m_isSynced = true;
    std::thread m_thread;
};

} // namespace quillbox
