#pragma once

#include <wayland-client.h>

#include <array>
#include <cstdint>

// The protocol by which a program sets the clipboard of a Wayland seat without having a window, as far as we use it. It
// exists under two names, which differ in nothing else.
namespace quillbox::DataControlProtocol {

/// The layout of the messages under one of the names.
struct Family {
    const wl_interface& manager;
    const wl_interface& device;
    const wl_interface& source;
};
extern const std::array<Family, 2> families; ///< the one to be preferred first: ext_data_control_…, zwlr_data_control_…
constexpr std::uint32_t version = 1;         ///< of both

/// What happens to the selections of a seat.
struct DeviceEvents {
    void (*dataOffer)(void* data, wl_proxy* device, wl_proxy* offer); ///< `offer` is destroyed with destroyOffer()
    void (*selection)(void* data, wl_proxy* device, wl_proxy* offer);
    void (*finished)(void* data, wl_proxy* device); ///< the seat is gone
    void (*primarySelection)(void* data, wl_proxy* device, wl_proxy* offer);
};

/// What happens to something that was put on the clipboard.
struct SourceEvents {
    void (*send)(void* data, wl_proxy* source, const char* type, std::int32_t descriptor); ///< which is the receiver's
    void (*cancelled)(void* data, wl_proxy* source); ///< something else has taken its place
};

/// The functions that make an object: `events` gets `data` and outlives the result.
[[nodiscard]] wl_proxy* getDevice(
    const Family& family, wl_proxy* manager, wl_seat* seat, DeviceEvents& events, void* data);
[[nodiscard]] wl_proxy* createSource(const Family& family, wl_proxy* manager, SourceEvents& events, void* data);

/// Names one more form of what `source` stands for, a MIME type.
void offer(wl_proxy* source, const char* type);
/// Puts it on the clipboard, or, with a null source, empties it. A source can be set once only.
void setSelection(wl_proxy* device, wl_proxy* source);

void destroyManager(wl_proxy* manager);
void destroyDevice(wl_proxy* device);
void destroySource(wl_proxy* source);
void destroyOffer(wl_proxy* offer);

} // namespace quillbox::DataControlProtocol
