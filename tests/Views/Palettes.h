#pragma once

#include <QPalette>

namespace quillbox::test {

/// What desktops use in their light and dark themes.
[[nodiscard]] QPalette lightPalette();
[[nodiscard]] QPalette darkPalette();

} // namespace quillbox::test
