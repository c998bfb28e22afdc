"""Uses the desktop application as a person does: keys, pointer, the panel's buttons. For tests inside x11-session."""

import os
import subprocess

from Xlib import X, display

from application import overlay, run, until, xdo
from running import Running, extents


class Desktop(Running):
    """The running application on an X server."""

    def wait_for_overlay(self):
        until(overlay, "the overlay is on the screen")

    def drag(self, left, top, width, height):
        """Drags out a rectangle on the overlay, and moves the pointer out of the way."""
        self.wait_for_overlay()
        xdo("mousemove", left, top, "mousedown", 1)
        xdo("mousemove", left + width // 2, top + height // 2)
        xdo("mousemove", left + width, top + height)
        xdo("mouseup", 1, "mousemove", 5, 700)

    def record(self, left, top, width, height):
        self.begin()
        self.drag(left, top, width, height)
        self.wait_for("recording")

    def copy(self, path):
        """Has the running application put a file on the clipboard."""
        done = run("dbus-send", "--session", "--print-reply=literal", f"--dest={os.environ['QUILLBOX_APP_ID']}",
                   "/" + os.environ["QUILLBOX_APP_ID"].replace(".", "/"), "org.quillbox.quillbox.Copy", f"string:{path}")
        assert done.stdout.strip() == "boolean true", done.stderr

    def press_hotkey(self):
        xdo("key", "super+shift+2")

    def click(self, role, name):
        """Clicks in the middle of a widget, with the pointer."""
        until(lambda: self.find(role, name), f"{name} is there")
        x, y, width, height = extents(self.find(role, name))
        xdo("mousemove", x + width // 2, y + height // 2, "click", 1)


def clipboard(target):
    return subprocess.run(["xclip", "-selection", "clipboard", "-o", "-t", target], capture_output=True,
                          timeout=60).stdout


def without_pointer():
    """Gives the pointer a look that shows nothing."""
    server = display.Display()
    root = server.screen().root
    nothing = root.create_pixmap(1, 1, 1)
    context = nothing.create_gc(foreground=0)
    nothing.fill_rectangle(context, 0, 0, 1, 1)
    root.change_attributes(cursor=nothing.create_cursor(nothing, (0, 0, 0), (0, 0, 0), 0, 0))
    server.sync()
    return server  # the look lasts as long as this


def take_hotkey():
    """Another program that holds Super+Shift+2."""
    server = display.Display()
    server.screen().root.grab_key(11, X.Mod4Mask | X.ShiftMask, False, X.GrabModeAsync, X.GrabModeAsync)
    server.sync()
    return server


def tray_icon():
    """The middle of our icon in the tray: the tray's own windows are at the top edge, ours shows our colours. Or none."""
    done = subprocess.run(["import", "-window", "root", "-crop", "1920x30+0+0", "+repage", "-depth", "8", "rgb:-"],
                          capture_output=True, timeout=60).stdout
    width = len(done) // 3 // 30
    found = []
    for at in range(0, len(done), 3):
        red, green, blue = done[at:at + 3]
        if blue > 180 and red < 130 and green < 120 and blue > red + 60:
            found.append((at // 3 % width, at // 3 // width))
    if len(found) < 40:
        return None
    return (sum(x for x, _ in found) // len(found), sum(y for _, y in found) // len(found))
