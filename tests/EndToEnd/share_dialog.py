"""The question of a GNOME desktop which monitor a program may see, as a person answers it. For tests inside
tests/desktop/mutter-session."""

import os

import gi

import application
from running import applications_of, press, showing

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402


def until(condition, what):
    """As application.until() does; what goes while the condition looks at it is looked for again."""

    def answer():
        try:
            return condition()
        except GLib.GError:
            return False

    application.until(answer, what)


class ShareDialog:
    """The dialog that is on the screen, or comes there. Once it is answered nothing may look at it, or the portal may end:
    GTK 4.8 does not survive a question for a widget that is going.

    @param user  whose keyboard answers it
    """

    def __init__(self, user):
        self.user = user
        until(has_focus, "the desktop asks what may be seen")

    def share(self, monitor=1):
        """Permits it to see this monitor, counted from one, for as long as the desktop remembers."""
        self.go("Tab", lambda: any(is_focused(row) for row in monitors()))
        self.go("Down", lambda: is_focused(monitors()[monitor - 1]))
        self.user.key("Return")
        until(lambda: is_in_state(button("Share"), Atspi.StateType.SENSITIVE), "a monitor is chosen")
        press(button("Share"))

    def cancel(self):
        press(button("Cancel"))

    def close(self):
        self.user.key("Escape")

    def go(self, key, has_arrived):
        """Presses the key until the focus is there."""
        while not has_arrived():
            before = focused()
            self.user.key(key)
            until(lambda: focused() not in ([], before), f"{key} moves the focus")


def widgets():
    for known in applications_of(int(os.environ["PORTAL_BACKEND_PID"])):
        yield from showing(known, Atspi.StateType.VISIBLE)  # all that GTK 4 says of them


def has_focus():
    return any(is_in_state(node, Atspi.StateType.ACTIVE) for node in widgets())


def monitors():
    return [node for node in widgets() if node.get_role_name() == "list item"]


def button(name):
    return next(node for node in widgets() if node.get_role_name() == "push button" and node.get_name().endswith(name))


def is_in_state(widget, state):
    return widget.get_state_set().contains(state)


def is_focused(widget):
    return is_in_state(widget, Atspi.StateType.FOCUSED)


def focused():
    """Which of the widgets, by their numbers: monitors may have one name."""
    return [number for number, node in enumerate(widgets()) if is_focused(node)]
