#include "ProgramFixture.h"

namespace quillbox {
namespace {

/// The commands that have to do with the running application, where none runs. (What they do where one runs is seen on
/// a real desktop, end to end.)
class ControlCommand : public ProgramFixture { };

TEST_F(ControlCommand, SaysThatNothingRuns)
{
    for (const std::string command : {"begin", "stop", "toggle", "again --precise", "show", "status --json", "quit"}) {
        const auto result = shell("DBUS_SESSION_BUS_ADDRESS=unix:path=/nowhere quillbox " + command);
        EXPECT_EQ(result.exitStatus, 1) << command;
        EXPECT_EQ(result.errors, "quillbox: Quillbox is not running; start it with quillbox\n") << command;
        EXPECT_EQ(result.output, "") << command;
    }
}

TEST_F(ControlCommand, TheApplicationSaysThatThereIsNoDisplay)
{
    const auto result = shell("env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM "
                              "DBUS_SESSION_BUS_ADDRESS=unix:path=/nowhere \"$program\"");
    EXPECT_EQ(result.exitStatus, 1);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.errors.rfind("quillbox: ", 0), 0U) << result.errors;
    EXPECT_NE(result.errors.find("quillbox record and encode work from a terminal\n"), std::string::npos)
        << result.errors;
}

class HistoryCommand : public ProgramFixture {
protected:
    void SetUp() override
    {
        ProgramFixture::SetUp();
        const auto result = shell(R"(mkdir -p data/Quillbox; cat >data/Quillbox/history.json <<'END'
[{"id": "0A1B2C3D-4E5F-6071-8293-A4B5C6D7E8F9", "date": "2026-11-16T09:05:07Z", "format": "GIF", "preset": "Slack",
  "outputPath": "/clips/one.gif", "byteCount": 1234567, "durationSeconds": 3.44, "width": 10, "height": 20},
 {"id": "1A1B2C3D-4E5F-6071-8293-A4B5C6D7E8F9", "date": "2026-11-15T09:05:07Z", "format": "GIF", "preset": "Docs"}]
END)");
        ASSERT_EQ(result.exitStatus, 0) << result.errors;
    }
};

TEST_F(HistoryCommand, ListsTheNewestFirst)
{
    const auto result = shell("TZ=UTC XDG_DATA_HOME=\"$PWD/data\" quillbox history");
    EXPECT_EQ(result.exitStatus, 0) << result.errors;
    EXPECT_EQ(result.output,
        "2026-11-16 09:05:07  Slack  1.2 MB  3.4s  /clips/one.gif\n"
        "2026-11-15 09:05:07  Docs  -  -  -\n");
}

TEST_F(HistoryCommand, PrintsTheFilesOwnFormatAsJSON)
{
    const auto result
        = shell("XDG_DATA_HOME=\"$PWD/data\" quillbox history --json | /usr/bin/python3 -c 'import json, sys; "
                "[print(*e) for e in json.load(sys.stdin)]'");
    EXPECT_EQ(result.exitStatus, 0) << result.errors;
    EXPECT_EQ(result.output,
        "id date format preset outputPath byteCount durationSeconds width height\n"
        "id date format preset\n");
}

TEST_F(HistoryCommand, IsEmptyBeforeTheFirstClip)
{
    const auto result = shell("XDG_DATA_HOME=\"$PWD/none\" quillbox history --json");
    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_EQ(result.output, "[]\n");
}

TEST_F(HistoryCommand, SaysThatTheListCannotBeWritten)
{
    const auto result = shell("XDG_DATA_HOME=\"$PWD/data\" quillbox history >/dev/full");
    EXPECT_EQ(result.exitStatus, 1);
    EXPECT_EQ(result.errors, "quillbox: the list can't be written to standard output\n");
}

} // namespace
} // namespace quillbox
