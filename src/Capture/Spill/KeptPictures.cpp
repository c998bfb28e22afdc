#include "Capture/Spill/KeptPictures.h"

#include <utility>

namespace quillbox {
namespace {

constexpr std::int64_t frugalBytes = 128'000'000;
constexpr std::int64_t plainBytes = 32'000'000; // the last few, with which the next ones are compared

} // namespace

KeptPictures::KeptPictures(std::int64_t memoryBytes, std::filesystem::path folder)
    : m_memoryBytes(memoryBytes)
    , m_store(
          {.plainBytes = plainBytes, .memoryBytes = 0, .diskSpaceToLeave = FrameSpill::usualLimits().diskSpaceToLeave},
          std::move(folder))
{
}

KeptPictures::KeptPictures()
    : KeptPictures(FrameSpill::memoryShare(FrameSpill::maxMemory), FrameSpill::usualFolder())
{
}

KeptPictures KeptPictures::frugal()
{
    return {FrameSpill::memoryShare(frugalBytes), FrameSpill::usualFolder()};
}

RGBAFrame KeptPictures::keep(const RGBAFrame& picture)
{
    const std::int64_t byteCount = picture.pixelCount() * RGBAFrame::bytesPerPixel;
    if (byteCount <= m_memoryBytes) {
        m_memoryBytes -= byteCount;
        return picture;
    }
    m_memoryBytes = 0; // from here on all are made of bands, which share what stays the same
    RGBAFrame banded = m_bands.compared(picture);
    m_store.keep(banded);
    return banded;
}

} // namespace quillbox
