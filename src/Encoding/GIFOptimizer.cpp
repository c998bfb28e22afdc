#include "Encoding/GIFOptimizer.h"

#include "Encoding/BytesKeeper.h"
#include "Encoding/Dithering.h"
#include "Encoding/FrameDeduplicator.h"
#include "Encoding/FrameReducer.h"
#include "Encoding/FrameResampler.h"
#include "Encoding/GIFEncoder.h"
#include "Encoding/PaletteMapper.h"
#include "Encoding/PaletteQuantizer.h"

#include <algorithm>
#include <atomic>
#include <iterator>
#include <limits>
#include <memory>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

namespace quillbox::GIFOptimizer {
namespace {

using FrameDeduplicator::Timed;

/// The GIF's frames at their final size. Those that had to be shrunk are kept; where there is no room for one, it is
/// shrunk again whenever it is asked for.
class FinalFrames {
public:
    /// @pre not empty.
    FinalFrames(std::vector<Timed> frames, std::optional<std::int64_t> maxWidth)
        : m_frames(std::move(frames))
        , m_cap(m_frames.front().frame, maxWidth)
        , m_shrunk(m_frames.size())
    {
    }

    [[nodiscard]] std::int64_t count() const { return std::ssize(m_frames); }
    /// Of the first.
    [[nodiscard]] PixelSize size() const { return m_cap.size(m_frames.front().frame); }
    [[nodiscard]] std::int64_t delay(std::int64_t index) const { return at(index).delayCentiseconds; }
    [[nodiscard]] RGBAFrame frame(std::int64_t index) const
    {
        const Shrunk& kept = m_shrunk[static_cast<std::size_t>(index)];
        return kept.pixels.isThere() ? RGBAFrame::sharing(kept.size.width, kept.size.height, kept.pixels.read())
                                     : m_cap.applied(at(index).frame);
    }

    /// Counts the colours of all of them, and shrinks them on the way.
    [[nodiscard]] ColorHistogram histogram(const Execution& execution)
    {
        if (m_cap.isNone()) {
            std::vector<RGBAFrame> pictures;
            pictures.reserve(m_frames.size());
            std::ranges::transform(m_frames, std::back_inserter(pictures), &Timed::frame);
            return PaletteQuantizer::histogram(pictures, execution.parallelism);
        }
        BytesKeeper keeper(memoryFor(execution), execution.store);
        PaletteQuantizer::Counter counter(workerCount(execution.parallelism, count()));
        parallelFor(execution.parallelism, count(), [&](std::int64_t index, int worker) {
            const RGBAFrame& recorded = at(index).frame;
            const RGBAFrame shrunk = m_cap.applied(recorded);
            counter.add(shrunk, worker);
            if (!shrunk.sharesPixels(recorded))
                m_shrunk[static_cast<std::size_t>(index)] = {
                    {shrunk.width(), shrunk.height()}, keeper.keep(shrunk.whole(), BytesKeeper::Otherwise::NotAtAll)};
        });
        return counter.total();
    }

private:
    struct Shrunk {
        PixelSize size;
        KeptBytes pixels;
    };

    /// All of it where that is enough for all frames. A clip that is larger has to read frames back in any case.
    [[nodiscard]] std::int64_t memoryFor(const Execution& execution) const
    {
        const std::int64_t pixels = checkedMul(checkedMul(size().width, size().height), count());
        const bool isEnough = checkedMul(pixels, RGBAFrame::bytesPerPixel) <= execution.frameMemory;
        return isEnough || !execution.store ? execution.frameMemory : execution.frameMemory / 4;
    }

    [[nodiscard]] const Timed& at(std::int64_t index) const { return m_frames[static_cast<std::size_t>(index)]; }

    std::vector<Timed> m_frames; ///< as they were taken
    FrameResampler::WidthCap m_cap;
    std::vector<Shrunk> m_shrunk;
};

/// What all attempts have in common.
struct Material {
    FinalFrames frames;
    ColorHistogram histogram; ///< of all of them
    std::int64_t sourceFrameCount = 0;
    std::int64_t fps = 0;
    double durationSeconds = 0;
};

Material prepare(const FrameReducer& reducer, ExportPreset preset, const Execution& execution)
{
    FrameReducer::Selection selection = reducer.selection(preset);
    std::int64_t centiseconds = 0;
    for (const Timed& timed : selection.frames)
        centiseconds = checkedAdd(centiseconds, timed.delayCentiseconds);
    FinalFrames frames(std::move(selection.frames), preset.maxWidth());
    ColorHistogram histogram = frames.histogram(execution);
    return {.frames = std::move(frames),
        .histogram = std::move(histogram),
        .sourceFrameCount = reducer.frameCount(),
        .fps = selection.fps,
        .durationSeconds = static_cast<double>(centiseconds) / 100.0};
}

/// What a worker keeps from frame to frame and from attempt to attempt, so that its memory is made once.
struct Worker {
    Ditherer ditherer;
    LZW::Encoder compressor;
    IndexedFrame indexed;
};

/// One palette size's file, frame by frame; not yet put together, and perhaps not whole.
struct Attempt {
    std::int64_t number; ///< as `Progress::attempt`
    std::int64_t colors; ///< asked for
    NearestColorLUT lut; ///< made of those there are
    bool usesDithering;
    std::vector<KeptBytes> frameParts; ///< not there where the frame is still to be done
    std::int64_t framesDone = 0;
    std::int64_t byteCount = GIFEncoder::fileSize({}); ///< of the file as far as it is done

