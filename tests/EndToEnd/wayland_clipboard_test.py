#!/usr/bin/python3
"""The clip on the clipboard of a Wayland desktop. Run by CTest inside tests/desktop/wayland-session and mutter-session:
wayland_clipboard_test.py CLASS.NAME"""

import json
import os
import pathlib
import signal
import subprocess
import unittest

import gi

import mutter_input
import wayland_input
from application import LIMIT_SECONDS, program, quillbox, run, status, until
from desktop import Desktop
from running import ApplicationTest
from wayland_clipboard import offered, paste

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402

CLIP_BYTES = 300_000
LONG_CLIP_BYTES = 20_000_000  # many times what a pipe holds
PENDING = "The clip is not on the clipboard yet."


def state():
    return status()["clipboard"]


def pipes_of(desktop):
    folder = pathlib.Path(f"/proc/{desktop.process.pid}/fd")
    return [link for link in folder.iterdir() if os.readlink(link).startswith("pipe:")]


class ClipboardTest(ApplicationTest):
    Application = Desktop

    def setUp(self):
        self.gif = self.make_clip(CLIP_BYTES)

    def copy_something_else(self):
        subprocess.run(["wl-copy", "something else"], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                       stderr=subprocess.DEVNULL, check=True, timeout=LIMIT_SECONDS)

    def assert_is_copied(self):
        if "GNOME" in os.environ["XDG_CURRENT_DESKTOP"]:  # mutter turns the order round
            self.assertEqual(sorted(offered()), ["image/gif", "text/uri-list"])
        else:
            self.assertEqual(offered(), ["text/uri-list", "image/gif"])
        self.assertEqual(paste("text/uri-list"), (self.gif.as_uri() + "\r\n").encode())
        self.assertTrue(paste("image/gif") == self.gif.read_bytes(), "the picture, byte for byte")


class WithoutFocusTest(ClipboardTest):
    """No program of these has a window, and the seat has neither pointer nor keyboard."""

    def test_offers_the_file_and_the_picture_and_nothing_else(self):
        self.start().copy(self.gif)
        self.assertEqual(state(), "accepted")
        self.assert_is_copied()

    def test_a_clip_takes_the_place_of_the_one_before(self):
        desktop = self.start()
        desktop.copy(self.gif)
        self.gif = self.gif.with_name("another.gif")
        self.gif.write_bytes(b"GIF89a another")
        desktop.copy(self.gif)
        self.assertEqual(state(), "accepted")
        self.assert_is_copied()

    def test_programs_fetch_a_long_picture_at_the_same_time_while_one_goes_away_and_one_does_not_read(self):
        self.gif = self.make_clip(LONG_CLIP_BYTES)
        desktop = self.start()
        desktop.copy(self.gif)
        before = len(pipes_of(desktop))
        readers = [subprocess.Popen(["wl-paste", "--type", "image/gif"], stdout=subprocess.PIPE) for _ in range(2)]
        for reader in readers:
            self.addCleanup(reader.wait)
            self.addCleanup(reader.stdout.close)
            reader.stdout.read(1)
        self.assertEqual(len(pipes_of(desktop)), before + 2)
        readers[0].stdout.close()
        until(lambda: len(pipes_of(desktop)) == before + 1, "the application lets go of the reader that has gone")
        self.assert_is_copied()

    def test_forgets_the_clip_when_another_program_copies_something(self):
        self.start().copy(self.gif)
        self.copy_something_else()
        until(lambda: state() == "empty", "the application knows")
        self.assertEqual(paste("text/plain"), b"something else")

    def test_quits_with_a_clip_on_the_clipboard(self):
        desktop = self.start()
        desktop.copy(self.gif)
        self.assertEqual(quillbox("quit").returncode, 0)
        self.assertEqual(desktop.process.wait(LIMIT_SECONDS), 0)
        self.assertEqual(offered(), [])

    def test_survives_the_compositor(self):
        desktop = self.start(QT_QPA_PLATFORM="offscreen", QUILLBOX_CLIPBOARD_BACKEND="data-control")
        desktop.copy(self.gif)
        self.assertEqual(state(), "accepted")
        os.kill(int(os.environ["COMPOSITOR_PID"]), signal.SIGKILL)
        until(lambda: state() == "pending", "the application knows")
        desktop.copy(self.gif)
        self.assertEqual(state(), "pending")

    def test_keeps_what_is_there_where_the_clipboard_is_switched_off(self):
        self.copy_something_else()
        self.start(QUILLBOX_CLIPBOARD_BACKEND="none").copy(self.gif)
        self.assertEqual(state(), "empty")
        self.assertEqual(paste("text/plain"), b"something else")

    def test_the_command_line_says_before_it_records_that_a_clip_could_not_be_copied(self):
        gif = self.gif.with_name("recorded.gif")
        for backend, why in (("toolkit", "start quillbox first"), ("none", "QUILLBOX_CLIPBOARD_BACKEND")):
            done = quillbox("record", "--region", "0,0,20x20", "--duration", "0.1", "--copy", "-o", gif,
                            env={**os.environ, "QUILLBOX_CLIPBOARD_BACKEND": backend})
            self.assertEqual(done.returncode, 1)
            self.assertEqual(done.stderr.count("\n"), 1)
            self.assertIn(why, done.stderr)
            self.assertFalse(gif.exists())


