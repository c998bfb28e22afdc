#include "App/Desktop/SoftwareCenter.h"

#include <QDesktopServices>
#include <QFile>
#include <QStandardPaths>
#include <QUrl>

namespace quillbox {

bool SoftwareCenter::isThere()
{
    const auto caches
        = QStandardPaths::locateAll(QStandardPaths::GenericDataLocation, QStringLiteral("applications/mimeinfo.cache"));
    for (const auto& path : caches) {
        QFile cache(path);
        if (cache.open(QIODevice::ReadOnly) && cache.readAll().contains("\nx-scheme-handler/appstream="))
            return true;
    }
    return false;
}

void SoftwareCenter::show()
{
    (void)QDesktopServices::openUrl(QUrl(QStringLiteral("appstream://" QUILLBOX_APP_ID)));
}

} // namespace quillbox
