#!/usr/bin/python3
"""What is dragged out is what is recorded, on dense screens and on the second of two. Run by CTest inside
tests/desktop/x11-session: screens_test.py ScreensTest.NAME"""

import subprocess
import unittest

from PIL import Image

from application import overlay, quillbox, run, status, until, windows, xdo
from desktop import Desktop, without_pointer
from recording import pillow_frames
from screen import Screen

CELL = 6                     # pixels: a whole number of points at 1.5 and 2 pixels a point
AREA = (306, 258, 324, 240)  # pixels, all multiples of a cell
AREA_ON_THE_RIGHT = (606, 258, 324, 240)


def geometry(window):
    lines = run("xdotool", "getwindowgeometry", "--shell", window).stdout.split()
    place = dict(line.split("=") for line in lines)
    return tuple(int(place[key]) for key in ("X", "Y", "WIDTH", "HEIGHT"))


def colors_of(pictures):
    return {color for picture in pictures for _, color in picture.getcolors(maxcolors=1 << 20)}


class ScreensTest(unittest.TestCase):
    def setUp(self):
        self.pointer = without_pointer()

    def assert_records_what_is_dragged(self, scale, area=AREA, **environment):
        """Drags out exactly the window of the animation: a pixel too far shows the desktop or another cell."""
        screen = Screen(*area, cell=CELL)
        screen.show(0)
        shown = []
        with Desktop(**environment) as desktop:
            desktop.record(*area)
            for step in range(3):
                screen.show(step)
                desktop.wait_for_frames(status()["frameCount"] + 12)
                shown.append(screen.picture(*area))
            self.assertEqual(quillbox("stop").returncode, 0)
            frames = [picture for picture, _ in pillow_frames(status()["path"])]
        size = (round(area[2] / scale), round(area[3] / scale))
        self.assertEqual(frames[0].size, size)
        expected = [picture.resize(size, Image.Resampling.NEAREST) for picture in shown]
        recorded = {frame.tobytes() for frame in frames}
        self.assertEqual([picture.tobytes() in recorded for picture in expected], [True] * 3)
        self.assertEqual(len({picture.tobytes() for picture in expected}), 3)
        self.assertLessEqual(colors_of(frames), colors_of(expected))

    def assert_overlay_covers(self, *monitor, **environment):
        with Desktop(**environment) as desktop:
            desktop.begin()
            desktop.wait_for_overlay()
            self.assertEqual(geometry(overlay()[0]), monitor)

    def set_resolution(self, dots_per_inch):
        subprocess.run(["xrdb", "-nocpp", "-merge"], input=f"Xft.dpi: {dots_per_inch}\n", text=True, timeout=60,
                       check=True)

    def add_second_monitor(self):
        """The primary one is right of the other, and lower."""
        monitors = (["left", "480/127x720/190+0+0", "none"], ["*right", "800/211x624/165+480+96", "screen"])
        for monitor in monitors:
            run("xrandr", "--setmonitor", *monitor, check=True)

    def test_records_the_dragged_pixels_at_two_pixels_a_point(self):
        self.assert_records_what_is_dragged(2, QT_SCALE_FACTOR="2")

    def test_records_the_dragged_pixels_at_one_and_a_half_pixels_a_point(self):
        self.assert_records_what_is_dragged(1.5, QT_SCALE_FACTOR="1.5")

    def test_records_the_dragged_pixels_at_the_resolution_of_the_desktop(self):
        self.set_resolution(192)
        self.assert_records_what_is_dragged(2)

    def test_records_the_dragged_pixels_at_the_scale_of_a_screen(self):
        self.assert_records_what_is_dragged(2, QT_SCREEN_SCALE_FACTORS="2")

    def test_records_the_dragged_pixels_of_the_primary_monitor(self):
        self.add_second_monitor()
        self.assert_records_what_is_dragged(1, area=AREA_ON_THE_RIGHT)

    def test_records_the_dragged_pixels_of_a_dense_primary_monitor(self):
        self.add_second_monitor()
        self.assert_records_what_is_dragged(2, area=(600, 258, 324, 240), QT_SCALE_FACTOR="2")

    def test_the_overlay_covers_all_of_a_dense_screen(self):
        self.assert_overlay_covers(0, 0, 1280, 720, QT_SCALE_FACTOR="2")

    def test_the_overlay_covers_all_of_a_screen_that_is_no_whole_number_of_points_wide(self):
        self.assert_overlay_covers(0, 0, 1280, 720, QT_SCALE_FACTOR="1.5")

    def test_the_overlay_covers_the_primary_monitor_only(self):
        self.add_second_monitor()
        self.assert_overlay_covers(480, 96, 800, 624)

    def test_a_press_on_another_monitor_says_on_which_one_recording_is_possible(self):
        self.add_second_monitor()
        line = "Recording is possible on right only. Drag there. — Quillbox"
        with Desktop() as desktop:
            desktop.begin()
            desktop.wait_for_overlay()
            xdo("mousemove", 100, 300, "click", 1)
            (window,) = until(lambda: windows(line), "the line is there", limit=20)
            left, top, width, height = geometry(window)
            self.assertTrue(0 <= left and left + width <= 480 and top + height < 300, "beside the pointer, and whole")
            self.assertEqual(status()["phase"], "selecting")
            desktop.drag(*AREA_ON_THE_RIGHT)
            desktop.wait_for("recording")
            self.assertEqual(windows(line), [])
            self.assertEqual(quillbox("stop").returncode, 0)
            self.assertEqual(pillow_frames(status()["path"])[0][0].size, AREA_ON_THE_RIGHT[2:])


if __name__ == "__main__":
    unittest.main()
