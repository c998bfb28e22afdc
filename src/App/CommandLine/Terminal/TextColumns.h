#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quillbox {

/// Text on a terminal, whose letters all take one column, or two. Stateless; thread: any.
namespace TextColumns {

/// How many columns UTF-8 text takes, without accents that are letters of their own and control characters.
/// @see Unicode Standard Annex #11, "East Asian Width": those that are wide or fullwidth take two.
[[nodiscard]] std::size_t widthOf(std::string_view text);

/// Lines of at most `width` columns, as far as no word takes more; at least one line. It breaks at blanks, and beside
/// wide letters, since languages that are written with them leave none; there a comma stays behind its word.
[[nodiscard]] std::vector<std::string> wrapped(std::string_view text, std::size_t width);

/// As much of `text` as fits into `width` columns, three dots behind it where something is missing.
[[nodiscard]] std::string shortened(std::string_view text, std::size_t width);

} // namespace TextColumns
} // namespace quillbox
