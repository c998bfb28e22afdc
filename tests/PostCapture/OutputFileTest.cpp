#include "PostCapture/OutputFile.h"

#include "Platform/FileDescriptor.h"
#include "support/ChildProcess.h"
#include "support/SystemCalls.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace quillbox {
namespace {

namespace fs = std::filesystem;
using OutputFile::IfExists;

class OutputFileTest : public testing::Test {
protected:
    void TearDown() override { support::systemCalls() = {}; }

    /// The file system has no files without a name.
    static void refuseUnnamedFiles()
    {
        support::systemCalls().open = [](const char* path, int flags, mode_t mode) {
            if ((flags & O_TMPFILE) != O_TMPFILE)
                return support::realSystemCalls().open(path, flags, mode);
            errno = EOPNOTSUPP;
            return -1;
        };
    }

    [[nodiscard]] fs::path path(const std::string& name) const { return m_folder.path() / name; }
    [[nodiscard]] std::string contents(const std::string& name) const { return support::readFile(path(name)); }
    [[nodiscard]] std::ptrdiff_t fileCount() const
    {
        return std::distance(fs::directory_iterator(m_folder.path()), fs::directory_iterator());
    }
    void put(const std::string& name, const std::string& text) const { std::ofstream(path(name)) << text; }
    static std::vector<std::uint8_t> bytes(const std::string& text) { return {text.begin(), text.end()}; }

