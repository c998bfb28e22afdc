#include "PostCapture/SavedClip.h"

#include "Platform/RegularFile.h"

namespace quillbox {

std::optional<QByteArray> SavedClip::read(const QString& path)
{
    constexpr qint64 maxClipBytes = qint64{256} << 20;
    auto bytes = RegularFile::read(path, maxClipBytes);
    if (bytes && !bytes->startsWith("GIF87a") && !bytes->startsWith("GIF89a"))
        return std::nullopt;
    return bytes;
}

} // namespace quillbox
