#pragma once

#include "Platform/X11/X11Display.h"
#include "support/Await.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillbox::test {

/// What a property of a window holds.
struct Value {
    std::string type;
    std::string bytes;

    bool operator==(const Value&) const = default;
};

/// 32-bit numbers as a property holds them.
inline std::vector<std::uint32_t> numbersIn(const std::string& bytes)
{
    std::vector<std::uint32_t> numbers(bytes.size() / 4);
    std::memcpy(numbers.data(), bytes.data(), 4 * numbers.size());
    return numbers;
}

/// A program that pastes from the X server's clipboard, on a connection of its own. What it asks for is put into the
/// property HERE of its window. While it waits, this program's event loop turns.
class Requestor {
public:
    Requestor() { makeWindow(); }

    xcb_atom_t atom(std::string_view name)
    {
        const auto cookie = xcb_intern_atom(connection(), 0, static_cast<std::uint16_t>(name.size()), name.data());
        const XCBPointer<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection(), cookie, nullptr));
        return reply->atom;
    }
    std::string nameOf(xcb_atom_t atom)
    {
        const XCBPointer<xcb_get_atom_name_reply_t> reply(
            xcb_get_atom_name_reply(connection(), xcb_get_atom_name(connection(), atom), nullptr));
        return {
            xcb_get_atom_name_name(reply.get()), static_cast<std::size_t>(xcb_get_atom_name_name_length(reply.get()))};
    }

    /// @return whether the owner gave it
    bool convert(std::string_view target, xcb_timestamp_t time = XCB_CURRENT_TIME)
    {
        xcb_convert_selection(connection(), m_window, atom("CLIPBOARD"), atom(target), atom("HERE"), time);
        const auto event = next(XCB_SELECTION_NOTIFY);
        return reinterpret_cast<const xcb_selection_notify_event_t*>(event.get())->property != XCB_ATOM_NONE;
    }
    /// The property's value, which reading removes.
    Value take(std::string_view property)
    {
        constexpr std::uint32_t everything = 1 << 24;
        const auto cookie = xcb_get_property(connection(), 1, m_window, atom(property), XCB_ATOM_ANY, 0, everything);
        const XCBPointer<xcb_get_property_reply_t> reply(xcb_get_property_reply(connection(), cookie, nullptr));
        if (reply->type == XCB_ATOM_NONE)
            return {};
        return {nameOf(reply->type),
            {static_cast<const char*>(xcb_get_property_value(reply.get())),
                static_cast<std::size_t>(xcb_get_property_value_length(reply.get()))}};
    }
    std::optional<Value> get(std::string_view target, xcb_timestamp_t time = XCB_CURRENT_TIME)
    {
        return convert(target, time) ? std::optional(take("HERE")) : std::nullopt;
    }
    /// The next piece of what comes in pieces.
    std::string nextPiece()
    {
        for (;;) {
            const auto event = next(XCB_PROPERTY_NOTIFY);
            const auto& change = *reinterpret_cast<const xcb_property_notify_event_t*>(event.get());
            if (change.window == m_window && change.state == XCB_PROPERTY_NEW_VALUE && change.atom == atom("HERE"))
                return take("HERE").bytes;
        }
    }
    void put(std::string_view property, std::string_view type, const std::vector<std::uint32_t>& values)
    {
        xcb_change_property(connection(), XCB_PROP_MODE_REPLACE, m_window, atom(property), atom(type), 32,
            static_cast<std::uint32_t>(values.size()), values.data());
    }
    void own()
    {
        xcb_set_selection_owner(connection(), m_window, atom("CLIPBOARD"), XCB_CURRENT_TIME);
        xcb_flush(connection());
    }
    bool isOwned()
    {
        const auto cookie = xcb_get_selection_owner(connection(), atom("CLIPBOARD"));
        const XCBPointer<xcb_get_selection_owner_reply_t> reply(
            xcb_get_selection_owner_reply(connection(), cookie, nullptr));
        return reply->owner != XCB_WINDOW_NONE;
    }
    /// Goes on with another window.
    void makeWindow()
    {
        if (m_window != XCB_WINDOW_NONE)
            xcb_destroy_window(connection(), m_window);
        m_window = xcb_generate_id(connection());
        constexpr std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_create_window(connection(), XCB_COPY_FROM_PARENT, m_window, m_display.root(), 0, 0, 1, 1, 0,
            XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
        xcb_flush(connection());
    }

private:
    [[nodiscard]] xcb_connection_t* connection() const { return m_display.connection(); }

    XCBPointer<xcb_generic_event_t> next(int kind)
    {
        xcb_flush(connection());
        XCBPointer<xcb_generic_event_t> event;
        EXPECT_TRUE(eventually([&] {
            event.reset(xcb_poll_for_event(connection()));
            return event && (event->response_type & 0x7F) == kind;
        }));
        return event;
    }

    X11Display m_display;
    xcb_window_t m_window = XCB_WINDOW_NONE;
};

} // namespace quillbox::test
