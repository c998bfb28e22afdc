#include "PostCapture/OutputFile.h"

#include "Platform/FileDescriptor.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <functional>
#include <optional>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace quillbox {
namespace {

namespace fs = std::filesystem;
using OutputFile::IfExists;

const std::string temporaryPrefix = ".quillbox-";

/// While it lives, this thread is not interrupted by the signals that end a program from outside.
class SignalsHeld {
public:
    SignalsHeld()
    {
        sigset_t held;
        sigemptyset(&held);
        for (const int signal : {SIGINT, SIGTERM, SIGHUP})
            sigaddset(&held, signal);
        ::pthread_sigmask(SIG_BLOCK, &held, &m_before);
    }
    SignalsHeld(const SignalsHeld&) = delete;
    SignalsHeld& operator=(const SignalsHeld&) = delete;
    ~SignalsHeld() { ::pthread_sigmask(SIG_SETMASK, &m_before, nullptr); }

private:
    sigset_t m_before{};
};

/// Removes a file that did not become what it was meant for.
class Leftover {
public:
    explicit Leftover(fs::path path)
        : m_path(std::move(path))
    {
    }
    Leftover(const Leftover&) = delete;
    Leftover& operator=(const Leftover&) = delete;
    ~Leftover()
    {
        if (!m_path.empty())
            (void)::unlink(m_path.c_str()); // the failure that led here is the one to report
    }
    [[nodiscard]] const fs::path& path() const { return m_path; }
    void keep() { m_path.clear(); }

private:
    fs::path m_path;
};

OutputFileError failure(const fs::path& path)
{
    return OutputFileError::fromErrorNumber(path, errno);
}

std::optional<struct stat> statusOf(const fs::path& path)
{
    struct stat status { };
    if (::stat(path.c_str(), &status) != 0)
        return std::nullopt;
    return status;
}

fs::path folderOf(const fs::path& path)
{
    return path.has_parent_path() ? path.parent_path() : fs::path(".");
}

/// Writes all of the contents to a descriptor.
using WriteAll = std::function<void(int descriptor)>;

/// Puts the contents and the permissions of the file that is replaced into an open, still invisible file.
void fill(int descriptor, const WriteAll& writeAll, const fs::path& path, const std::optional<struct stat>& old)
{
    writeAll(descriptor);
    if (old)
        (void)::fchmod(descriptor, old->st_mode & 07777U); // a file system without permissions has none to lose
    if (::fdatasync(descriptor) != 0)
        throw failure(path);
}

/// Gives the finished file `temporary` its name.
void moveInto(Leftover& temporary, const fs::path& path, IfExists ifExists)
{
    const char* const from = temporary.path().c_str();
    if (ifExists == IfExists::Replace) {
        if (::rename(from, path.c_str()) != 0)
            throw failure(path);
    } else if (::renameat2(AT_FDCWD, from, AT_FDCWD, path.c_str(), RENAME_NOREPLACE) != 0) {
        if (errno != EINVAL && errno != ENOSYS)
            throw failure(path);
        if (::link(from, path.c_str()) != 0) // file systems that can't do it in one step
            throw failure(path);
        return; // and the temporary name is removed
    }
    temporary.keep();
}

/// Saves through a file that has no name until it is whole, so that not even a kill leaves anything.
/// @return false where the file system has no such files; nothing has happened then.
bool saveUnnamed(
    const fs::path& path, const WriteAll& writeAll, IfExists ifExists, const std::optional<struct stat>& old)
{
    const FileDescriptor file(::open(folderOf(path).c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0666));
    if (file.number() < 0)
        return false;                      // a true error comes back from the attempt with a name
    (void)::flock(file.number(), LOCK_EX); // for the moment in which it has a second name, see removeLeftovers
    fill(file.number(), writeAll, path, old);

    const auto self = "/proc/self/fd/" + std::to_string(file.number());
    const SignalsHeld held;
    if (::linkat(AT_FDCWD, self.c_str(), AT_FDCWD, path.c_str(), AT_SYMLINK_FOLLOW) == 0)
        return true;
    if (errno != EEXIST)
        return false;
    if (ifExists == IfExists::Refuse)
        throw failure(path);
    // A link can't replace a file, only a rename can: a second name is needed for a moment.
    for (int attempt = 0; attempt < 100; ++attempt) {
        const auto name
            = folderOf(path) / (temporaryPrefix + std::to_string(::getpid()) + '-' + std::to_string(attempt));
        if (::linkat(AT_FDCWD, self.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) == 0) {
            Leftover temporary(name);
            moveInto(temporary, path, ifExists);
            return true;
        }
        if (errno != EEXIST)
            break;
    }
    throw failure(path);
}

/// The permissions that a new file is not to have. `umask()` tells them only by changing them, for all threads.
mode_t creationMask()
{
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        mode_t mask = 0;
        if (word == "Umask:" && status >> std::oct >> mask)
            return mask;
    }
    return S_IRWXG | S_IRWXO; // not known: the file stays private
}