    [[nodiscard]] bool isWhole() const { return framesDone == std::ssize(frameParts); }
};

/// Makes the attempts for one clip.
class Attempts {
public:
    Attempts(const Material& material, const Config& config, const Execution& execution)
        : m_material(material)
        , m_config(config)
        , m_execution(execution)
        , m_workers(static_cast<std::size_t>(workerCount(execution.parallelism, material.frames.count())))
        , m_keeper(execution.partMemory, execution.store)
    {
    }

    /// @return an attempt of which nothing is done.
    [[nodiscard]] Attempt begun(std::int64_t number, std::int64_t colors) const
    {
        NearestColorLUT lut(PaletteQuantizer::quantize(m_material.histogram, colors));
        const bool isCoarse = std::ssize(lut.palette()) * 3 < m_material.histogram.size();
        return {.number = number,
            .colors = colors,
            .lut = std::move(lut),
            .usesDithering = m_config.ditheringOverride.value_or(isCoarse),
            .frameParts = std::vector<KeptBytes>(static_cast<std::size_t>(m_material.frames.count()))};
    }

    /// Maps and compresses what is still to be done, until all is or the file exceeds `byteLimit` or `stop` asks for
    /// the end.
    void advance(Attempt& attempt, std::int64_t byteLimit, const std::stop_token& stop)
    {
        const std::vector<Run> runs = runsToDo(attempt);
        for (Worker& worker : m_workers) {
            worker.indexed.palette = attempt.lut.palette();
            worker.ditherer.use(attempt.lut);
        }
        tell(attempt);
        std::mutex mutex; // guards what the attempt counts
        std::atomic<bool> isOver = attempt.byteCount > byteLimit;
        parallelFor(m_execution.parallelism, std::ssize(runs), [&](std::int64_t item, int worker) {
            const auto [begin, end] = runs[static_cast<std::size_t>(item)];
            for (std::int64_t i = begin; i < end && !isOver && !stop.stop_requested(); ++i) {
                KeptBytes& part = attempt.frameParts[static_cast<std::size_t>(i)];
                if (part.isThere())
                    continue;
                Bytes encoded = encodedFrame(attempt, m_workers[static_cast<std::size_t>(worker)], i);
                const auto partSize = std::ssize(encoded);
                part = m_keeper.keep(
                    std::make_shared<const Bytes>(std::move(encoded)), BytesKeeper::Otherwise::InMemory);
                const std::scoped_lock lock(mutex);
                ++attempt.framesDone;
                attempt.byteCount = checkedAdd(attempt.byteCount, partSize);
                isOver = attempt.byteCount > byteLimit;
                tell(attempt);
            }
        });
    }

private:
    /// Consecutive frames, not all of which need be still to be done.
    struct Run {
        std::int64_t begin;
        std::int64_t end;
    };

    /// What is still to be done, in pieces for a thread each: a frame can reuse the dithering of the one before. They
    /// become shorter and shorter, so that all threads end at about the same time.
    [[nodiscard]] std::vector<Run> runsToDo(const Attempt& attempt) const
    {
        constexpr std::int64_t maxRun = 16;
        const std::int64_t share = 2 * std::ssize(m_workers);
        std::vector<Run> runs;
        std::int64_t left = std::ssize(attempt.frameParts) - attempt.framesDone;
        std::int64_t room = 0; // in the last run
        for (std::int64_t i = 0; i < std::ssize(attempt.frameParts); ++i) {
            if (attempt.frameParts[static_cast<std::size_t>(i)].isThere())
                continue;
            if (room == 0) {
                room = std::clamp<std::int64_t>(left / share, 1, maxRun);
                runs.push_back({i, i});
            }
            runs.back().end = i + 1;
            --room;
            --left;
        }
        return runs;
    }

