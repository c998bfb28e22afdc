#include "Capture/Spill/FrameSpill.h"

#include "Capture/Spill/CompressedBand.h"

#include <QStandardPaths>

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

namespace quillbox {
namespace {

constexpr std::int64_t megabyte = 1'000'000;

/// What the kernel thinks a program may take without the machine swapping; 0 if it does not say.
std::int64_t availableMemory()
{
    std::ifstream file("/proc/meminfo");
    std::string name;
    std::int64_t kilobytes = 0;
    for (std::string unit; file >> name >> kilobytes; std::getline(file, unit)) {
        if (name == "MemAvailable:")
            return kilobytes * 1024;
    }
    return 0;
}

/// What the environment asks for; none if it does not, or not in a whole number of megabytes.
std::optional<std::int64_t> wantedMemory()
{
    const char* const text = std::getenv("QUILLBOX_RECORDING_MEMORY");
    const std::string_view digits = text != nullptr ? text : "";
    std::int64_t megabytes = 0;
    const auto [end, error] = std::from_chars(digits.begin(), digits.end(), megabytes);
    if (error != std::errc() || end != digits.end() || megabytes < 0)
        return std::nullopt;
    return std::min(megabytes, FrameSpill::maxMemory / megabyte) * megabyte;
}

/// Compressed pixels in memory.
class CompressedInMemory final : public BackingStore {
public:
    CompressedInMemory(Bytes bytes, std::size_t byteCount)
        : m_bytes(std::move(bytes))
        , m_byteCount(byteCount)
    {
    }
    [[nodiscard]] std::shared_ptr<const Bytes> read() const override
    {
        return CompressedBand::decompressed(m_bytes, m_byteCount);
    }
    [[nodiscard]] std::size_t memoryBytes() const override { return m_bytes.size(); }

private:
    Bytes m_bytes;
    std::size_t m_byteCount;
};

void compress(const PixelBand& band, Bytes& compressed)
{
    const PixelView pixels = band.pixels();
    compressed.clear();
    (void)CompressedBand::append(compressed, {pixels.data(), pixels.size()});
}

/// @param compressed  The band's pixels.
void evictTo(const std::shared_ptr<SpillFile>& file, const PixelBand& band, const Bytes& compressed)
{
    const std::int64_t place = file->append(compressed);
    band.evict(std::make_unique<CompressedInFile>(file, place, compressed.size(), band.byteCount()));
}

} // namespace

std::int64_t FrameSpill::memoryShare(std::int64_t most)
{
    return wantedMemory().value_or(std::min(availableMemory() / 4, most));
}

FrameSpill::Limits FrameSpill::usualLimits()
{
    const std::int64_t memory = memoryShare(usualMemory);
    return {.plainBytes = memory / 3, .memoryBytes = memory - memory / 3, .diskSpaceToLeave = 1000 * megabyte};
}

FrameSpill::Limits FrameSpill::inputLimits(std::int64_t most)
{
    constexpr std::int64_t lastFew = 32 * megabyte; // with which the next ones are compared
    return {.plainBytes = std::max(memoryShare(most), lastFew),
        .memoryBytes = 0,
        .diskSpaceToLeave = usualLimits().diskSpaceToLeave};
}

std::filesystem::path FrameSpill::usualFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation).toStdString() + "/Quillbox";
}

FrameSpill::FrameSpill(Limits limits, std::filesystem::path folder)
    : m_limits(limits)
    , m_folder(std::move(folder))
{
}

void FrameSpill::keep(const RGBAFrame& frame)
{
    const bool isLikeBefore
        = m_previous && m_previous->width() == frame.width() && m_previous->height() == frame.height();
    for (std::int64_t index = 0; index < frame.bandCount(); ++index) {
        const RGBAFrame::Band band = frame.ownBand(index);
        if (!band || (isLikeBefore && frame.sharesBand(*m_previous, index)))
            continue;
        const auto byteCount = static_cast<std::int64_t>(band->byteCount());
        m_plain.push_back({.band = band, .byteCount = byteCount});
        m_plainBytes += byteCount;
    }
    m_previous = frame;
    while (m_plainBytes > m_limits.plainBytes) {
        if (const auto band = m_plain.front().band.lock())
            evict(*band);
        m_plainBytes -= m_plain.front().byteCount;
        m_plain.pop_front();
    }
}

void FrameSpill::moveToFile(
    std::span<const RGBAFrame> frames, std::uint64_t diskSpaceToLeave, const std::filesystem::path& folder)
{
    std::shared_ptr<SpillFile> file;
    Bytes compressed;
    for (const RGBAFrame& frame : frames) {
        for (std::int64_t index = 0; index < frame.bandCount(); ++index) {
            const RGBAFrame::Band band = frame.ownBand(index);
            if (!band)
                continue;
            if (band->isBacked())
                band->evict();
            if (band->memoryBytes() == 0) // it is in a file already
                continue;
            if (!file)
                file = std::make_shared<SpillFile>(folder, diskSpaceToLeave);
            compress(*band, compressed);
            evictTo(file, *band, compressed);
        }
    }
}

void FrameSpill::evict(const PixelBand& band)
{
    if (band.isBacked()) {
        band.evict();
        return;
    }
    compress(band, m_scratch);
    const auto count = std::ssize(m_scratch);
    if (m_compressedBytes + count <= m_limits.memoryBytes) {
        m_compressedBytes += count;
        band.evict(std::make_unique<CompressedInMemory>(Bytes(m_scratch.begin(), m_scratch.end()), band.byteCount()));
    } else {
        if (!m_file)
            m_file = std::make_shared<SpillFile>(m_folder, m_limits.diskSpaceToLeave);
        evictTo(m_file, band, m_scratch);
    }
}

} // namespace quillbox
