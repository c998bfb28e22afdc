#include "PostCapture/ClipEntry.h"

#include <QHash>

#include <utility>

namespace {

template <typename T> std::size_t hashOf(const std::optional<T>& value)
{
    return value ? qHash(*value) : 0;
}

} // namespace

std::size_t std::hash<quillbox::ClipEntry>::operator()(const quillbox::ClipEntry& entry) const noexcept
{
    return qHashMulti(0, entry.id, entry.date, entry.format, entry.preset, hashOf(entry.outputPath),
        hashOf(entry.byteCount), hashOf(entry.durationSeconds), hashOf(entry.width), hashOf(entry.height));
}
