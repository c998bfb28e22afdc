#include "Encoding/Precise/Codes/LZWSearch.h"
#include "Encoding/Precise/ShownScreen.h"
#include "support/GifDecoding.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

namespace quillbox {
namespace {

using enum LZWSearch::Freedom;

TEST(LZWSearchKept, APixelWhoseColourTheTableLacksIsTransparent)
{
    const std::array<std::uint8_t, 6> indices{0, 0, 1, 2, 0, 1};
    const std::array<std::uint8_t, 6> freedoms{changed, kept, changed, changed, kept, changed};
    const auto codes = LZWSearch::Search().best({.width = 3, .indices = indices, .freedoms = freedoms});
    ASSERT_TRUE(codes.transparentIndex);
    const Bytes decoded = support::decodeLzwWithGiflib(codes.data, codes.minCodeSize, 6);
    for (std::size_t i = 0; i < indices.size(); ++i)
        EXPECT_EQ(decoded[i], freedoms[i] == kept ? *codes.transparentIndex : indices[i]) << "pixel " << i;
}

TEST(LZWSearchKept, ItsIndexDoesNotCountAsTaken)
{
    std::array<std::uint8_t, 257> indices{};
    std::array<std::uint8_t, 257> freedoms{};
    for (std::size_t i = 0; i < indices.size(); ++i)
        indices[i] = static_cast<std::uint8_t>(i); // the last is a second 0
    freedoms[7] = kept;
    const auto codes = LZWSearch::Search().best({.width = 257, .indices = indices, .freedoms = freedoms});
    EXPECT_EQ(codes.transparentIndex, 7);
}

TEST(LZWSearchKeptDeathTest, WithoutAnIndexToSpareItCannotBe)
{
    std::array<std::uint8_t, 257> indices{};
    std::array<std::uint8_t, 257> freedoms{};
    for (std::size_t i = 0; i < indices.size(); ++i)
        indices[i] = static_cast<std::uint8_t>(i);
    freedoms[256] = kept;
    EXPECT_DEATH((void)LZWSearch::Search().best({.width = 257, .indices = indices, .freedoms = freedoms}),
        "can be written as transparent");
}

TEST(ShownScreen, LeavesNoPixelOfTheFirstPictureToWhatIsBehindIt)
{
    DistinctFrames frames({});
    frames.append(RGBAFrame(3, 2, Bytes(24))); // black
    const DistinctFrames::Recording recording = frames.recording();
    ShownScreen screen(recording.size);
    screen.record(recording.pictures.front());
    NearestColors black({RGBColor(0, 0, 0)});
    EXPECT_THAT(screen.mapping(black).freedoms, testing::Each(std::uint8_t{changed}));
}

} // namespace
} // namespace quillbox
