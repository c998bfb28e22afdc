#!/usr/bin/python3
"""The icon in a tray. Run by CTest inside tests/desktop/x11-session with a tray: tray_test.py TrayTest.NAME"""

import unittest

from gi.repository import Gio, GLib

from application import until, xdo
from desktop import Desktop, tray_icon


def tool_tip():
    """The title of the icon's tooltip where the tray follows the StatusNotifierItem protocol; else None."""
    bus = Gio.bus_get_sync(Gio.BusType.SESSION)

    def property_of(to, path, interface, name):
        return bus.call_sync(to, path, "org.freedesktop.DBus.Properties", "Get", GLib.Variant("(ss)", (interface, name)),
                             None, Gio.DBusCallFlags.NONE, 5000, None).unpack()[0]

    watcher = "org.kde.StatusNotifierWatcher"
    if not bus.call_sync("org.freedesktop.DBus", "/", "org.freedesktop.DBus", "NameHasOwner",
                         GLib.Variant("(s)", (watcher,)), None, Gio.DBusCallFlags.NONE, 5000, None).unpack()[0]:
        return None
    item, = property_of(watcher, "/StatusNotifierWatcher", watcher, "RegisteredStatusNotifierItems")
    name, slash, path = item.partition("/")
    return property_of(name, slash + path, "org.kde.StatusNotifierItem", "ToolTip")[2]


class TrayTest(unittest.TestCase):
    def test_a_click_on_the_icon_opens_the_panel_and_another_one_closes_it(self):
        with Desktop() as desktop:
            until(tray_icon, "the icon is in the tray")
            xdo("mousemove", *tray_icon(), "click", 1)
            until(desktop.panel, "the panel is open")
            x, y = tray_icon()
            xdo("mousemove", x + 7, y + 7, "click", 1)  # too far from the first one for a double click
            until(lambda: not desktop.panel(), "the panel is closed")

    def test_a_click_with_the_middle_button_ends_a_recording(self):
        with Desktop() as desktop:
            until(tray_icon, "the icon is in the tray")
            place = tray_icon()
            desktop.record(300, 250, 40, 30)
            if tool_tip() is not None:
                until(lambda: tool_tip() == "Quillbox — Recording… 0:01", "the tooltip tells the time")
            xdo("mousemove", *place, "click", 2)
            desktop.wait_for("done")
            self.assertIn(tool_tip(), ("Quillbox", None))


if __name__ == "__main__":
    unittest.main()
