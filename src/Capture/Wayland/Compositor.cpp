#include "Capture/Wayland/Compositor.h"

#include "Platform/CHandle.h"
#include "Platform/Wayland/Protocols.h"
#include "Platform/Wayland/WaylandBuffer.h"
#include "Platform/Wayland/WaylandDisplay.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <list>
#include <optional>
#include <utility>

namespace quillbox {

namespace {

struct Output {
    CHandle<wl_output, wl_output_destroy> output;
    CHandle<wl_proxy, WaylandProtocols::destroyDetails> details;
    OutputFacts facts;
    std::uint32_t name = 0; // the compositor's number for it
    std::int32_t scale = 1; // pixels a point that windows are asked for
};

} // namespace

class Compositor::Connection {
public:
    explicit Connection(std::shared_ptr<const CancelEvent> stop);
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    ~Connection() = default;

    [[nodiscard]] const std::list<Output>& outputs() const { return m_outputs; }
    void repaint(const Output& output);
    [[nodiscard]] bool waitUntilGone(const std::vector<std::uint32_t>& outputs);

private:
    void addOutput(const WaylandDisplay::Global& global);
    void askForDetails(Output& output);

    // Destroyed from the last to the first.
    WaylandDisplay m_display;
    CHandle<wl_compositor, wl_compositor_destroy> m_compositor;
    CHandle<wl_shm, wl_shm_destroy> m_memory;
    CHandle<wl_proxy, WaylandProtocols::destroyManager> m_outputManager;
    CHandle<wl_proxy, wl_proxy_destroy> m_layerShell;
    std::list<Output> m_outputs; // their addresses are listeners' data
};

Compositor::Connection::Connection(std::shared_ptr<const CancelEvent> stop)
    : m_display(std::move(stop))
{
    if (!m_display.isConnected())
        return;
    m_compositor.reset(m_display.bindFirst<wl_compositor>(wl_compositor_interface, 1));
    m_memory.reset(m_display.bindFirst<wl_shm>(wl_shm_interface, 1));
    m_layerShell.reset(
        m_display.bindFirst<wl_proxy>(WaylandProtocols::layerShellInterface, WaylandProtocols::layerShellVersion));
    m_outputManager.reset(m_display.bindFirst<wl_proxy>(
        WaylandProtocols::outputManagerInterface, WaylandProtocols::outputManagerVersion));
    for (const auto& global : m_display.globals())
        if (global.interface == wl_output_interface.name)
            addOutput(global);
    if (m_outputManager)
        for (Output& output : m_outputs)
            askForDetails(output);
    (void)m_display.roundTrip(); // what is not told is not known
}

void Compositor::Connection::addOutput(const WaylandDisplay::Global& global)
{
    static const wl_output_listener listener{
        .geometry = [](void*, wl_output*, std::int32_t, std::int32_t, std::int32_t, std::int32_t, std::int32_t,
                        const char*, const char*, std::int32_t) {},
        .mode =
            [](void* data, wl_output*, std::uint32_t flags, std::int32_t width, std::int32_t height, std::int32_t) {
                if ((flags & WL_OUTPUT_MODE_CURRENT) != 0)
                    static_cast<Output*>(data)->facts.mode = PixelSize{width, height};
            },
        .done = [](void*, wl_output*) {},
        .scale
        = [](void* data, wl_output*, std::int32_t scale) { static_cast<Output*>(data)->scale = std::max(scale, 1); },
        .name = [](void*, wl_output*, const char*) {},
        .description = [](void*, wl_output*, const char*) {},
    };
    Output& output = m_outputs.emplace_back();
    output.name = global.name;
    output.output.reset(m_display.bind<wl_output>(global, wl_output_interface, WL_OUTPUT_SCALE_SINCE_VERSION));
    (void)wl_output_add_listener(output.output.get(), &listener, &output);
}

void Compositor::Connection::askForDetails(Output& output)
{
    static WaylandProtocols::OutputDetailsEvents events{
        .logicalPosition = [](void* data, wl_proxy*, std::int32_t x,
                               std::int32_t y) { static_cast<Output*>(data)->facts.position = QPoint(x, y); },
        .logicalSize =
            [](void* data, wl_proxy*, std::int32_t width, std::int32_t height) {
                if (width > 0 && height > 0)
                    static_cast<Output*>(data)->facts.points = PixelSize{width, height};
            },
        .done = [](void*, wl_proxy*) {},
        .name = [](void*, wl_proxy*, const char*) {},
        .description = [](void*, wl_proxy*, const char*) {},
    };
    output.details.reset(WaylandProtocols::getDetails(m_outputManager.get(), output.output.get(), events, &output));
}

void Compositor::Connection::repaint(const Output& output)
{
    if (!m_compositor || !m_memory || !m_layerShell)
        return;
    const WaylandBuffer pixel = waylandBuffer(m_memory.get(), {}, {1, 1}); // transparent
    if (!pixel)
        return;
    const CHandle<wl_surface, wl_surface_destroy> surface(wl_compositor_create_surface(m_compositor.get()));

    bool isConfigured = false;
    static WaylandProtocols::LayerSurfaceEvents events{
        .configure =
            [](void* data, wl_proxy* layerSurface, std::uint32_t serial, std::uint32_t, std::uint32_t) {
                WaylandProtocols::acknowledge(layerSurface, serial);
                *static_cast<bool*>(data) = true;
            },
        .closed = [](void* data, wl_proxy*) { *static_cast<bool*>(data) = true; },
    };
    const CHandle<wl_proxy, WaylandProtocols::destroyLayerSurface> point(
        WaylandProtocols::getLayerSurface(m_layerShell.get(), surface.get(), output.output.get(),
            {.layer = WaylandProtocols::Layer::Background, .rect = QRect(0, 0, 1, 1)}, events, &isConfigured));
    wl_surface_commit(surface.get());
    if (!m_display.dispatchUntil(isConfigured))
        return;
    wl_surface_attach(surface.get(), pixel.get(), 0, 0);
    wl_surface_damage(surface.get(), 0, 0, 1, 1);
    wl_surface_commit(surface.get());
    (void)m_display.roundTrip(); // it goes again in any case
}

bool Compositor::Connection::waitUntilGone(const std::vector<std::uint32_t>& outputs)
{
    return m_display.followUntil([&] {
        return std::ranges::none_of(m_display.globals(), [&](const WaylandDisplay::Global& global) {
            return std::ranges::find(outputs, global.name) != outputs.end();
        });
    });
}

Compositor::Compositor(std::shared_ptr<const CancelEvent> stop)
    : m_connection(std::make_unique<Connection>(std::move(stop)))
{
}

Compositor::~Compositor() = default;

std::vector<OutputFacts> Compositor::outputs() const
{
    std::vector<OutputFacts> result;
    for (const Output& output : m_connection->outputs()) {
        OutputFacts& facts = result.emplace_back(output.facts);
        if (facts.points)
            facts.points = pointsOfOutput(*facts.points, facts.mode, output.scale);
    }
    return result;
}

void Compositor::repaint()
{
    for (const Output& output : m_connection->outputs())
        m_connection->repaint(output);
}

bool Compositor::waitUntilGone(const CastFacts& cast, PixelSize picture)
{
    std::vector<std::uint32_t> names;
    for (const std::size_t index : outputsOfCast(cast, picture, outputs()))
        names.push_back(std::next(m_connection->outputs().begin(), static_cast<std::ptrdiff_t>(index))->name);
    return !names.empty() && m_connection->waitUntilGone(names);
}

} // namespace quillbox
