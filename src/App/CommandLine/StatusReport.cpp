#include "App/CommandLine/StatusReport.h"

namespace quillbox {

std::string StatusReport::humanLine(const QVariantMap& status)
{
    auto line = status.value(QStringLiteral("phase")).toString();
    for (const auto* const detail : {"path", "message"}) {
        const auto value = status.value(QLatin1String(detail)).toString();
        if (!value.isEmpty())
            line += QStringLiteral("  ") + value;
    }
    return line.toStdString() + '\n';
}

} // namespace quillbox
