#include "Encoding/Precondition.h"

#include <cstdio>
#include <cstdlib>

namespace quillbox {

void brokenInvariant(std::string_view rule, SourceLine where)
{
    (void)std::fprintf(stderr, "quillbox: broken invariant: %.*s (%s:%u)\n", static_cast<int>(rule.size()), rule.data(),
        where.file, where.line); // nothing is left to do if standard error is gone
    std::abort();
}

} // namespace quillbox
