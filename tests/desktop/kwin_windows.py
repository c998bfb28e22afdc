"""Windows of the desktop made by tests/desktop/kde-session, as KWin knows and moves them."""

import os
import tempfile

from gi.repository import Gio, GLib

MOVE = """
for (const window of workspace.clientList())
    if (window.caption == "%s") {
        const place = window.frameGeometry;
        window.frameGeometry = {x: %d, y: %d, width: place.width, height: place.height};
    }
"""


def move(title, x, y):
    """Puts the windows of that title there, with their left and top, points."""
    with tempfile.NamedTemporaryFile("w", suffix=".js", dir=os.environ["HOME"]) as script:
        script.write(MOVE % (title, x, y))
        script.flush()
        number = call("/Scripting", "org.kde.kwin.Scripting", "loadScript", "(ss)", (script.name, "move"))
        call(f"/{number}", "org.kde.kwin.Script", "run")
        call("/Scripting", "org.kde.kwin.Scripting", "unloadScript", "(s)", ("move",))


def place(title):
    """Where the window of that title is, points: (left, top, width, height). None without one."""
    for match in call("/WindowsRunner", "org.kde.krunner1", "Match", "(s)", (title,)):
        window = call("/KWin", "org.kde.KWin", "getWindowInfo", "(s)", (match[0].partition("_")[2],))
        if window.get("caption") == title:
            return tuple(window[key] for key in ("x", "y", "width", "height"))
    return None


def call(path, interface, method, signature=None, arguments=None):
    answer = Gio.bus_get_sync(Gio.BusType.SESSION).call_sync(
        "org.kde.KWin", path, interface, method, signature and GLib.Variant(signature, arguments), None,
        Gio.DBusCallFlags.NONE, -1, None)
    return next(iter(answer.unpack()), None)
