"""What a person does alike on GNOME and on KDE: they have no tray, and ask in a dialog which monitor may be seen."""

import json
import os
import pathlib

import pipewire
from application import quillbox, run, status, until
from wayland_application import AREA, WaylandApplicationTest

HISTORY = pathlib.Path(os.environ["XDG_DATA_HOME"], "Quillbox/history.json")
MONITOR = int(os.environ["CAST_OUTPUT"])
RECORDINGS = int(os.environ.get("RECORDINGS", "5"))
SESSIONS = "/org/freedesktop/portal/desktop/session"


class AskingDesktopTest(WaylandApplicationTest):
    """The test of the desktop adds dialog(), and permit(dialog) for the monitor that is cast."""

    def origin(self):
        return (MONITOR - 1) * self.canvas.size[0], 0

    def press(self, desktop, name):
        desktop.press(name)

    def wait_for_rest(self):
        until(lambda: self.seen().tobytes() == self.seen().tobytes(), "the compositor has shown what is new")

    def start_with_panel(self):
        desktop = self.start()
        until(desktop.panel, "the panel is open, as there is no tray")
        return desktop

    def test_asks_for_the_screen_once_and_records_what_was_dragged_out(self):
        self.canvas.show(0, AREA)
        desktop = self.start_with_panel()
        self.keep_screenshot("panel-window")
        desktop.press("Record Region")
        dialog = self.dialog()
        self.keep_screenshot("question")
        self.permit(dialog)
        self.drag_area(halfway=lambda: self.keep_screenshot("overlay"))
        desktop.wait_for("recording")
        shown = self.play(desktop)
        desktop.open_panel()
        self.keep_screenshot("panel-recording")
        desktop.press("Stop & Copy")
        desktop.wait_for("done")
        self.assert_is_in_the_list_and_copied(desktop, self.assert_is_the_clip(shown))
        self.keep_screenshot("panel-done")

        desktop.press("Record Region")  # and there is no question
        self.canvas.show(0, AREA)
        self.assert_is_the_clip(self.record_and_stop_by_the_button(desktop))
        until(lambda: pipewire.casts() == 0, "the last cast has ended")

    def assert_leaves_nothing_open(self, desktop):
        """Makes as many recordings as RECORDINGS says; the overlay of the first comes up."""
        after = []
        for number in range(RECORDINGS):
            if number > 0:
                desktop.begin()
            self.drag_area()
            desktop.wait_for("recording")
            during = sessions()
            self.assertEqual(quillbox("stop").returncode, 0)
            desktop.wait_for("done")
            until(lambda: pipewire.casts() == 0 and sessions() < during, "the cast has ended")
            after.append(held_by(desktop))
        for kind, count in after[1].items():  # a second recording may keep something; a file may still be being written
            until(lambda: held_by(desktop)[kind] <= count, f"no more {kind} than after two: {after}", limit=20)

    def assert_is_in_the_list_and_copied(self, desktop, clip):
        until(lambda: clip.name in desktop.texts(), "the clip is in the list")
        self.assertEqual([entry["outputPath"] for entry in json.loads(HISTORY.read_text())], [str(clip)])
        until(lambda: status()["clipboard"] == "accepted", "the clip is on the clipboard")
        self.assert_is_copied(clip)


def held_by(desktop):
    return {"descriptors": len(os.listdir(f"/proc/{desktop.process.pid}/fd")), "nodes": len(pipewire.nodes()),
            "sessions": sessions()}


def sessions():
    """How many sessions programs have with the portal."""
    tree = run("gdbus", "introspect", "--session", "--dest", "org.freedesktop.portal.Desktop", "--recurse",
               "--object-path", SESSIONS).stdout
    return sum(line.count("/") - SESSIONS.count("/") == 2 for line in tree.splitlines() if f"node {SESSIONS}/" in line)
