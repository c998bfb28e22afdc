#include "App/CommandLine/Terminal/TerminalText.h"

#include "App/CommandLine/Terminal/TextColumns.h"

#include <gtest/gtest.h>

#include <string>

namespace quillbox {
namespace {

using namespace std::string_literals;

TEST(TerminalText, EscapesWhatWouldActOnATerminal)
{
    EXPECT_EQ(TerminalText::escaped("a\nb\tc\rd"), "a\\nb\\tc\\rd");
    EXPECT_EQ(TerminalText::escaped("\x1b[2J\x7F\0x"s), "\\x1b[2J\\x7f\\x00x");
    EXPECT_EQ(TerminalText::escaped("a\u0085\u202Egpj"), "a\\u{0085}\\u{202e}gpj")
        << "a control, and one that turns text";
    EXPECT_EQ(TerminalText::escaped("größe 1×2 画像 😀"), "größe 1×2 画像 😀");
}

TEST(TerminalText, EscapesBytesThatAreNoText)
{
    EXPECT_EQ(TerminalText::escaped("\xff\xfe"), "\\xff\\xfe");
    EXPECT_EQ(TerminalText::escaped("a\xc3"), "a\\xc3") << "cut off";
    EXPECT_EQ(TerminalText::escaped("\xc0\xaf"), "\\xc0\\xaf") << "longer than need be";
    EXPECT_EQ(TerminalText::escaped("\xed\xa0\x80"), "\\xed\\xa0\\x80") << "half a letter of UTF-16";
    EXPECT_EQ(TerminalText::escaped("\xf4\x90\x80\x80"), "\\xf4\\x90\\x80\\x80") << "beyond the last letter";
}

TEST(TerminalText, WritesWhatAnEncodingHas)
{
    EXPECT_EQ(TerminalText::encoded("Größe 1×2", "UTF-8"), "Größe 1×2");
    EXPECT_EQ(TerminalText::encoded("Größe 1×2", "ISO-8859-1"),
        "Gr\xf6\xdf"
        "e 1\xd7"
        "2");
    EXPECT_EQ(TerminalText::encoded("“a” 1×2 …", "ANSI_X3.4-1968"), "\"a\" 1x2 ...");
    EXPECT_EQ(TerminalText::encoded("bär.gif", "ANSI_X3.4-1968"), "bär.gif") << "a name stays what it is";
    EXPECT_EQ(TerminalText::encoded("×", "no such encoding"), "×");
}

TEST(TextColumns, ShortensWhatIsTooWide)
{
    EXPECT_EQ(TextColumns::shortened("12345", 5), "12345");
    EXPECT_EQ(TextColumns::shortened("123456", 5), "12...");
    EXPECT_EQ(TextColumns::shortened("画像画像", 7), "画像...");
    EXPECT_EQ(TextColumns::shortened("画像画像", 6), "画...") << "half a wide letter is none";
    EXPECT_EQ(TextColumns::shortened("123456", 2), "12");
    EXPECT_EQ(TextColumns::shortened("", 1), "");
}

} // namespace
} // namespace quillbox
