#include "Encoding/Presets.h"

#include "reference/Presets.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace quillbox {
namespace {

using PresetMath::nextColorStep;
using testing::ElementsAre;

TEST(ExportPreset, SlackHasItsLimits)
{
    const ExportPreset preset = ExportPreset::slack;
    EXPECT_EQ(preset.rawValue(), "slack");
    EXPECT_EQ(preset.id(), "slack");
    EXPECT_EQ(preset.title(), "Slack");
    EXPECT_EQ(preset.subtitle(), "Tiny GIF under 2 MB");
    EXPECT_EQ(preset.targetBytes(), 2'000'000);
    EXPECT_EQ(preset.maxWidth(), 960);
    EXPECT_EQ(preset.maxFPS(), 12);
    EXPECT_EQ(preset.maxColors(), 64);
    EXPECT_THAT(preset.colorLadder(), ElementsAre(64, 48, 32, 24, 16));
}

TEST(ExportPreset, GitHubHasItsLimits)
{
    const ExportPreset preset = ExportPreset::github;
    EXPECT_EQ(preset.rawValue(), "github");
    EXPECT_EQ(preset.id(), "github");
    EXPECT_EQ(preset.title(), "GitHub");
    EXPECT_EQ(preset.subtitle(), "GIF under 10 MB");
    EXPECT_EQ(preset.targetBytes(), 10'000'000);
    EXPECT_EQ(preset.maxWidth(), std::nullopt);
    EXPECT_EQ(preset.maxFPS(), 20);
    EXPECT_EQ(preset.maxColors(), 128);
    EXPECT_THAT(preset.colorLadder(), ElementsAre(128, 96, 64, 48, 32));
}

TEST(ExportPreset, DocsHasItsLimits)
{
    const ExportPreset preset = ExportPreset::docs;
    EXPECT_EQ(preset.rawValue(), "docs");
    EXPECT_EQ(preset.id(), "docs");
    EXPECT_EQ(preset.title(), "Docs");
    EXPECT_EQ(preset.subtitle(), "Crisp, balanced quality");
    EXPECT_EQ(preset.targetBytes(), 5'000'000);
    EXPECT_EQ(preset.maxWidth(), std::nullopt);
    EXPECT_EQ(preset.maxFPS(), 24);
    EXPECT_EQ(preset.maxColors(), 256);
    EXPECT_THAT(preset.colorLadder(), ElementsAre(256, 192, 128, 96, 64));
}

TEST(ExportPreset, AllCasesStandInTheOrderOfThePicker)
{
    EXPECT_THAT(ExportPreset::allCases, ElementsAre(ExportPreset::slack, ExportPreset::github, ExportPreset::docs));
}

TEST(ExportPreset, RawValuesParseBack)
{
    for (const ExportPreset preset : ExportPreset::allCases)
        EXPECT_EQ(ExportPreset::fromRawValue(preset.rawValue()), preset);
}

TEST(ExportPreset, NothingElseParses)
{
    for (const std::string_view text : {"Slack", "SLACK", "slack ", " slack", "", "slac", "slackk", "GitHub", "doc"})
        EXPECT_EQ(ExportPreset::fromRawValue(text), std::nullopt) << '"' << text << '"';
    EXPECT_EQ(ExportPreset::fromRawValue(std::string_view("slack\0", 6)), std::nullopt);
}

TEST(ExportPreset, HashesAsItsRawValue)
{
    for (const ExportPreset preset : ExportPreset::allCases)
        EXPECT_EQ(std::hash<ExportPreset>{}(preset), std::hash<std::string_view>{}(preset.rawValue()));
}

TEST(PresetMath, StepsDownTheLadder)
{
    EXPECT_EQ(nextColorStep(64, ExportPreset::slack), 48);
    EXPECT_EQ(nextColorStep(24, ExportPreset::slack), 16);
    EXPECT_EQ(nextColorStep(256, ExportPreset::docs), 192);
}

TEST(PresetMath, EndsAfterTheLastRung)
{
    EXPECT_EQ(nextColorStep(16, ExportPreset::slack), std::nullopt);
    EXPECT_EQ(nextColorStep(32, ExportPreset::github), std::nullopt);
    EXPECT_EQ(nextColorStep(64, ExportPreset::docs), std::nullopt);
}

TEST(PresetMath, BetweenTwoRungsTakesTheOneBelowTheLowerOne)
{
    EXPECT_EQ(nextColorStep(50, ExportPreset::slack), 32);           // 48 is the first rung up to 50
    EXPECT_EQ(nextColorStep(17, ExportPreset::slack), std::nullopt); // 16 is, and it is the last
}

TEST(PresetMath, AboveTheLadderTakesTheSecondRung)
{
    EXPECT_EQ(nextColorStep(300, ExportPreset::github), 96);
    EXPECT_EQ(nextColorStep(std::numeric_limits<std::int64_t>::max(), ExportPreset::slack), 48);
}

TEST(PresetMath, BelowTheLadderWrapsToTheTop)
{
    EXPECT_EQ(nextColorStep(10, ExportPreset::slack), 64);
    EXPECT_EQ(nextColorStep(0, ExportPreset::github), 128);
    EXPECT_EQ(nextColorStep(-1, ExportPreset::docs), 256);
}

TEST(PresetMath, EveryValueStepsAsInTheReference)
{
    for (const ExportPreset preset : ExportPreset::allCases) {
        for (std::int64_t colors = -5; colors <= 300; ++colors)
            EXPECT_EQ(nextColorStep(colors, preset), reference::nextColorStep(colors, preset)) << colors;
    }
}

} // namespace
} // namespace quillbox
