#!/usr/bin/python3
"""The desktop application on KDE's compositor and portal, used as a person uses it. Run by CTest inside
tests/desktop/kde-session, one test a session."""

import os
import signal
import unittest

import kwin_camera
import kwin_input
import kwin_windows
from application import quillbox, status, until
from asking_desktop import MONITOR, AskingDesktopTest
from canvas import BLOCKS
from kde_share_dialog import ShareDialog
from recording import pillow_frames
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

    def begin_asked(self):
        """@return the application, while the desktop asks what may be seen"""
        self.canvas.show(0, AREA)
        desktop = self.start_with_panel()
        desktop.press("Record Region")
        return desktop

    def assert_makes_a_clip_when(self, process):
        """Kills what serves the cast while it records."""
        desktop = self.begin_asked()
        self.permit(self.dialog())
        self.drag_area()
        desktop.wait_for("recording")
        shown = self.play(desktop)
        os.kill(int(os.environ[process]), signal.SIGKILL)
        desktop.wait_for("done")
        self.assert_is_the_clip(shown)
        desktop.open_panel()
        desktop.press("Record Region")
        until(lambda: status()["phase"] != "done", "another flow has begun")

    def test_a_refusal_ends_the_flow_without_a_word(self):
        desktop = self.begin_asked()
        self.dialog().cancel()
        desktop.wait_for("idle")
        self.assertEqual(casts(), 0)

    def test_escape_cancels_and_ends_the_cast(self):
        desktop = self.begin_asked()
        self.permit(self.dialog())
        until(lambda: self.shows_dimmed(BLOCKS[4], (20, 400)), "the overlay is on the screen")
        self.assertEqual(casts(), 1)
        self.user.key("a")
        self.assertEqual(status()["phase"], "selecting")
        self.user.key("Escape")
        desktop.wait_for("idle")
        until(lambda: casts() == 0, "the cast has ended")

    def test_the_clip_goes_on_while_the_panel_is_beside_the_region(self):
        desktop = self.begin_asked()
        self.permit(self.dialog())
        self.drag_area()
        desktop.wait_for("recording")
        shown = self.play(desktop, steps=1)
        desktop.open_panel()  # in the middle of the monitor
        covered = self.canvas.show(3, AREA)
        desktop.wait_for_frames(status()["frameCount"] + 12)
        self.canvas.show(0, AREA)
        kwin_windows.move("Quillbox", 820, 60)
        for step in (1, 2):
            desktop.wait_for_frames(status()["frameCount"] + 30)
            shown.append(self.canvas.show(step, AREA))
        desktop.wait_for_frames(status()["frameCount"] + 12)
        self.assertEqual(quillbox("stop").returncode, 0)
        desktop.wait_for("done")
        path = self.assert_is_the_clip(shown)
        self.assertFalse(covered.tobytes() in [picture.tobytes() for picture, _ in pillow_frames(path)])

    def test_makes_the_clip_when_the_portal_dies(self):
        self.assert_makes_a_clip_when("PORTAL_PID")

    def test_makes_the_clip_when_the_portals_back_end_dies(self):
        self.assert_makes_a_clip_when("PORTAL_BACKEND_PID")

    def test_makes_the_clip_when_pipewire_dies(self):
        self.assert_makes_a_clip_when("PIPEWIRE_PID")

    def dialog(self):
        """On the output with the pointer, in the middle."""
        width, height = self.canvas.size
        return ShareDialog(self.user, (0, 0, width, height))

    def permit(self, dialog):
        dialog.share()


if __name__ == "__main__":
    unittest.main()
