#include "Platform/Wayland/Protocols.h"

#include <array>

namespace quillbox::WaylandProtocols {

namespace {

// The letters of a signature: u, i numbers, s string, o object, n new object, ? may be null; a digit is the version of
// the interface from which on there is the message. Arguments that are objects name their interface.

std::array<const wl_interface*, 4> noObjects{};
// NOLINTBEGIN(cppcoreguidelines-interfaces-global-init): addresses only, which are constants
std::array<const wl_interface*, 2> getDetailsTypes{&outputDetailsInterface, &wl_output_interface};
std::array<const wl_interface*, 5> getLayerSurfaceTypes{
    &layerSurfaceInterface, &wl_surface_interface, &wl_output_interface, nullptr, nullptr};
// NOLINTEND(cppcoreguidelines-interfaces-global-init)
std::array<const wl_interface*, 1> getPopupTypes{}; // of an interface that we do without

const std::array managerRequests{
    wl_message{"destroy", "", noObjects.data()},
    wl_message{"get_xdg_output", "no", getDetailsTypes.data()},
};
const std::array detailsRequests{wl_message{"destroy", "", noObjects.data()}};
const std::array detailsEvents{
    wl_message{"logical_position", "ii", noObjects.data()},
    wl_message{"logical_size", "ii", noObjects.data()},
    wl_message{"done", "", noObjects.data()},
    wl_message{"name", "2s", noObjects.data()},
    wl_message{"description", "2s", noObjects.data()},
};

const std::array shellRequests{wl_message{"get_layer_surface", "no?ous", getLayerSurfaceTypes.data()}};
const std::array surfaceRequests{
    wl_message{"set_size", "uu", noObjects.data()},
    wl_message{"set_anchor", "u", noObjects.data()},
    wl_message{"set_exclusive_zone", "i", noObjects.data()},
    wl_message{"set_margin", "iiii", noObjects.data()},
    wl_message{"set_keyboard_interactivity", "u", noObjects.data()},
    wl_message{"get_popup", "o", getPopupTypes.data()},
    wl_message{"ack_configure", "u", noObjects.data()},
    wl_message{"destroy", "", noObjects.data()},
};
const std::array surfaceEvents{
    wl_message{"configure", "uuu", noObjects.data()},
    wl_message{"closed", "", noObjects.data()},
};

// Numbers of requests, in the order above.
constexpr std::uint32_t managerDestroy = 0;
constexpr std::uint32_t managerGetDetails = 1;
constexpr std::uint32_t detailsDestroy = 0;
constexpr std::uint32_t shellGetLayerSurface = 0;
constexpr std::uint32_t surfaceSetSize = 0;
constexpr std::uint32_t surfaceSetAnchor = 1;
constexpr std::uint32_t surfaceSetExclusiveZone = 2;
constexpr std::uint32_t surfaceSetMargin = 3;
constexpr std::uint32_t surfaceAcknowledge = 6;
constexpr std::uint32_t surfaceDestroy = 7;

/// A table of functions, as the library takes any.
using Listener = void (**)();

constexpr std::uint32_t topAnchor = 1;
constexpr std::uint32_t leftAnchor = 4;

} // namespace

const wl_interface outputManagerInterface{
    "zxdg_output_manager_v1", 3, managerRequests.size(), managerRequests.data(), 0, nullptr};
const wl_interface outputDetailsInterface{
    "zxdg_output_v1", 3, detailsRequests.size(), detailsRequests.data(), detailsEvents.size(), detailsEvents.data()};
const wl_interface layerShellInterface{
    "zwlr_layer_shell_v1", 1, shellRequests.size(), shellRequests.data(), 0, nullptr};
const wl_interface layerSurfaceInterface{"zwlr_layer_surface_v1", 1, surfaceRequests.size(), surfaceRequests.data(),
    surfaceEvents.size(), surfaceEvents.data()};

wl_proxy* getDetails(wl_proxy* manager, wl_output* output, OutputDetailsEvents& events, void* data)
{
    wl_proxy* const result = wl_proxy_marshal_flags(
        manager, managerGetDetails, &outputDetailsInterface, wl_proxy_get_version(manager), 0, nullptr, output);
    (void)wl_proxy_add_listener(result, reinterpret_cast<Listener>(&events), data); // fails only for a second one
    return result;
}

void destroyManager(wl_proxy* manager)
{
    (void)wl_proxy_marshal_flags(
        manager, managerDestroy, nullptr, wl_proxy_get_version(manager), WL_MARSHAL_FLAG_DESTROY);
}

void destroyDetails(wl_proxy* details)
{
    (void)wl_proxy_marshal_flags(
        details, detailsDestroy, nullptr, wl_proxy_get_version(details), WL_MARSHAL_FLAG_DESTROY);
}

wl_proxy* getLayerSurface(wl_proxy* shell, wl_surface* surface, wl_output* output, const LayerPlace& place,
    LayerSurfaceEvents& events, void* data)
{
    const std::uint32_t version = wl_proxy_get_version(shell);
    wl_proxy* const result = wl_proxy_marshal_flags(shell, shellGetLayerSurface, &layerSurfaceInterface, version, 0,
        nullptr, surface, output, static_cast<std::uint32_t>(place.layer), "quillbox");
    (void)wl_proxy_add_listener(result, reinterpret_cast<Listener>(&events), data); // fails only for a second one
    const auto width = static_cast<std::uint32_t>(place.rect.width());
    const auto height = static_cast<std::uint32_t>(place.rect.height());
    (void)wl_proxy_marshal_flags(result, surfaceSetSize, nullptr, version, 0, width, height);
    (void)wl_proxy_marshal_flags(result, surfaceSetAnchor, nullptr, version, 0, topAnchor | leftAnchor);
    (void)wl_proxy_marshal_flags(
        result, surfaceSetMargin, nullptr, version, 0, place.rect.y(), /*right=*/0, /*bottom=*/0, place.rect.x());
    constexpr std::int32_t aside = -1; // moved away by nobody
    (void)wl_proxy_marshal_flags(result, surfaceSetExclusiveZone, nullptr, version, 0, aside);
    return result;
}

void acknowledge(wl_proxy* layerSurface, std::uint32_t serial)
{
    (void)wl_proxy_marshal_flags(
        layerSurface, surfaceAcknowledge, nullptr, wl_proxy_get_version(layerSurface), 0, serial);
}

void destroyLayerSurface(wl_proxy* layerSurface)
{
    (void)wl_proxy_marshal_flags(
        layerSurface, surfaceDestroy, nullptr, wl_proxy_get_version(layerSurface), WL_MARSHAL_FLAG_DESTROY);
}

} // namespace quillbox::WaylandProtocols
