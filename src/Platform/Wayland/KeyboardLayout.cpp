#include "Platform/Wayland/KeyboardLayout.h"

#include "Platform/CHandle.h"
#include "Platform/FileDescriptor.h"
#include "Platform/Wayland/WaylandDisplay.h"

#include <xkbcommon/xkbcommon.h>

#include <sys/mman.h>

#include <array>
#include <cstddef>

namespace quillbox::KeyboardLayout {

namespace {

constexpr std::uint32_t seatVersion = 5;
constexpr xkb_layout_index_t firstLayout = 0;
constexpr xkb_level_index_t withShift = 1; // in every key type that the usual layouts are made of

struct Told {
    std::string keymap; // empty: not told
};

void readKeymap(void* told, wl_keyboard* /*keyboard*/, std::uint32_t format, std::int32_t file, std::uint32_t size)
{
    const FileDescriptor owned(file);
    if (format != WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1 || size == 0)
        return;
    void* const text = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, owned.number(), 0);
    if (text == MAP_FAILED)
        return;
    static_cast<Told*>(told)->keymap.assign(static_cast<const char*>(text), size - 1); // without its zero
    ::munmap(text, size);
}

/// The keymap that the compositor gives to every program; empty where it doesn't.
std::string compositorsKeymap()
{
    WaylandDisplay display;
    if (!display.isConnected())
        return {};
    const CHandle<wl_seat, wl_seat_destroy> seat(display.bindFirst<wl_seat>(wl_seat_interface, seatVersion));
    if (!seat)
        return {};
    bool hasKeyboard = false;
    static const wl_seat_listener seatListener{
        .capabilities =
            [](void* found, wl_seat*, std::uint32_t capabilities) {
                *static_cast<bool*>(found) = (capabilities & WL_SEAT_CAPABILITY_KEYBOARD) != 0;
            },
        .name = [](void*, wl_seat*, const char*) {},
    };
    (void)wl_seat_add_listener(seat.get(), &seatListener, &hasKeyboard); // fails only for a second one
    if (!display.roundTrip() || !hasKeyboard) // to ask a seat for a keyboard that it never had is an error
        return {};

    const CHandle<wl_keyboard, wl_keyboard_destroy> keyboard(wl_seat_get_keyboard(seat.get()));
    Told told;
    static const wl_keyboard_listener keyboardListener{
        .keymap = &readKeymap,
        .enter = [](void*, wl_keyboard*, std::uint32_t, wl_surface*, wl_array*) {},
        .leave = [](void*, wl_keyboard*, std::uint32_t, wl_surface*) {},
        .key = [](void*, wl_keyboard*, std::uint32_t, std::uint32_t, std::uint32_t, std::uint32_t) {},
        .modifiers
        = [](void*, wl_keyboard*, std::uint32_t, std::uint32_t, std::uint32_t, std::uint32_t, std::uint32_t) {},
        .repeat_info = [](void*, wl_keyboard*, std::int32_t, std::int32_t) {},
    };
    (void)wl_keyboard_add_listener(keyboard.get(), &keyboardListener, &told); // likewise
    (void)display.roundTrip();                                                // what is not told is not known
    return told.keymap;
}

} // namespace

std::optional<std::string> shiftedSymbolIn(const std::string& keymap, std::uint32_t keyCode)
{
    const CHandle<xkb_context, xkb_context_unref> context(xkb_context_new(XKB_CONTEXT_NO_FLAGS));
    if (!context)
        return std::nullopt;
    xkb_context_set_log_level(
        context.get(), XKB_LOG_LEVEL_CRITICAL); // what is wrong with a keymap helps no user of ours
    const CHandle<xkb_keymap, xkb_keymap_unref> parsed(xkb_keymap_new_from_string(
        context.get(), keymap.c_str(), XKB_KEYMAP_FORMAT_TEXT_V1, XKB_KEYMAP_COMPILE_NO_FLAGS));
    if (!parsed)
        return std::nullopt;
    const xkb_keysym_t* symbols = nullptr;
    if (xkb_keymap_key_get_syms_by_level(parsed.get(), keyCode, firstLayout, withShift, &symbols) != 1)
        return std::nullopt;
    std::array<char, 64> name{};
    if (xkb_keysym_get_name(*symbols, name.data(), name.size()) <= 0)
        return std::nullopt;
    return std::string(name.data());
}

std::optional<std::string> shiftedSymbol(std::uint32_t keyCode)
{
    const std::string keymap = compositorsKeymap();
    return keymap.empty() ? std::nullopt : shiftedSymbolIn(keymap, keyCode);
}

std::string textOf(const std::string& symbol)
{
    std::array<char, 8> text{}; // xkbcommon wants room for seven bytes
    if (xkb_keysym_to_utf8(xkb_keysym_from_name(symbol.c_str(), XKB_KEYSYM_NO_FLAGS), text.data(), text.size()) <= 0)
        return {};
    return text.data();
}

} // namespace quillbox::KeyboardLayout
