#include "Encoding/PaletteMapper.h"
#include "reference/PaletteMapper.h"
#include "StageInputs.h"

using namespace quillbox;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const fuzz::MapperInput input(fuzz::Input(data, size));
    const NearestColorLUT lut(input.palette);
    for (const RGBAFrame& frame : input.frames) {
        precondition(PaletteMapper::map(frame, lut, 3) == reference::map(frame, input.palette, 3), "both map alike");
        precondition(PaletteMapper::mapDithered(frame, lut, 3) == reference::mapDithered(frame, input.palette, 3),
            "both dither alike");
    }
    return 0;
}
