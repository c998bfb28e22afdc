#include "Capture/Spill/ByteSpill.h"

#include "Capture/Spill/CompressedBand.h"

#include <lz4.h>

#include <iterator>
#include <utility>

namespace quillbox {

ByteSpill::ByteSpill(std::uint64_t diskSpaceToLeave, std::filesystem::path folder)
    : m_diskSpaceToLeave(diskSpaceToLeave)
    , m_folder(std::move(folder))
{
}

std::unique_ptr<const BackingStore> ByteSpill::store(std::span<const std::uint8_t> bytes)
{
    if (bytes.size() > LZ4_MAX_INPUT_SIZE)
        return nullptr;
    Bytes compressed;
    (void)CompressedBand::append(compressed, bytes); // its size is the buffer's
    const std::scoped_lock lock(m_mutex);
    if (m_isFull)
        return nullptr;
    try {
        if (!m_file)
            m_file = std::make_shared<SpillFile>(m_folder, m_diskSpaceToLeave);
        const std::int64_t place = m_file->append(compressed);
        return std::make_unique<CompressedInFile>(m_file, place, compressed.size(), bytes.size());
    } catch (const SpillError&) { // NOLINT(bugprone-empty-catch): whoever has the bytes can do without
        m_isFull = true;
        return nullptr;
    }
}

std::int64_t ByteSpill::fileBytes() const
{
    const std::scoped_lock lock(m_mutex);
    return m_file ? m_file->size() : 0;
}

} // namespace quillbox