    static std::optional<OutputFileError::Reason> reasonOf(const std::function<void()>& action)
    {
        try {
            action();
        } catch (const OutputFileError& error) {
            return error.reason();
        }
        return std::nullopt;
    }

private:
    support::TemporaryFolder m_folder;
};

TEST_F(OutputFileTest, WritesANewFile)
{
    OutputFile::save(path("a"), bytes("hello"), IfExists::Refuse);
    EXPECT_EQ(contents("a"), "hello");
    EXPECT_EQ(fileCount(), 1);
}

TEST_F(OutputFileTest, WritesAnEmptyFile)
{
    OutputFile::save(path("a"), {}, IfExists::Refuse);
    EXPECT_EQ(contents("a"), "");
    EXPECT_EQ(fileCount(), 1);
}

TEST_F(OutputFileTest, GivesANewFileTheUsualPermissions)
{
    const auto before = ::umask(027);
    OutputFile::save(path("a"), bytes("hello"), IfExists::Refuse);
    ::umask(before);
    EXPECT_EQ(fs::status(path("a")).permissions(), fs::perms(0640));
}

TEST_F(OutputFileTest, RefusesToReplaceAFile)
{
    put("a", "old");
    EXPECT_EQ(reasonOf([&] { OutputFile::save(path("a"), bytes("new"), IfExists::Refuse); }),
        OutputFileError::Reason::AlreadyExists);
    EXPECT_EQ(contents("a"), "old");
    EXPECT_EQ(fileCount(), 1);
}

TEST_F(OutputFileTest, ReplacesAFileWhenAskedAndKeepsItsPermissions)
{
    put("a", "old");
    fs::permissions(path("a"), fs::perms(0600));
    OutputFile::save(path("a"), bytes("new"), IfExists::Replace);
    EXPECT_EQ(contents("a"), "new");
    EXPECT_EQ(fs::status(path("a")).permissions(), fs::perms(0600));
    EXPECT_EQ(fileCount(), 1);
}

TEST_F(OutputFileTest, LeavesOtherNamesOfAReplacedFileAlone)
{
    put("a", "old");
    fs::create_hard_link(path("a"), path("b"));
    OutputFile::save(path("a"), bytes("new"), IfExists::Replace);
    EXPECT_EQ(contents("b"), "old") << "replaced in one step, not written over";
}

TEST_F(OutputFileTest, FollowsASymbolicLink)
{
    put("target", "old");
    fs::create_symlink("target", path("link"));
    OutputFile::save(path("link"), bytes("new"), IfExists::Replace);
    EXPECT_TRUE(fs::is_symlink(path("link")));
    EXPECT_EQ(contents("target"), "new");
}

TEST_F(OutputFileTest, MakesTheTargetOfALinkToNowhere)
{
    fs::create_symlink("second", path("link"));
    fs::create_symlink(path("nowhere"), path("second"));
    OutputFile::save(path("link"), bytes("new"), IfExists::Refuse);
    EXPECT_TRUE(fs::is_symlink(path("link")));
    EXPECT_TRUE(fs::is_symlink(path("second")));
    EXPECT_EQ(contents("nowhere"), "new");
}

TEST_F(OutputFileTest, ReportsLinksThatGoRound)
{
    fs::create_symlink("b", path("a"));
    fs::create_symlink("a", path("b"));
    EXPECT_THROW(OutputFile::save(path("a"), bytes("new"), IfExists::Refuse), OutputFileError);
}

TEST_F(OutputFileTest, ReportsAMissingFolder)
{
    const auto reason = reasonOf([&] { OutputFile::save(path("no/a"), bytes("new"), IfExists::Refuse); });
    EXPECT_EQ(reason, OutputFileError::Reason::FolderMissing);
    EXPECT_FALSE(fs::exists(path("no")));
}

TEST_F(OutputFileTest, ReportsAFileInThePlaceOfAFolder)
{
    put("a", "old");
    EXPECT_EQ(reasonOf([&] { OutputFile::save(path("a/b"), bytes("new"), IfExists::Replace); }),
        OutputFileError::Reason::FolderMissing);
}

TEST_F(OutputFileTest, ReportsAFolderOfThatName)
{
    fs::create_directory(path("folder"));
    EXPECT_EQ(reasonOf([&] { OutputFile::save(path("folder"), bytes("new"), IfExists::Replace); }),
        OutputFileError::Reason::IsFolder);
    EXPECT_EQ(reasonOf([&] { OutputFile::save(path("new/"), bytes("new"), IfExists::Replace); }),
        OutputFileError::Reason::IsFolder);
}

TEST_F(OutputFileTest, ReportsAFullDevice)
{
    EXPECT_EQ(reasonOf([&] { OutputFile::save("/dev/full", bytes("new"), IfExists::Refuse); }),
        OutputFileError::Reason::NoSpace);
}

TEST_F(OutputFileTest, ReportsADiskThatTakesAPartOnly)
{
    put("old", "precious");
    EXPECT_EQ(support::statusInAProcess([this] {
        support::limitFileSize(1000);
        const auto large = bytes(std::string(1500, 'x'));
        const bool isReported = reasonOf([&] { OutputFile::save(path("new"), large, IfExists::Refuse); })
            && reasonOf([&] { OutputFile::save(path("old"), large, IfExists::Replace); });
        return isReported ? 0 : 1;
    }),
        0);
    EXPECT_EQ(contents("old"), "precious");
    EXPECT_EQ(fileCount(), 1);
}

TEST_F(OutputFileTest, WritesPiecesOneBehindTheOther)
{
    std::vector<KeptBytes> pieces;
    for (const std::string text : {"GIF", "", "89", "a"})
        pieces.emplace_back(Bytes(text.begin(), text.end()));
    OutputFile::saveInPieces(path("a"), pieces, IfExists::Refuse);
    EXPECT_EQ(contents("a"), "GIF89a");
    EXPECT_EQ(fileCount(), 1);
}

TEST_F(OutputFileTest, CheckingCreatesNothing)
{
    OutputFile::check(path("a"), IfExists::Refuse);
    EXPECT_EQ(fileCount(), 0);
}

TEST_F(OutputFileTest, CheckingFindsWhatSavingWouldFind)
{
    put("a", "old");
    EXPECT_EQ(
        reasonOf([&] { OutputFile::check(path("a"), IfExists::Refuse); }), OutputFileError::Reason::AlreadyExists);
    EXPECT_EQ(reasonOf([&] { OutputFile::check(path("a"), IfExists::Replace); }), std::nullopt);
    EXPECT_EQ(
        reasonOf([&] { OutputFile::check(path("no/a"), IfExists::Replace); }), OutputFileError::Reason::FolderMissing);
    EXPECT_EQ(reasonOf([&] { OutputFile::check("/dev/full", IfExists::Refuse); }), std::nullopt);
    EXPECT_EQ(reasonOf([&] { OutputFile::check(path(std::string(256, 'x')), IfExists::Replace); }),
        OutputFileError::Reason::Refused)
        << "too long";
    std::filesystem::create_symlink("round", path("round"));
    EXPECT_EQ(reasonOf([&] { OutputFile::check(path("round"), IfExists::Replace); }), OutputFileError::Reason::Refused);
}

TEST_F(OutputFileTest, WritesNothingShortIntoAPipe)
{
    const std::vector<std::uint8_t> much(1 << 20, 7); // more than a pipe holds
    std::array<int, 2> ends{};
    ASSERT_EQ(::pipe(ends.data()), 0);
    const auto reader = ::fork();
    if (reader == 0) {
        ::close(ends[1]);
        std::size_t total = 0;
        std::array<char, 1000> buffer{};
        for (ssize_t got = 0; (got = ::read(ends[0], buffer.data(), buffer.size())) > 0;)
            total += static_cast<std::size_t>(got);
        ::_exit(total == (1 << 20) ? 0 : 1);
    }
    ::close(ends[0]);
    OutputFile::write(ends[1], much, "pipe");
    ::close(ends[1]);
    int status = 0;
    ::waitpid(reader, &status, 0);
    EXPECT_EQ(status, 0);
}

TEST_F(OutputFileTest, LeavesNothingWhenKilledAtAnyMoment)
{
    const std::vector<std::uint8_t> much(8 << 20, 7);
    for (int round = 0; round < 20; ++round) {
        put("a", "old");
        std::array<int, 2> ends{};
        ASSERT_EQ(::pipe(ends.data()), 0);
        const auto child = ::fork();
        if (child == 0) {
            (void)!::write(ends[1], "x", 1); // about to begin
            OutputFile::save(path("a"), much, IfExists::Replace);
            ::_exit(0);
        }
        char ready = 0;
        ASSERT_EQ(::read(ends[0], &ready, 1), 1);
        for (int i = 0; i < round * 1000; ++i) // a little later each time
            (void)::getppid();
        ::kill(child, SIGTERM);
        ::waitpid(child, nullptr, 0);
        ::close(ends[0]);
        ::close(ends[1]);
        const auto size = fs::file_size(path("a"));
        EXPECT_TRUE(size == 3 || size == much.size()) << "neither the old file nor the whole new one: " << size;
        EXPECT_EQ(fileCount(), 1);
    }
}

TEST_F(OutputFileTest, RemovesWhatAnEndedProcessLeftButNotWhatIsBeingWritten)
{
    put(".quillbox-ended", "half");
    put(".quillbox-saving", "half");
    put(".other", "whole");
    fs::create_symlink(path(".other"), path(".quillbox-link"));
    const FileDescriptor saving(::open(path(".quillbox-saving").c_str(), O_RDONLY | O_CLOEXEC));
    ASSERT_EQ(::flock(saving.number(), LOCK_EX), 0);
    OutputFile::removeLeftovers(path(""));
    EXPECT_FALSE(fs::exists(path(".quillbox-ended")));
    EXPECT_TRUE(fs::exists(path(".quillbox-saving")));
    EXPECT_TRUE(fs::is_symlink(path(".quillbox-link")));
    EXPECT_EQ(contents(".other"), "whole");
    EXPECT_NO_THROW(OutputFile::removeLeftovers(path("none")));
}

TEST_F(OutputFileTest, LeavesWhatBelongsToAnotherUser)
{
    put(".quillbox-ended", "half");
    support::systemCalls().geteuid = [] {
        return support::realSystemCalls().geteuid() + 1;
    };
    OutputFile::removeLeftovers(path(""));
    EXPECT_TRUE(fs::exists(path(".quillbox-ended")));
}

TEST_F(OutputFileTest, GoesOnWritingAfterASignal)
{
    int count = 0;
    support::systemCalls().write = [&](int descriptor, const void* buffer, std::size_t size) -> ssize_t {
        if (++count % 2 != 0) {
            errno = EINTR;
            return -1;
        }
        return support::realSystemCalls().write(descriptor, buffer, std::min<std::size_t>(size, 2));
    };
    OutputFile::save(path("a"), bytes("hello"), IfExists::Refuse);
    EXPECT_EQ(contents("a"), "hello");
    EXPECT_EQ(count, 6);
}

TEST_F(OutputFileTest, IsNotTakenForALeftoverWhileItReplacesAFile)
{
    put("a", "old");
    int names = 0; // beside the one that the file gets
    support::systemCalls().linkat = [&](int folder, const char* from, int newFolder, const char* to, int flags) {
        const int result = support::realSystemCalls().linkat(folder, from, newFolder, to, flags);
        if (result == 0)
            ++names;
        OutputFile::removeLeftovers(path("")); // as another process that starts
        return result;
    };
    OutputFile::save(path("a"), bytes("new"), IfExists::Replace);
    EXPECT_EQ(contents("a"), "new");
    EXPECT_EQ(names, 1);
}

TEST_F(OutputFileTest, IsNotTakenForALeftoverWhereItHasANameWhileItIsWritten)
{
    refuseUnnamedFiles();
    support::systemCalls().fdatasync = [&](int descriptor) {
        EXPECT_EQ(fileCount(), 1);
        OutputFile::removeLeftovers(path(""));
        return support::realSystemCalls().fdatasync(descriptor);
    };
    OutputFile::save(path("a"), bytes("new"), IfExists::Refuse);
    EXPECT_EQ(contents("a"), "new");
    EXPECT_EQ(fileCount(), 1);
}

TEST_F(OutputFileTest, BeginsAnewWhereItWasTakenForALeftoverBeforeItWasLocked)
{
    refuseUnnamedFiles();
    int locks = 0;
    support::systemCalls().flock = [&](int descriptor, int operation) {
        if (operation == LOCK_EX && ++locks == 1)
            fs::remove(fs::read_symlink("/proc/self/fd/" + std::to_string(descriptor)));
        return support::realSystemCalls().flock(descriptor, operation);
    };
    OutputFile::save(path("a"), bytes("new"), IfExists::Refuse);
    EXPECT_EQ(contents("a"), "new");
    EXPECT_EQ(locks, 2);
}

TEST_F(OutputFileTest, RemovesWhatOthersLeftWhereItHasToLeaveSomethingItself)
{
    refuseUnnamedFiles();
    put(".quillbox-ended", "half");
    OutputFile::save(path("a"), bytes("new"), IfExists::Refuse);
    EXPECT_EQ(fileCount(), 1);
}

TEST_F(OutputFileTest, HoldsSignalsWhileTheFileGetsItsNameAndNotBefore)
{
    const auto held = [] {
        sigset_t mask;
        ::pthread_sigmask(SIG_BLOCK, nullptr, &mask);
        return sigismember(&mask, SIGINT) + sigismember(&mask, SIGTERM) + sigismember(&mask, SIGHUP);
    };
    std::vector<int> whileSyncing;
    std::vector<int> whileNaming;
    support::systemCalls().fdatasync = [&](int descriptor) {
        whileSyncing.push_back(held());
        return support::realSystemCalls().fdatasync(descriptor);
    };
    support::systemCalls().linkat = [&](int folder, const char* from, int newFolder, const char* to, int flags) {
        whileNaming.push_back(held());
        return support::realSystemCalls().linkat(folder, from, newFolder, to, flags);
    };
    OutputFile::save(path("a"), bytes("old"), IfExists::Refuse);
    OutputFile::save(path("a"), bytes("new"), IfExists::Replace);
    EXPECT_EQ(whileSyncing, (std::vector{0, 0}));
    EXPECT_EQ(whileNaming, (std::vector{3, 3, 3}));
    EXPECT_EQ(held(), 0);
}

TEST(OutputFileError, SaysWhatToDo)
{
    EXPECT_STREQ(OutputFileError("a/b.gif", OutputFileError::Reason::FolderMissing).what(),
        "a/b.gif: can't be saved: there is no folder a; create it first");
    EXPECT_STREQ(OutputFileError::fromErrorNumber("b.gif", ENOSPC).what(),
        "b.gif: can't be saved: no space left; free some or save elsewhere");
    EXPECT_STREQ(OutputFileError::fromErrorNumber("b.gif", EACCES).what(), "b.gif: can't be saved: Permission denied");
}

} // namespace
} // namespace quillbox
