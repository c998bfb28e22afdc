#include "Encoding/Dithering.h"
#include "Encoding/PaletteMapper.h"
#include "FuzzInput.h"
#include "reference/PaletteMapper.h"

using namespace quillbox;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzz::Input input(data, size);
    const std::vector<RGBColor> palette = input.palette(1 + input.below(input.byte() % 2 == 0 ? 6 : 256));
    const NearestColorLUT lut(palette);
    Ditherer ditherer;
    ditherer.use(lut);
    Bytes indices;
    for (const RGBAFrame& frame : input.recording(3, 100)) {
        precondition(PaletteMapper::map(frame, lut, 3) == reference::map(frame, palette, 3), "both map alike");
        const IndexedFrame expected = reference::mapDithered(frame, palette, 3);
        precondition(PaletteMapper::mapDithered(frame, lut, 3) == expected, "both dither alike");
        ditherer.dither(frame, indices);
        precondition(indices == expected.indices, "a frame is dithered as if it were alone");
    }
    return 0;
}
