#include "Views/FixedPoint.h"

#include <array>
#include <charconv>
#include <limits>

namespace quillbox {

QString fixedPoint(double value, int decimals)
{
    // Sign, digits of the largest number, point, and more decimals than anyone asks for.
    std::array<char, std::numeric_limits<double>::max_exponent10 + 32> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, decimals);
    return QString::fromLatin1(text.data(), end.ptr - text.data());
}

} // namespace quillbox
