#include "Capture/Journal/CutOffRecordings.h"
#include "Capture/Journal/RecordingJournal.h"
#include "support/ChildProcess.h"
#include "support/Pictures.h"
#include "support/SystemCalls.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <semaphore>
#include <string>
#include <sys/stat.h>
#include <thread>
#include <vector>

namespace quillbox {
namespace {

using namespace std::chrono_literals;

/// What a journal makes of the system's answers.
class JournalOnASystem : public testing::Test {
protected:
    void TearDown() override { support::systemCalls() = {}; }

    /// Nothing is due before the end.
    [[nodiscard]] RecordingJournal::Options options() const
    {
        return {.folder = m_folder.path(), .diskSpaceToLeave = 0, .coreShare = 1e9, .longestPause = 1h};
    }
    [[nodiscard]] std::vector<CutOffRecordings::Found> found() const { return CutOffRecordings::find(m_folder.path()); }
    [[nodiscard]] std::vector<RGBAFrame> frames() const
    {
        const auto all = found();
        return all.empty() ? std::vector<RGBAFrame>() : CutOffRecordings::take(all.front()).frames();
    }
    static RGBAFrame picture(int number) { return support::solid(8, 40, support::gray(number)); }

    support::TemporaryFolder m_folder;
};

TEST_F(JournalOnASystem, RemovedWhileItGetsItsNameItLeavesNothing)
{
    {
        RecordingJournal journal(options());
        support::systemCalls().linkat = [&](int folder, const char* from, int newFolder, const char* to, int flags) {
            const int result = support::realSystemCalls().linkat(folder, from, newFolder, to, flags);
            journal.remove();
            return result;
        };
        journal.take(picture(1), 0);
        journal.finish(1);
    }
    EXPECT_TRUE(std::filesystem::is_empty(m_folder.path()));
}

TEST_F(JournalOnASystem, APictureThatCouldNotBeWrittenIsWrittenAtTheEnd)
{
    std::atomic<bool> isRefused = true;
    std::counting_semaphore<> refusals(0);
    support::systemCalls().flock = [&](int descriptor, int operation) {
        if (!isRefused)
            return support::realSystemCalls().flock(descriptor, operation);
        refusals.release();
        errno = EWOULDBLOCK;
        return -1;
    };
    {
        RecordingJournal journal(options());
        journal.take(picture(1), 0);
        refusals.acquire();
        refusals.acquire(); // without a name and with one
        isRefused = false;
    }
    EXPECT_EQ(frames(), std::vector{picture(1)});
}

TEST_F(JournalOnASystem, PaysForPicturesWithTheTimeThatTheyTake)
{
    std::atomic<int> seconds = 0;
    support::systemCalls().clock_gettime = [&](clockid_t clock, timespec* time) {
        if (clock != CLOCK_THREAD_CPUTIME_ID)
            return support::realSystemCalls().clock_gettime(clock, time);
        *time = {.tv_sec = ++seconds, .tv_nsec = 0};
        return 0;
    };
    {
        auto poor = options();
        poor.coreShare = 0;
        RecordingJournal journal(poor);
        for (int number = 1; number <= 3; ++number)
            journal.take(picture(number), number - 1);
    }
    EXPECT_EQ(frames(), (std::vector{picture(1), picture(1), picture(3)})) << "the first and the last are due";
}

/// The size of a file when it was last synced; 0: never.
class SyncedSize {
public:
    SyncedSize()
    {
        support::systemCalls().fdatasync = [this](int descriptor) {
            struct stat status { };
            EXPECT_EQ(::fstat(descriptor, &status), 0);
            m_bytes = status.st_size;
            m_syncs.release();
            return support::realSystemCalls().fdatasync(descriptor);
        };
    }
    [[nodiscard]] std::int64_t bytes() const { return m_bytes; }
    [[nodiscard]] bool isSyncedAgain() { return m_syncs.try_acquire_for(20s); }

private:
    std::atomic<std::int64_t> m_bytes{0};
    std::counting_semaphore<> m_syncs{0};
};

TEST_F(JournalOnASystem, IsOnTheDiskWholeAtTheEnd)
{
    SyncedSize synced;
    {
        RecordingJournal journal(options());
        journal.take(picture(1), 0);
        ASSERT_TRUE(synced.isSyncedAgain()) << "the first sync is due at once";
        journal.take(picture(2), 1);
    }
    EXPECT_EQ(frames().size(), 2U);
    EXPECT_EQ(synced.bytes(), static_cast<std::int64_t>(std::filesystem::file_size(found().front().path)));
}

TEST_F(JournalOnASystem, IsWholeWhereTheProcessCallsExit)
{
    (void)support::statusInAProcess([this] {
        SyncedSize synced;
        auto slow = options();
        slow.batchInterval = 1h;
        auto* const journal = new RecordingJournal(slow); // never destroyed, as when the toolkit ends the program
        journal->take(picture(1), 0);
        EXPECT_TRUE(synced.isSyncedAgain()); // and now it rests
        journal->take(picture(2), 1);
        std::exit(0);
        return 0;
    });
    EXPECT_EQ(frames(), (std::vector{picture(1), picture(2)}));
}

TEST_F(JournalOnASystem, SaysOfAStillScreenNoMoreFramesThanAreWanted)
{
    SyncedSize synced;
    auto few = options();
    few.maxFrames = 2;
    few.longestPause = few.batchInterval = 1ms;
    {
        RecordingJournal journal(few);
        journal.take(picture(1), 0);
        std::this_thread::sleep_for(150ms); // the time of four frames
        ASSERT_TRUE(synced.isSyncedAgain());
        const auto before = synced.bytes();
        while (synced.bytes() == before)
            ASSERT_TRUE(synced.isSyncedAgain()); // it says again that nothing has changed
    }
    EXPECT_EQ(frames(), (std::vector{picture(1), picture(1)}));
}

} // namespace
} // namespace quillbox
