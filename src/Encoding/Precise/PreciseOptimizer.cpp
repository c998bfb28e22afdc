#include "Encoding/Precise/PreciseOptimizer.h"

#include "Encoding/Precise/ClipAttempt.h"
#include "Encoding/Precise/Colors/NearestColors.h"
#include "Encoding/Precise/Colors/ScreenPalette.h"
#include "Encoding/Precise/Thinning.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>
#include <vector>

namespace quillbox::PreciseOptimizer {
namespace {

using Recording = DistinctFrames::Recording;

// Squared errors, summed up over channels, pixels and frames.
constexpr double gainPerByte = 150;       // what a table of a picture's own must save at least
constexpr double largeGainPerByte = 1200; // where bytes are scarce

constexpr std::int64_t leastPicturesPerSecond = 10;
constexpr double aim = 0.98;     // of the budget: predictions miss by some per cent
constexpr double hopeless = 1.1; // a prediction so far above the budget is not tried out
constexpr std::int64_t sampledPictures = 12;
constexpr std::int64_t smallRecording = 3'000'000; // changed pixels: to try it out costs little
constexpr double leastScale = 0.25;

// Of the search for codes: more of them make a smaller file and take longer. A scrolling page of 32 colours was 1.2 %
// larger with 12 than with 30.
constexpr std::int64_t passesOfSmall = 30;
constexpr std::int64_t passesOfLarge = 12;
constexpr std::int64_t passesOfSample = 6;
constexpr double ofSampleSize = 0.97; // what files come to that take all passes

// Errors of colours are less visible than pictures that are missing down to the first of these, and less than those of
// a smaller size down to the second. Mean squared errors of a sample; 48 and 40 dB.
constexpr double fineError = 1.03;
constexpr double fairError = 6.5;
constexpr std::int64_t fewColors = 32; // where not even many are fair
// Numbers of colours that are tried, each about an eighth larger than the one before.
constexpr std::array<std::int64_t, 31> colorSteps{8, 9, 10, 11, 13, 14, 16, 18, 20, 23, 25, 29, 32, 36, 40, 45, 51, 57,
    64, 72, 81, 91, 102, 114, 128, 144, 161, 181, 203, 228, 256};

constexpr double secondAim = 0.985; // of the budget, for an attempt after one that told how far predictions miss
constexpr double goodUse = 0.93;    // of the budget: it is not worth another attempt to make use of more

/// The mean squared error of a sample, from the sum over a recording.
double meanError(double errorTicks, const Recording& recording)
{
    const double samples = 3.0 * static_cast<double>(recording.size.width) * static_cast<double>(recording.size.height)
        * static_cast<double>(recording.frameCount);
    return errorTicks / samples;
}

double decibels(double errorTicks, const Recording& recording)
{
    const double mean = meanError(errorTicks, recording);
    return mean <= 0 ? perfectDecibels : std::min(perfectDecibels, 10 * std::log10(255.0 * 255.0 / mean));
}

std::int64_t changedPixels(const Recording& recording)
{
    std::int64_t sum = 0;
    for (const auto& picture : recording.pictures)
        sum += picture.changedPixels;
    return sum;
}

/// The error of showing every picture with the nearest colours of a table.
double errorTicks(const Recording& recording, const std::vector<RGBColor>& table)
{
    NearestColors nearest(table);
    double sum = 0;
    for (const auto& [color, weight] : recording.colors)
        sum += static_cast<double>(color.distanceSquared(table[nearest.index(color)])) * static_cast<double>(weight);
    return sum;
}

/// The same recording with a smaller screen.
Recording shrunk(const Recording& recording, std::int64_t width)
{
    DistinctFrames frames({.sourceFPS = recording.sourceFPS,
        .maxWidth = width,
        .maxFPS = std::max(recording.maxFPS, recording.sourceFPS)});
    Bytes screen(static_cast<std::size_t>(recording.size.width * recording.size.height * RGBAFrame::bytesPerPixel), 0);
    for (std::size_t i = 0; i < recording.pictures.size(); ++i) {
        const auto& picture = recording.pictures[i];
        const PixelView pixels = picture.pixels.pixels();
        const auto rowBytes = static_cast<std::size_t>(picture.area.width * RGBAFrame::bytesPerPixel);
        for (std::int64_t y = 0; y < picture.area.height; ++y) {
            std::copy_n(pixels.data() + static_cast<std::size_t>(y) * rowBytes, rowBytes,
                screen.data()
                    + static_cast<std::size_t>(((picture.area.top + y) * recording.size.width + picture.area.left)
                        * RGBAFrame::bytesPerPixel));
        }
        const RGBAFrame frame(recording.size.width, recording.size.height, screen);
        const std::int64_t end
            = i + 1 < recording.pictures.size() ? recording.pictures[i + 1].tick : recording.frameCount;
        for (std::int64_t tick = picture.tick; tick < end; ++tick)
            frames.append(frame);
    }
    Recording result = frames.recording();
    result.maxFPS = recording.maxFPS;
    return result;
}

/// What a plan is made of.
struct Means {
    std::int64_t colors = 256;
    double thinned = 0; ///< share of the pictures that may be left out
    double gainPerByte = 0;

