#include "support/ForeignDecoders.h"

#include "Encoding/Precondition.h"
#include "support/GifDecoding.h"
#include "support/Subprocess.h"
#include "support/TemporaryFolder.h"

#include <algorithm>
#include <sstream>
#include <string_view>

namespace quillbox::support {

namespace {

/// Runs a program that must succeed without a word on standard error; returns its standard output.
std::string outputOf(const std::vector<std::string>& command)
{
    const ProcessResult result = runProcess(command);
    if (result.exitStatus != 0 || !result.errors.empty()) {
        throw ForeignDecoderError(
            command[0] + " ended with " + std::to_string(result.exitStatus) + ": " + result.errors);
    }
    return result.output;
}

std::vector<std::vector<RGBColor>> picturesFrom(const std::string& rgb, std::int64_t width, std::int64_t height)
{
    const auto pictureBytes = static_cast<std::size_t>(width * height * 3);
    if (rgb.size() % pictureBytes != 0)
        throw ForeignDecoderError(std::to_string(rgb.size()) + " bytes are no whole number of pictures");
    std::vector<std::vector<RGBColor>> pictures;
    for (std::size_t start = 0; start < rgb.size(); start += pictureBytes) {
        std::vector<RGBColor>& picture = pictures.emplace_back();
        for (std::size_t offset = start; offset < start + pictureBytes; offset += 3) {
            picture.emplace_back(static_cast<std::uint8_t>(rgb[offset]), static_cast<std::uint8_t>(rgb[offset + 1]),
                static_cast<std::uint8_t>(rgb[offset + 2]));
        }
    }
    return pictures;
}

std::vector<std::int64_t> numbersFrom(const std::string& text)
{
    std::istringstream stream(text);
    std::vector<std::int64_t> numbers;
    for (std::int64_t number = 0; stream >> number;)
        numbers.push_back(number);
    return numbers;
}

/// The file's path in a folder that lives as long as the object.
class FileOnDisk {
public:
    explicit FileOnDisk(std::span<const std::uint8_t> bytes) { writeFile(path(), bytes); }
    [[nodiscard]] std::string path() const { return m_folder.path() / "clip.gif"; }

private:
    TemporaryFolder m_folder;
};

// A line with the loop count (-1 for none) and the delays in milliseconds, then all pictures as RGB.
constexpr auto pillowProgram = R"(
import sys
from PIL import Image, ImageSequence
image = Image.open(sys.argv[1])
delays, pictures = [], []
for frame in ImageSequence.Iterator(image):
    delays.append(frame.info["duration"])
    pictures.append(frame.convert("RGB").tobytes())
print(image.info.get("loop", -1), *delays, flush=True)
for picture in pictures:
    sys.stdout.buffer.write(picture)
)";

// Between "begin" and "end": the loop count (-1 for ever), the delays in microseconds, and all pictures as RGB, the
// bytes in hexadecimal digits. A picture that is not opaque everywhere is an error.
constexpr auto chromiumProgram = R"(
async function show(text) {
    const decoder = new ImageDecoder({data: Uint8Array.from(atob(text), c => c.charCodeAt(0)), type: "image/gif"});
    await decoder.tracks.ready;
    await decoder.completed;
    const track = decoder.tracks.selectedTrack;
    const digits = Array.from({length: 256}, (_, byte) => byte.toString(16).padStart(2, "0"));
    const numbers = [track.repetitionCount === Infinity ? -1 : track.repetitionCount];
    const pictures = [];
    for (let frameIndex = 0; frameIndex < track.frameCount; ++frameIndex) {
        const {image} = await decoder.decode({frameIndex});
        numbers.push(image.duration);
        const canvas = new OffscreenCanvas(image.displayWidth, image.displayHeight);
        const context = canvas.getContext("2d", {willReadFrequently: true});
        context.drawImage(image, 0, 0);
        image.close();
        const pixels = context.getImageData(0, 0, canvas.width, canvas.height).data;
        const bytes = [];
        for (let i = 0; i < pixels.length; i += 4) {
            if (pixels[i + 3] !== 255)
                throw new Error("a pixel that is not opaque");
            bytes.push(digits[pixels[i]], digits[pixels[i + 1]], digits[pixels[i + 2]]);
        }
        pictures.push(bytes.join(""));
    }
    return "begin " + numbers.join(" ") + " pictures " + pictures.join("") + " end";
}
)";

std::string base64(std::span<const std::uint8_t> bytes)
{
    constexpr std::string_view digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        std::uint32_t three = 0;
        for (std::size_t k = i; k < i + 3; ++k)
            three = three << 8U | (k < bytes.size() ? bytes[k] : 0U);
        for (std::size_t k = 0; k < 4; ++k)
            text += i + k <= bytes.size() ? digits[three >> (18 - 6 * k) & 63U] : '=';
    }
    return text;
}

std::string bytesOfHexadecimal(std::string_view digits)
{
    std::string bytes;
    for (std::size_t i = 0; i + 1 < digits.size(); i += 2)
        bytes += static_cast<char>(std::stoi(std::string(digits.substr(i, 2)), nullptr, 16));
    return bytes;
}

} // namespace

