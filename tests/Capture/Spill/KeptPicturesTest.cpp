#include "Capture/Spill/KeptPictures.h"

#include "support/Pictures.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <vector>

namespace quillbox {
namespace {

constexpr std::int64_t pictureBytes = std::int64_t{700} * 500 * 4;

/// Pictures that can hardly be compressed.
std::vector<RGBAFrame> noisyPictures(int count)
{
    support::Random random(171);
    std::vector<RGBAFrame> pictures;
    while (std::ssize(pictures) < count)
        pictures.push_back(support::noise(700, 500, random));
    return pictures;
}

std::vector<RGBAFrame> keptOf(KeptPictures& store, const std::vector<RGBAFrame>& pictures)
{
    std::vector<RGBAFrame> kept;
    for (const RGBAFrame& picture : pictures)
        kept.push_back(store.keep(picture));
    return kept;
}

TEST(KeptPictures, StayAsTheyAreWithinTheirShareOfTheMemory)
{
    const support::TemporaryFolder folder;
    const auto pictures = noisyPictures(3);
    KeptPictures store(3 * pictureBytes, folder.path());
    const auto kept = keptOf(store, pictures);
    for (std::size_t i = 0; i < kept.size(); ++i)
        EXPECT_TRUE(kept[i].sharesPixels(pictures[i]));
    EXPECT_EQ(store.fileBytes(), 0);
}

TEST(KeptPictures, GoToAFileBeyondItAndComeBack)
{
    const support::TemporaryFolder folder;
    const auto pictures = noisyPictures(60); // 84 MB
    std::vector<RGBAFrame> kept;
    {
        KeptPictures store(2 * pictureBytes, folder.path());
        kept = keptOf(store, pictures);
        EXPECT_TRUE(kept[1].sharesPixels(pictures[1]));
        EXPECT_GT(store.fileBytes(), 30 * pictureBytes);
    }
    EXPECT_EQ(kept, pictures);
}

TEST(KeptPictures, TakeOverTheBandsThatAPictureIsMadeOf)
{
    const support::TemporaryFolder folder;
    const RGBAFrame banded = support::inBands(noisyPictures(1)).front();
    KeptPictures store(0, folder.path());
    const RGBAFrame kept = store.keep(banded);
    for (std::int64_t band = 0; band < banded.bandCount(); ++band)
        EXPECT_TRUE(kept.sharesBand(banded, band)) << band;
}

TEST(KeptPictures, StayBeyondItOnceOneWasTooMuch)
{
    const support::TemporaryFolder folder;
    KeptPictures store(pictureBytes - 1, folder.path());
    const RGBAFrame large = noisyPictures(1).front();
    const RGBAFrame small = support::solid(3, 3, support::gray(7));
    EXPECT_FALSE(store.keep(large).sharesPixels(large));
    EXPECT_FALSE(store.keep(small).sharesPixels(small));
    EXPECT_EQ(store.keep(small), small);
}

TEST(KeptPictures, MayHaveNoPixels)
{
    const support::TemporaryFolder folder;
    KeptPictures store(0, folder.path());
    const RGBAFrame nothing(0, 5, Bytes());
    EXPECT_EQ(store.keep(nothing), nothing);
}

TEST(KeptPictures, SayWhenThereIsNoRoom)
{
    KeptPictures store(0, "/proc/nowhere");
    EXPECT_THROW((void)keptOf(store, noisyPictures(40)), SpillError);
}

} // namespace
} // namespace quillbox
