#!/usr/bin/python3
"""The desktop application on KDE's compositor and portal, used as a person uses it. Run by CTest inside
tests/desktop/kde-session, one test a session."""

import unittest

import kwin_camera
import kwin_input
from application import quillbox, status
from asking_desktop import MONITOR, AskingDesktopTest
from kde_share_dialog import ShareDialog
from wayland_application import AREA, casts


class KDEDesktopTest(AskingDesktopTest):
    def devices(self):
        return kwin_input.Devices()

    def seen(self, has_pointer=False):
        """A picture of the cast monitor, in its own pixels."""
        return kwin_camera.picture(f"Virtual-{MONITOR - 1}", has_pointer)

    def photograph(self, path):
        self.seen(has_pointer=True).save(path)

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

    def permit(self, dialog):
        dialog.share()



if __name__ == "__main__":
    unittest.main()
