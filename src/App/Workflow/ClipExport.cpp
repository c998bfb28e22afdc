#include "App/Workflow/ClipExport.h"

#include "Capture/FrameTimeline.h"
#include "Capture/Spill/FrameSpill.h"
#include "PostCapture/ClipboardExporter.h"
#include "PostCapture/OutputFile.h"

#include <QCalendar>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>

#include <filesystem>
#include <optional>

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

QString ClipExport::newPath()
{
    const auto name = ClipboardExporter::fileName(QDateTime::currentDateTime(), QStringLiteral("gif"), QCalendar());
    return ClipboardExporter::clipsDirectory() + QLatin1Char('/') + name;
}

ClipExport::Saved ClipExport::run(
    const Recording& recording, ExportPreset preset, const GIFOptimizer::Execution& execution)
{
    Saved saved{.result = encode(recording, preset, execution), .path = newPath()};
    std::filesystem::create_directories(QFile::encodeName(QFileInfo(saved.path).path()).toStdString());
    OutputFile::save(QFile::encodeName(saved.path).toStdString(), saved.result.data, OutputFile::IfExists::Replace);
    return saved;
}

QByteArray ClipExport::bytes(const GIFOptimizer::Result& result)
{
    return {reinterpret_cast<const char*>(result.data.data()), std::ssize(result.data)};
}

} // namespace quillbox
