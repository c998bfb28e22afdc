// Tells how well GIFs show a recording: what is seen of each at every moment of it, against the recording's pictures.
//
//     timeline-quality FRAMES.rgba WIDTHxHEIGHT FPS CLIP.gif…
//     timeline-quality --shrink WIDTH FRAMES.rgba WIDTHxHEIGHT >SHRUNK.rgba
//
// The recording is shrunk to a clip's width as our own program shrinks. Prints one JSON object a clip: "decibels", the
// PSNR over all pixels, channels and frames (99 at most); "shownDecibels", the same over the pictures of the clip
// alone, each against the frame that it appears with; "similarity", the mean SSIM of the luma in blocks of 8 × 8 (Z.
// Wang et al., "Image Quality Assessment: From Error Visibility to Structural Similarity", 2004), over all frames;
// "bytes", "pictures" and "centiseconds".

#include "Clip.h"
#include "Encoding/FrameResampler.h"
#include "support/GifDecoding.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <iterator>
#include <numeric>
#include <span>
#include <stdexcept>
#include <string_view>
#include <vector>

namespace {

using namespace quillbox;

struct Seen {
    double squares = 0;
    double similarity = 0;
};

double luma(RGBColor color)
{
    return 0.299 * color.r + 0.587 * color.g + 0.114 * color.b;
}

double similarityOfBlock(std::span<const double> a, std::span<const double> b)
{
    const auto count = static_cast<double>(a.size());
    const double meanA = std::accumulate(a.begin(), a.end(), 0.0) / count;
    const double meanB = std::accumulate(b.begin(), b.end(), 0.0) / count;
    double varianceA = 0;
    double varianceB = 0;
    double covariance = 0;
    for (std::size_t i = 0; i < a.size(); ++i) {
        varianceA += (a[i] - meanA) * (a[i] - meanA) / count;
        varianceB += (b[i] - meanB) * (b[i] - meanB) / count;
        covariance += (a[i] - meanA) * (b[i] - meanB) / count;
    }
    constexpr double c1 = 0.01 * 255 * 0.01 * 255;
    constexpr double c2 = 0.03 * 255 * 0.03 * 255;
    return (2 * meanA * meanB + c1) * (2 * covariance + c2)
        / ((meanA * meanA + meanB * meanB + c1) * (varianceA + varianceB + c2));
}

Seen compared(const RGBAFrame& recorded, const std::vector<RGBColor>& shown)
{
    Seen seen;
    std::vector<RGBColor> wanted;
    recorded.forEachColor([&](RGBColor color) { wanted.push_back(color); });
    for (std::size_t i = 0; i < wanted.size(); ++i)
        seen.squares += static_cast<double>(wanted[i].distanceSquared(shown.at(i)));
    constexpr std::int64_t side = 8;
    std::int64_t blocks = 0;
    for (std::int64_t top = 0; top + side <= recorded.height(); top += side) {
        for (std::int64_t left = 0; left + side <= recorded.width(); left += side) {
            std::vector<double> a;
            std::vector<double> b;
            for (std::int64_t i = 0; i < side * side; ++i) {
                const auto place = static_cast<std::size_t>((top + i / side) * recorded.width() + left + i % side);
                a.push_back(luma(wanted[place]));
                b.push_back(luma(shown[place]));
            }
            seen.similarity += similarityOfBlock(a, b);
            ++blocks;
        }
    }
    seen.similarity = blocks == 0 ? 1 : seen.similarity / static_cast<double>(blocks);
    return seen;
}

double decibels(double meanSquare)
{
    return meanSquare == 0 ? 99 : std::min(99.0, 10 * std::log10(255.0 * 255.0 / meanSquare));
}

/// What viewers show of a GIF, picture by picture.
struct ShownClip {
    std::vector<std::vector<RGBColor>> pictures;
    std::vector<std::int64_t> delaysCentiseconds;
};

ShownClip composed(const Bytes& gif)
{
    const support::DecodedGif decoded = support::decodeWithGiflib(gif);
    ShownClip clip;
    std::vector<RGBColor> screen(static_cast<std::size_t>(decoded.width * decoded.height));
    for (const support::DecodedFrame& frame : decoded.frames) {
        const std::vector<RGBColor> before = screen;
        const auto& colors = frame.localColorTable.empty() ? decoded.globalColorTable : frame.localColorTable;
        for (std::int64_t i = 0; i < frame.width * frame.height; ++i) {
            const std::uint8_t index = frame.indices.at(static_cast<std::size_t>(i));
            if (frame.transparentIndex != index)
                screen.at(static_cast<std::size_t>(
                    (frame.top + i / frame.width) * decoded.width + frame.left + i % frame.width))
                    = colors.at(index);
        }
        clip.pictures.push_back(screen);
        clip.delaysCentiseconds.push_back(frame.delayCentiseconds);
        constexpr int clearBehind = 2;
        constexpr int restoreBehind = 3;
        if (frame.disposalMethod == restoreBehind)
            screen = before;
        for (std::int64_t i = 0; frame.disposalMethod == clearBehind && i < frame.width * frame.height; ++i)
            screen.at(
                static_cast<std::size_t>((frame.top + i / frame.width) * decoded.width + frame.left + i % frame.width))
                = RGBColor();
    }
    return clip;
}

void measure(const std::vector<RGBAFrame>& recording, double fps, const char* path)
{
    std::ifstream file(path, std::ios::binary);
    const Bytes gif{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    const std::int64_t width = gif.at(6) | gif.at(7) << 8;
    const ShownClip shown = composed(gif);
    const FrameResampler::WidthCap cap(recording.front(), width);
    Seen total;
    Seen last;
    double shownSquares = 0; // of each picture once
    std::size_t picturesShown = 0;
    std::size_t picture = 0;
    std::size_t lastPicture = shown.pictures.size();
    double end = static_cast<double>(shown.delaysCentiseconds.at(0)) / 100;
    for (std::size_t i = 0; i < recording.size(); ++i) {
        while (picture + 1 < shown.pictures.size() && end <= (static_cast<double>(i) + 0.5) / fps)
            end += static_cast<double>(shown.delaysCentiseconds[++picture]) / 100;
        if (picture != lastPicture || !recording[i].sharesPixels(recording[i - 1]))
            last = compared(cap.applied(recording[i]), shown.pictures[picture]);
        if (picture != lastPicture) {
            shownSquares += last.squares;
            ++picturesShown;
        }
        lastPicture = picture;
        total.squares += last.squares;
        total.similarity += last.similarity;
    }
    const double frames = static_cast<double>(recording.size());
    const double samples = 3 * static_cast<double>(shown.pictures.front().size());
    std::printf("{\"clip\": \"%s\", \"bytes\": %zu, \"pictures\": %zu, \"centiseconds\": %lld, \"decibels\": %.2f, "
                "\"shownDecibels\": %.2f, \"similarity\": %.4f}\n",
        path, gif.size(), shown.pictures.size(),
        static_cast<long long>(
            std::accumulate(shown.delaysCentiseconds.begin(), shown.delaysCentiseconds.end(), std::int64_t{0})),
        decibels(total.squares / (samples * frames)),
        decibels(shownSquares / (samples * static_cast<double>(picturesShown))), total.similarity / frames);
}

void shrink(const std::vector<RGBAFrame>& recording, std::int64_t width)
{
    const FrameResampler::WidthCap cap(recording.front(), width);
    for (const RGBAFrame& frame : recording) {
        const RGBAFrame shrunk = cap.applied(frame);
        const PixelView pixels = shrunk.pixels();
        if (std::fwrite(pixels.data(), 1, pixels.size(), stdout) != pixels.size())
            throw std::runtime_error("cannot write");
    }
}

} // namespace

int main(int argc, char** argv)
{
    const std::span arguments(argv, static_cast<std::size_t>(argc));
    if (arguments.size() < 5) {
        (void)std::fputs("usage: timeline-quality FRAMES.rgba WIDTHxHEIGHT FPS CLIP.gif…\n", stderr);
        return 2;
    }
    try {
        if (std::string_view(arguments[1]) == "--shrink") {
            const auto [width, height] = bench::pictureSize(arguments[4]);
            shrink(bench::rawClip(arguments[3], width, height, 0).frames, std::atoll(arguments[2]));
            return 0;
        }
        const auto [width, height] = bench::pictureSize(arguments[2]);
        auto recording = bench::rawClip(arguments[1], width, height, 0).frames;
        for (std::size_t i = 1; i < recording.size(); ++i) {
            if (recording[i] == recording[i - 1])
                recording[i] = recording[i - 1];
        }
        for (const char* const clip : arguments.subspan(4))
            measure(recording, std::atof(arguments[3]), clip);
        return 0;
    } catch (const std::exception& error) {
        (void)std::fprintf(stderr, "timeline-quality: %s\n", error.what()); // nothing is left to do if that fails
        return 1;
    }
}
