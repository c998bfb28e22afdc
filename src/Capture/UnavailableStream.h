#pragma once

#include "Capture/CaptureStream.h"

#include <string>

namespace quillbox {

/// Stands in for a back end where nothing can be captured: start() says why.
class UnavailableStream : public CaptureStream {
public:
    /// @param sentence  One sentence for the user, UTF-8, without a full stop.
    explicit UnavailableStream(std::string sentence);

    /// @throws CaptureError  always, with `sentence`.
    QCoro::Task<> start(CaptureRegion region, FrameSink sink) override;
    QCoro::Task<> stop() override;

private:
    std::string m_sentence;
};

} // namespace quillbox
