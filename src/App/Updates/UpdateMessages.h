#pragma once

#include "App/Updates/UpdateService.h"

#include <QString>

namespace quillbox {

/// What the user reads about updates. Stateless; thread: any.
namespace UpdateMessages {

/// A sentence or two; the service's own words follow where nothing else is known.
[[nodiscard]] QString describe(const UpdateError& error);

/// Why the list of packages may be an old one, as an addition to what was found in it.
[[nodiscard]] QString staleness(const UpdateError& error);

/// Why no check can start; empty where it can, or is only waiting for one that runs.
[[nodiscard]] QString describe(UpdateService::Obstacle obstacle);

} // namespace UpdateMessages
} // namespace quillbox
