#include "Capture/PipeWire/CoreListening.h"

namespace quillbox::CoreListening {

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wold-style-cast"
#ifdef __clang__
#pragma GCC diagnostic ignored "-Wgnu-statement-expression"
#endif

void listenTo(pw_core* core, spa_hook& hook, const pw_core_events& events, void* data)
{
    pw_core_add_listener(core, &hook, &events, data);
}

pw_registry* listenToRegistry(pw_core* core, spa_hook& hook, const pw_registry_events& events, void* data)
{
    pw_registry* const registry = pw_core_get_registry(core, PW_VERSION_REGISTRY, 0);
    if (registry != nullptr)
        pw_registry_add_listener(registry, &hook, &events, data);
    return registry;
}

void leaveRegistry(pw_registry* registry, spa_hook& hook)
{
    spa_hook_remove(&hook);
    pw_proxy_destroy(reinterpret_cast<pw_proxy*>(registry)); // every interface that is not the core's own is a proxy
}

int askWhenDone(pw_core* core)
{
    return pw_core_sync(core, PW_ID_CORE, 0);
}

#pragma GCC diagnostic pop

} // namespace quillbox::CoreListening
