// Measures the code streams of the precise encoder beside gifsicle -O3, at equal pixels:
//
//     precise-codes [--width=960] [--colors=64,256] [--passes=1,10,30] FRAMES.rgba@WIDTHxHEIGHT…
//
// Every picture that differs from the one before is mapped to one palette without dithering. gifsicle gets them whole
// and opaque, and what we wrote, which must not get smaller. Prints a Markdown table: bytes of the files, and the time
// from indices to codes, on one thread and on all. Compare times with those of the same run only.

#include "Clip.h"

#include "Encoding/FrameResampler.h"
#include "Encoding/LZW.h"
#include "Encoding/Parallel.h"
#include "Encoding/Precise/Colors/ColorCounts.h"
#include "Encoding/Precise/Colors/NearestColors.h"
#include "Encoding/Precise/Colors/ScreenPalette.h"
#include "Encoding/Precise/DeltaGIF.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace quillbox::bench {
namespace {

/// A picture's changed rectangle.
struct Part {
    std::int64_t left = 0;
    std::int64_t top = 0;
    std::int64_t width = 0;
    Bytes indices;
    Bytes freedoms; ///< empty for the first picture
};

struct Pictures {
    DeltaGIF::Screen screen;
    std::vector<Bytes> whole;
    std::vector<Part> parts;
};

Part changedPart(const Bytes& now, const Bytes& before, std::int64_t width)
{
    std::int64_t left = width;
    std::int64_t right = 0;
    std::int64_t top = std::ssize(now) / width;
    std::int64_t bottom = 0;
    for (std::int64_t i = 0; i < std::ssize(now); ++i) {
        if (now[static_cast<std::size_t>(i)] == before[static_cast<std::size_t>(i)])
            continue;
        left = std::min(left, i % width);
        right = std::max(right, i % width + 1);
        top = std::min(top, i / width);
        bottom = std::max(bottom, i / width + 1);
    }
    Part part{.left = left, .top = top, .width = right - left, .indices = {}, .freedoms = {}};
    for (std::int64_t y = top; y < bottom; ++y) {
        for (std::int64_t x = left; x < right; ++x) {
            const auto at = static_cast<std::size_t>(y * width + x);
            part.indices.push_back(now[at]);
            part.freedoms.push_back(now[at] == before[at] ? LZWSearch::unchanged : LZWSearch::changed);
        }
    }
    return part;
}

Pictures mapped(const std::vector<RGBAFrame>& frames, std::int64_t colors)
{
    ColorCounts counts;
    for (const RGBAFrame& frame : frames) {
        const PixelView pixels = frame.pixels();
        counts.add({pixels.data(), pixels.size()}, 1);
    }
    const std::vector<RGBColor> palette = ScreenPalette::make(counts.entries(), colors);
    NearestColors nearest(palette);
    Pictures pictures;
    const std::int64_t width = frames.front().width();
    pictures.screen = {.width = width, .height = frames.front().height(), .colorTable = palette, .loopCount = 0};
    for (const RGBAFrame& frame : frames) {
        const PixelView pixels = frame.pixels();
        Bytes indices(static_cast<std::size_t>(frame.pixelCount()));
        nearest.map({pixels.data(), pixels.size()}, indices);
        if (pictures.whole.empty()) {
            pictures.parts.push_back({.left = 0, .top = 0, .width = width, .indices = indices, .freedoms = {}});
            pictures.whole.push_back(std::move(indices));
        } else if (indices != pictures.whole.back()) {
            pictures.parts.push_back(changedPart(indices, pictures.whole.back(), width));
            pictures.whole.push_back(std::move(indices));
        }
    }
    return pictures;
}

Bytes wholeFile(const Pictures& pictures)
{
    LZW::Encoder encoder;
    std::vector<Bytes> parts;
    const int bits = std::max(GIFEncoder::colorTableBits(std::ssize(pictures.screen.colorTable)), 2);
    for (const Bytes& indices : pictures.whole) {
        const auto data = encoder.encode(indices, bits);
        DeltaGIF::Picture picture{
            .width = pictures.screen.width, .height = pictures.screen.height, .delayCentiseconds = 3};
        picture.codes.data.assign(data.begin(), data.end());
        picture.codes.minCodeSize = bits;
        parts.push_back(DeltaGIF::part(picture));
    }
    return DeltaGIF::fileOf(pictures.screen, parts);
}

struct Timed {
    Bytes file;
    double milliseconds = 0;
};

Timed searched(const Pictures& pictures, LZWSearch::Effort effort, Parallelism parallelism)
{
    const auto start = std::chrono::steady_clock::now();
    const std::int64_t count = std::ssize(pictures.parts);
    std::vector<Bytes> parts(pictures.parts.size());
    std::vector<LZWSearch::Search> searches(static_cast<std::size_t>(workerCount(parallelism, count)));
    parallelFor(parallelism, count, [&](std::int64_t item, int worker) {
        const Part& part = pictures.parts[static_cast<std::size_t>(item)];
        DeltaGIF::Picture picture{.left = part.left,
            .top = part.top,
            .width = part.width,
            .height = std::ssize(part.indices) / part.width,
            .delayCentiseconds = 3};
        picture.codes = searches[static_cast<std::size_t>(worker)].best(
            {.width = part.width, .indices = part.indices, .freedoms = part.freedoms}, effort);
        parts[static_cast<std::size_t>(item)] = DeltaGIF::part(picture);
    });
    Timed timed{.file = DeltaGIF::fileOf(pictures.screen, parts)};
    timed.milliseconds = std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
    return timed;
}

/// The size of what gifsicle makes of a file, and its time.
Timed byGifsicle(const Bytes& file, const std::filesystem::path& folder)
{
    const std::string from = folder / "from.gif";
    const std::string to = folder / "to.gif";
    std::ofstream(from, std::ios::binary)
        .write(reinterpret_cast<const char*>(file.data()), std::ssize(file)); // NOLINT(*-reinterpret-cast): bytes
    const auto start = std::chrono::steady_clock::now();
    if (std::system(("gifsicle --no-warnings -O3 '" + from + "' -o '" + to + "'").c_str()) != 0) // NOLINT(*-env33-c)
        throw std::runtime_error("gifsicle failed");
    Timed timed;
    timed.milliseconds = std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
    timed.file.resize(std::filesystem::file_size(to));
    return timed;
}

std::vector<std::int64_t> numbersOf(std::string_view list)
{
    std::vector<std::int64_t> numbers;
    while (!list.empty()) {
        const std::size_t end = std::min(list.find(','), list.size());
        numbers.push_back(std::stol(std::string(list.substr(0, end))));
        list.remove_prefix(std::min(end + 1, list.size()));
    }
    return numbers;
}

struct Options {
    std::int64_t width = 960;
    std::vector<std::int64_t> colors{64, 256};
    std::vector<std::int64_t> passes{1, 10, 30};
};

void measure(std::string_view argument, const Options& options)
{
    const std::size_t at = argument.rfind('@');
    if (at == std::string_view::npos)
        throw std::invalid_argument("a clip is FRAMES.rgba@WIDTHxHEIGHT");
    const std::filesystem::path path(argument.substr(0, at));
    const auto [width, height] = pictureSize(argument.substr(at + 1));
    const std::vector<RGBAFrame> frames
        = FrameResampler::cappedToWidth(rawClip(path, width, height, 0).frames, options.width);

    char name[] = "/tmp/precise-codes-XXXXXX"; // NOLINT(*-avoid-c-arrays): mkdtemp's
    const std::filesystem::path folder = mkdtemp(name);
    for (const std::int64_t colors : options.colors) {
        const Pictures pictures = mapped(frames, colors);
        const Timed theirs = byGifsicle(wholeFile(pictures), folder);
        for (const std::int64_t passes : options.passes) {
            const Timed alone = searched(pictures, {.passes = passes}, {.threads = 1});
            const Timed all = searched(pictures, {.passes = passes}, {});
            const Timed again = byGifsicle(all.file, folder);
            std::printf("| %s | %lld | %zu | %zu | %.0f | %lld | %zu | %+.1f %% | %zu | %.0f | %.0f |\n",
                path.stem().c_str(), static_cast<long long>(colors), pictures.parts.size(), theirs.file.size(),
                theirs.milliseconds, static_cast<long long>(passes), all.file.size(),
                100.0 * (static_cast<double>(all.file.size()) / static_cast<double>(theirs.file.size()) - 1),
                again.file.size(), alone.milliseconds, all.milliseconds);
            (void)std::fflush(stdout); // a reader that went away gets no answer
        }
    }
    std::filesystem::remove_all(folder);
}

} // namespace
} // namespace quillbox::bench

int main(int argc, char** argv)
{
    using namespace quillbox::bench;
    Options options;
    try {
        std::printf("| clip | colours | pictures | gifsicle -O3, bytes | ms | passes | ours, bytes | difference | "
                    "ours after gifsicle | ms, 1 thread | ms, all |\n|---|---|---|---|---|---|---|---|---|---|---|\n");
        for (const std::string_view argument : std::vector<std::string_view>(argv + 1, argv + argc)) {
            if (argument.starts_with("--width="))
                options.width = std::stol(std::string(argument.substr(8)));
            else if (argument.starts_with("--colors="))
                options.colors = numbersOf(argument.substr(9));
            else if (argument.starts_with("--passes="))
                options.passes = numbersOf(argument.substr(9));
            else
                measure(argument, options);
        }
        return 0;
    } catch (const std::exception& error) {
        (void)std::fprintf(stderr, "precise-codes: %s\n", error.what()); // nothing is left to do if that fails
        return 1;
    }
}
