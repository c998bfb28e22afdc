#include "Capture/PipeWire/BufferReading.h"

#include <gtest/gtest.h>

#include <spa/buffer/buffer.h>
#include <spa/buffer/meta.h>

#include <array>
#include <limits>

namespace quillbox {
namespace {

/// One of PipeWire's buffers: a picture of 4 × 3 pixels of three bytes, and all the metadata that we ask for.
struct Buffer {
    Buffer()
    {
        data.data = memory.data();
        data.maxsize = static_cast<std::uint32_t>(memory.size());
        data.chunk = &chunk;
        chunk.size = 4 * 3 * 3;
        chunk.stride = 4 * 3;
        header.seq = 7;
        metas = {spa_meta{SPA_META_Header, sizeof header, &header}, spa_meta{SPA_META_VideoCrop, sizeof crop, &crop},
            spa_meta{SPA_META_VideoTransform, sizeof transform, &transform},
            spa_meta{SPA_META_VideoDamage, sizeof damage, damage.data()}};
        buffer.datas = &data;
        buffer.n_datas = 1;
        buffer.metas = metas.data();
        buffer.n_metas = static_cast<std::uint32_t>(metas.size());
    }

    [[nodiscard]] std::optional<ReadBuffer> read() const
    {
        return readBuffer(buffer, StreamFormat{PixelFormat::RGB, 4, 3});
    }

    std::array<std::uint8_t, 64> memory{};
    spa_chunk chunk{};
    spa_data data{};
    spa_meta_header header{};
    spa_meta_region crop{};
    spa_meta_videotransform transform{};
    std::array<spa_meta_region, 2> damage{};
    std::array<spa_meta, 4> metas{};
    spa_buffer buffer{};
};

spa_meta_region region(std::int32_t x, std::int32_t y, std::uint32_t width, std::uint32_t height)
{
    return {{{x, y}, {width, height}}};
}

TEST(BufferReading, FindsThePictureAndItsNumber)
{
    Buffer buffer;
    buffer.chunk.offset = 10;
    buffer.chunk.stride = 13;
    const auto read = buffer.read();
    ASSERT_TRUE(read);
    EXPECT_EQ(read->picture.bytes.data(), buffer.memory.data() + 10);
    EXPECT_EQ(read->picture.bytes.size(), 54U);
    EXPECT_EQ(read->picture.stride, 13);
    EXPECT_EQ(read->picture.crop, (PixelRect{0, 0, 4, 3}));
    EXPECT_EQ(read->picture.transform, BufferTransform::None);
    EXPECT_EQ(read->sequence, 7U);
    EXPECT_FALSE(read->damage) << "room for damage tells of none";
}

TEST(BufferReading, DoesWithoutMetadata)
{
    Buffer buffer;
    buffer.buffer.n_metas = 0;
    const auto read = buffer.read();
    ASSERT_TRUE(read);
    EXPECT_EQ(read->sequence, 0U);
    EXPECT_FALSE(read->damage);
}

TEST(BufferReading, WithoutAStrideRowsFollowEachOther)
{
    Buffer buffer;
    buffer.chunk.stride = 0;
    const auto read = buffer.read();
    ASSERT_TRUE(read);
    EXPECT_EQ(read->picture.stride, 12);
}

TEST(BufferReading, PassesOverWhatIsNoPicture)
{
    EXPECT_FALSE([] {
        Buffer b;
        b.chunk.size = 0;
        return b.read();
    }());
    EXPECT_FALSE([] {
        Buffer b;
        b.data.data = nullptr;
        return b.read();
    }()) << "it can't be mapped";
    EXPECT_FALSE([] {
        Buffer b;
        b.data.chunk = nullptr;
        return b.read();
    }());
    EXPECT_FALSE([] {
        Buffer b;
        b.buffer.n_datas = 0;
        return b.read();
    }());
}

TEST(BufferReading, PassesOverWhatIsCorrupted)
{
    EXPECT_FALSE([] {
        Buffer b;
        b.chunk.flags = SPA_CHUNK_FLAG_CORRUPTED;
        return b.read();
    }());
    EXPECT_FALSE([] {
        Buffer b;
        b.header.flags = SPA_META_HEADER_FLAG_CORRUPTED;
        return b.read();
    }());
}

TEST(BufferReading, PassesOverWhatLeavesItsMemory)
{
    EXPECT_FALSE([] {
        Buffer b;
        b.chunk.offset = 29;
        return b.read();
    }());
    EXPECT_FALSE([] {
        Buffer b;
        b.chunk.offset = 1000;
        return b.read();
    }());
    EXPECT_FALSE([] {
        Buffer b;
        b.chunk.stride = 27;
        return b.read();
    }());
    EXPECT_FALSE([] {
        Buffer b;
        b.chunk.stride = -12;
        return b.read();
    }());
    EXPECT_TRUE([] {
        Buffer b;
        b.chunk.offset = 28;
        return b.read();
    }());
}

TEST(BufferReading, TakesCropAndTransform)
{
    Buffer buffer;
    buffer.crop = region(1, 1, 2, 1);
    buffer.transform.transform = SPA_META_TRANSFORMATION_Flipped90;
    const auto read = buffer.read();
    ASSERT_TRUE(read);
    EXPECT_EQ(read->picture.crop, (PixelRect{1, 1, 2, 1}));
    EXPECT_EQ(read->picture.transform, BufferTransform::Flipped90);
}

TEST(BufferReading, CutsACropToThePicture)
{
    Buffer buffer;
    buffer.crop = region(2, -5, std::numeric_limits<std::uint32_t>::max(), 7);
    const auto read = buffer.read();
    ASSERT_TRUE(read);
    EXPECT_EQ(read->picture.crop, (PixelRect{2, 0, 2, 2}));
}

TEST(BufferReading, AnUnknownTransformIsNone)
{
    Buffer buffer;
    buffer.transform.transform = 8;
    const auto read = buffer.read();
    ASSERT_TRUE(read);
    EXPECT_EQ(read->picture.transform, BufferTransform::None);
}

TEST(BufferReading, TakesDamageUpToItsEnd)
{
    Buffer buffer;
    buffer.damage = {region(1, 1, 2, 2), region(0, 0, 0, 0)};
    auto read = buffer.read();
    ASSERT_TRUE(read && read->damage);
    EXPECT_EQ(*read->damage, (std::vector{PixelRect{1, 1, 2, 2}}));
    buffer.damage = {region(1, 1, 2, 2), region(-3, 2, 5, 9)};
    read = buffer.read();
    ASSERT_TRUE(read && read->damage);
    EXPECT_EQ(*read->damage, (std::vector{PixelRect{1, 1, 2, 2}, PixelRect{0, 2, 2, 1}}));
}

} // namespace
} // namespace quillbox
