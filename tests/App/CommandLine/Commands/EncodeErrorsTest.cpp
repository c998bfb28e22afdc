#include "ProgramFixture.h"

#include "Encoding/GIFEncoder.h"
#include "support/Pictures.h"

#include <QImage>

#include <fstream>

namespace quillbox {
namespace {

class EncodeErrors : public ProgramFixture {
protected:
    void SetUp() override
    {
        writeRaw("two.rgba", {support::solid(2, 2, support::gray(1)), support::solid(2, 2, support::gray(2))});
        std::ofstream(path("notes.txt")) << "hello\n";
        std::ofstream(path("empty"));
        ASSERT_TRUE(QImage(4, 4, QImage::Format_RGB32).save(QString::fromStdString(path("a.png"))));
        std::filesystem::copy_file(path("a.png"), path("cut.png"));
        std::filesystem::resize_file(path("cut.png"), 60);
        std::ofstream(path("cut.y4m")) << "YUV4MPEG2 W2 H2 Cmono\nFRAME\nabcdFRAME\nab";
        std::ofstream(path("taken.gif")) << "precious";
        std::filesystem::create_directory(path("void"));
        std::filesystem::create_hard_link(path("a.png"), path("same"));
        ASSERT_TRUE(QImage(8, 4, QImage::Format_RGB32).save(QString::fromStdString(path("wide.png"))));
        m_before = fileNames();
    }

    /// Exactly this one line on standard error, nothing on standard output, and the folder as it was.
    void expectError(int exitStatus, const std::string& script, const std::string& message) const
    {
        const auto result = shell(script);
        EXPECT_EQ(result.exitStatus, exitStatus) << script;
        EXPECT_EQ(result.errors, "quillbox: " + message + "\n") << script;
        EXPECT_EQ(result.output, "") << script;
        EXPECT_EQ(fileNames(), m_before) << script;
        EXPECT_EQ(support::readFile(path("taken.gif")), "precious") << script;
    }

