#!/usr/bin/python3
"""The icon in a tray. Run by CTest inside tests/desktop/x11-session with a tray: tray_test.py TrayTest.NAME"""

import unittest

from application import until, xdo
from desktop import Desktop, tray_icon


class TrayTest(unittest.TestCase):
    def test_a_click_on_the_icon_opens_the_panel_and_another_one_closes_it(self):
        with Desktop() as desktop:
            until(tray_icon, "the icon is in the tray")
            xdo("mousemove", *tray_icon(), "click", 1)
            until(desktop.panel, "the panel is open")
            x, y = tray_icon()
            xdo("mousemove", x + 7, y + 7, "click", 1)  # too far from the first one for a double click
            until(lambda: not desktop.panel(), "the panel is closed")

    def test_a_click_with_the_middle_button_ends_a_recording(self):
        with Desktop() as desktop:
            until(tray_icon, "the icon is in the tray")
            place = tray_icon()
            desktop.record(300, 250, 40, 30)
            xdo("mousemove", *place, "click", 2)
            desktop.wait_for("done")


if __name__ == "__main__":
    unittest.main()
