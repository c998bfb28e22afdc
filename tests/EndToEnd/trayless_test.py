#!/usr/bin/python3
"""The application on an X server without a tray. Run by CTest inside tests/desktop/x11-session."""

import unittest

import desktop_test
from application import status, until, xdo
from recording import pillow_frames
from screen import DESKTOP

WHOLE_SCREEN = (0, 0, 1280, 720)


class TraylessTest(desktop_test.DesktopTest):
    def test_ends_a_recording_by_the_mouse(self):
        desktop = self.start()
        until(desktop.panel, "the panel is open")
        until(lambda: desktop.is_checked("Notifications"), "what the icon's menu has elsewhere is in the panel")
        desktop.click("check box", "Notifications")
        until(lambda: not desktop.is_checked("Notifications"), "they are switched off")
        desktop.click("check box", "Notifications")
        desktop.record(*desktop_test.AREA)
        self.play_and_wait(desktop, 1)
        until(lambda: desktop.find("push button", "Stop & Copy"), "there is a control")
        self.keep_screenshot("stop-control")
        desktop.click("push button", "Stop & Copy")
        desktop.wait_for("done")
        self.assert_is_a_finished_clip(desktop, desktop_test.AREA)

    def test_the_upper_edge_brings_up_a_control_where_the_region_leaves_no_room(self):
        desktop = self.start()
        until(desktop.panel, "the panel is open")
        desktop.record(*WHOLE_SCREEN)
        desktop.wait_for_frames(100)  # the introduction comes after the first, and lasts for 75
        until(lambda: not desktop.find("push button", "Stop & Copy"), "the introduction is over")
        self.play_and_wait(desktop, 1)
        xdo("mousemove", 640, 0)
        until(lambda: desktop.find("push button", "Stop & Copy"), "there is a control")
        self.keep_screenshot("edge-control")
        desktop.click("push button", "Stop & Copy")
        desktop.wait_for("done")
        for picture, _ in pillow_frames(status()["path"]):
            strip = picture.crop((0, 0, picture.width, 60))
            self.assertEqual(strip.getcolors(), [(60 * picture.width, DESKTOP)], "nothing of it is in the clip")


if __name__ == "__main__":
    unittest.main()
