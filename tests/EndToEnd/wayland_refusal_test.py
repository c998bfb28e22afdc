#!/usr/bin/python3
"""The real program on Wayland desktops that lack something. Run by CTest, one test a session:
wayland_refusal_test.py CLASS.NAME"""

import json
import os
import pathlib
import subprocess
import unittest

from application import LIMIT_SECONDS, quillbox, run, status, until
from recording import ClipTest, Recording
from running import Running

REGION = "101,57,322x238"


class RefusalTest(ClipTest):
    def refused(self):
        """What the program says, in one line, where it can't record."""
        done = quillbox("record", "--region", REGION, "--duration", "1", "-o", self.gif)
        self.assertEqual(done.returncode, 1)
        self.assertEqual(len(done.stderr.splitlines()), 1, done.stderr)
        self.assertFalse(os.path.exists(self.gif))
        return done.stderr


class WithoutPortalTest(RefusalTest):
    """In a session without a portal."""

    def test_says_in_one_line_that_there_is_no_portal(self):
        self.assertIn("install xdg-desktop-portal", self.refused())

    def test_says_in_one_line_that_there_is_no_session_bus(self):
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = "unix:path=/nonexistent"
        self.assertIn("no session bus", self.refused())


class MockPortal:
    """mock_portal.py, for as long as the block lasts."""

    def __init__(self, step, behaviour):
        script = pathlib.Path(__file__).with_name("mock_portal.py")
        self.process = subprocess.Popen(["/usr/bin/python3", "-B", script, step, behaviour], stdout=subprocess.PIPE,
                                        stdin=subprocess.DEVNULL, text=True)
        self.wait_for("ready")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.kill()
        self.process.wait()
        self.process.stdout.close()

    def wait_for(self, word):
        while said := self.process.stdout.readline():
            if said == word + "\n":
                return
        raise AssertionError(f"the portal ended before it was {word}")

    @staticmethod
    def selected():
        """What it was asked for at each SelectSources, apart from the call's own token."""
        answer = run("dbus-send", "--session", "--print-reply=literal", "--dest=org.freedesktop.portal.Desktop",
                     "/org/freedesktop/portal/desktop", "org.quillbox.test.ScreenCast.Selected")
        asked = json.loads(answer.stdout)
        return [{name: value for name, value in options.items() if name != "handle_token"} for options in asked]


# How a cast can end between the portal's last answer and the first picture.
BROKEN_REMOTES = (("errs", "The desktop portal refused: this is not the day"),
                  ("vanishes", "The desktop portal, which shows us the screen, went away"),
                  ("breaks", "PipeWire, which carries the screen's pictures, went away"),
                  ("hangs", "PipeWire, which carries the screen's pictures, went away"),
                  ("closes", "The desktop has ended the recording of its screen"))


class MockPortalTest(RefusalTest):
    """In a session without a portal: a made-up one does what a real one can't be made to do."""

    def test_says_in_one_line_what_went_wrong_at_each_step(self):
        for step in ("CreateSession", "SelectSources", "Start"):
            for behaviour, said in (("refuses", "permission to record the screen was not given"),
                                    ("fails", "could not start to show us the screen"),
                                    ("errs", "The desktop portal refused: this is not the day"),
                                    ("vanishes", "went away")):
                with self.subTest(step=step, behaviour=behaviour), MockPortal(step, behaviour):
                    self.assertIn(said, self.refused())

    def test_says_in_one_line_why_no_picture_comes(self):
        for behaviour, said in BROKEN_REMOTES:
            with self.subTest(behaviour=behaviour), MockPortal("OpenPipeWireRemote", behaviour) as portal:
                self.assertIn(said, self.refused())
                if behaviour not in ("vanishes", "closes"):
                    portal.wait_for("closed")

    def test_the_panel_says_why_no_picture_comes(self):
        with Running() as application:
            for behaviour, said in BROKEN_REMOTES:
                with self.subTest(behaviour=behaviour), MockPortal("OpenPipeWireRemote", behaviour) as portal:
                    application.begin()
                    portal.wait_for("reached")
                    application.wait_for("failed")
                    self.assertIn(said, status()["message"])
                    application.open_panel()
                    until(lambda: any(said in text for text in application.texts()), "the panel says it")

    def test_asks_for_a_permission_that_lasts_and_shows_the_latest_it_was_given(self):
        lasting = {"types": 1, "multiple": 0, "cursor_mode": 2, "persist_mode": 2}
        with MockPortal("OpenPipeWireRemote", "errs") as portal:
            for _ in range(3):
                self.refused()
            self.assertEqual(portal.selected(), [lasting, {**lasting, "restore_token": "token-1"},
                                                 {**lasting, "restore_token": "token-2"}])

    def test_withdraws_its_question_when_interrupted(self):
        with MockPortal("Start", "waits") as portal, Recording("--region", REGION, "-o", self.gif) as recording:
            portal.wait_for("reached")
            recording.stop()
            status, _, said = recording.result()
            self.assertEqual(status, 1)
            self.assertIn("stopped before it began", said)
            portal.wait_for("withdrawn")
        self.assertFalse(os.path.exists(self.gif))

    def test_withdraws_its_question_when_a_selection_is_interrupted(self):
        with MockPortal("Start", "waits") as portal, Recording("--select", "-o", self.gif) as recording:
            portal.wait_for("reached")
            recording.stop()
            status, _, said = recording.result()
            self.assertEqual(status, 1)
            self.assertIn("nothing was selected", said)
            portal.wait_for("withdrawn")

    def test_withdraws_its_question_when_the_application_quits(self):
        with MockPortal("Start", "waits") as portal, Running() as application:
            application.begin()
            portal.wait_for("reached")
            self.assertEqual(quillbox("quit").returncode, 0)
            portal.wait_for("withdrawn")
            self.assertEqual(application.process.wait(LIMIT_SECONDS), 0)

    def test_says_in_one_line_that_an_answer_makes_no_sense(self):
        for step in ("CreateSession", "Start"):
            with self.subTest(step=step), MockPortal(step, "babbles"):
                self.assertIn("can't be understood", self.refused())


class WithoutPipeWireTest(RefusalTest):
    """In a session with a portal, but without PipeWire."""

    def test_says_in_one_line_that_the_portal_offers_no_screen(self):
        self.assertIn("install PipeWire", self.refused())


class RefusedTest(RefusalTest):
    """In a session whose user refuses."""

    def test_says_in_one_line_that_it_was_not_permitted(self):
        self.assertIn("permission to record the screen was not given", self.refused())


if __name__ == "__main__":
    unittest.main()
