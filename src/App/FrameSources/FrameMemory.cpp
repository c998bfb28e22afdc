#include "App/FrameSources/FrameMemory.h"

#include "App/FrameSources/FrameReadError.h"
#include "Encoding/GIFEncoder.h"
#include "Encoding/Precondition.h"

#include <unistd.h>

namespace quillbox {

std::int64_t checkedByteCount(const std::string& input, std::int64_t frame, PixelSize size)
{
    const auto fits = [](std::int64_t side) {
        return side >= 1 && side <= GIFEncoder::maximumFieldValue;
    };
    if (!fits(size.width) || !fits(size.height))
        throw FrameReadError(input, FrameReadError::SideOutOfRange{frame, size.width, size.height});
    const auto byteCount = size.width * size.height * 4; // below 2^34, as both sides are below 2^16
    if (byteCount > physicalMemory())
        throw FrameReadError(input, FrameReadError::TooLargeForMemory{frame, size.width, size.height});
    return byteCount;
}

std::int64_t physicalMemory()
{
    return checkedMul(std::int64_t{::sysconf(_SC_PHYS_PAGES)}, ::sysconf(_SC_PAGESIZE));
}

} // namespace quillbox
