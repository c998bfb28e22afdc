#include "PostCapture/Clipboard/X11/SelectionOwner.h"

#include "Platform/X11/X11Display.h"
#include "PostCapture/Clipboard/X11/SelectionTransfers.h"

#include <QSocketNotifier>

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>
#include <utility>

namespace quillbox {
namespace {

/// The beginning of an event names its kind; the rest is what that kind makes of it.
template <typename Event> const Event& as(const xcb_generic_event_t& event)
{
    return reinterpret_cast<const Event&>(event);
}

int kindOf(const xcb_generic_event_t& event)
{
    return event.response_type & 0x7F; // the rest says whether a program sent it
}

/// Whether a moment of the server, which counts milliseconds and starts again at 0, is not before another one.
bool isNotBefore(xcb_timestamp_t moment, xcb_timestamp_t other)
{
    return static_cast<std::int32_t>(moment - other) >= 0;
}

} // namespace

struct SelectionOwner::State {
    struct Atoms {
        xcb_atom_t selection, targets, timestamp, multiple, atomPair, saveTargets, null;
    };
    struct Form {
        xcb_atom_t target;
        ClipboardBytes data;
    };

    explicit State(std::string_view selection)
        : atoms{atom(selection), atom("TARGETS"), atom("TIMESTAMP"), atom("MULTIPLE"), atom("ATOM_PAIR"),
            atom("SAVE_TARGETS"), atom("NULL")}
        , transfers(connection(), atom("INCR"))
        , window(xcb_generate_id(connection()))
    {
        constexpr std::uint32_t eventMask = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_create_window(connection(), XCB_COPY_FROM_PARENT, window, display.root(), 0, 0, 1, 1, 0,
            XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &eventMask);
    }

    [[nodiscard]] xcb_connection_t* connection() const { return display.connection(); }
    [[nodiscard]] xcb_atom_t atom(std::string_view name) const { return display.atom(name); }
    [[nodiscard]] xcb_timestamp_t now();
    void answer(const xcb_selection_request_event_t& request);
    [[nodiscard]] bool convert(xcb_window_t requestor, xcb_atom_t target, xcb_atom_t property);
    [[nodiscard]] bool convertSeveral(xcb_window_t requestor, xcb_atom_t property);
    void handle(const xcb_generic_event_t& event);

