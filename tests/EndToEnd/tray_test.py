#!/usr/bin/python3
"""The icon in a tray. Run by CTest inside tests/desktop/x11-session with a tray: tray_test.py TrayTest.NAME"""

import subprocess
import unittest

from application import until, xdo
from desktop import Desktop


class TrayTest(unittest.TestCase):
    def test_a_click_on_the_icon_opens_the_panel_and_another_one_closes_it(self):
        with Desktop() as desktop:
            until(self.icon, "the icon is in the tray")
            xdo("mousemove", *self.icon(), "click", 1)
            until(desktop.panel, "the panel is open")
            x, y = self.icon()
            xdo("mousemove", x + 7, y + 7, "click", 1)  # too far from the first one for a double click
            until(lambda: not desktop.panel(), "the panel is closed")

    def icon(self):
        """The middle of the icon: the tray's own windows are at the top edge, ours is the one that shows our colours."""
        done = subprocess.run(["import", "-window", "root", "-crop", "1920x30+0+0", "+repage", "-depth", "8", "rgb:-"],
                              capture_output=True, timeout=60).stdout
        width = len(done) // 3 // 30
        found = []
        for at in range(0, len(done), 3):
            red, green, blue = done[at:at + 3]
            if blue > 180 and red < 130 and green < 120 and blue > red + 60:
                found.append((at // 3 % width, at // 3 // width))
        if len(found) < 40:
            return None
        return (sum(x for x, _ in found) // len(found), sum(y for _, y in found) // len(found))


if __name__ == "__main__":
    unittest.main()
