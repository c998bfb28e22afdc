#include "Capture/Journal/RecordingJournal.h"
#include "Capture/Journal/CutOffRecordings.h"
#include "Capture/Journal/JournalFormat.h"
#include "Capture/Journal/JournalReader.h"
#include "support/ChildProcess.h"
#include "support/Pictures.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <limits>
#include <string>
#include <unistd.h>

namespace quillbox {
namespace {

/// Journals in a folder of the test's own.
class RecordingJournalTest : public testing::Test {
protected:
    [[nodiscard]] RecordingJournal::Options options() const
    {
        return {.folder = m_folder.path() / "cache", .diskSpaceToLeave = 0, .coreShare = 1e9};
    }
    [[nodiscard]] std::vector<CutOffRecordings::Found> found() const
    {
        return CutOffRecordings::find(options().folder);
    }
    [[nodiscard]] std::size_t fileCount() const
    {
        return std::filesystem::exists(options().folder) ? static_cast<std::size_t>(std::distance(
                   std::filesystem::directory_iterator(options().folder), std::filesystem::directory_iterator()))
                                                         : 0;
    }

    /// How many frames the one journal has by now, while it is written.
    [[nodiscard]] std::size_t writtenFrames() const
    {
        if (fileCount() == 0)
            return 0;
        const auto path = std::filesystem::directory_iterator(options().folder)->path();
        const auto contents = JournalReader::read(
            std::make_shared<const SpillFile>(FileDescriptor(::open(path.c_str(), O_RDONLY | O_CLOEXEC))));
        return contents ? contents->frames.size() : 0;
    }

    /// The pictures 1, 2 and 3, a frame each.
    static RGBAFrame picture(int number) { return support::solid(8, 40, support::gray(number)); }
    static void recordThree(RecordingJournal& journal)
    {
        for (int number = 1; number <= 3; ++number)
            journal.take(picture(number), number - 1);
    }
    static std::vector<RGBAFrame> three() { return {picture(1), picture(2), picture(3)}; }

