#include "Views/ByteFormat.h"

namespace quillbox::ByteFormat {

// QString::number rounds as printf does in the C locale: to nearest, what lies exactly between two goes to the even
// one.
QString shortText(std::int64_t bytes)
{
    if (bytes < 1000)
        return QString::number(bytes) + QStringLiteral(" B");
    if (bytes < 1'000'000)
        return QString::number(static_cast<double>(bytes) / 1000.0, 'f', 0) + QStringLiteral(" KB");
    return QString::number(static_cast<double>(bytes) / 1'000'000.0, 'f', 1) + QStringLiteral(" MB");
}

} // namespace quillbox::ByteFormat