    X11Display display;
    QSocketNotifier notifier{display.socket(), QSocketNotifier::Read};
    Atoms atoms;
    SelectionTransfers transfers;
    xcb_window_t window;
    xcb_timestamp_t ownedSince = 0;
    bool isOwned = false;
    std::vector<Form> forms;
};

/// The server's time, which comes with every change of a property.
xcb_timestamp_t SelectionOwner::State::now()
{
    xcb_change_property(connection(), XCB_PROP_MODE_APPEND, window, atoms.timestamp, XCB_ATOM_INTEGER, 32, 0, nullptr);
    xcb_flush(connection());
    while (const XCBPointer<xcb_generic_event_t> event{xcb_wait_for_event(connection())}) {
        if (kindOf(*event) == XCB_PROPERTY_NOTIFY && as<xcb_property_notify_event_t>(*event).window == window)
            return as<xcb_property_notify_event_t>(*event).time;
        handle(*event);
    }
    return XCB_CURRENT_TIME; // the display is gone
}

void SelectionOwner::State::handle(const xcb_generic_event_t& event)
{
    switch (kindOf(event)) {
    case XCB_SELECTION_REQUEST:
        answer(as<xcb_selection_request_event_t>(event));
        break;
    case XCB_SELECTION_CLEAR:
        if (isNotBefore(as<xcb_selection_clear_event_t>(event).time, ownedSince))
            isOwned = false;
        break;
    case XCB_PROPERTY_NOTIFY:
        transfers.propertyChanged(as<xcb_property_notify_event_t>(event));
        break;
    case XCB_DESTROY_NOTIFY:
        transfers.windowGone(as<xcb_destroy_notify_event_t>(event).window);
        break;
    case 0: // an error: a program that asked for something has gone away
        transfers.windowGone(as<xcb_generic_error_t>(event).resource_id);
        break;
    default:
        break;
    }
}

void SelectionOwner::State::answer(const xcb_selection_request_event_t& request)
{
    // Old programs leave it to the owner where the answer goes.
    const xcb_atom_t property = request.property == XCB_ATOM_NONE ? request.target : request.property;
    bool isDone = false;
    if (isOwned && (request.time == XCB_CURRENT_TIME || isNotBefore(request.time, ownedSince)))
        isDone = request.target == atoms.multiple ? convertSeveral(request.requestor, property)
                                                  : convert(request.requestor, request.target, property);
    xcb_selection_notify_event_t notice{};
    notice.response_type = XCB_SELECTION_NOTIFY;
    notice.time = request.time;
    notice.requestor = request.requestor;
    notice.selection = request.selection;
    notice.target = request.target;
    notice.property = isDone ? property : xcb_atom_t{XCB_ATOM_NONE};
    std::array<char, 32> bytes{}; // what the server sends on, all of it
    static_assert(sizeof notice <= bytes.size());
    std::copy_n(reinterpret_cast<const char*>(&notice), sizeof notice, bytes.data());
    xcb_send_event(connection(), 0, request.requestor, XCB_EVENT_MASK_NO_EVENT, bytes.data());
    xcb_flush(connection());
}

bool SelectionOwner::State::convert(xcb_window_t requestor, xcb_atom_t target, xcb_atom_t property)
{
    const auto put = [&](xcb_atom_t type, std::span<const std::uint32_t> values) {
        xcb_change_property(connection(), XCB_PROP_MODE_REPLACE, requestor, property, type, 32,
            static_cast<std::uint32_t>(values.size()), values.data());
        return true;
    };
    if (target == atoms.targets) {
        std::vector<std::uint32_t> list;
        for (const Form& form : forms)
            list.push_back(form.target);
        for (const auto byConvention : {atoms.targets, atoms.multiple, atoms.timestamp, atoms.saveTargets})
            list.push_back(byConvention);
        return put(XCB_ATOM_ATOM, list);
    }
    if (target == atoms.timestamp)
        return put(XCB_ATOM_INTEGER, std::array{ownedSince});
    if (target == atoms.saveTargets) // says no more than that a clipboard manager is told when the program ends
        return put(atoms.null, {});
    const auto form = std::ranges::find(forms, target, &Form::target);
    if (form == forms.end())
        return false;
    transfers.send(requestor, property, target, form->data.read());
    return true;
}

bool SelectionOwner::State::convertSeveral(xcb_window_t requestor, xcb_atom_t property)
{
    constexpr std::uint32_t maxPairs = 1024; // far more than there are targets
    const auto cookie = xcb_get_property(connection(), 0, requestor, property, atoms.atomPair, 0, 2 * maxPairs);
    const XCBPointer<xcb_get_property_reply_t> reply(xcb_get_property_reply(connection(), cookie, nullptr));
    if (!reply || reply->format != 32)
        return false;
    const auto* const begin = static_cast<const xcb_atom_t*>(xcb_get_property_value(reply.get()));
    std::vector<xcb_atom_t> pairs(begin, begin + reply->value_len / 2 * 2);
    for (std::size_t i = 0; i < pairs.size(); i += 2)
        if (pairs[i] == atoms.multiple || !convert(requestor, pairs[i], pairs[i + 1]))
            pairs[i + 1] = XCB_ATOM_NONE;
    xcb_change_property(connection(), XCB_PROP_MODE_REPLACE, requestor, property, atoms.atomPair, 32,
        static_cast<std::uint32_t>(pairs.size()), pairs.data());
    return true;
}

SelectionOwner::SelectionOwner(std::string_view selection)
    : m_state(std::make_unique<State>(selection))
{
    connect(&m_state->notifier, &QSocketNotifier::activated, this, &SelectionOwner::takeEvents);
}

SelectionOwner::~SelectionOwner() = default;

void SelectionOwner::own(std::vector<MimeItem> items)
{
    std::vector<State::Form> named;
    named.reserve(items.size());
    for (MimeItem& item : items)
        named.push_back({m_state->atom(item.type), std::move(item.data)});
    const auto time = m_state->now();
    m_state->forms = std::move(named);
    m_state->ownedSince = time;
    auto* const connection = m_state->connection();
    const auto selection = m_state->atoms.selection;
    xcb_set_selection_owner(connection, m_state->window, selection, time);
    const XCBPointer<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(connection, xcb_get_selection_owner(connection, selection), nullptr));
    m_state->isOwned = reply && reply->owner == m_state->window;
    // Waiting for the answers may have fetched events, which the notifier will not tell of any more.
    QMetaObject::invokeMethod(this, &SelectionOwner::takeEvents, Qt::QueuedConnection);
}

void SelectionOwner::disown()
{
    if (!std::exchange(m_state->isOwned, false))
        return;
    xcb_set_selection_owner(m_state->connection(), XCB_WINDOW_NONE, m_state->atoms.selection, m_state->ownedSince);
    xcb_flush(m_state->connection());
}

bool SelectionOwner::owns() const
{
    return m_state->isOwned;
}

bool SelectionOwner::isConnected() const
{
    return xcb_connection_has_error(m_state->connection()) == 0;
}

void SelectionOwner::takeEvents()
{
    auto* const connection = m_state->connection();
    const bool wasOwned = m_state->isOwned;
    while (const XCBPointer<xcb_generic_event_t> event{xcb_poll_for_event(connection)})
        m_state->handle(*event);
    xcb_flush(connection);
    if (!isConnected()) {
        m_state->notifier.setEnabled(false);
        m_state->isOwned = false;
    }
    if (wasOwned && !m_state->isOwned)
        Q_EMIT lost();
}

} // namespace quillbox

#include "moc_SelectionOwner.cpp"
