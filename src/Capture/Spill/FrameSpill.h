#pragma once

#include "Capture/Spill/SpillFile.h"
#include "Encoding/Pixels/PixelTypes.h"

#include <cstdint>
#include <deque>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>

namespace quillbox {

/// Keeps what a long recording or input holds within a bound. The newest bands of its frames stay as they are; older
/// ones are evicted: compressed (LZ4), in memory as long as there is room, then in a file without a name. One thread at
/// a time; the frames may be looked at by any meanwhile, and outlive the store.
class FrameSpill {
public:
    struct Limits {
        std::int64_t plainBytes;  ///< of bands that are not compressed
        std::int64_t memoryBytes; ///< of compressed ones in memory
        std::uint64_t diskSpaceToLeave;
        std::int64_t waitingBytes = 256'000'000; ///< of pictures that nobody has taken care of yet
    };
    static constexpr std::int64_t maxMemory = 2'000'000'000;
    static constexpr std::int64_t usualMemory = 128'000'000;
    /// `most` bytes, but no more than a quarter of the memory that is available now; or what the environment's
    /// QUILLBOX_RECORDING_MEMORY says, in megabytes, but no more than `maxMemory`.
    [[nodiscard]] static std::int64_t memoryShare(std::int64_t most);
    /// A share of `usualMemory`, a third of it for bands as they are. 1 GB of disk for others.
    [[nodiscard]] static Limits usualLimits();
    /// For what is kept of an input: a share of `most` bytes of memory for bands as they are, the rest in the file.
    [[nodiscard]] static Limits inputLimits(std::int64_t most = maxMemory);
    /// The program's own in the user's cache folder; it need not exist.
    [[nodiscard]] static std::filesystem::path usualFolder();

    FrameSpill(Limits limits, std::filesystem::path folder);

    /// Takes care of the next frame's bands. Those that it shares with the frame before are in care already.
    /// @throws SpillError  there is no room any more. What was recorded is all there; no frame should follow.
    void keep(const RGBAFrame& frame);

    /// Moves all pixels of frames made of bands to the file, whoever has shares in them.
    /// @throws SpillError  there is no room; what was not moved stays as it is.
    static void moveToFile(
        std::span<const RGBAFrame> frames, std::uint64_t diskSpaceToLeave, const std::filesystem::path& folder);

    [[nodiscard]] const Limits& limits() const { return m_limits; }
    [[nodiscard]] std::int64_t plainBytes() const { return m_plainBytes; }
    [[nodiscard]] std::int64_t compressedBytes() const { return m_compressedBytes; }
    [[nodiscard]] std::int64_t fileBytes() const { return m_file ? m_file->size() : 0; }

private:
    /// A band in memory as it is, perhaps forgotten by all frames.
    struct Plain {
        std::weak_ptr<const PixelBand> band;
        std::int64_t byteCount;
    };

    void evict(const PixelBand& band);

    Limits m_limits;
    std::filesystem::path m_folder;
    std::optional<RGBAFrame> m_previous;
    std::deque<Plain> m_plain; ///< oldest first
    std::int64_t m_plainBytes = 0;
    std::int64_t m_compressedBytes = 0; ///< in memory
    std::shared_ptr<SpillFile> m_file;
    Bytes m_scratch;
};

} // namespace quillbox
