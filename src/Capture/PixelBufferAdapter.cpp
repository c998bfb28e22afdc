#include "Capture/PixelBufferAdapter.h"

#include "Encoding/Multiversion.h"

#include <sys/mman.h>
#include <unistd.h>

#include <bit>
#include <cstring>

namespace quillbox::PixelBufferAdapter {

namespace {

/// A pixel's four bytes as a number: `byte` counts from the lowest address.
constexpr int shiftOf(int byte)
{
    return 8 * (std::endian::native == std::endian::little ? byte : 3 - byte);
}

/// Swaps the first and the third byte of each pixel; `opaque` holds bits to set in every pixel.
QUILLBOX_MULTIVERSION
void swapRedAndBlue(const std::uint8_t* source, std::uint8_t* destination, std::int64_t pixels, std::uint32_t opaque)
{
    constexpr std::uint32_t byteMask = 0xFF;
    constexpr std::uint32_t kept = byteMask << shiftOf(1) | byteMask << shiftOf(3);
    for (std::int64_t i = 0; i < pixels; ++i) {
        std::uint32_t pixel = 0;
        std::memcpy(&pixel, source + i * RGBAFrame::bytesPerPixel, sizeof pixel);
        const std::uint32_t first = (pixel >> shiftOf(0)) & byteMask;
        const std::uint32_t third = (pixel >> shiftOf(2)) & byteMask;
        pixel = (pixel & kept) | first << shiftOf(2) | third << shiftOf(0) | opaque;
        std::memcpy(destination + i * RGBAFrame::bytesPerPixel, &pixel, sizeof pixel);
    }
}

/// Asks the kernel for the buffer's memory in one go: a page fault for each four kilobytes of a large picture costs
/// more than the pixels do. Where the kernel can't (before Linux 5.14) they come as they are written.
void populate(Bytes& pixels)
{
#ifdef MADV_POPULATE_WRITE
    const auto page = static_cast<std::uintptr_t>(::sysconf(_SC_PAGESIZE));
    const auto begin = (reinterpret_cast<std::uintptr_t>(pixels.data()) + page - 1) / page * page;
    const auto end = (reinterpret_cast<std::uintptr_t>(pixels.data()) + pixels.size()) / page * page;
    constexpr std::size_t worthACall = 64 * 1024;
    if (end > begin && end - begin >= worthACall)
        // NOLINTNEXTLINE(performance-no-int-to-ptr): rounded to whole pages, as the call wants it
        (void)::madvise(reinterpret_cast<void*>(begin), end - begin, MADV_POPULATE_WRITE); // only a hint
#endif
}

/// The rows as a tightly packed picture.
Bytes converted(const PixelBuffer& buffer, std::int64_t firstRow, std::int64_t rows)
{
    precondition(buffer.width >= 0 && buffer.height >= 0, "a pixel buffer's size is not negative");
    const std::int64_t rowBytes = checkedMul(buffer.width, RGBAFrame::bytesPerPixel);
    precondition(buffer.height == 0 || buffer.stride >= rowBytes, "a pixel buffer's row holds its pixels");
    (void)checkedMul(buffer.stride, buffer.height); // every offset below fits

    const std::uint32_t opaque = buffer.alpha == PixelBuffer::Alpha::Undefined ? 0xFFU << shiftOf(3) : 0;
    Bytes pixels(static_cast<std::size_t>(checkedMul(rowBytes, rows))); // every byte is written below
    populate(pixels);
    for (std::int64_t y = 0; y < rows; ++y) {
        const std::uint8_t* const source = buffer.base + (firstRow + y) * buffer.stride;
        swapRedAndBlue(source, pixels.data() + y * rowBytes, buffer.width, opaque);
    }
    return pixels;
}

} // namespace

std::optional<RGBAFrame> makeFrame(const PixelBuffer& buffer)
{
    if (buffer.base == nullptr)
        return std::nullopt;
    return RGBAFrame(buffer.width, buffer.height, converted(buffer, 0, buffer.height));
}

RGBAFrame::Band makeBand(const PixelBuffer& buffer, std::int64_t firstRow, std::int64_t rows)
{
    precondition(buffer.base != nullptr && firstRow >= 0 && rows >= 0 && rows <= buffer.height - firstRow,
        "a band's rows are in the buffer");
    return std::make_shared<const PixelBand>(converted(buffer, firstRow, rows));
}

} // namespace quillbox::PixelBufferAdapter
