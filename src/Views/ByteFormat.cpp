#include "Views/ByteFormat.h"

#include "Views/FixedPoint.h"

#include <QLocale>

namespace quillbox::ByteFormat {

QString shortText(std::int64_t bytes)
{
    if (bytes < 1000)
        return QString::number(bytes) + QStringLiteral(" B");
    if (bytes < 1'000'000)
        return fixedPoint(static_cast<double>(bytes) / 1000.0, 0) + QStringLiteral(" KB");
    return fixedPoint(static_cast<double>(bytes) / 1'000'000.0, 1) + QStringLiteral(" MB");
}

QString inLocale(std::int64_t bytes)
{
    return shortText(bytes).replace(QLatin1Char('.'), QLocale().decimalPoint());
}

} // namespace quillbox::ByteFormat
