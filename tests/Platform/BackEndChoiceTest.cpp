#include "Platform/BackEndChoice.h"

#include <gtest/gtest.h>

namespace quillbox {
namespace {

enum class Tool { Pen, Brush, None };

constexpr auto variable = "QUILLBOX_TOOL";
constexpr BackEndNames<Tool, 3> names{{{"pen", Tool::Pen}, {"brush", Tool::Brush}, {"none", Tool::None}}};

std::optional<BackEndChoice<Tool>> choiceFor(const char* value)
{
    qputenv(variable, value);
    return backEndByEnvironment(variable, names);
}

TEST(BackEndChoice, IsLeftToTheSeamWhereNothingIsAskedFor)
{
    EXPECT_FALSE(choiceFor(""));
    qunsetenv(variable);
    EXPECT_FALSE(backEndByEnvironment(variable, names));
}

TEST(BackEndChoice, IsTheOneOfThatName)
{
    EXPECT_EQ(choiceFor("brush")->backEnd, Tool::Brush);
    EXPECT_EQ(choiceFor("none")->backEnd, Tool::None);
    EXPECT_EQ(choiceFor("none")->reason, "") << "the seam says what is switched off";
}

TEST(BackEndChoice, SaysWhichNamesThereAre)
{
    const auto choice = choiceFor("Pen");
    EXPECT_EQ(choice->backEnd, Tool::None);
    EXPECT_EQ(choice->reason, "QUILLBOX_TOOL is \"Pen\", which is none of pen, brush, none");
}

} // namespace
} // namespace quillbox
