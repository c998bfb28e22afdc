#pragma once

#include <optional>
#include <string>

namespace quillbox {

/// What the environment asks of us. Thread: any, as long as none changes the environment.
namespace Environment {

/// What is wrong with one of our variables, as a sentence for the user that names it; none if they all make sense.
[[nodiscard]] std::optional<std::string> complaint();

/// For commands that make clips. @throws UsageError  the complaint, if there is one.
void check();

} // namespace Environment
} // namespace quillbox