    friend bool operator==(const Means&, const Means&) = default;
};

/// The last step that has at most so many colours, or the first one.
std::int64_t stepOf(std::int64_t colors)
{
    return std::max<std::int64_t>(std::ranges::upper_bound(colorSteps, colors) - colorSteps.begin() - 1, 0);
}

/// How a file's size grows with the number of colours, as two samples tell: by about as much with every step.
class SizeByColors {
public:
    SizeByColors(std::int64_t few, std::int64_t sizeOfFew, std::int64_t many, std::int64_t sizeOfMany)
        : m_few(stepOf(few))
        , m_size(static_cast<double>(sizeOfFew))
    {
        const std::int64_t steps = stepOf(many) - m_few;
        if (steps > 0 && sizeOfMany > sizeOfFew)
            m_growth = static_cast<double>(sizeOfMany - sizeOfFew) / static_cast<double>(steps);
    }

    [[nodiscard]] double of(std::int64_t colors) const
    {
        return m_size + m_growth * static_cast<double>(stepOf(colors) - m_few);
    }
    /// The most colours whose file is no larger; the fewest if all are.
    [[nodiscard]] std::int64_t colorsFor(double size) const
    {
        std::int64_t colors = colorSteps.front();
        for (const std::int64_t more : colorSteps) {
            if (of(more) <= size)
                colors = more;
        }
        return colors;
    }

private:
    std::int64_t m_few; ///< a step
    double m_size;
    double m_growth = 0; ///< with each step
};

/// Tries one way after another to show one recording.
class Search {
public:
    /// @param attempts  made before, at another size
    Search(const Recording& recording, const Config& config, const GIFOptimizer::Execution& execution,
        std::int64_t attempts)
        : m_recording(recording)
        , m_config(config)
        , m_execution(execution)
        , m_thinningOrder(
              Thinning::order(recording, std::max<std::int64_t>(recording.sourceFPS / leastPicturesPerSecond, 1)))
        , m_number(attempts)
    {
    }

    /// Ends with the best file that the budget allows at this size. @return whether it fits
    bool run()
    {
        if (triesExactly() && fits(attempt({.colors = m_config.maxColors, .gainPerByte = gainPerByte})))
            return true;
        if (m_best && isEnough())
            return false;
        const std::int64_t plain = predicted({.colors = m_config.maxColors});
        if (static_cast<double>(plain) <= aim * static_cast<double>(m_config.targetBytes)) {
            for (const double gain : {largeGainPerByte, 0.0}) {
                if (fits(attempt({.colors = m_config.maxColors, .gainPerByte = gain})) || isEnough())
                    return fits(m_best);
            }
        }
        return giveUpMore();
    }

    /// Takes the strongest means at once. @return whether the file fits
    bool giveUpMost() { return fits(attempt({.colors = leastColors(), .thinned = 1})); }

    [[nodiscard]] bool isEnough() const { return m_execution.finishNow.stop_requested(); }
    [[nodiscard]] std::int64_t number() const { return m_number; }
    [[nodiscard]] std::int64_t byteCount() const { return m_best->byteCount; }

    [[nodiscard]] Result result() const
    {
        const double seconds = static_cast<double>(m_recording.frameCount) / static_cast<double>(m_recording.sourceFPS);
        Result result;
        result.clip = {.data = DeltaGIF::fileOf(m_best->screen, m_best->parts),
            .byteCount = m_best->byteCount,
            .frameCount = std::ssize(m_best->parts),
            .sourceFrameCount = m_recording.frameCount,
            .colorCount = m_best->colorCount,
            .effectiveFPS = std::min(m_recording.sourceFPS, m_recording.maxFPS),
            .usedDithering = false,
            .durationSeconds = static_cast<double>(std::max(std::llround(seconds * 100), 2LL)) / 100.0};
        result.qualityDecibels = decibels(m_best->errorTicks, m_recording);
        result.lossDecibels = std::max(
            decibels(errorTicks(m_recording, table(m_config.maxColors)), m_recording) - result.qualityDecibels, 0.0);
        result.thinnedFrames = std::ssize(m_recording.pictures) - result.clip.frameCount;
        return result;
    }

private:
    /// Whether it is worth to make a file without giving up anything.
    [[nodiscard]] bool triesExactly()
    {
        return changedPixels(m_recording) <= smallRecording
            || static_cast<double>(predicted({.colors = m_config.maxColors}))
            <= hopeless * static_cast<double>(m_config.targetBytes);
    }

