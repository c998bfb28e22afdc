#!/usr/bin/python3
"""The application on an X server without a tray. Run by CTest inside tests/desktop/x11-session."""

import unittest

from application import until
import desktop_test


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


if __name__ == "__main__":
    unittest.main()
