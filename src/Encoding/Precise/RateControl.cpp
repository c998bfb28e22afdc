#include "Encoding/Precise/RateControl.h"

#include "Encoding/Precise/Colors/ScreenPalette.h"
#include "Encoding/Precise/ShownError.h"
#include "Encoding/Precise/Thinning.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace quillbox {
namespace {

// A table of its own makes the pictures after it larger, too, where noise changes pixels by less than a table for all
// tells apart: as much again in recordings that have so many colours, hardly in others.
constexpr std::size_t manyColors = 32768;
constexpr double shareAgain = 0.9; // of what such tables may take for all that is known, after they took too much

constexpr std::int64_t leastPicturesPerSecond = 10;
constexpr double aim = 0.985;    // of the budget: predictions miss by some per cent
constexpr double goodUse = 0.93; // of the budget: it is not worth another attempt to make use of more
constexpr double usualCorrection = 0.93;
constexpr double farOver = 2; // times the budget; fewer colours make a file smaller by less than that
constexpr double doubt = 1.4; // a prediction so near to the budget wants to be exact

// Of the search for codes: more passes make a smaller file and take longer.
constexpr std::int64_t mostPasses = 30;
constexpr std::int64_t leastPasses = 4;
constexpr std::int64_t manyPasses = 10;            // where they may save all colours,
constexpr double nearMiss = 1.04;                  // since they make files smaller by no more than that
constexpr std::int64_t passedPixels = 300'000'000; // pixels times passes of an attempt

// Errors of colours are less visible than pictures that are missing down to the first of these, and less than those of
// a smaller size down to the second. Mean squared errors of a sample; 48 and 40 dB.
constexpr double fineError = 1.03;
constexpr double fairError = 6.5;
constexpr std::int64_t fewColors = 32; // where not even many are fair

} // namespace

RateControl::RateControl(const DistinctFrames::Recording& recording, Bounds bounds,
    const GIFOptimizer::Execution& execution, std::int64_t attempts)
    : m_recording(recording)
    , m_bounds(bounds)
    , m_execution(execution)
    , m_thinningOrder(
          Thinning::order(recording, std::max<std::int64_t>(recording.sourceFPS / leastPicturesPerSecond, 1)))
    , m_correction(usualCorrection)
    , m_attemptCount(attempts)
{
}

bool RateControl::run()
{
    prepare();
    if (keepAll() || isEnough())
        return fits();
    return giveUpMore();
}

/// Makes what every search asks for first.
void RateControl::prepare()
{
    parallelFor(m_execution.parallelism, 2, [this](std::int64_t item, int) {
        if (item == 0)
            (void)prediction(0);
        else
            (void)table(m_bounds.maxColors, {.threads = 1}); // what it loses is told at the end, too
    });
}

/// Gives up nothing if that fits. @return whether it does
bool RateControl::keepAll()
{
    Means all{.colors = m_bounds.maxColors};
    if (predicted(all) > aimed() / doubt && predicted(all) < aimed() * doubt)
        correct(all);
    const double usual = m_correction;
    if (predicted(all) > aimed() && predicted(all) < aimed() * nearMiss && passes(all) < manyPasses) {
        all.passes = manyPasses;
        correct(all);
    }
    const double corrected = m_correction;
    const double rest = aimed() - predicted(all);
    double spare = m_recording.colors.size() > manyColors ? rest / 2 : rest;
    for (int trial = 0; trial < 3 && rest >= 0 && !isEnough(); ++trial) {
        const double base = predicted(all);
        const Made made = attempt(all, spare);
        if (fits())
            return true;
        if (made.ownTableBytes == 0)
            break;
        // Fewer of them, and then none.
        const double share = rest / (static_cast<double>(made.byteCount) - base);
        spare = trial == 0 ? shareAgain * share * static_cast<double>(made.ownTableBytes) : 0;
    }
    m_correction *= usual / corrected;
    return false;
}

bool RateControl::giveUpMost()
{
    (void)attempt({.colors = leastColors(), .thinned = 1});
    return fits();
}

double RateControl::aimed() const
{
    return aim * static_cast<double>(m_bounds.targetBytes);
}

/// Of a table of so many colours, the mean of a sample.
double RateControl::errorOf(std::int64_t colors)
{
    return ShownError::mean(ShownError::ofTable(m_recording, roughTable(colors)), m_recording);
}