    /// The fewest colours that show the recording with no more error, as far as the steps tell; all if none do.
    [[nodiscard]] std::int64_t colorsFor(double error) const
    {
        const auto* const step = std::ranges::partition_point(colorSteps, [&](std::int64_t colors) {
            return colors < m_config.maxColors
                && meanError(errorTicks(m_recording, table(colors)), m_recording) > error;
        });
        return step == colorSteps.end() ? m_config.maxColors : std::min(*step, m_config.maxColors);
    }
    [[nodiscard]] std::int64_t leastColors() const { return std::min(fewColors, colorsFor(fairError)); }

    /// The share of the pictures to leave out so that these colours fit, if that helps: between two samples, sizes fall
    /// about evenly.
    [[nodiscard]] std::optional<double> leastThinning(std::int64_t colors) const
    {
        constexpr double step = 0.25;
        const auto sizeWith = [&](double thinned) {
            return static_cast<double>(predicted({.colors = colors, .thinned = thinned}));
        };
        // Fewer colours make a file smaller by less than that.
        if (static_cast<double>(predicted({.colors = m_config.maxColors})) <= 2 * aimed() && sizeWith(0) <= aimed())
            return 0;
        double least = 1;
        double size = sizeWith(least);
        if (size > aimed())
            return std::nullopt;
        while (least > 0) {
            const double larger = sizeWith(least - step);
            if (larger > aimed()) {
                const auto all = static_cast<double>(m_thinningOrder.size());
                return least - std::floor(step * all * (aimed() - size) / (larger - size)) / all;
            }
            least -= step;
            size = larger;
        }
        return least;
    }

    /// Fewer colours as long as that is hardly seen, then fewer pictures, then the fewest colours.
    bool giveUpMore()
    {
        const std::int64_t fine = colorsFor(fineError);
        const std::optional<double> thinned = leastThinning(fine);
        const std::int64_t least = thinned ? fine : leastColors();
        const std::int64_t most = std::max(thinned ? m_config.maxColors : fine, least);
        return fillBudget(thinned.value_or(1), least, most);
    }

    /// As many colours as the budget allows: a first attempt with as many as two samples promise, and one more where
    /// they promised too much or too little. @return whether the best file fits
    bool fillBudget(double thinned, std::int64_t least, std::int64_t most)
    {
        const SizeByColors sizes(least, predicted({.colors = least, .thinned = thinned}), most,
            predicted({.colors = most, .thinned = thinned}));
        const std::int64_t colors = std::clamp(sizes.colorsFor(aimed()), least, most);
        attempt({.colors = colors, .thinned = thinned});
        const auto made = static_cast<double>(m_lastByteCount);
        const auto budget = static_cast<double>(m_config.targetBytes);
        const bool fitsWell = made <= budget && (made >= goodUse * budget || colors == most);
        if (fitsWell || isEnough())
            return fits(m_best);
        const double size = secondAim * budget * sizes.of(colors) / made;
        const std::int64_t better = made > budget
            ? std::max(std::min(sizes.colorsFor(size), colors - 1), std::min(colors, leastColors()))
            : std::clamp(sizes.colorsFor(size), colors, most);
        if (better != colors)
            attempt({.colors = better, .thinned = thinned});
        if (!fits(m_best) && !isEnough() && (better > leastColors() || thinned < 1))
            return giveUpMost();
        return fits(m_best);
    }

    [[nodiscard]] double aimed() const { return aim * static_cast<double>(m_config.targetBytes); }

    [[nodiscard]] bool fits(const std::optional<ClipAttempt>& attempt) const
    {
        return attempt && attempt->byteCount <= m_config.targetBytes;
    }

    [[nodiscard]] const std::vector<RGBColor>& table(std::int64_t colors) const
    {
        auto known = std::ranges::find(m_tables, colors, &std::pair<std::int64_t, std::vector<RGBColor>>::first);
        if (known == m_tables.end()) {
            m_tables.emplace_back(colors, ScreenPalette::make(m_recording.colors, colors, m_execution.parallelism));
            known = std::prev(m_tables.end());
        }
        return known->second;
    }

    [[nodiscard]] ClipPlan planOf(const Means& means) const
    {
        ClipPlan plan{.table = table(means.colors),
            .leavesOut = std::vector<bool>(m_recording.pictures.size(), false),
            .maxColors = means.colors,
            .gainPerByte = means.gainPerByte,
            .passes = changedPixels(m_recording) <= smallRecording ? passesOfSmall : passesOfLarge};
        const auto thinned = std::llround(means.thinned * static_cast<double>(m_thinningOrder.size()));
        for (std::size_t i = 0; i < static_cast<std::size_t>(thinned); ++i)
            plan.leavesOut[m_thinningOrder[i]] = true;
        return plan;
    }

