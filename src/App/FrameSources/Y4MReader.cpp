#include "App/FrameSources/Y4MReader.h"

#include "App/FrameSources/FrameMemory.h"
#include "App/FrameSources/FrameReadError.h"
#include "App/FrameSources/Y4MHeader.h"
#include "Encoding/FramePool.h"
#include "Encoding/Parallel.h"
#include "Translation/Translate.h"

#include <algorithm>
#include <deque>
#include <future>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace quillbox {
namespace {

/// Converts pictures in the background, a few at a time, and returns them in the order in which they came.
class ConversionQueue {
public:
    ConversionQueue(const Y4MHeader& header, FrameConsumer& receiver)
        : m_header(header)
        , m_receiver(receiver)
        , m_inFlight(static_cast<std::size_t>(workerCount({}, std::numeric_limits<std::int64_t>::max())))
    {
    }

    /// A buffer for the next picture's planes.
    [[nodiscard]] std::shared_ptr<Bytes> takeBuffer(std::int64_t byteCount)
    {
        auto buffer = m_spare ? std::exchange(m_spare, nullptr) : std::make_shared<Bytes>();
        buffer->resize(static_cast<std::size_t>(byteCount));
        return buffer;
    }

    void add(std::shared_ptr<Bytes> planes)
    {
        if (m_previous && *m_previous == *planes) {
            m_spare = std::move(planes);
            if (m_pending.empty())
                m_receiver.take(*m_latest);
            else
                ++m_pending.back().count;
            return;
        }
        if (m_pending.size() == m_inFlight)
            finishOldest();
        // A thread costs more than the conversion of a small picture.
        const auto policy = planes->size() < 1U << 16U ? std::launch::deferred : std::launch::async;
        auto convert = [header = m_header, pool = m_pool, planes]() mutable {
            Bytes pixels = pool.take(header.size.width * header.size.height * 4);
            YUVConversion::convert(*planes, header.size, header.subsampling, header.range, pixels);
            return pool.frame(header.size.width, header.size.height, std::move(pixels));
        };
        m_pending.push_back({std::async(policy, std::move(convert)), planes, 1});
        m_previous = std::move(planes);
    }

    void finish()
    {
        while (!m_pending.empty())
            finishOldest();
    }

private:
    struct Pending {
        std::future<RGBAFrame> frame;
        std::shared_ptr<Bytes> planes;
        std::size_t count = 1; ///< how often the picture comes in a row
    };

    void finishOldest()
    {
        Pending oldest = std::move(m_pending.front());
        m_pending.pop_front();
        m_latest = oldest.frame.get();
        for (std::size_t i = 0; i < oldest.count; ++i)
            m_receiver.take(*m_latest);
        oldest.frame = {}; // lets go of the planes
        if (oldest.planes != m_previous)
            m_spare = std::move(oldest.planes);
    }

    Y4MHeader m_header;
    FrameConsumer& m_receiver;
    std::size_t m_inFlight;
    FramePool m_pool;                  ///< copies share the spare buffers
    std::optional<RGBAFrame> m_latest; ///< the one last handed over
    std::deque<Pending> m_pending;
    std::shared_ptr<Bytes> m_previous; ///< planes of the newest picture
    std::shared_ptr<Bytes> m_spare;
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

void Y4MReader::read(ByteSource& source, FrameConsumer& receiver)
{
    if (source.peek(1).empty())
        throw FrameReadError(source.name(), FrameReadError::NoFrames{});
    const auto header = Y4MHeader::parse(source.name(), source.readLine().text);
    (void)checkedByteCount(source.name(), 1, header.size); // throws where the size is out of bounds
    const auto pictureBytes = YUVConversion::byteCount(header.size, header.subsampling);

    if (header.framesPerSecond)
        receiver.setRate(*header.framesPerSecond);
    ConversionQueue queue(header, receiver);
    std::int64_t frame = 1;
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
            throw endsAfter(got);
        queue.add(std::move(planes));
    }
    if (frame == 1)
        throw FrameReadError(source.name(), FrameReadError::NoFrames{});
    queue.finish();
}

} // namespace quillbox
