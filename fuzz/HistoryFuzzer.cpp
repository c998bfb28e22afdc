#include "Encoding/Precondition.h"
#include "PostCapture/HistoryFile.h"

#include <QByteArray>

#include <cstddef>
#include <cstdint>

using namespace quillbox;

/// What can be read as a history is the same history once it has been written.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(
        reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)); // NOLINT(*-reinterpret-cast)
    const auto entries = HistoryFile::decode(bytes);
    if (!entries)
        return 0;
    const QByteArray written = HistoryFile::encode(*entries);
    const auto again = HistoryFile::decode(written);
    precondition(again.has_value(), "what we write, we can read");
    precondition(*again == *entries, "nothing is lost on the way");
    precondition(HistoryFile::encode(*again) == written, "one history is one text");
    return 0;
}
