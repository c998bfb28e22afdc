#include "App/FrameSources/Y4MHeader.h"

#include "App/FrameSources/FrameReadError.h"
#include "Translation/Translate.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace quillbox {
namespace {

/// A header that is not as it should be. Long or strange text is cut, as it goes into a message.
FrameReadError invalid(const std::string& input, std::string_view found, std::string expected)
{
    constexpr std::size_t longest = 40;
    return {input, FrameReadError::InvalidHeader{0, std::string(found.substr(0, longest)), std::move(expected)}};
}

/// The whole of `text` as a number without sign; none when it is something else or doesn't fit.
std::optional<std::int64_t> number(std::string_view text)
{
    std::int64_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc{} || end != text.data() + text.size() || text.starts_with('-'))
        return std::nullopt;
    return value;
}

ChromaSubsampling subsamplingOf(const std::string& input, std::string_view tag)
{
    // The three kinds of 4:2:0 differ in where between the pixels their chroma lies, by half a pixel at most.
    constexpr std::array<std::pair<std::string_view, ChromaSubsampling>, 8> known{{
        {"C420", ChromaSubsampling::yuv420},
        {"C420jpeg", ChromaSubsampling::yuv420},
        {"C420mpeg2", ChromaSubsampling::yuv420},
        {"C420paldv", ChromaSubsampling::yuv420},
        {"C422", ChromaSubsampling::yuv422},
        {"C444", ChromaSubsampling::yuv444},
        {"C411", ChromaSubsampling::yuv411},
        {"Cmono", ChromaSubsampling::mono},
    }};
    const auto* const found
        = std::find_if(known.begin(), known.end(), [&](const auto& pair) { return pair.first == tag; });
    if (found == known.end())
        throw invalid(input, tag,
            translate("FrameReadError", "8-bit C420, C422, C444, C411 or Cmono (with FFmpeg: -pix_fmt yuv444p)"));
    return found->second;
}

/// The F tag's `numerator:denominator`; 0:0 says that the rate is unknown.
std::optional<std::int64_t> rateOf(const std::string& input, std::string_view tag)
{
    constexpr std::int64_t maxTerm = std::int64_t{1} << 32; // keeps the rounding below free of overflow
    const auto colon = std::min(tag.find(':'), tag.size() - 1);
    const auto numerator = number(tag.substr(1, colon - 1));
    const auto denominator = number(tag.substr(colon + 1));
    if (!numerator || !denominator || *numerator > maxTerm || *denominator > maxTerm)
        throw invalid(input, tag, translate("FrameReadError", "a rate like F30:1 or F30000:1001"));
    if (*numerator == 0 || *denominator == 0)
        return std::nullopt;
    return std::max<std::int64_t>(1, (*numerator * 2 + *denominator) / (*denominator * 2));
}

} // namespace

Y4MHeader Y4MHeader::parse(const std::string& input, std::string_view line)
{
    if (!line.starts_with(magic) || (line.size() > magic.size() && line[magic.size()] != ' '))
        throw invalid(
            input, line, translate("FrameReadError", "a YUV4MPEG2 stream (or --raw WxH for raw RGBA frames)"));
    line.remove_prefix(magic.size());

    Y4MHeader header;
    std::string_view range;
    while (!line.empty()) {
        line.remove_prefix(1); // the blank
        const auto tag = line.substr(0, line.find(' '));
        line.remove_prefix(tag.size());
        if (tag.starts_with('W') || tag.starts_with('H')) {
            const auto side = number(tag.substr(1));
            if (!side)
                throw invalid(input, tag, translate("FrameReadError", "a whole number of pixels"));
            (tag.starts_with('W') ? header.size.width : header.size.height) = *side;
        } else if (tag.starts_with('C')) {
            header.subsampling = subsamplingOf(input, tag);
        } else if (tag.starts_with('F')) {
            header.framesPerSecond = rateOf(input, tag);
        } else if (tag.starts_with("XCOLORRANGE=")) {
            range = tag;
        } // interlacing, pixel aspect, comments and other extensions change nothing here
    }
    if (header.size.width == 0 || header.size.height == 0)
        throw invalid(input, magic, translate("FrameReadError", "the frame size in its tags W and H"));
    if (range.ends_with("=FULL") || (range.empty() && header.subsampling == ChromaSubsampling::mono))
        header.range = YUVRange::full; // grey pictures use all 256 levels unless they say otherwise
    else if (!range.empty() && !range.ends_with("=LIMITED"))
        throw invalid(input, range, translate("FrameReadError", "XCOLORRANGE=FULL or XCOLORRANGE=LIMITED"));
    return header;
}

} // namespace quillbox
