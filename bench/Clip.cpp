#include "Clip.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <random>
#include <stdexcept>

namespace quillbox::bench {
namespace {

/// A picture that can still be drawn on.
class Canvas {
public:
    Canvas(std::int64_t width, std::int64_t height)
        : m_width(width)
        , m_height(height)
        , m_pixels(static_cast<std::size_t>(checkedMul(checkedMul(width, height), RGBAFrame::bytesPerPixel)), 255)
    {
    }

    void fill(RGBColor color)
    {
        for (std::int64_t y = 0; y < m_height; ++y)
            for (std::int64_t x = 0; x < m_width; ++x)
                set(x, y, color);
    }

    void set(std::int64_t x, std::int64_t y, RGBColor color)
    {
        if (x < 0 || y < 0 || x >= m_width || y >= m_height)
            return;
        const auto offset = static_cast<std::size_t>((y * m_width + x) * RGBAFrame::bytesPerPixel);
        m_pixels[offset] = color.r;
        m_pixels[offset + 1] = color.g;
        m_pixels[offset + 2] = color.b;
    }

    [[nodiscard]] RGBAFrame frame() const { return {m_width, m_height, m_pixels}; }

private:
    std::int64_t m_width;
    std::int64_t m_height;
    Bytes m_pixels;
};

constexpr std::int64_t cellWidth = 8;
constexpr std::int64_t cellHeight = 16;

RGBColor blend(RGBColor under, RGBColor over, int part) // part of 255
{
    const auto mix = [part](int a, int b) {
        return static_cast<std::uint8_t>(a + (b - a) * part / 255);
    };
    return {mix(under.r, over.r), mix(under.g, over.g), mix(under.b, over.b)};
}

/// Something with the strokes and soft edges of a letter, the same for the same `letter`; 0 is a blank.
void drawLetter(Canvas& canvas, std::int64_t left, std::int64_t top, unsigned letter, RGBColor paper, RGBColor ink)
{
    if (letter == 0)
        return;
    const unsigned shape = letter * 2654435761U;
    for (std::int64_t y = 0; y < 10; ++y)
        for (std::int64_t x = 0; x < 6; ++x) {
            const bool stem = (shape >> (x % 6) & 1U) != 0 && x % 3 == 0;
            const bool bar = (shape >> (y % 10 + 6) & 1U) != 0 && y % 3 == 0;
            const bool edge = (shape >> ((x + y) % 16 + 8) & 3U) == 3U;
            if (stem || bar)
                canvas.set(left + 1 + x, top + 3 + y, blend(paper, ink, 255));
            else if (edge)
                canvas.set(
                    left + 1 + x, top + 3 + y, blend(paper, ink, 60 + static_cast<int>(shape >> (x + y) & 127U)));
        }
}

/// The letter at a place of an endless text: words of uneven length, lines of uneven length.
unsigned letterAt(std::int64_t line, std::int64_t column, std::int64_t columns)
{
    const auto mixed = static_cast<unsigned>(line * 7919 + column * 104729);
    const std::int64_t length = columns / 3 + line * 37 % (columns * 2 / 3 + 1);
    return column >= length || mixed % 6 == 0 ? 0 : 1 + mixed % 60;
}

void drawPage(
    Canvas& canvas, std::int64_t width, std::int64_t height, std::int64_t scroll, RGBColor paper, RGBColor ink)
{
    canvas.fill(paper);
    const std::int64_t columns = width / cellWidth;
    for (std::int64_t line = scroll / cellHeight; line * cellHeight < scroll + height; ++line)
        for (std::int64_t column = 0; column < columns; ++column)
            drawLetter(
                canvas, column * cellWidth, line * cellHeight - scroll, letterAt(line, column, columns), paper, ink);
}

RGBAFrame typingFrame(std::int64_t width, std::int64_t height, int index)
{
    const RGBColor paper(24, 26, 33);
    const RGBColor ink(214, 219, 229);
    Canvas canvas(width, height);
    const std::int64_t columns = width / cellWidth;
    const std::int64_t rows = height / cellHeight;
    const std::int64_t typed = index / 2; // a letter every other frame
    const std::int64_t lastLine = rows / 2 + typed / 24;
    const std::int64_t firstLine = std::max<std::int64_t>(0, lastLine - rows + 1);
    canvas.fill(paper);
    for (std::int64_t line = firstLine; line <= lastLine; ++line) {
        const std::int64_t end = line == lastLine ? typed % 24 : columns;
        for (std::int64_t column = 0; column < end; ++column)
            drawLetter(canvas, column * cellWidth, (line - firstLine) * cellHeight, letterAt(line, column, columns),
                paper, line % 5 == 0 ? RGBColor(126, 200, 120) : ink);
    }
    return canvas.frame();
}

RGBAFrame scrollingFrame(std::int64_t width, std::int64_t height, int index)
{
    const int burst = index / 15; // half a second of motion, half a second of rest
    const int moving = burst / 2 * 15 + (burst % 2 == 0 ? index % 15 : 15);
    Canvas canvas(width, height);
    drawPage(canvas, width, height, std::int64_t{moving} * 11, RGBColor(252, 252, 250), RGBColor(32, 33, 36));
    return canvas.frame();
}

RGBAFrame gradientFrame(std::int64_t width, std::int64_t height, int index)
{
    Canvas canvas(width, height);
    const double phase = 2 * 3.141592653589793 * index / 90;
    for (std::int64_t y = 0; y < height; ++y)
        for (std::int64_t x = 0; x < width; ++x) {
            const double u = static_cast<double>(x) / static_cast<double>(width);
            const double v = static_cast<double>(y) / static_cast<double>(height);
            const auto level = [phase](double place) {
                return static_cast<std::uint8_t>(std::lround(127.5 + 127.5 * std::sin(3 * place + phase)));
            };
            canvas.set(x, y, {level(u), level(v + 0.7), level(u + v)});
        }
    return canvas.frame();
}

RGBAFrame noiseFrame(std::int64_t width, std::int64_t height, int index)
{
    std::minstd_rand random(static_cast<unsigned>(index) + 1);
    Bytes pixels(static_cast<std::size_t>(checkedMul(checkedMul(width, height), RGBAFrame::bytesPerPixel)));
    std::ranges::generate(pixels, [&random] { return static_cast<std::uint8_t>(random() >> 8U); });
    return {width, height, std::move(pixels)};
}

struct Generator {
    std::string_view name;
    RGBAFrame (*frame)(std::int64_t width, std::int64_t height, int index);
};
constexpr std::array generators{Generator{"typing", typingFrame}, Generator{"scrolling", scrollingFrame},
    Generator{"gradient", gradientFrame}, Generator{"noise", noiseFrame}};

} // namespace

double Clip::megapixels() const
{
    return frames.empty() ? 0 : 1e-6 * static_cast<double>(frames.front().pixelCount() * std::ssize(frames));
}

std::vector<std::string_view> generatedClipNames()
{
    std::vector<std::string_view> names;
    std::ranges::transform(generators, std::back_inserter(names), &Generator::name);
    return names;
}

Clip generatedClip(std::string_view name, std::int64_t width, std::int64_t height, int frameCount)
{
    const auto* generator = std::ranges::find(generators, name, &Generator::name);
    if (generator == generators.end())
        throw std::invalid_argument("no generated clip is called \"" + std::string(name) + "\"");
    Clip clip{.name = std::string(name), .frames = {}};
    for (int index = 0; index < frameCount; ++index)
        clip.frames.push_back(generator->frame(width, height, index));
    return clip;
}

Clip rawClip(const std::string& path, std::int64_t width, std::int64_t height, int frameLimit)
{
    const auto frameBytes
        = static_cast<std::uintmax_t>(checkedMul(checkedMul(width, height), RGBAFrame::bytesPerPixel));
    const std::uintmax_t size = std::filesystem::file_size(path);
    if (frameBytes == 0 || size == 0 || size % frameBytes != 0)
        throw std::runtime_error(path + ": not a whole number of frames of that size");
    std::uintmax_t count = size / frameBytes;
    if (frameLimit > 0)
        count = std::min<std::uintmax_t>(count, static_cast<std::uintmax_t>(frameLimit));

    Clip clip{.name = std::filesystem::path(path).stem().string(), .frames = {}};
    std::ifstream file(path, std::ios::binary);
    for (std::uintmax_t i = 0; i < count; ++i) {
        Bytes pixels(frameBytes);
        // The standard's character streams read bytes as char.
        file.read(reinterpret_cast<char*>(pixels.data()),
            static_cast<std::streamsize>(frameBytes)); // NOLINT(cppcoreguidelines-pro-type-reinterpret-cast)
        if (!file)
            throw std::runtime_error(path + ": cannot be read");
        clip.frames.emplace_back(width, height, std::move(pixels));
    }
    return clip;
}

PictureSize pictureSize(std::string_view text)
{
    PictureSize size;
    const auto cross = text.find('x');
    const auto number = [](std::string_view digits, std::int64_t& value) {
        const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
        return error == std::errc() && end == digits.data() + digits.size() && value > 0 && value <= 65535;
    };
    if (cross == std::string_view::npos || !number(text.substr(0, cross), size.width)
        || !number(text.substr(cross + 1), size.height))
        throw std::invalid_argument("not a size: \"" + std::string(text) + "\"");
    return size;
}

} // namespace quillbox::bench
