#include "Platform/Sandbox.h"

#include <QFile>
#include <QString>

namespace quillbox {

bool isInSandbox()
{
    return QFile::exists(QStringLiteral("/.flatpak-info"));
}

} // namespace quillbox
