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


if __name__ == "__main__":
    unittest.main()
