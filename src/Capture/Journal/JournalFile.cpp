#include "Capture/Journal/JournalFile.h"

#include "Capture/Spill/SpillFile.h"
#include "Translation/Translate.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace quillbox {
namespace {

constexpr const char* prefix = "recording-";
constexpr const char* suffix = ".journal";

bool lock(const FileDescriptor& file, JournalFile::Lock kind)
{
    return ::flock(file.number(), (kind == JournalFile::Lock::Shared ? LOCK_SH : LOCK_EX) | LOCK_NB) == 0;
}

/// A name that no other recording has had: no process makes two in a millisecond.
std::filesystem::path nameFor(const std::filesystem::path& folder, std::chrono::system_clock::time_point began)
{
    const auto milliseconds = std::chrono::duration_cast<std::chrono::milliseconds>(began.time_since_epoch()).count();
    return folder / (prefix + std::to_string(milliseconds) + '-' + std::to_string(::getpid()) + suffix);
}

/// Where the file system has files without a name: nobody sees it before it is locked.
bool createUnnamed(JournalFile::Named& journal)
{
    FileDescriptor file(::open(journal.path.parent_path().c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, 0600));
    if (file.number() < 0 || !lock(file, JournalFile::Lock::Exclusive))
        return false;
    std::array<char, 40> self{};
    (void)std::snprintf(self.data(), self.size(), "/proc/self/fd/%d", file.number()); // always fits
    if (::linkat(AT_FDCWD, self.data(), AT_FDCWD, journal.path.c_str(), AT_SYMLINK_FOLLOW) != 0)
        return false;
    journal.file = std::move(file);
    return true;
}

/// Anywhere else: under a name that is no journal's until it is locked.
bool createHidden(JournalFile::Named& journal)
{
    std::string hidden = journal.path.parent_path() / ".recording-XXXXXX";
    FileDescriptor file(::mkostemp(hidden.data(), O_CLOEXEC));
    if (file.number() < 0)
        return false;
    if (!lock(file, JournalFile::Lock::Exclusive) || ::rename(hidden.c_str(), journal.path.c_str()) != 0) {
        const int reason = errno;
        (void)::unlink(hidden.c_str()); // it has just been made
        errno = reason;
        return false;
    }
    journal.file = std::move(file);
    return true;
}

} // namespace

JournalFile::Named JournalFile::create(const std::filesystem::path& folder, std::chrono::system_clock::time_point began)
{
    std::error_code error;
    std::filesystem::create_directories(folder, error); // if that failed, creating says so
    Named journal{.file = FileDescriptor(), .path = nameFor(folder, began)};
    if (!createUnnamed(journal) && !createHidden(journal))
        throw SpillError(withArguments(translate("CaptureError", "A long clip needs a file in %1: %2"),
            {folder.string(), std::generic_category().message(errno)}));
    return journal;
}

std::optional<JournalFile::Named> JournalFile::open(const std::filesystem::path& path, Lock kind)
{
    Named journal{
        .file = FileDescriptor(::open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC)), .path = path};
    struct stat status { };
    if (journal.file.number() < 0 || !lock(journal.file, kind) || ::fstat(journal.file.number(), &status) != 0
        || !S_ISREG(status.st_mode) || status.st_uid != ::geteuid() || status.st_nlink == 0)
        return std::nullopt;
    return journal;
}

bool JournalFile::isName(const std::filesystem::path& path)
{
    const std::string name = path.filename().string();
    return name.starts_with(prefix) && name.ends_with(suffix);
}

} // namespace quillbox
