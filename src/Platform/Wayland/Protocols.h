#pragma once

#include <QRect>

#include <wayland-client.h>

#include <cstdint>

// The two extensions of Wayland that we use, as far as we use them: the layout of their messages, which is what the
// protocols' descriptions define.
namespace quillbox::WaylandProtocols {

/// zxdg_output_manager_v1: tells what an output shows in the compositor's points.
extern const wl_interface outputManagerInterface;
extern const wl_interface outputDetailsInterface; ///< zxdg_output_v1
constexpr std::uint32_t outputManagerVersion = 2;

struct OutputDetailsEvents {
    void (*logicalPosition)(void* data, wl_proxy* output, std::int32_t x, std::int32_t y);
    void (*logicalSize)(void* data, wl_proxy* output, std::int32_t width, std::int32_t height);
    void (*done)(void* data, wl_proxy* output);
    void (*name)(void* data, wl_proxy* output, const char* name);
    void (*description)(void* data, wl_proxy* output, const char* description);
};

/// Tells about `output` through `events`, which gets `data` and outlives the result; destroyed with destroyDetails().
[[nodiscard]] wl_proxy* getDetails(wl_proxy* manager, wl_output* output, OutputDetailsEvents& events, void* data);
void destroyManager(wl_proxy* manager);
void destroyDetails(wl_proxy* details);

/// zwlr_layer_shell_v1: surfaces above and below all windows.
extern const wl_interface layerShellInterface;
extern const wl_interface layerSurfaceInterface; ///< zwlr_layer_surface_v1
constexpr std::uint32_t layerShellVersion = 1;

struct LayerSurfaceEvents {
    void (*configure)(void* data, wl_proxy* surface, std::uint32_t serial, std::uint32_t width, std::uint32_t height);
    void (*closed)(void* data, wl_proxy* surface);
};

/// Of the four layers, the lowest and the highest.
enum class Layer : std::uint32_t { Background = 0, Overlay = 3 };

struct LayerPlace {
    Layer layer = Layer::Overlay;
    QRect rect; ///< points of the output, from its top left corner; not empty
};

/// Gives `surface` a place on `output`, where it takes no room from windows and gets no keys. `events` gets `data` and
/// outlives the result; destroyed with destroyLayerSurface().
[[nodiscard]] wl_proxy* getLayerSurface(wl_proxy* shell, wl_surface* surface, wl_output* output,
    const LayerPlace& place, LayerSurfaceEvents& events, void* data);
void acknowledge(wl_proxy* layerSurface, std::uint32_t serial);
void destroyLayerSurface(wl_proxy* layerSurface);

} // namespace quillbox::WaylandProtocols
