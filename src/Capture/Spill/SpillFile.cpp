#include "Capture/Spill/SpillFile.h"

#include "Translation/Translate.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace quillbox {
namespace {

constexpr std::int64_t bytesBetweenChecks = 64 << 20;

std::string reasonOf(int errorNumber)
{
    return std::generic_category().message(errorNumber);
}

/// A file in `folder`, which is made if need be, that no name leads to; none, and errno, where there can't be one.
FileDescriptor openUnnamed(const std::filesystem::path& folder)
{
    std::error_code error;
    std::filesystem::create_directories(folder, error); // if that failed, opening says so
    FileDescriptor file(::open(folder.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, 0600));
    if (file.number() >= 0 || (errno != EOPNOTSUPP && errno != EISDIR && errno != ENOENT))
        return file;
    std::string name = folder / "clip-XXXXXX"; // a file system that has no files without a name
    FileDescriptor named(::mkostemp(name.data(), O_CLOEXEC));
    if (named.number() >= 0)
        (void)::unlink(name.c_str()); // it has just been made
    return named;
}

} // namespace

SpillFile::SpillFile(const std::filesystem::path& folder, std::uint64_t spaceToLeave)
    : m_file(openUnnamed(folder))
    , m_spaceToLeave(spaceToLeave)
{
    if (m_file.number() < 0)
        throw SpillError(withArguments(
            translate("CaptureError", "A long clip needs a file in %1: %2"), {folder.string(), reasonOf(errno)}));
}

SpillFile::SpillFile(FileDescriptor file, std::uint64_t spaceToLeave)
    : m_file(std::move(file))
    , m_spaceToLeave(spaceToLeave)
{
    struct stat status { };
    if (::fstat(m_file.number(), &status) == 0)
        m_size = status.st_size;
}

std::int64_t SpillFile::append(std::span<const std::uint8_t> bytes)
{
    const std::int64_t place = m_size;
    if (place == 0 || place - m_checkedUpTo >= bytesBetweenChecks) {
        struct statvfs disk { };
        if (::fstatvfs(m_file.number(), &disk) == 0 && disk.f_bavail * disk.f_frsize < m_spaceToLeave)
            throw SpillError(translate("CaptureError", "The disk is nearly full"));
        m_checkedUpTo = place;
    }
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t written = ::pwrite(
            m_file.number(), bytes.data() + done, bytes.size() - done, place + static_cast<std::int64_t>(done));
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            throw SpillError(withArguments(translate("CaptureError", "The file of a long clip can't grow: %1"),
                {reasonOf(written < 0 ? errno : ENOSPC)}));
        done += static_cast<std::size_t>(written);
    }
    m_size += std::ssize(bytes);
    return place;
}

void SpillFile::sync() const
{
    (void)::fdatasync(m_file.number()); // what can't be synced is written out later
}

void SpillFile::read(std::int64_t offset, std::span<std::uint8_t> bytes) const
{
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t got = ::pread(
            m_file.number(), bytes.data() + done, bytes.size() - done, offset + static_cast<std::int64_t>(done));
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0)
            throw SpillError(withArguments(translate("CaptureError", "Pixels of the clip can't be read back: %1"),
                {reasonOf(got < 0 ? errno : EIO)}));
        done += static_cast<std::size_t>(got);
    }
}

} // namespace quillbox
