#pragma once

#include "Encoding/Bytes.h"
#include "Platform/FileDescriptor.h"

#include <cstdint>
#include <filesystem>
#include <span>
#include <stdexcept>

namespace quillbox {

/// No more can be written: the disk, or the user's share of it, is all but full, or it failed.
class SpillError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// A file for pixels; without a name unless it was given one, so that it goes with its last user, even if the process
/// is killed. Written at its end by one thread, read by any.
class SpillFile {
public:
    /// @param folder        Made if need be.
    /// @param spaceToLeave  Bytes of the disk that stay free for others.
    /// @throws SpillError  there can be no file.
    SpillFile(const std::filesystem::path& folder, std::uint64_t spaceToLeave);

    /// A file that is open already, for reading or for both.
    explicit SpillFile(FileDescriptor file, std::uint64_t spaceToLeave = 0);

    /// @return where the bytes are. @throws SpillError  nothing was added.
    [[nodiscard]] std::int64_t append(std::span<const std::uint8_t> bytes);

    /// @throws SpillError  they can't be read back.
    void read(std::int64_t offset, std::span<std::uint8_t> bytes) const;

    /// Has all that was written reach the disk; waits for it. Ignored where that can't be.
    void sync() const;

    [[nodiscard]] std::int64_t size() const { return m_size; }

private:
    FileDescriptor m_file;
    std::uint64_t m_spaceToLeave;
    std::int64_t m_size = 0;
    std::int64_t m_checkedUpTo = 0; ///< so far there was enough space when it was last looked at
};

} // namespace quillbox
