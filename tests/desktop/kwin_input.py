"""A pointer and a keyboard on the desktop made by tests/desktop/kde-session."""

from input_devices import InputDevices
from wayland_client import Connection
from wayland_input import Keymap


class Devices(InputDevices):
    """Input that KWin takes for that of a person's devices: its protocol org_kde_kwin_fake_input."""

    def __init__(self):
        self._compositor = Connection()
        self._input = self._compositor.bind("org_kde_kwin_fake_input", 4)
        self._keymap = Keymap()
        self._request(0, "tests", "the tests' pointer and keyboard")  # authenticate

    def close(self):
        self._compositor.close()

    def move(self, x, y):
        self._request(9, round(x * 256), round(y * 256))  # pointer_motion_absolute, 8 bits of fraction

    def button(self, button, is_down):
        self._request(2, button, int(is_down))

    def hold(self, name, is_down):
        self._request(10, self._keymap.code(name), int(is_down))  # keyboard_key

    def _request(self, number, *arguments):
        self._compositor.send(self._input, number, *arguments)
        self._compositor.sync()
