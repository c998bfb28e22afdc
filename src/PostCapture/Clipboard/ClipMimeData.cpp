#include "PostCapture/Clipboard/ClipMimeData.h"

#include <QMimeData>

namespace quillbox {

QMimeData* makeMimeData(const QUrl& fileURL, const std::optional<QByteArray>& gifData)
{
    auto* const content = new QMimeData;
    content->setUrls({fileURL});
    if (gifData)
        content->setData(QStringLiteral("image/gif"), *gifData);
    return content;
}

} // namespace quillbox
