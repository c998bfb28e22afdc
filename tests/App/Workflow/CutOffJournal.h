#pragma once

#include "Capture/Journal/RecordingJournal.h"

#include <filesystem>
#include <vector>

namespace quillbox::test {

/// What a program leaves in `folder` that ended while it recorded `frames`.
inline void leaveJournal(const std::filesystem::path& folder, const std::vector<RGBAFrame>& frames)
{
    RecordingJournal journal({.folder = folder, .diskSpaceToLeave = 0, .coreShare = 1e9});
    for (std::size_t i = 0; i < frames.size(); ++i)
        journal.take(frames[i], static_cast<std::int64_t>(i));
}

} // namespace quillbox::test
