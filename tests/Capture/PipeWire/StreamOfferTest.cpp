#include "Capture/PipeWire/StreamOffer.h"

#include <gtest/gtest.h>

#include <spa/param/format.h>
#include <spa/pod/iter.h>

#include <algorithm>
#include <span>

namespace quillbox {
namespace {

/// The formats that are offered, the most welcome first.
std::vector<spa_video_format> offeredFormats()
{
    StreamOffer::Memory memory{};
    const spa_pod* const offer = StreamOffer::formats(memory);
    const spa_pod_prop* const property = spa_pod_find_prop(offer, nullptr, SPA_FORMAT_VIDEO_format);
    if (property == nullptr)
        return {};
    std::uint32_t count = 0;
    std::uint32_t choice = 0;
    const spa_pod* const values = spa_pod_get_values(&property->value, &count, &choice);
    const std::span numbers(static_cast<const std::uint32_t*>(SPA_POD_BODY_CONST(values)), count);
    std::vector<spa_video_format> result;
    for (const std::uint32_t number : numbers.subspan(1)) // the first is the default
        result.push_back(static_cast<spa_video_format>(number));
    EXPECT_EQ(choice, std::uint32_t{SPA_CHOICE_Enum});
    EXPECT_EQ(numbers.front(), numbers[1]);
    return result;
}

bool hasTenBits(spa_video_format format)
{
    constexpr std::array all{SPA_VIDEO_FORMAT_xRGB_210LE, SPA_VIDEO_FORMAT_xBGR_210LE, SPA_VIDEO_FORMAT_RGBx_102LE,
        SPA_VIDEO_FORMAT_BGRx_102LE, SPA_VIDEO_FORMAT_ARGB_210LE, SPA_VIDEO_FORMAT_ABGR_210LE,
        SPA_VIDEO_FORMAT_RGBA_102LE, SPA_VIDEO_FORMAT_BGRA_102LE};
    return std::ranges::find(all, format) != all.end();
}

TEST(StreamOffer, EveryFormatThatIsOfferedCanBeRead)
{
    for (const spa_video_format format : offeredFormats())
        EXPECT_TRUE(StreamOffer::orderOf(format)) << format;
    EXPECT_FALSE(StreamOffer::orderOf(SPA_VIDEO_FORMAT_I420));
}

TEST(StreamOffer, EightBitsAChannelAreMoreWelcomeThanTen)
{
    const auto formats = offeredFormats();
    EXPECT_EQ(std::ranges::count_if(formats, hasTenBits), 8);
    EXPECT_EQ(std::ranges::count_if(formats, [](auto format) { return !hasTenBits(format); }), 10);
    EXPECT_TRUE(std::ranges::is_partitioned(formats, [](auto format) { return !hasTenBits(format); }));
    EXPECT_EQ(formats.front(), SPA_VIDEO_FORMAT_BGRx);
}

} // namespace
} // namespace quillbox
