#include "App/CommandLine/Arguments/ArgumentText.h"

#include "Encoding/GIFEncoder.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <system_error>

namespace quillbox {
namespace {

bool isDigits(std::string_view text)
{
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

/// The whole of `text` as a number of type `Number`; none when it is something else or doesn't fit.
template <typename Number> std::optional<Number> parsed(std::string_view text)
{
    Number value{};
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    return error == std::errc{} && stop == end ? std::optional(value) : std::nullopt;
}

/// A number without sign as a fraction: the digits behind the point, six at most, say what it is divided by.
std::optional<FrameRate> decimalFraction(std::string_view text)
{
    constexpr std::size_t largestDecimals = 6;
    const auto point = std::min(text.find('.'), text.size());
    const auto whole = text.substr(0, point);
    const auto decimals = text.substr(std::min(point + 1, text.size()));
    const bool isWritten = (isDigits(whole) || (whole.empty() && !decimals.empty()))
        && (isDigits(decimals) || (decimals.empty() && point == text.size())) && decimals.size() <= largestDecimals;
    if (!isWritten)
        return std::nullopt;
    const auto digits = parsed<std::int64_t>(std::string(whole) += decimals);
    std::int64_t divisor = 1;
    for (std::size_t i = 0; i < decimals.size(); ++i)
        divisor *= 10;
    return digits ? std::optional(FrameRate{*digits, divisor}) : std::nullopt;
}

/// `rate`, if a clip can have it.
std::optional<FrameRate> checked(FrameRate rate)
{
    constexpr std::int64_t maxTerm = std::int64_t{1} << 32;
    constexpr std::int64_t largestRate = 1000;
    const auto fits = [](std::int64_t term) {
        return term >= 1 && term <= maxTerm;
    };
    if (!fits(rate.frames) || !fits(rate.seconds))
        return std::nullopt;
    const bool isTooFast = rate.frames > largestRate * rate.seconds;
    const bool isTooSlow = rate.seconds * 100 > GIFEncoder::maximumFieldValue * rate.frames;
    return isTooFast || isTooSlow ? std::nullopt : std::optional(rate);
}

} // namespace

std::optional<PixelSize> ArgumentText::size(std::string_view text)
{
    const auto cross = text.find('x');
    if (cross == std::string_view::npos)
        return std::nullopt;
    const auto width = text.substr(0, cross);
    const auto height = text.substr(cross + 1);
    if (!isDigits(width) || !isDigits(height))
        return std::nullopt;
    constexpr auto largest = std::numeric_limits<std::int64_t>::max();
    return PixelSize{parsed<std::int64_t>(width).value_or(largest), parsed<std::int64_t>(height).value_or(largest)};
}

std::optional<CaptureRegion> ArgumentText::region(std::string_view text)
{
    const auto firstComma = text.find(',');
    const auto secondComma = text.find(',', firstComma == std::string_view::npos ? firstComma : firstComma + 1);
    if (secondComma == std::string_view::npos)
        return std::nullopt;
    const auto x = parsed<std::int32_t>(text.substr(0, firstComma));
    const auto y = parsed<std::int32_t>(text.substr(firstComma + 1, secondComma - firstComma - 1));
    const auto extent = size(text.substr(secondComma + 1));
    constexpr std::int64_t largest = std::numeric_limits<std::int32_t>::max();
    if (!x || !y || !extent || extent->width < 1 || extent->height < 1
        || std::max(extent->width, extent->height) > largest)
        return std::nullopt;
    return CaptureRegion{*x, *y, extent->width, extent->height};
}

std::optional<double> ArgumentText::duration(std::string_view text)
{
    constexpr double longest = 24 * 60 * 60;
    const auto seconds = parsed<double>(text);
    if (!seconds || !(*seconds > 0 && *seconds <= longest)) // also turns away what is not a number
        return std::nullopt;
    return seconds;
}

std::optional<std::int64_t> ArgumentText::byteCount(std::string_view text)
{
    constexpr double most = 1e15;
    double unit = 1;
    if (text.ends_with('K') || text.ends_with('M')) {
        unit = text.back() == 'K' ? 1e3 : 1e6;
        text.remove_suffix(1);
    }
    const bool isNumber = !text.empty() && (isDigits(text.substr(0, 1)) || text.front() == '.');
    const auto count = isNumber ? parsed<double>(text) : std::nullopt;
    if (!count || !(*count * unit >= 1) || *count * unit > most || (unit == 1 && *count != std::floor(*count)))
        return std::nullopt;
    return std::llround(*count * unit);
}

std::optional<FrameRate> ArgumentText::rate(std::string_view text)
{
    const auto slash = text.find('/');
    if (slash == std::string_view::npos) {
        const auto decimal = decimalFraction(text);
        return decimal ? checked(*decimal) : std::nullopt;
    }
    const auto frames = text.substr(0, slash);
    const auto seconds = text.substr(slash + 1);
    if (!isDigits(frames) || !isDigits(seconds))
        return std::nullopt;
    return checked({parsed<std::int64_t>(frames).value_or(0), parsed<std::int64_t>(seconds).value_or(0)});
}

std::optional<FrameRate> ArgumentText::delay(std::string_view text)
{
    const auto seconds = decimalFraction(text);
    return seconds ? checked({.frames = seconds->seconds, .seconds = seconds->frames}) : std::nullopt;
}

std::optional<std::int64_t> ArgumentText::number(std::string_view text)
{
    return isDigits(text) ? parsed<std::int64_t>(text) : std::nullopt;
}

std::optional<RGBColor> ArgumentText::color(std::string_view text)
{
    if (text == "white")
        return RGBColor(255, 255, 255);
    if (text == "black")
        return RGBColor(0, 0, 0);
    if (text == "gray" || text == "grey")
        return RGBColor(128, 128, 128);
    const bool hasMark = text.starts_with('#');
    text.remove_prefix(hasMark ? 1 : 0);
    std::uint32_t value = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value, 16);
    const bool isShort = hasMark && text.size() == 3;
    if (error != std::errc{} || stop != end || (text.size() != 6 && !isShort))
        return std::nullopt;
    const auto channel = [&](unsigned place) {
        return static_cast<std::uint8_t>(isShort ? (value >> 4 * place & 0xFU) * 0x11U : value >> 8 * place & 0xFFU);
    };
    return RGBColor(channel(2), channel(1), channel(0));
}

} // namespace quillbox
