#include "Capture/UnavailableStream.h"

#include <utility>

namespace quillbox {

UnavailableStream::UnavailableStream(std::string sentence)
    : m_sentence(std::move(sentence))
{
}

QCoro::Task<> UnavailableStream::start(CaptureRegion /*region*/, FrameSink /*sink*/)
{
    throw CaptureError(CaptureError::Reason::Unavailable, m_sentence);
    co_return;
}

QCoro::Task<> UnavailableStream::stop()
{
    co_return;
}

} // namespace quillbox