    support::TemporaryFolder m_folder;
};

TEST_F(RecordingJournalTest, KeepsWhatWasTakenWhenTheRecordingIsDropped)
{
    {
        RecordingJournal journal(options());
        recordThree(journal);
    }
    ASSERT_EQ(found().size(), 1U);
    EXPECT_EQ(found().front().frameCount, 3);
    EXPECT_EQ(CutOffRecordings::take(found().front()).frames(), three());
    EXPECT_EQ(found().size(), 1U) << "a recording that is not settled stays";
}

TEST_F(RecordingJournalTest, IsForTheUsersEyesOnly)
{
    {
        RecordingJournal journal(options());
        recordThree(journal);
    }
    using std::filesystem::perms;
    EXPECT_EQ(std::filesystem::status(found().front().path).permissions(), perms::owner_read | perms::owner_write);
}

TEST_F(RecordingJournalTest, KnowsWhereTheRecordingEnded)
{
    {
        RecordingJournal journal(options());
        recordThree(journal);
        journal.finish(2);
        journal.take(picture(4), 3); // too late
    }
    EXPECT_EQ(CutOffRecordings::take(found().front()).frames(), (std::vector{picture(1), picture(2)}));
}

TEST_F(RecordingJournalTest, OfTwoPicturesOfAFrameTheLaterCounts)
{
    {
        RecordingJournal journal(options());
        journal.take(picture(1), 0);
        journal.take(picture(2), 0);
    }
    EXPECT_EQ(CutOffRecordings::take(found().front()).frames(), std::vector{picture(2)});
}

TEST_F(RecordingJournalTest, KnowsWhichFramesAreHeld)
{
    {
        RecordingJournal journal(options());
        recordThree(journal);
        journal.hold(3);
        journal.resume(40);
        journal.take(picture(4), 40);
        journal.hold(41);
    }
    const auto path = found().front().path;
    const auto contents = JournalReader::read(
        std::make_shared<const SpillFile>(FileDescriptor(::open(path.c_str(), O_RDONLY | O_CLOEXEC))));
    EXPECT_EQ(contents->frames.size(), 41U);
    EXPECT_EQ(contents->held, (std::vector<FrameRange>{{3, 40}}));
}

TEST_F(RecordingJournalTest, KeepsNoFrameBeyondTheMostThatAreWanted)
{
    {
        auto two = options();
        two.maxFrames = 2;
        RecordingJournal journal(two);
        recordThree(journal);
    }
    EXPECT_EQ(CutOffRecordings::take(found().front()).frames(), (std::vector{picture(1), picture(2)}));
}

TEST_F(RecordingJournalTest, IsGoneOnceRemoved)
{
    RecordingJournal journal(options());
    recordThree(journal);
    while (writtenFrames() < 3)
        ::usleep(1000);
    journal.remove();
    EXPECT_EQ(fileCount(), 0U);
    journal.finish(3);
    EXPECT_EQ(fileCount(), 0U);
}

TEST_F(RecordingJournalTest, RemovedWhileItIsWrittenItLeavesNothing)
{
    for (int round = 0; round < 50; ++round) {
        RecordingJournal journal(options());
        recordThree(journal);
        if (round % 2 == 1)
            journal.finish(3);
        journal.remove();
    }
    EXPECT_EQ(fileCount(), 0U);
}

TEST_F(RecordingJournalTest, ARecordingWithoutAPictureLeavesNothing)
{
    {
        RecordingJournal journal(options());
        journal.finish(0);
    }
    EXPECT_EQ(fileCount(), 0U);
}

TEST_F(RecordingJournalTest, ThePicturesOfARemovedOneCanStillBeRead)
{
    const auto frame = picture(9).inBands(std::nullopt);
    {
        RecordingJournal journal(options());
        journal.take(frame, 0);
    }
    ASSERT_TRUE(frame.isBacked());
    EXPECT_TRUE(found().empty()) << "whoever has its pixels has the recording";
    std::filesystem::remove(std::filesystem::directory_iterator(options().folder)->path());
    frame.evict();
    EXPECT_EQ(frame, picture(9));
}

TEST_F(RecordingJournalTest, BelongsToItsProgramWhileThatRuns)
{
    RecordingJournal journal(options());
    recordThree(journal);
    while (writtenFrames() < 3)
        ::usleep(1000);
    EXPECT_TRUE(found().empty());
    const CutOffRecordings::Found theFile{
        .path = std::filesystem::directory_iterator(options().folder)->path(), .began = {}, .frameCount = 1};
    EXPECT_THROW((void)CutOffRecordings::take(theFile), CutOffError);
    EXPECT_THROW(CutOffRecordings::discard(theFile), CutOffError);
    EXPECT_EQ(fileCount(), 1U);
}

TEST_F(RecordingJournalTest, TwoRecordingsAreKeptApart)
{
    {
        RecordingJournal first(options());
        recordThree(first);
        ::usleep(2000); // named after the millisecond
        RecordingJournal second(options());
        second.take(picture(7), 0);
    }
    const auto all = found();
    ASSERT_EQ(all.size(), 2U);
    EXPECT_EQ(CutOffRecordings::take(all[0]).frames(), three());
    EXPECT_EQ(CutOffRecordings::take(all[1]).frames(), std::vector{picture(7)});
}

TEST_F(RecordingJournalTest, OneThatIsBeingRecoveredIsNobodyElses)
{
    {
        RecordingJournal journal(options());
        recordThree(journal);
    }
    const auto all = found();
    ASSERT_EQ(all.size(), 1U);
    const Recording recording = CutOffRecordings::take(all.front());
    EXPECT_TRUE(found().empty());
    EXPECT_THROW((void)CutOffRecordings::take(all.front()), CutOffError);
    recording.settle();
    EXPECT_EQ(fileCount(), 0U);
    EXPECT_EQ(recording.frames(), three()) << "as long as somebody has it";
}

TEST_F(RecordingJournalTest, IsDiscarded)
{
    {
        RecordingJournal journal(options());
        recordThree(journal);
    }
    const auto all = found();
    CutOffRecordings::discard(all.front());
    EXPECT_EQ(fileCount(), 0U);
    EXPECT_THROW(CutOffRecordings::discard(all.front()), CutOffError);
    EXPECT_THROW((void)CutOffRecordings::take(all.front()), CutOffError);
}

TEST_F(RecordingJournalTest, ADamagedOneIsFoundButCanOnlyBeDiscarded)
{
    std::filesystem::create_directories(options().folder);
    support::writeFile(options().folder / "recording-1-2.journal", Bytes(1000, 1));
    support::writeFile(options().folder / "something-else", Bytes(1000, 1));
    std::filesystem::create_symlink("/dev/zero", options().folder / "recording-2-2.journal");
    std::filesystem::create_directory(options().folder / "recording-3-2.journal");
    const auto all = found();
    ASSERT_EQ(all.size(), 1U);
    EXPECT_EQ(all.front().frameCount, 0);
    EXPECT_THROW((void)CutOffRecordings::take(all.front()), CutOffError);
    CutOffRecordings::discard(all.front());
    EXPECT_EQ(fileCount(), 3U);
}

TEST_F(RecordingJournalTest, OneWithoutAPictureComesLastAndGivesNothing)
{
    const auto header = JournalFormat::encodedHeader(JournalFormat::WallClock::time_point());
    std::filesystem::create_directories(options().folder);
    support::writeFile(options().folder / "recording-1-2.journal", Bytes(header.begin(), header.end()));
    {
        RecordingJournal journal(options());
        recordThree(journal);
    }
    const auto all = found();
    ASSERT_EQ(all.size(), 2U);
    EXPECT_EQ(all[0].frameCount, 3);
    EXPECT_EQ(all[1].frameCount, 0);
    EXPECT_LT(all[1].began, all[0].began);
    EXPECT_THROW((void)CutOffRecordings::take(all[1]), CutOffError);
}

TEST_F(RecordingJournalTest, WithoutAFolderTheRecordingGoesOn)
{
    auto impossible = options();
    impossible.folder = "/proc/no-folder";
    RecordingJournal journal(impossible);
    recordThree(journal);
    journal.finish(3);
}

TEST_F(RecordingJournalTest, LeavesTheDisksLastSpaceToOthers)
{
    {
        auto greedy = options();
        greedy.diskSpaceToLeave = std::numeric_limits<std::uint64_t>::max();
        RecordingJournal journal(greedy);
        recordThree(journal);
    }
    EXPECT_EQ(fileCount(), 0U);
}

TEST_F(RecordingJournalTest, AFullDiskKeepsWhatItTook)
{
    EXPECT_EQ(support::statusInAProcess([this] {
        support::limitFileSize(20'000);
        support::Random random(7);
        RecordingJournal journal(options());
        journal.take(support::noise(8, 32, random), 0);    // a kilobyte
        journal.take(support::noise(100, 100, random), 1); // forty
        return 0;
    }),
        0);
    ASSERT_EQ(found().size(), 1U);
    support::Random random(7);
    EXPECT_EQ(CutOffRecordings::take(found().front()).frames(), std::vector{support::noise(8, 32, random)});
}

TEST_F(RecordingJournalTest, WithoutAnythingToSpendItKeepsTheNewestPicture)
{
    {
        auto poor = options();
        poor.coreShare = 0;
        poor.bytesPerSecond = 0;
        poor.longestPause = std::chrono::hours(1); // nothing is due before the end
        RecordingJournal journal(poor);
        for (int number = 1; number <= 50; ++number)
            journal.take(picture(number), number - 1);
    }
    const auto frames = CutOffRecordings::take(found().front()).frames();
    ASSERT_EQ(frames.size(), 50U);
    EXPECT_EQ(frames.back(), picture(50));
    EXPECT_NE(frames.front(), frames.back()) << "the first one is due";
}

TEST_F(RecordingJournalTest, LeavesOutWhatWouldTakeTooMuchOfTheDisk)
{
    {
        auto poor = options();
        poor.bytesPerSecond = 1;
        poor.longestPause = std::chrono::hours(1);
        RecordingJournal journal(poor);
        recordThree(journal);
    }
    EXPECT_EQ(CutOffRecordings::take(found().front()).frames(), (std::vector{picture(1), picture(1), picture(3)}));
}

TEST_F(RecordingJournalTest, TriesOnceMoreAtTheEnd)
{
    auto hopeful = options();
    for (useconds_t round = 0; round < 20; ++round) {
        hopeful.folder = m_folder.path() / std::to_string(round);
        std::ofstream(hopeful.folder) << "in the way";
        {
            RecordingJournal journal(hopeful);
            recordThree(journal);
            ::usleep(100 * round); // so that in some rounds it has failed by now
            std::filesystem::remove(hopeful.folder);
        }
        EXPECT_EQ(CutOffRecordings::find(hopeful.folder).size(), 1U) << round;
    }
}

TEST_F(RecordingJournalTest, SurvivesTheEndOfItsProcess)
{
    EXPECT_EQ(support::statusInAProcess([this] {
        auto* const journal = new RecordingJournal(options()); // never destroyed
        recordThree(*journal);
        while (writtenFrames() < 3) // until all of it is in the file
            ::usleep(1000);
        ::raise(SIGKILL);
        return 0;
    }),
        -1);
    ASSERT_EQ(found().size(), 1U);
    const auto frames = CutOffRecordings::take(found().front()).frames();
    ASSERT_GE(frames.size(), 3U);
    EXPECT_EQ(std::vector(frames.begin(), frames.begin() + 3), three());
}

TEST_F(RecordingJournalTest, TheUserCanDoWithout)
{
    ::setenv("QUILLBOX_JOURNAL", "off", 1);
    EXPECT_FALSE(RecordingJournal::usualOptions());
    ::unsetenv("QUILLBOX_JOURNAL");
    EXPECT_TRUE(RecordingJournal::usualOptions());
}

} // namespace
} // namespace quillbox
