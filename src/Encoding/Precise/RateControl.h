#pragma once

#include "Encoding/GIFOptimizer.h"
#include "Encoding/Precise/ClipAttempt.h"
#include "Encoding/Precise/ColorSteps.h"
#include "Encoding/Precise/DistinctFrames.h"
#include "Encoding/Precise/SizePrediction.h"

#include <cstdint>
#include <map>
#include <optional>
#include <vector>

namespace quillbox {

/// Finds what to give up so that a recording fits a budget at its size: colours as long as that hardly shows, then
/// pictures, then more colours. Sizes are predicted; what seems right is made, and once more where it was not. One
/// thread at a time.
class RateControl {
public:
    struct Bounds {
        std::int64_t targetBytes = 0;
        std::int64_t maxColors = 256; ///< 2…256
    };

    /// @param recording, execution  outlive the work.
    /// @param attempts  made before, at another size
    RateControl(const DistinctFrames::Recording& recording, Bounds bounds, const GIFOptimizer::Execution& execution,
        std::int64_t attempts);

    /// Ends with the best file that the budget allows. @return whether it fits
    bool run();
    /// Takes the strongest means at once. @return whether the file fits
    bool giveUpMost();

    /// The best file so far. @pre `run` or `giveUpMost` was called.
    [[nodiscard]] const ClipAttempt& best() const { return *m_best; }
    /// Whether that must do.
    [[nodiscard]] bool isEnough() const { return m_best && m_execution.finishNow.stop_requested(); }
    [[nodiscard]] std::int64_t attemptCount() const { return m_attemptCount; }

    /// The table that would be global if it had so many colours.
    [[nodiscard]] const std::vector<RGBColor>& table(std::int64_t colors)
    {
        return table(colors, m_execution.parallelism);
    }

private:
    /// What a plan is made of.
    struct Means {
        std::int64_t colors = 256;
        double thinned = 0;                   ///< share of the pictures that may be left out
        std::optional<std::int64_t> passes{}; ///< of the search for codes; none: the usual ones
    };
    /// What an attempt came to, as `ClipAttempt`.
    struct Made {
        std::int64_t byteCount = 0;
        std::int64_t ownTableBytes = 0;
    };

    [[nodiscard]] const std::vector<RGBColor>& table(std::int64_t colors, Parallelism parallelism);
    [[nodiscard]] const std::vector<RGBColor>& roughTable(std::int64_t colors);
    [[nodiscard]] double aimed() const;
    [[nodiscard]] bool fits() const { return m_best && m_best->byteCount <= m_bounds.targetBytes; }
    [[nodiscard]] bool isBetter(const ClipAttempt& a, const ClipAttempt& b) const;

    [[nodiscard]] double errorOf(std::int64_t colors);
    [[nodiscard]] std::int64_t colorsFor(double error);
    [[nodiscard]] std::int64_t leastColors();
    [[nodiscard]] std::optional<double> leastThinning(std::int64_t colors);
    void prepare();
    bool keepAll();
    bool giveUpMore();
    [[nodiscard]] std::int64_t promisedColors(double thinned, std::int64_t least, std::int64_t most, int trials);
    bool fillBudget(double thinned, std::int64_t least, std::int64_t most);

    [[nodiscard]] std::vector<bool> leavesOut(double thinned) const;
    [[nodiscard]] const SizePrediction& prediction(double thinned);
    [[nodiscard]] std::int64_t passes(const Means& means);
    [[nodiscard]] double predicted(const Means& means);
    void correct(const Means& means);
    Made attempt(const Means& means, double spareBytes = 0);

    const DistinctFrames::Recording& m_recording;
    Bounds m_bounds;
    const GIFOptimizer::Execution& m_execution;
    std::vector<std::size_t> m_thinningOrder;
    std::map<std::int64_t, std::vector<RGBColor>> m_tables; ///< made so far, by size asked for
    std::map<std::int64_t, std::vector<RGBColor>> m_roughTables;
    std::optional<SizePrediction> m_prediction;
    double m_predictionThinned = 0;                                 ///< the share left out that it is for
    std::map<std::pair<std::int64_t, double>, double> m_roughSizes; ///< by colours and share left out
    double m_correction;                                            ///< of rough sizes
    std::int64_t m_attemptCount;
    std::optional<ClipAttempt> m_best;
};

} // namespace quillbox
