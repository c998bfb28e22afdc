#include "App/FrameSources/Images/ImageReader.h"

#include "App/FrameSources/FrameMaker.h"
#include "App/FrameSources/FrameMemory.h"
#include "App/FrameSources/FrameReadError.h"
#include "App/FrameSources/Images/AnimatedPNG.h"
#include "App/FrameSources/Images/ImageFile.h"
#include "App/FrameSources/Transparency.h"
#include "Encoding/Pixels/PixelSize.h"
#include "Platform/FileDescriptor.h"

#include <QBuffer>
#include <QByteArray>
#include <QColorSpace>
#include <QImage>
#include <QImageReader>
#include <QIODevice>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <limits>
#include <new>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unistd.h>
#include <utility>

namespace quillbox {
namespace {

/// While it lives, nothing reaches standard error: some decoders remark there on their own, past every handler. Lives
/// around calls of decoders only, so that none of our own messages is lost.
class StandardErrorSilenced {
public:
    StandardErrorSilenced()
        : m_original(::fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 3))
    {
        const FileDescriptor nowhere(::open("/dev/null", O_WRONLY | O_CLOEXEC));
        if (m_original.number() >= 0 && nowhere.number() >= 0)
            (void)::dup2(nowhere.number(), STDERR_FILENO); // a remark that gets through does no harm
    }
    StandardErrorSilenced(const StandardErrorSilenced&) = delete;
    StandardErrorSilenced& operator=(const StandardErrorSilenced&) = delete;
    ~StandardErrorSilenced()
    {
        if (m_original.number() >= 0)
            (void)::dup2(m_original.number(), STDERR_FILENO); // both are open, so it can't fail
    }

private:
    FileDescriptor m_original;
};

/// All of the input: decoders jump about in it, and how whole it is must be known before one of them pads it.
Bytes everythingOf(FileByteSource& source)
{
    constexpr std::size_t stepOfStream = 1 << 20;
    const auto remaining = source.remaining();
    const std::size_t step = remaining ? static_cast<std::size_t>(*remaining) + 1 : stepOfStream; // 1 to see the end
    Bytes bytes;
    for (std::size_t used = 0;;) {
        bytes.resize(used + step);
        const auto got = source.read(std::span(bytes).subspan(used));
        used += got;
        if (got < step) {
            bytes.resize(used);
            break;
        }
    }
    if (bytes.empty())
        throw FrameReadError(source.name(), FrameReadError::NoFrames{});
    return bytes;
}

/// The kind of image by its first bytes, if it is one whose decoder comes in a package of its own.
std::string kindOfPlugin(std::span<const std::uint8_t> bytes)
{
    using namespace std::string_view_literals;
    const auto begins = [&](std::string_view word) {
        return bytes.size() >= word.size() && std::memcmp(bytes.data(), word.data(), word.size()) == 0;
    };
    if (ImageFile::kindOf(bytes) == ImageFile::Kind::webp)
        return "WebP";
    if (begins("II*\0"sv) || begins("MM\0*"sv))
        return "TIFF";
    return {};
}

/// While it lives, decoders may have as much memory as the machine has instead of the toolkit's 128 MB: a frame of
/// 65535 pixels a side is allowed. Lives only where `checkedByteCount` has passed what the file announces: some
/// decoders make room for the picture when they are asked for its size.
class AllocationLimitRaised {
public:
    AllocationLimitRaised()
        : m_usual(QImageReader::allocationLimit())
    {
        constexpr std::int64_t megabyte = 1 << 20;
        const auto limit = std::min<std::int64_t>(physicalMemory() / megabyte, std::numeric_limits<int>::max());
        QImageReader::setAllocationLimit(static_cast<int>(limit));
    }
    AllocationLimitRaised(const AllocationLimitRaised&) = delete;
    AllocationLimitRaised& operator=(const AllocationLimitRaised&) = delete;
    ~AllocationLimitRaised() { QImageReader::setAllocationLimit(m_usual); }

private:
    int m_usual; ///< megabytes
};

/// A decoder at work on bytes in memory.
class OpenImage {
public:
    /// @param bytes  Outlive this.
    OpenImage(std::string name, std::span<const std::uint8_t> bytes)
        : m_name(std::move(name))
        // The toolkit's bytes are of another type, and refer to ours.
        , m_bytes(QByteArray::fromRawData(reinterpret_cast<const char*>(bytes.data()), std::ssize(bytes))) // NOLINT
        , m_buffer(&m_bytes)
        , m_hasOnlyGamma(ImageFile::isPNGWithoutProfile(bytes))
    {
        (void)m_buffer.open(QIODevice::ReadOnly); // memory can always be opened
        const StandardErrorSilenced silenced;
        m_reader.setDevice(&m_buffer);
        m_reader.setDecideFormatFromContent(true);
        if (!m_reader.canRead()) { // some formats can't be told by their first bytes
            const auto extension = std::filesystem::path(m_name).extension().string();
            m_buffer.seek(0);
            m_reader.setDevice(&m_buffer);
            m_reader.setDecideFormatFromContent(false);
            m_reader.setFormat(QByteArray::fromStdString(extension.empty() ? extension : extension.substr(1)));
            if (extension.empty() || !m_reader.canRead())
                throw FrameReadError(m_name, FrameReadError::NotAnImage{kindOfPlugin(bytes)});
        }
        m_reader.setAutoTransform(true);
    }

