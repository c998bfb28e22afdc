#pragma once

#include "App/Updates/UpdateService.h"
#include "Platform/BackEndChoice.h"

#include <memory>

namespace quillbox {

/// Who updates this program on this system.
enum class UpdateBackEnd {
    PackageKit,
    Flatpak,
    Unpackaged, ///< nobody: it was not installed by anything that could
    None,       ///< nobody: switched off by the environment
};

/// By where the program lies, or as QUILLBOX_UPDATE_BACKEND says: packagekit, flatpak or none. There is a reason where
/// it is nobody. Thread: main.
[[nodiscard]] BackEndChoice<UpdateBackEnd> chooseUpdates();

/// The service that goes with it; where there is none, one that says why.
[[nodiscard]] std::unique_ptr<UpdateService> makeUpdateService();

} // namespace quillbox
