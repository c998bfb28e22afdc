#include "Encoding/Precise/ClipAttempt.h"

#include "Encoding/LZW.h"
#include "Encoding/OrderedPipeline.h"
#include "Encoding/Precise/Codes/LZWSearch.h"
#include "Encoding/Precise/Colors/NearestColors.h"
#include "Encoding/Precise/Colors/ScreenPalette.h"
#include "Encoding/Precise/PictureDelays.h"
#include "Encoding/Precise/ShownScreen.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <utility>

namespace quillbox {
namespace {

constexpr std::int64_t mostWaiting = 4'000'000; // pixels mapped and not yet compressed
constexpr double gainPerByte = 150;             // error that a byte must save for a picture to get its own table
constexpr double atOnce = 0.25;                 // of the bytes for tables of single pictures: the rest comes with time

/// A picture that is mapped and waits to be compressed.
struct Job {
    PictureArea area;
    ShownScreen::Mapping mapping;
    std::vector<RGBColor> localTable; ///< empty for the global one
    std::int64_t delayCentiseconds = 0;
    std::int64_t ownTableBytes = 0; ///< that tables of single pictures cost up to here, this one's included
};

/// Maps a recording's pictures in order, each with the table that suits it.
class Mapper {
public:
    Mapper(const DistinctFrames::Recording& recording, const ClipPlan& plan)
        : m_recording(recording)
        , m_plan(plan)
        , m_screen(recording.size)
        , m_global(plan.table)
    {
        std::vector<std::int64_t> ticks;
        for (std::size_t i = 0; i < recording.pictures.size(); ++i) {
            if (!plan.leavesOut[i])
                ticks.push_back(recording.pictures[i].tick);
        }
        m_delays = PictureDelays::of(ticks, recording.frameCount, recording.sourceFPS);
    }

    /// The next picture that is shown; none after the last. @pre it has not returned none before.
    [[nodiscard]] std::optional<Job> next()
    {
        std::optional<Job> job;
        while (!job && m_next < m_recording.pictures.size()) {
            const auto& picture = m_recording.pictures[m_next];
            m_screen.record(picture);
            if (!m_plan.leavesOut[m_next]) {
                job = mapped(picture);
                ++m_shown;
            }
            ++m_next;
            const std::int64_t end
                = m_next < m_recording.pictures.size() ? m_recording.pictures[m_next].tick : m_recording.frameCount;
            m_screen.pass(end - picture.tick);
        }
        return job;
    }

    [[nodiscard]] double errorTicks() const { return m_screen.errorTicks(); }
    [[nodiscard]] std::int64_t colorCount() const { return m_colorCount; }

private:
    [[nodiscard]] Job mapped(const DistinctFrames::Picture& picture)
    {
        Job job;
        job.area = m_screen.changedArea();
        job.delayCentiseconds = m_delays[static_cast<std::size_t>(m_shown)];
        job.mapping = m_screen.mapping(m_global);
        if (job.mapping.error > 0 && m_plan.spareBytes > 0)
            tryLocalTable(job, picture);
        job.ownTableBytes = m_ownTableBytes;
        m_colorCount = std::max(m_colorCount, std::ssize(job.localTable));
        m_screen.show(job.mapping, job.localTable.empty() ? m_plan.table : job.localTable);
        return job;
    }

    void tryLocalTable(Job& job, const DistinctFrames::Picture& picture)
    {
        std::vector<RGBColor> table = ScreenPalette::makeQuickly(
            m_screen.changedColors().entries(), std::min<std::int64_t>(m_plan.maxColors, 255));
        NearestColors nearest(table);
        ShownScreen::Mapping mapping = m_screen.mapping(nearest);
        const std::int64_t tableBytes = 3LL << GIFEncoder::colorTableBits(std::ssize(table));
        const std::int64_t more = roughSize(mapping) + tableBytes - roughSize(job.mapping);
        // How long a changed pixel is shown, on average.
        const double ticks = static_cast<double>(picture.pixelTicks) / static_cast<double>(picture.changedPixels);
        const double gain = static_cast<double>(job.mapping.error - mapping.error) * ticks;
        const double passed = static_cast<double>(picture.tick) / static_cast<double>(m_recording.frameCount);
        const double spare = m_plan.spareBytes * (atOnce + (1 - atOnce) * passed);
        if (gain <= gainPerByte * static_cast<double>(more) || static_cast<double>(m_ownTableBytes + more) > spare)
            return;
        m_ownTableBytes += more;
        job.mapping = std::move(mapping);
        job.localTable = std::move(table);
    }

