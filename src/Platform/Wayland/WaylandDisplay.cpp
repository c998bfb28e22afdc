#include "Platform/Wayland/WaylandDisplay.h"

#include <poll.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <utility>

namespace quillbox {

namespace {

using Clock = std::chrono::steady_clock;
using Globals = std::vector<WaylandDisplay::Global>;
constexpr std::chrono::seconds answerPatience{2};

} // namespace

WaylandDisplay::WaylandDisplay(std::shared_ptr<const CancelEvent> stop)
    : m_stop(std::move(stop))
    , m_display(wl_display_connect(nullptr))
{
    if (!m_display)
        return;
    m_registry.reset(wl_display_get_registry(m_display.get()));
    static const wl_registry_listener listener{
        .global =
            [](void* data, wl_registry*, std::uint32_t name, const char* interface, std::uint32_t version) {
                static_cast<Globals*>(data)->push_back({name, interface, version});
            },
        .global_remove =
            [](void* data, wl_registry*, std::uint32_t name) {
                std::erase_if(*static_cast<Globals*>(data), [name](const Global& each) { return each.name == name; });
            },
    };
    (void)wl_registry_add_listener(m_registry.get(), &listener, &m_globals); // fails only for a second one
    m_isConnected = roundTrip();
}

bool WaylandDisplay::dispatchUntil(const bool& isDone)
{
    return takeEvents([&isDone] { return isDone; }, Clock::now() + answerPatience);
}

bool WaylandDisplay::followUntil(const std::function<bool()>& isDone)
{
    return takeEvents(isDone, std::nullopt);
}

bool WaylandDisplay::takeEvents(const std::function<bool()>& isDone, Deadline deadline)
{
    wl_display* const display = m_display.get();
    while (!isDone()) {
        while (wl_display_prepare_read(display) != 0)
            if (wl_display_dispatch_pending(display) < 0)
                return false;
        if (isDone()) {
            wl_display_cancel_read(display);
            return true;
        }
        const bool isFlushed = wl_display_flush(display) >= 0 || errno == EAGAIN;
        if (!isFlushed || !waitForEvents(deadline)) {
            wl_display_cancel_read(display);
            return false;
        }
        if (wl_display_read_events(display) < 0 || wl_display_dispatch_pending(display) < 0)
            return false;
    }
    return true;
}

/// @return false if the time ran out, or it was stopped
bool WaylandDisplay::waitForEvents(Deadline deadline) const
{
    constexpr std::int64_t noLimit = -1; // of poll()
    const auto left
        = deadline ? std::chrono::ceil<std::chrono::milliseconds>(*deadline - Clock::now()).count() : noLimit;
    std::array<pollfd, 2> wanted{
        {{wl_display_get_fd(m_display.get()), POLLIN, 0}, {m_stop ? m_stop->descriptor() : -1, POLLIN, 0}}};
    return (left > 0 || !deadline) && ::poll(wanted.data(), wanted.size(), static_cast<int>(left)) > 0
        && wanted.back().revents == 0;
}

bool WaylandDisplay::roundTrip()
{
    bool isDone = false;
    static const wl_callback_listener listener{
        .done = [](void* data, wl_callback*, std::uint32_t) { *static_cast<bool*>(data) = true; },
    };
    const CHandle<wl_callback, wl_callback_destroy> answer(wl_display_sync(m_display.get()));
    (void)wl_callback_add_listener(answer.get(), &listener, &isDone);
    return dispatchUntil(isDone);
}

} // namespace quillbox
