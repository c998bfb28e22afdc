#include "App/FrameSources/Y4M/Y4MReader.h"

#include "App/FrameSources/FrameMemory.h"
#include "App/FrameSources/FrameReadError.h"
#include "App/FrameSources/Transparency.h"
#include "App/FrameSources/Y4M/Y4MHeader.h"
#include "Encoding/Parallel.h"
#include "Encoding/Pixels/FramePool.h"
#include "Translation/Translate.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quillbox {
namespace {

/// Converts pictures, as many at a time as there are threads, and hands them over in the order in which they came.
class ConversionQueue {
public:
    ConversionQueue(const Y4MHeader& header, RGBColor background, FrameConsumer& receiver, Parallelism parallelism)
        : m_header(header)
        , m_background(background)
        , m_receiver(receiver)
        , m_parallelism(parallelism)
        , m_batch(static_cast<std::size_t>(workerCount(parallelism, std::numeric_limits<std::int64_t>::max())))
    {
    }

    /// A buffer for the next picture's planes.
    [[nodiscard]] std::shared_ptr<Bytes> takeBuffer(std::int64_t byteCount)
    {
        std::shared_ptr<Bytes> buffer;
        if (m_spares.empty()) {
            buffer = std::make_shared<Bytes>();
        } else {
            buffer = std::move(m_spares.back());
            m_spares.pop_back();
        }
        buffer->resize(static_cast<std::size_t>(byteCount));
        return buffer;
    }

    void add(std::shared_ptr<Bytes> planes)
    {
        if (m_previous && *m_previous == *planes) {
            m_spares.push_back(std::move(planes));
            if (m_waiting.empty())
                m_receiver.take(*m_latest);
            else
                ++m_waiting.back().count;
            return;
        }
        m_waiting.push_back({.planes = planes, .count = 1, .frame = std::nullopt});
        if (m_previous && m_waiting.size() == 1)
            m_spares.push_back(std::move(m_previous)); // its picture has been handed over
        m_previous = std::move(planes);
        if (m_waiting.size() == m_batch)
            finish();
    }

    /// Hands over all that wait.
    void finish()
    {
        constexpr std::size_t worthAThread = 1U << 16U; // bytes: starting one costs more than converting less
        const bool isSmall = m_previous && m_previous->size() < worthAThread;
        const Parallelism parallelism{.threads = isSmall ? 1 : m_parallelism.threads};
        parallelFor(parallelism, std::ssize(m_waiting), [this](std::int64_t item, int /*worker*/) {
            Waiting& waiting = m_waiting[static_cast<std::size_t>(item)];
            waiting.frame = converted(*waiting.planes);
        });
        for (Waiting& waiting : m_waiting) {
            m_latest = std::move(waiting.frame);
            for (std::size_t i = 0; i < waiting.count; ++i)
                m_receiver.take(*m_latest);
            if (waiting.planes != m_previous)
                m_spares.push_back(std::move(waiting.planes));
        }
        m_waiting.clear();
    }

private:
    struct Waiting {
        std::shared_ptr<Bytes> planes;
        std::size_t count = 1; ///< how often the picture comes in a row
        std::optional<RGBAFrame> frame;
    };

    [[nodiscard]] RGBAFrame converted(const Bytes& planes) const
    {
        Bytes pixels = m_pool.take(m_header.size.width * m_header.size.height * RGBAFrame::bytesPerPixel);
        YUVConversion::convert(planes, m_header.size, m_header.format, pixels);
        if (m_header.format.hasAlpha)
            Transparency::layOn(m_background, pixels);
        return m_pool.frame(m_header.size.width, m_header.size.height, std::move(pixels));
    }

    Y4MHeader m_header;
    RGBColor m_background;
    FrameConsumer& m_receiver;
    Parallelism m_parallelism;
    std::size_t m_batch;
    FramePool m_pool;
    std::optional<RGBAFrame> m_latest; ///< the one last handed over
    std::vector<Waiting> m_waiting;    ///< read and still to be converted, fewer than a batch
    std::shared_ptr<Bytes> m_previous; ///< planes of the newest picture
    std::vector<std::shared_ptr<Bytes>> m_spares;
};

/// Takes the line before a frame. @return false at the end of the stream.
bool readFrameLine(ByteSource& source, std::int64_t frame)
{
    constexpr std::string_view word = "FRAME";
    const auto line = source.readLine();
    if (line.text.empty() && !line.complete)
        return false;
    const std::string_view text = line.text;
    if (!line.complete && word.starts_with(text.substr(0, word.size())) && text.size() < ByteSource::lookaheadSize) {
        throw FrameReadError(source.name(),
            FrameReadError::InvalidHeader{
                frame, line.text, translate("FrameReadError", "FRAME and its picture; the stream is cut off")});
    }
    // What follows a blank are the frame's own parameters; none of them changes its pixels.
    if (!line.complete || !text.starts_with(word) || (text.size() > word.size() && text[word.size()] != ' ')) {
        throw FrameReadError(source.name(),
            FrameReadError::InvalidHeader{frame, line.text.substr(0, 16),
                translate("FrameReadError", "FRAME; the frame before it has another size")});
    }
    return true;
}

} // namespace

bool Y4MReader::recognizes(ByteSource& source)
{
    const auto start = source.peek(Y4MHeader::magic.size());
    return std::equal(start.begin(), start.end(), Y4MHeader::magic.begin(), Y4MHeader::magic.end());
}

void Y4MReader::read(ByteSource& source, const SourceColors& colors, FrameConsumer& receiver, Parallelism parallelism)
{
    if (source.peek(1).empty())
        throw FrameReadError(source.name(), FrameReadError::NoFrames{});
    auto header = Y4MHeader::parse(source.name(), source.readLine().text);
    (void)checkedByteCount(source.name(), 1, header.size); // throws where the size is out of bounds
    const auto pictureBytes = YUVConversion::byteCount(header.size, header.format);
    header.format.matrix = colors.matrix.value_or(header.format.matrix);

    if (header.rate)
        receiver.setRate(*header.rate);
    ConversionQueue queue(header, colors.background, receiver, parallelism);
    std::int64_t frame = 1;
    try {
        for (; readFrameLine(source, frame); ++frame) {
            const auto endsAfter = [&](std::int64_t byteCount) {
                return FrameReadError(source.name(),
                    FrameReadError::Truncated{
                        frame, byteCount, pictureBytes, translate("FrameReadError", "write the stream again")});
            };
            if (const auto remaining = source.remaining(); remaining && *remaining < pictureBytes)
                throw endsAfter(*remaining);
            auto planes = queue.takeBuffer(pictureBytes);
            const auto got = static_cast<std::int64_t>(source.read(*planes));
            if (got < pictureBytes)
                throw source.remaining() ? FrameReadError(source.name(), FrameReadError::BecameShorter{})
                                         : endsAfter(got);
            queue.add(std::move(planes));
        }
    } catch (const FrameReadError&) {
        queue.finish();
        throw;
    }
    queue.finish();
    if (source.remaining().value_or(0) > 0)
        throw FrameReadError(source.name(), FrameReadError::BecameShorter{});
    if (frame == 1)
        throw FrameReadError(source.name(), FrameReadError::NoFrames{});
}

} // namespace quillbox
