#pragma once

#include <chrono>
#include <string>
#include <vector>

namespace quillbox {

/// What the desktop has for one of this program's needs, and what becomes of it: plain data, for `quillbox doctor`.
/// Every other text is in the user's language, UTF-8, without a full stop.
struct ServiceReport {
    enum class Health {
        Works,
        Limited, ///< the program does without, or has less
        Missing, ///< what needs it cannot be done
    };

    std::string service; ///< the need, in one or two English words, which "Doctor" of the catalogues knows
    Health health = Health::Missing;
    std::string used;                  ///< what will be used; where nothing can be, why
    std::vector<std::string> found;    ///< what there is
    std::vector<std::string> advice;   ///< what the user can do
    std::vector<std::string> packages; ///< what to install, by Debian's names
};

/// How long one question to another program may take while a report is made; several are asked at once.
inline constexpr std::chrono::milliseconds reportPatience{1000};

} // namespace quillbox
