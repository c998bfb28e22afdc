"""Takes pictures of the desktop made by tests/desktop/kde-session, with KWin's own service for screenshots."""

import os
import tempfile

from gi.repository import Gio, GLib
from PIL import Image

from application import until

SERVICE = "org.kde.KWin.ScreenShot2"


def picture(output, has_pointer=False):
    """What an output shows now, in its own pixels. @param output  its name, Virtual-0 is the first"""
    with tempfile.TemporaryFile() as file:
        options = {"include-cursor": GLib.Variant("b", has_pointer), "native-resolution": GLib.Variant("b", True)}
        bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        answer, _ = bus.call_with_unix_fd_list_sync(
            "org.kde.KWin", "/org/kde/KWin/ScreenShot2", SERVICE, "CaptureScreen",
            GLib.Variant("(sa{sv}h)", (output, options, 0)), None, Gio.DBusCallFlags.NONE, -1,
            Gio.UnixFDList.new_from_array([os.dup(file.fileno())]), None)
        (facts,) = answer.unpack()
        wanted = facts["stride"] * facts["height"]
        until(lambda: os.fstat(file.fileno()).st_size >= wanted, "KWin writes the picture")
        file.seek(0)
        return Image.frombytes("RGB", (facts["width"], facts["height"]), file.read(), "raw", "BGRX", facts["stride"])
