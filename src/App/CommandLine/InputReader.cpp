#include "App/CommandLine/InputReader.h"

#include "App/CommandLine/CoreApplication.h"
#include "App/FrameSources/AnimationTimeline.h"
#include "App/FrameSources/ByteSource.h"
#include "App/FrameSources/FrameReadError.h"
#include "App/FrameSources/ImageReader.h"
#include "App/FrameSources/RawReader.h"
#include "App/FrameSources/Y4MReader.h"
#include "Translation/Translate.h"

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

void readAnimation(FileByteSource& source, bool hasRate, FrameConsumer& receiver)
{
    const auto timed = ImageReader::readAll(source);
    if (hasRate || timed.size() == 1) { // a single picture has no rate of its own
        for (const auto& [frame, milliseconds] : timed)
            receiver.take(frame);
        return;
    }
    const auto milliseconds = AnimationTimeline::duration(timed);
    if (milliseconds > AnimationTimeline::maximumMilliseconds) {
        throw FrameReadError(
            source.name(), FrameReadError::TooLong{milliseconds, AnimationTimeline::maximumMilliseconds});
    }
    AnimationTimeline::steady(timed, receiver);
}

void readImages(const std::vector<std::string>& inputs, FrameConsumer& receiver)
{
    std::int64_t frame = 1;
    for (const std::string& input : inputs) {
        const auto source = open(input);
        if (Y4MReader::recognizes(*source))
            throw UsageError(withArguments(translate("Usage", "%1 is a YUV4MPEG2 stream; give it alone"), {input}));
        receiver.take(ImageReader::readOne(*source, frame++));
    }
}

} // namespace

void InputReader::read(const EncodeOptions& options, FrameConsumer& receiver)
{
    if (options.inputs.size() > 1) {
        if (options.raw)
            throw UsageError(translate("Usage", "--raw: give one INPUT with all frames, one after another"));
        for (const std::string& input : options.inputs) {
            if (input == standardStreamName)
                throw UsageError(translate("Usage", "standard input must be the only INPUT"));
        }
        const CoreApplication application;
        return readImages(options.inputs, receiver);
    }
    const auto source = open(options.inputs.front());
    if (options.inputs.front() == standardStreamName && ::isatty(STDIN_FILENO) == 1)
        throw UsageError(
            translate("Usage", "standard input is a terminal; pipe a YUV4MPEG2 stream or raw frames into it"));
    if (options.raw)
        return RawReader::read(*source, *options.raw, receiver);
    if (options.inputs.front() == standardStreamName || Y4MReader::recognizes(*source))
        return Y4MReader::read(*source, receiver);
    const CoreApplication application;
    return readAnimation(*source, options.sourceFPS.has_value(), receiver);
}

} // namespace quillbox
