#include "Encoding/PixelBand.h"

#include "Encoding/PixelTypes.h"
#include "support/Pictures.h"

#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>
#include <thread>
#include <utility>
#include <vector>

namespace quillbox {
namespace {

using support::Random;

class Shelf : public PixelBand::Source {
public:
    explicit Shelf(Bytes bytes, std::atomic<int>* visits = nullptr)
        : m_bytes(std::move(bytes))
        , m_visits(visits)
    {
    }
    [[nodiscard]] std::shared_ptr<const Bytes> pixels() const override
    {
        if (m_visits != nullptr)
            ++*m_visits;
        return std::make_shared<const Bytes>(m_bytes);
    }

private:
    Bytes m_bytes;
    std::atomic<int>* m_visits;
};

class BrokenShelf : public PixelBand::Source {
    [[nodiscard]] std::shared_ptr<const Bytes> pixels() const override { throw std::runtime_error("gone"); }
};

TEST(PixelBand, GivesItsPixels)
{
    const PixelBand band(Bytes{1, 2, 3, 4});
    EXPECT_EQ(band.byteCount(), 4U);
    EXPECT_EQ(band.pixels(), (Bytes{1, 2, 3, 4}));
}

TEST(PixelBand, BringsParkedPixelsBack)
{
    std::atomic<int> visits = 0;
    const PixelBand band(Bytes{1, 2, 3, 4});
    band.park(std::make_unique<Shelf>(Bytes{1, 2, 3, 4}, &visits));
    EXPECT_EQ(band.pixels(), (Bytes{1, 2, 3, 4}));
    EXPECT_EQ(band.pixels(), (Bytes{1, 2, 3, 4}));
    EXPECT_EQ(visits, 2) << "nobody held them in between";
}

TEST(PixelBand, PixelsThatSomebodyHoldsAreNotReadAgain)
{
    std::atomic<int> visits = 0;
    const PixelBand band(Bytes{1, 2, 3, 4});
    const PixelView held = band.pixels();
    band.park(std::make_unique<Shelf>(Bytes{9, 9, 9, 9}, &visits));
    EXPECT_EQ(band.pixels().size(), held.size());
    EXPECT_EQ(held, (Bytes{1, 2, 3, 4}));
    EXPECT_EQ(visits, 0);
}

TEST(PixelBand, MayBeParkedFromTheStart)
{
    std::atomic<int> visits = 0;
    const PixelBand band(4, std::make_unique<Shelf>(Bytes{1, 2, 3, 4}, &visits));
    EXPECT_EQ(band.byteCount(), 4U);
    EXPECT_EQ(visits, 0);
    EXPECT_EQ(band.pixels(), (Bytes{1, 2, 3, 4}));
}

TEST(PixelBand, KnowsItsPixelsElsewhere)
{
    const auto parked = std::make_shared<const PixelBand>(4, std::make_unique<BrokenShelf>());
    const PixelBand band(std::make_shared<const Bytes>(Bytes{1, 2, 3, 4}), parked);
    EXPECT_EQ(band.elsewhere(), parked);
    EXPECT_EQ(band.pixels(), (Bytes{1, 2, 3, 4})) << "which are at hand nevertheless";
    EXPECT_EQ(PixelBand(Bytes{1, 2, 3, 4}).elsewhere(), nullptr);
}

TEST(PixelBand, SaysWhenParkedPixelsAreGone)
{
    const PixelBand band(Bytes{1, 2, 3, 4});
    band.park(std::make_unique<BrokenShelf>());
    EXPECT_THROW((void)band.pixels(), std::runtime_error);
}

TEST(PixelBand, MayBeReadWhileItIsParked)
{
    const PixelBand band(Bytes(4000, 7));
    std::thread reader([&band] {
        for (int i = 0; i < 200; ++i)
            EXPECT_EQ(band.pixels(), Bytes(4000, 7));
    });
    for (int i = 0; i < 50; ++i)
        band.park(std::make_unique<Shelf>(Bytes(4000, 7)));
    reader.join();
}

TEST(PixelBandDeathTest, ParkedPixelsComeBackWhole)
{
    const PixelBand band(Bytes{1, 2, 3, 4});
    band.park(std::make_unique<Shelf>(Bytes{1, 2, 3}));
    EXPECT_DEATH((void)band.pixels(), "come back whole");
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

TEST(FrameOfBands, IsElsewhereIfAllItsBandsAre)
{
    const auto band = [](bool isElsewhere) {
        auto there
            = isElsewhere ? std::make_shared<const PixelBand>(4, std::make_unique<Shelf>(Bytes{1, 2, 3, 4})) : nullptr;
        return std::make_shared<const PixelBand>(std::make_shared<const Bytes>(Bytes(4, 9)), std::move(there));
    };
    const auto elsewhere = RGBAFrame::ofBands(1, 1, {band(true)}).elsewhere();
    ASSERT_TRUE(elsewhere);
    EXPECT_EQ(elsewhere->pixels(), (Bytes{1, 2, 3, 4}));
    EXPECT_FALSE(RGBAFrame::ofBands(1, 1, {band(false)}).elsewhere());
    EXPECT_FALSE(RGBAFrame(1, 1, Bytes(4)).elsewhere()) << "a frame in one piece is where it is";
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
