#include "App/FrameSources/Y4M/Y4MHeader.h"

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

/// Sets what the C tag says: the subsampling, and behind it where chroma lies, how many bits a sample has, or alpha.
void setChroma(YUVFormat& format, const std::string& input, std::string_view tag)
{
    struct Chroma {
        std::string_view name;
        ChromaSubsampling subsampling;
    };
    constexpr std::array kinds{Chroma{"C420", ChromaSubsampling::yuv420}, Chroma{"C422", ChromaSubsampling::yuv422},
        Chroma{"C444", ChromaSubsampling::yuv444}, Chroma{"C411", ChromaSubsampling::yuv411},
        Chroma{"Cmono", ChromaSubsampling::mono}};
    const auto refused = [&] {
        return invalid(input, tag,
            translate(
                "FrameReadError", "C420, C422, C444, C411 or Cmono of 8 to 16 bits (with FFmpeg: -pix_fmt yuv444p)"));
    };
    const auto* const kind
        = std::find_if(kinds.begin(), kinds.end(), [&](const Chroma& known) { return tag.starts_with(known.name); });
    if (kind == kinds.end())
        throw refused();
    format.subsampling = kind->subsampling;
    std::string_view rest = tag.substr(kind->name.size());
    if (rest.empty())
        return;
    if (kind->subsampling == ChromaSubsampling::yuv420 && rest == "jpeg") {
        format.siting = ChromaSiting::center;
    } else if (kind->subsampling == ChromaSubsampling::yuv420 && rest == "mpeg2") {
        format.siting = ChromaSiting::left;
    } else if (kind->subsampling == ChromaSubsampling::yuv420 && rest == "paldv") {
        format.siting = ChromaSiting::topLeft;
    } else if (kind->subsampling == ChromaSubsampling::yuv444 && rest == "alpha") {
        format.hasAlpha = true;
    } else {
        if (kind->subsampling != ChromaSubsampling::mono && !rest.starts_with('p'))
            throw refused();
        rest.remove_prefix(kind->subsampling == ChromaSubsampling::mono ? 0 : 1);
        const auto bits = number(rest);
        if (!bits || *bits < 9 || *bits > 16 || kind->subsampling == ChromaSubsampling::yuv411)
            throw refused();
        format.bitDepth = static_cast<int>(*bits);
        format.siting = ChromaSiting::left; // as in all codecs of so many bits
    }
}

/// The F tag's `numerator:denominator`; 0:0 says that the rate is unknown.
std::optional<FrameRate> rateOf(const std::string& input, std::string_view tag)
{
    constexpr std::int64_t maxTerm = std::int64_t{1} << 32; // as much as a FrameRate holds
    constexpr std::int64_t maxDelay = 600;                  // seconds
    const auto colon = std::min(tag.find(':'), tag.size() - 1);
    const auto numerator = number(tag.substr(1, colon - 1));
    const auto denominator = number(tag.substr(colon + 1));
    if (!numerator || !denominator || *numerator > maxTerm || *denominator > maxTerm)
        throw invalid(input, tag, translate("FrameReadError", "a rate like F30:1 or F30000:1001"));
    if (*numerator == 0 || *denominator == 0)
        return std::nullopt;
    if (*denominator / *numerator > maxDelay)
        throw invalid(input, tag, translate("FrameReadError", "at least one frame in ten minutes"));
    return FrameRate{.frames = *numerator, .seconds = *denominator};
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
            setChroma(header.format, input, tag);
        } else if (tag.starts_with('F')) {
            header.rate = rateOf(input, tag);
        } else if (tag.starts_with("XCOLORRANGE=")) {
            range = tag;
        } // interlacing, pixel aspect, comments and other extensions change nothing here
    }
    if (header.size.width == 0 || header.size.height == 0)
        throw invalid(input, magic, translate("FrameReadError", "the frame size in its tags W and H"));
    if (range.ends_with("=FULL") || (range.empty() && header.format.subsampling == ChromaSubsampling::mono))
        header.format.range = YUVRange::full; // grey pictures use all 256 levels unless they say otherwise
    else if (!range.empty() && !range.ends_with("=LIMITED"))
        throw invalid(input, range, translate("FrameReadError", "XCOLORRANGE=FULL or XCOLORRANGE=LIMITED"));
    constexpr std::int64_t highDefinitionRows = 720;
    if (header.size.height >= highDefinitionRows)
        header.format.matrix = YUVMatrix::bt709;
    return header;
}

} // namespace quillbox
