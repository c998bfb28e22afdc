#pragma once

#include <exception>
#include <string>
#include <string_view>

namespace quillbox {

/// Tells the user on standard error what went wrong.
namespace ErrorReport {

/// The sentence for an error that ends a command.
[[nodiscard]] std::string messageFor(const std::exception& error);

/// `text` as one line that can be shown: what a file's name may hold besides is escaped.
[[nodiscard]] std::string oneLine(std::string_view text);

/// Writes "quillbox: `message`" as one line. Thread: any.
void print(std::string_view message);

} // namespace ErrorReport
} // namespace quillbox
