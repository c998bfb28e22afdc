#include "Encoding/Precise/DeltaGIF.h"

#include "support/ForeignDecoders.h"
#include "support/GifDecoding.h"
#include "support/Pictures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numeric>
#include <vector>

namespace quillbox {
namespace {

using support::gray;
using support::Random;
using support::ShownGif;

/// A file and what has to be seen of it, picture by picture.
struct Clip {
    std::int64_t width = 0;
    std::int64_t height = 0;
    Bytes file;
    std::vector<std::vector<RGBColor>> shown;
    std::vector<std::int64_t> delaysCentiseconds;
};

/// Draws pictures on a screen one after another and notes what has to be seen.
class Painter {
public:
    Painter(std::int64_t width, std::int64_t height, std::vector<RGBColor> colorTable, LZWSearch::Effort effort = {})
        : m_screen{.width = width, .height = height, .colorTable = std::move(colorTable)}
        , m_canvas(static_cast<std::size_t>(width * height))
        , m_effort(effort)
    {
    }

    struct Place {
        std::int64_t left = 0;
        std::int64_t top = 0;
        std::int64_t width = 0;
        std::int64_t height = 0;
    };

    void draw(const Place& place, const Bytes& indices, std::int64_t delayCentiseconds,
        const std::vector<RGBColor>& localColorTable = {})
    {
        const std::vector<RGBColor>& colors = localColorTable.empty() ? m_screen.colorTable : localColorTable;
        Bytes freedoms(m_parts.empty() ? 0 : indices.size());
        for (std::int64_t i = 0; i < std::ssize(indices); ++i) {
            const auto at = static_cast<std::size_t>(i);
            RGBColor& pixel = m_canvas.at(static_cast<std::size_t>(
                (place.top + i / place.width) * m_screen.width + place.left + i % place.width));
            const RGBColor color = colors.at(indices[at]);
            if (!freedoms.empty())
                freedoms[at] = pixel == color ? LZWSearch::unchanged : LZWSearch::changed;
            pixel = color;
        }
        const LZWSearch::Picture picture{.width = place.width, .indices = indices, .freedoms = freedoms};
        const DeltaGIF::Picture part{.left = place.left,
            .top = place.top,
            .width = place.width,
            .height = place.height,
            .localColorTable = localColorTable,
            .codes = m_search.best(picture, m_effort),
            .delayCentiseconds = delayCentiseconds};
        m_parts.push_back(DeltaGIF::part(part));
        m_clip.shown.push_back(m_canvas);
        m_clip.delaysCentiseconds.push_back(delayCentiseconds);
    }
    /// The picture that was drawn last was split into pictures with these delays.
    void expectSplit(std::vector<std::int64_t> delays)
    {
        m_clip.delaysCentiseconds.pop_back();
        m_clip.shown.insert(m_clip.shown.end(), delays.size() - 1, m_canvas);
        m_clip.delaysCentiseconds.insert(m_clip.delaysCentiseconds.end(), delays.begin(), delays.end());
    }

