"""Takes pictures of the desktop made by tests/desktop/mutter-session with PipeWire, the way a screen reader's magnifier or
a remote desktop sees it: without asking anybody."""

import subprocess

from gi.repository import Gio, GLib
from PIL import Image

SERVICE = "org.gnome.Mutter.ScreenCast"
WITHOUT_POINTER, WITH_POINTER = 0, 1  # cursor modes of Mutter's interface
LIMIT_SECONDS = 60


def picture(monitor, size, cursor_mode=WITHOUT_POINTER):
    """What a monitor shows now.

    @param monitor  its connector, Meta-0 is the first
    @param size     in device pixels
    """
    bus = Gio.bus_get_sync(Gio.BusType.SESSION)

    def call(path, interface, method, arguments=None):
        return bus.call_sync(SERVICE, path, interface, method, arguments, None, Gio.DBusCallFlags.NONE, -1, None).unpack()

    (session,) = call("/org/gnome/Mutter/ScreenCast", SERVICE, "CreateSession", GLib.Variant("(a{sv})", ({},)))
    options = {"cursor-mode": GLib.Variant("u", cursor_mode)}
    (stream,) = call(session, SERVICE + ".Session", "RecordMonitor", GLib.Variant("(sa{sv})", (monitor, options)))
    nodes = []
    listening = bus.signal_subscribe(SERVICE, SERVICE + ".Stream", "PipeWireStreamAdded", stream, None,
                                     Gio.DBusSignalFlags.NONE, lambda *signal: nodes.extend(signal[5].unpack()))
    try:
        call(session, SERVICE + ".Session", "Start")
        while not nodes:
            GLib.MainContext.default().iteration(True)
        pixels = subprocess.run(["gst-launch-1.0", "-q", "pipewiresrc", f"path={nodes[0]}", "num-buffers=1", "!",
                                 "videoconvert", "!", "video/x-raw,format=RGBx", "!", "fdsink"],
                                stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, timeout=LIMIT_SECONDS, check=True).stdout
    finally:
        bus.signal_unsubscribe(listening)
        call(session, SERVICE + ".Session", "Stop")
    return Image.frombytes("RGB", size, pixels, "raw", "RGBX")