ShownGif decodeWithChromium(std::span<const std::uint8_t> file, std::int64_t width, std::int64_t height)
{
    const TemporaryFolder folder;
    // The page is dumped when it has been loaded, for which a document that is not closed makes it wait.
    const std::string page = "<body><iframe></iframe><script>" + std::string(chromiumProgram)
        + "const frame = document.querySelector('iframe'); frame.contentDocument.open(); show('" + base64(file)
        + "').catch(error => 'failed: ' + error).then(text => {"
          " document.body.append(text); frame.contentDocument.close(); });</script></body>";
    const std::string path = folder.path() / "clip.html";
    writeFile(path, {reinterpret_cast<const std::uint8_t*>(page.data()), page.size()}); // NOLINT(*-reinterpret-cast)
    // What it says on standard error is about services that a machine without a desktop lacks.
    const ProcessResult result = runProcess({"chromium", "--headless", "--no-sandbox", "--disable-gpu",
        "--user-data-dir=" + (folder.path() / "profile").string(), "--dump-dom", "file://" + path});
    const std::size_t begin = result.output.rfind("begin ");
    const std::size_t pictures = result.output.rfind(" pictures ");
    const std::size_t end = result.output.rfind(" end<");
    if (begin == std::string::npos || pictures == std::string::npos || end == std::string::npos)
        throw ForeignDecoderError("chromium: " + result.output.substr(0, 1000) + result.errors);
    const std::vector<std::int64_t> numbers = numbersFrom(result.output.substr(begin + 6, pictures - begin - 6));
    ShownGif shown;
    shown.loopCount = std::max<std::int64_t>(numbers.at(0), 0);
    for (std::size_t i = 1; i < numbers.size(); ++i)
        shown.delaysCentiseconds.push_back(numbers[i] / 10'000);
    shown.pictures = picturesFrom(
        bytesOfHexadecimal(std::string_view(result.output).substr(pictures + 10, end - pictures - 10)), width, height);
    return shown;
}

ShownGif decodeWithFFmpeg(std::span<const std::uint8_t> file, std::int64_t width, std::int64_t height)
{
    const FileOnDisk clip(file);
    ShownGif shown;
    // Without -min_delay FFmpeg turns delays of 1 into 10, as browsers do; without -enc_time_base it rounds the times
    // of pictures by a frame rate that it guesses.
    shown.pictures
        = picturesFrom(outputOf({"ffmpeg", "-v", "error", "-min_delay", "0", "-i", clip.path(), "-fps_mode",
                           "passthrough", "-enc_time_base", "-1", "-f", "rawvideo", "-pix_fmt", "rgb24", "-"}),
            width, height);
    shown.delaysCentiseconds = numbersFrom(outputOf({"ffprobe", "-v", "error", "-min_delay", "0", "-show_entries",
        "packet=duration", "-of", "csv=print_section=0", clip.path()}));
    return shown;
}

ShownGif decodeWithPillow(std::span<const std::uint8_t> file, std::int64_t width, std::int64_t height)
{
    const FileOnDisk clip(file);
    const std::string output = outputOf({"/usr/bin/python3", "-c", pillowProgram, clip.path()});
    const std::size_t endOfLine = output.find('\n');
    std::vector<std::int64_t> numbers = numbersFrom(output.substr(0, endOfLine));
    ShownGif shown;
    shown.loopCount = numbers.at(0);
    for (std::size_t i = 1; i < numbers.size(); ++i)
        shown.delaysCentiseconds.push_back(numbers[i] / 10);
    shown.pictures = picturesFrom(output.substr(endOfLine + 1), width, height);
    return shown;
}

ShownGif decodeWithImageMagick(std::span<const std::uint8_t> file, std::int64_t width, std::int64_t height)
{
    const FileOnDisk clip(file);
    ShownGif shown;
    shown.pictures
        = picturesFrom(outputOf({"convert", clip.path(), "-coalesce", "-depth", "8", "rgb:-"}), width, height);
    shown.delaysCentiseconds = numbersFrom(outputOf({"identify", "-format", "%T\n", clip.path()}));
    return shown;
}

ShownGif composedByGiflib(std::span<const std::uint8_t> file)
{
    const DecodedGif decoded = decodeWithGiflib(file);
    ShownGif shown;
    shown.loopCount = decoded.loopCount;
    std::vector<RGBColor> screen(static_cast<std::size_t>(decoded.width * decoded.height));
    for (const DecodedFrame& frame : decoded.frames) {
        constexpr int leaveInPlace = 1;
        precondition(frame.disposalMethod == leaveInPlace && !frame.interlaced, "pictures stay, rows in order");
        const auto& colors = frame.localColorTable.empty() ? decoded.globalColorTable : frame.localColorTable;
        for (std::int64_t i = 0; i < frame.width * frame.height; ++i) {
            const std::uint8_t index = frame.indices.at(static_cast<std::size_t>(i));
            const std::int64_t place = (frame.top + i / frame.width) * decoded.width + frame.left + i % frame.width;
            if (frame.transparentIndex != index)
                screen.at(static_cast<std::size_t>(place)) = colors.at(index);
        }
        shown.pictures.push_back(screen);
        shown.delaysCentiseconds.push_back(frame.delayCentiseconds);
    }
    return shown;
}

std::string faultsFoundByGifsicle(std::span<const std::uint8_t> file)
{
    const FileOnDisk clip(file);
    std::string faults;
    // --info alone does not decompress the pictures; writing them interlaced makes gifsicle do so. The warnings left
    // out there are about what it writes: that it takes local colour tables.
    const std::vector<std::vector<std::string>> commands{{"gifsicle", "--info", clip.path()},
        {"gifsicle", "--no-warnings", "--interlace", clip.path(), "-o", "/dev/null"}};
    for (const std::vector<std::string>& command : commands) {
        const ProcessResult result = runProcess(command);
        faults += result.errors;
        if (result.exitStatus != 0)
            faults += "exit status " + std::to_string(result.exitStatus);
    }
    return faults;
}

} // namespace quillbox::support
