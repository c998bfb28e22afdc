#!/usr/bin/python3
"""The desktop application on GNOME's compositor and portal, used as a person uses it. Run by CTest inside
tests/desktop/mutter-session, one test a session."""

import os
import subprocess
import unittest

from PIL import ImageChops

import mutter_camera
import mutter_input
from application import run, status, until
from asking_desktop import MONITOR, AskingDesktopTest
from share_dialog import ShareDialog
from wayland_application import AREA, SCALE

OVERLAY = "Select a region"


class MutterDesktopTest(AskingDesktopTest):
    def devices(self):
        return mutter_input.Devices()

    def seen(self, cursor_mode=mutter_camera.WITHOUT_POINTER):
        """A picture of the cast monitor, in its own pixels."""
        width, height = self.canvas.size
        return mutter_camera.picture(f"Meta-{MONITOR - 1}", (width * SCALE, height * SCALE), cursor_mode)

    def photograph(self, path):
        self.seen(mutter_camera.WITH_POINTER).save(path)

    def dialog(self):
        return ShareDialog(self.user)

    def permit(self, dialog):
        dialog.share(MONITOR)

    def overlay_is_there(self, desktop):
        return OVERLAY in desktop.texts() and desktop.has_focus()

    def begin_with_permission(self):
        """From the panel, when the desktop has been asked once already. @return the application"""
        desktop = self.start_with_panel()
        desktop.press("Record Region")
        self.permit(self.dialog())
        until(lambda: self.overlay_is_there(desktop), "the overlay is on the screen")
        self.wait_for_rest()
        self.user.key("Escape")
        desktop.wait_for("idle")
        desktop.open_panel()
        self.wait_for_rest()
        desktop.press("Record Region")
        until(lambda: self.overlay_is_there(desktop), "the overlay is on the screen")
        self.wait_for_rest()
        return desktop

    def test_the_overlay_shows_the_desktop_dimmed_and_nothing_of_the_panel(self):
        picture = self.canvas.step(0, AREA)
        self.canvas.show_picture(picture)
        self.user.move(*(side - 1 for side in self.canvas.size))  # a corner: the backdrop shows the pointer
        desktop = self.begin_with_permission()
        until(lambda: self.shows_dimmed(picture.getpixel((600, 300)), (600, 300)), "the overlay has come up")
        self.wait_for_rest()
        width, height = picture.size
        without_hint_and_pointer = (0, height // 4, width - 8, height - 8)
        differences = ImageChops.difference(self.seen(), picture.point(lambda level: round(level * 0.75)))
        self.assertLessEqual(max(high for _, high in differences.crop(without_hint_and_pointer).getextrema()), 2)
        self.user.key("Escape")
        desktop.wait_for("idle")

    def test_escape_cancels_and_other_keys_do_not(self):
        self.canvas.show(0, AREA)
        desktop = self.begin_with_permission()
        self.user.key("a")
        self.user.key("Return")
        self.assertEqual(status()["phase"], "selecting")
        self.user.key("Escape")
        desktop.wait_for("idle")
        until(lambda: not self.overlay_is_there(desktop), "the overlay has gone")

    def test_a_refusal_ends_the_flow_without_a_word(self):
        desktop = self.start_with_panel()
        for refuse in (ShareDialog.cancel, ShareDialog.close):
            desktop.open_panel()
            before = desktop.texts()
            desktop.press("Record Region")
            refuse(ShareDialog(self.user))
            desktop.wait_for("idle")
            desktop.open_panel()
            self.assertEqual(desktop.texts(), before)

    def test_a_second_start_shows_the_panel(self):
        desktop = self.start_with_panel()
        desktop.press("Record Region")
        ShareDialog(self.user).cancel()
        desktop.wait_for("idle")
        self.assertIsNone(desktop.panel())
        self.assertEqual(run(os.environ["QUILLBOX_PROGRAM"]).returncode, 0)
        until(desktop.panel, "the panel is open")

    def test_a_message_of_the_desktop_ends_a_recording(self):
        """There is no tray, and no place for a control."""
        name, path = "org.freedesktop.Notifications", "/org/freedesktop/Notifications"
        messages = subprocess.Popen(["/usr/bin/python3", "-m", "dbusmock", "--session", "--template",
                                     "notification_daemon"], stdout=subprocess.PIPE, text=True)
        self.addCleanup(messages.stdout.close)
        self.addCleanup(messages.wait)
        self.addCleanup(messages.kill)
        calls = ["gdbus", "call", "--session", "--dest", name, "--object-path", path, "--method"]
        until(lambda: run(*calls, f"{name}.GetServerInformation").returncode == 0, "the desktop shows messages")
        self.canvas.show(0, AREA)
        desktop = self.start_with_panel()
        desktop.press("Record Region")
        self.permit(self.dialog())
        self.drag_area()
        desktop.wait_for("recording")
        line = next(line for line in messages.stdout if " Notify " in line)
        for wanted in ('"The screen is being recorded"', '"Stop & Copy"', '"resident": True', '"urgency": 0'):
            self.assertIn(wanted, line.replace("'", '"'))
        shown = self.play(desktop)
        pressed = run(*calls, "org.freedesktop.DBus.Mock.EmitSignal", name, "ActionInvoked", "us", "[<uint32 1>, <'act'>]")
        self.assertEqual(pressed.returncode, 0, pressed.stderr)
        desktop.wait_for("done")
        self.assert_is_the_clip(shown)
        self.assertTrue(next(line for line in messages.stdout if " CloseNotification 1" in line))

    def test_leaves_nothing_open_after_one_recording_and_another(self):
        self.canvas.show(0, AREA)
        self.assert_leaves_nothing_open(self.begin_with_permission())


if __name__ == "__main__":
    unittest.main()
