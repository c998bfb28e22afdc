"""The running application as a person and a screen reader see it, on any window system."""

import os
import pathlib
import random
import subprocess
import unittest

import gi

from application import program, quillbox, status, until
from event_loop import EventLoopWatch

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402


FIRST_USE = pathlib.Path(os.environ["XDG_DATA_HOME"], "Quillbox/first-use")  # what is remembered of it


class Running:
    """The application of a user who knows it already unless it is a newcomer, from its start until the block ends."""

    def __init__(self, stderr=None, newcomer=False, **environment):
        if not newcomer:
            FIRST_USE.parent.mkdir(parents=True, exist_ok=True)
            FIRST_USE.write_text("introduced\n")
        self.event_loop = EventLoopWatch()
        self.process = subprocess.Popen([program()], stdin=subprocess.DEVNULL, stderr=stderr,
                                        env={**os.environ, **self.event_loop.environment, **environment})
        until(status, "the application answers")

    def __enter__(self):
        return self

    def __exit__(self, failure=None, *_):
        if self.process.poll() is None:
            self.process.kill()
        self.process.wait()
        if failure is None:
            self.event_loop.check()

    def wait_for(self, wanted):
        until(lambda: status()["phase"] == wanted, f"the phase {wanted}")

    def wait_for_frames(self, count):
        until(lambda: status().get("frameCount", 0) >= count, f"{count} frames")

    def begin(self):
        done = quillbox("begin")
        assert done.returncode == 0, done.stderr

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

    def press(self, name):
        """Presses a button the way a screen reader does."""
        until(lambda: self.find("push button", name), f"{name} is there")
        press(self.find("push button", name))

    def is_checked(self, name):
        box = self.find("check box", name)
        return box is not None and box.get_state_set().contains(Atspi.StateType.CHECKED)

    def has_focus(self):
        """Whether the keyboard is that of one of its windows."""
        return any(node.get_state_set().contains(Atspi.StateType.ACTIVE) for node in self.widgets())

    def texts(self):
        return [node.get_name() for node in self.widgets()]

    def widgets(self):
        """Everything of ours that is on the screen, as a screen reader sees it."""
        for application in applications_of(self.process.pid):
            yield from showing(application)


class ApplicationTest(unittest.TestCase):
    """Starts the application and ends it with the test."""

    Application = Running

    def start(self, **environment):
        application = self.Application(**environment)
        self.addCleanup(application.__exit__)
        return application

    def keep_screenshot(self, name):
        """In the folder that QUILLBOX_SCREENSHOTS names, if it does."""
        folder = os.environ.get("QUILLBOX_SCREENSHOTS")
        if folder:
            pathlib.Path(folder).mkdir(parents=True, exist_ok=True)
            self.photograph(f"{folder}/{name}.png")

    def photograph(self, path):
        """Saves what is on the screen."""
        camera = ["grim"] if "WAYLAND_DISPLAY" in os.environ else ["import", "-window", "root"]
        subprocess.run([*camera, path], timeout=60, check=True)

    def make_clip(self, length):
        """A file of that many bytes and a bit more, which is nearly a GIF: what copies it does not look inside."""
        clip = pathlib.Path(os.environ["HOME"], "a clip.gif")
        clip.write_bytes(b"GIF89a" + random.Random(1).randbytes(length))
        return clip


def extents(node):
    """Where a widget is: on X11 on the screen, on Wayland in its window. (x, y, width, height)"""
    place = node.get_extents(Atspi.CoordType.SCREEN)
    if "WAYLAND_DISPLAY" not in os.environ:
        return place.x, place.y, place.width, place.height
    window = window_of(node).get_extents(Atspi.CoordType.SCREEN)  # the corner of the output that the toolkit takes it for
    return place.x - window.x, place.y - window.y, place.width, place.height


def window_of(node):
    """The widget that a widget is in, and that is in no other."""
    while (parent := node.get_parent()) is not None and parent.get_role_name() != "application":
        node = parent
    return node


def press(button):
    assert button.get_action_iface().do_action(0)


def applications_of(process):
    """What a screen reader knows of a process."""
    root = Atspi.get_desktop(0)
    for number in range(root.get_child_count()):
        application = root.get_child_at_index(number)
        if application is not None and application.get_process_id() == process:
            application.set_cache_mask(Atspi.Cache.NONE)  # it is kept up to date by an event loop only
            yield application


def showing(node, state=Atspi.StateType.SHOWING):
    """A widget and all below it, as far as they have this state."""
    try:
        if node.get_role_name() != "application":
            if not node.get_state_set().contains(state):
                return
            yield node
        for number in range(node.get_child_count()):
            child = node.get_child_at_index(number)
            if child is not None:
                yield from showing(child, state)
    except gi.repository.GLib.GError:  # it went while we looked
        return
