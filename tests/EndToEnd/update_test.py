#!/usr/bin/python3
"""The application finds an update of itself, installs it and starts anew. Run by CTest inside tests/desktop/x11-session:
update_test.py UpdateTest.NAME"""

import os
import pathlib
import sys
import unittest

from application import process, program, program_of, run, until, windows
from desktop import Desktop
from running import ApplicationTest

TOOLS = pathlib.Path(__file__).resolve().parent.parent / "desktop"


def offer(version):
    done = run(TOOLS / "package-source", os.environ["PACKAGE_FOLDER"], "offer", "quillbox", version)
    assert done.returncode == 0, done.stderr


def installed_version():
    return pathlib.Path(os.environ["PACKAGE_FOLDER"], "root/usr/share/quillbox/version").read_text().strip()


class UpdateTest(ApplicationTest):
    Application = Desktop

    def wait_for_text(self, desktop, text):
        until(lambda: text in desktop.texts(), text)

    def test_an_update_is_found_installed_and_started(self):
        offer("1.1")
        desktop = self.start()
        desktop.open_panel()
        desktop.click("push button", "Check for Updates…")
        self.wait_for_text(desktop, "Quillbox 1.1 is available")
        self.assertEqual(len(windows("Update — Quillbox")), 1)
        self.keep_screenshot("available")
        desktop.click("push button", "Install")
        self.wait_for_text(desktop, "Quillbox 1.1 is installed")
        self.assertEqual(installed_version(), "1.1")
        self.keep_screenshot("installed")
        desktop.click("push button", "Restart Quillbox")
        self.assertEqual(desktop.process.wait(timeout=60), 0)
        another = until(process, "the application is there again")
        self.assertNotEqual(another, desktop.process.pid)
        self.assertEqual(program_of(another), pathlib.Path(program()).resolve())
        self.assertEqual(run(program(), "quit").returncode, 0)


if __name__ == "__main__":
    if "PACKAGE_FOLDER" not in os.environ:  # beside a bus with a PackageKit of its own
        os.execv(TOOLS / "system-bus", [TOOLS / "system-bus", "--", *sys.orig_argv])
    unittest.main()
