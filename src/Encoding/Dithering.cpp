#include "Encoding/Dithering.h"

#include "Encoding/Multiversion.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <type_traits>
#include <utility>

// Error diffusion is serial: a pixel needs the error of its left neighbour and of three pixels above. But row y + 1 may
// follow two pixels behind row y, so a band of rows is worked on at once, one vector lane a row, each lane two pixels
// behind the lane above it:
//
//     step t:   lane 0 at x = t,  lane 1 at x = t − 2,  …,  lane j at x = t − 2j
//
// What a lane hands down to pixel x of the row below is complete once the lane has visited x + 1; that is at step
// t − 1 exactly when the lane below visits x at step t. So errors pass from lane to lane in registers, and only the
// last lane writes a row of errors, for the first lane of the next band.
//
// Range: the shares of one pixel add up to at most its error, so a row's largest value V(y) obeys
// V(y) ≤ 255 + 7/16 V(y) + 9/16 V(y−1), hence V(y) ≤ V(y−1) + 454. Within `maxHeight` rows seven times that fits
// 32 bits. It is only that large when the palette lies far from the picture; as a rule an error stays within a few
// hundred, so a band is first tried with 16-bit lanes, which refuse errors above `maxNarrowError`. The first error
// above it is noticed: it comes from incoming errors within the limit and so exceeds it by less than half. What follows
// may wrap around (this file is compiled for that) and is thrown away.

