#include "Encoding/Precise/ClipAttempt.h"

#include "Encoding/LZW.h"
#include "Encoding/Precise/Codes/LZWSearch.h"
#include "Encoding/Precise/Colors/NearestColors.h"
#include "Encoding/Precise/Colors/ScreenPalette.h"
#include "Encoding/Precise/PictureDelays.h"
#include "Encoding/Precise/ShownScreen.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace quillbox {
namespace {

constexpr std::int64_t batchPixels = 4'000'000; // mapped and not yet compressed
constexpr double atOnce = 0.25;                 // of the bytes for tables of single pictures: the rest comes with time

/// A picture that is mapped and waits to be compressed.
struct Job {
    PictureArea area;
    ShownScreen::Mapping mapping;
    std::vector<RGBColor> localTable; ///< empty for the global one
    std::int64_t delayCentiseconds = 0;
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

    /// The next pictures, few enough to lie in memory; none after the last.
    [[nodiscard]] std::vector<Job> nextBatch()
    {
        std::vector<Job> jobs;
        for (std::int64_t pixels = 0; m_next < m_recording.pictures.size() && pixels < batchPixels;) {
            const auto& picture = m_recording.pictures[m_next];
            m_screen.record(picture);
            if (!m_plan.leavesOut[m_next]) {
                jobs.push_back(mapped(picture));
                pixels += jobs.back().area.pixelCount();
                ++m_shown;
            }
            ++m_next;
            const std::int64_t end
                = m_next < m_recording.pictures.size() ? m_recording.pictures[m_next].tick : m_recording.frameCount;
            m_screen.pass(end - picture.tick);
        }
        return jobs;
    }

    [[nodiscard]] std::int64_t ownTableBytes() const { return m_ownTableBytes; }
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
        if (gain <= m_plan.gainPerByte * static_cast<double>(more)
            || static_cast<double>(m_ownTableBytes + more) > spare)
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
    std::vector<LZWSearch::Search> searches(static_cast<std::size_t>(workerCount(parallelism, 256)));
    std::vector<Job> jobs = mapper.nextBatch();
    while (!jobs.empty()) {
        const std::size_t done = attempt.parts.size();
        attempt.parts.resize(done + jobs.size());
        std::vector<Job> next;
        // One worker maps the next batch while the others compress this one.
        parallelFor(parallelism, std::ssize(jobs) + 1, [&](std::int64_t item, int worker) {
            if (item == 0) {
                next = mapper.nextBatch();
                return;
            }
            const auto place = static_cast<std::size_t>(item - 1);
            attempt.parts[done + place]
                = compressed(jobs[place], searches[static_cast<std::size_t>(worker)], {.passes = plan.passes});
        });
        for (std::size_t i = done; i < attempt.parts.size(); ++i) {
            attempt.byteCount += std::ssize(attempt.parts[i]);
            attempt.madePixels += jobs[i - done].area.pixelCount();
        }
        if (report)
            report(std::ssize(attempt.parts));
        if (attempt.byteCount > limits.byteCount || limits.stop.stop_requested()) {
            attempt.isWhole = next.empty();
            break;
        }
        jobs = std::move(next);
    }
    attempt.ownTableBytes = mapper.ownTableBytes();
    attempt.errorTicks = mapper.errorTicks();
    attempt.colorCount = std::max(std::ssize(plan.table), mapper.colorCount());
    return attempt;
}

} // namespace quillbox