    /// The next picture, as its decoder gives it. @param frame  Its number, for messages.
    [[nodiscard]] QImage read(std::int64_t frame)
    {
        std::optional<AllocationLimitRaised> raised;
        if (const QSize size = announcedSize(); size.isValid()) {
            (void)checkedByteCount(m_name, frame, {size.width(), size.height()}); // before the decoder allocates
            raised.emplace();
        }
        QImage image = decode();
        if (image.isNull())
            throw FrameReadError(m_name, FrameReadError::CannotDecode{frame, m_reader.errorString().toStdString()});
        (void)checkedByteCount(m_name, frame, {image.width(), image.height()});
        return image;
    }

    /// The pixels of one of its pictures in sRGB, RGBA, not premultiplied. @pre `pixels` has room for them.
    /// A part at a time: decoders keep what they gave, and a conversion of the whole would be a third of it.
    void copyPixels(const QImage& image, Bytes& pixels) const
    {
        constexpr int partPixels = 1 << 20; // enough for the toolkit to convert colours on all processors
        const int partRows = std::max(partPixels / image.width(), 1);
        auto target = pixels.begin();
        for (int top = 0; top < image.height(); top += partRows) {
            const QImage part = converted(image.copy(0, top, image.width(), std::min(partRows, image.height() - top)));
            for (int row = 0; row < part.height(); ++row)
                target = std::copy_n(part.constScanLine(row), std::int64_t{part.width()} * 4, target);
        }
    }

    [[nodiscard]] QImageReader& reader() { return m_reader; }

private:
    [[nodiscard]] QImage converted(QImage image) const
    {
        const QColorSpace sRGB(QColorSpace::SRgb);
        const QColorSpace space = image.colorSpace();
        // PNG, section 11.3.2.2: the gAMA chunk of most sRGB images stands for sRGB's curve, which is no power of 2.2.
        const bool isUsualGamma = space.transferFunction() == QColorSpace::TransferFunction::Gamma
            && std::abs(space.gamma() - 2.2F) < 0.05F && m_hasOnlyGamma;
        const bool isPlain = !space.isValid() || space == sRGB || isUsualGamma;
        if (!isPlain && image.depth() <= 32) // indexed colours are not converted
            image.convertTo(image.hasAlphaChannel() ? QImage::Format_ARGB32 : QImage::Format_RGB32);
        if (!isPlain)
            image.convertToColorSpace(sRGB);
        image.convertTo(QImage::Format_RGBA8888);
        if (image.isNull())
            throw std::bad_alloc();
        return image;
    }
    [[nodiscard]] QSize announcedSize() const
    {
        const StandardErrorSilenced silenced;
        return m_reader.size();
    }
    [[nodiscard]] QImage decode()
    {
        const StandardErrorSilenced silenced;
        return m_reader.read();
    }

    std::string m_name;
    QByteArray m_bytes;
    QBuffer m_buffer;    ///< outlives the reader
    bool m_hasOnlyGamma; ///< at most; no profile
    QImageReader m_reader;
};

/// The next frame. @param number  Its own, for messages.
RGBAFrame nextFrame(OpenImage& file, std::int64_t number, RGBColor background, FrameMaker& maker)
{
    const QImage image = file.read(number);
    const PixelSize size{image.width(), image.height()};
    Bytes pixels = maker.takeBuffer(size.width * size.height * 4);
    file.copyPixels(image, pixels);
    Transparency::layOn(background, pixels);
    return maker.frame(size, std::move(pixels));
}

/// An animation's frames as long as they can be read.
class Frames {
public:
    explicit Frames(std::string name)
        : m_name(std::move(name))
    {
    }

