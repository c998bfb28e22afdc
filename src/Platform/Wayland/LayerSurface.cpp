#include "Platform/Wayland/LayerSurface.h"

#include "Encoding/Precondition.h"
#include "Platform/CHandle.h"
#include "Platform/Wayland/LayerCursor.h"
#include "Platform/Wayland/Protocols.h"
#include "Platform/Wayland/WaylandBuffer.h"
#include "Platform/Wayland/WaylandDispatcher.h"
#include "Platform/Wayland/WaylandDisplay.h"

#include <linux/input-event-codes.h>

#include <algorithm>
#include <list>
#include <optional>
#include <span>
#include <string>
#include <utility>

namespace quillbox {

namespace {

struct SeenOutput {
    CHandle<wl_output, wl_output_destroy> output;
    CHandle<wl_proxy, WaylandProtocols::destroyDetails> details;
    QString name;
    QSize points;
    QSize mode; // device pixels, before it is turned
    int scale = 1;
};

const wl_output_listener outputListener{
    .geometry = [](void*, wl_output*, std::int32_t, std::int32_t, std::int32_t, std::int32_t, std::int32_t, const char*,
                    const char*, std::int32_t) {},
    .mode =
        [](void* data, wl_output*, std::uint32_t flags, std::int32_t width, std::int32_t height, std::int32_t) {
            if ((flags & WL_OUTPUT_MODE_CURRENT) != 0)
                static_cast<SeenOutput*>(data)->mode = QSize(width, height);
        },
    .done = [](void*, wl_output*) {},
    .scale
    = [](void* data, wl_output*, std::int32_t scale) { static_cast<SeenOutput*>(data)->scale = std::max(scale, 1); },
    .name = [](void*, wl_output*, const char*) {},
    .description = [](void*, wl_output*, const char*) {},
};

WaylandProtocols::OutputDetailsEvents detailsEvents{
    .logicalPosition = [](void*, wl_proxy*, std::int32_t, std::int32_t) {},
    .logicalSize = [](void* data, wl_proxy*, std::int32_t width,
                       std::int32_t height) { static_cast<SeenOutput*>(data)->points = QSize(width, height); },
    .done = [](void*, wl_proxy*) {},
    .name
    = [](void* data, wl_proxy*, const char* name) { static_cast<SeenOutput*>(data)->name = QString::fromUtf8(name); },
    .description = [](void*, wl_proxy*, const char*) {},
};

} // namespace

struct LayerOutput::Connection {
    /// @return whether there is such an output, and it has layers
    bool find(const QString& name);
    void takePointer();
    void showPointer(wl_pointer* entered, std::uint32_t serial);

