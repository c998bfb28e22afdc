#pragma once

#include <pipewire/pipewire.h>

namespace quillbox {

/// What one has a connection to PipeWire tell. Its methods are macros in the C of GNU.
namespace CoreListening {

/// `hook` is removed with spa_hook_remove(), at the latest before the core is disconnected; `events` outlives it.
void listenTo(pw_core* core, spa_hook& hook, const pw_core_events& events, void* data);

/// The list of what the core has for us, told through `events`, until leaveRegistry(). @return null if it can't be had
[[nodiscard]] pw_registry* listenToRegistry(
    pw_core* core, spa_hook& hook, const pw_registry_events& events, void* data);

/// Ends that, before the core is disconnected, which does not free it.
void leaveRegistry(pw_registry* registry, spa_hook& hook);

/// Has the core tell, by its event `done`, when it has done all that it was asked for.
/// @return the number that it will tell
[[nodiscard]] int askWhenDone(pw_core* core);

} // namespace CoreListening
} // namespace quillbox
