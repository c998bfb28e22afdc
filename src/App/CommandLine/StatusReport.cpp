#include "App/CommandLine/StatusReport.h"

#include "App/Workflow/RecordingClock.h"
#include "Translation/Translate.h"

namespace quillbox {

std::string StatusReport::humanLine(const QVariantMap& status)
{
    auto line = status.value(QStringLiteral("phase")).toString();
    if (const auto elapsed = status.value(QStringLiteral("elapsedSeconds")); elapsed.isValid())
        line += QStringLiteral("  ") + RecordingClock::text(std::chrono::seconds(elapsed.toLongLong()));
    for (const auto* const detail : {"path", "message"}) {
        const auto value = status.value(QLatin1String(detail)).toString();
        if (!value.isEmpty())
            line += QStringLiteral("  ") + value;
    }
    auto text = line.toStdString() + '\n';
    const auto count = static_cast<int>(status.value(QStringLiteral("cutOff")).toList().size()); // a handful
    if (count > 0)
        text += translate("StatusReport", "%n recording(s) cut off; quillbox recover makes clips", nullptr, count)
            + '\n';
    return text;
}

} // namespace quillbox