    // Destroyed from the last to the first.
    WaylandDisplay display;
    CHandle<wl_compositor, wl_compositor_destroy> compositor;
    CHandle<wl_shm, wl_shm_destroy> memory;
    CHandle<wl_proxy, wl_proxy_destroy> shell;
    std::list<SeenOutput> output; // the one; its address is a listener's data
    CHandle<wl_seat, wl_seat_destroy> seat;
    std::optional<LayerCursor> cursor; // from the first use on
    CHandle<wl_pointer, wl_pointer_destroy> pointer;
    LayerSurface* under = nullptr; // what the pointer is on
    QPointF position;              // of the pointer there
    std::optional<WaylandDispatcher> dispatcher;
};

bool LayerOutput::Connection::find(const QString& name)
{
    if (!display.isConnected())
        return false;
    constexpr std::uint32_t compositorVersion = WL_SURFACE_SET_BUFFER_SCALE_SINCE_VERSION;
    compositor.reset(display.bindFirst<wl_compositor>(wl_compositor_interface, compositorVersion));
    memory.reset(display.bindFirst<wl_shm>(wl_shm_interface, 1));
    shell.reset(
        display.bindFirst<wl_proxy>(WaylandProtocols::layerShellInterface, WaylandProtocols::layerShellVersion));
    const CHandle<wl_proxy, WaylandProtocols::destroyManager> manager(
        display.bindFirst<wl_proxy>(WaylandProtocols::outputManagerInterface, WaylandProtocols::outputManagerVersion));
    if (!compositor || wl_compositor_get_version(compositor.get()) < compositorVersion || !memory || !shell || !manager)
        return false;
    for (const auto& global : display.globals()) {
        if (global.interface != wl_output_interface.name)
            continue;
        SeenOutput& seen = output.emplace_back();
        seen.output.reset(display.bind<wl_output>(global, wl_output_interface, WL_OUTPUT_SCALE_SINCE_VERSION));
        (void)wl_output_add_listener(seen.output.get(), &outputListener, &seen); // fails only for a second one
        seen.details.reset(WaylandProtocols::getDetails(manager.get(), seen.output.get(), detailsEvents, &seen));
    }
    const bool isTold = display.roundTrip();
    std::erase_if(output, [&name](const SeenOutput& seen) { return seen.name != name || seen.points.isEmpty(); });
    if (!isTold || output.empty())
        return false;
    dispatcher.emplace(display.display());
    return true;
}

/// Gives the pointer the look that it has on what it is on.
void LayerOutput::Connection::showPointer(wl_pointer* entered, std::uint32_t serial)
{
    if (under != nullptr && under->hidesPointer()) {
        wl_pointer_set_cursor(entered, serial, nullptr, 0, 0);
        return;
    }
    if (!cursor)
        cursor.emplace(compositor.get(), memory.get(), output.front().scale);
    cursor->show(entered, serial);
}

/// Once there is one: it may be plugged in later.
void LayerOutput::Connection::takePointer()
{
    static const wl_pointer_listener pointerListener = [] {
        wl_pointer_listener result{}; // what came with later versions is not sent
        result.enter = [](void* data, wl_pointer* entered, std::uint32_t serial, wl_surface* surface, wl_fixed_t x,
                           wl_fixed_t y) {
            auto* const self = static_cast<Connection*>(data);
            self->under = surface == nullptr // which has been removed
                ? nullptr
                : static_cast<LayerSurface*>(wl_surface_get_user_data(surface));
            self->position = QPointF(wl_fixed_to_double(x), wl_fixed_to_double(y));
            self->showPointer(entered, serial);
            if (self->under != nullptr)
                Q_EMIT self->under->pointerMoved(self->position);
        };
        result.leave = [](void* data, wl_pointer*, std::uint32_t, wl_surface*) {
            if (auto* const left = std::exchange(static_cast<Connection*>(data)->under, nullptr))
                Q_EMIT left->pointerLeft();
        };
        result.motion = [](void* data, wl_pointer*, std::uint32_t, wl_fixed_t x, wl_fixed_t y) {
            auto* const self = static_cast<Connection*>(data);
            self->position = QPointF(wl_fixed_to_double(x), wl_fixed_to_double(y));
            if (self->under != nullptr)
                Q_EMIT self->under->pointerMoved(self->position);
        };
        result.button
            = [](void* data, wl_pointer*, std::uint32_t, std::uint32_t, std::uint32_t button, std::uint32_t state) {
                  auto* const self = static_cast<Connection*>(data);
                  if (self->under == nullptr || button != BTN_LEFT)
                      return;
                  if (state == WL_POINTER_BUTTON_STATE_PRESSED)
                      Q_EMIT self->under->pressed(self->position);
                  else
                      Q_EMIT self->under->released(self->position);
              };
        result.axis = [](void*, wl_pointer*, std::uint32_t, std::uint32_t, wl_fixed_t) {
        };
        return result;
    }();
    static const wl_seat_listener seatListener{
        .capabilities =
            [](void* data, wl_seat* told, std::uint32_t capabilities) {
                auto* const self = static_cast<Connection*>(data);
                const bool hasPointer = (capabilities & WL_SEAT_CAPABILITY_POINTER) != 0;
                if (hasPointer == (self->pointer != nullptr))
                    return;
                self->under = nullptr;
                self->pointer.reset(hasPointer ? wl_seat_get_pointer(told) : nullptr);
                if (hasPointer)
                    (void)wl_pointer_add_listener(self->pointer.get(), &pointerListener, self); // likewise
            },
        .name = [](void*, wl_seat*, const char*) {},
    };
    if (seat)
        return;
    seat.reset(display.bindFirst<wl_seat>(wl_seat_interface, 1));
    if (seat)
        (void)wl_seat_add_listener(seat.get(), &seatListener, this); // likewise
}

std::shared_ptr<LayerOutput> LayerOutput::open(const QString& name)
{
    auto connection = std::make_unique<Connection>();
    return connection->find(name) ? std::shared_ptr<LayerOutput>(new LayerOutput(std::move(connection))) : nullptr;
}

LayerOutput::LayerOutput(std::unique_ptr<Connection> connection)
    : m_connection(std::move(connection))
{
}

LayerOutput::~LayerOutput() = default;

QSize LayerOutput::points() const
{
    return m_connection->output.front().points;
}

int LayerOutput::scale() const
{
    return m_connection->output.front().scale;
}

bool LayerOutput::hasWholeScale() const
{
    const QSize pixels = points() * scale();
    const QSize mode = m_connection->output.front().mode;
    return pixels == mode || pixels == mode.transposed();
}

struct LayerSurface::State {
    State(LayerSurface& itself, LayerOutput& on, const QRect& place, Pointer use);
    State(const State&) = delete;
    State& operator=(const State&) = delete;
    ~State();

    [[nodiscard]] LayerOutput::Connection& connection() const { return *output.m_connection; }
    void show(WaylandBuffer picture, int pixelsAPoint);
    void forgetOld();
    void attach();

