#pragma once

#include "Platform/PixelRect.h"
#include "Platform/X11/X11Display.h"

#include <cstdint>
#include <span>

namespace quillbox {

/// Filled rectangles above the windows that are there, until this object or the process ends. Neither the pointer nor
/// the keyboard nor a window manager takes notice of them, and compositing managers are asked for no shadow. Thread:
/// any one.
class X11Bars {
public:
    struct Bar {
        PixelRect place;         ///< device pixels of the whole screen, not empty
        std::uint32_t color = 0; ///< 0xRRGGBB
    };

    /// Shows nothing where the server can't let clicks through.
    /// @throws DisplayError  the display can't be connected to, or has no true colours.
    explicit X11Bars(std::span<const Bar> bars);

private:
    struct Atoms {
        xcb_atom_t windowType;
        xcb_atom_t dragged;
        xcb_atom_t shadow;
    };

    void show(const Bar& bar, std::uint32_t pixel, const Atoms& atoms);

    X11Display m_display; // the windows go with its connection
};

/// The value by which a screen of true colours shows a colour, 0xRRGGBB.
[[nodiscard]] std::uint32_t pixelOf(std::uint32_t color, const X11PixelFormat& format);

} // namespace quillbox