    /// Adds `count` frames (0: as many as `hasNext` says), each given by `read(number)`; the first must be readable.
    template <typename Read, typename HasNext> void readAll(std::int64_t count, Read read, HasNext hasNext)
    {
        for (std::int64_t frame = 1; count > 0 ? frame <= count : frame == 1 || hasNext(); ++frame) {
            try {
                m_animation.frames.push_back(read(frame));
            } catch (const FrameReadError& error) {
                if (frame == 1)
                    throw;
                m_animation.flaw = error;
                return;
            }
        }
    }
    /// Notes that there should be more.
    void setCutOff()
    {
        if (!m_animation.flaw)
            m_animation.flaw.emplace(m_name, FrameReadError::CutOff{std::ssize(m_animation.frames)});
    }

    /// What was read; called once.
    [[nodiscard]] ImageReader::Animation taken() { return std::move(m_animation); }

private:
    std::string m_name;
    ImageReader::Animation m_animation;
};

/// @param frame  The part's number, for messages.
Bytes pixelsOf(const std::string& name, const AnimatedPNG::Part& part, std::int64_t frame)
{
    OpenImage file(name, part.png);
    const QImage image = file.read(frame);
    if (PixelSize{image.width(), image.height()} != part.size) // turned by metadata, which holds for no part
        throw FrameReadError(name, FrameReadError::CannotDecode{frame, "EXIF"});
    Bytes pixels(static_cast<std::size_t>(part.size.width * part.size.height * 4));
    file.copyPixels(image, pixels);
    return pixels;
}

ImageReader::Animation readAnimatedPNG(
    const std::string& name, std::span<const std::uint8_t> bytes, bool isCutOff, RGBColor background)
{
    const auto taken = AnimatedPNG::taken(bytes);
    (void)checkedByteCount(name, 1, taken.size);
    if (taken.parts.empty())
        throw FrameReadError(name, FrameReadError::CutOff{0});
    AnimatedPNG::Canvas canvas(taken.size);
    FrameMaker maker;
    Frames frames(name);
    const auto read = [&](std::int64_t frame) -> AnimationTimeline::TimedFrame {
        const auto& part = taken.parts[static_cast<std::size_t>(frame - 1)];
        Bytes pixels = canvas.draw(part, pixelsOf(name, part, frame));
        Transparency::layOn(background, pixels);
        return {maker.frame(taken.size, std::move(pixels)), part.milliseconds};
    };
    frames.readAll(std::ssize(taken.parts), read, [] { return false; });
    if (isCutOff || std::ssize(taken.parts) < taken.announcedCount)
        frames.setCutOff();
    return frames.taken();
}

} // namespace

RGBAFrame ImageReader::readOne(FileByteSource& source, RGBColor background, std::int64_t frame)
{
    const Bytes bytes = everythingOf(source);
    const auto kind = ImageFile::kindOf(bytes);
    if (kind == ImageFile::Kind::video)
        throw FrameReadError(source.name(), FrameReadError::IsVideo{});
    if (const auto extent = ImageFile::extentOf(bytes, kind); extent.isCutOff && extent.wholeFrames == 0)
        throw FrameReadError(source.name(), FrameReadError::CutOff{0});
    OpenImage image(source.name(), bytes);
    FrameMaker maker;
    return nextFrame(image, frame, background, maker);
}

ImageReader::Animation ImageReader::readAll(FileByteSource& source, RGBColor background)
{
    Bytes bytes = everythingOf(source);
    const auto kind = ImageFile::kindOf(bytes);
    if (kind == ImageFile::Kind::video)
        throw FrameReadError(source.name(), FrameReadError::IsVideo{});
    const auto extent = ImageFile::extentOf(bytes, kind);
    if (extent.isCutOff && extent.wholeFrames == 0)
        throw FrameReadError(source.name(), FrameReadError::CutOff{0});
    if (kind == ImageFile::Kind::animatedPNG)
        return readAnimatedPNG(source.name(), bytes, extent.isCutOff, background);
    if (extent.isCutOff)
        bytes = ImageFile::withoutCutFrame(bytes, kind, extent);

    OpenImage image(source.name(), bytes);
    const bool isAnimated = image.reader().supportsAnimation();
    const std::int64_t announced = isAnimated ? image.reader().imageCount() : 1; // 0 when the format doesn't tell
    FrameMaker maker;
    Frames frames(source.name());
    const auto read = [&](std::int64_t frame) -> AnimationTimeline::TimedFrame {
        auto picture = nextFrame(image, frame, background, maker);
        return {std::move(picture), image.reader().nextImageDelay()}; // of the picture just read
    };
    frames.readAll(announced, read, [&] { return image.reader().canRead(); });
    if (extent.isCutOff)
        frames.setCutOff();
    return frames.taken();
}

} // namespace quillbox