namespace quillbox {
namespace {

constexpr std::int64_t maxHeight = 500'000;
static_assert((maxHeight * 454 + 255) * 8 < std::int64_t{1} << 31U, "eight times the largest error fits 32 bits");
constexpr std::int16_t maxNarrowError = 4095;
static_assert(maxNarrowError * 8 < 1 << 15, "eight times the largest error fits 16 bits");
static_assert(std::has_single_bit(maxNarrowError + 1U), "the bits of all errors together tell if one was larger");

constexpr int vectorBytes = 32;
constexpr int vectorsAtOnce = 2; // two independent chains hide each other's latency
constexpr int lag = 2;           // pixels by which a row trails the one above
constexpr int stepsAtOnce = 8;
constexpr int prefetchBytes = 64; // how far ahead a row is fetched: processors follow fewer rows by themselves

/// How many rows are worked on at once when a lane holds a `Lane`.
template <typename Lane> constexpr int rowsAtOnce = vectorBytes / static_cast<int>(sizeof(Lane)) * vectorsAtOnce;

constexpr int bandRows = rowsAtOnce<std::int16_t>; // the unit of reuse
static_assert(bandRows == RGBAFrame::rowsPerBand);

template <typename Lane> struct VectorOf {
    using Type __attribute__((vector_size(vectorBytes))) = Lane;
};
template <typename Lane> using Lanes = typename VectorOf<Lane>::Type;

/// One value a row.
template <typename Lane> using Band = std::array<Lanes<Lane>, vectorsAtOnce>;

/// Some consecutive rows of a picture, and where their indices go.
struct RowsTask {
    const std::uint8_t* pixels;          ///< first row, RGBA
    std::uint8_t* indices;               ///< first row
    std::int64_t width;                  ///< pixels
    int rows;                            ///< 1…rowsAtOnce
    std::array<std::int32_t*, 3> errors; ///< one row of each channel: read as incoming, overwritten as outgoing
    const std::uint32_t* nearest;        ///< by 15-bit key: red in the low byte, green, blue, and the palette index
};

/// The values of one channel that travel along the rows.
template <typename Lane> struct ChannelState {
    Band<Lane> right{};      ///< share for the pixel at hand, from its left neighbour
    Band<Lane> below{};      ///< what the pixel below the last one has received so far
    Band<Lane> belowRight{}; ///< what the pixel below the one at hand has received so far
    Band<Lane> complete{};   ///< what the pixel below the last but one received in all
};

template <typename Lane> [[gnu::always_inline]] inline Lanes<Lane> splat(Lane value)
{
    return Lanes<Lane>{} + value;
}

template <typename Lane> [[gnu::always_inline]] inline Lanes<Lane> clamped(Lanes<Lane> value, Lane lowest, Lane highest)
{
    const Lanes<Lane> low = splat<Lane>(lowest);
    const Lanes<Lane> high = splat<Lane>(highest);
    value = value < low ? low : value;
    return value > high ? high : value;
}

/// Moves each lane's value to the lane below it; the first lane gets `incoming`.
[[gnu::always_inline]] inline Band<std::int32_t> handedDown(const Band<std::int32_t>& band, std::int32_t incoming)
{
    const auto first = splat(incoming);
    return {__builtin_shufflevector(band[0], first, 8, 0, 1, 2, 3, 4, 5, 6),
        __builtin_shufflevector(band[0], band[1], 7, 8, 9, 10, 11, 12, 13, 14)};
}
[[gnu::always_inline]] inline Band<std::int16_t> handedDown(const Band<std::int16_t>& band, std::int32_t incoming)
{
    const auto first = splat(static_cast<std::int16_t>(incoming));
    return {__builtin_shufflevector(band[0], first, 16, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14),
        __builtin_shufflevector(band[0], band[1], 15, 16, 17, 18, 19, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30)};
}

/// Packed colours: red in the low byte, then green and blue.
using Colors __attribute__((vector_size(vectorBytes))) = std::uint32_t;
using ColorsAnywhere __attribute__((vector_size(vectorBytes), aligned(1), may_alias)) = std::uint32_t;
constexpr int colorsAtOnce = vectorBytes / 4;

/// Red, green and blue of one packed colour a lane.
[[gnu::always_inline]] inline std::array<Lanes<std::int32_t>, 3> unpacked(const Colors* colors, std::int32_t /*lane*/)
{
    const auto color = std::bit_cast<Lanes<std::int32_t>>(colors[0]);
    return {color & 255, (color >> 8) & 255, (color >> 16) & 255};
}
[[gnu::always_inline]] inline std::array<Lanes<std::int16_t>, 3> unpacked(const Colors* colors, std::int16_t /*lane*/)
{
    const auto first = std::bit_cast<Lanes<std::int16_t>>(colors[0]);
    const auto second = std::bit_cast<Lanes<std::int16_t>>(colors[1]);
    const auto redGreen
        = __builtin_shufflevector(first, second, 0, 2, 4, 6, 8, 10, 12, 14, 16, 18, 20, 22, 24, 26, 28, 30);
    const auto blue = __builtin_shufflevector(first, second, 1, 3, 5, 7, 9, 11, 13, 15, 17, 19, 21, 23, 25, 27, 29, 31);
    return {redGreen & 255, (redGreen >> 8) & 255, blue & 255};
}

/// Splits the errors of the pixels at hand among their neighbours, each share truncated toward zero.
/// @param sign  Of each error: 0, or −1 for a negative one.
template <typename Lane>
[[gnu::always_inline]] inline void spread(
    ChannelState<Lane>& state, std::size_t vector, Lanes<Lane> error, Lanes<Lane> sign)
{
    const Lanes<Lane> doubled = error + error;
    const Lanes<Lane> quadrupled = doubled + doubled;
    // (x + 15) >> 4 for a negative x, x >> 4 otherwise: all shares have the error's sign
    const Lanes<Lane> rounded = error + (sign & 15);
    state.right[vector] = (quadrupled + doubled + rounded) >> 4;
    state.complete[vector] = state.below[vector] + ((doubled + rounded) >> 4);
    state.below[vector] = state.belowRight[vector] + ((quadrupled + rounded) >> 4);
    state.belowRight[vector] = rounded >> 4;
}

/// One packed colour a row. Made of whole vectors: an array of numbers would be copied in smaller pieces (g++ 12),
/// which are slow to load again as a vector.
template <typename Lane> using ColorColumn = std::array<Colors, std::size_t{rowsAtOnce<Lane>} / colorsAtOnce>;

/// A column for each of `stepsAtOnce` steps.
template <typename Lane> using ColorBlock = std::array<ColorColumn<Lane>, stepsAtOnce>;

static_assert(stepsAtOnce == colorsAtOnce, "a vector also holds one row's colours of a block");

/// Swaps the rows and columns of an 8 × 8 square.
[[gnu::always_inline]] inline void transpose(std::array<Colors, 8>& square)
{
    std::array<Colors, 8> pairs;
    for (std::size_t i = 0; i < 8; i += 2) {
        pairs[i] = __builtin_shufflevector(square[i], square[i + 1], 0, 8, 1, 9, 4, 12, 5, 13);
        pairs[i + 1] = __builtin_shufflevector(square[i], square[i + 1], 2, 10, 3, 11, 6, 14, 7, 15);
    }
    std::array<Colors, 8> fours;
    for (std::size_t i = 0; i < 8; i += 4) {
        for (std::size_t k = 0; k < 2; ++k) {
            fours[i + 2 * k] = __builtin_shufflevector(pairs[i + k], pairs[i + k + 2], 0, 1, 8, 9, 4, 5, 12, 13);
            fours[i + 2 * k + 1] = __builtin_shufflevector(pairs[i + k], pairs[i + k + 2], 2, 3, 10, 11, 6, 7, 14, 15);
        }
    }
    for (std::size_t i = 0; i < 4; ++i) {
        square[i] = __builtin_shufflevector(fours[i], fours[i + 4], 0, 1, 2, 3, 8, 9, 10, 11);
        square[i + 4] = __builtin_shufflevector(fours[i], fours[i + 4], 4, 5, 6, 7, 12, 13, 14, 15);
    }
}

/// Whether all rows of a full band visit pixels of theirs in all of the steps from `firstStep` on.
template <typename Lane> [[gnu::always_inline]] inline bool allInside(const RowsTask& task, std::int64_t firstStep)
{
    return task.rows == rowsAtOnce<Lane> && firstStep >= lag * (rowsAtOnce<Lane> - 1)
        && firstStep + stepsAtOnce <= task.width;
}

/// The steps of a block, counted from 0, at which a row is at pixels of its own; none if `end` is not above `begin`.
struct StepSpan {
    std::int64_t begin;
    std::int64_t end;
};

StepSpan stepsInside(const RowsTask& task, std::int64_t row, std::int64_t firstStep)
{
    const std::int64_t x = firstStep - lag * row;
    if (row >= task.rows)
        return {0, 0};
    return {std::max<std::int64_t>(-x, 0), std::min<std::int64_t>(task.width - x, stepsAtOnce)};
}

/// The pixels that a row visits in a block; zero outside the row.
std::array<std::uint32_t, stepsAtOnce> pixelsAtEdge(const RowsTask& task, std::int64_t row, std::int64_t firstStep)
{
    std::array<std::uint32_t, stepsAtOnce> pixels{};
    const auto [begin, end] = stepsInside(task, row, firstStep);
    if (begin < end)
        std::memcpy(&pixels[static_cast<std::size_t>(begin)],
            task.pixels + 4 * (row * (task.width - lag) + firstStep + begin),
            static_cast<std::size_t>(4 * (end - begin)));
    return pixels;
}

/// Writes a row's indices of a block, as far as they are inside the row.
void storeAtEdge(const RowsTask& task, std::int64_t row, std::int64_t firstStep,
    const std::array<std::uint8_t, stepsAtOnce>& indices)
{
    const auto [begin, end] = stepsInside(task, row, firstStep);
    if (begin < end)
        std::memcpy(task.indices + row * (task.width - lag) + firstStep + begin,
            &indices[static_cast<std::size_t>(begin)], static_cast<std::size_t>(end - begin));
}

/// Gathers the pixels that the rows visit from `firstStep` on; zero outside the rows.
/// @param isInside  Whether no row is outside.
template <typename Lane>
[[gnu::always_inline]] inline void loadPixels(
    const RowsTask& task, std::int64_t firstStep, bool isInside, ColorBlock<Lane>& pixels)
{
    const std::uint8_t* source = task.pixels + 4 * firstStep;
    const std::int64_t rowAndLag = 4 * (task.width - lag);
    for (std::size_t group = 0; group < pixels[0].size(); ++group) {
        std::array<Colors, colorsAtOnce> square;
        if (isInside) {
            for (Colors& colors : square) {
                colors = *reinterpret_cast<const ColorsAnywhere*>(source);
                __builtin_prefetch(source + prefetchBytes); // a hint, harmless behind the last row as well
                source += rowAndLag;
            }
        } else {
            for (std::size_t i = 0; i < square.size(); ++i)
                square[i] = std::bit_cast<Colors>(
                    pixelsAtEdge(task, static_cast<std::int64_t>(colorsAtOnce * group + i), firstStep));
        }
        transpose(square);
        for (std::size_t step = 0; step < stepsAtOnce; ++step)
            pixels[step][group] = square[step];
    }
}

/// Writes the indices of the colours that were chosen for the pixels of `loadPixels`: bytes are regrouped in registers,
/// a row's steps become one store.
template <typename Lane>
[[gnu::always_inline]] inline void storeIndices(
    const RowsTask& task, std::int64_t firstStep, bool isInside, const ColorBlock<Lane>& chosen)
{
    constexpr std::size_t groups = std::tuple_size_v<ColorColumn<Lane>>;
    // One byte a row: row r in the low byte of lane r, then row r + 8 and so on.
    std::array<Colors, colorsAtOnce> square{};
    for (std::size_t step = 0; step < stepsAtOnce; ++step) {
        for (std::size_t group = 0; group < groups; ++group)
            square[step] |= chosen[step][group] >> 24U << 8 * group;
    }
    transpose(square); // now a vector holds all steps of the rows r, r + 8 and so on
    for (std::size_t i = 0; i < square.size(); ++i) {
        using Indices = std::uint8_t __attribute__((vector_size(vectorBytes)));
        const auto bytes = std::bit_cast<Indices>(square[i]);
        const auto fours = std::bit_cast<Colors>(__builtin_shufflevector(bytes, bytes, 0, 4, 8, 12, 1, 5, 9, 13, 2, 6,
            10, 14, 3, 7, 11, 15, 16, 20, 24, 28, 17, 21, 25, 29, 18, 22, 26, 30, 19, 23, 27, 31));
        const auto eights = std::bit_cast<std::array<std::array<std::uint8_t, stepsAtOnce>, 4>>(
            __builtin_shufflevector(fours, fours, 0, 4, 1, 5, 2, 6, 3, 7));
        for (std::size_t group = 0; group < groups; ++group) {
            const auto row = static_cast<std::int64_t>(colorsAtOnce * group + i);
            if (isInside)
                std::memcpy(task.indices + row * (task.width - lag) + firstStep, &eights[group], stepsAtOnce);
            else
                storeAtEdge(task, row, firstStep, eights[group]);
        }
    }
}

/// The rows that are at pixels of theirs at one step: none if `last` is before `first`.
struct RowSpan {
    int first;
    int last;
};

[[gnu::always_inline]] inline RowSpan rowsInside(const RowsTask& task, std::int64_t t)
{
    const std::int64_t first = t < task.width ? 0 : (t - task.width) / lag + 1;
    const std::int64_t last = t / lag;
    return {.first = static_cast<int>(std::min<std::int64_t>(first, task.rows)),
        .last = static_cast<int>(std::min<std::int64_t>(last, task.rows - 1))};
}

/// The number of each lane's row within a vector.
template <typename Lane, int... lane>
[[gnu::always_inline]] inline Lanes<Lane> countedLanes(std::integer_sequence<int, lane...> /*lanes*/)
{
    return Lanes<Lane>{lane...};
}

/// All ones in the lanes whose row is one of `rows`.
template <typename Lane> [[gnu::always_inline]] inline Lanes<Lane> maskOf(RowSpan rows, std::size_t vector)
{
    constexpr int lanes = rowsAtOnce<Lane> / vectorsAtOnce;
    const Lanes<Lane> row = countedLanes<Lane>(std::make_integer_sequence<int, lanes>{})
        + static_cast<Lane>(static_cast<int>(vector) * lanes);
    return (row >= static_cast<Lane>(rows.first)) & (row <= static_cast<Lane>(rows.last));
}

/// @return whether all errors stayed in the range of `Lane`; if not, the output is worthless.
// NOLINTNEXTLINE(readability-function-cognitive-complexity): one loop over inlined steps; split, it would not inline
template <typename Lane> [[gnu::always_inline]] inline bool ditherRows(const RowsTask& task)
{
    constexpr bool isNarrow = std::is_same_v<Lane, std::int16_t>;
    constexpr int rows = rowsAtOnce<Lane>;
    constexpr std::size_t lanes = rows / vectorsAtOnce;
    constexpr std::int64_t skew = lag * (rows - 1); // pixels by which the last row trails the first

    std::array<ChannelState<Lane>, 3> state{};
    Lanes<Lane> outOfRange{};
    const std::int64_t steps = task.width + skew + 1; // one more: the last share of the last row's last pixel
    for (std::int64_t firstStep = 0; firstStep < steps; firstStep += stepsAtOnce) {
        alignas(64) ColorBlock<Lane> pixels;
        alignas(64) ColorBlock<Lane> chosen;
        const bool isInside = allInside<Lane>(task, firstStep);
        loadPixels<Lane>(task, firstStep, isInside, pixels);

        for (std::size_t step = 0; step < stepsAtOnce; ++step) {
            const std::int64_t t = firstStep + static_cast<std::int64_t>(step);
            std::array<Band<Lane>, 3> value;
            for (std::size_t channel = 0; channel < 3; ++channel)
                value[channel] = handedDown(state[channel].complete, t < task.width ? task.errors[channel][t] : 0);

            alignas(vectorBytes) std::array<std::make_unsigned_t<Lane>, std::size_t{rows}> keys;
            for (std::size_t v = 0; v < vectorsAtOnce; ++v) {
                const auto pixel = unpacked(&pixels[step][v * lanes / colorsAtOnce], Lane{});
                for (std::size_t channel = 0; channel < 3; ++channel)
                    value[channel][v] += state[channel].right[v] + pixel[channel];
                const Lanes<Lane> key = (clamped<Lane>(value[0][v], 0, 255) & 0xF8) << 7
                    | (clamped<Lane>(value[1][v], 0, 255) & 0xF8) << 2 | clamped<Lane>(value[2][v], 0, 255) >> 3;
                std::memcpy(&keys[v * lanes], &key, sizeof key);
            }
            for (std::size_t group = 0; group < chosen[step].size(); ++group) {
                const auto nearestOf = [&](std::size_t i) {
                    return task.nearest[keys[colorsAtOnce * group + i]];
                };
                chosen[step][group] = Colors{nearestOf(0), nearestOf(1), nearestOf(2), nearestOf(3), nearestOf(4),
                    nearestOf(5), nearestOf(6), nearestOf(7)};
            }
            const RowSpan inside = rowsInside(task, t);
            for (std::size_t v = 0; v < vectorsAtOnce; ++v) {
                const auto color = unpacked(&chosen[step][v * lanes / colorsAtOnce], Lane{});
                for (std::size_t channel = 0; channel < 3; ++channel) {
                    Lanes<Lane> error = value[channel][v] - color[channel];
                    if (!isInside) // a row spreads nothing while it is outside the picture
                        error &= maskOf<Lane>(inside, v);
                    const Lanes<Lane> sign = error >> (8 * sizeof(Lane) - 1);
                    if constexpr (isNarrow)
                        outOfRange |= error ^ sign;
                    spread(state[channel], v, error, sign);
                }
            }
            // The last row trails the first, so the incoming value was read long before it is overwritten.
            const std::int64_t finished = t - skew - 1;
            if (finished >= 0 && finished < task.width) {
                for (std::size_t channel = 0; channel < 3; ++channel)
                    task.errors[channel][finished] = state[channel].complete[vectorsAtOnce - 1][lanes - 1];
            }
        }
        storeIndices<Lane>(task, firstStep, isInside, chosen);
    }
    bool inRange = true;
    for (std::size_t lane = 0; lane < lanes; ++lane)
        inRange = inRange && outOfRange[lane] <= maxNarrowError; // wide ones stay 0
    return inRange;
}

QUILLBOX_MULTIVERSION bool ditherNarrow(const RowsTask& task)
{
    return ditherRows<std::int16_t>(task);
}
QUILLBOX_MULTIVERSION void ditherWide(const RowsTask& task)
{
    (void)ditherRows<std::int32_t>(task);
} // always in range

bool isSameBand(const RGBAFrame& a, const RGBAFrame& b, std::int64_t band)
{
    return a.sharesBand(b, band) || a.band(band) == b.band(band);
}

bool fitsNarrow(const std::array<std::vector<std::int32_t>, 3>& errors)
{
    std::int32_t largest = 0;
    for (const auto& channel : errors) {
        for (const std::int32_t error : channel)
            largest = std::max(largest, error < 0 ? -error : error);
    }
    return largest <= maxNarrowError;
}

} // namespace

void Ditherer::use(const NearestColorLUT& lut)
{
    m_previous.reset();
    m_nearest.resize(Color15::keyCount);
    m_hasColors = !lut.palette().empty();
    if (!m_hasColors)
        return;
    std::ranges::transform(lut.table(), m_nearest.begin(), [&lut](std::uint8_t index) {
        const RGBColor color = lut.palette()[index];
        return std::uint32_t{color.r} | std::uint32_t{color.g} << 8U | std::uint32_t{color.b} << 16U
            | std::uint32_t{index} << 24U;
    });
}

void Ditherer::dither(const RGBAFrame& frame, Bytes& indices)
{
    indices.resize(static_cast<std::size_t>(frame.pixelCount()));
    if (indices.empty())
        return;
    precondition(m_hasColors, "a picture is dithered with at least one colour");
    precondition(frame.height() <= maxHeight, "dithering errors fit 32 bits");

    if (m_previous && (m_previous->width() != frame.width() || m_previous->height() != frame.height()))
        m_previous.reset();
    ditherBands(frame, indices);
    m_previous = frame;
    m_previousIndices = indices;
}

void Ditherer::ditherBands(const RGBAFrame& frame, Bytes& indices)
{
    const auto width = static_cast<std::size_t>(frame.width());
    const auto height = static_cast<std::size_t>(frame.height());
    const std::size_t bands = (height + bandRows - 1) / bandRows;
    m_incoming.resize(bands);
    for (auto& channel : m_errors)
        channel.assign(width, 0);

    for (std::size_t band = 0; band < bands; ++band) {
        const std::size_t firstPixel = band * bandRows * width;
        const std::size_t rows = std::min<std::size_t>(bandRows, height - band * bandRows);
        const auto number = static_cast<std::int64_t>(band);
        if (m_previous && m_incoming[band] == m_errors && isSameBand(frame, *m_previous, number)) {
            std::memcpy(&indices[firstPixel], &m_previousIndices[firstPixel], rows * width);
            if (band + 1 < bands)
                m_errors = m_incoming[band + 1];
            continue;
        }
        m_incoming[band] = m_errors;
        const PixelView pixels = frame.band(number);
        ditherBand(pixels.data(), &indices[firstPixel], frame.width(), static_cast<int>(rows), m_incoming[band]);
    }
}

void Ditherer::ditherBand(
    const std::uint8_t* pixels, std::uint8_t* indices, std::int64_t width, int rows, const ErrorRow& incoming)
{
    RowsTask task{.pixels = pixels,
        .indices = indices,
        .width = width,
        .rows = rows,
        .errors = {m_errors[0].data(), m_errors[1].data(), m_errors[2].data()},
        .nearest = m_nearest.data()};
    if (fitsNarrow(incoming)) {
        if (ditherNarrow(task))
            return;
        for (std::size_t channel = 0; channel < 3; ++channel)
            std::ranges::copy(incoming[channel], m_errors[channel].begin());
    }
    for (int row = 0; row < rows; row += rowsAtOnce<std::int32_t>) {
        task.pixels = pixels + 4 * row * width;
        task.indices = indices + row * width;
        task.rows = std::min(rowsAtOnce<std::int32_t>, rows - row);
        ditherWide(task);
    }
}

} // namespace quillbox
