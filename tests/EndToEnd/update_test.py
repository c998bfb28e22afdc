#!/usr/bin/python3
"""The application finds an update of itself, installs it and starts anew. Run by CTest inside tests/desktop/x11-session:
update_test.py UpdateTest.NAME"""

import os
import pathlib
import signal
import sys
import unittest

from application import process, program, program_of, quillbox, run, status, until, windows
from desktop import Desktop
from running import ApplicationTest

TOOLS = pathlib.Path(__file__).resolve().parent.parent / "desktop"


def offer(version):
    done = run(TOOLS / "package-source", os.environ["PACKAGE_FOLDER"], "offer", "quillbox", version)
    assert done.returncode == 0, done.stderr


def installed_version():
    file = pathlib.Path(os.environ["PACKAGE_FOLDER"], "root/usr/share/quillbox/version")
    return file.read_text().strip() if file.exists() else None


def daemon():
    answer = run("dbus-send", "--system", "--print-reply=literal", "--dest=org.freedesktop.DBus", "/",
                 "org.freedesktop.DBus.GetConnectionUnixProcessID", "string:org.freedesktop.PackageKit")
    return int(answer.stdout.split()[1])


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

    def test_the_news_of_an_installation_wait_until_the_recording_ends(self):
        offer("1.1")
        desktop = self.start()
        desktop.open_panel()
        desktop.click("push button", "Check for Updates…")
        self.wait_for_text(desktop, "Quillbox 1.1 is available")
        service = daemon()
        os.kill(service, signal.SIGSTOP)
        self.addCleanup(os.kill, service, signal.SIGCONT)
        desktop.click("push button", "Install")
        self.wait_for_text(desktop, "Installing Quillbox 1.1…")
        desktop.click("push button", "Hide")
        until(lambda: not windows("Update — Quillbox"), "the window is hidden")
        desktop.record(400, 200, 400, 300)
        os.kill(service, signal.SIGCONT)
        until(lambda: installed_version() == "1.1", "it is installed")
        desktop.wait_for_frames(status()["frameCount"] + 45)
        self.assertEqual(windows("Update — Quillbox"), [])
        self.assertEqual(quillbox("stop").returncode, 0)
        self.wait_for_text(desktop, "Quillbox 1.1 is installed")


if __name__ == "__main__":
    if "PACKAGE_FOLDER" not in os.environ:  # beside a bus with a PackageKit of its own
        os.execv(TOOLS / "system-bus", [TOOLS / "system-bus", "--", *sys.orig_argv])
    unittest.main()
