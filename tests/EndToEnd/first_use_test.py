#!/usr/bin/python3
"""How Quillbox introduces itself. Run by CTest inside tests/desktop/x11-session: first_use_test.py CLASS.NAME"""

import unittest

from application import quillbox, until, windows
from desktop import Desktop, tray_icon
from running import FIRST_USE, ApplicationTest

TITLE = "How it works"
ICON = "Quillbox waits in the tray of your desktop. Click its icon to open this panel."
NO_TRAY = "This desktop has no tray for an icon. Start Quillbox again to open this panel."
KEYS = "Press Super + Shift + 2 (⌘⇧2) in any program and drag out a region to record it."
CLIPS = "Clips are copied, ready to paste, and saved in ~/Videos/Quillbox."


def texts_of(desktop):
    """Without the characters that only keep a path together."""
    return {text.replace("\u2060", "") for text in desktop.texts()}


class FirstUseTest(ApplicationTest):
    def test_the_first_start_opens_the_panel_which_introduces_itself_until_it_has_been_read(self):
        with Desktop(newcomer=True) as desktop:
            until(desktop.panel, "the panel is open")
            self.assertLessEqual({ICON, KEYS, CLIPS}, texts_of(desktop))
            self.keep_screenshot("first-use-desktop")
            desktop.click("push button", "Got it")
            until(lambda: KEYS not in desktop.texts(), "the introduction is gone")
            self.assertTrue(desktop.panel(), "the panel stays")
            self.assertEqual(FIRST_USE.read_text(), "introduced\n")
            self.assertEqual(quillbox("quit").returncode, 0)
            desktop.process.wait(60)
        with Desktop(newcomer=True) as desktop:
            until(tray_icon, "the icon is in the tray")
            self.assertFalse(desktop.panel(), "the panel opens by itself only once")
            desktop.open_panel()
            self.assertNotIn(KEYS, desktop.texts())

    def test_a_first_start_for_a_recording_opens_no_panel_and_ends_the_introduction(self):
        with Desktop(newcomer=True) as desktop:
            self.assertEqual(quillbox("begin").returncode, 0)
            desktop.drag(300, 300, 200, 100)
            desktop.wait_for("recording")
            self.assertFalse(desktop.panel())
            self.assertEqual(FIRST_USE.read_text(), "introduced\n")

    def test_goes_on_introducing_itself_after_a_start_in_which_it_was_not_read(self):
        with Desktop(newcomer=True) as desktop:
            until(desktop.panel, "the panel is open")
        with Desktop(newcomer=True) as desktop:
            desktop.open_panel()
            self.assertIn(KEYS, desktop.texts())

    def test_speaks_the_users_language(self):
        with Desktop(newcomer=True, LC_ALL="de_DE.UTF-8", LANGUAGE="de") as desktop:
            until(lambda: "So funktioniert es" in desktop.texts(), "the panel is open, in German")
            desktop.press_hotkey()
            until(lambda: windows("Bereich auswählen — Quillbox"), "the overlay comes up")


class FirstUseWithoutTrayTest(ApplicationTest):
    def test_tells_how_to_open_the_panel_where_there_is_no_tray(self):
        with Desktop(newcomer=True) as desktop:
            until(lambda: TITLE in desktop.texts(), "the panel is open")
            self.assertLessEqual({NO_TRAY, KEYS, CLIPS}, texts_of(desktop))


if __name__ == "__main__":
    unittest.main()
