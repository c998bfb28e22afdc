#pragma once

namespace quillbox {

/// Whether the program runs in a Flatpak sandbox, which keeps most services of the desktop but the portal out of its
/// reach. Thread: any.
[[nodiscard]] bool isInSandbox();

} // namespace quillbox
