#include "App/FrameSources/Images/ImageReport.h"

#include "Translation/Translate.h"

#include <QImageReader>
#include <QtGlobal>

#include <array>
#include <string>
#include <utility>

namespace quillbox {

ServiceReport ImageReport::make()
{
    constexpr std::array<std::pair<const char*, const char*>, 5> kinds{
        {{"png", "PNG"}, {"jpeg", "JPEG"}, {"gif", "GIF"}, {"webp", "WebP"}, {"tiff", "TIFF"}}};
    const auto known = QImageReader::supportedImageFormats();
    ServiceReport report;
    report.service = QT_TRANSLATE_NOOP("Doctor", "Images");
    std::string readable;
    std::string missing;
    for (const auto& [format, name] : kinds) {
        std::string& list = known.contains(format) ? readable : missing;
        list += (list.empty() ? "" : ", ") + std::string(name);
    }
    report.health = missing.empty() ? ServiceReport::Health::Works : ServiceReport::Health::Limited;
    report.used
        = missing.empty() ? readable : withArguments(translate("Doctor", "%1, but not %2"), {readable, missing});
    if (!missing.empty())
        report.packages.emplace_back("qt6-image-formats-plugins");
    return report;
}

} // namespace quillbox
