#!/usr/bin/python3
"""The desktop application on KDE's compositor and portal, used as a person uses it. Run by CTest inside
tests/desktop/kde-session, one test a session."""

import json
import os
import pathlib
import unittest

import kwin_camera
import kwin_input
from application import quillbox, status, until
from kde_share_dialog import ShareDialog
from wayland_application import AREA, WaylandApplicationTest, casts

HISTORY = pathlib.Path(os.environ["XDG_DATA_HOME"], "Quillbox/history.json")
MONITOR = int(os.environ["CAST_OUTPUT"])


class KDEDesktopTest(WaylandApplicationTest):
    def devices(self):
        return kwin_input.Devices()

    def origin(self):
        return (MONITOR - 1) * self.canvas.size[0], 0

    def seen(self, has_pointer=False):
        """A picture of the cast monitor, in its own pixels."""
        return kwin_camera.picture(f"Virtual-{MONITOR - 1}", has_pointer)

    def photograph(self, path):
        self.seen(has_pointer=True).save(path)

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
        dialog = ShareDialog(self.user)
        self.keep_screenshot("question")
        dialog.share()
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
        until(lambda: casts() == 0, "the last cast has ended")

    def test_refuses_all_monitors_at_once_and_records_the_one_that_is_chosen_then(self):
        self.canvas.show(0, AREA)
        desktop = self.start_with_panel()
        desktop.press("Record Region")
        self.dialog().share(0)
        desktop.wait_for("failed")
        self.assertIn("choose a single monitor", status()["message"])
        self.assertEqual(casts(), 0)
        desktop.open_panel()
        desktop.press("Record Region")
        self.dialog().share(MONITOR - 1 - 2)  # of the last two
        self.drag_area()
        desktop.wait_for("recording")
        shown = self.play(desktop)
        self.assertEqual(quillbox("stop").returncode, 0)
        desktop.wait_for("done")
        self.assert_is_the_clip(shown)

    def dialog(self):
        """On the output with the pointer, in the middle."""
        width, height = self.canvas.size
        return ShareDialog(self.user, (0, 0, width, height))

    def assert_is_in_the_list_and_copied(self, desktop, clip):
        until(lambda: clip.name in desktop.texts(), "the clip is in the list")
        self.assertEqual([entry["outputPath"] for entry in json.loads(HISTORY.read_text())], [str(clip)])
        until(lambda: status()["clipboard"] == "accepted", "the clip is on the clipboard")
        self.assert_is_copied(clip)


if __name__ == "__main__":
    unittest.main()