/// Makes an empty file beside `path` and locks it, so that removeLeftovers() lets it be.
FileDescriptor makeTemporary(const fs::path& path, std::string& name)
{
    for (;;) {
        name = (folderOf(path) / temporaryPrefix).string() + "XXXXXX";
        FileDescriptor file(::mkostemp(name.data(), O_CLOEXEC));
        if (file.number() < 0)
            throw failure(path);
        (void)::flock(file.number(), LOCK_EX); // a file system without locks has no leftovers removed, either
        if (statusOf(name))
            return file;
        // It was taken for a leftover before it was locked.
    }
}

void saveNamed(const fs::path& path, const WriteAll& writeAll, IfExists ifExists, const std::optional<struct stat>& old)
{
    OutputFile::removeLeftovers(folderOf(path));
    std::string name;
    const FileDescriptor file = makeTemporary(path, name);
    Leftover temporary(name);
    (void)::fchmod(file.number(), (S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH) & ~creationMask());
    fill(file.number(), writeAll, path, old);
    const SignalsHeld held;
    moveInto(temporary, path, ifExists);
}

/// Whether the file belongs to this user, and no process is at work on it.
bool isAbandoned(const fs::path& path)
{
    const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
    struct stat status { };
    return file.number() >= 0 && ::fstat(file.number(), &status) == 0 && S_ISREG(status.st_mode)
        && status.st_uid == ::geteuid() && ::flock(file.number(), LOCK_EX | LOCK_NB) == 0;
}

/// `path`, or what it points to when it is a symbolic link: then the link's target is replaced, or made, and not the
/// link.
fs::path resolved(const fs::path& path)
{
    constexpr int longestChain = 40; // as the kernel has it
    fs::path target = path;
    std::error_code error;
    for (int links = 0; fs::is_symlink(target, error); ++links) {
        const fs::path next = fs::read_symlink(target, error);
        if (error || links == longestChain)
            return path;                  // what opens it says what is wrong
        target = folderOf(target) / next; // an absolute one stands for itself
    }
    return target;
}

void saveContents(const fs::path& path, const WriteAll& writeAll, IfExists ifExists)
{
    OutputFile::check(path, ifExists);
    const auto target = resolved(path);
    const auto old = statusOf(target);
    if (old && !S_ISREG(old->st_mode)) {
        const FileDescriptor device(::open(target.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY));
        if (device.number() < 0)
            throw failure(path);
        writeAll(device.number());
        return;
    }
    if (!saveUnnamed(target, writeAll, ifExists, old))
        saveNamed(target, writeAll, ifExists, old);
}

} // namespace

void OutputFile::check(const std::filesystem::path& path, IfExists ifExists)
{
    if (const auto status = statusOf(path)) {
        if (S_ISDIR(status->st_mode))
            throw OutputFileError(path, OutputFileError::Reason::IsFolder);
        if (!S_ISREG(status->st_mode))
            return;
        if (ifExists == IfExists::Refuse)
            throw OutputFileError(path, OutputFileError::Reason::AlreadyExists);
    } else if (errno == ENAMETOOLONG || errno == ELOOP) {
        throw failure(path);
    }
    if (!path.has_filename())
        throw OutputFileError(path, OutputFileError::Reason::IsFolder);
    const auto folder = folderOf(resolved(path));
    const auto status = statusOf(folder);
    if (!status || !S_ISDIR(status->st_mode))
        throw OutputFileError(path, OutputFileError::Reason::FolderMissing);
    if (::access(folder.c_str(), W_OK | X_OK) != 0)
        throw failure(path);
}

void OutputFile::save(const std::filesystem::path& path, std::span<const std::uint8_t> bytes, IfExists ifExists)
{
    saveContents(
        path, [&](int descriptor) { write(descriptor, bytes, path); }, ifExists);
}

void OutputFile::saveInPieces(const std::filesystem::path& path, std::span<const KeptBytes> pieces, IfExists ifExists)
{
    const auto writeAll = [&](int descriptor) {
        for (const KeptBytes& piece : pieces)
            write(descriptor, *piece.read(), path);
    };
    saveContents(path, writeAll, ifExists);
}

void OutputFile::removeLeftovers(const std::filesystem::path& folder)
{
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        const auto& path = entry->path();
        if (path.filename().string().starts_with(temporaryPrefix) && isAbandoned(path))
            (void)::unlink(path.c_str()); // what can't be removed stays
    }
}

void OutputFile::write(int descriptor, std::span<const std::uint8_t> bytes, const std::filesystem::path& path)
{
    while (!bytes.empty()) {
        const auto written = ::write(descriptor, bytes.data(), bytes.size());
        if (written < 0) {
            if (errno == EINTR)
                continue;
            throw failure(path);
        }
        bytes = bytes.subspan(static_cast<std::size_t>(written));
    }
}

} // namespace quillbox
