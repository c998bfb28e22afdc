#!/usr/bin/python3
"""The session bus starts the installed program, which does what was asked. Run by CTest: activation_test.py ActivationTest.NAME"""

import configparser
import os
import pathlib
import shlex
import subprocess
import unittest

from application import overlay, phase, process, program, program_of, quillbox, run, until, windows

APP_ID = os.environ["QUILLBOX_APP_ID"]
PREFIX = pathlib.Path(os.environ["QUILLBOX_STAGE"], "prefix")


def desktop_entry():
    parser = configparser.ConfigParser(interpolation=None, delimiters="=", comment_prefixes="#")
    parser.optionxform = str
    parser.read(PREFIX / f"share/applications/{APP_ID}.desktop")
    return parser


def click_on_action(name):
    """What a desktop does that doesn't start actions over the bus by itself."""
    return run(*shlex.split(desktop_entry()[f"Desktop Action {name}"]["Exec"]))


class ActivationTest(unittest.TestCase):
    def setUp(self):
        self.assertIsNone(process(), "nothing runs yet")

    def assert_ends_when_told_to(self):
        pid = process()
        done = quillbox("quit")
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        until(lambda: not pathlib.Path(f"/proc/{pid}").exists(), "the application ends")
        self.assertIsNone(process())

    def starts_cold(self, done):
        """The request went well, and it was the installed program that the bus started for it."""
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertEqual(program_of(process()), pathlib.Path(program()).resolve())

    def test_the_settings_action_starts_the_application_and_opens_its_settings(self):
        self.starts_cold(run("gapplication", "action", APP_ID, "settings"))
        until(lambda: windows("Settings — Quillbox"), "the settings window comes up")
        self.assertEqual(windows("Quillbox"), [])  # that alone
        self.assert_ends_when_told_to()

    def test_launching_starts_the_application_and_opens_the_panel(self):
        self.starts_cold(run("gapplication", "launch", APP_ID))
        until(lambda: windows("Quillbox"), "the panel comes up")
        self.assertEqual(windows("Settings — Quillbox"), [])
        self.assert_ends_when_told_to()

    def test_the_record_action_starts_the_application_and_lets_the_user_drag(self):
        self.starts_cold(run("gapplication", "action", APP_ID, "record-region"))
        until(overlay, "the overlay comes up")
        self.assertEqual(phase(), "selecting")
        self.assertEqual(windows("Quillbox"), [])
        self.assert_ends_when_told_to()  # although the overlay is still there

    def test_the_entrys_own_commands_do_what_its_actions_are_called(self):
        self.assertEqual(desktop_entry()["Desktop Entry"]["Actions"], "record-region;settings;")
        self.starts_cold(click_on_action("settings"))
        until(lambda: windows("Settings — Quillbox"), "the settings window comes up")
        self.assertEqual(phase(), "idle")
        self.starts_cold(click_on_action("record-region"))
        self.assertEqual(phase(), "selecting")
        self.assert_ends_when_told_to()

    def test_the_entrys_own_command_starts_the_application_whose_windows_it_claims(self):
        entry = desktop_entry()["Desktop Entry"]
        with subprocess.Popen(shlex.split(entry["Exec"]), stdin=subprocess.DEVNULL) as started:
            until(lambda: process() == started.pid, "the application is on the bus")
            self.assertEqual(quillbox("show").returncode, 0)
            (panel,) = until(lambda: windows("Quillbox"), "the panel comes up")
            classes = run("xprop", "-id", panel, "WM_CLASS").stdout
            self.assertIn(f'"{entry["StartupWMClass"]}"', classes)
            self.assertEqual(quillbox("quit").returncode, 0)
            self.assertEqual(started.wait(timeout=30), 0)


if __name__ == "__main__":
    unittest.main()
