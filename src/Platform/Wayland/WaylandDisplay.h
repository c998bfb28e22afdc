#pragma once

#include "Platform/CancelEvent.h"
#include "Platform/CHandle.h"

#include <wayland-client.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quillbox {

/// Our own connection to a Wayland compositor, and what it offers. Used by one thread; no answer is waited for longer
/// than two seconds.
class WaylandDisplay {
public:
    /// Something that the compositor offers.
    struct Global {
        std::uint32_t name; ///< the compositor's number for it
        std::string interface;
        std::uint32_t version; ///< the newest that it knows
    };

    /// Connects to the compositor that WAYLAND_DISPLAY names.
    /// @param stop  Once raised, no answer is waited for any more; may be null.
    explicit WaylandDisplay(std::shared_ptr<const CancelEvent> stop = nullptr);

    /// Whether one has answered. Where none has, nothing but this may be called.
    [[nodiscard]] bool isConnected() const { return m_isConnected; }
    [[nodiscard]] wl_display* display() const { return m_display.get(); }
    [[nodiscard]] const std::vector<Global>& globals() const { return m_globals; }

    /// Makes an object of a global, of at most version `newest`.
    template <typename T>
    [[nodiscard]] T* bind(const Global& global, const wl_interface& interface, std::uint32_t newest) const
    {
        return static_cast<T*>(
            wl_registry_bind(m_registry.get(), global.name, &interface, std::min(global.version, newest)));
    }
    /// The same of the first global that has this interface. @return null where there is none
    template <typename T> [[nodiscard]] T* bindFirst(const wl_interface& interface, std::uint32_t newest) const
    {
        const auto global = std::ranges::find(m_globals, std::string(interface.name), &Global::interface);
        return global == m_globals.end() ? nullptr : bind<T>(*global, interface, newest);
    }

    /// Takes events until `isDone`. @return false if the time ran out, the connection broke, or it was stopped
    [[nodiscard]] bool dispatchUntil(const bool& isDone);
    /// The same, for what is no answer, without a limit of time.
    [[nodiscard]] bool followUntil(const std::function<bool()>& isDone);
    /// Until the compositor has done what was asked of it and we have heard of it. @return as above
    [[nodiscard]] bool roundTrip();

private:
    struct RegistryDestroyer { // the function is one of each file that includes the library's header
        void operator()(wl_registry* registry) const { wl_registry_destroy(registry); }
    };

    using Deadline = std::optional<std::chrono::steady_clock::time_point>; // none: no limit

    [[nodiscard]] bool takeEvents(const std::function<bool()>& isDone, Deadline deadline);
    [[nodiscard]] bool waitForEvents(Deadline deadline) const;

    std::shared_ptr<const CancelEvent> m_stop;
    // Destroyed from the last to the first.
    CHandle<wl_display, wl_display_disconnect> m_display;
    std::unique_ptr<wl_registry, RegistryDestroyer> m_registry;
    std::vector<Global> m_globals;
    bool m_isConnected = false;
};

} // namespace quillbox
