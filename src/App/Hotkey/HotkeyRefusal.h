#pragma once

#include <QString>

namespace quillbox {

/// That the user does not want a hotkey: said once, when the desktop asked, and not to be asked again. Kept in the
/// StateFile `global-shortcut`. Stateless; thread: any.
namespace HotkeyRefusal {

[[nodiscard]] bool isRemembered();
void remember();

/// The file that makes the difference: without it the desktop asks again at the next start. An absolute path.
[[nodiscard]] QString path();

} // namespace HotkeyRefusal
} // namespace quillbox
