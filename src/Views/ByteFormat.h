#pragma once

#include <QString>

#include <cstdint>

/// Sizes of files, for people: decimal units, 1 KB = 1000 bytes.
namespace quillbox::ByteFormat {

/// "999 B", "12 KB", "1.0 MB": whole bytes below 1000 (negative counts too), whole kilobytes below a million, else
/// megabytes with one decimal. A point is the decimal separator in every language. Thread: any.
[[nodiscard]] QString shortText(std::int64_t bytes);

/// The same with the decimal separator of the user's locale.
[[nodiscard]] QString inLocale(std::int64_t bytes);

} // namespace quillbox::ByteFormat