    /// Bytes of the picture's codes if every pixel is transparent that may be.
    [[nodiscard]] std::int64_t roughSize(const ShownScreen::Mapping& mapping)
    {
        std::array<bool, 256> isTaken{};
        for (std::size_t i = 0; i < mapping.indices.size(); ++i) {
            if (mapping.freedoms[i] == LZWSearch::changed)
                isTaken[mapping.indices[i]] = true;
        }
        const auto* const free = std::ranges::find(isTaken, false);
        m_scratch.assign(mapping.indices.begin(), mapping.indices.end());
        if (free != isTaken.end()) {
            for (std::size_t i = 0; i < m_scratch.size(); ++i) {
                if (mapping.freedoms[i] != LZWSearch::changed)
                    m_scratch[i] = static_cast<std::uint8_t>(free - isTaken.begin());
            }
        }
        const auto largest = *std::ranges::max_element(m_scratch);
        return std::ssize(m_compressor.encode(m_scratch, std::max(2, GIFEncoder::colorTableBits(largest + 1))));
    }

    const DistinctFrames::Recording& m_recording;
    const ClipPlan& m_plan;
    ShownScreen m_screen;
    NearestColors m_global;
    std::vector<std::int64_t> m_delays; ///< of the pictures shown
    std::size_t m_next = 0;             ///< picture of the recording
    std::int64_t m_shown = 0;           ///< pictures shown so far
    std::int64_t m_ownTableBytes = 0;   ///< that tables of single pictures cost so far
    std::int64_t m_colorCount = 0;      ///< of the largest local table
    LZW::Encoder m_compressor;
    Bytes m_scratch;
};

Bytes compressed(const Job& job, LZWSearch::Search& search, LZWSearch::Effort effort)
{
    LZWSearch::Codes codes = search.best(
        {.width = job.area.width, .indices = job.mapping.indices, .freedoms = job.mapping.freedoms}, effort);
    return DeltaGIF::part({.left = job.area.left,
        .top = job.area.top,
        .width = job.area.width,
        .height = job.area.height,
        .localColorTable = job.localTable,
        .codes = std::move(codes),
        .delayCentiseconds = job.delayCentiseconds});
}

} // namespace

ClipAttempt ClipAttempt::make(const DistinctFrames::Recording& recording, const ClipPlan& plan, Parallelism parallelism,
    const Limits& limits, const Report& report)
{
    precondition(plan.leavesOut.size() == recording.pictures.size() && !plan.leavesOut.front(),
        "every picture is shown or not, and the first one is");
    ClipAttempt attempt;
    attempt.screen = {.width = recording.size.width, .height = recording.size.height, .colorTable = plan.table};
    attempt.byteCount = DeltaGIF::fileSize(attempt.screen, {});
    Mapper mapper(recording, plan);
    const std::int64_t count = std::ranges::count(plan.leavesOut, false);
    std::vector<LZWSearch::Search> searches(static_cast<std::size_t>(workerCount(parallelism, count)));
    const auto compress = [&](const Job& job, int worker) {
        return compressed(job, searches[static_cast<std::size_t>(worker)], {.passes = plan.passes});
    };
    const auto take = [&](const Job& job, Bytes&& part) {
        attempt.byteCount += std::ssize(part);
        attempt.madePixels += job.area.pixelCount();
        attempt.ownTableBytes = job.ownTableBytes;
        attempt.parts.push_back(std::move(part));
        if (report)
            report(std::ssize(attempt.parts));
        attempt.isWhole = std::ssize(attempt.parts) == count;
        const bool goesOn = attempt.byteCount <= limits.byteCount && !limits.stop.stop_requested();
        return attempt.isWhole || goesOn;
    };
    OrderedPipeline<Job, Bytes>({.make = [&mapper] { return mapper.next(); },
                                    .size = [](const Job& job) { return job.area.pixelCount(); },
                                    .work = compress,
                                    .takesFurther = take},
        mostWaiting)
        .run(parallelism, count);
    attempt.errorTicks = mapper.errorTicks();
    attempt.colorCount = std::max(std::ssize(plan.table), mapper.colorCount());
    return attempt;
}

} // namespace quillbox
