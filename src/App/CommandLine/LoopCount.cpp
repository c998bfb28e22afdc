#include "App/CommandLine/LoopCount.h"

#include "Encoding/Precondition.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace quillbox {

void LoopCount::setPlays(Bytes& gif, std::int64_t plays)
{
    constexpr std::size_t headerBytes = 13;
    constexpr std::string_view opening = "\x21\xFF\x0BNETSCAPE2.0\x03\x01";
    constexpr std::size_t extensionBytes = opening.size() + 3; // the count's two bytes and the end of the sub-blocks
    precondition(plays >= 0 && plays <= 65536, "a GIF counts its repeats in 16 bits");
    precondition(gif.size() > headerBytes, "a GIF has a header");
    const std::size_t tableBytes = (gif[10] & 0x80U) != 0 ? std::size_t{3} << ((gif[10] & 7U) + 1U) : 0;
    const std::size_t begin = headerBytes + tableBytes;
    const bool isThere = gif.size() >= begin + extensionBytes
        && std::equal(opening.begin(), opening.end(), gif.begin() + static_cast<std::ptrdiff_t>(begin),
            [](char a, std::uint8_t b) { return static_cast<std::uint8_t>(a) == b; });
    precondition(isThere, "the extension that repeats it follows the header");
    if (plays == 1) {
        const auto place = gif.begin() + static_cast<std::ptrdiff_t>(begin);
        gif.erase(place, place + extensionBytes);
        return;
    }
    const auto repeats = static_cast<std::uint16_t>(std::max<std::int64_t>(plays - 1, 0));
    gif[begin + opening.size()] = static_cast<std::uint8_t>(repeats & 0xFFU);
    gif[begin + opening.size() + 1] = static_cast<std::uint8_t>(repeats >> 8U);
}

} // namespace quillbox
