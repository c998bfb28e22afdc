#include "Capture/Spill/CompressedBand.h"

#include "Translation/Translate.h"

#include <lz4.h>

#include <algorithm>
#include <utility>

namespace quillbox {

std::size_t CompressedBand::append(Bytes& bytes, std::span<const std::uint8_t> pixels)
{
    const std::size_t before = bytes.size();
    bytes.resize(before + static_cast<std::size_t>(LZ4_compressBound(static_cast<int>(pixels.size()))));
    const int got = LZ4_compress_default(reinterpret_cast<const char*>(pixels.data()),
        reinterpret_cast<char*>(bytes.data() + before), static_cast<int>(pixels.size()),
        static_cast<int>(bytes.size() - before));
    std::size_t size = static_cast<std::size_t>(std::max(got, 0));
    if (size == 0 || size >= pixels.size()) { // it is not worth it
        std::ranges::copy(pixels, bytes.begin() + static_cast<std::ptrdiff_t>(before));
        size = pixels.size();
    }
    bytes.resize(before + size);
    return size;
}

std::shared_ptr<const Bytes> CompressedBand::decompressed(std::span<const std::uint8_t> bytes, std::size_t byteCount)
{
    if (bytes.size() == byteCount)
        return std::make_shared<const Bytes>(bytes.begin(), bytes.end());
    Bytes pixels(byteCount);
    const int got = LZ4_decompress_safe(reinterpret_cast<const char*>(bytes.data()),
        reinterpret_cast<char*>(pixels.data()), static_cast<int>(bytes.size()), static_cast<int>(byteCount));
    if (!std::cmp_equal(got, byteCount))
        throw SpillError(translate("CaptureError", "Pixels of the clip can't be read back: they are damaged"));
    return std::make_shared<const Bytes>(std::move(pixels));
}

CompressedInFile::CompressedInFile(
    std::shared_ptr<const SpillFile> file, std::int64_t offset, std::size_t size, std::size_t byteCount)
    : m_file(std::move(file))
    , m_offset(offset)
    , m_size(size)
    , m_byteCount(byteCount)
{
}

std::shared_ptr<const Bytes> CompressedInFile::read() const
{
    Bytes bytes(m_size);
    m_file->read(m_offset, bytes);
    return m_size == m_byteCount ? std::make_shared<const Bytes>(std::move(bytes))
                                 : CompressedBand::decompressed(bytes, m_byteCount);
}

} // namespace quillbox
