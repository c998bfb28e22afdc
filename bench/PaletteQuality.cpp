// Measures how well palettes keep the pictures of recordings, without dithering, beside FFmpeg's palettegen and
// paletteuse (stats_mode full, dither none), which are run as a program:
//
//     palette-quality [--width=960] [--pictures=FOLDER] FRAMES.rgba@WIDTHxHEIGHT…
//
// Frames are scaled as the exporter does. Prints a Markdown table: PSNR over all pixels of all frames, SSIM of luma
// over windows of 8 × 8 pixels, and the time from the counted colours to the palette, the least of five. With
// --pictures, the middle frame of each clip is written as it is and as both make it (PPM).

#include "Clip.h"

#include "Encoding/FrameResampler.h"
#include "Encoding/Precise/Colors/ColorCounts.h"
#include "Encoding/Precise/Colors/NearestColors.h"
#include "Encoding/Precise/Colors/ScreenPalette.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <limits>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace quillbox::bench {
namespace {

constexpr std::int64_t window = 8; // pixels a side, and the distance between windows
constexpr double ssimC1 = 6.5025;  // (0.01 · 255)²: Z. Wang et al., "Image Quality Assessment" (2004)
constexpr double ssimC2 = 58.5225; // (0.03 · 255)²

double luma(const std::uint8_t* pixel)
{
    return 0.299 * pixel[0] + 0.587 * pixel[1] + 0.114 * pixel[2];
}

/// Sums up how far pictures are from what they should be.
class Quality {
public:
    void add(const RGBAFrame& frame, std::span<const std::uint8_t> shown)
    {
        const PixelView source = frame.pixels();
        for (std::size_t i = 0; i < shown.size(); ++i) {
            if (i % 4 == 3)
                continue;
            const int difference = int{shown[i]} - int{source[i]};
            m_squares += difference * difference;
        }
        m_samples += frame.pixelCount() * 3;
        for (std::int64_t y = 0; y + window <= frame.height(); y += window)
            for (std::int64_t x = 0; x + window <= frame.width(); x += window)
                addWindow(source.data(), shown.data(), frame.width(), x, y);
    }

    [[nodiscard]] double decibels() const
    {
        return 10 * std::log10(255.0 * 255.0 * static_cast<double>(m_samples) / static_cast<double>(m_squares));
    }
    [[nodiscard]] double ssim() const { return m_ssim / static_cast<double>(m_windows); }

private:
    void addWindow(
        const std::uint8_t* source, const std::uint8_t* shown, std::int64_t width, std::int64_t left, std::int64_t top)
    {
        double a = 0;
        double b = 0;
        double aa = 0;
        double bb = 0;
        double ab = 0;
        for (std::int64_t y = top; y < top + window; ++y) {
            for (std::int64_t x = left; x < left + window; ++x) {
                const double first = luma(source + 4 * (y * width + x));
                const double second = luma(shown + 4 * (y * width + x));
                a += first;
                b += second;
                aa += first * first;
                bb += second * second;
                ab += first * second;
            }
        }
        constexpr double count = window * window;
        a /= count;
        b /= count;
        const double varianceA = aa / count - a * a;
        const double varianceB = bb / count - b * b;
        const double covariance = ab / count - a * b;
        m_ssim += (2 * a * b + ssimC1) * (2 * covariance + ssimC2)
            / ((a * a + b * b + ssimC1) * (varianceA + varianceB + ssimC2));
        ++m_windows;
    }

    std::int64_t m_squares = 0;
    std::int64_t m_samples = 0;
    std::int64_t m_windows = 0;
    double m_ssim = 0;
};

std::span<const std::uint8_t> bytesOf(const PixelView& pixels)
{
    return {pixels.data(), pixels.size()};
}

ColorCounts counted(const Clip& clip)
{
    ColorCounts counts;
    for (const RGBAFrame& frame : clip.frames) {
        const PixelView pixels = frame.pixels();
        counts.add(bytesOf(pixels), 1);
    }
    return counts;
}

Bytes mapped(const RGBAFrame& frame, NearestColors& nearest)
{
    const PixelView pixels = frame.pixels();
    Bytes indices(static_cast<std::size_t>(frame.pixelCount()));
    nearest.map(bytesOf(pixels), indices);
    Bytes shown(pixels.size(), 255);
    for (std::size_t i = 0; i < indices.size(); ++i) {
        const RGBColor color = nearest.palette()[indices[i]];
        shown[4 * i] = color.r;
        shown[4 * i + 1] = color.g;
        shown[4 * i + 2] = color.b;
    }
    return shown;
}

void writePicture(const std::filesystem::path& path, const RGBAFrame& frame, std::span<const std::uint8_t> shown)
{
    std::ofstream file(path, std::ios::binary);
    file << "P6\n" << frame.width() << ' ' << frame.height() << "\n255\n";
    for (std::size_t i = 0; i < shown.size(); ++i) {
        if (i % 4 != 3)
            file.put(static_cast<char>(shown[i]));
    }
}

/// What FFmpeg shows for each frame of a clip.
class ForeignFrames {
public:
    ForeignFrames(const std::filesystem::path& frames, const RGBAFrame& first, std::int64_t colors)
        : m_shown(static_cast<std::size_t>(first.pixelCount() * RGBAFrame::bytesPerPixel))
    {
        const std::string count = std::to_string(colors);
        const std::string command = "ffmpeg -v error -f rawvideo -pix_fmt rgba -r 30 -s "
            + std::to_string(first.width()) + 'x' + std::to_string(first.height()) + " -i '" + frames.string()
            + "' -filter_complex '[0]split[a][b];[a]palettegen=stats_mode=full:max_colors=" + count
            + "[p];[b][p]paletteuse=dither=none,format=bgra' -f rawvideo -pix_fmt rgba -";
        m_pipe = ::popen(command.c_str(), "r"); // NOLINT(cert-env33-c): the command is ours
        if (m_pipe == nullptr)
            throw std::runtime_error("cannot run ffmpeg");
    }
    ForeignFrames(const ForeignFrames&) = delete;
    ForeignFrames& operator=(const ForeignFrames&) = delete;
    ~ForeignFrames() { (void)::pclose(m_pipe); } // a failure was seen as missing frames

