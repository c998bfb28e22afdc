#include "App/CommandLine/Terminal/TextColumns.h"

#include <gtest/gtest.h>

namespace quillbox {
namespace {

using Lines = std::vector<std::string>;

TEST(TextColumns, CountsLettersInsteadOfBytes)
{
    EXPECT_EQ(TextColumns::widthOf(""), 0U);
    EXPECT_EQ(TextColumns::widthOf("über „1“"), 8U);
}

TEST(TextColumns, CountsWideLettersTwice)
{
    EXPECT_EQ(TextColumns::widthOf("画面 X11、"), 4U + 4U + 2U);
    EXPECT_EQ(TextColumns::widthOf("（1）"), 5U);
}

TEST(TextColumns, TakesBytesThatAreNoLetterOneByOne)
{
    EXPECT_EQ(TextColumns::widthOf("\xE7\x94"), 2U);
    EXPECT_EQ(TextColumns::wrapped("\x80 \xFF", 1), (Lines{"\x80", "\xFF"}));
}

TEST(TextColumns, BreaksLinesAtBlanks)
{
    EXPECT_EQ(TextColumns::wrapped("", 5), (Lines{""}));
    EXPECT_EQ(TextColumns::wrapped("one two six", 7), (Lines{"one two", "six"}));
    EXPECT_EQ(TextColumns::wrapped("a wonderful day", 5), (Lines{"a", "wonderful", "day"}));
}

TEST(TextColumns, BreaksLinesBetweenWideLetters)
{
    EXPECT_EQ(TextColumns::wrapped("画面を録画", 6), (Lines{"画面を", "録画"}));
    EXPECT_EQ(TextColumns::wrapped("用 PipeWire 录制", 8), (Lines{"用", "PipeWire", "录制"}));
}

TEST(TextColumns, LetsNoLineBeginWithACommaOrEndWithAnOpeningBracket)
{
    EXPECT_EQ(TextColumns::wrapped("画面、録画", 4), (Lines{"画", "面、", "録画"}));
    EXPECT_EQ(TextColumns::wrapped("画「面」", 4), (Lines{"画", "「面」"}));
}

} // namespace
} // namespace quillbox
