#include "Encoding/GIFOptimizer.h"

#include "Encoding/Dithering.h"
#include "Encoding/FrameDeduplicator.h"
#include "Encoding/FrameIntake.h"
#include "Encoding/FrameResampler.h"
#include "Encoding/GIFEncoder.h"
#include "Encoding/PaletteMapper.h"
#include "Encoding/PaletteQuantizer.h"

#include <algorithm>
#include <mutex>
#include <utility>
#include <vector>

namespace quillbox::GIFOptimizer {
namespace {

using FrameDeduplicator::Timed;

/// What all attempts have in common.
struct Material {
    std::vector<Timed> frames; ///< the GIF's frames, at their final size
    ColorHistogram histogram;  ///< of all of them
    std::int64_t sourceFrameCount = 0;
    std::int64_t fps = 0;
    double durationSeconds = 0;
};

std::vector<Timed> cappedToWidth(
    std::vector<Timed> timed, std::optional<std::int64_t> maxWidth, Parallelism parallelism)
{
    std::vector<RGBAFrame> frames;
    frames.reserve(timed.size());
    std::ranges::transform(timed, std::back_inserter(frames), &Timed::frame);
    frames = FrameResampler::cappedToWidth(frames, maxWidth, parallelism);
    for (std::size_t i = 0; i < timed.size(); ++i)
        timed[i].frame = std::move(frames[i]);
    return timed;
}

Material prepare(const FrameIntake& intake, ExportPreset preset, Parallelism parallelism)
{
    FrameIntake::Selection selection = intake.selection(preset);
    Material material;
    material.sourceFrameCount = intake.frameCount();
    material.fps = selection.fps;
    material.frames = cappedToWidth(std::move(selection.frames), preset.maxWidth(), parallelism);

    std::vector<RGBAFrame> pictures;
    std::int64_t centiseconds = 0;
    for (const Timed& timed : material.frames) {
        pictures.push_back(timed.frame);
        centiseconds = checkedAdd(centiseconds, timed.delayCentiseconds);
    }
    material.histogram = PaletteQuantizer::histogram(pictures, parallelism);
    material.durationSeconds = static_cast<double>(centiseconds) / 100.0;
    return material;
}

/// Counts finished frames and tells the observer, one thread at a time.
class ProgressReport {
public:
    ProgressReport(const Execution& execution, Progress progress)
        : m_execution(execution)
        , m_progress(progress)
    {
        tell();
    }

    void frameDone()
    {
        if (!m_execution.progress)
            return;
        const std::scoped_lock lock(m_mutex);
        ++m_progress.framesDone;
        tell();
    }

private:
    void tell() const
    {
        if (m_execution.progress)
            m_execution.progress(m_progress);
    }

    const Execution& m_execution;
    Progress m_progress;
    std::mutex m_mutex;
};

/// Maps and compresses all frames with one table. Runs of consecutive frames stay on one thread, where a frame can
/// reuse the dithering of the one before.
std::vector<Bytes> encodedFrames(const std::vector<Timed>& frames, const NearestColorLUT& lut, bool dither,
    Parallelism parallelism, ProgressReport& report)
{
    constexpr std::int64_t largestRun = 16;
    const std::int64_t count = std::ssize(frames);
    const std::int64_t workers = workerCount(parallelism, count);
    const std::int64_t run = std::clamp<std::int64_t>(count / (4 * workers), 1, largestRun);

    std::vector<Bytes> parts(frames.size());
    parallelFor(parallelism, (count + run - 1) / run, [&](std::int64_t item, int) {
        Ditherer ditherer(lut);
        const std::int64_t end = std::min(count, (item + 1) * run);
        for (std::int64_t i = item * run; i < end; ++i) {
            const auto& [frame, delay] = frames[static_cast<std::size_t>(i)];
            IndexedFrame indexed{.width = frame.width(),
                .height = frame.height(),
                .palette = lut.palette(),
                .indices = {},
                .delayCentiseconds = delay};
            indexed.indices = dither ? ditherer.indices(frame) : PaletteMapper::map(frame, lut, delay).indices;
            parts[static_cast<std::size_t>(i)] = GIFEncoder::encodeFrame(indexed);
            report.frameDone();
        }
    });
    return parts;
}

Result attempt(const Material& material, std::int64_t colors, const Config& config, const Execution& execution,
    ProgressReport& report)
{
    const NearestColorLUT lut(PaletteQuantizer::quantize(material.histogram, colors));
    const std::int64_t colorCount = std::ssize(lut.palette());
    const bool dither = config.ditheringOverride.value_or(colorCount * 3 < material.histogram.size());
    const auto parts = encodedFrames(material.frames, lut, dither, execution.parallelism, report);
    const RGBAFrame& first = material.frames.front().frame;

    Result result;
    result.data = GIFEncoder::fileOf(parts, first.width(), first.height(), {.loopCount = 0});
    result.byteCount = std::ssize(result.data);
    result.frameCount = std::ssize(material.frames);
    result.sourceFrameCount = material.sourceFrameCount;
    result.colorCount = colorCount;
    result.effectiveFPS = material.fps;
    result.usedDithering = dither;
    result.durationSeconds = material.durationSeconds;
    return result;
}

} // namespace

Result optimize(std::span<const RGBAFrame> frames, const Config& config, const Execution& execution)
{
    FrameIntake intake(config.sourceFPS, std::span(&config.preset, 1));
    for (const RGBAFrame& frame : frames)
        intake.append(frame);
    return optimize(intake, config, execution);
}

Result optimize(const FrameIntake& intake, const Config& config, const Execution& execution)
{
    precondition(intake.sourceFPS() == config.sourceFPS, "the frames were taken at the source's rate");
    const Material material = prepare(intake, config.preset, execution.parallelism);
    std::optional<Result> best;
    Progress progress{.attempt = 0, .colors = 0, .framesDone = 0, .frameCount = std::ssize(material.frames)};
    for (std::optional colors = config.preset.maxColors(); colors;
         colors = PresetMath::nextColorStep(*colors, config.preset)) {
        ++progress.attempt;
        progress.colors = *colors;
        ProgressReport report(execution, progress);
        Result candidate = attempt(material, *colors, config, execution, report);
        const bool fits = candidate.byteCount <= config.preset.targetBytes();
        if (fits || !best || candidate.byteCount < best->byteCount)
            best = std::move(candidate);
        if (fits)
            break;
    }
    return *std::move(best);
}

} // namespace quillbox::GIFOptimizer
