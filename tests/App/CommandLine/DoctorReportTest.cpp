#include "App/CommandLine/DoctorReport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

namespace quillbox {
namespace {

using Health = ServiceReport::Health;

DoctorReport::Findings findings(Health screen)
{
    return {"Wayland", "sway",
        {{"Screen", screen, "the desktop portal and PipeWire", {"PipeWire"}, {}, {}},
            {"Hotkey", Health::Limited, "The portal has no global shortcuts on this desktop", {},
                {"bind quillbox toggle to a key in the desktop's settings, whichever you like best"}, {}},
            {"File manager", Health::Missing, "Nothing here opens folders", {}, {}, {"xdg-utils", "nautilus"}},
            {"Updates", Health::Limited, "There is no PackageKit", {}, {}, {"packagekit", "xdg-utils"}}}};
}

TEST(DoctorReport, SaysItAllOnAScreen)
{
    EXPECT_EQ(DoctorReport::humanText(findings(Health::Works), {.hasSymbols = true}),
        R"(What this desktop has for Quillbox (sway, Wayland)

  ✓ Screen        the desktop portal and PipeWire
                  PipeWire
  – Hotkey        The portal has no global shortcuts on this desktop
                  → bind quillbox toggle to a key in the desktop's settings,
                    whichever you like best
  ✗ File manager  Nothing here opens folders
  – Updates       There is no PackageKit

What is missing comes, on Debian and Ubuntu, with
  sudo apt install xdg-utils nautilus packagekit

The screen can be recorded.
)");
}

TEST(DoctorReport, UsesLettersWhereThereAreNoSymbols)
{
    const auto text = DoctorReport::humanText(findings(Health::Missing), {});
    EXPECT_NE(text.find("\n  x Screen        the desktop"), std::string::npos) << text;
    EXPECT_NE(text.find("\n  - Hotkey        The portal"), std::string::npos) << text;
    EXPECT_NE(text.find("\n                  > bind"), std::string::npos) << text;
    EXPECT_TRUE(std::ranges::all_of(text, [](char letter) { return letter > 0; })) << text;
}

TEST(DoctorReport, LeavesTheWordsAloneWhereTheTerminalHasColors)
{
    auto colored = DoctorReport::humanText(findings(Health::Works), {.hasColors = true, .hasSymbols = true});
    for (auto at = colored.find('\x1b'); at != std::string::npos; at = colored.find('\x1b'))
        colored.erase(at, colored.find('m', at) + 1 - at);
    EXPECT_EQ(colored, DoctorReport::humanText(findings(Health::Works), {.hasSymbols = true}));
}

TEST(DoctorReport, StaysWithinEightyColumns)
{
    auto wide = findings(Health::Works);
    for (int words = 0; words < 60; ++words)
        wide.services[0].used += " wörter";
    wide.services[0].found.push_back(wide.services[0].used);
    wide.services[0].advice.push_back(wide.services[0].used);
    std::istringstream lines(DoctorReport::humanText(wide, {.hasSymbols = true}));
    for (std::string line; std::getline(lines, line);)
        EXPECT_LE(std::ranges::count_if(line, [](char byte) { return (byte & 0xC0) != 0x80; }), 80) << line;
}

TEST(DoctorReport, BreaksALongCommandSoThatAShellTakesItForOne)
{
    DoctorReport::Findings much{"X11", {},
        {{"Screen", Health::Works, "the X server :0", {}, {}, {std::string(40, 'a'), std::string(30, 'b')}}}};
    const auto text = DoctorReport::humanText(much, {});
    EXPECT_NE(text.find("\n  sudo apt install " + std::string(40, 'a') + " \\\n    " + std::string(30, 'b') + "\n\n"),
        std::string::npos)
        << text;
}

TEST(DoctorReport, LetsNoControlCharacterThrough)
{
    auto odd = findings(Health::Works);
    odd.desktop = "sw\x1b[2Jay";
    odd.services[0].used = "a\nb";
    const auto text = DoctorReport::humanText(odd, {});
    EXPECT_NE(text.find("sw\\x1b[2Jay"), std::string::npos) << text;
    EXPECT_NE(text.find("a\\nb"), std::string::npos) << text;
}

TEST(DoctorReport, TheScreenAloneDecidesWhetherItCanBeRecorded)
{
    EXPECT_TRUE(DoctorReport::canRecord(findings(Health::Works)));
    EXPECT_TRUE(DoctorReport::canRecord(findings(Health::Limited)));
    EXPECT_FALSE(DoctorReport::canRecord(findings(Health::Missing)));
    EXPECT_NE(DoctorReport::humanText(findings(Health::Missing), {}).find("\nThe screen can't be recorded.\n"),
        std::string::npos);
}

TEST(DoctorReport, NamesNoCommandWhereNothingIsMissing)
{
    DoctorReport::Findings whole{"X11", {}, {{"Screen", Health::Works, "the X server :0", {}, {}, {}}}};
    EXPECT_EQ(DoctorReport::humanText(whole, {}),
        "What this desktop has for Quillbox (X11)\n\n  + Screen        the X server :0\n\n"
        "The screen can be recorded.\n");
}

TEST(DoctorReport, PutsTheFieldsOfTheJSONObjectInTheirOrder)
{
    auto one = findings(Health::Missing);
    one.services.erase(one.services.begin(), one.services.begin() + 2);
    EXPECT_EQ(DoctorReport::json(one),
        R"({"canRecord":false,"windowSystem":"Wayland","desktop":"sway","services":[{"service":"File manager",)"
        R"("health":"missing","used":"Nothing here opens folders","found":[],"advice":[],)"
        R"("packages":["xdg-utils","nautilus"]},{"service":"Updates","health":"limited",)"
        R"("used":"There is no PackageKit","found":[],"advice":[],"packages":["packagekit","xdg-utils"]}]})"
        "\n");
}

} // namespace
} // namespace quillbox
