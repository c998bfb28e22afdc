#include "Capture/PipeWire/StreamBuffer.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quillbox {
namespace {

/// A picture of one letter a pixel, in rows; each letter is the red byte of an RGB pixel.
struct Letters {
    Letters(const std::vector<std::string>& rows, std::int64_t padding)
    {
        buffer.width = static_cast<std::int32_t>(rows.front().size());
        buffer.height = static_cast<std::int32_t>(rows.size());
        buffer.order = PixelFormat::RGB;
        buffer.stride = 3 * buffer.width + padding;
        buffer.crop = {0, 0, buffer.width, buffer.height};
        for (const std::string& row : rows) {
            for (const char letter : row)
                memory.insert(memory.end(), {static_cast<std::uint8_t>(letter), 0, 0});
            memory.insert(memory.end(), static_cast<std::size_t>(padding), '#');
        }
        buffer.bytes = memory;
    }

    /// What the buffer shows upright, row by row.
    [[nodiscard]] std::vector<std::string> upright() const
    {
        const PixelStrides walk = walkUpright(buffer);
        std::vector<std::string> rows;
        for (std::int32_t y = 0; y < walk.height; ++y) {
            rows.emplace_back();
            for (std::int32_t x = 0; x < walk.width; ++x)
                rows.back() += static_cast<char>(
                    memory.at(static_cast<std::size_t>(walk.origin + x * walk.stepX + y * walk.stepY)));
        }
        return rows;
    }

    std::vector<std::uint8_t> memory;
    StreamBuffer buffer;
};

using Rows = std::vector<std::string>;

/// How `abc/def` lies in a buffer after the transform.
Rows turned(BufferTransform transform, const Rows& inMemory)
{
    Letters letters(inMemory, 5);
    letters.buffer.transform = transform;
    return letters.upright();
}

TEST(StreamBuffer, EveryTransformIsUndone)
{
    const Rows upright{"abc", "def"};
    EXPECT_EQ(turned(BufferTransform::None, {"abc", "def"}), upright);
    EXPECT_EQ(turned(BufferTransform::Turned90, {"cf", "be", "ad"}), upright);
    EXPECT_EQ(turned(BufferTransform::Turned180, {"fed", "cba"}), upright);
    EXPECT_EQ(turned(BufferTransform::Turned270, {"da", "eb", "fc"}), upright);
    EXPECT_EQ(turned(BufferTransform::Flipped, {"cba", "fed"}), upright);
    EXPECT_EQ(turned(BufferTransform::Flipped90, {"ad", "be", "cf"}), upright);
    EXPECT_EQ(turned(BufferTransform::Flipped180, {"def", "abc"}), upright);
    EXPECT_EQ(turned(BufferTransform::Flipped270, {"fc", "eb", "da"}), upright);
}

TEST(StreamBuffer, OnlyTheCropIsThePicture)
{
    Letters letters({".....", ".cf..", ".be..", ".ad..", "....."}, 0);
    letters.buffer.crop = {1, 1, 2, 3};
    EXPECT_EQ(letters.upright(), (Rows{"cf", "be", "ad"}));
    letters.buffer.transform = BufferTransform::Turned90;
    EXPECT_EQ(letters.upright(), (Rows{"abc", "def"}));
}

TEST(StreamBuffer, TheLastRowNeedsNoPadding)
{
    Letters letters({"ab", "cd"}, 4);
    letters.buffer.bytes = letters.buffer.bytes.first(letters.memory.size() - 4);
    EXPECT_TRUE(letters.buffer.isWhole());
    letters.buffer.bytes = letters.buffer.bytes.first(letters.memory.size() - 5);
    EXPECT_FALSE(letters.buffer.isWhole());
}

TEST(StreamBuffer, OneRowNeedsItsBytes)
{
    Letters letters({"ab"}, 0);
    EXPECT_TRUE(letters.buffer.isWhole());
    letters.buffer.bytes = letters.buffer.bytes.first(5);
    EXPECT_FALSE(letters.buffer.isWhole());
    letters.buffer.bytes = {};
    EXPECT_FALSE(letters.buffer.isWhole());
}

TEST(StreamBuffer, AStrideThatIsTooShortOrNegativeIsRefused)
{
    Letters letters({"ab", "cd"}, 0);
    for (const std::int64_t stride : {5, 0, -6}) {
        letters.buffer.stride = stride;
        EXPECT_FALSE(letters.buffer.isWhole()) << stride;
    }
}

TEST(StreamBuffer, ACropThatLeavesThePictureIsRefused)
{
    Letters letters({"ab", "cd"}, 0);
    for (const PixelRect crop : {PixelRect{1, 0, 2, 2}, PixelRect{0, 1, 2, 2}, PixelRect{-1, 0, 2, 2},
             PixelRect{0, 0, 0, 2}, PixelRect{0, 0, 2147483647, 2147483647}, PixelRect{2147483647, 0, 1, 1}}) {
        letters.buffer.crop = crop;
        EXPECT_FALSE(letters.buffer.isWhole());
    }
}

} // namespace
} // namespace quillbox
