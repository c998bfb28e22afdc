#include "Capture/Journal/RecordingJournal.h"

#include "Capture/FrameTimeline.h"
#include "Capture/Spill/FrameSpill.h"

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <exception>
#include <memory>
#include <string_view>
#include <unistd.h>
#include <utility>

namespace quillbox {
namespace {

using Seconds = std::chrono::duration<double>;

/// What has been saved up is enough for the first pictures of a large region.
constexpr Seconds largestAllowance{0.3};
constexpr double secondsOfBytes = 4;

/// What the calling thread has computed so far.
Seconds threadTime()
{
    struct timespec time { };
    (void)::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time); // known to every Linux
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

} // namespace

std::optional<RecordingJournal::Options> RecordingJournal::usualOptions()
{
    const char* const wish = std::getenv("QUILLBOX_JOURNAL");
    if (wish != nullptr && std::string_view(wish) == "off")
        return std::nullopt;
    return Options{.folder = FrameSpill::usualFolder()};
}

RecordingJournal::RecordingJournal(Options options)
    : m_options(std::move(options))
{
    m_atExit.emplace([this] { end(std::chrono::seconds(1)); }); // a disk that takes longer has what came before
}

RecordingJournal::~RecordingJournal()
{
    m_atExit.reset();
    {
        const std::scoped_lock lock(m_mutex);
        m_isEnding = true;
        m_changed.notify_all();
    }
    if (m_thread.joinable())
        m_thread.join();
}

void RecordingJournal::take(const RGBAFrame& picture, std::int64_t firstFrame)
{
    const std::scoped_lock lock(m_mutex);
    if (m_isEnding || m_isRemoved || firstFrame >= m_options.maxFrames)
        return;
    if (!m_waiting.empty() && m_waiting.back().firstFrame == firstFrame)
        m_waiting.pop_back(); // the clip never shows it
    m_waiting.push_back({picture, firstFrame});
    m_latestBegin = firstFrame;
    m_latestCame = Clock::now();
    if (!m_thread.joinable())
        m_thread = std::thread([this] {
            work();
            const std::scoped_lock ended(m_mutex);
            m_hasEnded = true;
            m_changed.notify_all();
        });
    m_changed.notify_all();
}

void RecordingJournal::hold(std::int64_t firstFrame)
{
    add({.isHeld = true, .firstFrame = firstFrame});
}

void RecordingJournal::resume(std::int64_t firstFrame)
{
    add({.isHeld = false, .firstFrame = firstFrame});
}

void RecordingJournal::add(HoldChange change)
{
    const std::scoped_lock lock(m_mutex);
    if (m_isEnding || m_isRemoved || change.firstFrame >= m_options.maxFrames)
        return;
    m_holdChanges.push_back(change);
    m_changed.notify_all();
}

void RecordingJournal::finish(std::int64_t frameCount)
{
    const std::scoped_lock lock(m_mutex);
    if (m_isEnding)
        return;
    m_frameCount = frameCount;
    m_isEnding = true;
    m_changed.notify_all();
}

void RecordingJournal::end(std::chrono::milliseconds limit)
{
    std::unique_lock lock(m_mutex);
    m_isEnding = true;
    m_changed.notify_all();
    if (m_thread.joinable())
        m_changed.wait_for(lock, limit, [this] { return m_hasEnded; });
}

void RecordingJournal::remove()
{
    const std::scoped_lock lock(m_mutex);
    m_isRemoved = true;
    m_isEnding = true;
    if (!m_path.empty())
        (void)::unlink(m_path.c_str()); // somebody else may have tidied up
    m_changed.notify_all();
}

void RecordingJournal::work()
{
    m_allowance = {.time = largestAllowance,
        .bytes = secondsOfBytes * static_cast<double>(m_options.bytesPerSecond),
        .refilledAt = Clock::now()};
    m_pictureAt = m_recordAt = m_failedAt = m_syncedAt = m_allowance.refilledAt - m_options.longestPause;
    try {
        std::unique_lock lock(m_mutex);
        for (;;) {
            m_changed.wait_for(lock, m_leftOut ? m_options.batchInterval : m_options.longestPause,
                [this] { return !m_waiting.empty() || !m_holdChanges.empty() || m_isEnding; });
            const bool isLast = m_isEnding;
            const auto frameCount = m_frameCount;
            if (m_isRemoved)
                return;
            auto batch = std::exchange(m_waiting, {});
            m_unwrittenHoldChanges.insert(m_unwrittenHoldChanges.end(), m_holdChanges.begin(), m_holdChanges.end());
            m_holdChanges.clear();
            lock.unlock();
            writeHoldChanges(); // before pictures that come later: without its end, a hold would cut them off
            write(std::move(batch), isLast);
            writeHoldChanges();
            if (isLast && frameCount)
                writeEnd(*frameCount);
            else
                writeStill();
            if (isLast && m_writer)
                m_writer->sync();
            if (isLast)
                return;
            syncIfDue();
            lock.lock();
            m_changed.wait_for(lock, m_options.batchInterval, [this] { return m_isEnding; });
        }
    } catch (const std::exception&) { // out of memory: the recording goes on without a journal
        const std::scoped_lock lock(m_mutex);
        m_isEnding = true;
        m_waiting.clear();
        m_holdChanges.clear();
    }
}

/// @param isLast  Nothing follows: the newest picture is written, whatever it costs.
void RecordingJournal::write(std::deque<Picture> batch, bool isLast)
{
    if (m_leftOut)
        batch.push_front(*std::exchange(m_leftOut, std::nullopt));
    while (!batch.empty()) {
        const Picture next = std::move(batch.front());
        batch.pop_front();
        const auto now = Clock::now();
        refill();
        const bool isDue = !m_hasPicture || (batch.empty() && (isLast || now - m_pictureAt >= m_options.longestPause));
        const bool canPay = m_allowance.time > Seconds(0) && m_allowance.bytes > 0;
        const bool hasFailed = !isLast && now - m_failedAt < m_options.longestPause;
        if (!hasFailed && (isDue || canPay) && writePicture(next))
            m_leftOut.reset();
        else
            m_leftOut = next;
    }
}

/// @return false if the file can't take it now
bool RecordingJournal::writePicture(const Picture& next)
{
    const Seconds before = threadTime();
    std::int64_t bytes = 0;
    bool isWritten = false;
    try {
        if (!m_writer)
            open();
        bytes = m_writer->size();
        m_writer->addPicture(next.picture, next.firstFrame);
        bytes = m_writer->size() - bytes;
        m_pictureAt = m_recordAt = Clock::now();
        m_hasPicture = isWritten = true;
        m_isSynced = false;
    } catch (const SpillError&) { // what is there already is as good as before
        m_failedAt = Clock::now();
        bytes = 0;
    }
    m_allowance.time -= threadTime() - before;
    m_allowance.bytes -= static_cast<double>(bytes);
    return isWritten;
}

void RecordingJournal::writeHoldChanges()
{
    try {
        while (m_writer && !m_unwrittenHoldChanges.empty()) {
            const HoldChange change = m_unwrittenHoldChanges.front();
            if (change.isHeld)
                m_writer->addHeld(change.firstFrame);
            else
                m_writer->addResumed(change.firstFrame);
            m_unwrittenHoldChanges.pop_front();
            m_isSynced = false;
        }
    } catch (const SpillError&) { // the next attempt begins with this one
    }
}

void RecordingJournal::writeStill()
{
    const auto now = Clock::now();
    if (!m_writer || now - m_recordAt < m_options.longestPause)
        return;
    std::int64_t frameCount = 0;
    {
        const std::scoped_lock lock(m_mutex);
        const double seconds = Seconds(now - m_latestCame).count();
        frameCount = m_latestBegin + static_cast<std::int64_t>(seconds * FrameTimeline::framesPerSecond);
    }
    try {
        m_writer->addStill(std::min(frameCount, m_options.maxFrames));
        m_recordAt = now;
        m_isSynced = false;
    } catch (const SpillError&) { // the next one says the same
    }
}

void RecordingJournal::writeEnd(std::int64_t frameCount)
{
    if (!m_writer)
        return;
    try {
        m_writer->addEnd(std::min(frameCount, m_options.maxFrames));
    } catch (const SpillError&) { // the pictures are there
    }
}

void RecordingJournal::open()
{
    auto named = JournalFile::create(m_options.folder, m_began);
    try {
        m_writer.emplace(std::make_shared<SpillFile>(std::move(named.file), m_options.diskSpaceToLeave), m_began);
    } catch (const SpillError&) {
        (void)::unlink(named.path.c_str()); // it is empty
        throw;
    }
    const std::scoped_lock lock(m_mutex);
    if (m_isRemoved)
        (void)::unlink(named.path.c_str()); // it has just been made
    else
        m_path = named.path;
}

void RecordingJournal::refill()
{
    const auto now = Clock::now();
    const Seconds passed = now - std::exchange(m_allowance.refilledAt, now);
    const auto rate = static_cast<double>(m_options.bytesPerSecond);
    m_allowance.time = std::min(m_allowance.time + passed * m_options.coreShare, largestAllowance);
    m_allowance.bytes = std::min(m_allowance.bytes + passed.count() * rate, secondsOfBytes * rate);
}

void RecordingJournal::syncIfDue()
{
    const auto now = Clock::now();
    if (m_isSynced || now - m_syncedAt < m_options.longestPause)
        return;
    m_writer->sync();
    m_isSynced = true;
    m_syncedAt = Clock::now();
}

} // namespace quillbox
