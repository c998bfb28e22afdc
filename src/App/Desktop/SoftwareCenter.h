#pragma once

/// The desktop's own program for installing software. Thread: main.
namespace quillbox::SoftwareCenter {

/// Whether the desktop has one that can be told what to show: an entry for addresses of AppStream.
/// @see freedesktop.org, "Association between MIME types and applications", the cache mimeinfo.cache
[[nodiscard]] bool isThere();

/// Opens it at this program. Nothing is reported if it does not come up.
void show();

} // namespace quillbox::SoftwareCenter