/// The fewest colours that show the recording with no more error, as far as the steps tell; all if none do.
std::int64_t RateControl::colorsFor(double error)
{
    struct Known {
        std::int64_t step;
        double excess; ///< logarithm of the error there ÷ the one allowed; from step to step it falls about evenly
    };
    const auto colorsAt = [this](std::int64_t step) {
        return std::min(ColorSteps::all.at(static_cast<std::size_t>(step)), m_bounds.maxColors);
    };
    const auto at = [&](std::int64_t step) {
        return Known{step, std::log(std::max(errorOf(colorsAt(step)), 1e-9) / error)};
    };
    Known most = at(std::ranges::lower_bound(ColorSteps::all, m_bounds.maxColors) - ColorSteps::all.begin());
    if (most.excess > 0)
        return m_bounds.maxColors;
    Known least = at(ColorSteps::of(std::min(fewColors, colorsAt(most.step))));
    if (least.excess <= 0)
        most = std::exchange(least, at(0));
    if (least.excess <= 0)
        return colorsAt(0);
    while (most.step - least.step > 1) {
        const double share = least.excess / (least.excess - most.excess);
        const std::int64_t between = least.step + std::llround(share * static_cast<double>(most.step - least.step));
        const Known next = at(std::clamp(between, least.step + 1, most.step - 1));
        (next.excess <= 0 ? most : least) = next;
    }
    return colorsAt(most.step);
}

std::int64_t RateControl::leastColors()
{
    const std::int64_t few = std::min(fewColors, m_bounds.maxColors);
    return errorOf(few) > fairError ? few : colorsFor(fairError);
}

/// The share of the pictures to leave out so that these colours fit, if that helps: between two shares, sizes fall
/// about evenly.
std::optional<double> RateControl::leastThinning(std::int64_t colors)
{
    constexpr double step = 0.25;
    const auto sizeWith = [&](double thinned) {
        return predicted({.colors = colors, .thinned = thinned});
    };
    if (predicted({.colors = m_bounds.maxColors}) <= farOver * aimed() && sizeWith(0) <= aimed())
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
bool RateControl::giveUpMore()
{
    std::int64_t fine = 0;
    const bool isFarOver = predicted({.colors = m_bounds.maxColors}) > farOver * aimed();
    parallelFor(m_execution.parallelism, isFarOver ? 2 : 1, [&](std::int64_t item, int) {
        if (item == 0)
            fine = colorsFor(fineError);
        else
            (void)prediction(1); // is asked for next
    });
    const std::optional<double> thinned = leastThinning(fine);
    const std::int64_t least = thinned ? fine : leastColors();
    const std::int64_t most = std::max(thinned ? m_bounds.maxColors : fine, least);
    return fillBudget(thinned.value_or(1), least, most);
}

/// The most of `least`…`most` colours that predictions promise to fit; `trials` of those in between are predicted, too.
std::int64_t RateControl::promisedColors(double thinned, std::int64_t least, std::int64_t most, int trials)
{
    const auto sizeOf = [&](std::int64_t colors) {
        return predicted({.colors = colors, .thinned = thinned});
    };
    for (std::int64_t few = least, many = most;; --trials) {
        const SizeByColors sizes(few, sizeOf(few), many, sizeOf(many));
        const std::int64_t colors = std::clamp(sizes.colorsFor(aimed()), few, many);
        if (trials == 0 || colors == few || colors == many)
            return colors;
        (sizeOf(colors) <= aimed() ? few : many) = colors;
    }
}

/// As many colours as the budget allows: a first attempt with as many as predictions promise, and more where they
/// promised too much or too little. @return whether the best file fits
bool RateControl::fillBudget(double thinned, std::int64_t least, std::int64_t most)
{
    constexpr int trials = 2;
    constexpr int mostAttempts = 3; // one is the rule
    correct({.colors = promisedColors(thinned, least, most, 0), .thinned = thinned});
    std::int64_t colors = promisedColors(thinned, least, most, trials);
    for (int number = 1;; ++number) {
        const bool hadFit = fits();
        (void)attempt({.colors = colors, .thinned = thinned});
        const bool isFull
            = fits() && static_cast<double>(m_best->byteCount) >= goodUse * static_cast<double>(m_bounds.targetBytes);
        if (isFull || isEnough() || hadFit || number == mostAttempts)
            break;
        const std::int64_t floor = std::min(colors, leastColors()); // lower than that if nothing else helps
        const std::int64_t better = promisedColors(thinned, fits() ? colors : std::min(floor, least), most, trials);
        const std::int64_t next = fits() ? better : std::max(std::min(better, colors - 1), floor);
        if (next == colors)
            break;
        colors = next;
    }
    if (!fits() && !isEnough() && (colors > leastColors() || thinned < 1))
        return giveUpMost();
    return fits();
}

const std::vector<RGBColor>& RateControl::table(std::int64_t colors, Parallelism parallelism)
{
    auto known = m_tables.find(colors);
    if (known == m_tables.end())
        known = m_tables.emplace(colors, ScreenPalette::make(m_recording.colors, colors, parallelism)).first;
    return known->second;
}

/// One that is about as good, for predictions.
const std::vector<RGBColor>& RateControl::roughTable(std::int64_t colors)
{
    if (const auto exact = m_tables.find(colors); exact != m_tables.end())
        return exact->second;
    auto known = m_roughTables.find(colors);
    if (known == m_roughTables.end())
        known = m_roughTables.emplace(colors, ScreenPalette::makeQuickly(m_recording.colors, colors)).first;
    return known->second;
}

std::vector<bool> RateControl::leavesOut(double thinned) const
{
    std::vector<bool> result(m_recording.pictures.size(), false);
    const auto count = std::llround(thinned * static_cast<double>(m_thinningOrder.size()));
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i)
        result[m_thinningOrder[i]] = true;
    return result;
}

