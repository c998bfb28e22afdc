#include "Encoding/GIFOptimizer.h"
#include "reference/GIFOptimizer.h"
#include "StageInputs.h"

#include <algorithm>

using namespace quillbox;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const fuzz::OptimizerInput input(fuzz::Input(data, std::min(size, fuzz::OptimizerInput::maxBytes)));
    precondition(GIFOptimizer::optimize(input.frames, input.config, {.parallelism = {input.threads}, .progress = {}})
            == reference::optimize(input.frames, input.config).result,
        "both optimizers give the same file and figures");
    return 0;
}