class CommandLineTest(ClipboardTest):
    """With what recording takes."""

    def record(self):
        self.gif = pathlib.Path(os.environ["HOME"], "recorded.gif")
        record = subprocess.Popen([program(), "record", "--region", "0,0,64x48", "--duration", "0.1", "--copy",
                                   "-o", self.gif], stdin=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True)
        self.addCleanup(record.wait)
        self.addCleanup(record.kill)
        self.addCleanup(record.stderr.close)
        return record

    def test_keeps_the_clip_until_another_program_copies_something(self):
        record = self.record()
        self.assertIn("the clip stays on the clipboard", record.stderr.readline())
        self.assert_is_copied()
        self.copy_something_else()
        self.assertEqual(record.wait(LIMIT_SECONDS), 0)

    def test_says_where_the_application_still_has_to_get_the_focus(self):
        self.start(QUILLBOX_CLIPBOARD_BACKEND="toolkit")
        record = self.record()
        self.assertIn("when the panel is opened", record.stderr.readline())
        self.assertEqual(record.wait(LIMIT_SECONDS), 0)
        self.assertEqual(state(), "pending")


class FocusTest(ClipboardTest):
    """The clipboard that only a program with the focus may set."""

    def start_with_panel(self, **environment):
        desktop = self.start(**environment)
        until(desktop.panel, "the panel, as there is no tray")
        until(lambda: desktop.has_focus(), "the panel has the focus")
        return desktop

    def assert_click_copies(self, desktop, click):
        """@param click  clicks on the button at this place in the panel"""
        self.assertNotIn(PENDING, desktop.texts())
        desktop.copy(self.gif)
        self.assertEqual(state(), "pending")
        button = until(lambda: desktop.find("push button", "Copy"), "the panel offers to copy the clip")
        self.assertIn(PENDING, desktop.texts())
        extents = button.get_extents(Atspi.CoordType.WINDOW)
        click(extents.x + extents.width // 2, extents.y + extents.height // 2)
        until(lambda: state() == "accepted", "the clip is on the clipboard")
        until(lambda: PENDING not in desktop.texts(), "the line goes")
        self.assertIn("Press ⌘⇧2 or Record to capture a region.", desktop.texts())
        self.assert_is_copied()


class SwayFocusTest(FocusTest):
    """With two outputs, so that the panel is on the screen also where it has no focus."""

    def setUp(self):
        super().setUp()
        self.user = wayland_input.Devices()
        self.addCleanup(self.user.close)
        self.desktop = self.start_with_panel(QUILLBOX_CLIPBOARD_BACKEND="toolkit")

    def take_focus_away(self):
        run("swaymsg", "focus output HEADLESS-2")
        until(lambda: not self.desktop.has_focus(), "the panel has lost the focus")

    def click_in_panel(self, x, y):
        place = next(node for node in windows(json.loads(run("swaymsg", "-rt", "get_tree").stdout))
                     if node["pid"] == self.desktop.process.pid)["rect"]
        self.user.click(place["x"] + x, place["y"] + y)

    def test_the_panel_offers_the_click_that_puts_the_clip_on_the_clipboard(self):
        self.take_focus_away()
        self.assert_click_copies(self.desktop, self.click_in_panel)

    def test_a_clip_that_was_copied_while_the_panel_had_the_focus_gives_way_to_what_another_program_copies(self):
        self.desktop.copy(self.gif)
        until(lambda: state() == "accepted", "it is on the clipboard")
        self.assert_is_copied()
        self.copy_something_else()
        until(lambda: state() == "empty", "the application knows")
        self.assertEqual(paste("text/plain"), b"something else")


def windows(node):
    if node.get("pid"):
        yield node
    for child in node["nodes"] + node["floating_nodes"]:
        yield from windows(child)


class MutterFocusTest(FocusTest):
    def setUp(self):
        super().setUp()
        self.user = mutter_input.Devices()
        self.addCleanup(self.user.close)

    def open_another_window(self):
        """Which takes the focus."""
        other = subprocess.Popen(["zenity", "--info", "--text=another window"], stdin=subprocess.DEVNULL,
                                 stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.addCleanup(other.wait)
        self.addCleanup(other.kill)

    def test_a_clip_is_on_the_clipboard_at_once_while_the_panel_has_the_focus(self):
        desktop = self.start_with_panel()
        desktop.copy(self.gif)
        until(lambda: state() == "accepted", "it is on the clipboard")
        self.assert_is_copied()

    def test_a_clip_gets_onto_the_clipboard_when_the_panel_gets_the_focus(self):
        desktop = self.start()
        desktop.copy(self.gif)
        self.assertEqual(state(), "pending")
        self.assertEqual(offered(), [])
        until(desktop.panel, "the panel, as there is no tray")
        until(lambda: state() == "accepted", "it is on the clipboard")
        self.assert_is_copied()

    def test_the_panel_offers_the_click_that_puts_the_clip_on_the_clipboard(self):
        # Without a frame, and as large as the screen, the panel is where its own coordinates begin.
        desktop = self.start_with_panel(QT_WAYLAND_DISABLE_WINDOWDECORATION="1")
        self.user.key("Logo+Up")
        self.open_another_window()
        until(lambda: not desktop.has_focus(), "the panel has lost the focus")
        self.assert_click_copies(desktop, self.user.click)


if __name__ == "__main__":
    unittest.main()
