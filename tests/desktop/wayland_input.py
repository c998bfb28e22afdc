"""A pointer and a keyboard on a Wayland desktop made by tests/desktop/wayland-session, which has none of its own.

    with wayland_input.Devices() as user:
        user.drag((100, 100), (300, 200))
        user.key("Logo+Shift+2")

They exist as long as the object does: programs started meanwhile find a seat with both, and a program gets no key whose
keyboard comes and goes with it. Points are those of the compositor's layout and may have fractions. Every function
returns once the compositor has done it; what the programs then do takes its own time.
"""

import ctypes
import os
import struct
import time

from input_devices import InputDevices
from wayland_client import Connection

MODIFIERS = {"Control": "Control_L", "Ctrl": "Control_L", "Shift": "Shift_L", "Alt": "Alt_L", "Logo": "Super_L"}
EVDEV_OFFSET = 8  # between a key's number in the kernel and in a keymap


class Keymap:
    """The US layout: its text, its keys by name and the modifiers that pressed keys amount to."""

    def __init__(self):
        self._library = library = ctypes.CDLL("libxkbcommon.so.0")
        pointer, number = ctypes.c_void_p, ctypes.c_uint32
        for name, result, arguments in (
                ("xkb_context_new", pointer, [ctypes.c_int]),
                ("xkb_keymap_new_from_names", pointer, [pointer, pointer, ctypes.c_int]),
                ("xkb_keymap_get_as_string", pointer, [pointer, ctypes.c_int]),
                ("xkb_keymap_min_keycode", number, [pointer]),
                ("xkb_keymap_max_keycode", number, [pointer]),
                ("xkb_keysym_from_name", number, [ctypes.c_char_p, ctypes.c_int]),
                ("xkb_state_new", pointer, [pointer]),
                ("xkb_state_key_get_one_sym", number, [pointer, number]),
                ("xkb_state_update_key", ctypes.c_int, [pointer, number, ctypes.c_int]),
                ("xkb_state_serialize_mods", number, [pointer, ctypes.c_int]),
                ("xkb_state_serialize_layout", number, [pointer, ctypes.c_int])):
            function = getattr(library, name)
            function.restype, function.argtypes = result, arguments
        names = (ctypes.c_char_p * 5)(b"evdev", b"pc105", b"us", b"", b"")  # struct xkb_rule_names
        keymap = library.xkb_keymap_new_from_names(library.xkb_context_new(0), names, 0)
        if not keymap:
            raise RuntimeError("libxkbcommon makes no US keymap")
        text_version_1 = 1
        self.text = ctypes.string_at(library.xkb_keymap_get_as_string(keymap, text_version_1))
        self._state = library.xkb_state_new(keymap)
        codes = range(library.xkb_keymap_min_keycode(keymap), library.xkb_keymap_max_keycode(keymap) + 1)
        self._codes = {}
        for code in reversed(codes):  # of several keys that give the same, the first
            self._codes[library.xkb_state_key_get_one_sym(self._state, code)] = code
        del self._codes[0]  # the keys that give nothing

    def code(self, name):
        """The number, as the kernel has it, of the key that gives this without modifiers: "Escape", "v", "2"."""
        symbol = self._library.xkb_keysym_from_name(MODIFIERS.get(name, name).encode(), 0)
        if symbol not in self._codes:
            raise ValueError(f"no key gives {name}")
        return self._codes[symbol] - EVDEV_OFFSET

    def update(self, code, is_down):
        """Notes a key. @return modifiers depressed, latched and locked, and the layout"""
        self._library.xkb_state_update_key(self._state, code + EVDEV_OFFSET, int(is_down))
        depressed, latched, locked, layout = (1, 2, 4, 1 << 7)
        return [*(self._library.xkb_state_serialize_mods(self._state, part) for part in (depressed, latched, locked)),
                self._library.xkb_state_serialize_layout(self._state, layout)]


class Devices(InputDevices):
    def __init__(self):
        self._compositor = compositor = Connection()
        self._layout = self._measure_layout()
        seat = compositor.bind("wl_seat")
        pointers = compositor.bind("zwlr_virtual_pointer_manager_v1")
        keyboards = compositor.bind("zwp_virtual_keyboard_manager_v1")
        self._pointer, self._keyboard = compositor.new(), compositor.new()
        compositor.send(pointers, 0, seat, self._pointer)
        compositor.send(keyboards, 0, seat, self._keyboard)
        self._keymap = Keymap()
        text = self._keymap.text + b"\0"
        with open(os.memfd_create("keymap"), "w+b", buffering=0) as file:
            file.write(text)
            text_format = 1
            compositor.send(self._keyboard, 0, text_format, len(text), file=file.fileno())
        compositor.sync()

    def close(self):
        """Unplugs both."""
        self._compositor.close()

    def move(self, x, y):
        left, top, width, height = self._layout
        steps = 256  # of a point; what programs are told has no more
        self._compositor.send(self._pointer, 1, self._now(), round((x - left) * steps), round((y - top) * steps),
                              width * steps, height * steps)
        self._end_pointer_step()

    def button(self, button, is_down):
        self._compositor.send(self._pointer, 2, self._now(), button, is_down)
        self._end_pointer_step()

    def hold(self, name, is_down):
        code = self._keymap.code(name)
        self._compositor.send(self._keyboard, 1, self._now(), code, is_down)
        self._compositor.send(self._keyboard, 2, *self._keymap.update(code, is_down))
        self._compositor.sync()

    def _end_pointer_step(self):
        self._compositor.send(self._pointer, 4)  # frame
        self._compositor.sync()

    @staticmethod
    def _now():
        return int(time.monotonic() * 1000) & 0xFFFFFFFF

    def _measure_layout(self):
        """The rectangle around all outputs, in points: what absolute positions are parts of. (left, top, width, height)"""
        compositor = self._compositor
        manager = compositor.bind("zxdg_output_manager_v1", version=2)
        places, sizes = [], []

        def note(event, body):
            if event < 2:
                (places, sizes)[event].append(struct.unpack("=ii", body))

        for which in range(compositor.globals("wl_output")):
            output, details = compositor.bind("wl_output", which=which), compositor.new(note)
            compositor.send(manager, 1, details, output)
        compositor.sync()
        left, top = (min(place[axis] for place in places) for axis in (0, 1))
        right, bottom = (max(place[axis] + size[axis] for place, size in zip(places, sizes)) for axis in (0, 1))
        return left, top, right - left, bottom - top
