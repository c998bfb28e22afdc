#include "Stages.h"

#include "Encoding/FPSAdaptive.h"
#include "Encoding/FrameDeduplicator.h"
#include "Encoding/FrameResampler.h"
#include "Encoding/GIFEncoder.h"
#include "Encoding/GIFOptimizer.h"
#include "Encoding/LZW.h"
#include "Encoding/PaletteMapper.h"
#include "Encoding/PaletteQuantizer.h"
#include "reference/FPSAdaptive.h"
#include "reference/FrameDeduplicator.h"
#include "reference/FrameResampler.h"
#include "reference/GIFEncoder.h"
#include "reference/GIFOptimizer.h"
#include "reference/LZW.h"
#include "reference/PaletteMapper.h"
#include "reference/PaletteQuantizer.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstring>
#include <memory>
#include <utility>

namespace quillbox::bench {
namespace {

constexpr Parallelism oneThread{.threads = 1};
constexpr std::int64_t colors = 64;
constexpr std::int64_t delayCentiseconds = 8;
constexpr int minCodeSize = 6; // for 64 colours

template <typename Ours, typename Plain> Stage stage(std::string name, double megapixels, Ours ours, Plain plain)
{
    return {.name = std::move(name),
        .megapixels = megapixels,
        .ours = [ours] { benchmark::DoNotOptimize(ours()); },
        .plain = [plain] { benchmark::DoNotOptimize(plain()); },
        .agree =
            [ours, plain] {
                return ours() == plain();
            }};
}

std::uint64_t sumOfWords(const std::vector<RGBAFrame>& frames)
{
    std::uint64_t sum = 0;
    for (const RGBAFrame& frame : frames) {
        for (std::int64_t index = 0; index < frame.bandCount(); ++index) {
            const PixelView bytes = frame.band(index);
            for (std::size_t offset = 0; offset + sizeof sum <= bytes.size(); offset += sizeof sum) {
                std::uint64_t word = 0;
                std::memcpy(&word, bytes.data() + offset, sizeof word);
                sum += word;
            }
        }
    }
    return sum;
}

/// `histogram` as the plain version holds it.
reference::Histogram plainHistogram(const ColorHistogram& histogram)
{
    reference::Histogram plain;
    for (const auto& [color, count] : histogram.entries())
        plain[reference::keyOf(color)] = count;
    return plain;
}

std::vector<std::uint8_t> plainTable(const std::vector<RGBColor>& palette)
{
    std::vector<std::uint8_t> table;
    for (int key = 0; key < Color15::keyCount; ++key)
        table.push_back(
            static_cast<std::uint8_t>(reference::gridIndex(Color15::color(static_cast<std::uint16_t>(key)), palette)));
    return table;
}

/// What the stages of one clip work on; every stage holds it.
struct Inputs {
    explicit Inputs(const Clip& clip)
        : frames(clip.frames)
        , middle(clip.frames[clip.frames.size() / 2])
        , smaller(FrameResampler::fittedSize(middle.width(), middle.height(), middle.width() * 5 / 8))
        , histogram(PaletteQuantizer::histogram(frames, oneThread))
        , plainHistogram(bench::plainHistogram(histogram))
        , lut(PaletteQuantizer::quantize(histogram, colors))
    {
        for (const RGBAFrame& frame : frames)
            indexed.push_back(PaletteMapper::map(frame, lut, delayCentiseconds));
        dithered = PaletteMapper::mapDithered(middle, lut, delayCentiseconds);
    }

    std::vector<RGBAFrame> frames;
    RGBAFrame middle;
    PixelSize smaller;
    ColorHistogram histogram;
    reference::Histogram plainHistogram;
    NearestColorLUT lut;
    std::vector<IndexedFrame> indexed;
    IndexedFrame dithered;
};

} // namespace

std::vector<Stage> stagesOf(const Clip& clip)
{
    const auto in = std::make_shared<const Inputs>(clip);
    const double all = clip.megapixels();
    const double one = 1e-6 * static_cast<double>(in->middle.pixelCount());

    std::vector<Stage> stages;
    const auto readOnce = [in] {
        return sumOfWords(in->frames);
    };
    stages.push_back(stage(std::string(onePassName), all, readOnce, readOnce));
    stages.push_back(stage(
        "averageActivity", all, [in] { return FPSAdaptive::averageActivity(in->frames); },
        [in] { return reference::averageActivity(in->frames); }));
    stages.push_back(stage(
        "deduplicate", all, [in] { return FrameDeduplicator::deduplicate(in->frames, delayCentiseconds, 0.01); },
        [in] { return reference::deduplicate(in->frames, delayCentiseconds, 0.01); }));
    stages.push_back(stage(
        "boxFiltered", one, [in] { return FrameResampler::boxFiltered(in->middle, in->smaller); },
        [in] { return reference::boxFiltered(in->middle, in->smaller); }));
    stages.push_back(stage(
        "histogram", all, [in] { return PaletteQuantizer::histogram(in->frames, oneThread).size(); },
        [in] { return std::ssize(reference::histogram(in->frames)); }));
    stages.push_back(stage(
        "quantize", 0, [in] { return PaletteQuantizer::quantize(in->histogram, colors); },
        [in] { return reference::quantize(in->plainHistogram, colors); }));
    stages.push_back(stage(
        "NearestColorLUT", 0,
        [in] {
            const NearestColorLUT lut(in->lut.palette());
            return std::vector<std::uint8_t>(lut.table().begin(), lut.table().end());
        },
        [in] { return plainTable(in->lut.palette()); }));
    stages.push_back(stage(
        "map", one, [in] { return PaletteMapper::map(in->middle, in->lut, delayCentiseconds); },
        [in] { return reference::map(in->middle, in->lut.palette(), delayCentiseconds); }));
    stages.push_back(stage(
        "mapDithered", one, [in] { return PaletteMapper::mapDithered(in->middle, in->lut, delayCentiseconds); },
        [in] { return reference::mapDithered(in->middle, in->lut.palette(), delayCentiseconds); }));
    stages.push_back(stage(
        "LZW of dithered indices", one, [in] { return LZW::encode(in->dithered.indices, minCodeSize); },
        [in] { return reference::lzwEncode(in->dithered.indices, minCodeSize); }));
    stages.push_back(stage(
        "GIFEncoder", all, [in] { return GIFEncoder::encode(in->indexed); },
        [in] { return reference::gifEncode(in->indexed); }));
    stages.push_back(stage(
        "optimize", all,
        [in] {
            return GIFOptimizer::optimize(in->frames, {.preset = ExportPreset::slack}, {.parallelism = oneThread});
        },
        [in] { return reference::optimize(in->frames, {.preset = ExportPreset::slack}).result; }));
    return stages;
}

} // namespace quillbox::bench