/// Only the last one is kept: they are large.
const SizePrediction& RateControl::prediction(double thinned)
{
    if (!m_prediction || m_predictionThinned != thinned)
        m_prediction.emplace(m_recording, leavesOut(thinned));
    m_predictionThinned = thinned;
    return *m_prediction;
}

/// As many as an attempt has the time for, unless the means say otherwise.
std::int64_t RateControl::passes(const Means& means)
{
    return means.passes.value_or(
        std::clamp(passedPixels / prediction(means.thinned).pixelCount(), leastPasses, mostPasses));
}

/// The size that a file would have.
double RateControl::predicted(const Means& means)
{
    const std::pair key(means.colors, means.thinned);
    auto known = m_roughSizes.find(key);
    if (known == m_roughSizes.end())
        known
            = m_roughSizes
                  .emplace(key, prediction(means.thinned).roughSize(roughTable(means.colors), m_execution.parallelism))
                  .first;
    return m_correction * known->second;
}

/// Lets predictions be about right near these means.
void RateControl::correct(const Means& means)
{
    m_correction
        = prediction(means.thinned).correction(roughTable(means.colors), passes(means), m_execution.parallelism);
}

/// Makes a file; keeps it if it is the best so far.
/// @param spareBytes  what tables of single pictures may add
RateControl::Made RateControl::attempt(const Means& means, double spareBytes)
{
    const ClipPlan plan{.table = table(means.colors),
        .leavesOut = leavesOut(means.thinned),
        .maxColors = means.colors,
        .spareBytes = spareBytes,
        .passes = passes(means)};
    const auto pictures = std::ranges::count(plan.leavesOut, false);
    const std::int64_t number = ++m_attemptCount;
    const auto report = [&](std::int64_t done) {
        if (m_execution.progress)
            m_execution.progress(
                {.attempt = number, .colors = means.colors, .framesDone = done, .frameCount = pictures});
    };
    report(0);
    const std::int64_t limit
        = m_best ? std::max(m_best->byteCount, m_bounds.targetBytes) : std::numeric_limits<std::int64_t>::max();
    ClipAttempt made
        = ClipAttempt::make(m_recording, plan, m_execution.parallelism, {.byteCount = limit, .stop = {}}, report);
    const double share
        = static_cast<double>(made.madePixels) / static_cast<double>(prediction(means.thinned).pixelCount());
    if (made.ownTableBytes == 0)
        m_correction *= static_cast<double>(made.byteCount) / share / predicted(means);
    const Made result{.byteCount = made.byteCount, .ownTableBytes = made.ownTableBytes};
    if (made.isWhole && (!m_best || isBetter(made, *m_best)))
        m_best = std::move(made);
    return result;
}

/// One that fits is better than one that does not, then one with less error; if none fits, the smaller one.
bool RateControl::isBetter(const ClipAttempt& a, const ClipAttempt& b) const
{
    const bool aFits = a.byteCount <= m_bounds.targetBytes;
    if (aFits != (b.byteCount <= m_bounds.targetBytes))
        return aFits;
    return aFits ? a.errorTicks < b.errorTicks : a.byteCount < b.byteCount;
}

} // namespace quillbox
