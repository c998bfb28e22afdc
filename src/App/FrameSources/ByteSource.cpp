#include "App/FrameSources/ByteSource.h"

#include "App/FrameSources/FrameReadError.h"
#include "Encoding/Precondition.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace quillbox {
namespace {

/// What a system call that reads gave, as soon as no signal interrupts it; it gives at most 2 GB at once.
template <typename Call> std::size_t bytesRead(const std::string& name, Call call)
{
    for (;;) {
        const auto got = call();
        if (got >= 0)
            return static_cast<std::size_t>(got);
        if (errno != EINTR)
            throw FrameReadError(name, FrameReadError::CannotRead{errno});
    }
}

} // namespace

FileExtract::FileExtract(std::string name, FileDescriptor file, std::int64_t begin)
    : m_name(std::move(name))
    , m_file(std::move(file))
    , m_begin(begin)
{
}

void FileExtract::read(std::int64_t offset, std::span<std::uint8_t> into) const
{
    while (!into.empty()) {
        const auto got
            = bytesRead(m_name, [&] { return ::pread(m_file.number(), into.data(), into.size(), m_begin + offset); });
        if (got == 0)
            throw FrameReadError(m_name, FrameReadError::BecameShorter{});
        offset += static_cast<std::int64_t>(got);
        into = into.subspan(got);
    }
}

ByteSource::ByteSource(std::string name)
    : m_name(std::move(name))
{
}

std::span<const std::uint8_t> ByteSource::peek(std::size_t count)
{
    precondition(count <= lookaheadSize, "a look ahead stays within its buffer");
    auto held = m_lookahead.size() - m_lookaheadBegin;
    if (held < count) {
        m_lookahead.erase(m_lookahead.begin(), m_lookahead.end() - static_cast<std::ptrdiff_t>(held));
        m_lookaheadBegin = 0;
        m_lookahead.resize(lookaheadSize);
        while (held < count) {
            const auto got = readSome(std::span(m_lookahead).subspan(held));
            if (got == 0)
                break;
            held += got;
        }
        m_lookahead.resize(held);
    }
    return std::span(m_lookahead).subspan(m_lookaheadBegin, std::min(held, count));
}

std::size_t ByteSource::read(std::span<std::uint8_t> into)
{
    const auto held = std::span(m_lookahead).subspan(m_lookaheadBegin);
    auto done = std::min(held.size(), into.size());
    std::copy_n(held.begin(), done, into.begin());
    m_lookaheadBegin += done;
    while (done < into.size()) {
        const auto got = readSome(into.subspan(done));
        if (got == 0)
            break;
        done += got;
    }
    return done;
}

std::size_t ByteSource::readAhead(std::int64_t distance, std::span<std::uint8_t> into) const
{
    const auto held = std::span(m_lookahead).subspan(m_lookaheadBegin);
    const auto passed = std::min(static_cast<std::size_t>(distance), held.size());
    auto done = std::min(held.size() - passed, into.size());
    std::copy_n(held.begin() + static_cast<std::ptrdiff_t>(passed), done, into.begin());
    while (done < into.size()) {
        const auto below = distance + static_cast<std::int64_t>(done) - std::ssize(held);
        const auto got = readSomeAhead(below, into.subspan(done));
        if (got == 0)
            break;
        done += got;
    }
    return done;
}

void ByteSource::skip(std::int64_t count)
{
    const auto held = std::min(lookaheadCount(), count);
    m_lookaheadBegin += static_cast<std::size_t>(held);
    skipBelow(count - held);
}

std::size_t ByteSource::readSomeAhead(std::int64_t /*distance*/, std::span<std::uint8_t> /*into*/) const
{
    brokenInvariant("this source is read from front to back", SourceLine::current());
}

void ByteSource::skipBelow(std::int64_t /*count*/)
{
    brokenInvariant("this source is read from front to back", SourceLine::current());
}

ByteSource::Line ByteSource::readLine()
{
    for (std::size_t searched = 0, wanted = 64;; wanted = std::min(wanted * 4, lookaheadSize)) {
        const auto bytes = peek(wanted);
        const auto newline = std::find(bytes.begin() + static_cast<std::ptrdiff_t>(searched), bytes.end(), '\n');
        const auto length = static_cast<std::size_t>(newline - bytes.begin());
        const bool complete = newline != bytes.end();
        if (complete || bytes.size() < wanted || wanted == lookaheadSize) {
            Line line{std::string(bytes.begin(), newline), complete};
            m_lookaheadBegin += length + (complete ? 1 : 0);
            return line;
        }
        searched = bytes.size();
    }
}

std::optional<std::int64_t> ByteSource::remaining() const
{
    auto below = remainingBelow();
    if (below)
        *below += lookaheadCount();
    return below;
}

FileByteSource::FileByteSource(const std::string& path)
    : ByteSource(path)
    , m_opened(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY))
    , m_descriptor(m_opened.number())
{
    if (m_descriptor < 0)
        throw FrameReadError(path, FrameReadError::CannotOpen{errno});
    examine();
}

FileByteSource::FileByteSource(std::string name, int descriptor)
    : ByteSource(std::move(name))
    , m_descriptor(descriptor)
{
    examine();
}

void FileByteSource::examine()
{
    struct stat status { };
    if (::fstat(m_descriptor, &status) != 0)
        throw FrameReadError(name(), FrameReadError::CannotOpen{errno});
    if (S_ISDIR(status.st_mode))
        throw FrameReadError(name(), FrameReadError::CannotOpen{EISDIR});
    m_isRegularFile = S_ISREG(status.st_mode);
    m_size = status.st_size;
    // Both only make reading faster; where they are refused, nothing is lost.
    if (m_isRegularFile)
        (void)::posix_fadvise(m_descriptor, 0, 0, POSIX_FADV_SEQUENTIAL);
    else if (S_ISFIFO(status.st_mode))
        (void)::fcntl(m_descriptor, F_SETPIPE_SZ, 1 << 20);
}

std::size_t FileByteSource::readSome(std::span<std::uint8_t> into)
{
    return bytesRead(name(), [&] { return ::read(m_descriptor, into.data(), into.size()); });
}

std::int64_t FileByteSource::position() const
{
    const auto position = ::lseek(m_descriptor, 0, SEEK_CUR);
    if (position < 0)
        throw FrameReadError(name(), FrameReadError::CannotRead{errno});
    return position;
}

std::size_t FileByteSource::readSomeAhead(std::int64_t distance, std::span<std::uint8_t> into) const
{
    const auto begin = checkedAdd(position(), distance);
    return bytesRead(name(), [&] { return ::pread(m_descriptor, into.data(), into.size(), begin); });
}

std::shared_ptr<const FileExtract> FileByteSource::extract() const
{
    if (!hasContents())
        return nullptr;
    FileDescriptor again(::fcntl(m_descriptor, F_DUPFD_CLOEXEC, 0));
    if (again.number() < 0)
        return nullptr; // nothing that could not be done without
    return std::make_shared<const FileExtract>(name(), std::move(again), position() - lookaheadCount());
}

void FileByteSource::skipBelow(std::int64_t count)
{
    if (::lseek(m_descriptor, count, SEEK_CUR) < 0)
        throw FrameReadError(name(), FrameReadError::CannotRead{errno});
}

std::optional<std::int64_t> FileByteSource::remainingBelow() const
{
    if (!hasContents())
        return std::nullopt;
    const auto position = ::lseek(m_descriptor, 0, SEEK_CUR);
    if (position < 0)
        return std::nullopt;
    return std::max<std::int64_t>(0, m_size - position);
}

} // namespace quillbox
