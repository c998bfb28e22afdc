"""A pointer and a keyboard on the desktop made by tests/desktop/mutter-session."""

from gi.repository import Gio, GLib

from input_devices import InputDevices
from wayland_input import Keymap

SERVICE = "org.gnome.Mutter.RemoteDesktop"
FAR = 100_000  # points; the pointer stays at the edge of the monitor that it is on


class Devices(InputDevices):
    """Only these move the pointer, which is on the leftmost monitor at first."""

    def __init__(self):
        self._bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        (self._session,) = self._call("/org/gnome/Mutter/RemoteDesktop", SERVICE, "CreateSession").unpack()
        self._notify("Start")
        self._place = None  # of the pointer
        self._keymap = Keymap()
        self.key("Shift")  # the seat gets its devices with the first event

    def close(self):
        self._notify("Stop")

    def move(self, x, y):
        if self._place is None:
            self._move_by(-FAR, -FAR)
            self._place = (0, 0)
        self._move_by(x - self._place[0], y - self._place[1])
        self._place = (x, y)

    def _move_by(self, right, down):
        self._notify("NotifyPointerMotionRelative", "(dd)", float(right), float(down))

    def button(self, button, is_down):
        self._notify("NotifyPointerButton", "(ib)", button, is_down)

    def hold(self, name, is_down):
        self._notify("NotifyKeyboardKeycode", "(ub)", self._keymap.code(name), is_down)

    def _notify(self, method, signature=None, *arguments):
        packed = GLib.Variant(signature, arguments) if signature else None
        self._call(self._session, SERVICE + ".Session", method, packed)

    def _call(self, path, interface, method, arguments=None):
        return self._bus.call_sync(SERVICE, path, interface, method, arguments, None, Gio.DBusCallFlags.NONE, -1, None)