    /// The size that a file would have: of a large recording, as some of its pictures tell.
    [[nodiscard]] std::int64_t predicted(const Means& means) const
    {
        const auto known = std::ranges::find(m_predictions, means, &std::pair<Means, std::int64_t>::first);
        if (known != m_predictions.end())
            return known->second;
        ClipPlan plan = planOf(means);
        double share = 1;
        if (changedPixels(m_recording) > smallRecording) {
            const auto shown = std::ranges::count(plan.leavesOut, false);
            plan.passes = passesOfSample;
            plan.sampleEvery = std::max<std::int64_t>(shown / sampledPictures, 1);
            share = ofSampleSize;
        }
        const auto sampled = static_cast<double>(
            ClipAttempt::make(m_recording, plan, m_execution.parallelism, {}, {}).predictedByteCount);
        const std::int64_t size = std::llround(share * sampled);
        m_predictions.emplace_back(means, size);
        return size;
    }

    /// Makes a file; keeps it if it is the best so far. @return the best
    const std::optional<ClipAttempt>& attempt(const Means& means)
    {
        const ClipPlan plan = planOf(means);
        const auto pictures = std::ranges::count(plan.leavesOut, false);
        const std::int64_t number = ++m_number;
        const auto report = [&](std::int64_t done) {
            if (m_execution.progress)
                m_execution.progress(
                    {.attempt = number, .colors = means.colors, .framesDone = done, .frameCount = pictures});
        };
        report(0);
        const std::int64_t limit
            = m_best ? std::max(m_best->byteCount, m_config.targetBytes) : std::numeric_limits<std::int64_t>::max();
        ClipAttempt made
            = ClipAttempt::make(m_recording, plan, m_execution.parallelism, {.byteCount = limit, .stop = {}}, report);
        m_lastByteCount = made.byteCount * pictures / std::ssize(made.parts);
        if (made.isWhole && (!m_best || isBetter(made, *m_best)))
            m_best = std::move(made);
        return m_best;
    }

    /// One that fits is better than one that does not, then one with less error; if none fits, the smaller one.
    [[nodiscard]] bool isBetter(const ClipAttempt& a, const ClipAttempt& b) const
    {
        const bool aFits = a.byteCount <= m_config.targetBytes;
        if (aFits != (b.byteCount <= m_config.targetBytes))
            return aFits;
        return aFits ? a.errorTicks < b.errorTicks : a.byteCount < b.byteCount;
    }

    const Recording& m_recording;
    const Config& m_config;
    const GIFOptimizer::Execution& m_execution;
    std::vector<std::size_t> m_thinningOrder;
    mutable std::vector<std::pair<std::int64_t, std::vector<RGBColor>>> m_tables; ///< made so far, by size asked for
    mutable std::vector<std::pair<Means, std::int64_t>> m_predictions;
    std::int64_t m_number;
    std::int64_t m_lastByteCount = 0; ///< of the last attempt; about, if it was left
    std::optional<ClipAttempt> m_best;
};

} // namespace

Config Config::of(ExportPreset preset)
{
    return {.targetBytes = preset.targetBytes(), .maxWidth = preset.maxWidth()};
}

DistinctFrames framesFor(const Config& config, std::int64_t sourceFPS, DistinctFrames::OnKept onKept)
{
    return DistinctFrames(
        {.sourceFPS = sourceFPS, .maxWidth = config.maxWidth, .maxFPS = config.maxFPS, .onKept = std::move(onKept)});
}

Result optimize(const DistinctFrames& frames, const Config& config, const GIFOptimizer::Execution& execution)
{
    const Recording recording = frames.recording();
    Search search(recording, config, execution, 0);
    if (search.run() || search.isEnough())
        return search.result();
    Result best = search.result();
    std::int64_t number = search.number();
    double scale = 1;
    while (best.clip.byteCount > config.targetBytes && scale > leastScale && !execution.finishNow.stop_requested()) {
        const double excess = static_cast<double>(best.clip.byteCount) / static_cast<double>(config.targetBytes);
        scale = std::max(leastScale, scale * std::clamp(std::sqrt(aim / excess), 0.4, 0.95));
        const auto width = std::llround(scale * static_cast<double>(recording.size.width));
        if (width < 1)
            break;
        const Recording smaller = shrunk(recording, width);
        Search again(smaller, config, execution, number);
        (void)again.giveUpMost();
        number = again.number();
        if (again.byteCount() < best.clip.byteCount) {
            best = again.result();
            best.scale = static_cast<double>(smaller.size.width) / static_cast<double>(recording.size.width);
        }
    }
    return best;
}

} // namespace quillbox::PreciseOptimizer
