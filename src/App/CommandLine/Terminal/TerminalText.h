#pragma once

#include <string>
#include <string_view>

namespace quillbox {

/// Makes our texts, which are UTF-8, fit to be shown. Stateless; thread: any.
namespace TerminalText {

/// `text` as one line that does nothing to a terminal: control characters, characters that turn the direction of
/// writing, and bytes that are no UTF-8 appear as \n, \t, \r, \xHH or \u{HHHH}.
[[nodiscard]] std::string escaped(std::string_view text);

/// `text` in an encoding that is known to iconv. What it lacks is written in ASCII where we know how (… as ...); a
/// letter for which there is nothing stays as it is, since it is most likely part of a file's name. UTF-8 stays UTF-8.
[[nodiscard]] std::string encoded(std::string_view text, const std::string& encoding);

/// The encoding of the user's locale: of LC_ALL, LC_CTYPE or LANG. UTF-8 for a locale that is not installed.
[[nodiscard]] std::string localeEncoding();

} // namespace TerminalText
} // namespace quillbox
