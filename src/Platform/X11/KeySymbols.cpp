#include "Platform/X11/KeySymbols.h"

#include <xkbcommon/xkbcommon.h>

namespace quillbox {

char32_t KeySymbols::character(std::uint32_t symbol)
{
    return xkb_keysym_to_utf32(symbol);
}

} // namespace quillbox
