#pragma once

#include "Capture/Journal/JournalFormat.h"
#include "Capture/Recording.h"

#include <cstdint>
#include <filesystem>
#include <stdexcept>
#include <vector>

namespace quillbox {

/// A recording that can't be had; `what()` is a sentence for the user without a full stop.
class CutOffError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// The recordings that a program was making when it ended, as their journals have them. Those of programs that run are
/// not among them. Stateless; thread: any.
namespace CutOffRecordings {

struct Found {
    std::filesystem::path path; ///< of the journal
    JournalFormat::WallClock::time_point began;
    std::int64_t frameCount = 0; ///< 30 a second; 0: it is damaged so that nothing can be made of it
};

/// Those in `folder`, oldest first; the damaged ones last. Looks at no pixel.
[[nodiscard]] std::vector<Found> find(const std::filesystem::path& folder);
/// Those in the program's cache folder.
[[nodiscard]] std::vector<Found> find();

/// What was recorded, as far as it is whole: at least one frame. Nobody else can take it meanwhile. It is found again
/// unless `Recording::settle()` is called. Reads the whole journal.
/// @throws CutOffError  it is damaged, somebody else has it, or it is gone.
[[nodiscard]] Recording take(const Found& found);

/// Removes it. @throws CutOffError  somebody else has it.
void discard(const Found& found);

} // namespace CutOffRecordings
} // namespace quillbox