    [[nodiscard]] std::span<const std::uint8_t> next()
    {
        if (std::fread(m_shown.data(), 1, m_shown.size(), m_pipe) != m_shown.size())
            throw std::runtime_error("ffmpeg gave too few frames");
        return m_shown;
    }

private:
    Bytes m_shown;
    std::FILE* m_pipe = nullptr;
};

struct Options {
    std::int64_t width = 960;
    std::optional<std::filesystem::path> pictures;
};

void measure(const Clip& clip, const Options& options)
{
    using Clock = std::chrono::steady_clock;
    const std::filesystem::path scaled
        = std::filesystem::temp_directory_path() / ("palette-quality-" + clip.name + ".rgba");
    std::ofstream file(scaled, std::ios::binary);
    for (const RGBAFrame& frame : clip.frames) {
        const PixelView pixels = frame.pixels();
        // The standard's character streams write bytes as char.
        file.write(reinterpret_cast<const char*>(pixels.data()), static_cast<std::streamsize>(pixels.size()));
    }
    file.close();
    const std::vector<WeightedColor> colors = counted(clip).entries();
    for (const std::int64_t count : {256, 128, 64}) {
        double least = std::numeric_limits<double>::max();
        std::vector<RGBColor> palette;
        for (int run = 0; run < 5; ++run) {
            const auto before = Clock::now();
            palette = ScreenPalette::make(colors, count);
            least = std::min(least, std::chrono::duration<double, std::milli>(Clock::now() - before).count());
        }
        NearestColors nearest(palette);
        ForeignFrames foreign(scaled, clip.frames.front(), count);
        Quality ours;
        Quality theirs;
        for (std::size_t i = 0; i < clip.frames.size(); ++i) {
            const RGBAFrame& frame = clip.frames[i];
            const Bytes shown = mapped(frame, nearest);
            const std::span<const std::uint8_t> foreignShown = foreign.next();
            ours.add(frame, shown);
            theirs.add(frame, foreignShown);
            if (options.pictures && i == clip.frames.size() / 2) {
                const std::string name = clip.name + "-" + std::to_string(count);
                const PixelView source = frame.pixels();
                writePicture(*options.pictures / (clip.name + "-source.ppm"), frame, bytesOf(source));
                writePicture(*options.pictures / (name + "-ours.ppm"), frame, shown);
                writePicture(*options.pictures / (name + "-palettegen.ppm"), frame, foreignShown);
            }
        }
        std::printf("| %s | %lld | %zu | %.2f | %.2f | %+.2f | %.6f | %.6f | %.1f |\n", clip.name.c_str(),
            static_cast<long long>(count), colors.size(), ours.decibels(), theirs.decibels(),
            ours.decibels() - theirs.decibels(), ours.ssim(), theirs.ssim(), least);
        (void)std::fflush(stdout); // a table that comes line by line
    }
    std::filesystem::remove(scaled);
}

Clip clipOf(std::string_view argument, std::int64_t width)
{
    const auto at = argument.rfind('@');
    if (at == std::string_view::npos)
        throw std::invalid_argument("clips are given as FRAMES.rgba@WIDTHxHEIGHT");
    const PictureSize size = pictureSize(argument.substr(at + 1));
    Clip clip = rawClip(std::string(argument.substr(0, at)), size.width, size.height, 0);
    clip.frames = FrameResampler::cappedToWidth(clip.frames, width);
    return clip;
}

int run(const std::vector<std::string_view>& arguments)
{
    Options options;
    std::vector<std::string_view> clips;
    for (const std::string_view argument : arguments) {
        if (argument.starts_with("--width="))
            options.width = std::stoll(std::string(argument.substr(8)));
        else if (argument.starts_with("--pictures="))
            options.pictures = argument.substr(11);
        else
            clips.push_back(argument);
    }
    if (clips.empty())
        throw std::invalid_argument("wants FRAMES.rgba@WIDTHxHEIGHT, at least once");
    std::printf("| clip | palette | colours | dB | palettegen, dB | difference | SSIM | palettegen | ms |\n"
                "| --- | ---: | ---: | ---: | ---: | ---: | ---: | ---: | ---: |\n");
    for (const std::string_view clip : clips)
        measure(clipOf(clip, options.width), options);
    return 0;
}

} // namespace
} // namespace quillbox::bench

int main(int argc, char** argv)
{
    try {
        return quillbox::bench::run({argv + 1, argv + argc});
    } catch (const std::exception& error) {
        (void)std::fprintf(stderr, "palette-quality: %s\n", error.what()); // nothing is left to do if that fails
        return 1;
    }
}
