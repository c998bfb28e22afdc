#include "App/FrameSources/FrameShaper.h"

#include "App/FrameSources/FrameFitting.h"
#include "App/FrameSources/FrameReadError.h"

#include <utility>

namespace quillbox {

FrameShaper::FrameShaper(std::string input, FrameShape shape, FrameConsumer& next)
    : m_input(std::move(input))
    , m_shape(shape)
    , m_next(next)
{
}

void FrameShaper::take(const RGBAFrame& frame)
{
    if (!m_shape.crop && !m_shape.maxWidth)
        return m_next.take(frame);
    if (!m_latest || !m_latest->original.sharesPixels(frame))
        m_latest = Latest{frame, shaped(frame)};
    m_next.take(m_latest->shaped);
}

RGBAFrame FrameShaper::shaped(const RGBAFrame& frame)
{
    RGBAFrame result = frame;
    if (m_shape.crop) {
        const auto [left, top, size] = *m_shape.crop;
        // Differences, as sums could overflow.
        if (left > frame.width() - size.width || top > frame.height() - size.height)
            throw FrameReadError(m_input, FrameReadError::NotInFrame{frame.width(), frame.height()});
        result = FrameFitting::cropped(frame, left, top, size);
    }
    if (!m_cap)
        m_cap.emplace(result, m_shape.maxWidth);
    return m_cap->applied(result);
}

} // namespace quillbox
