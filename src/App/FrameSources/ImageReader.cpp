#include "App/FrameSources/ImageReader.h"

#include "App/FrameSources/FrameMaker.h"
#include "App/FrameSources/FrameMemory.h"
#include "App/FrameSources/FrameReadError.h"
#include "Platform/FileDescriptor.h"

#include <QBuffer>
#include <QByteArray>
#include <QFile>
#include <QImage>
#include <QImageReader>
#include <QIODevice>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <limits>
#include <memory>
#include <new>
#include <string>
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

/// An open image. Decoders jump about in their input, so a pipe is read to its end first.
class OpenImage {
public:
    explicit OpenImage(FileByteSource& source)
        : m_name(source.name())
    {
        if (source.peek(1).empty())
            throw FrameReadError(m_name, FrameReadError::NoFrames{});
        if (source.isRegularFile()) {
            auto file = std::make_unique<QFile>();
            // The descriptor, not the path: it is the very file that was examined, and a path need not be UTF-8.
            if (!file->open(source.descriptor(), QIODevice::ReadOnly) || !file->seek(0))
                throw FrameReadError(m_name, FrameReadError::CannotRead{EIO});
            m_device = std::move(file);
        } else {
            auto buffer = std::make_unique<QBuffer>();
            buffer->setData(everythingOf(source));
            (void)buffer->open(QIODevice::ReadOnly); // memory can always be opened
            m_device = std::move(buffer);
        }
        const StandardErrorSilenced silenced;
        m_reader.setDevice(m_device.get());
        m_reader.setDecideFormatFromContent(true);
        if (!m_reader.canRead()) { // some formats can't be told by their first bytes
            const auto extension = std::filesystem::path(m_name).extension().string();
            m_device->seek(0);
            m_reader.setDevice(m_device.get());
            m_reader.setDecideFormatFromContent(false);
            m_reader.setFormat(QByteArray::fromStdString(extension.empty() ? extension : extension.substr(1)));
            if (extension.empty() || !m_reader.canRead())
                throw FrameReadError(m_name, FrameReadError::NotAnImage{});
        }
        m_reader.setAutoTransform(true);
    }

    /// The next picture. @param frame  Its number, for messages.
    RGBAFrame read(FrameMaker& maker, std::int64_t frame)
    {
        if (const QSize size = announcedSize(); size.isValid())
            (void)checkedByteCount(m_name, frame, {size.width(), size.height()}); // before the decoder allocates
        QImage image = decode();
        if (image.isNull())
            throw FrameReadError(m_name, FrameReadError::CannotDecode{frame, m_reader.errorString().toStdString()});
        const PixelSize size{image.width(), image.height()};
        const auto byteCount = checkedByteCount(m_name, frame, size);
        image.convertTo(QImage::Format_RGBA8888);
        if (image.isNull())
            throw std::bad_alloc();
        Bytes pixels = maker.takeBuffer(byteCount);
        const auto rowBytes = size.width * 4;
        for (int row = 0; row < image.height(); ++row)
            std::copy_n(image.constScanLine(row), rowBytes, pixels.begin() + row * rowBytes);
        return maker.frame(size, std::move(pixels));
    }

    [[nodiscard]] QImageReader& reader() { return m_reader; }
    [[nodiscard]] const std::string& name() const { return m_name; }

private:
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
    static QByteArray everythingOf(FileByteSource& source)
    {
        constexpr qsizetype step = 1 << 20;
        QByteArray bytes;
        for (qsizetype used = 0;; bytes.resize(used)) {
            bytes.resize(used + step);
            // QByteArray and ByteSource differ only in what they call a byte.
            auto* const place = reinterpret_cast<std::uint8_t*>(bytes.data()) + used; // NOLINT(*-reinterpret-cast)
            const auto got = static_cast<qsizetype>(source.read({place, static_cast<std::size_t>(step)}));
            used += got;
            if (got < step) {
                bytes.resize(used);
                return bytes;
            }
        }
    }

    std::string m_name;
    std::unique_ptr<QIODevice> m_device; ///< outlives the reader
    QImageReader m_reader;
};

/// Lets the decoders have as much memory as the machine has instead of their default of 128 MB: a frame of 65535 pixels
/// a side is allowed, and `checkedByteCount` has refused what doesn't fit.
void raiseAllocationLimit()
{
    constexpr std::int64_t megabyte = 1 << 20;
    const auto limit = std::min<std::int64_t>(physicalMemory() / megabyte, std::numeric_limits<int>::max());
    QImageReader::setAllocationLimit(static_cast<int>(limit));
}

} // namespace

RGBAFrame ImageReader::readOne(FileByteSource& source, std::int64_t frame)
{
    raiseAllocationLimit();
    FrameMaker maker;
    return OpenImage(source).read(maker, frame);
}

std::vector<AnimationTimeline::TimedFrame> ImageReader::readAll(FileByteSource& source)
{
    raiseAllocationLimit();
    OpenImage image(source);
    const bool animated = image.reader().supportsAnimation();
    const std::int64_t announced = animated ? image.reader().imageCount() : 1; // 0 when the format doesn't tell
    FrameMaker maker;
    std::vector<AnimationTimeline::TimedFrame> frames;
    for (std::int64_t frame = 1; announced > 0 ? frame <= announced : frame == 1 || image.reader().canRead(); ++frame) {
        auto picture = image.read(maker, frame);
        frames.push_back({std::move(picture), image.reader().nextImageDelay()}); // of the picture just read
    }
    return frames;
}

} // namespace quillbox
