#pragma once

#include "Capture/Spill/SpillFile.h"
#include "Encoding/Bytes.h"
#include "Encoding/Pixels/BackingStore.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

namespace quillbox {

/// How pixels lie outside memory: one LZ4 block, or as they are where that is not smaller.
/// @see LZ4 Block Format Description, lz4/lz4 on GitHub
namespace CompressedBand {

/// Appends the compressed pixels to `bytes`. @return how many bytes that were, `pixels.size()` at most.
std::size_t append(Bytes& bytes, std::span<const std::uint8_t> pixels);

/// @param byteCount  Of the pixels. @throws SpillError  the bytes are not those of so many pixels.
[[nodiscard]] std::shared_ptr<const Bytes> decompressed(std::span<const std::uint8_t> bytes, std::size_t byteCount);

} // namespace CompressedBand

/// Compressed pixels in a file. Its read() throws SpillError.
class CompressedInFile final : public BackingStore {
public:
    CompressedInFile(
        std::shared_ptr<const SpillFile> file, std::int64_t offset, std::size_t size, std::size_t byteCount);
    [[nodiscard]] std::shared_ptr<const Bytes> read() const override;

private:
    std::shared_ptr<const SpillFile> m_file;
    std::int64_t m_offset;
    std::size_t m_size;
    std::size_t m_byteCount;
};

} // namespace quillbox
