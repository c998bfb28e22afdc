#pragma once

#include <QString>

namespace quillbox {

/// What lets the next screen cast begin without asking the user again: the portal gives one at each start, good for one
/// use. Kept in the StateFile `screen-cast`. Stateless; thread: any.
namespace RestoreToken {

/// The token of the last start; empty if there is none.
[[nodiscard]] QString read();

/// Keeps `token` in place of the one before, which is used up; empty: there is none now. One that can't be kept makes
/// the portal ask again.
void replace(const QString& token);

/// The file that makes the difference: without it the desktop asks again. An absolute path.
[[nodiscard]] QString path();

} // namespace RestoreToken
} // namespace quillbox
