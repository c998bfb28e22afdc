"""A pointer and a keyboard on the desktop made by tests/desktop/mutter-session."""

from gi.repository import Gio, GLib

from input_devices import InputDevices
from wayland_input import Keymap

SERVICE = "org.gnome.Mutter.RemoteDesktop"
FAR = 100_000.0  # points; the pointer stays at the edge


class Devices(InputDevices):
    def __init__(self):
        self._bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        (self._session,) = self._call("/org/gnome/Mutter/RemoteDesktop", SERVICE, "CreateSession").unpack()
        self._notify("Start")
        self._keymap = Keymap()
        self.key("Shift")  # the seat gets its devices with the first event

    def close(self):
        self._notify("Stop")

    def move(self, x, y):
        self._notify("NotifyPointerMotionRelative", "(dd)", -FAR, -FAR)
        self._notify("NotifyPointerMotionRelative", "(dd)", float(x), float(y))

    def button(self, button, is_down):
        self._notify("NotifyPointerButton", "(ib)", button, is_down)

    def hold(self, name, is_down):
        self._notify("NotifyKeyboardKeycode", "(ub)", self._keymap.code(name), is_down)

    def _notify(self, method, signature=None, *arguments):
        packed = GLib.Variant(signature, arguments) if signature else None
        self._call(self._session, SERVICE + ".Session", method, packed)

    def _call(self, path, interface, method, arguments=None):
        return self._bus.call_sync(SERVICE, path, interface, method, arguments, None, Gio.DBusCallFlags.NONE, -1, None)
