#pragma once

#include <cstdint>

namespace quillbox {

/// What the X server's numbers of key symbols mean. Stateless; thread: any.
/// @see  X Window System Protocol, appendix A
namespace KeySymbols {

/// The Unicode character that a key symbol stands for; 0 where it stands for none.
[[nodiscard]] char32_t character(std::uint32_t symbol);

} // namespace KeySymbols
} // namespace quillbox
