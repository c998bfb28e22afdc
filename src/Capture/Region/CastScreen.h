#pragma once

#include "Capture/Portal/CastPicture.h"

#include <QPixmap>
#include <QRect>

#include <vector>

class QScreen;

namespace quillbox {

/// What the toolkit has to do with a cast. Thread: main, of a program with a display.
namespace CastScreen {

/// The screens that may be the one that is cast: more than one where several are equal in all that the portal and
/// the picture tell; none where there is no screen at all.
[[nodiscard]] std::vector<QScreen*> candidates(const CastPicture& first);

/// Whether the picture has the shape of any screen. One of all screens at once, as KDE offers it, has none's.
[[nodiscard]] bool isOfOneScreen(const CastPicture& first);

/// Where a window that covers all of `screen` is, points, given the size of the screen's picture, pixels: the toolkit
/// may know the size in pixels only.
[[nodiscard]] QRect frame(const QScreen& screen, PixelSize picture);

/// A picture of all of `screen`, whatever its number of pixels.
[[nodiscard]] QPixmap pixmap(const RGBAFrame& picture, const QScreen& screen);

} // namespace CastScreen
} // namespace quillbox
