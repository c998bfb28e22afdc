#include "Encoding/Dithering.h"
#include "Encoding/PaletteMapper.h"
#include "StageInputs.h"

#include <algorithm>

using namespace quillbox;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const fuzz::MapperInput input(fuzz::Input(data, size));
    const NearestColorLUT lut(input.palette);
    Ditherer ditherer;
    ditherer.use(lut);
    Bytes indices;
    for (const RGBAFrame& frame : input.frames) {
        const IndexedFrame mapped = PaletteMapper::map(frame, lut, 3);
        const PixelView pixels = frame.pixels();
        for (std::size_t i = 0; i < mapped.indices.size(); ++i) {
            const auto key = Color15::key(pixels[4 * i], pixels[4 * i + 1], pixels[4 * i + 2]);
            if (i % 16 == 0) {
                precondition(mapped.indices[i] == PaletteMapper::nearestIndexLinear(Color15::color(key), input.palette),
                    "a linear search finds the same entry");
            }
            precondition(mapped.indices[i] == lut.table()[key], "equal colours have equal indices");
        }
        const IndexedFrame dithered = PaletteMapper::mapDithered(frame, lut, 3);
        precondition(
            std::ranges::all_of(dithered.indices, [&](std::uint8_t index) { return index < input.palette.size(); }),
            "every index has a colour");
        ditherer.dither(frame, indices);
        precondition(indices == dithered.indices, "a frame is dithered as if it were alone");
    }
    return 0;
}
