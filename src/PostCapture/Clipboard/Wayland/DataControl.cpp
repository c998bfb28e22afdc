#include "PostCapture/Clipboard/Wayland/DataControl.h"

#include "Platform/CHandle.h"
#include "Platform/FileDescriptor.h"
#include "Platform/Wayland/WaylandDisplay.h"
#include "PostCapture/Clipboard/Wayland/DataControlProtocol.h"
#include "PostCapture/Clipboard/Wayland/PipeWriter.h"

#include <QSocketNotifier>

#include <algorithm>
#include <cerrno>
#include <string_view>
#include <utility>

namespace quillbox {

namespace {

using namespace DataControlProtocol;

bool hasGlobal(const WaylandDisplay& display, std::string_view interface)
{
    return std::ranges::find(display.globals(), interface, &WaylandDisplay::Global::interface)
        != display.globals().end();
}

/// The first of the families that the compositor offers; null where it offers none, or has nobody who could paste.
const Family* familyOf(const WaylandDisplay& display)
{
    if (!display.isConnected() || !hasGlobal(display, wl_seat_interface.name))
        return nullptr;
    const auto offered = std::ranges::find_if(
        families, [&display](const Family& family) { return hasGlobal(display, family.manager.name); });
    return offered == families.end() ? nullptr : &*offered;
}

} // namespace

struct DataControl::State {
    explicit State(std::unique_ptr<WaylandDisplay> connected, const Family& itsFamily)
        : display(std::move(connected))
        , family(itsFamily)
        , manager(display->bindFirst<wl_proxy>(family.manager, version))
        , seat(display->bindFirst<wl_seat>(wl_seat_interface, 1))
        , readNotifier(wl_display_get_fd(display->display()), QSocketNotifier::Read)
        , writeNotifier(wl_display_get_fd(display->display()), QSocketNotifier::Write)
    {
        writeNotifier.setEnabled(false);
    }

    void openDevice();
    void give(const char* type, FileDescriptor pipe);
    void leave();

    // Destroyed from the last to the first.
    std::unique_ptr<WaylandDisplay> display;
    const Family& family;
    CHandle<wl_proxy, destroyManager> manager;
    CHandle<wl_seat, wl_seat_destroy> seat;
    CHandle<wl_proxy, destroyDevice> device;
    CHandle<wl_proxy, destroySource> source; // null while nothing of ours is on the clipboard
    QSocketNotifier readNotifier;
    QSocketNotifier writeNotifier; // on while the compositor takes nothing more
    std::vector<MimeItem> items;
    QObject transfers; // the parent of what is being given
    bool isGone = false;
};

void DataControl::State::openDevice()
{
    static DeviceEvents events{
        .dataOffer = [](void*, wl_proxy*, wl_proxy* offer) { destroyOffer(offer); }, // we do not paste
        .selection = [](void*, wl_proxy*, wl_proxy*) {},
        .finished = [](void* data, wl_proxy*) { static_cast<State*>(data)->isGone = true; },
        .primarySelection = [](void*, wl_proxy*, wl_proxy*) {},
    };
    device.reset(getDevice(family, manager.get(), seat.get(), events, this));
}

void DataControl::State::give(const char* type, FileDescriptor pipe)
{
    const auto item = std::ranges::find(items, type, &MimeItem::type);
    if (item != items.end())
        new PipeWriter(std::move(pipe), item->data.read(), &transfers); // which owns it
}

void DataControl::State::leave()
{
    source.reset();
    items.clear();
}

std::unique_ptr<DataControl> DataControl::open()
{
    auto display = std::make_unique<WaylandDisplay>();
    const Family* const family = familyOf(*display);
    if (family == nullptr)
        return nullptr;
    auto state = std::make_unique<State>(std::move(display), *family);
    state->openDevice();
    return std::unique_ptr<DataControl>(new DataControl(std::move(state)));
}

DataControl::DataControl(std::unique_ptr<State> state)
    : m_state(std::move(state))
{
    connect(&m_state->readNotifier, &QSocketNotifier::activated, this, &DataControl::takeEvents);
    connect(&m_state->writeNotifier, &QSocketNotifier::activated, this, &DataControl::send);
    send();
}

DataControl::~DataControl() = default;

const char* DataControl::offered()
{
    const WaylandDisplay display;
    const Family* const family = familyOf(display);
    return family == nullptr ? nullptr : family->manager.name;
}

bool DataControl::isConnected() const
{
    return !m_state->isGone;
}

void DataControl::own(std::vector<MimeItem> items)
{
    static SourceEvents events{
        .send =
            [](void* data, wl_proxy* source, const char* type, std::int32_t descriptor) {
                FileDescriptor pipe(descriptor);
                auto* const state = static_cast<State*>(data);
                if (source == state->source.get())
                    state->give(type, std::move(pipe));
            },
        .cancelled =
            [](void* data, wl_proxy* source) {
                auto* const state = static_cast<State*>(data);
                if (source == state->source.get())
                    state->leave();
            },
    };
    if (m_state->isGone)
        return;
    CHandle<wl_proxy, destroySource> next(createSource(m_state->family, m_state->manager.get(), events, m_state.get()));
    for (const MimeItem& item : items)
        offer(next.get(), item.type.c_str());
    setSelection(m_state->device.get(), next.get());
    m_state->source = std::move(next); // the one before goes after it has been replaced: the clipboard is never empty
    m_state->items = std::move(items);
    send();
}

void DataControl::disown()
{
    if (!m_state->source)
        return;
    setSelection(m_state->device.get(), nullptr);
    m_state->leave();
    send();
}

bool DataControl::owns() const
{
    return m_state->source != nullptr;
}

/// Fetches what the compositor has told, without waiting, and does it.
void DataControl::takeEvents()
{
    wl_display* const display = m_state->display->display();
    const bool wasOwned = owns();
    bool isBroken = false;
    while (!isBroken && wl_display_prepare_read(display) != 0)
        isBroken = wl_display_dispatch_pending(display) < 0;
    if (!isBroken)
        isBroken = wl_display_read_events(display) < 0 || wl_display_dispatch_pending(display) < 0;
    m_state->isGone = m_state->isGone || isBroken;
    send();
    if (wasOwned && !owns())
        Q_EMIT lost();
}

/// Sends what was asked for, as far as the compositor takes it now.
void DataControl::send()
{
    const bool isFull = wl_display_flush(m_state->display->display()) < 0 && errno == EAGAIN;
    if (!isFull && wl_display_get_error(m_state->display->display()) != 0)
        m_state->isGone = true;
    m_state->writeNotifier.setEnabled(isFull && !m_state->isGone);
    if (m_state->isGone) {
        m_state->readNotifier.setEnabled(false);
        m_state->leave();
    }
}

} // namespace quillbox

#include "moc_DataControl.cpp"