    /// The same, where part of the message is another program's or depends on the system.
    void expectErrorContaining(int exitStatus, const std::string& script, const std::string& part) const
    {
        const auto result = shell(script);
        EXPECT_EQ(result.exitStatus, exitStatus) << script;
        EXPECT_NE(result.errors.find(part), std::string::npos) << script << '\n' << result.errors;
        EXPECT_EQ(lineCount(result.errors), 1) << script << '\n' << result.errors;
        EXPECT_EQ(result.output, "") << script;
        EXPECT_EQ(fileNames(), m_before) << script;
    }

private:
    std::set<std::string> m_before;
};

TEST_F(EncodeErrors, NameTheOptionThatIsWrongAndExitWithTwo)
{
    expectError(2, "quillbox encode", "INPUT is required; see quillbox encode --help");
    expectError(
        2, "quillbox encode a.png --preset tiny", "--preset: there is no preset \"tiny\"; use slack, github or docs");
    expectError(2, "quillbox encode a.png --raw 2", "--raw: \"2\" is not a size; write it like 1280x720");
    expectError(
        2, "quillbox encode a.png --dither maybe", "--dither: there is no \"maybe\"; use auto, always or never");
    expectError(2, "quillbox encode a.png --source-fps 0",
        "--source-fps: \"0\" is not a number of frames per second; write it like 12, 29.97 or 30000/1001, 1000 at "
        "most");
    expectErrorContaining(2, "quillbox encode a.png --colour", "not expected: --colour");
    expectErrorContaining(2, "quillbox compress a.png", "not expected: ");
}

TEST_F(EncodeErrors, TellWhichInputsDoNotGoTogether)
{
    expectError(2, "quillbox encode -", "this INPUT gives the GIF no name; add one, like -o clip.gif");
    expectError(2, "quillbox encode -o x.gif a.png -", "standard input must be the only INPUT");
    expectError(2, "quillbox encode -o x.gif --raw 2x2 two.rgba two.rgba",
        "--raw: give one INPUT with all frames, one after another");
    expectError(2, "quillbox encode -o x.gif a.png cut.y4m", "cut.y4m is a YUV4MPEG2 stream; give it alone");
}

TEST_F(EncodeErrors, TellWhereRawFramesEnd)
{
    expectError(1, "quillbox encode --raw 3x2 two.rgba",
        "two.rgba: frame 2 ends after 8 of 24 bytes; is --raw 3x2 its true size?");
    expectError(1, "cat two.rgba | quillbox encode --raw 3x2 -o x.gif -",
        "standard input: frame 2 ends after 8 of 24 bytes; is --raw 3x2 its true size?");
}

TEST_F(EncodeErrors, TellWhereAStreamEnds)
{
    expectError(1, "quillbox encode cut.y4m", "cut.y4m: frame 2 ends after 2 of 4 bytes; write the stream again");
    expectError(1, "cat cut.y4m | quillbox encode -o x.gif -",
        "standard input: frame 2 ends after 2 of 4 bytes; write the stream again");
}

TEST_F(EncodeErrors, RefuseAbsurdSizes)
{
    const std::string rule = "; each side must be 1 to 65535 pixels";
    expectError(2, "quillbox encode --raw 0x0 two.rgba", "--raw: \"0x0\" can't be" + rule);
    expectError(2, "quillbox encode --raw 65536x1 two.rgba", "--raw: \"65536x1\" can't be" + rule);
    expectError(2, "quillbox encode --raw 99999999999999999999x4 two.rgba",
        "--raw: \"99999999999999999999x4\" can't be" + rule);
    expectError(1, "printf 'YUV4MPEG2 W70000 H2 Cmono\\n' | quillbox encode -o x.gif -",
        "standard input: frame 1 is 70000×2" + rule);
}

TEST_F(EncodeErrors, RefuseInputsThatCannotBeRead)
{
    expectError(1, "quillbox encode missing.png", "missing.png: can't be opened: No such file or directory");
    expectError(1, "quillbox encode a.png missing.png", "missing.png: can't be opened: No such file or directory");
    expectError(1, "quillbox encode -o x.gif void",
        "void: no image is there; name a folder with images, or a pattern that some fit");
    expectError(1, "quillbox encode 'b%02d.png'",
        "b%02d.png: no image is there; name a folder with images, or a pattern that some fit");
    expectErrorContaining(1, "quillbox encode notes.txt", "notes.txt: is not an image that can be read; expected PNG");
    const std::string cut = "cut.png: is cut off: not even its first frame is whole; get the file again";
    expectError(1, "quillbox encode cut.png", cut);
    expectError(1, "quillbox encode -o x.gif a.png cut.png", cut);
    expectError(1, "quillbox encode -o x.gif --keep-going cut.png cut.png", cut);
}

TEST_F(EncodeErrors, GiveTheLineThatTakesAVideo)
{
    const auto result = shell("ffmpeg -v error -f lavfi -i testsrc=s=64x48:d=0.2 clip.mp4; quillbox encode clip.mp4");
    EXPECT_EQ(result.exitStatus, 1);
    EXPECT_EQ(result.errors,
        "quillbox: clip.mp4: is a video; have FFmpeg take its pictures: ffmpeg -i VIDEO -vf "
        "format=yuv444p,scale=out_color_matrix=bt709 -f yuv4mpegpipe - | quillbox encode --matrix bt709 -o OUT.gif "
        "-\n");
}

TEST_F(EncodeErrors, NameImagesOfAnotherSizeWhereNoneAreWanted)
{
    expectError(1, "quillbox encode --strict -o x.gif a.png wide.png",
        "wide.png: frame 2 is 8×4, but the first is 4×4; without --strict it is fitted into that");
}

TEST_F(EncodeErrors, NameAPartThatFramesDoNotHave)
{
    expectError(1, "quillbox encode --crop 1,0,4x4 a.png",
        "a.png: frames are 4×4, so --crop names a part that they don't have");
}

TEST_F(EncodeErrors, NameThePackageOfAMissingDecoder)
{
    using namespace std::string_literals;
    std::ofstream(path("a.webp")) << "RIFF\x0C\0\0\0WEBPVP8 \0\0\0\0"s;
    std::ofstream(path("a.tiff")) << "II*\0\x08\0\0\0"s;
    // A program beside which a file has the toolkit look for its plugins elsewhere.
    ASSERT_EQ(shell("mkdir bin && (ln \"$program\" bin/quillbox || cp \"$program\" bin) 2>/dev/null && "
                    "printf '[Paths]\\nPlugins = none\\n' > bin/qt.conf")
                  .exitStatus,
        0);
    const std::string advice = " image, for which a plugin is missing; install qt6-image-formats-plugins (Fedora: "
                               "qt6-qtimageformats, Arch: qt6-imageformats)\n";
    for (const auto& [file, kind] : {std::pair("a.webp", "WebP"), {"a.tiff", "TIFF"}}) {
        const auto result = shell("bin/quillbox encode -o x.gif "s + file);
        EXPECT_EQ(result.exitStatus, 1);
        EXPECT_EQ(result.errors, "quillbox: "s + file + ": is a " + kind + advice);
    }
    EXPECT_EQ(shell("bin/quillbox encode -o x.gif a.png").exitStatus, 0) << "that decoder is the toolkit's own";
    const auto report = shell("env -u DISPLAY -u WAYLAND_DISPLAY bin/quillbox doctor").output;
    EXPECT_NE(report.find("qt6-image-formats-plugins"), std::string::npos) << report;
    EXPECT_EQ(shell("env -u DISPLAY -u WAYLAND_DISPLAY \"$program\" doctor").output.find("qt6-image-formats-plugins"),
        std::string::npos);
}

TEST_F(EncodeErrors, NameAVariableThatMakesNoSense)
{
    expectError(2, "QUILLBOX_RECORDING_MEMORY=lots quillbox encode a.png",
        "QUILLBOX_RECORDING_MEMORY is \"lots\"; make it a whole number of megabytes, or unset it");
    for (const auto& [name, known] : {std::pair("CAPTURE", "x11, portal, none"), {"HOTKEY", "x11, portal, none"},
             {"CLIPBOARD", "x11, data-control, toolkit, none"}, {"UPDATE", "packagekit, flatpak, none"}}) {
        const std::string variable = "QUILLBOX_" + std::string(name) + "_BACKEND";
        expectError(
            2, variable + "=magic quillbox encode a.png", variable + " is \"magic\", which is none of " + known);
        // A part of a value, or of two, is no value.
        for (const std::string nonsense : {"non", "none, ", ","})
            EXPECT_EQ(shell(variable + "=\"" + nonsense + "\" quillbox encode -o x.gif a.png").exitStatus, 2)
                << nonsense;
    }
}

TEST_F(EncodeErrors, AreNotMadeOfVariablesThatMakeSense)
{
    for (const std::string setting : {"CAPTURE_BACKEND=x11", "CAPTURE_BACKEND=portal", "CAPTURE_BACKEND=none",
             "HOTKEY_BACKEND=x11", "HOTKEY_BACKEND=portal", "HOTKEY_BACKEND=none", "CLIPBOARD_BACKEND=x11",
             "CLIPBOARD_BACKEND=data-control", "CLIPBOARD_BACKEND=toolkit", "CLIPBOARD_BACKEND=none",
             "UPDATE_BACKEND=packagekit", "UPDATE_BACKEND=flatpak", "UPDATE_BACKEND=none",
             "UPDATE_BACKEND=", "RECORDING_MEMORY=0", "RECORDING_MEMORY=", "RECORDING_MEMORY=500"})
        EXPECT_EQ(shell("QUILLBOX_" + setting + " quillbox encode --force -o x.gif a.png").errors, "") << setting;
}

TEST_F(EncodeErrors, ReportALimitOnTheSizeOfFiles)
{
    expectError(1, "ulimit -f 1; head -c 640000 /dev/urandom | quillbox encode --raw 400x400 -o x.gif -",
        "x.gif: can't be saved: it is larger than a file may be here (ulimit -f)");
}

TEST_F(EncodeErrors, ReportALimitOnOpenFiles)
{
    expectError(1, "ulimit -n 8; quillbox encode -o x.gif a.png",
        "this process may not open enough files; raise the limit with ulimit -n 64");
}

TEST_F(EncodeErrors, RefuseInputsWithoutFrames)
{
    expectError(1, "quillbox encode empty", "empty: holds no frame; at least one is needed");
    expectError(1, "quillbox encode --raw 2x2 empty", "empty: holds no frame; at least one is needed");
    expectError(1, "quillbox encode -o x.gif - < empty", "standard input: holds no frame; at least one is needed");
    expectError(1, "printf 'YUV4MPEG2 W2 H2\\n' | quillbox encode -o x.gif -",
        "standard input: holds no frame; at least one is needed");
}

TEST_F(EncodeErrors, RefuseAStreamOfAnotherKindOnStandardInput)
{
    expectErrorContaining(1, "quillbox encode -o x.gif - < notes.txt", "standard input: is not an image");
}

TEST_F(EncodeErrors, SpareAFileThatExists)
{
    expectError(1, "quillbox encode -o taken.gif a.png",
        "taken.gif: can't be saved: the file exists already; use --force to replace it");
}

TEST_F(EncodeErrors, SpareTheInputUnderWhateverName)
{
    const std::string rule = ": can't be saved: it is an input itself; name another file with -o";
    expectError(1, "quillbox encode --force taken.gif", "taken.gif" + rule);
    expectError(1, "quillbox encode --force -o ./same a.png", "./same" + rule);
    expectError(1, "quillbox encode --force --raw 2x2 -o two.rgba - < two.rgba", "two.rgba" + rule);
}

TEST_F(EncodeErrors, NameAFolderThatIsMissing)
{
    expectError(1, "quillbox encode -o nowhere/x.gif a.png",
        "nowhere/x.gif: can't be saved: there is no folder nowhere; create it first");
    expectError(1, "quillbox encode -o a.png/x.gif a.png",
        "a.png/x.gif: can't be saved: there is no folder a.png; create it first");
    expectError(1, "quillbox encode -o . a.png", ".: can't be saved: it is a folder; name a file");
}

TEST_F(EncodeErrors, ReportAFullDevice)
{
    expectError(1, "quillbox encode -o - a.png > /dev/full",
        "standard output: can't be saved: no space left; free some or save elsewhere");
    expectError(1, "quillbox encode -o /dev/full a.png",
        "/dev/full: can't be saved: no space left; free some or save elsewhere");
}

TEST_F(EncodeErrors, ReportAFullDiskAndLeaveNothingOnIt)
{
    if (support::runProcess({"unshare", "-rm", "mount", "-t", "tmpfs", "none", folder().string()}).exitStatus != 0)
        GTEST_SKIP() << "this user may not mount a small disk";
    support::Random random(1);
    writeRaw("noise.rgba", {support::noise(300, 300, random)}); // a GIF of more than 64 KiB
    const auto result = shell("mkdir small && unshare -rm sh -c 'mount -t tmpfs -o size=64k none small && "
                              "echo precious > small/old.gif && "
                              "\"$0\" encode --raw 300x300 -o small/x.gif noise.rgba; echo $?; "
                              "\"$0\" encode --raw 300x300 --force -o small/old.gif noise.rgba; echo $?; "
                              "ls -A small; cat small/old.gif' \"$program\"");
    EXPECT_EQ(result.output, "1\n1\nold.gif\nprecious\n");
    EXPECT_EQ(result.errors,
        "quillbox: small/x.gif: can't be saved: no space left; free some or save elsewhere\n"
        "quillbox: small/old.gif: can't be saved: no space left; free some or save elsewhere\n");
}

TEST_F(EncodeErrors, StayOnOneLineWhateverTheFileIsCalled)
{
    const auto result = shell("quillbox encode \"$(printf 'a\\nb\\033[2J')\"");
    EXPECT_EQ(result.exitStatus, 1);
    EXPECT_EQ(result.errors, "quillbox: a\\nb\\x1b[2J: can't be opened: No such file or directory\n");
}

TEST_F(EncodeErrors, SayThatFramesBeyondTheMemoryNeedAFile)
{
    expectError(1,
        "export XDG_CACHE_HOME=/proc QUILLBOX_RECORDING_MEMORY=0; head -c 60000000 /dev/urandom |"
        " quillbox encode --raw 1000x500 --source-fps 24 --preset docs -o x.gif -",
        "A long clip needs a file in /proc/Quillbox: No such file or directory");
}

TEST_F(EncodeErrors, ExplainALackOfMemory)
{
#if defined(QUILLBOX_ADDRESS_SANITIZER) || defined(QUILLBOX_THREAD_SANITIZER)
    GTEST_SKIP() << "a sanitizer needs more address space than the limit leaves";
#endif
    expectError(1, "ulimit -v 400000; head -c 1600000000 /dev/zero | quillbox encode --raw 20000x20000 -o x.gif -",
        "there is not enough memory for these frames; use fewer or smaller ones");
}

} // namespace
} // namespace quillbox
