#include "Capture/Journal/CutOffRecordings.h"

#include "Capture/Journal/JournalFile.h"
#include "Capture/Journal/JournalReader.h"
#include "Capture/RecordingReducer.h"
#include "Capture/Spill/FrameSpill.h"
#include "Translation/Translate.h"

#include <algorithm>
#include <chrono>
#include <memory>
#include <optional>
#include <system_error>
#include <thread>
#include <tuple>
#include <unistd.h>
#include <utility>

namespace quillbox {
namespace {

std::optional<JournalReader::Summary> summaryOf(const SpillFile& file)
{
    try {
        return JournalReader::summary(file);
    } catch (const SpillError&) { // as good as damaged
        return std::nullopt;
    }
}

/// @throws CutOffError  somebody else has it, or it is gone.
JournalFile::Named openForTaking(const std::filesystem::path& path)
{
    constexpr int attempts = 20; // somebody may be looking at it, for moments
    for (int attempt = 0; attempt < attempts; ++attempt) {
        if (auto journal = JournalFile::open(path, JournalFile::Lock::Exclusive))
            return std::move(*journal);
        if (!JournalFile::open(path, JournalFile::Lock::Shared))
            break;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    throw CutOffError(translate("CutOffRecordings", "Another program has this recording, or it is gone"));
}

} // namespace

std::vector<CutOffRecordings::Found> CutOffRecordings::find(const std::filesystem::path& folder)
{
    std::vector<Found> all;
    std::error_code error;
    for (auto entry = std::filesystem::directory_iterator(folder, error);
         !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        if (!JournalFile::isName(entry->path()))
            continue;
        auto journal = JournalFile::open(entry->path(), JournalFile::Lock::Shared);
        if (!journal)
            continue;
        const auto summary = summaryOf(SpillFile(std::move(journal->file)));
        all.push_back({.path = entry->path(),
            .began = summary ? summary->began : JournalFormat::WallClock::time_point(),
            .frameCount = summary ? summary->frameCount : 0});
    }
    std::ranges::sort(all, {},
        [](const Found& found) { return std::tuple(found.frameCount == 0, found.began, found.path.string()); });
    return all;
}

std::vector<CutOffRecordings::Found> CutOffRecordings::find()
{
    return find(FrameSpill::usualFolder());
}

Recording CutOffRecordings::take(const Found& found)
{
    auto journal = openForTaking(found.path);
    const auto file = std::make_shared<const SpillFile>(std::move(journal.file)); // which has the lock
    std::optional<JournalReader::Contents> contents;
    try {
        contents = JournalReader::read(file);
    } catch (const SpillError& error) {
        throw CutOffError(error.what());
    }
    if (!contents || contents->frames.empty())
        throw CutOffError(translate("CutOffRecordings", "This recording is damaged; nothing can be made of it"));
    auto reducer = std::make_shared<RecordingReducer>();
    reducer->follow(contents->frames, contents->held);
    Recording recording(std::move(contents->frames), std::move(reducer));
    recording.setBackup([file, path = found.path] {
        (void)::unlink(path.c_str()); // one that can't be removed is found again
    });
    return recording;
}

void CutOffRecordings::discard(const Found& found)
{
    const auto journal = openForTaking(found.path);
    if (::unlink(journal.path.c_str()) != 0)
        throw CutOffError(std::generic_category().message(errno));
}

} // namespace quillbox
