"""The question of a KDE desktop which monitor a program may see, as a person answers it. For tests inside
tests/desktop/kde-session."""

import os

import gi

from application import until
from running import applications_of, extents, press, showing

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402

TITLE_BAR = 30  # points, of KWin's


class ShareDialog:
    """The dialog that is on the screen, or comes there.

    @param user    whose pointer answers it: its cards have no other way
    @param output  where it is: (left, top, width, height). It is in the middle.
    """

    def __init__(self, user, output=(0, 0, 1280, 720)):
        self.user, self.output = user, output
        until(lambda: button("Share"), "the desktop asks what may be seen")

    def share(self, which=-1):
        """Permits it to see what a card stands for, for as long as the desktop remembers.

        @param which  0 is a virtual output that would be made; with two outputs all of them, then the virtual one; the
                      last are the outputs
        """
        until(lambda: self.chooses(which), "the card is chosen")
        press(button("Share"))
        until(lambda: not button("Share"), "the dialog has gone")

    def cancel(self):
        press(button("Cancel"))
        until(lambda: not button("Cancel"), "the dialog has gone")

    def chooses(self, which):
        """Whether a card is the chosen one; else clicks on it, as the first click may only have raised the dialog."""
        if not has_state(cards()[which], Atspi.StateType.CHECKED):
            left, top = self.contents()
            x, y, width, _ = extents(cards()[which])
            self.user.click(left + x + width // 2, top + y + 40)  # the lower cards are cut off
            until_it_has_answered()
        return has_state(cards()[which], Atspi.StateType.CHECKED)

    def contents(self):
        """The left and top of what the dialog shows, on the desktop; what it says of widgets is relative to that."""
        width, height = next(extents(node)[2:] for node in widgets() if node.get_role_name() == "frame")
        left, top, outer_width, outer_height = self.output
        return left + (outer_width - width) // 2, top + (outer_height - height - TITLE_BAR) // 2 + TITLE_BAR


def widgets():
    for known in applications_of(int(os.environ["PORTAL_BACKEND_PID"])):
        yield from showing(known)


def until_it_has_answered():
    """It takes a click before it answers what was asked after it."""
    for _ in widgets():
        pass


def cards():
    return [node for node in widgets() if node.get_role_name() == "list item"]


def button(name):
    return next((node for node in widgets() if node.get_role_name() == "push button" and node.get_name() == name), None)


def has_state(widget, state):
    return widget.get_state_set().contains(state)
