"""Moves windows of the desktop made by tests/desktop/kde-session, as KWin's own scripts can."""

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
        call(f"/{number}", "org.kde.kwin.Script", "run", None, None)
        call("/Scripting", "org.kde.kwin.Scripting", "unloadScript", "(s)", ("move",))


def call(path, interface, method, signature, arguments):
    answer = Gio.bus_get_sync(Gio.BusType.SESSION).call_sync(
        "org.kde.KWin", path, interface, method, signature and GLib.Variant(signature, arguments), None,
        Gio.DBusCallFlags.NONE, -1, None)
    return next(iter(answer.unpack()), None)
