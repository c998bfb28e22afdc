#include "ProgramFixture.h"

namespace quillbox {
namespace {

class Help : public ProgramFixture { };

TEST_F(Help, ShowsExamplesForEveryCommand)
{
    for (const char* command : {"quillbox --help", "quillbox encode --help", "quillbox record --help"}) {
        const auto result = shell(command);
        EXPECT_EQ(result.exitStatus, 0) << command;
        EXPECT_NE(result.output.find("Examples:\n  "), std::string::npos) << command;
        EXPECT_EQ(result.errors, "") << command;
    }
}

TEST_F(Help, ShowsAnExampleForEachJob)
{
    const auto text = shell("quillbox --help").output;
    for (const char* job :
        {"Record a region from a script:\n  quillbox record ", "Encode frames of another program:\n  ffmpeg ",
            "Record a program in continuous integration, without a display:\n  xvfb-run "})
        EXPECT_NE(text.find(job), std::string::npos) << job;
}

TEST_F(Help, ShowsAnExampleForEachCommandThatAsksTheRunningApplication)
{
    for (const std::string command :
        {"begin", "stop", "toggle", "again", "show", "status", "quit", "history", "doctor"}) {
        const auto result = shell("quillbox " + command + " --help");
        EXPECT_EQ(result.exitStatus, 0) << command;
        EXPECT_NE(result.output.find("Example:\n  quillbox " + command), std::string::npos) << command;
        EXPECT_NE(shell("quillbox --help").output.find("\n  " + command + " "), std::string::npos) << command;
    }
}

TEST_F(Help, NamesEveryOption)
{
    const auto encode = shell("quillbox encode --help").output;
    for (const char* option : {"--preset", "--source-fps", "--dither", "--raw", "--json", "--force", "-o", "INPUT"})
        EXPECT_NE(encode.find(option), std::string::npos) << option;
    const auto record = shell("quillbox record --help").output;
    for (const char* option : {"--preset", "--region", "--select", "--duration", "--copy", "--json", "--force", "-o"})
        EXPECT_NE(record.find(option), std::string::npos) << option;
}

TEST_F(Help, IsACommandToo)
{
    EXPECT_EQ(shell("quillbox help").output, shell("quillbox --help").output);
    EXPECT_EQ(shell("quillbox help encode").output, shell("quillbox encode --help").output);
    EXPECT_EQ(shell("quillbox help encode > /dev/full").exitStatus, 1);
}

TEST_F(Help, TellsTheVersion)
{
    const auto result = shell("quillbox --version");
    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_EQ(result.output, std::string("quillbox ") + QUILLBOX_VERSION + "\n");
    EXPECT_EQ(shell("quillbox -V").output, result.output);
}

} // namespace
} // namespace quillbox
