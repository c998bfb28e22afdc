#pragma once

#include <string>
#include <string_view>

namespace quillbox {

/// What the library that takes command lines apart complains about.
namespace ParserMessages {

/// Its English sentence in the user's language; one that is not known here as it stands. Stateless; thread: any.
[[nodiscard]] std::string translated(std::string_view sentence);

} // namespace ParserMessages
} // namespace quillbox