    LayerOutput& output;
    LayerSurface& owner;
    QSize points;
    int scale; // of the output when this was made
    // Destroyed from the last to the first.
    CHandle<wl_surface, wl_surface_destroy> surface;
    CHandle<wl_proxy, WaylandProtocols::destroyLayerSurface> role;
    struct Picture {
        WaylandBuffer buffer;
        int scale;
        bool isFree = true; // the compositor does not need it
    };
    std::list<Picture> pictures; // the last one is shown
    bool hasPlace = false;
};

LayerSurface::State::State(LayerSurface& itself, LayerOutput& on, const QRect& place, Pointer use)
    : output(on)
    , owner(itself)
    , points(place.size())
    , scale(output.scale())
    , surface(wl_compositor_create_surface(connection().compositor.get()))
{
    static WaylandProtocols::LayerSurfaceEvents events{
        .configure =
            [](void* data, wl_proxy* layerSurface, std::uint32_t serial, std::uint32_t, std::uint32_t) {
                WaylandProtocols::acknowledge(layerSurface, serial);
                auto* const state = static_cast<State*>(data);
                if (!std::exchange(state->hasPlace, true)) // else some compositor says it at every commit of any
                    state->attach();
            },
        .closed = [](void* data, wl_proxy*) { static_cast<State*>(data)->hasPlace = false; }, // the output has gone
    };
    wl_surface_set_user_data(surface.get(), &owner);
    role.reset(WaylandProtocols::getLayerSurface(connection().shell.get(), surface.get(),
        connection().output.front().output.get(), {.layer = WaylandProtocols::Layer::Overlay, .rect = place}, events,
        this));
    if (use == Pointer::Passed) {
        const CHandle<wl_region, wl_region_destroy> nothing(wl_compositor_create_region(connection().compositor.get()));
        wl_surface_set_input_region(surface.get(), nothing.get());
    } else {
        connection().takePointer();
    }
    wl_surface_commit(surface.get());
    connection().dispatcher->send();
}

LayerSurface::State::~State()
{
    if (connection().under == &owner)
        connection().under = nullptr;
    role.reset();
    surface.reset();
    connection().dispatcher->send();
}

void LayerSurface::State::show(WaylandBuffer picture, int pixelsAPoint)
{
    static const wl_buffer_listener listener{
        .release =
            [](void* data, wl_buffer* buffer) {
                auto& all = static_cast<State*>(data)->pictures;
                for (Picture& each : all)
                    each.isFree = each.isFree || each.buffer.get() == buffer;
                static_cast<State*>(data)->forgetOld();
            },
    };
    (void)wl_buffer_add_listener(picture.get(), &listener, this); // fails only for a second one
    pictures.push_back({.buffer = std::move(picture), .scale = pixelsAPoint});
    forgetOld();
    attach();
    connection().dispatcher->send();
}

/// The last one may be shown again, when the compositor places the surface anew.
void LayerSurface::State::forgetOld()
{
    pictures.remove_if([this](const Picture& each) { return each.isFree && &each != &pictures.back(); });
}

void LayerSurface::State::attach()
{
    if (!hasPlace || pictures.empty())
        return;
    pictures.back().isFree = false;
    wl_surface_set_buffer_scale(surface.get(), pictures.back().scale);
    wl_surface_attach(surface.get(), pictures.back().buffer.get(), 0, 0);
    wl_surface_damage(surface.get(), 0, 0, INT32_MAX, INT32_MAX);
    wl_surface_commit(surface.get());
}

LayerSurface::LayerSurface(std::shared_ptr<LayerOutput> output, const QRect& place, Pointer pointer, QObject* parent)
    : QObject(parent)
    , m_output(std::move(output))
    , m_pointer(pointer)
    , m_state(std::make_unique<State>(*this, *m_output, place, pointer))
{
}

LayerSurface::~LayerSurface() = default;

void LayerSurface::show(const QImage& picture)
{
    if (!m_state)
        return;
    precondition(picture.size() == m_state->points * m_state->scale, "a picture has the size of its place");
    const QImage image = picture.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    const auto count = static_cast<std::size_t>(image.sizeInBytes()) / sizeof(std::uint32_t); // rows have no padding
    const std::span pixels(reinterpret_cast<const std::uint32_t*>(image.constBits()), count);
    if (auto buffer = waylandBuffer(m_state->connection().memory.get(), pixels, {image.width(), image.height()}))
        m_state->show(std::move(buffer), m_state->scale);
}

void LayerSurface::showNothing()
{
    if (!m_state)
        return;
    const QSize points = m_state->points;
    if (auto buffer = waylandBuffer(m_state->connection().memory.get(), {}, {points.width(), points.height()}))
        m_state->show(std::move(buffer), 1); // one pixel a point will do
}

void LayerSurface::remove()
{
    m_state.reset();
}

} // namespace quillbox

#include "moc_LayerSurface.cpp"
