#include "App/Workflow/ClipExport.h"

#include "Capture/FrameTimeline.h"
#include "Capture/Spill/FrameSpill.h"
#include "PostCapture/ClipboardExporter.h"
#include "PostCapture/OutputFile.h"

#include <QCalendar>
#include <QDir>
#include <QFile>

#include <filesystem>
#include <optional>
#include <utility>

namespace quillbox {

GIFOptimizer::Result ClipExport::encode(
    const Recording& recording, ExportPreset preset, const GIFOptimizer::Execution& execution)
{
    const GIFOptimizer::Config config{
        .preset = preset, .sourceFPS = FrameTimeline::framesPerSecond, .ditheringOverride = std::nullopt};
    return GIFOptimizer::optimize(recording.reduced(), config, execution);
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
    const auto folder = ClipboardExporter::clipsDirectory();
    std::filesystem::create_directories(QFile::encodeName(folder).toStdString());
    for (;; date = date.addSecs(1)) {
        const auto name = ClipboardExporter::fileName(date, QStringLiteral("gif"), QCalendar());
        auto path = QDir(folder).filePath(name);
        try {
            OutputFile::save(QFile::encodeName(path).toStdString(), gif, OutputFile::IfExists::Refuse);
            return path;
        } catch (const OutputFileError& error) {
            using Reason = OutputFileError::Reason;
            if (error.reason() != Reason::AlreadyExists && error.reason() != Reason::IsFolder)
                throw;
        }
    }
}

ClipExport::Saved ClipExport::run(
    const Recording& recording, const ClipRequest& request, const GIFOptimizer::Execution& execution)
{
    Saved saved;
    if (request.isPrecise) {
        auto precise = encodePrecisely(recording, PreciseOptimizer::Config::of(request.preset), execution);
        saved.result = std::move(precise.clip);
        saved.recordedPictures = saved.result.frameCount + precise.thinnedFrames;
    } else {
        saved.result = encode(recording, request.preset, execution);
        saved.recordedPictures = recording.distinctCount();
    }
    if (request.path.isEmpty()) {
        saved.path = save(saved.result.data, QDateTime::currentDateTime());
    } else {
        saved.path = request.path;
        OutputFile::save(QFile::encodeName(saved.path).toStdString(), saved.result.data, OutputFile::IfExists::Replace);
    }
    recording.settle();
    return saved;
}

QByteArray ClipExport::bytes(const GIFOptimizer::Result& result)
{
    return {reinterpret_cast<const char*>(result.data.data()), std::ssize(result.data)};
}

} // namespace quillbox
