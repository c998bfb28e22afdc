#!/usr/bin/python3
"""What becomes of a clip on the clipboard when the application ends. Run by CTest inside tests/desktop/x11-session:
clipboard_test.py ClipboardTest.NAME"""

import os
import pathlib
import signal
import subprocess
import tempfile
import unittest

from Xlib import X, display

from application import program, quillbox, status, until
from desktop import Desktop, clipboard
from running import ApplicationTest

MANAGER = pathlib.Path(__file__).with_name("clipboard_manager.py")
CLIP_BYTES = 3_000_000
LONG_CLIP_BYTES = 20_000_000  # more than X servers take in one request


class Reader:
    """A program that pastes."""

    def __init__(self):
        self.display = display.Display()
        self.window = self.display.screen().root.create_window(0, 0, 1, 1, 0, X.CopyFromParent)

    def atom(self, name):
        return self.display.intern_atom(name)

    def ask(self, target):
        self.window.convert_selection(self.atom("CLIPBOARD"), self.atom(target), self.atom("HERE"), X.CurrentTime)
        while self.display.next_event().type != X.SelectionNotify:
            pass

    def value(self, name, kind=X.AnyPropertyType):
        return self.window.get_property(self.atom(name), kind, 0, 1 << 16)


def fetch_a_little():
    """Asks for the picture, takes the first piece of it, and ends."""
    reader = Reader()
    reader.ask("image/gif")
    assert reader.value("HERE").property_type == reader.atom("INCR")
    reader.window.delete_property(reader.atom("HERE"))
    until(lambda: reader.value("HERE"), "the first piece")
    reader.display.close()


def fetch_several(*targets):
    """What is given for each target, "INCR" where it would come in pieces, and None where it is refused."""
    reader = Reader()
    pairs = [atom for target in targets for atom in (reader.atom(target), reader.atom(f"FOR {target}"))]
    reader.window.change_property(reader.atom("HERE"), reader.atom("ATOM_PAIR"), 32, pairs)
    reader.ask("MULTIPLE")
    given = reader.value("HERE").value
    answers = {}
    for number, target in enumerate(targets):
        answers[target] = None
        if given[2 * number + 1] != X.NONE:
            value = reader.value(f"FOR {target}")
            answers[target] = "INCR" if value.property_type == reader.atom("INCR") else bytes(value.value)
    return answers


class ClipboardTest(ApplicationTest):
    def setUp(self):
        self.gif = self.make_clip(CLIP_BYTES)

    def run_manager(self, *arguments):
        manager = subprocess.Popen(["/usr/bin/python3", "-B", MANAGER, *arguments], stdout=subprocess.PIPE, text=True)
        self.addCleanup(manager.stdout.close)
        self.addCleanup(manager.wait)
        self.addCleanup(manager.kill)
        self.assertEqual(manager.stdout.readline(), "ready\n")
        return manager

    def copy_and(self, end):
        """@return what the application complained of"""
        with tempfile.TemporaryFile() as complaints:
            with Desktop(stderr=complaints) as desktop:
                desktop.copy(self.gif)
                self.assertEqual(clipboard("text/uri-list").decode().strip(), self.gif.as_uri())
                end(desktop)
                self.assertEqual(desktop.process.wait(60), 0)
            complaints.seek(0)
            return complaints.read().decode()

    def quit(self, _=None):
        self.assertEqual(quillbox("quit").returncode, 0)

    def assert_is_kept(self):
        self.assertEqual(clipboard("text/uri-list").decode().strip(), self.gif.as_uri())
        self.assertTrue(clipboard("image/gif") == self.gif.read_bytes(), "the picture, byte for byte")

    def test_a_clipboard_manager_keeps_the_file_and_the_picture(self):
        self.run_manager()
        self.copy_and(self.quit)
        self.assert_is_kept()

    def test_a_clipboard_manager_keeps_a_picture_that_comes_in_pieces(self):
        self.gif = self.make_clip(LONG_CLIP_BYTES)
        manager = self.run_manager()
        self.copy_and(self.quit)
        self.assert_is_kept()
        manager.kill()
        self.assertRegex(manager.stdout.read(), r"^image/gif came in \d+ pieces\n$")

    def test_a_clipboard_manager_keeps_the_clip_when_the_session_ends_the_application(self):
        self.run_manager()
        self.copy_and(lambda desktop: desktop.process.terminate())
        self.assert_is_kept()

    def test_a_clipboard_manager_keeps_what_the_command_line_copied(self):
        gif = pathlib.Path(os.environ["HOME"], "copied.gif")
        self.run_manager()
        with subprocess.Popen([program(), "record", "--region", "10,10,300x200", "--duration", "0.2", "--copy",
                               "-o", gif], stderr=subprocess.PIPE, text=True) as record:
            self.assertIn("the clip stays on the clipboard", record.stderr.readline())
            record.send_signal(signal.SIGTERM)
        self.gif = gif
        self.assert_is_kept()

    def test_the_application_waits_once_only_for_a_clipboard_manager_that_does_not_answer(self):
        self.run_manager("silent")
        self.assertNotIn("clipboard manager", self.copy_and(self.quit))  # the toolkit complains once it has waited, too

    def test_the_application_starts_again_while_the_one_before_waits_for_a_clipboard_manager(self):
        self.run_manager("silent")
        with Desktop() as first:
            first.copy(self.gif)
            self.quit()
            self.assertIsNone(status())
            with Desktop() as second:
                self.assertIsNone(second.process.poll())
                self.assertEqual(first.process.wait(60), 0)
                self.assertEqual(status()["phase"], "idle")

    def test_programs_fetch_a_long_picture_at_the_same_time_and_one_goes_away_midway(self):
        self.gif = self.make_clip(LONG_CLIP_BYTES)
        with Desktop() as desktop:
            desktop.copy(self.gif)
            command = ["xclip", "-selection", "clipboard", "-o", "-t", "image/gif"]
            readers = [subprocess.Popen(command, stdout=subprocess.PIPE) for _ in range(3)]
            readers[0].stdout.read(1)
            fetch_a_little()
            got = [b"" if number == 0 else reader.communicate(timeout=60)[0] for number, reader in enumerate(readers)]
            readers[0].kill()
            readers[0].communicate()
            self.assertTrue(got[1] == got[2] == self.gif.read_bytes())
            self.assert_is_kept()

    def test_several_forms_are_given_at_once(self):
        with Desktop() as desktop:
            desktop.copy(self.gif)
            forms = fetch_several("text/uri-list", "image/png", "image/gif")
            self.assertEqual(forms["text/uri-list"], (self.gif.as_uri() + "\r\n").encode())
            self.assertIsNone(forms["image/png"])
            self.assertEqual(forms["image/gif"], "INCR")

    def test_the_clip_goes_with_the_application_where_nothing_keeps_it(self):
        self.copy_and(self.quit)
        until(lambda: clipboard("TARGETS") == b"", "the clipboard is empty")


if __name__ == "__main__":
    unittest.main()
