#pragma once

#include "Encoding/GIFOptimizer.h"
#include "Encoding/Precise/Colors/ColorMoments.h"
#include "FuzzInput.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <vector>

/// What a stage is given, cut out of a fuzzer's bytes: a stage's two fuzzers, the one of its properties and the one
/// that compares it with its plain version, share their inputs and so their corpus.
namespace quillbox::fuzz {

struct ProcessingInput {
    std::int64_t sourceFPS = 0;
    std::int64_t targetFPS = 0;
    std::int64_t delayCentiseconds = 0;
    double threshold = 0;
    std::int64_t tolerance = 0;
    std::int64_t maxWidth = 0;
    std::vector<RGBAFrame> frames;

    explicit ProcessingInput(Input input)
        : sourceFPS(input.below(70) - 2)
        , targetFPS(input.below(70) - 2)
        , delayCentiseconds(input.number16() - 100)
        , threshold(static_cast<double>(input.byte()) / 200.0 - 0.1)
        , tolerance(input.number16() * 4 - 10)
        , maxWidth(input.below(30) - 1)
        , frames(input.recording(6, 24))
    {
    }
};

/// A picture for the encoder; few have a large palette, whose tables take longest.
inline IndexedFrame indexedFrame(Input& input)
{
    IndexedFrame frame;
    frame.width = input.below(17);
    frame.height = input.below(17);
    frame.delayCentiseconds = input.number16() * 2 - 1000; // below 1 and above 65535 too
    const std::uint8_t colors = input.byte();
    frame.palette = input.palette(colors < 250 ? colors % 20 : 253 + (colors - 250) * 8); // up to 293
    const std::int64_t indices = std::clamp<std::int64_t>(std::ssize(frame.palette), 1, 256);
    for (std::int64_t i = 0; i < frame.width * frame.height; ++i)
        frame.indices.push_back(static_cast<std::uint8_t>(input.below(indices)));
    return frame;
}

struct EncoderInput {
    std::int64_t loopCount = 0;
    std::vector<IndexedFrame> frames;

    explicit EncoderInput(Input input)
        : loopCount(input.number16())
    {
        while (!input.isEmpty() && frames.size() < 3)
            frames.push_back(indexedFrame(input));
    }
    /// giflib can't read frames without.
    [[nodiscard]] bool allHavePixels() const
    {
        return std::ranges::none_of(frames, [](const IndexedFrame& frame) { return frame.indices.empty(); });
    }
};

struct OptimizerInput {
    static constexpr std::size_t maxBytes = 240;

    GIFOptimizer::Config config;
    int threads = 1;
    std::vector<RGBAFrame> frames;

    explicit OptimizerInput(Input input)
        : config(configOf(input))
        , threads(input.byte() >= 252 && input.isOneOf(8) ? 3 : 1) // starting them takes longer than the rest
    {
        constexpr std::int64_t wide = 1000; // more than one preset allows
        input.setPatternColors(3);
        if (input.byte() % 64 == 63)
            frames.push_back(input.picture(wide, 1));
        else
            frames = input.recording(3, 4);
    }
    static GIFOptimizer::Config configOf(Input& input)
    {
        constexpr std::array<std::optional<bool>, 3> ditherings{std::nullopt, true, false};
        return {.preset = ExportPreset::allCases.at(static_cast<std::size_t>(input.below(3))),
            .sourceFPS = input.below(70) - 2,
            .ditheringOverride = ditherings.at(static_cast<std::size_t>(input.below(3)))};
    }
    [[nodiscard]] bool allHavePixels() const
    {
        return std::ranges::none_of(frames, [](const RGBAFrame& frame) { return frame.pixelCount() == 0; });
    }
};

/// Indices below 2^minCodeSize: the bytes themselves, or runs given by pairs of an index and a length.
struct LZWInput {
    int minCodeSize = 2;
    Bytes indices;

    explicit LZWInput(Input input)
    {
        constexpr std::size_t maxCount = 5'000; // more than a table has codes
        const std::uint8_t choice = input.byte();
        minCodeSize = 2 + choice % 7;
        const unsigned mask = (1U << static_cast<unsigned>(minCodeSize)) - 1;
        while (!input.isEmpty() && indices.size() < maxCount) {
            const auto index = static_cast<std::uint8_t>(input.byte() & mask);
            indices.insert(indices.end(), choice >= 128 ? std::size_t{1} + input.byte() : 1, index);
        }
    }
};

struct MapperInput {
    std::vector<RGBColor> palette;
    std::vector<RGBAFrame> frames;

    explicit MapperInput(Input input)
        : palette(input.palette(1 + input.below(input.byte() < 250 ? 8 : 256)))
        , frames(input.recording(3, 24))
    {
    }
};

/// A clip's colours: counts of some, or pictures.
struct QuantizerInput {
    struct Count {
        std::uint16_t key = 0;
        std::int64_t count = 1;
    };
    std::int64_t maxColors = 0;
    std::vector<Count> counts;
    std::vector<RGBAFrame> frames; ///< if there are no counts

    explicit QuantizerInput(Input input)
        : maxColors(input.below(270) - 5)
    {
        if (input.byte() % 2 != 0) {
            frames = input.recording(4, 24);
            return;
        }
        constexpr std::size_t maxCounts = 2'000;
        while (!input.isEmpty() && counts.size() < maxCounts) {
            const std::int64_t key = input.below(32768);
            const std::int64_t factor = input.byte();
            counts.push_back({static_cast<std::uint16_t>(key), 1 + (factor << input.below(40))});
        }
    }
};

/// Colours of a clip with their weights: chosen ones, or those that pictures have.
struct ScreenPaletteInput {
    std::int64_t maxColors = 1;
    std::vector<WeightedColor> colors;
    std::vector<RGBAFrame> frames; ///< that the colours are from, if they are

    explicit ScreenPaletteInput(Input input)
        : maxColors(1 + input.below(input.byte() < 240 ? 24 : 256))
    {
        ColorCounts counts;
        if (input.byte() % 2 != 0) {
            frames = input.recording(3, 8);
            for (const RGBAFrame& frame : frames) {
                const PixelView pixels = frame.pixels();
                counts.add(std::span(pixels.data(), pixels.size()), 3);
            }
        }
        constexpr std::int64_t maxColorCount = 72;
        while (!input.isEmpty() && frames.empty() && counts.size() < maxColorCount) {
            const RGBColor color = input.color();
            const std::int64_t factor = input.byte();
            counts.add(color, 1 + (factor << input.below(24)));
        }
        colors = counts.entries();
    }
    /// A few of them as points: what the stages take long for.
    [[nodiscard]] std::vector<ColorMoments> points(std::size_t most) const
    {
        return {colors.begin(), colors.begin() + static_cast<std::ptrdiff_t>(std::min(colors.size(), most))};
    }
    [[nodiscard]] std::size_t pointCount() const { return static_cast<std::size_t>(1 + maxColors % 10); }
};

} // namespace quillbox::fuzz
