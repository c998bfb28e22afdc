#include "App/CommandLine/CutOffReport.h"

#include "App/CommandLine/Terminal/ErrorReport.h"
#include "Capture/FrameTimeline.h"
#include "Translation/Translate.h"

#include <QtGlobal>
#include <QVariantMap>

#include <chrono>

namespace quillbox {
namespace {

double secondsOf(const CutOffRecordings::Found& found)
{
    return static_cast<double>(found.frameCount) / FrameTimeline::framesPerSecond;
}

} // namespace

QDateTime CutOffReport::dateOf(const CutOffRecordings::Found& found)
{
    using std::chrono::milliseconds;
    return QDateTime::fromMSecsSinceEpoch(
        std::chrono::duration_cast<milliseconds>(found.began.time_since_epoch()).count());
}

std::string CutOffReport::line(const CutOffRecordings::Found& found)
{
    const bool isDamaged = found.frameCount == 0;
    const auto date = isDamaged ? "-" : dateOf(found).toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")).toStdString();
    const auto duration = isDamaged ? "-" : QString::number(secondsOf(found), 'f', 1).toStdString() + 's';
    return ErrorReport::oneLine(date + "  " + duration + "  " + found.path.string());
}

QVariantList CutOffReport::list(const std::vector<CutOffRecordings::Found>& all)
{
    QVariantList maps;
    for (const auto& found : all) {
        QVariantMap map{{QStringLiteral("path"), QString::fromStdString(found.path.string())}};
        if (found.frameCount > 0) {
            map.insert(QStringLiteral("date"), dateOf(found).toUTC().toString(Qt::ISODate));
            map.insert(QStringLiteral("durationSeconds"), secondsOf(found));
        }
        maps.push_back(map);
    }
    return maps;
}

std::optional<ServiceReport> CutOffReport::report(const std::vector<CutOffRecordings::Found>& all)
{
    if (all.empty())
        return std::nullopt;
    ServiceReport report;
    report.service = QT_TRANSLATE_NOOP("Doctor", "Recordings");
    report.health = ServiceReport::Health::Limited;
    const auto count = static_cast<int>(all.size()); // a handful
    report.used = translate("Doctor", "%n recording(s) cut off before there was a clip", nullptr, count);
    for (const auto& found : all)
        report.found.push_back(line(found));
    report.advice.push_back(
        translate("Doctor", "quillbox recover makes clips of them, quillbox recover --discard removes them"));
    return report;
}

} // namespace quillbox
