#pragma once

#include <QPixmap>

class QScreen;

namespace quillbox {

/// What lies behind an overlay. Thread: main, of a program with a display.
namespace ScreenBackdrop {

/// Whether a translucent window lets the ones below it show through; otherwise it would be black there.
[[nodiscard]] bool showsThrough();

/// What `screen` shows now, in its own pixels; null where the platform doesn't tell.
[[nodiscard]] QPixmap picture(QScreen& screen);

/// Returns once the window system has done all that was asked of it. Other programs may still have to repaint.
void waitUntilApplied();

} // namespace ScreenBackdrop
} // namespace quillbox
