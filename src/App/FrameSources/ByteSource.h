#pragma once

#include "Encoding/Bytes.h"
#include "Platform/FileDescriptor.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>

namespace quillbox {

/// Reads again from a file what a source gave, also when the source is gone. Thread: any, several at once.
class FileExtract {
public:
    /// @param name   The file as the user knows it, for messages.
    /// @param begin  Where the extract begins in the file, bytes.
    FileExtract(std::string name, FileDescriptor file, std::int64_t begin);

    /// Fills `into` from `offset` bytes behind the extract's beginning on.
    /// @throws FrameReadError  `CannotRead`, or `BecameShorter` where the file ends before.
    void read(std::int64_t offset, std::span<std::uint8_t> into) const;

private:
    std::string m_name;
    FileDescriptor m_file;
    std::int64_t m_begin;
};

/// A stream of bytes that is read once, from front to back. Large reads go straight to where they are wanted.
/// One thread at a time.
class ByteSource {
public:
    /// The most that `peek` shows and `readLine` finds, bytes.
    static constexpr std::size_t lookaheadSize = 4096;

    /// @param name  The input as the user knows it, for messages.
    explicit ByteSource(std::string name);
    ByteSource(const ByteSource&) = delete;
    ByteSource& operator=(const ByteSource&) = delete;
    virtual ~ByteSource() = default;

    [[nodiscard]] const std::string& name() const { return m_name; }

    /// The next bytes, which stay unread: `count` of them (at most `lookaheadSize`), or fewer where the input ends.
    /// Valid until the next call. @throws FrameReadError
    [[nodiscard]] std::span<const std::uint8_t> peek(std::size_t count);

    /// Fills `into`, or less of it where the input ends. @return bytes read. @throws FrameReadError
    [[nodiscard]] std::size_t read(std::span<std::uint8_t> into);

    /// Whether `readAhead` works: for files and memory, not for pipes and devices.
    [[nodiscard]] virtual bool canReadAhead() const { return false; }

    /// Fills `into`, or less of it where the input ends, with what begins `distance` bytes behind the next byte, and
    /// leaves all unread. Several threads may call this at once, while nobody calls anything else.
    /// @return bytes read. @pre `canReadAhead()`. @throws FrameReadError
    [[nodiscard]] std::size_t readAhead(std::int64_t distance, std::span<std::uint8_t> into) const;

    /// All that is still to be read, to be read again later; none for what is no file on a disk.
    [[nodiscard]] virtual std::shared_ptr<const FileExtract> extract() const { return nullptr; }

    /// Passes over `count` bytes. @pre `canReadAhead()`, and so many bytes are there. @throws FrameReadError
    void skip(std::int64_t count);

    struct Line {
        std::string text;      ///< without its newline
        bool complete = false; ///< whether the newline was there, within `lookaheadSize` bytes
    };
    /// Takes the bytes up to and including the next newline; if none is near, what `peek` would show.
    /// At the end of the input the line is empty and incomplete. @throws FrameReadError
    [[nodiscard]] Line readLine();

    /// Bytes that are still to be read, if that is known before reading them.
    [[nodiscard]] std::optional<std::int64_t> remaining() const;

protected:
    /// Reads at least one byte, at most `into.size()`; 0 only at the end of the input. @throws FrameReadError
    [[nodiscard]] virtual std::size_t readSome(std::span<std::uint8_t> into) = 0;
    /// What `readSome` would give after `distance` more bytes; the same rules. Only for sources that
    /// `canReadAhead()`. @throws FrameReadError
    [[nodiscard]] virtual std::size_t readSomeAhead(std::int64_t distance, std::span<std::uint8_t> into) const;
    /// Passes over bytes that `readSome` would give. Only for sources that `canReadAhead()`. @throws FrameReadError
    virtual void skipBelow(std::int64_t count);
    /// Bytes that were read from below and are still to be handed out.
    [[nodiscard]] std::int64_t lookaheadCount() const
    {
        return static_cast<std::int64_t>(m_lookahead.size() - m_lookaheadBegin);
    }
    /// Bytes that `readSome` is still going to give, if known.
    [[nodiscard]] virtual std::optional<std::int64_t> remainingBelow() const = 0;

private:
    std::string m_name;
    Bytes m_lookahead; ///< read from below but not yet handed out
    std::size_t m_lookaheadBegin = 0;
};

/// A file, pipe or device.
class FileByteSource final : public ByteSource {
public:
    /// Opens `path` for reading. @throws FrameReadError  it can't be opened, or is a folder.
    explicit FileByteSource(const std::string& path);
    /// Reads on from `descriptor`, which stays open afterwards. @throws FrameReadError  it is a folder, or not open.
    FileByteSource(std::string name, int descriptor);

    [[nodiscard]] int descriptor() const { return m_descriptor; }
    /// Whether this is a file whose bytes can be read in any order, rather than a pipe or a device.
    [[nodiscard]] bool isRegularFile() const { return m_isRegularFile; }
    [[nodiscard]] bool canReadAhead() const override { return m_isRegularFile; }
    [[nodiscard]] std::shared_ptr<const FileExtract> extract() const override;

private:
    void examine();
    /// Not so for files that the kernel makes as they are read: they have no size.
    [[nodiscard]] bool hasContents() const { return m_isRegularFile && m_size > 0; }
    [[nodiscard]] std::int64_t position() const;
    std::size_t readSome(std::span<std::uint8_t> into) override;
    [[nodiscard]] std::size_t readSomeAhead(std::int64_t distance, std::span<std::uint8_t> into) const override;
    void skipBelow(std::int64_t count) override;
    [[nodiscard]] std::optional<std::int64_t> remainingBelow() const override;

    FileDescriptor m_opened; ///< none where the caller has it
    int m_descriptor;
    bool m_isRegularFile = false;
    std::int64_t m_size = 0; ///< of a regular file, when it was opened
};

} // namespace quillbox
