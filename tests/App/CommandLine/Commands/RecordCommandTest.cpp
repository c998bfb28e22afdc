#include "ProgramFixture.h"

namespace quillbox {
namespace {

class RecordCommand : public ProgramFixture {
protected:
    void expectError(int exitStatus, const std::string& script, const std::string& message) const
    {
        const auto result = shell(script);
        EXPECT_EQ(result.exitStatus, exitStatus) << script;
        EXPECT_EQ(result.errors, "quillbox: " + message + "\n") << script;
        EXPECT_EQ(result.output, "") << script;
        EXPECT_TRUE(fileNames().empty()) << script;
    }
};

TEST_F(RecordCommand, SaysThatThereIsNoDisplay)
{
    const std::string message
        = "Couldn't start recording: There is no display to record. Set DISPLAY to an X11 display, such as :0.";
    expectError(1, "env -u DISPLAY -u WAYLAND_DISPLAY \"$program\" record --region 0,0,10x10 -o x.gif", message);
    expectError(1, "env -i HOME=\"$PWD\" \"$program\" record --region 0,0,10x10", message);
    expectError(1, "DISPLAY=:nothing WAYLAND_DISPLAY= quillbox record --region 0,0,10x10 -o x.gif", message);
}

TEST_F(RecordCommand, SaysWhyADesktopCannotBeRecorded)
{
    expectError(1, "QUILLBOX_CAPTURE_BACKEND=none quillbox record --region 0,0,10x10 -o x.gif",
        "Couldn't start recording: Screen capture is switched off by QUILLBOX_CAPTURE_BACKEND.");
    expectError(2, "QUILLBOX_CAPTURE_BACKEND=magic quillbox record --region 0,0,10x10 -o x.gif",
        "QUILLBOX_CAPTURE_BACKEND is \"magic\", which is none of x11, portal, none");
    expectError(2, "QUILLBOX_RECORDING_MEMORY=-1 quillbox record --region 0,0,10x10 -o x.gif",
        "QUILLBOX_RECORDING_MEMORY is \"-1\"; make it a whole number of megabytes, or unset it");
    expectError(2, "QUILLBOX_JOURNAL=maybe quillbox record --region 0,0,10x10 -o x.gif",
        "QUILLBOX_JOURNAL is \"maybe\"; set it to off to keep no recording on disk, or unset it");
    const auto unknown = shell("QT_QPA_PLATFORM=nonsense quillbox record --select -o x.gif");
    EXPECT_EQ(unknown.exitStatus, 1);
    EXPECT_TRUE(unknown.errors.starts_with("quillbox: QT_QPA_PLATFORM is \"nonsense\", which is none of "))
        << unknown.errors;
    EXPECT_EQ(lineCount(unknown.errors), 1);
}

TEST_F(RecordCommand, NamesTheOptionThatIsWrong)
{
    expectError(2, "quillbox record", "name the region with --region X,Y,WxH, or drag it out with --select");
    expectError(2, "quillbox record --region 1,2,3",
        "--region: \"1,2,3\" is not a region; write it like 100,50,640x480 (left, top, size)");
    expectError(2, "quillbox record --region 1,2,3x4 --duration soon",
        "--duration: \"soon\" is not a number of seconds above 0, at most 86400");
}

TEST_F(RecordCommand, LooksAtItsOutputBeforeItRecords)
{
    expectError(1, "quillbox record --region 0,0,10x10 -o nowhere/x.gif",
        "nowhere/x.gif: can't be saved: there is no folder nowhere; create it first");
    expectError(
        2, "quillbox record --region 0,0,10x10 -o x.webp", "-o: \"x.webp\" is no name for a GIF; let it end in .gif");
    const std::string long300(300, 'x');
    expectError(
        1, "quillbox record --region 0,0,10x10 -o " + long300, long300 + ": can't be saved: File name too long");
}

} // namespace
} // namespace quillbox
