#include "App/ClipExport.h"

#include "Capture/FrameTimeline.h"
#include "PostCapture/ClipboardExporter.h"
#include "PostCapture/OutputFile.h"

#include <QCalendar>
#include <QDateTime>
#include <QFile>

#include <filesystem>
#include <optional>

namespace quillbox {

ClipExport::Saved ClipExport::run(const std::vector<RGBAFrame>& frames, ExportPreset preset)
{
    const GIFOptimizer::Config config{
        .preset = preset, .sourceFPS = FrameTimeline::framesPerSecond, .ditheringOverride = std::nullopt};
    Saved saved{.result = GIFOptimizer::optimize(frames, config), .path = {}};
    const auto date = QDateTime::currentDateTime();
    const auto folder = ClipboardExporter::clipsDirectory();
    std::filesystem::create_directories(QFile::encodeName(folder).toStdString());
    saved.path = folder + QLatin1Char('/') + ClipboardExporter::fileName(date, QStringLiteral("gif"), QCalendar());
    OutputFile::save(QFile::encodeName(saved.path).toStdString(), saved.result.data, OutputFile::IfExists::Replace);
    return saved;
}

} // namespace quillbox
