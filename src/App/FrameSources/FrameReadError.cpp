#include "App/FrameSources/FrameReadError.h"

#include <system_error>
#include <utility>

namespace quillbox {
namespace {

using Error = FrameReadError;

/// Overloads for each reason: the sentence behind the input's name.
struct Sentence {
    static std::string size(std::int64_t width, std::int64_t height)
    {
        return std::to_string(width) + "×" + std::to_string(height);
    }
    static std::string frameName(std::int64_t frame) { return "frame " + std::to_string(frame); }

    std::string operator()(const Error::CannotOpen& reason) const
    {
        return "can't be opened: " + std::generic_category().message(reason.errorNumber);
    }
    std::string operator()(const Error::CannotRead& reason) const
    {
        return "can't be read: " + std::generic_category().message(reason.errorNumber);
    }
    std::string operator()(const Error::NoFrames&) const { return "holds no frame; at least one is needed"; }
    std::string operator()(const Error::Truncated& reason) const
    {
        return frameName(reason.frame) + " ends after " + std::to_string(reason.byteCount) + " of "
            + std::to_string(reason.expectedByteCount) + " bytes; " + reason.advice;
    }
    std::string operator()(const Error::SideOutOfRange& reason) const
    {
        return frameName(reason.frame) + " is " + size(reason.width, reason.height)
            + "; each side must be 1 to 65535 pixels";
    }
    std::string operator()(const Error::TooLargeForMemory& reason) const
    {
        return frameName(reason.frame) + " is " + size(reason.width, reason.height)
            + ", more than this machine's memory holds; use smaller frames";
    }
    std::string operator()(const Error::InvalidHeader& reason) const
    {
        const auto place = reason.frame == 0 ? std::string("header") : frameName(reason.frame);
        return place + " has \"" + reason.found + "\"; expected " + reason.expected;
    }
    std::string operator()(const Error::NotAnImage&) const
    {
        return "is not an image that can be read; expected PNG, JPEG, GIF or the like, a YUV4MPEG2 stream, or --raw "
               "WxH "
               "for raw RGBA frames";
    }
    std::string operator()(const Error::CannotDecode& reason) const
    {
        return frameName(reason.frame) + " can't be decoded: " + reason.reason;
    }
    std::string operator()(const Error::TooLong& reason) const
    {
        return "plays for " + std::to_string(reason.milliseconds / 1000) + " s, more than "
            + std::to_string(reason.maximumMilliseconds / 1000) + " s; use --source-fps to take its frames one each";
    }
};

} // namespace

FrameReadError::FrameReadError(std::string input, Reason reason)
    : m_input(std::move(input))
    , m_reason(std::move(reason))
    , m_message(m_input + ": " + std::visit(Sentence{}, m_reason))
{
}

} // namespace quillbox
