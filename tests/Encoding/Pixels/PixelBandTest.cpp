#include "Encoding/Pixels/PixelBand.h"

#include "Encoding/Pixels/PixelTypes.h"
#include "support/Pictures.h"

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <optional>
#include <stdexcept>
#include <thread>
#include <utility>
#include <vector>

namespace quillbox {
namespace {

using support::Random;

class Shelf : public BackingStore {
public:
    explicit Shelf(Bytes bytes, std::atomic<int>* visits = nullptr)
        : m_bytes(std::move(bytes))
        , m_visits(visits)
    {
    }
    [[nodiscard]] std::shared_ptr<const Bytes> read() const override
    {
        if (m_visits != nullptr)
            ++*m_visits;
        return std::make_shared<const Bytes>(m_bytes);
    }

private:
    Bytes m_bytes;
    std::atomic<int>* m_visits;
};

class BrokenShelf : public BackingStore {
    [[nodiscard]] std::shared_ptr<const Bytes> read() const override { throw std::runtime_error("gone"); }
};

TEST(PixelBand, GivesItsPixels)
{
    const PixelBand band(Bytes{1, 2, 3, 4});
    EXPECT_EQ(band.byteCount(), 4U);
    EXPECT_EQ(band.pixels(), (Bytes{1, 2, 3, 4}));
}

TEST(PixelBand, BringsEvictedPixelsBack)
{
    std::atomic<int> visits = 0;
    const PixelBand band(Bytes{1, 2, 3, 4});
    band.evict(std::make_unique<Shelf>(Bytes{1, 2, 3, 4}, &visits));
    EXPECT_EQ(band.pixels(), (Bytes{1, 2, 3, 4}));
    EXPECT_EQ(band.pixels(), (Bytes{1, 2, 3, 4}));
    EXPECT_EQ(visits, 2) << "nobody held them in between";
}

TEST(PixelBand, PixelsThatSomebodyHoldsAreNotReadAgain)
{
    std::atomic<int> visits = 0;
    const PixelBand band(Bytes{1, 2, 3, 4});
    const PixelView held = band.pixels();
    band.evict(std::make_unique<Shelf>(Bytes{9, 9, 9, 9}, &visits));
    EXPECT_EQ(band.pixels().size(), held.size());
    EXPECT_EQ(held, (Bytes{1, 2, 3, 4}));
    EXPECT_EQ(visits, 0);
}

TEST(PixelBand, MayHaveABackingStoreFromTheStart)
{
    std::atomic<int> visits = 0;
    const PixelBand band(
        std::make_shared<const Bytes>(Bytes{1, 2, 3, 4}), std::make_unique<Shelf>(Bytes{1, 2, 3, 4}, &visits));
    EXPECT_TRUE(band.isBacked());
    EXPECT_EQ(band.pixels(), (Bytes{1, 2, 3, 4}));
    EXPECT_EQ(visits, 0) << "which is not asked while the pixels are at hand";
    band.evict();
    EXPECT_EQ(band.pixels(), (Bytes{1, 2, 3, 4}));
    EXPECT_EQ(visits, 1);
}

TEST(PixelBand, HasABackingStoreOnceItWasEvicted)
{
    const PixelBand band(Bytes{1, 2, 3, 4});
    EXPECT_FALSE(band.isBacked());
    band.evict(std::make_unique<Shelf>(Bytes{1, 2, 3, 4}));
    EXPECT_TRUE(band.isBacked());
}

TEST(PixelBand, LetsGoOfEvictedPixels)
{
    auto pixels = std::make_shared<const Bytes>(Bytes{1, 2, 3, 4});
    const std::weak_ptr<const Bytes> watched = pixels;
    const PixelBand band(std::move(pixels), std::make_unique<Shelf>(Bytes{1, 2, 3, 4}));
    std::optional<PixelView> held = band.pixels();
    band.evict();
    band.evict(); // a second time changes nothing
    EXPECT_FALSE(watched.expired()) << "somebody holds them";
    {
        const PixelView again = band.pixels();
        EXPECT_EQ(again.data(), std::as_const(*held).data());
    }
    held.reset();
    EXPECT_TRUE(watched.expired());
}

TEST(PixelBand, SaysWhenEvictedPixelsAreGone)
{
    const PixelBand band(Bytes{1, 2, 3, 4});
    band.evict(std::make_unique<BrokenShelf>());
    EXPECT_THROW((void)band.pixels(), std::runtime_error);
}

TEST(PixelBand, MayBeReadWhileItIsEvicted)
{
    const PixelBand band(Bytes(4000, 7));
    std::thread reader([&band] {
        for (int i = 0; i < 200; ++i)
            EXPECT_EQ(band.pixels(), Bytes(4000, 7));
    });
    for (int i = 0; i < 50; ++i)
        band.evict(std::make_unique<Shelf>(Bytes(4000, 7)));
    reader.join();
}

TEST(PixelBandDeathTest, EvictedPixelsComeBackWhole)
{
    const PixelBand band(Bytes{1, 2, 3, 4});
    band.evict(std::make_unique<Shelf>(Bytes{1, 2, 3}));
    EXPECT_DEATH((void)band.pixels(), "come back whole");
}

TEST(PixelBandDeathTest, IsNotEvictedWithoutABackingStore)
{
    const PixelBand band(Bytes{1, 2, 3, 4});
    EXPECT_DEATH(band.evict(), "come back from somewhere");
    EXPECT_DEATH(band.evict(nullptr), "come back from somewhere");
}

TEST(FrameOfBands, EqualsTheSamePicture)
{
    Random random(131);
    for (const std::int64_t height : {1, 31, 32, 33, 64, 100}) {
        const RGBAFrame whole = support::randomPicture(7, height, random);
        const RGBAFrame banded = support::inBands({whole}).front();
        EXPECT_EQ(banded, whole);
        EXPECT_EQ(banded.pixels(), whole.pixels());
        EXPECT_EQ(banded.bandCount(), whole.bandCount());
        EXPECT_FALSE(banded.sharesPixels(whole));
        for (std::int64_t band = 0; band < whole.bandCount(); ++band) {
            EXPECT_EQ(banded.band(band), whole.band(band));
            EXPECT_FALSE(banded.sharesBand(whole, band));
        }
    }
}

TEST(FrameOfBands, SharesWhatHasNotChanged)
{
    const RGBAFrame first = support::solid(5, 70, support::gray(1));
    Bytes pixels(first.pixels());
    pixels[static_cast<std::size_t>(5 * 40 * 4)] = 99; // in the second band
    const auto frames = support::inBands({first, RGBAFrame(5, 70, std::move(pixels))});
    EXPECT_TRUE(frames[0].sharesBand(frames[1], 0));
    EXPECT_FALSE(frames[0].sharesBand(frames[1], 1));
    EXPECT_TRUE(frames[0].sharesBand(frames[1], 2));
    EXPECT_NE(frames[0], frames[1]);
}

TEST(FrameOfBands, IsMadeOfOneInOnePiece)
{
    const RGBAFrame first = support::solid(5, 70, support::gray(1));
    Bytes pixels(first.pixels());
    pixels[static_cast<std::size_t>(5 * 40 * 4)] = 99; // in the second band
    const RGBAFrame second(5, 70, std::move(pixels));
    const RGBAFrame banded = first.inBands(std::nullopt);
    EXPECT_EQ(banded, first);
    ASSERT_NE(banded.ownBand(0), nullptr);
    const RGBAFrame next = second.inBands(banded);
    EXPECT_EQ(next, second);
    EXPECT_TRUE(next.sharesBand(banded, 0));
    EXPECT_FALSE(next.sharesBand(banded, 1));
    EXPECT_TRUE(next.sharesBand(banded, 2));
    EXPECT_TRUE(next.inBands(banded).sharesPixels(next)) << "which has bands already";
    const RGBAFrame narrow = support::solid(4, 70, support::gray(1));
    EXPECT_EQ(narrow.inBands(banded), narrow) << "of another size";
    EXPECT_EQ(second.inBands(first), second) << "after one in one piece";
    const RGBAFrame nothing(0, 5, Bytes());
    EXPECT_EQ(nothing.inBands(banded), nothing);
}

TEST(FrameOfBands, IsEvictedIfAllItsBandsHaveABackingStore)
{
    std::atomic<int> visits = 0;
    const auto band = [&visits](bool isBacked) {
        auto backing = isBacked ? std::make_unique<Shelf>(Bytes(32 * 4, 9), &visits) : nullptr;
        return std::make_shared<const PixelBand>(std::make_shared<const Bytes>(Bytes(32 * 4, 9)), std::move(backing));
    };
    const auto frame = RGBAFrame::ofBands(1, 64, {band(true), band(true)});
    ASSERT_TRUE(frame.isBacked());
    std::optional pinned = frame.pinned();
    frame.evict();
    EXPECT_EQ(frame.pixels(), Bytes(64 * 4, 9));
    EXPECT_EQ(visits, 0) << "pinned pixels stay at hand";
    pinned.reset();
    EXPECT_EQ(frame.pixels(), Bytes(64 * 4, 9));
    EXPECT_EQ(visits, 2);
    EXPECT_FALSE(RGBAFrame::ofBands(1, 64, {band(true), band(false)}).isBacked());
    EXPECT_FALSE(RGBAFrame(1, 1, Bytes(4)).isBacked()) << "a frame in one piece";
}

TEST(FrameOfBandsDeathTest, NeedsAllItsRows)
{
    const auto band = [](std::size_t rows) {
        return std::make_shared<const PixelBand>(Bytes(rows * 3 * 4));
    };
    EXPECT_DEATH((void)RGBAFrame::ofBands(3, 40, {band(32)}), "all its bands");
    EXPECT_DEATH((void)RGBAFrame::ofBands(3, 40, {band(32), band(7)}), "has its rows");
    EXPECT_DEATH((void)RGBAFrame::ofBands(3, 40, {band(32), nullptr}), "has its rows");
    EXPECT_DEATH((void)RGBAFrame::ofBands(0, 40, {}), "has pixels");
}

} // namespace
} // namespace quillbox
