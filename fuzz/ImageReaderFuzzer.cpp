#include "App/FrameSources/FrameReadError.h"
#include "App/FrameSources/Images/ImageFile.h"
#include "App/FrameSources/Images/ImageReader.h"
#include "App/FrameSources/Transparency.h"
#include "Encoding/Precondition.h"

#include <QBuffer>
#include <QByteArray>
#include <QCoreApplication>
#include <QImageReader>
#include <QSize>

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>
#include <string_view>
#include <sys/mman.h>
#include <unistd.h>
#include <vector>

using namespace quillbox;

namespace {

/// What the decoders' plugins are found by; made once.
void startToolkit()
{
    static int count = 1;
    static std::array<char, 5> name{'f', 'u', 'z', 'z', '\0'};
    static std::array<char*, 2> arguments{name.data(), nullptr};
    static const QCoreApplication application(count, arguments.data());
}

/// Whether the reader refuses it without having it decoded, whatever size it announces.
bool isRefusedAtSight(std::span<const std::uint8_t> file)
{
    const auto kind = ImageFile::kindOf(file);
    const auto extent = ImageFile::extentOf(file, kind);
    return kind == ImageFile::Kind::video || (extent.isCutOff && extent.wholeFrames == 0);
}

/// Whether a header announces a picture that would take long: they are decoded by others, in a loop over its pixels.
/// @param file  At least 32 bytes.
bool isLarge(std::span<const std::uint8_t> file)
{
    constexpr unsigned largestSide = 40;
    const auto begins = [&](std::string_view word) {
        return std::equal(word.begin(), word.end(), file.begin(),
            [](char a, std::uint8_t b) { return static_cast<std::uint8_t>(a) == b; });
    };
    const auto bigEndian = [&](std::size_t at) {
        return unsigned{file[at]} << 8U | file[at + 1];
    };
    const auto littleEndian = [&](std::size_t at) {
        return unsigned{file[at + 1]} << 8U | file[at];
    };
    if (begins("\x8AMNG") || begins("\x8BJNG")) // their decoder makes room for the picture when asked for its size
        return true;
    if (begins("GIF"))
        return littleEndian(6) > largestSide || littleEndian(8) > largestSide;
    if (begins("BM"))
        return (littleEndian(18) | littleEndian(20)) > largestSide
            || (littleEndian(22) | littleEndian(24)) > largestSide;
    if (begins("\x89PNG"))
        return (bigEndian(16) | bigEndian(18)) > largestSide || (bigEndian(20) | bigEndian(22)) > largestSide;
    if (begins("RIFF")) { // WebP: the chunk tells by its name where the sides are
        if (file[15] == 'X')
            return (littleEndian(24) | unsigned{file[26]} << 16U) > largestSide
                || (littleEndian(27) | unsigned{file[29]} << 16U) > largestSide;
        constexpr unsigned sideBits = 0x3FFF;
        if (file[15] == 'L')
            return (littleEndian(21) & sideBits) > largestSide
                || ((littleEndian(22) | unsigned{file[24]} << 16U) >> 6U & sideBits) > largestSide;
        return (littleEndian(26) & sideBits) > largestSide || (littleEndian(28) & sideBits) > largestSide;
    }
    for (std::size_t i = 0; begins("\xFF\xD8") && i + 8 < file.size(); ++i) {
        if (file[i] == 0xFF && file[i + 1] >= 0xC0 && file[i + 1] <= 0xC2
            && (bigEndian(i + 5) > largestSide || bigEndian(i + 7) > largestSide))
            return true;
    }
    if (ImageFile::kindOf(file) != ImageFile::Kind::other)
        return false;
    QByteArray bytes(reinterpret_cast<const char*>(file.data()), std::ssize(file)); // NOLINT(*-reinterpret-cast)
    QBuffer buffer(&bytes);
    const QSize size = QImageReader(&buffer).size(); // few inputs are of other kinds: asking the decoders takes long
    return std::max(size.width(), size.height()) > static_cast<int>(largestSide);
}

void check(const RGBAFrame& frame)
{
    precondition(frame.width() >= 1 && frame.height() >= 1, "a picture has pixels");
    const PixelView pixels = frame.pixels();
    for (std::size_t i = 3; i < pixels.size(); i += 4)
        precondition(pixels[i] == 255, "a picture is opaque");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    startToolkit();
    static const int file = ::memfd_create("image", MFD_CLOEXEC);
    constexpr std::size_t maxBytes = 512; // some animations have hundreds of pictures in a few more
    const std::size_t count = std::min(size, maxBytes);
    std::vector<std::uint8_t> looked(data, data + count);
    looked.resize(std::max<std::size_t>(count, 32), 0); // shorter ones can announce a large picture, too
    if (isLarge(looked) && !isRefusedAtSight(std::span(data, count)))
        return 0;
    precondition(::ftruncate(file, 0) == 0 && ::pwrite(file, data, count, 0) == static_cast<ssize_t>(count),
        "memory can be written");
    const auto read = [](auto reader) {
        ::lseek(file, 0, SEEK_SET);
        FileByteSource source("image", file);
        try {
            reader(source);
        } catch (const FrameReadError& error) {
            precondition(*error.what() != '\0', "an error is said");
        }
    };
    read([](FileByteSource& source) {
        const auto animation = ImageReader::readAll(source, Transparency::defaultBackground);
        precondition(!animation.frames.empty(), "an animation has a picture");
        for (const auto& timed : animation.frames)
            check(timed.frame);
    });
    if (count % 16 == 0)
        read([](FileByteSource& source) { check(ImageReader::readOne(source, {1, 2, 3}, 1)); });
    return 0;
}
