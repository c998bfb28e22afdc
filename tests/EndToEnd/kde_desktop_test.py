#!/usr/bin/python3
"""The desktop application on KDE's compositor and portal, used as a person uses it. Run by CTest inside
tests/desktop/kde-session, one test a session."""

import os
import signal
import unittest

from gi.repository import Gio
from PIL import Image

import kwin_camera
import kwin_input
import kwin_windows
from application import quillbox, status, until
from asking_desktop import MONITOR, RECORDINGS, AskingDesktopTest, sessions
from canvas import BLOCKS
from kde_share_dialog import ShareDialog
from pipewire import casts
from recording import pillow_frames
from wayland_application import AREA, GAP, icon_in

PLASMAS_PANEL = 44  # points, at the bottom


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
        until(lambda: casts() == 0, "the cast has ended")
        desktop.open_panel()
        desktop.press("Record Region")
        self.dialog().share(MONITOR - 1 - 2)  # of the last two
        self.drag_area()
        desktop.wait_for("recording")
        shown = self.play(desktop)
        self.assertEqual(quillbox("stop").returncode, 0)
        desktop.wait_for("done")
        self.assert_is_the_clip(shown)

    def test_lives_beside_plasmas_tray_and_clipboard_manager(self):
        """All of it in one session, which takes its time to come up."""
        self.canvas.show(0, AREA)
        desktop = self.start()
        self.click_on_icon()
        self.assert_panel_is_beside_icon()
        until(desktop.panel, "the panel is open")
        self.keep_screenshot("panel-plasma")
        desktop.press("Record Region")
        self.permit(self.dialog(bottom_bar=PLASMAS_PANEL))
        shown = self.record_and_stop_by_the_button(desktop, self.click_on_icon)
        clip = self.assert_is_the_clip(shown)
        self.assert_panel_is_beside_icon()  # though it has grown
        self.assert_is_in_the_list_and_copied(desktop, clip)
        until(lambda: clipboard_manager("getClipboardContents") == clip.as_uri(), "it has the clip")
        self.keep_screenshot("done-plasma")
        desktop.begin()
        self.assert_leaves_nothing_open(desktop)
        self.assertEqual(sessions(), 1, "that of the hotkey")
        self.assertEqual(len(clipboard_manager("getClipboardHistoryMenu")), min(1 + RECORDINGS, 20))  # its most

    def test_records_the_pixels_of_the_region_at_one_and_a_half_pixels_a_point(self):
        """A point of the region is a pixel of the clip; what is on the screen is scaled."""
        left, top, width, height = AREA
        halves = Image.new("RGB", self.canvas.size, BLOCKS[4])
        halves.paste(BLOCKS[2], (left + width // 2, top, left + width, top + height))
        shown = [Image.new("RGB", self.canvas.size, BLOCKS[4]), halves]
        self.canvas.show_picture(shown[0])
        desktop = self.start_with_panel()
        desktop.press("Record Region")
        self.permit(self.dialog())
        self.drag_area()
        desktop.wait_for("recording")
        for picture in shown:
            self.canvas.show_picture(picture)
            desktop.wait_for_frames(status()["frameCount"] + 12)
        self.assertEqual(quillbox("stop").returncode, 0)
        desktop.wait_for("done")
        frames = [picture for picture, _ in pillow_frames(status()["path"])]
        self.assertEqual({frame.size for frame in frames}, {(width, height)})
        self.assertEqual({color for _, color in frames[0].getcolors()}, {BLOCKS[4]})
        row = [frames[-1].getpixel((x, height // 2)) for x in range(width)]
        edge = width // 2
        self.assertEqual((set(row[:edge - 2]), set(row[edge + 2:-2])), ({BLOCKS[4]}, {BLOCKS[2]}))

    def icon(self):
        """Where our icon is on Plasma's panel."""
        height = self.canvas.size[1]
        return icon_in(self.seen(), height - PLASMAS_PANEL, height)

    def click_on_icon(self):
        self.clicked = until(lambda: (found := self.icon()) == self.icon() and found, "the icon is in the tray")
        self.user.click(*self.clicked)

    def assert_panel_is_beside_icon(self):
        """That was clicked on."""
        width, height = self.canvas.size

        def is_beside():
            place = kwin_windows.place("Quillbox")
            if place is None:
                return False
            right, bottom = place[0] + place[2], place[1] + place[3]
            return bottom == height - PLASMAS_PANEL - GAP and place[0] < self.clicked[0] < right <= width - GAP

        try:
            until(is_beside, "the panel is beside the icon", limit=20)
        except AssertionError as error:
            raise AssertionError(f"{kwin_windows.place('Quillbox')} is beside {self.clicked}") from error

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
        until(lambda: casts() == 0, "the cast has ended")

    def test_escape_cancels_and_ends_the_cast(self):
        desktop = self.begin_asked()
        self.permit(self.dialog())
        until(lambda: self.shows_dimmed(BLOCKS[4], (20, 400)), "the overlay is on the screen")
        width, height = self.canvas.size
        until(lambda: self.shows_dimmed_picture(self.canvas.step(0, AREA), (0, height // 4, width, height)),
              "the picture behind it is without the pointer, which is where the dialog was", limit=20)
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
        until(self.shows_frame, "the region's frame is on the screen", limit=20)
        self.keep_screenshot("recording")
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

    def dialog(self, bottom_bar=0):
        """On the output with the pointer, in the middle of what a bar at the bottom leaves."""
        width, height = self.canvas.size
        return ShareDialog(self.user, (0, 0, width, height - bottom_bar))

    def permit(self, dialog):
        dialog.share()


def clipboard_manager(method):
    """What Klipper answers."""
    return Gio.bus_get_sync(Gio.BusType.SESSION).call_sync(
        "org.kde.klipper", "/klipper", "org.kde.klipper.klipper", method, None, None, Gio.DBusCallFlags.NONE, -1,
        None).unpack()[0]


if __name__ == "__main__":
    unittest.main()
