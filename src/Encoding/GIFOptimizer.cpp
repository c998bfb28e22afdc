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

/// What a worker keeps from frame to frame and from attempt to attempt, so that its memory is made once.
struct Worker {
    Ditherer ditherer;
    LZW::Encoder compressor;
    IndexedFrame indexed;
};

/// One palette size's result, its file not yet put together.
struct Attempt {
    std::vector<Bytes> frameParts;
    std::int64_t byteCount = 0; ///< of the file
    std::int64_t colorCount = 0;
    bool usedDithering = false;
};

/// Makes the attempts for one clip.
class Attempts {
public:
    Attempts(const Material& material, const Config& config, const Execution& execution)
        : m_material(material)
        , m_config(config)
        , m_execution(execution)
        , m_workers(static_cast<std::size_t>(workerCount(execution.parallelism, std::ssize(material.frames))))
    {
    }

    Attempt make(std::int64_t colors, ProgressReport& report)
    {
        const NearestColorLUT lut(PaletteQuantizer::quantize(m_material.histogram, colors));
        Attempt attempt;
        attempt.colorCount = std::ssize(lut.palette());
        attempt.usedDithering
            = m_config.ditheringOverride.value_or(attempt.colorCount * 3 < m_material.histogram.size());
        attempt.frameParts = encodedFrames(lut, attempt.usedDithering, report);
        attempt.byteCount = GIFEncoder::fileSize(attempt.frameParts);
        return attempt;
    }

private:
    /// Maps and compresses all frames with one table. Runs of consecutive frames stay on one thread, where a frame can
    /// reuse the dithering of the one before.
    std::vector<Bytes> encodedFrames(const NearestColorLUT& lut, bool dither, ProgressReport& report)
    {
        constexpr std::int64_t largestRun = 16;
        const std::int64_t count = std::ssize(m_material.frames);
        const std::int64_t run = std::clamp<std::int64_t>(count / (4 * std::ssize(m_workers)), 1, largestRun);
        for (Worker& worker : m_workers) {
            worker.indexed.palette = lut.palette();
            worker.ditherer.use(lut);
        }
        std::vector<Bytes> parts(m_material.frames.size());
        parallelFor(m_execution.parallelism, (count + run - 1) / run, [&](std::int64_t item, int workerNumber) {
            auto& [ditherer, compressor, indexed] = m_workers[static_cast<std::size_t>(workerNumber)];
            const std::int64_t end = std::min(count, (item + 1) * run);
            for (std::int64_t i = item * run; i < end; ++i) {
                const auto& [frame, delay] = m_material.frames[static_cast<std::size_t>(i)];
                indexed.width = frame.width();
                indexed.height = frame.height();
                indexed.delayCentiseconds = delay;
                if (dither)
                    ditherer.dither(frame, indexed.indices);
                else
                    PaletteMapper::mapInto(indexed.indices, frame, lut);
                parts[static_cast<std::size_t>(i)] = GIFEncoder::encodeFrame(indexed, compressor);
                report.frameDone();
            }
        });
        return parts;
    }

    const Material& m_material;
    const Config& m_config;
    const Execution& m_execution;
    std::vector<Worker> m_workers;
};

Result resultOf(const Attempt& attempt, const Material& material)
{
    const RGBAFrame& first = material.frames.front().frame;
    return {.data = GIFEncoder::fileOf(attempt.frameParts, first.width(), first.height(), {.loopCount = 0}),
        .byteCount = attempt.byteCount,
        .frameCount = std::ssize(material.frames),
        .sourceFrameCount = material.sourceFrameCount,
        .colorCount = attempt.colorCount,
        .effectiveFPS = material.fps,
        .usedDithering = attempt.usedDithering,
        .durationSeconds = material.durationSeconds};
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
    Attempts attempts(material, config, execution);
    std::optional<Attempt> best;
    Progress progress{.attempt = 0, .colors = 0, .framesDone = 0, .frameCount = std::ssize(material.frames)};
    for (std::optional colors = config.preset.maxColors(); colors;
         colors = PresetMath::nextColorStep(*colors, config.preset)) {
        ++progress.attempt;
        progress.colors = *colors;
        ProgressReport report(execution, progress);
        Attempt attempt = attempts.make(*colors, report);
        const bool fits = attempt.byteCount <= config.preset.targetBytes();
        if (fits || !best || attempt.byteCount < best->byteCount)
            best = std::move(attempt);
        if (fits || execution.finishNow.stop_requested())
            break;
    }
    return resultOf(*best, material);
}

} // namespace quillbox::GIFOptimizer
