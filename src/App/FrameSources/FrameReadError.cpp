#include "App/FrameSources/FrameReadError.h"

#include "Translation/Translate.h"

#include <algorithm>
#include <limits>
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
    static std::string message(int errorNumber) { return std::generic_category().message(errorNumber); }

    std::string operator()(const Error::CannotOpen& reason) const
    {
        return withArguments(translate("FrameReadError", "can't be opened: %1"), {message(reason.errorNumber)});
    }
    std::string operator()(const Error::CannotRead& reason) const
    {
        return withArguments(translate("FrameReadError", "can't be read: %1"), {message(reason.errorNumber)});
    }
    std::string operator()(const Error::NoFrames&) const
    {
        return translate("FrameReadError", "holds no frame; at least one is needed");
    }
    std::string operator()(const Error::Truncated& reason) const
    {
        return withArguments(translate("FrameReadError", "frame %1 ends after %2 of %3 bytes; %4"),
            {std::to_string(reason.frame), std::to_string(reason.byteCount), std::to_string(reason.expectedByteCount),
                reason.advice});
    }
    std::string operator()(const Error::BecameShorter&) const
    {
        return translate("FrameReadError", "became shorter while it was being read; run the command again");
    }
    std::string operator()(const Error::SideOutOfRange& reason) const
    {
        return withArguments(translate("FrameReadError", "frame %1 is %2; each side must be 1 to 65535 pixels"),
            {std::to_string(reason.frame), size(reason.width, reason.height)});
    }
    std::string operator()(const Error::TooLargeForMemory& reason) const
    {
        return withArguments(
            translate("FrameReadError", "frame %1 is %2, more than this machine's memory holds; use smaller frames"),
            {std::to_string(reason.frame), size(reason.width, reason.height)});
    }
    std::string operator()(const Error::InvalidHeader& reason) const
    {
        if (reason.frame == 0)
            return withArguments(
                translate("FrameReadError", "header has \"%1\"; expected %2"), {reason.found, reason.expected});
        return withArguments(translate("FrameReadError", "frame %1 has \"%2\"; expected %3"),
            {std::to_string(reason.frame), reason.found, reason.expected});
    }
    std::string operator()(const Error::NotAnImage& reason) const
    {
        if (!reason.missing.empty()) {
            return withArguments(
                translate("FrameReadError",
                    "is a %1 image, for which a plugin is missing; install qt6-image-formats-plugins (Fedora: "
                    "qt6-qtimageformats, Arch: qt6-imageformats)"),
                {reason.missing});
        }
        return translate("FrameReadError",
            "is not an image that can be read; expected PNG, JPEG, GIF or the like, a YUV4MPEG2 stream, or --raw WxH "
            "for raw RGBA frames");
    }
    std::string operator()(const Error::IsVideo&) const
    {
        return translate("FrameReadError",
            "is a video; have FFmpeg take its pictures: ffmpeg -i VIDEO -vf "
            "format=yuv444p,scale=out_color_matrix=bt709 -f yuv4mpegpipe - | quillbox encode --matrix bt709 -o OUT.gif "
            "-");
    }
    std::string operator()(const Error::CutOff& reason) const
    {
        if (reason.wholeFrames == 0)
            return translate("FrameReadError", "is cut off: not even its first frame is whole; get the file again");
        constexpr std::int64_t largest = std::numeric_limits<int>::max();
        const int count = static_cast<int>(std::min(reason.wholeFrames, largest));
        return translate("FrameReadError", "is cut off after %n whole frame(s); get the file again, or --keep-going",
            nullptr, count);
    }
    std::string operator()(const Error::AnotherSize& reason) const
    {
        return withArguments(
            translate("FrameReadError", "frame %1 is %2, but the first is %3; without --strict it is fitted into that"),
            {std::to_string(reason.frame), size(reason.width, reason.height),
                size(reason.firstWidth, reason.firstHeight)});
    }
    std::string operator()(const Error::NotInFrame& reason) const
    {
        return withArguments(translate("FrameReadError", "frames are %1, so --crop names a part that they don't have"),
            {size(reason.width, reason.height)});
    }
    std::string operator()(const Error::NoFiles&) const
    {
        return translate("FrameReadError", "no image is there; name a folder with images, or a pattern that some fit");
    }
    std::string operator()(const Error::CannotDecode& reason) const
    {
        return withArguments(translate("FrameReadError", "frame %1 can't be decoded: %2"),
            {std::to_string(reason.frame), reason.reason});
    }
    std::string operator()(const Error::TooLong& reason) const
    {
        return withArguments(
            translate("FrameReadError", "plays for %1 s, more than %2 s; use --source-fps to take its frames one each"),
            {std::to_string(reason.milliseconds / 1000), std::to_string(reason.maximumMilliseconds / 1000)});
    }
};

} // namespace

FrameReadError::FrameReadError(std::string input, Reason reason)
    : m_input(std::move(input))
    , m_reason(std::move(reason))
    , m_message(withArguments(translate("FrameReadError", "%1: %2"), {m_input, std::visit(Sentence{}, m_reason)}))
{
}

} // namespace quillbox
