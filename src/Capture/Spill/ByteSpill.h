#pragma once

#include "Capture/Spill/SpillFile.h"
#include "Encoding/Pixels/BackingStore.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <mutex>
#include <span>

namespace quillbox {

/// Takes bytes of any kind out of memory: compressed, into a file without a name, which is made when it is needed.
/// Thread: any, several at once.
class ByteSpill {
public:
    /// As FrameSpill's.
    ByteSpill(std::uint64_t diskSpaceToLeave, std::filesystem::path folder);

    /// @return null where there is no room, from the first time on. The others outlive this object; their read() throws
    ///         SpillError.
    [[nodiscard]] std::unique_ptr<const BackingStore> store(std::span<const std::uint8_t> bytes);

    [[nodiscard]] std::int64_t fileBytes() const;

private:
    std::uint64_t m_diskSpaceToLeave;
    std::filesystem::path m_folder;
    mutable std::mutex m_mutex; // guards what follows
    std::shared_ptr<SpillFile> m_file;
    bool m_isFull = false;
};

} // namespace quillbox
