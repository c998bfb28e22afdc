#include "Platform/RegularFile.h"

#include "Platform/FileDescriptor.h"

#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>

namespace quillbox {

std::optional<QByteArray> RegularFile::read(const QString& path, qint64 maxBytes)
{
    // A pipe that nobody writes to would be waited for at open() already.
    const FileDescriptor descriptor(
        ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK));
    struct stat status { };
    if (descriptor.number() < 0 || ::fstat(descriptor.number(), &status) != 0 || !S_ISREG(status.st_mode)
        || status.st_size > maxBytes)
        return std::nullopt;
    QFile file;
    if (!file.open(descriptor.number(), QIODevice::ReadOnly | QIODevice::Unbuffered))
        return std::nullopt;
    auto bytes = file.read(maxBytes + 1); // it may have grown since
    if (file.error() != QFileDevice::NoError || bytes.size() > maxBytes)
        return std::nullopt;
    return bytes;
}

} // namespace quillbox