    [[nodiscard]] Bytes encodedFrame(const Attempt& attempt, Worker& worker, std::int64_t index) const
    {
        auto& [ditherer, compressor, indexed] = worker;
        const RGBAFrame frame = m_material.frames.frame(index);
        indexed.width = frame.width();
        indexed.height = frame.height();
        indexed.delayCentiseconds = m_material.frames.delay(index);
        if (attempt.usesDithering)
            ditherer.dither(frame, indexed.indices);
        else
            PaletteMapper::mapInto(indexed.indices, frame, attempt.lut);
        return GIFEncoder::encodeFrame(indexed, compressor);
    }

    void tell(const Attempt& attempt) const
    {
        if (m_execution.progress) {
            m_execution.progress({.attempt = attempt.number,
                .colors = attempt.colors,
                .framesDone = attempt.framesDone,
                .frameCount = std::ssize(attempt.frameParts)});
        }
    }

    const Material& m_material;
    const Config& m_config;
    const Execution& m_execution;
    std::vector<Worker> m_workers;
    BytesKeeper m_keeper; // of the attempts' parts
};

constexpr std::int64_t noLimit = std::numeric_limits<std::int64_t>::max();

/// The first attempt that fits the budget, or else the smallest. One that exceeds the budget is left as it is. Only
/// where none fits, the last one, as a rule the smallest, is finished, and the others go on until they exceed it.
Attempt bestAttempt(Attempts& attempts, const Config& config, const std::stop_token& finishNow)
{
    std::vector<Attempt> left;
    std::int64_t number = 0;
    for (std::optional colors = config.preset.maxColors(); colors;
         colors = PresetMath::nextColorStep(*colors, config.preset)) {
        Attempt attempt = attempts.begun(++number, *colors);
        attempts.advance(attempt, config.preset.targetBytes(), left.empty() ? std::stop_token() : finishNow);
        if (attempt.isWhole() && attempt.byteCount <= config.preset.targetBytes())
            return attempt;
        if (left.empty() || !finishNow.stop_requested())
            left.push_back(std::move(attempt));
        if (finishNow.stop_requested())
            break;
    }
    Attempt best = std::move(left.back());
    left.pop_back();
    best.number = number += best.number == number ? 0 : 1;
    attempts.advance(best, noLimit, {});
    for (; !left.empty() && !finishNow.stop_requested(); left.pop_back()) {
        left.back().number = ++number;
        attempts.advance(left.back(), best.byteCount, finishNow);
        if (left.back().isWhole() && left.back().byteCount <= best.byteCount) // of equal ones the first
            best = std::move(left.back());
    }
    return best;
}

/// @return all but the file
Result resultOf(const Attempt& attempt, const Material& material)
{
    return {.data = {},
        .byteCount = attempt.byteCount,
        .frameCount = material.frames.count(),
        .sourceFrameCount = material.sourceFrameCount,
        .colorCount = std::ssize(attempt.lut.palette()),
        .effectiveFPS = material.fps,
        .usedDithering = attempt.usesDithering,
        .durationSeconds = material.durationSeconds};
}

/// @param size  Of the first frame.
std::vector<KeptBytes> fileOf(PixelSize size, std::vector<KeptBytes> frameParts)
{
    Bytes start;
    GIFEncoder::appendFileStart(start, size.width, size.height, {.loopCount = 0});
    frameParts.insert(frameParts.begin(), KeptBytes(std::move(start)));
    Bytes end;
    GIFEncoder::appendFileEnd(end);
    frameParts.emplace_back(std::move(end));
    return frameParts;
}

} // namespace

Result optimize(std::span<const RGBAFrame> frames, const Config& config, const Execution& execution)
{
    FrameReducer reducer(config.sourceFPS, std::span(&config.preset, 1));
    for (const RGBAFrame& frame : frames)
        reducer.append(frame);
    return optimize(reducer, config, execution);
}

Result optimize(const FrameReducer& reducer, const Config& config, const Execution& execution)
{
    InPieces made = optimizeInPieces(reducer, config, execution);
    Bytes& data = made.clip.data;
    data.reserve(static_cast<std::size_t>(made.clip.byteCount));
    for (KeptBytes& piece : made.file) {
        const auto bytes = std::exchange(piece, {}).read(); // its memory is let go of
        data.insert(data.end(), bytes->begin(), bytes->end());
    }
    return std::move(made.clip);
}

InPieces optimizeInPieces(const FrameReducer& reducer, const Config& config, const Execution& execution)
{
    precondition(reducer.sourceFPS() == config.sourceFPS, "the frames were taken at the source's rate");
    const Material material = prepare(reducer, config.preset, execution);
    Attempts attempts(material, config, execution);
    Attempt best = bestAttempt(attempts, config, execution.finishNow);
    return {resultOf(best, material), fileOf(material.frames.size(), std::move(best.frameParts))};
}

} // namespace quillbox::GIFOptimizer
