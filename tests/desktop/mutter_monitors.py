#!/usr/bin/python3
"""Gives all monitors of the desktop made by tests/desktop/mutter-session, side by side, a scale:
mutter_monitors.py SCALE"""

import sys

from gi.repository import Gio, GLib

SERVICE = "org.gnome.Mutter.DisplayConfig"
TEMPORARY = 1  # a configuration that nobody is asked about
LOGICAL = 1  # positions count points; else they count pixels


def call(method, arguments=None):
    bus = Gio.bus_get_sync(Gio.BusType.SESSION)
    return bus.call_sync(SERVICE, "/org/gnome/Mutter/DisplayConfig", SERVICE, method, arguments, None,
                         Gio.DBusCallFlags.NONE, -1, None).unpack()


def apply_scale(scale):
    serial, monitors, _, properties = call("GetCurrentState")
    left, wanted = 0, []
    for (connector, *_), modes, _ in monitors:
        mode, width = next((mode[0], mode[1]) for mode in modes if mode[6].get("is-current"))
        wanted.append((left, 0, scale, 0, not wanted, [(connector, mode, {})]))
        left += round(width / scale) if properties["layout-mode"] == LOGICAL else width
    call("ApplyMonitorsConfig", GLib.Variant("(uua(iiduba(ssa{sv}))a{sv})", (serial, TEMPORARY, wanted, {})))


def switch_off(connector):
    """Leaves the other monitors as they are; there is one."""
    serial, monitors, logical, _ = call("GetCurrentState")
    modes = {names[0]: mode[0] for names, possible, _ in monitors for mode in possible if mode[6].get("is-current")}
    wanted = []
    for left, top, scale, transform, _, names, _ in logical:
        left_over = [(name[0], modes[name[0]], {}) for name in names if name[0] != connector]
        if left_over:
            wanted.append((left, top, scale, transform, not wanted, left_over))
    call("ApplyMonitorsConfig", GLib.Variant("(uua(iiduba(ssa{sv}))a{sv})", (serial, TEMPORARY, wanted, {})))


if __name__ == "__main__":
    apply_scale(float(sys.argv[1]))
