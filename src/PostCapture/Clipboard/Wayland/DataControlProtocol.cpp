#include "PostCapture/Clipboard/Wayland/DataControlProtocol.h"

namespace quillbox::DataControlProtocol {

namespace {

/// The tables of one name. The letters of a signature: s string, h file descriptor, o object, n new object, ? may be
/// null; a digit is the version of the interface from which on there is the message. Arguments that are objects name
/// their interface.
struct Tables {
    Tables(const char* managerName, const char* deviceName, const char* sourceName, const char* offerName);
    Tables(const Tables&) = delete; // they point at each other
    Tables& operator=(const Tables&) = delete;
    ~Tables() = default;

    [[nodiscard]] Family family() const { return {m_manager, m_device, m_source}; }

private:
    using Types = std::array<const wl_interface*, 2>;

    Types m_none{};
    Types m_aSource{&m_source};
    Types m_anOffer{&m_offer};
    Types m_aDevice{&m_device, &wl_seat_interface};
    std::array<wl_message, 3> m_managerRequests{{
        {"create_data_source", "n", m_aSource.data()},
        {"get_data_device", "no", m_aDevice.data()},
        {"destroy", "", m_none.data()},
    }};
    std::array<wl_message, 2> m_deviceRequests{{
        {"set_selection", "?o", m_aSource.data()},
        {"destroy", "", m_none.data()},
    }};
    std::array<wl_message, 4> m_deviceEvents{{
        {"data_offer", "n", m_anOffer.data()},
        {"selection", "?o", m_anOffer.data()},
        {"finished", "", m_none.data()},
        {"primary_selection", "?o", m_anOffer.data()},
    }};
    std::array<wl_message, 2> m_sourceRequests{{
        {"offer", "s", m_none.data()},
        {"destroy", "", m_none.data()},
    }};
    std::array<wl_message, 2> m_sourceEvents{{
        {"send", "sh", m_none.data()},
        {"cancelled", "", m_none.data()},
    }};
    std::array<wl_message, 2> m_offerRequests{{
        {"receive", "sh", m_none.data()},
        {"destroy", "", m_none.data()},
    }};
    std::array<wl_message, 1> m_offerEvents{{{"offer", "s", m_none.data()}}};
    wl_interface m_manager;
    wl_interface m_device;
    wl_interface m_source;
    wl_interface m_offer;
};

template <std::size_t requests, std::size_t events>
wl_interface interfaceOf(const char* name, const std::array<wl_message, requests>& requestTable,
    const std::array<wl_message, events>& eventTable)
{
    return {name, static_cast<int>(version), requests, requestTable.data(), events, eventTable.data()};
}

Tables::Tables(const char* managerName, const char* deviceName, const char* sourceName, const char* offerName)
    : m_manager(interfaceOf(managerName, m_managerRequests, std::array<wl_message, 0>{}))
    , m_device(interfaceOf(deviceName, m_deviceRequests, m_deviceEvents))
    , m_source(interfaceOf(sourceName, m_sourceRequests, m_sourceEvents))
    , m_offer(interfaceOf(offerName, m_offerRequests, m_offerEvents))
{
}

const Tables current{"ext_data_control_manager_v1", "ext_data_control_device_v1", "ext_data_control_source_v1",
    "ext_data_control_offer_v1"};
const Tables older{"zwlr_data_control_manager_v1", "zwlr_data_control_device_v1", "zwlr_data_control_source_v1",
    "zwlr_data_control_offer_v1"};

// Numbers of requests, in the order above.
constexpr std::uint32_t managerCreateSource = 0;
constexpr std::uint32_t managerGetDevice = 1;
constexpr std::uint32_t managerDestroy = 2;
constexpr std::uint32_t deviceSetSelection = 0;
constexpr std::uint32_t deviceDestroy = 1;
constexpr std::uint32_t sourceOffer = 0;
constexpr std::uint32_t sourceDestroy = 1;
constexpr std::uint32_t offerDestroy = 1;

/// A table of functions, as the library takes any.
using Listener = void (**)();

/// A request without arguments that ends the object.
void destroy(wl_proxy* object, std::uint32_t request)
{
    (void)wl_proxy_marshal_flags(object, request, nullptr, version, WL_MARSHAL_FLAG_DESTROY);
}

} // namespace

const std::array<Family, 2> families{current.family(), older.family()};

wl_proxy* getDevice(const Family& family, wl_proxy* manager, wl_seat* seat, DeviceEvents& events, void* data)
{
    wl_proxy* const result
        = wl_proxy_marshal_flags(manager, managerGetDevice, &family.device, version, 0, nullptr, seat);
    (void)wl_proxy_add_listener(result, reinterpret_cast<Listener>(&events), data); // fails only for a second one
    return result;
}

wl_proxy* createSource(const Family& family, wl_proxy* manager, SourceEvents& events, void* data)
{
    wl_proxy* const result = wl_proxy_marshal_flags(manager, managerCreateSource, &family.source, version, 0, nullptr);
    (void)wl_proxy_add_listener(result, reinterpret_cast<Listener>(&events), data); // fails only for a second one
    return result;
}

void offer(wl_proxy* source, const char* type)
{
    (void)wl_proxy_marshal_flags(source, sourceOffer, nullptr, version, 0, type);
}

void setSelection(wl_proxy* device, wl_proxy* source)
{
    (void)wl_proxy_marshal_flags(device, deviceSetSelection, nullptr, version, 0, source);
}

void destroyManager(wl_proxy* manager)
{
    destroy(manager, managerDestroy);
}

void destroyDevice(wl_proxy* device)
{
    destroy(device, deviceDestroy);
}

void destroySource(wl_proxy* source)
{
    destroy(source, sourceDestroy);
}

void destroyOffer(wl_proxy* offer)
{
    destroy(offer, offerDestroy);
}

} // namespace quillbox::DataControlProtocol
