#include "PostCapture/SavedClip.h"

#include "Platform/RegularFile.h"
#include "PostCapture/ClipboardExporter.h"

#include <QtConcurrent/QtConcurrentRun>
#include <QUrl>

namespace quillbox {

std::optional<QByteArray> SavedClip::read(const QString& path)
{
    constexpr qint64 maxClipBytes = qint64{256} << 20;
    auto bytes = RegularFile::read(path, maxClipBytes);
    if (bytes && !bytes->startsWith("GIF87a") && !bytes->startsWith("GIF89a"))
        return std::nullopt;
    return bytes;
}

QFuture<bool> SavedClip::copy(const QString& path, QObject& context)
{
    return QtConcurrent::run(&read, path).then(&context, [path](const std::optional<QByteArray>& gif) {
        if (gif)
            ClipboardExporter::copyToPasteboard(QUrl::fromLocalFile(path), gif);
        return gif.has_value();
    });
}

} // namespace quillbox
