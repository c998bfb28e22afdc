#include "Encoding/Dithering.h"

#include "Encoding/Multiversion.h"

#include <algorithm>
#include <cstring>

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
// V(y) ≤ 255 + 7/16 V(y) + 9/16 V(y−1), hence V(y) ≤ V(y−1) + 454; after 65,535 rows that is below 3·10^7, and seven
// times that still fits 32 bits. Taller frames are refused.

namespace quillbox {
namespace {

constexpr std::int64_t largestHeight = 500'000;
static_assert(largestHeight * 454 * 8 < std::int64_t{1} << 31U, "eight times the largest error fits 32 bits");

constexpr int lanesPerVector = 8;
constexpr int vectorsPerBand = 2; // two independent chains hide each other's latency
constexpr int bandRows = lanesPerVector * vectorsPerBand;
constexpr int lag = 2;                     // pixels by which a row trails the one above
constexpr int skew = lag * (bandRows - 1); // pixels by which the last row of a band trails the first
constexpr int stepsAtOnce = 8;

using Lanes = std::int32_t __attribute__((vector_size(lanesPerVector * sizeof(std::int32_t))));
using Band = std::array<Lanes, vectorsPerBand>;

/// One picture's rows of a band, and where the indices go.
struct BandTask {
    const std::uint8_t* pixels;          ///< first row, RGBA
    std::uint8_t* indices;               ///< first row
    std::int64_t width;                  ///< pixels
    int rows;                            ///< 1…bandRows
    std::array<std::int32_t*, 3> errors; ///< one row of each channel: read as incoming, overwritten as outgoing
    const std::uint8_t* table;           ///< nearest palette index by 15-bit key
    const std::uint32_t* palette;        ///< packed colours
};

/// The values of one channel that travel along the rows.
struct ChannelState {
    Band right{};      ///< share for the pixel at hand, from its left neighbour
    Band below{};      ///< what the pixel below the last one has received so far
    Band belowRight{}; ///< what the pixel below the one at hand has received so far
    Band complete{};   ///< what the pixel below the last but one received in all
};

[[gnu::always_inline]] inline Lanes splat(std::int32_t value)
{
    return Lanes{} + value;
}

[[gnu::always_inline]] inline Lanes clampToByte(Lanes value)
{
    value = value > 0 ? value : Lanes{};
    return value < 255 ? value : splat(255);
}

/// Moves each lane's value to the lane below it; the first lane gets `incoming`.
[[gnu::always_inline]] inline Band handedDown(const Band& band, std::int32_t incoming)
{
    const Lanes first = splat(incoming);
    return {__builtin_shufflevector(band[0], first, 8, 0, 1, 2, 3, 4, 5, 6),
        __builtin_shufflevector(band[0], band[1], 7, 8, 9, 10, 11, 12, 13, 14)};
}

/// Splits the errors of the pixels at hand among their neighbours, each share truncated toward zero.
[[gnu::always_inline]] inline void spread(ChannelState& state, int vector, Lanes error)
{
    const Lanes doubled = error + error;
    const Lanes quadrupled = doubled + doubled;
    // (x + 15) >> 4 for a negative x, x >> 4 otherwise: all shares have the error's sign
    const Lanes rounded = error + ((error >> 31) & 15);
    const auto v = static_cast<std::size_t>(vector);
    state.right[v] = (quadrupled + doubled + rounded) >> 4;
    state.complete[v] = state.below[v] + ((doubled + rounded) >> 4);
    state.below[v] = state.belowRight[v] + ((quadrupled + rounded) >> 4);
    state.belowRight[v] = rounded >> 4;
}

/// Gathers the pixels that the lanes visit in `stepsAtOnce` steps from `firstStep` on; zero outside the rows.
[[gnu::always_inline]] inline void loadPixels(
    const BandTask& task, std::int64_t firstStep, std::uint32_t (&pixels)[stepsAtOnce][bandRows])
{
    for (int row = 0; row < bandRows; ++row) {
        const std::int64_t x = firstStep - lag * row;
        const std::int64_t rowStart = row * task.width;
        if (row < task.rows && x >= 0 && x + stepsAtOnce <= task.width) {
            for (int step = 0; step < stepsAtOnce; ++step)
                std::memcpy(&pixels[step][row], task.pixels + 4 * (rowStart + x + step), sizeof(std::uint32_t));
            continue;
        }
        for (int step = 0; step < stepsAtOnce; ++step) {
            pixels[step][row] = 0;
            if (row < task.rows && x + step >= 0 && x + step < task.width)
                std::memcpy(&pixels[step][row], task.pixels + 4 * (rowStart + x + step), sizeof(std::uint32_t));
        }
    }
}

[[gnu::always_inline]] inline void storeIndices(
    const BandTask& task, std::int64_t firstStep, const std::uint8_t (&indices)[stepsAtOnce][bandRows])
{
    for (int row = 0; row < task.rows; ++row) {
        const std::int64_t x = firstStep - lag * row;
        const std::int64_t rowStart = row * task.width;
        const auto begin = static_cast<int>(std::clamp<std::int64_t>(-x, 0, stepsAtOnce));
        const auto end = static_cast<int>(std::clamp<std::int64_t>(task.width - x, 0, stepsAtOnce));
        for (int step = begin; step < end; ++step)
            task.indices[rowStart + x + step] = indices[step][row];
    }
}

QUILLBOX_MULTIVERSION void ditherBand(const BandTask& task)
{
    std::array<ChannelState, 3> state{};
    const Lanes laneNumber{0, 1, 2, 3, 4, 5, 6, 7};
    const std::int64_t steps = task.width + skew + 1; // one more: the last share of the last row's last pixel
    for (std::int64_t firstStep = 0; firstStep < steps; firstStep += stepsAtOnce) {
        alignas(64) std::uint32_t pixels[stepsAtOnce][bandRows];
        alignas(64) std::uint8_t indices[stepsAtOnce][bandRows];
        loadPixels(task, firstStep, pixels);
        // Outside its row a lane must not spread anything; inside the picture no lane is.
        const bool allInside = task.rows == bandRows && firstStep >= skew && firstStep + stepsAtOnce <= task.width;

        for (int step = 0; step < stepsAtOnce; ++step) {
            const std::int64_t t = firstStep + step;
            std::array<Band, 3> value;
            for (std::size_t channel = 0; channel < 3; ++channel)
                value[channel] = handedDown(state[channel].complete, t < task.width ? task.errors[channel][t] : 0);

            alignas(32) std::int32_t keys[bandRows];
            alignas(32) std::uint32_t chosen[bandRows];
            for (std::size_t v = 0; v < vectorsPerBand; ++v) {
                Lanes pixel;
                std::memcpy(&pixel, &pixels[step][v * lanesPerVector], sizeof pixel);
                value[0][v] += state[0].right[v] + (pixel & 255);
                value[1][v] += state[1].right[v] + ((pixel >> 8) & 255);
                value[2][v] += state[2].right[v] + ((pixel >> 16) & 255);
                const Lanes key = (clampToByte(value[0][v]) & 0xF8) << 7 | (clampToByte(value[1][v]) & 0xF8) << 2
                    | clampToByte(value[2][v]) >> 3;
                std::memcpy(&keys[v * lanesPerVector], &key, sizeof key);
            }
            for (int lane = 0; lane < bandRows; ++lane) {
                const std::uint8_t index = task.table[keys[lane]];
                indices[step][lane] = index;
                chosen[lane] = task.palette[index];
            }
            for (std::size_t v = 0; v < vectorsPerBand; ++v) {
                Lanes color;
                std::memcpy(&color, &chosen[v * lanesPerVector], sizeof color);
                Lanes inside = splat(-1);
                if (!allInside) {
                    const Lanes row = laneNumber + static_cast<std::int32_t>(v) * lanesPerVector;
                    const Lanes x = splat(static_cast<std::int32_t>(t)) - row * lag;
                    inside = (x >= 0) & (x < splat(static_cast<std::int32_t>(task.width))) & (row < task.rows);
                }
                for (std::size_t channel = 0; channel < 3; ++channel) {
                    const Lanes level = (color >> static_cast<int>(8 * channel)) & 255;
                    spread(state[channel], static_cast<int>(v), (value[channel][v] - level) & inside);
                }
            }
            // The last lane trails the first, so the incoming value was read long before it is overwritten.
            const std::int64_t finished = t - skew - 1;
            if (finished >= 0 && finished < task.width) {
                for (std::size_t channel = 0; channel < 3; ++channel)
                    task.errors[channel][finished] = state[channel].complete[vectorsPerBand - 1][lanesPerVector - 1];
            }
        }
        storeIndices(task, firstStep, indices);
    }
}

} // namespace

Ditherer::Ditherer(const NearestColorLUT& lut)
    : m_lut(&lut)
{
    std::ranges::transform(lut.palette(), m_packedPalette.begin(), [](RGBColor color) {
        return std::uint32_t{color.r} | std::uint32_t{color.g} << 8U | std::uint32_t{color.b} << 16U;
    });
}

Bytes Ditherer::indices(const RGBAFrame& frame)
{
    Bytes indices(static_cast<std::size_t>(frame.pixelCount()));
    if (indices.empty())
        return indices;
    precondition(!m_lut->palette().empty(), "a picture is dithered with at least one colour");
    precondition(frame.height() <= largestHeight && frame.width() <= largestHeight, "dithering errors fit 32 bits");

    if (m_previous && (m_previous->width() != frame.width() || m_previous->height() != frame.height()))
        m_previous.reset();
    ditherBands(frame, indices);
    m_previous = frame;
    m_previousIndices = indices;
    return indices;
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
        const std::uint8_t* pixels = frame.pixels().data() + 4 * firstPixel;
        const bool sameAsBefore = m_previous && m_incoming[band] == m_errors
            && (frame.sharesPixels(*m_previous)
                || std::memcmp(pixels, m_previous->pixels().data() + 4 * firstPixel, 4 * rows * width) == 0);
        if (sameAsBefore) {
            std::memcpy(&indices[firstPixel], &m_previousIndices[firstPixel], rows * width);
            if (band + 1 < bands)
                m_errors = m_incoming[band + 1];
            continue;
        }
        m_incoming[band] = m_errors;
        ditherBand({pixels, &indices[firstPixel], frame.width(), static_cast<int>(rows),
            {m_errors[0].data(), m_errors[1].data(), m_errors[2].data()}, m_lut->table().data(),
            m_packedPalette.data()});
    }
}

} // namespace quillbox
