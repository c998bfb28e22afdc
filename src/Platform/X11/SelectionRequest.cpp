#include "Platform/X11/SelectionRequest.h"

#include "Platform/DisplayError.h"
#include "Platform/X11/X11Display.h"
#include "Platform/X11/X11Queries.h"

#include <QSocketNotifier>

#include <cstdint>
#include <utility>

namespace quillbox {

/// A connection of its own: the toolkit would look at the answer first.
struct SelectionRequest::Connection {
    X11Display display;
    QSocketNotifier notifier{display.socket(), QSocketNotifier::Read};
};

std::unique_ptr<SelectionRequest> SelectionRequest::ask(std::string_view selection, std::string_view target)
{
    if (!X11Queries::isSelectionOwned(selection)) // of the display that the toolkit shows windows on
        return nullptr;
    try {
        auto own = std::make_unique<Connection>();
        auto* const connection = own->display.connection();
        const auto window = xcb_generate_id(connection);
        xcb_create_window(connection, XCB_COPY_FROM_PARENT, window, own->display.root(), 0, 0, 1, 1, 0,
            XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
        // The property does not exist: that asks for everything.
        xcb_convert_selection(connection, window, own->display.atom(selection), own->display.atom(target),
            own->display.atom("QUILLBOX_SELECTION"), XCB_CURRENT_TIME);
        xcb_flush(connection);
        return std::unique_ptr<SelectionRequest>(new SelectionRequest(std::move(own)));
    } catch (const DisplayError&) {
        return nullptr; // the display is gone, and every selection with it
    }
}

SelectionRequest::SelectionRequest(std::unique_ptr<Connection> connection)
    : m_connection(std::move(connection))
{
    connect(&m_connection->notifier, &QSocketNotifier::activated, this, &SelectionRequest::takeEvents);
}

SelectionRequest::~SelectionRequest() = default;

void SelectionRequest::takeEvents()
{
    auto* const connection = m_connection->display.connection();
    bool isAnswered = false;
    while (const XCBPointer<xcb_generic_event_t> event{xcb_poll_for_event(connection)})
        isAnswered = isAnswered || (event->response_type & 0x7F) == XCB_SELECTION_NOTIFY;
    if (xcb_connection_has_error(connection) != 0)
        m_connection->notifier.setEnabled(false);
    if (isAnswered)
        Q_EMIT answered();
}

} // namespace quillbox

#include "moc_SelectionRequest.cpp"
