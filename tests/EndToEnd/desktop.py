"""Uses the desktop application as a person does: keys, pointer, the panel's buttons. For tests inside x11-session."""

import os
import subprocess

import gi
from Xlib import X, display

from application import overlay, program, quillbox, run, status, until, xdo

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402


class Desktop:
    """The running application."""

    def __init__(self, stderr=None, **environment):
        self.process = subprocess.Popen([program()], stdin=subprocess.DEVNULL, stderr=stderr,
                                        env={**os.environ, **environment})
        until(status, "the application answers")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        if self.process.poll() is None:
            self.process.kill()
        self.process.wait()

    def wait_for(self, wanted):
        until(lambda: status()["phase"] == wanted, f"the phase {wanted}")

    def wait_for_frames(self, count):
        until(lambda: status().get("frameCount", 0) >= count, f"{count} frames")

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

    def begin(self):
        done = quillbox("begin")
        assert done.returncode == 0, done.stderr

    def copy(self, path):
        """Has the running application put a file on the clipboard."""
        done = run("dbus-send", "--session", "--print-reply=literal", f"--dest={os.environ['QUILLBOX_APP_ID']}",
                   "/" + os.environ["QUILLBOX_APP_ID"].replace(".", "/"), "org.quillbox.quillbox.Copy", f"string:{path}")
        assert done.stdout.strip() == "boolean true", done.stderr

    def press_hotkey(self):
        xdo("key", "super+shift+2")

    # The panel

    def open_panel(self):
        assert quillbox("show").returncode == 0
        until(self.panel, "the panel is open")

    def panel(self):
        """The panel's button that records and stops, while it is on the screen."""
        return self.find("push button", "Record Region") or self.find("push button", "Stop & Copy")

    def find(self, role, name):
        """The widget of that role and name that is on the screen, or none."""
        for node in self.widgets():
            if node.get_role_name() == role and node.get_name() == name:
                return node
        return None

    def texts(self):
        return [node.get_name() for node in self.widgets()]

    def widgets(self):
        """Everything of ours that is on the screen, as a screen reader sees it."""
        root = Atspi.get_desktop(0)
        for number in range(root.get_child_count()):
            application = root.get_child_at_index(number)
            if application is not None and application.get_process_id() == self.process.pid:
                yield from showing(application)

    def click(self, role, name):
        """Clicks in the middle of a widget, with the pointer."""
        until(lambda: self.find(role, name), f"{name} is there")
        extents = self.find(role, name).get_extents(Atspi.CoordType.SCREEN)
        xdo("mousemove", extents.x + extents.width // 2, extents.y + extents.height // 2, "click", 1)


def showing(node):
    try:
        if node.get_role_name() != "application":
            if not node.get_state_set().contains(Atspi.StateType.SHOWING):
                return
            yield node
        for number in range(node.get_child_count()):
            child = node.get_child_at_index(number)
            if child is not None:
                yield from showing(child)
    except gi.repository.GLib.GError:  # it went while we looked
        return


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
