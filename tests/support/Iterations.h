#pragma once

#include <algorithm>
#include <cstdint>

namespace quillbox::support {

#ifndef QUILLBOX_TEST_SLOWDOWN
#define QUILLBOX_TEST_SLOWDOWN 1 // builds with a sanitizer set a greater one
#endif

/// How many random cases a test looks at: `count`, or fewer where every step is checked by a sanitizer.
[[nodiscard]] constexpr std::int64_t iterations(std::int64_t count)
{
    return std::max<std::int64_t>(count / QUILLBOX_TEST_SLOWDOWN, 1);
}

} // namespace quillbox::support
