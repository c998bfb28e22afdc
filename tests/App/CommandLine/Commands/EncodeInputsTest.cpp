#include "ProgramFixture.h"

#include "support/ForeignDecoders.h"
#include "support/GifDecoding.h"

#include <nlohmann/json.hpp>

#include <cmath>
#include <cstdlib>
#include <ostream>
#include <string>
#include <vector>

namespace quillbox {
namespace {

/// One kind of input, made of the pictures 1.png, 2.png and 3.png.
struct Input {
    const char* name;
    std::string make; ///< a shell script that makes it, and ref.png where the clip is to begin with another picture
    std::string arguments; ///< of quillbox encode; "-" reads what `make` prints
    std::int64_t timeline; ///< pictures, at 30 a second
    std::int64_t pictures = 3;
    std::int64_t width = 96;
    std::int64_t height = 64;
    double tolerance = 4.5; ///< mean error of a channel; colours of 15 bits are up to 7 off

    friend void PrintTo(const Input& input, std::ostream* stream) { *stream << input.name; }
};

constexpr const char* numberedImages = "ffmpeg -v error -y -framerate 5 -i %d.png ";

std::vector<Input> inputs()
{
    const std::string ffmpeg = numberedImages;
    const std::string readme = " -vf format=yuv444p,scale=out_color_matrix=bt709 -f yuv4mpegpipe - | cat";
    std::vector<Input> all{
        {"StillsAtARate", "true", "1.png 2.png 3.png --source-fps 2", 45},
        {"StillsAtNoRate", "true", "1.png 2.png 3.png", 90},
        {"StillsAtADelay", "true", "1.png 2.png 3.png --delay 0.25", 23},
        {"StillsAtANTSCRate", "true", "1.png 2.png 3.png --source-fps 30000/1001", 4},
        {"AFolder", "mkdir f; cp 1.png f/a2.png; cp 2.png f/a10.png; cp 3.png f/b.png; touch f/notes", "f --delay 1",
            90},
        {"APattern", "true", "%d.png --delay 2", 180},
        {"OneStill", "true", "1.png", 1, 1},
        {"AStillOnStandardInput", "cat 1.png", "- --delay 1", 30, 1},
        {"JPEG", "convert 1.png -quality 97 a.jpg", "a.jpg", 1, 1},
        {"JPEGTurnedByItsMetadata",
            "ffmpeg -v error -y -i 1.png -vf transpose=2 -q:v 1 t.jpg; convert t.jpg -set option:x 1 t2.jpg; "
            "/usr/bin/python3 -c \"from PIL import Image; i=Image.open('t.jpg'); e=i.getexif(); e[274]=6; "
            "i.save('a.jpg', exif=e, quality=97)\"",
            "a.jpg", 1, 1, 96, 64, 6},
        {"BMP", "convert 1.png a.bmp", "a.bmp", 1, 1},
        {"PPM", "convert 1.png a.ppm", "a.ppm", 1, 1},
        {"TIFF", "convert 1.png a.tiff", "a.tiff", 1, 1},
        {"WebP", "/usr/bin/python3 -c \"from PIL import Image; Image.open('1.png').save('a.webp', lossless=True)\"",
            "a.webp", 1, 1},
        {"PNGOf16Bits", "convert 1.png -depth 16 png48:a.png", "a.png", 1, 1},
        {"PNGWithAProfile", // the pixels are P3's, and show what 1.png shows
            "/usr/bin/python3 -c \"from PIL import Image, ImageCms; i=Image.open('1.png').convert('RGB'); "
            "s=ImageCms.createProfile('sRGB'); i.save('a.png', icc_profile=ImageCms.ImageCmsProfile(s).tobytes())\"",
            "a.png", 1, 1},
        {"PNGWithTransparency",
            "convert -size 96x64 xc:'#30609080' PNG32:a.png; convert -size 96x64 xc:'#97afc7' ref.png", "a.png", 1, 1},
        {"PNGWithTransparencyOnBlack",
            "convert -size 96x64 xc:'#30609080' PNG32:a.png; convert -size 96x64 xc:'#183048' ref.png",
            "a.png --background black", 1, 1},
        {"AnEvenGIF", "convert -delay 20 1.png 2.png 3.png a.gif", "a.gif", 18},
        {"AnUnevenGIF", "convert -delay 50 1.png -delay 10 2.png -delay 100 3.png a.gif", "a.gif", 48},
        {"AGIFOnStandardInput", "convert -delay 20 1.png 2.png 3.png a.gif; cat a.gif", "-", 18},
        {"APNG", ffmpeg + "-pix_fmt rgb24 -plays 0 -f apng a.png", "a.png", 18},
        {"AnAnimatedWebP",
            "/usr/bin/python3 -c \"from PIL import Image; f=[Image.open(n) for n in ('1.png','2.png','3.png')]; "
            "f[0].save('a.webp', save_all=True, append_images=f[1:], duration=[500,100,400], lossless=True)\"",
            "a.webp", 30},
        {"RawBGRA", ffmpeg + "-pix_fmt bgra -f rawvideo a.raw", "--raw 96x64 --raw-format bgra --source-fps 5 a.raw",
            18},
        {"RawRGB", ffmpeg + "-pix_fmt rgb24 -f rawvideo a.raw", "--raw 96x64 --raw-format rgb --source-fps 5 a.raw",
            18},
        {"RawBGROnStandardInput", ffmpeg + "-pix_fmt bgr24 -f rawvideo -",
            "--raw 96x64 --raw-format bgr --source-fps 5 -", 18},
        {"RawRGBAWhoseFourthByteIsNotLookedAt",
            "convert -size 96x64 xc:'#30609080' -depth 8 rgba:a.raw; convert -size 96x64 xc:'#306090' ref.png",
            "--raw 96x64 a.raw", 1, 1},
        {"RawRGBAWithTransparencyOnBlack",
            "convert -size 96x64 xc:'#30609080' -depth 8 rgba:a.raw; convert -size 96x64 xc:'#183048' ref.png",
            "--raw 96x64 --background black a.raw", 1, 1},
        {"RawBGRAWithTransparencyOnWhite",
            "convert -size 96x64 xc:'#90603080' -depth 8 rgba:a.raw; convert -size 96x64 xc:'#97afc7' ref.png",
            "--raw 96x64 --raw-format bgra --background white a.raw", 1, 1},
        {"ACroppedPart", "convert 1.png -crop 48x32+16+8 +repage ref.png", "1.png --crop 16,8,48x32", 1, 1, 48, 32},
        {"AStreamOf709ThatIsToldSo",
            ffmpeg + "-vf format=yuv444p,scale=in_color_matrix=bt601:out_color_matrix=bt709 -f yuv4mpegpipe a.y4m",
            "--matrix bt709 a.y4m", 18},
        {"ATallStreamOf709",
            "for i in 1 2 3; do convert $i.png -scale 48x720! t$i.png; done; cp t1.png ref.png; "
            "ffmpeg -v error -framerate 5 -i t%d.png -vf "
            "format=yuv444p,scale=in_color_matrix=bt601:out_color_matrix=bt709 "
            "-f yuv4mpegpipe a.y4m",
            "a.y4m", 18, 3, 48, 720},
        {"AFilmOf601ByTheREADME",
            ffmpeg
                + "-vf format=yuv444p -colorspace smpte170m "
                  "-c:v ffv1 a.mkv; ffmpeg -v error -i a.mkv"
                + readme,
            "--matrix bt709 -", 18},
        {"AFilmOf709ByTheREADME",
            ffmpeg
                + "-vf format=yuv444p,scale=in_color_matrix=bt601:out_color_matrix=bt709 -colorspace bt709 "
                  "-c:v ffv1 a.mkv; ffmpeg -v error -i a.mkv"
                + readme,
            "--matrix bt709 -", 18},
    };
    for (const char* format : {"yuv420p", "yuv422p", "yuv411p", "yuv444p", "yuvj444p", "yuv420p10le", "yuv422p12le",
             "yuv444p16le", "yuva444p"}) {
        all.push_back({format, ffmpeg + "-strict -1 -pix_fmt " + format + " -f yuv4mpegpipe a.y4m", "a.y4m", 18});
        if (std::string(format).find("41") != std::string::npos || std::string(format).find("42") != std::string::npos)
            all.back().tolerance = 11; // colours run into each other at edges
    }
    for (const auto& [rate, timeline] : {std::pair{"1/2", 180}, {"24", 4}, {"24000/1001", 4}, {"25", 4}}) {
        all.push_back({"StreamAtARate",
            std::string("ffmpeg -v error -framerate ") + rate + " -i %d.png -pix_fmt yuv444p -f yuv4mpegpipe a.y4m",
            "a.y4m", timeline});
    }
    // From 30 on frames are as they are.
    all.push_back({"AFastStream", "ffmpeg -v error -framerate 60 -i %d.png -pix_fmt yuv444p -f yuv4mpegpipe a.y4m",
        "a.y4m", 3, 3});
    return all;
}

class EncodeInputs : public ProgramFixture, public testing::WithParamInterface<Input> {
protected:
    [[nodiscard]] std::vector<RGBColor> pixelsOf(const std::string& name) const
    {
        const auto result = support::runProcess({"convert", path(name), "-alpha", "off", "-depth", "8", "rgb:-"});
        EXPECT_EQ(result.exitStatus, 0) << result.errors;
        std::vector<RGBColor> pixels;
        for (std::size_t i = 0; i + 2 < result.output.size(); i += 3) {
            pixels.emplace_back(static_cast<std::uint8_t>(result.output[i]),
                static_cast<std::uint8_t>(result.output[i + 1]), static_cast<std::uint8_t>(result.output[i + 2]));
        }
        return pixels;
    }
};

TEST_P(EncodeInputs, PlayAsLongAndInTheColorsThatTheyHave)
{
    const Input& input = GetParam();
    // Blocks of colours in which the matrices differ most; the others are the same, turned and mirrored.
    const auto made
        = shell("for row in 1 2; do convert -size 24x32 xc:'#d02020' xc:'#20c040' xc:'#2040d0' xc:'#e0d020' "
                "+append row$row.png; done; convert row2.png -flop -negate row2.png; "
                "convert row1.png row2.png -append 1.png; convert 1.png -flip 2.png; convert 1.png -flop 3.png; "
                "cp 1.png ref.png; ("
            + input.make + ") > piped");
    ASSERT_EQ(made.exitStatus, 0) << made.errors;
    const auto result = shell("quillbox encode --json -o out.gif " + input.arguments + " < piped");
    ASSERT_EQ(result.exitStatus, 0) << result.errors;
    const auto object = nlohmann::json::parse(result.output);
    EXPECT_EQ(object["sourceFrameCount"], input.timeline);
    EXPECT_EQ(object["pictureCount"], input.pictures);
    EXPECT_EQ(object["width"], input.width);
    EXPECT_EQ(object["height"], input.height);

    const auto shown = support::decodeWithFFmpeg(bytesOf("out.gif"), input.width, input.height);
    const auto fps = object["effectiveFPS"].get<std::int64_t>();
    const bool isFast = std::string(input.name) == "AFastStream";
    const double kept = std::ceil(static_cast<double>(input.timeline * fps) / (isFast ? 60.0 : 30.0) - 1e-9);
    const auto delay = std::llround(100.0 / static_cast<double>(fps));
    EXPECT_NEAR(object["durationSeconds"].get<double>(), kept * static_cast<double>(delay) / 100, 1e-9)
        << "what the delays of that rate give";

    const auto precise = shell("quillbox encode --precise -o precise.gif " + input.arguments + " < piped");
    ASSERT_EQ(precise.exitStatus, 0) << precise.errors;
    std::int64_t centiseconds = 0;
    for (const auto& frame : support::decodeWithGiflib(bytesOf("precise.gif")).frames)
        centiseconds += frame.delayCentiseconds;
    EXPECT_NEAR(static_cast<double>(centiseconds), static_cast<double>(input.timeline) * 100 / (isFast ? 60 : 30), 1);

    const auto expected = pixelsOf("ref.png");
    ASSERT_FALSE(shown.pictures.empty());
    ASSERT_EQ(shown.pictures[0].size(), expected.size());
    double error = 0;
    for (std::size_t i = 0; i < expected.size(); ++i) {
        const RGBColor a = shown.pictures[0][i];
        const RGBColor b = expected[i];
        error += std::abs(a.r - b.r) + std::abs(a.g - b.g) + std::abs(a.b - b.b);
    }
    EXPECT_LT(error / (3.0 * static_cast<double>(expected.size())), input.tolerance);
}

std::string nameOf(const testing::TestParamInfo<Input>& tested)
{
    return tested.param.name + std::to_string(tested.index);
}

INSTANTIATE_TEST_SUITE_P(OfEveryKind, EncodeInputs, testing::ValuesIn(inputs()), nameOf);

class EncodeCutInputs : public ProgramFixture { };

TEST_F(EncodeCutInputs, AreRefusedOrKeptAsFarAsTheyGo)
{
    const auto made
        = shell("for i in 1 2 3 4 5; do convert -size 40x30 plasma:red-blue -seed $i $i.png; done; "
                "convert -delay 20 1.png 2.png 3.png 4.png 5.png a.gif; "
                "ffmpeg -v error -framerate 5 -i %d.png -f apng b.png; "
                "/usr/bin/python3 -c \"from PIL import Image; f=[Image.open(str(n)+'.png') for n in range(1,6)]; "
                "f[0].save('c.webp', save_all=True, append_images=f[1:], duration=200, lossless=True)\"; "
                "ffmpeg -v error -framerate 5 -i %d.png -pix_fmt yuv444p -f yuv4mpegpipe d.y4m; "
                "for f in a.gif b.png c.webp d.y4m; do size=$(stat -c %s $f); "
                "head -c $((size * 3 / 4)) $f > cut-$f; done");
    ASSERT_EQ(made.exitStatus, 0) << made.errors;
    for (const std::string name : {"cut-a.gif", "cut-b.png", "cut-c.webp", "cut-d.y4m"}) {
        const auto refused = shell("quillbox encode -o out.gif " + name);
        EXPECT_EQ(refused.exitStatus, 1) << name;
        EXPECT_EQ(lineCount(refused.errors), 1) << refused.errors;
        EXPECT_FALSE(fileNames().contains("out.gif"));
        const auto kept = shell("quillbox encode --json --force --keep-going -o kept.gif " + name);
        EXPECT_EQ(kept.exitStatus, 0) << name << kept.errors;
        EXPECT_NE(kept.errors.find("quillbox: warning: " + name), std::string::npos) << kept.errors;
        EXPECT_NE(kept.errors.find("the 3 frames before that are in the clip"), std::string::npos) << kept.errors;
        EXPECT_EQ(nlohmann::json::parse(kept.output)["pictureCount"], 3) << name;
    }
}

TEST_F(EncodeCutInputs, AmongImagesAreLeftOutAndCounted)
{
    const auto result = shell("for i in 1 2 3; do convert -size 40x30 xc:rgb\\($((i * 60)),0,0\\) $i.png; done; "
                              "head -c 100 2.png > cut.png; echo text > 4.png; "
                              "quillbox encode --json --keep-going -o out.gif 1.png cut.png 3.png 4.png");
    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_EQ(result.errors,
        "quillbox: warning: images left out: 2 of 4; cut.png: is cut off: not even its first frame is whole; get the "
        "file "
        "again\n");
    EXPECT_EQ(nlohmann::json::parse(result.output)["pictureCount"], 2);
}

TEST_F(EncodeCutInputs, AreNotWhatALateReaderOfTheResultMakesOfThem)
{
    const auto full = shell("convert -size 9x9 xc:red a.png; quillbox encode a.png > /dev/full");
    EXPECT_EQ(full.exitStatus, 0) << "the file is saved";
    EXPECT_EQ(full.errors,
        "quillbox: a.gif is saved, but not what there is to say about it: standard output: can't be saved: no space "
        "left; free some or save elsewhere\n");
    EXPECT_TRUE(fileNames().contains("a.gif"));
    const auto closed = shell("(sleep 0.1; quillbox encode --force a.png; echo $? > status) | true; "
                              "while [ ! -s status ]; do sleep 0.05; done; cat status");
    EXPECT_EQ(closed.output, "0\n");
    EXPECT_EQ(closed.errors, "");
}

} // namespace
} // namespace quillbox
