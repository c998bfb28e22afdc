#include "App/Workflow/ClipExport.h"

#include "Capture/FrameTimeline.h"
#include "Capture/Spill/ByteSpill.h"
#include "Capture/Spill/FrameSpill.h"
#include "PostCapture/ClipboardExporter.h"
#include "PostCapture/OutputFile.h"

#include <QCalendar>
#include <QDir>
#include <QFile>

#include <exception>
#include <filesystem>
#include <functional>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace quillbox {
namespace {

GIFOptimizer::Config configFor(ExportPreset preset)
{
    return {.preset = preset, .sourceFPS = FrameTimeline::framesPerSecond, .ditheringOverride = std::nullopt};
}

/// With this many bytes of frames in memory, twenty seconds of 1080p in motion become a clip in less than 400 MB.
constexpr std::int64_t frameMemory = 170'000'000;

/// The same execution, which keeps what is large in a file. @param spill  Outlives the result.
GIFOptimizer::Execution storingIn(ByteSpill& spill, GIFOptimizer::Execution execution)
{
    execution.frameMemory = frameMemory;
    execution.store = [&spill](std::span<const std::uint8_t> bytes) {
        return spill.store(bytes);
    };
    return execution;
}

ByteSpill usualSpill()
{
    return {FrameSpill::usualLimits().diskSpaceToLeave, FrameSpill::usualFolder()};
}

/// @param write  Writes the file under the name that it is given, unless there is one.
QString saveUnderFreeName(QDateTime date, const std::function<void(const std::string& path)>& write)
{
    const auto folder = ClipboardExporter::clipsDirectory();
    std::filesystem::create_directories(QFile::encodeName(folder).toStdString());
    for (;; date = date.addSecs(1)) {
        const auto name = ClipboardExporter::fileName(date, QStringLiteral("gif"), QCalendar());
        auto path = QDir(folder).filePath(name);
        try {
            write(QFile::encodeName(path).toStdString());
            return path;
        } catch (const OutputFileError& error) {
            using Reason = OutputFileError::Reason;
            if (error.reason() != Reason::AlreadyExists && error.reason() != Reason::IsFolder)
                throw;
        }
    }
}

/// The same bytes in as little memory as may be: what is wanted at a paste, if at all, goes to a file.
std::vector<KeptBytes> stored(std::vector<KeptBytes> pieces)
{
    constexpr std::size_t usualBytes = 1'000'000;
    ByteSpill spill = usualSpill();
    std::vector<KeptBytes> result;
    Bytes gathered;
    const auto flush = [&] {
        if (gathered.empty())
            return;
        auto inFile = spill.store(gathered);
        result.push_back(inFile ? KeptBytes(std::move(inFile)) : KeptBytes(std::exchange(gathered, {})));
        gathered.clear();
    };
    for (KeptBytes& piece : pieces) {
        if (!piece.isInMemory()) {
            flush();
            result.push_back(std::move(piece));
            continue;
        }
        const auto bytes = piece.read();
        piece = {};
        gathered.insert(gathered.end(), bytes->begin(), bytes->end());
        if (gathered.size() >= usualBytes)
            flush();
    }
    flush();
    return result;
}

/// All pieces as one, which stay where they are.
ClipboardBytes joined(std::vector<KeptBytes> pieces, std::int64_t byteCount)
{
    return ClipboardBytes(
        [pieces = std::make_shared<const std::vector<KeptBytes>>(std::move(pieces)), byteCount]() -> QByteArray {
            QByteArray bytes;
            try {
                bytes.reserve(byteCount);
                for (const KeptBytes& piece : *pieces) {
                    const auto read = piece.read();
                    bytes.append(reinterpret_cast<const char*>(read->data()), std::ssize(*read));
                }
            } catch (const std::exception&) { // a disk that fails, or no memory: the file is there all the same
                return {};
            }
            return bytes;
        });
}

} // namespace

GIFOptimizer::Result ClipExport::encode(
    const Recording& recording, ExportPreset preset, const GIFOptimizer::Execution& execution)
{
    ByteSpill spill = usualSpill();
    return GIFOptimizer::optimize(recording.reduced(), configFor(preset), storingIn(spill, execution));
}

PreciseOptimizer::Result ClipExport::encodePrecisely(
    const Recording& recording, const PreciseOptimizer::Config& config, const GIFOptimizer::Execution& execution)
{
    (void)recording.reduced(); // until then the reducer may be at work on the frames
    FrameSpill spill(FrameSpill::inputLimits(FrameSpill::usualMemory), FrameSpill::usualFolder());
    DistinctFrames frames = PreciseOptimizer::framesFor(
        config, FrameTimeline::framesPerSecond, [&spill](const RGBAFrame& picture) { spill.keep(picture); });
    for (const RGBAFrame& frame : recording.frames())
        frames.append(frame);
    return PreciseOptimizer::optimize(frames, config, execution);
}

QString ClipExport::save(std::span<const std::uint8_t> gif, QDateTime date)
{
    return saveUnderFreeName(
        std::move(date), [gif](const std::string& path) { OutputFile::save(path, gif, OutputFile::IfExists::Refuse); });
}

QString ClipExport::saveInPieces(std::span<const KeptBytes> gif, QDateTime date)
{
    return saveUnderFreeName(std::move(date),
        [gif](const std::string& path) { OutputFile::saveInPieces(path, gif, OutputFile::IfExists::Refuse); });
}

ClipExport::Saved ClipExport::run(
    const Recording& recording, const ClipRequest& request, const GIFOptimizer::Execution& execution)
{
    Saved saved{.result = {}, .gif = QByteArray(), .path = {}};
    std::vector<KeptBytes> pieces;
    if (request.isPrecise) {
        auto precise = encodePrecisely(recording, PreciseOptimizer::Config::of(request.preset), execution);
        saved.result = std::move(precise.clip);
        saved.recordedPictures = saved.result.frameCount + precise.thinnedFrames;
        pieces.emplace_back(std::exchange(saved.result.data, {}));
    } else {
        ByteSpill spill = usualSpill();
        auto made = GIFOptimizer::optimizeInPieces(
            recording.reduced(), configFor(request.preset), storingIn(spill, execution));
        saved.result = std::move(made.clip);
        saved.recordedPictures = recording.distinctCount();
        pieces = std::move(made.file);
    }
    if (request.path.isEmpty()) {
        saved.path = saveInPieces(pieces, QDateTime::currentDateTime());
    } else {
        saved.path = request.path;
        OutputFile::saveInPieces(QFile::encodeName(saved.path).toStdString(), pieces, OutputFile::IfExists::Replace);
    }
    recording.settle();
    saved.gif = joined(stored(std::move(pieces)), saved.result.byteCount);
    return saved;
}

QByteArray ClipExport::bytes(const GIFOptimizer::Result& result)
{
    return {reinterpret_cast<const char*>(result.data.data()), std::ssize(result.data)};
}

} // namespace quillbox
