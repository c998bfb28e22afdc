#include "Capture/PipeWire/PipeWireSession.h"

#include "Capture/PipeWire/CoreListening.h"
#include "Platform/CHandle.h"

#include <QtGlobal>

#include <pipewire/extensions/metadata.h>
#include <pipewire/pipewire.h>

#include <string_view>

namespace quillbox {

namespace {

/// One connection, from its making until the answer.
class SessionLook {
public:
    PipeWireSession run()
    {
        m_loop.reset(pw_main_loop_new(nullptr));
        m_context.reset(m_loop ? pw_context_new(pw_main_loop_get_loop(m_loop.get()), nullptr, 0) : nullptr);
        m_core.reset(m_context ? pw_context_connect(m_context.get(), nullptr, 0) : nullptr);
        if (!m_core)
            return m_result;
        listen();
        pw_main_loop_run(m_loop.get());
        if (m_registry != nullptr)
            CoreListening::leaveRegistry(m_registry, m_registryListener);
        spa_hook_remove(&m_coreListener);
        return m_result;
    }

private:
    void listen();

    PipeWireSession m_result;
    CHandle<pw_main_loop, pw_main_loop_destroy> m_loop;
    CHandle<pw_context, pw_context_destroy> m_context;
    CHandle<pw_core, pw_core_disconnect> m_core;
    pw_registry* m_registry = nullptr; // the core's
    int m_listing = 0;                 // what the core says when it has told of all there is
    spa_hook m_coreListener{};
    spa_hook m_registryListener{};
};

/// Every manager of sessions keeps the list of what is used by default.
bool isKeptByManager(std::string_view type, const spa_dict* properties)
{
    const char* const name = properties != nullptr ? spa_dict_lookup(properties, PW_KEY_METADATA_NAME) : nullptr;
    return type == PW_TYPE_INTERFACE_Metadata && name != nullptr && std::string_view(name) == "default";
}

void SessionLook::listen()
{
    static const pw_core_events coreEvents = [] {
        pw_core_events events{};
        events.version = PW_VERSION_CORE_EVENTS;
        events.done = [](void* data, std::uint32_t id, int asked) {
            auto& self = *static_cast<SessionLook*>(data);
            if (id != PW_ID_CORE || asked != self.m_listing)
                return;
            self.m_result.isRunning = true;
            pw_main_loop_quit(self.m_loop.get());
        };
        events.error = [](void* data, std::uint32_t, int, int, const char*) {
            pw_main_loop_quit(static_cast<SessionLook*>(data)->m_loop.get());
        };
        return events;
    }();
    static const pw_registry_events registryEvents = [] {
        pw_registry_events events{};
        events.version = PW_VERSION_REGISTRY_EVENTS;
        events.global = [](void* data, std::uint32_t, std::uint32_t, const char* type, std::uint32_t,
                            const spa_dict* properties) {
            if (isKeptByManager(type, properties))
                static_cast<SessionLook*>(data)->m_result.hasManager = true;
        };
        return events;
    }();
    CoreListening::listenTo(m_core.get(), m_coreListener, coreEvents, this);
    m_registry = CoreListening::listenToRegistry(m_core.get(), m_registryListener, registryEvents, this);
    m_listing = CoreListening::askWhenDone(m_core.get());
}

} // namespace

PipeWireSession PipeWireSession::look()
{
    pw_init(nullptr, nullptr); // counts its calls
    if (qEnvironmentVariableIsEmpty("PIPEWIRE_DEBUG"))
        pw_log_set_level(SPA_LOG_LEVEL_NONE);           // what matters to the user the report says
    const PipeWireSession result = SessionLook().run(); // gone before the library's own end
    pw_deinit();
    return result;
}

} // namespace quillbox
