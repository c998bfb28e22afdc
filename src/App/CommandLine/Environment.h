#pragma once

namespace quillbox {

/// What the environment asks of commands that make clips.
namespace Environment {

/// @throws UsageError  a variable of ours holds what makes no sense; it names the variable.
void check();

} // namespace Environment
} // namespace quillbox
