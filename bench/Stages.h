#pragma once

#include "Clip.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace quillbox::bench {

/// One step of the pipeline with everything that it needs prepared, and its plain version for comparison. Each runs on
/// one thread.
struct Stage {
    std::string name;
    double megapixels = 0; ///< pixels that one run looks at, in millions; 0 where pixels are no measure
    std::function<void()> ours;
    std::function<void()> plain;
    std::function<bool()> agree; ///< runs both and compares their results
};

/// The stage that only reads every pixel, once: what no other can beat.
inline constexpr std::string_view onePassName = "one pass";

/// Every stage on `clip`, in the order of the pipeline. Preparing the inputs runs the stages before. @pre frames.
[[nodiscard]] std::vector<Stage> stagesOf(const Clip& clip);

} // namespace quillbox::bench
