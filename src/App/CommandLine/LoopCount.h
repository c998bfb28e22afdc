#pragma once

#include "Encoding/Bytes.h"

#include <cstdint>

namespace quillbox {

/// How often a finished GIF plays. Stateless; thread: any.
/// @see GIF89a, section 26; Netscape's application extension "NETSCAPE2.0" tells how often it repeats.
namespace LoopCount {

/// Has the GIF play `plays` times, 0 for ever: once is a file without the extension, more are so many repeats less one.
/// @pre `plays` is in 0…65536, and the file has the extension right behind its header, as all that we write have.
void setPlays(Bytes& gif, std::int64_t plays);

} // namespace LoopCount
} // namespace quillbox
