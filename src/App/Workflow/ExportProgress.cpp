#include "App/Workflow/ExportProgress.h"

#include <algorithm>
#include <cmath>

namespace quillbox {

double ExportProgress::fraction() const
{
    if (attempt < 1)
        return 0;
    const double left = std::exp2(-static_cast<double>(attempt - 1)); // when this attempt began
    const double share = attempt < attempts ? left / 2 : left;
    const double frames = frameCount > 0 ? static_cast<double>(framesDone) / static_cast<double>(frameCount) : 0;
    return 1 - left + share * std::clamp(frames, 0.0, 1.0);
}

} // namespace quillbox
