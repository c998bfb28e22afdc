#include "App/CommandLine/InputReader.h"

#include "App/CommandLine/CoreApplication.h"
#include "App/CommandLine/InputFiles.h"
#include "App/FrameSources/ByteSource.h"
#include "App/FrameSources/FrameFitting.h"
#include "App/FrameSources/FrameReadError.h"
#include "App/FrameSources/Images/AnimationTimeline.h"
#include "App/FrameSources/Images/ImageReader.h"
#include "App/FrameSources/RawReader.h"
#include "App/FrameSources/ReadingThreads.h"
#include "App/FrameSources/Y4M/Y4MReader.h"
#include "Translation/Translate.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <string>
#include <unistd.h>
#include <utility>

namespace quillbox {
namespace {

std::unique_ptr<FileByteSource> open(const std::string& input)
{
    if (input == standardStreamName)
        return std::make_unique<FileByteSource>(translate("Streams", "standard input"), STDIN_FILENO);
    return std::make_unique<FileByteSource>(input);
}

/// Notices whether anything was handed over.
class Counted final : public FrameConsumer {
public:
    explicit Counted(FrameConsumer& next)
        : m_next(next)
    {
    }
    void setRate(FrameRate rate) override { m_next.setRate(rate); }
    void take(const RGBAFrame& frame) override
    {
        ++m_count;
        m_next.take(frame);
    }
    [[nodiscard]] std::int64_t count() const { return m_count; }

private:
    FrameConsumer& m_next;
    std::int64_t m_count = 0;
};

std::string leftOut(const FrameReadError& error, std::int64_t frameCount)
{
    constexpr std::int64_t largest = std::numeric_limits<int>::max();
    const int count = static_cast<int>(std::min(frameCount, largest));
    return withArguments(
        translate("InputReader", "%1; the %n frame(s) before that are in the clip", nullptr, count), {error.what()});
}

/// Streams: what comes before a flaw has been handed over when it is met.
template <typename Read>
std::optional<std::string> readStream(const EncodeOptions& options, FrameConsumer& receiver, Read read)
{
    Counted counted(receiver);
    try {
        read(counted);
    } catch (const FrameReadError& error) {
        if (!options.keepGoing || counted.count() == 0)
            throw;
        return leftOut(error, counted.count());
    }
    return std::nullopt;
}

std::optional<std::string> readAnimation(FileByteSource& source, const EncodeOptions& options, FrameConsumer& receiver)
{
    const auto [timed, flaw] = ImageReader::readAll(source, options.colors.background);
    if (flaw && !options.keepGoing)
        throw FrameReadError(*flaw);
    const auto frameCount = std::ssize(timed);
    auto warning = flaw ? std::optional(leftOut(*flaw, frameCount)) : std::nullopt;
    if (options.rate || frameCount == 1) { // a single picture has no rate of its own
        for (const auto& [frame, milliseconds] : timed)
            receiver.take(frame);
        return warning;
    }
    const auto milliseconds = AnimationTimeline::duration(timed);
    if (milliseconds > AnimationTimeline::maximumMilliseconds) {
        throw FrameReadError(
            source.name(), FrameReadError::TooLong{milliseconds, AnimationTimeline::maximumMilliseconds});
    }
    AnimationTimeline::steady(timed, receiver);
    return warning;
}

std::optional<std::string> readImages(
    const std::vector<std::string>& inputs, const EncodeOptions& options, FrameConsumer& receiver)
{
    receiver.setRate({.frames = 1, .seconds = 1}); // images have none of their own
    std::optional<PixelSize> canvas;               // the first image's size
    std::optional<FrameReadError> firstFlaw;
    std::int64_t leftOutCount = 0;
    std::int64_t frame = 0;
    for (const std::string& input : inputs) {
        ++frame;
        try {
            const auto source = open(input);
            if (Y4MReader::recognizes(*source))
                throw UsageError(withArguments(translate("Usage", "%1 is a YUV4MPEG2 stream; give it alone"), {input}));
            const RGBAFrame picture = ImageReader::readOne(*source, options.colors.background, frame);
            const PixelSize size{picture.width(), picture.height()};
            if (!canvas)
                canvas = size;
            if (options.strict && size != *canvas) {
                throw FrameReadError(
                    input, FrameReadError::AnotherSize{frame, size.width, size.height, canvas->width, canvas->height});
            }
            receiver.take(FrameFitting::onCanvas(picture, *canvas, options.colors.background));
        } catch (const FrameReadError& error) {
            if (!options.keepGoing)
                throw;
            ++leftOutCount;
            if (!firstFlaw)
                firstFlaw = error;
        }
    }
    if (leftOutCount == std::ssize(inputs))
        throw FrameReadError(*firstFlaw);
    if (leftOutCount == 0)
        return std::nullopt;
    return withArguments(translate("InputReader", "images left out: %1 of %2; %3"),
        {std::to_string(leftOutCount), std::to_string(inputs.size()), firstFlaw->what()});
}

} // namespace

std::optional<std::string> InputReader::read(const EncodeOptions& options, FrameConsumer& receiver)
{
    const auto inputs = options.raw ? options.inputs : InputFiles::expanded(options.inputs);
    if (inputs.size() > 1) {
        if (options.raw)
            throw UsageError(translate("Usage", "--raw: give one INPUT with all frames, one after another"));
        for (const std::string& input : inputs) {
            if (input == standardStreamName)
                throw UsageError(translate("Usage", "standard input must be the only INPUT"));
        }
        const CoreApplication application;
        return readImages(inputs, options, receiver);
    }
    const std::string& input = inputs.front();
    const auto source = open(input);
    if (input == standardStreamName && ::isatty(STDIN_FILENO) == 1)
        throw UsageError(translate(
            "Usage", "standard input is a terminal; pipe an image, a YUV4MPEG2 stream or raw frames into it"));
    if (options.raw) {
        return readStream(options, receiver, [&](FrameConsumer& counted) {
            RawReader::read(*source, *options.raw, counted,
                {.format = options.rawFormat,
                    .background = options.rawBackground,
                    .ifCut = options.keepGoing ? RawReader::IfCut::ReadFirst : RawReader::IfCut::RefuseAtOnce,
                    .parallelism = ReadingThreads::of(options.threads).reader});
        });
    }
    if (Y4MReader::recognizes(*source)) {
        return readStream(options, receiver, [&](FrameConsumer& counted) {
            Y4MReader::read(*source, options.colors, counted, ReadingThreads::of(options.threads).reader);
        });
    }
    const CoreApplication application;
    return readAnimation(*source, options, receiver);
}

} // namespace quillbox
