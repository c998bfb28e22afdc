#include "Capture/Journal/JournalReader.h"
#include "Encoding/Precondition.h"
#include "FuzzInput.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdlib>
#include <memory>
#include <utility>

using namespace quillbox;

namespace {

/// Records as the input has them, with checksums that fit, so that what is behind the checksums is reached, too.
Bytes journalOf(fuzz::Input& input)
{
    const auto header = JournalFormat::encodedHeader(JournalFormat::WallClock::time_point());
    Bytes bytes(header.begin(), header.end());
    for (std::uint32_t number = 0; !input.isEmpty(); ++number) {
        const auto kind = static_cast<JournalFormat::Kind>(1 + input.below(6));
        const std::int64_t value = input.byte() < 240 ? input.number16() : input.number16() << 40;
        const Bytes payload = input.rest(static_cast<std::size_t>(input.byte()));
        JournalFormat::append(bytes,
            {.kind = kind,
                .number = number,
                .value = value,
                .payloadBytes = static_cast<std::uint32_t>(payload.size()),
                .payloadChecksum = JournalFormat::checksum(payload)});
        bytes.insert(bytes.end(), payload.begin(), payload.end());
    }
    return bytes;
}

std::shared_ptr<const SpillFile> fileOf(const Bytes& bytes)
{
    FileDescriptor descriptor(::memfd_create("journal", MFD_CLOEXEC));
    if (::write(descriptor.number(), bytes.data(), bytes.size()) != std::ssize(bytes))
        std::abort(); // no memory
    return std::make_shared<const SpillFile>(std::move(descriptor));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzz::Input input(data, size);
    const bool isAnything = input.byte() < 64;
    const Bytes bytes = isAnything ? input.rest(1 << 16) : journalOf(input);
    const auto file = fileOf(bytes);
    const auto summary = JournalReader::summary(*file);
    const auto contents = JournalReader::read(file);
    precondition(summary.has_value() == contents.has_value(), "both know a journal");
    precondition(isAnything || summary, "that is one");
    if (!contents || contents->frames.empty())
        return 0;
    precondition(std::ssize(contents->frames) <= JournalFormat::maxFrames, "a recording has an end");
    std::int64_t lastEnd = 0;
    for (const FrameRange& hold : contents->held) {
        precondition(hold.begin >= lastEnd && hold.begin < hold.end, "holds follow one another");
        lastEnd = hold.end;
    }
    precondition(lastEnd <= std::ssize(contents->frames), "frames that there are");
    const RGBAFrame* before = nullptr;
    for (const RGBAFrame& frame : contents->frames) {
        if (before != nullptr && before->sharesPixels(frame))
            continue;
        before = &frame;
        const bool fits = frame.width() >= 1 && frame.width() <= JournalFormat::maxSide && frame.height() >= 1
            && frame.height() <= JournalFormat::maxSide;
        precondition(fits, "the format's sizes");
        for (std::int64_t index = 0; index < frame.bandCount(); ++index) {
            const auto byteCount
                = static_cast<std::size_t>(frame.width() * frame.rowsOfBand(index) * RGBAFrame::bytesPerPixel);
            precondition(frame.band(index).size() == byteCount, "every band can be read, and has its rows");
        }
    }
    return 0;
}
