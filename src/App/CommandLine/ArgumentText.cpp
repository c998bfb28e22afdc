#include "App/CommandLine/ArgumentText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <system_error>

namespace quillbox {
namespace {

bool isDigits(std::string_view text)
{
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

/// The whole of `text` as a number of type `Number`; none when it is something else or doesn't fit.
template <typename Number> std::optional<Number> number(std::string_view text)
{
    Number value{};
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    return error == std::errc{} && stop == end ? std::optional(value) : std::nullopt;
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
    return PixelSize{number<std::int64_t>(width).value_or(largest), number<std::int64_t>(height).value_or(largest)};
}

std::optional<CaptureRegion> ArgumentText::region(std::string_view text)
{
    const auto firstComma = text.find(',');
    const auto secondComma = text.find(',', firstComma == std::string_view::npos ? firstComma : firstComma + 1);
    if (secondComma == std::string_view::npos)
        return std::nullopt;
    const auto x = number<std::int32_t>(text.substr(0, firstComma));
    const auto y = number<std::int32_t>(text.substr(firstComma + 1, secondComma - firstComma - 1));
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
    const auto seconds = number<double>(text);
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
    const auto count = isNumber ? number<double>(text) : std::nullopt;
    if (!count || !(*count * unit >= 1) || *count * unit > most || (unit == 1 && *count != std::floor(*count)))
        return std::nullopt;
    return std::llround(*count * unit);
}

} // namespace quillbox