    Clip finished()
    {
        m_clip.width = m_screen.width;
        m_clip.height = m_screen.height;
        m_clip.file = DeltaGIF::fileOf(m_screen, m_parts);
        EXPECT_EQ(DeltaGIF::fileSize(m_screen, m_parts), std::ssize(m_clip.file));
        return m_clip;
    }

private:
    DeltaGIF::Screen m_screen;
    std::vector<RGBColor> m_canvas;
    LZWSearch::Effort m_effort;
    LZWSearch::Search m_search;
    std::vector<Bytes> m_parts;
    Clip m_clip;
};

Bytes randomIndices(std::int64_t count, std::int64_t colors, Random& random)
{
    Bytes indices;
    for (std::int64_t i = 0; i < count; ++i)
        indices.push_back(static_cast<std::uint8_t>(random.below(colors)));
    return indices;
}

std::vector<RGBColor> table(std::int64_t count, Random& random)
{
    std::vector<RGBColor> colors;
    for (std::int64_t i = 0; i < count; ++i)
        colors.emplace_back(static_cast<std::uint8_t>(i), random.byte(), random.byte());
    return colors;
}

Clip onePixelPictures()
{
    Painter painter(3, 2, {gray(0), gray(90), gray(200)});
    painter.draw({0, 0, 3, 2}, {0, 1, 2, 2, 1, 0}, 3);
    painter.draw({2, 1, 1, 1}, {1}, 4);
    painter.draw({0, 0, 1, 1}, {2}, 3);
    painter.draw({1, 0, 1, 1}, {1}, 3); // as it was: transparent is as good
    return painter.finished();
}

Clip onePixelScreen()
{
    Painter painter(1, 1, {});
    painter.draw({0, 0, 1, 1}, {0}, 7, {RGBColor(1, 2, 3)});
    painter.draw({0, 0, 1, 1}, {1}, 8, {RGBColor(1, 2, 3), RGBColor(9, 8, 7)});
    return painter.finished();
}

/// A first picture of 256 colours, then rectangles all over it, parts of which repeat what is there.
Clip rectanglesOverAFullTable()
{
    Random random(201);
    Painter painter(150, 90, table(256, random));
    Bytes canvas = randomIndices(std::int64_t{150} * 90, 256, random);
    painter.draw({0, 0, 150, 90}, canvas, 3);
    for (int i = 0; i < 25; ++i) {
        const std::int64_t left = random.below(150);
        const std::int64_t top = random.below(90);
        const Painter::Place place{left, top, 1 + random.below(150 - left), 1 + random.below(90 - top)};
        const std::int64_t colors = random.pick({2, 5, 60, 256});
        Bytes indices;
        for (std::int64_t y = place.top; y < place.top + place.height; ++y) {
            for (std::int64_t x = place.left; x < place.left + place.width; ++x) {
                std::uint8_t& pixel = canvas[static_cast<std::size_t>(y * 150 + x)];
                if (random.oneIn(2 + i % 7))
                    pixel = static_cast<std::uint8_t>(random.below(colors));
                indices.push_back(pixel);
            }
        }
        painter.draw(place, indices, 2 + random.below(9));
    }
    return painter.finished();
}

/// The changed pixels have all 256 colours: nothing is left to be transparent.
Clip noIndexLeft()
{
    Random random(202);
    Painter painter(40, 20, table(256, random));
    painter.draw({0, 0, 40, 20}, Bytes(800, 0), 3);
    Bytes indices = randomIndices(800, 256, random);
    std::iota(indices.begin(), indices.begin() + 255, std::uint8_t{1});
    std::fill_n(indices.begin() + 300, 300, std::uint8_t{0});
    painter.draw({0, 0, 40, 20}, indices, 3);
    std::ranges::reverse(indices);
    indices[5] = 0;
    painter.draw({0, 0, 40, 20}, indices, 3);
    return painter.finished();
}

Clip localTables()
{
    Random random(203);
    Painter painter(60, 50, table(7, random));
    painter.draw({0, 0, 60, 50}, randomIndices(3000, 7, random), 3);
    for (const std::int64_t colors : {1, 2, 3, 4, 5, 16, 17, 129, 256})
        painter.draw({10, 5, 30, 20}, randomIndices(600, colors, random), 5, table(colors, random));
    painter.draw({0, 0, 60, 50}, randomIndices(3000, 7, random), 6);
    return painter.finished();
}

Clip longDelays()
{
    Painter painter(4, 4, {gray(3), gray(250)});
    painter.draw({0, 0, 4, 4}, Bytes(16, 0), 65535);
    painter.draw({1, 1, 2, 2}, {1, 0, 0, 1}, 65536);
    painter.expectSplit({32768, 32768});
    painter.draw({0, 0, 1, 1}, {1}, 3);
    painter.draw({0, 0, 1, 1}, {0}, 200'000, {gray(7)});
    painter.expectSplit({50'000, 50'000, 50'000, 50'000});
    return painter.finished();
}

/// No pair of indices occurs twice, so that each pixel is a code: the end code comes at, before and after each change
/// of the width, at a full table and behind a clear code.
Clip endsAtEveryWidth()
{
    Random random(204);
    Painter painter(4096, 1, table(256, random), {.passes = 1});
    painter.draw({0, 0, 4096, 1}, Bytes(4096, 0), 3);
    Bytes indices;
    for (int difference = 1; difference < 40; difference += 2) {
        std::uint8_t value = 0;
        for (int i = 0; i < 256; ++i, value = static_cast<std::uint8_t>(value + difference))
            indices.push_back(value);
    }
    for (const std::int64_t around : {255, 767, 1791, 3838, 4094}) {
        for (std::int64_t count = around - 2; count <= around + 2; ++count)
            painter.draw({0, 0, count, 1}, Bytes(indices.begin(), indices.begin() + count), 3);
    }
    return painter.finished();
}

/// A table that stays full for most of the picture: what it knows occurs again and again.
Clip fullTablesKept()
{
    Random random(205);
    Painter painter(300, 300, table(40, random));
    const Bytes tile = randomIndices(1500, 8, random);
    Bytes indices;
    for (int i = 0; i < 60; ++i)
        indices.insert(indices.end(), tile.begin(), tile.end());
    painter.draw({0, 0, 300, 300}, indices, 3);
    for (std::size_t i = 0; i < indices.size(); i += 7)
        indices[i] = 30;
    painter.draw({0, 0, 300, 300}, indices, 3);
    return painter.finished();
}

struct ClipCase {
    const char* name;
    Clip (*make)();
};

void PrintTo(const ClipCase& clip, std::ostream* stream)
{
    *stream << clip.name;
}

class DeltaGIFDecoders : public testing::TestWithParam<ClipCase> {
protected:
    void expectSeen(const ShownGif& seen) const
    {
        ASSERT_EQ(seen.pictures.size(), m_clip.shown.size());
        for (std::size_t i = 0; i < m_clip.shown.size(); ++i)
            EXPECT_TRUE(seen.pictures[i] == m_clip.shown[i]) << "the pixels of picture " << i;
        EXPECT_EQ(seen.delaysCentiseconds, m_clip.delaysCentiseconds);
        EXPECT_EQ(seen.loopCount.value_or(0), 0);
    }

    const Clip m_clip = GetParam().make();
};

TEST_P(DeltaGIFDecoders, GiflibShowsWhatWasMeant)
{
    expectSeen(support::composedByGiflib(m_clip.file));
}

TEST_P(DeltaGIFDecoders, FFmpegShowsWhatWasMeant)
{
    expectSeen(support::decodeWithFFmpeg(m_clip.file, m_clip.width, m_clip.height));
}

TEST_P(DeltaGIFDecoders, PillowShowsWhatWasMeant)
{
    expectSeen(support::decodeWithPillow(m_clip.file, m_clip.width, m_clip.height));
}

TEST_P(DeltaGIFDecoders, ImageMagickShowsWhatWasMeant)
{
    expectSeen(support::decodeWithImageMagick(m_clip.file, m_clip.width, m_clip.height));
}

TEST_P(DeltaGIFDecoders, ChromiumShowsWhatWasMeant)
{
    expectSeen(support::decodeWithChromium(m_clip.file, m_clip.width, m_clip.height));
}

TEST_P(DeltaGIFDecoders, GifsicleFindsNoFault)
{
    EXPECT_EQ(support::faultsFoundByGifsicle(m_clip.file), "");
}

INSTANTIATE_TEST_SUITE_P(Clips, DeltaGIFDecoders,
    testing::Values(ClipCase{"OnePixelPictures", &onePixelPictures}, ClipCase{"OnePixelScreen", &onePixelScreen},
        ClipCase{"RectanglesOverAFullTable", &rectanglesOverAFullTable}, ClipCase{"NoIndexLeft", &noIndexLeft},
        ClipCase{"LocalTables", &localTables}, ClipCase{"LongDelays", &longDelays},
        ClipCase{"EndsAtEveryWidth", &endsAtEveryWidth}, ClipCase{"FullTablesKept", &fullTablesKept}),
    [](const auto& tested) { return tested.param.name; });

TEST(DeltaGIF, APictureIsWrittenFieldByField)
{
    DeltaGIF::Picture picture{.left = 0x102, .top = 3, .width = 2, .height = 1, .delayCentiseconds = 0x203};
    picture.codes = {.data = {0x44, 0x02}, .minCodeSize = 2, .transparentIndex = std::uint8_t{9}};
    EXPECT_EQ(DeltaGIF::part(picture),
        (Bytes{0x21, 0xF9, 4, 0x05, 0x03, 0x02, 9, 0, // graphic control: leave in place, transparent
            0x2C, 0x02, 0x01, 3, 0, 2, 0, 1, 0, 0x00, // image descriptor: the screen's table
            2, 2, 0x44, 0x02, 0}));
    picture.codes.transparentIndex.reset();
    picture.localColorTable = {RGBColor(1, 2, 3), RGBColor(4, 5, 6), RGBColor(7, 8, 9)};
    EXPECT_EQ(DeltaGIF::part(picture),
        (Bytes{0x21, 0xF9, 4, 0x04, 0x03, 0x02, 0, 0, // opaque
            0x2C, 0x02, 0x01, 3, 0, 2, 0, 1, 0, 0x81, // a table of four colours
            1, 2, 3, 4, 5, 6, 7, 8, 9, 0, 0, 0, 2, 2, 0x44, 0x02, 0}));
}

TEST(DeltaGIF, TheHeaderHasTheScreensTable)
{
    const DeltaGIF::Screen screen{.width = 0x104, .height = 5, .colorTable = {RGBColor(1, 2, 3)}, .loopCount = 0x0607};
    EXPECT_EQ(DeltaGIF::fileOf(screen, {}),
        (Bytes{'G', 'I', 'F', '8', '9', 'a', 0x04, 0x01, 5, 0, 0xF0, 0, 0, 1, 2, 3, 0, 0, 0, //
            0x21, 0xFF, 11, 'N', 'E', 'T', 'S', 'C', 'A', 'P', 'E', '2', '.', '0', 3, 1, 0x07, 0x06, 0, 0x3B}));
}

TEST(DeltaGIF, ASideThatTheFormatCannotHoldIsAnError)
{
    EXPECT_THROW((void)DeltaGIF::header({.width = 65536, .height = 1}), GIFEncodingError);
    EXPECT_THROW((void)DeltaGIF::part({.width = 1, .height = 65536}), GIFEncodingError);
}

} // namespace
} // namespace quillbox
