#include "Capture/PipeWire/StreamBuffer.h"

#include "Encoding/Precondition.h"

namespace quillbox {

bool StreamBuffer::isWhole() const
{
    if (width <= 0 || height <= 0 || crop.isEmpty() || crop.x < 0 || crop.y < 0 || crop.width > width - crop.x
        || crop.height > height - crop.y)
        return false;
    const std::int64_t rowBytes = width * bytesPerPixel(order); // far below 2^63
    if (stride < rowBytes || std::ssize(bytes) < rowBytes)
        return false;
    // The last row needs no padding.
    return height - 1 <= (std::ssize(bytes) - rowBytes) / stride;
}

PixelStrides walkUpright(const StreamBuffer& buffer)
{
    precondition(buffer.isWhole(), "a buffer's pixels lie within its memory");
    const std::ptrdiff_t right = bytesPerPixel(buffer.order);
    const std::ptrdiff_t down = buffer.stride;
    const std::ptrdiff_t topLeft = buffer.crop.y * down + buffer.crop.x * right;
    const std::ptrdiff_t acrossX = (buffer.crop.width - 1) * right; // to the last column
    const std::ptrdiff_t acrossY = (buffer.crop.height - 1) * down; // to the last row
    const std::int32_t wide = buffer.crop.width;
    const std::int32_t high = buffer.crop.height;
    switch (buffer.transform) {
    case BufferTransform::None:
        return {wide, high, topLeft, right, down};
    case BufferTransform::Turned90: // the upright picture's first row runs up the first column
        return {high, wide, topLeft + acrossY, -down, right};
    case BufferTransform::Turned180:
        return {wide, high, topLeft + acrossX + acrossY, -right, -down};
    case BufferTransform::Turned270: // it runs down the last column
        return {high, wide, topLeft + acrossX, down, -right};
    case BufferTransform::Flipped:
        return {wide, high, topLeft + acrossX, -right, down};
    case BufferTransform::Flipped90: // down the first column
        return {high, wide, topLeft, down, right};
    case BufferTransform::Flipped180:
        return {wide, high, topLeft + acrossY, right, -down};
    case BufferTransform::Flipped270: // up the last column
        return {high, wide, topLeft + acrossX + acrossY, -down, -right};
    }
    precondition(false, "a buffer's transform is one of eight");
    return {};
}

} // namespace quillbox
