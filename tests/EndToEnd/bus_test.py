#!/usr/bin/python3
"""The application while the session bus is restarted. Run by CTest inside tests/desktop/x11-session with a tray."""

import os
import signal
import subprocess
import unittest

from application import has_ended, process, program, quillbox, run, until, windows, xdo
from desktop import Desktop, tray_icon


class BusRestartTest(unittest.TestCase):
    def start(self, *command):
        """Another program of the desktop, which ends with the test."""
        child = subprocess.Popen(command, stdin=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.addCleanup(child.wait)
        self.addCleanup(child.kill)

    def restart_bus(self):
        bus = int(os.environ["BUS_PID"])
        os.kill(bus, signal.SIGKILL)
        until(lambda: has_ended(bus), "the bus has ended")
        self.start("dbus-daemon", "--session", "--nofork", "--nopidfile",
                   f"--address={os.environ['DBUS_SESSION_BUS_ADDRESS']}")
        until(lambda: run("dbus-send", "--session", "--print-reply", "--dest=org.freedesktop.DBus", "/",
                          "org.freedesktop.DBus.GetId").returncode == 0, "there is a bus again")

    def assert_is_the_only_one(self, desktop):
        until(lambda: process() == desktop.process.pid, "it has its name again")
        self.assertEqual(run(program()).returncode, 0)  # a second start shows the first one's panel
        until(lambda: windows("Quillbox"), "the panel is open")
        self.assertEqual(process(), desktop.process.pid)
        xdo("key", "Escape")
        until(lambda: not windows("Quillbox"), "the panel is closed")

    def test_it_can_be_asked_again_and_stays_the_only_one(self):
        with Desktop() as desktop:
            self.restart_bus()
            self.assert_is_the_only_one(desktop)
            desktop.press_hotkey()
            desktop.wait_for("selecting")
            self.assertEqual(quillbox("quit").returncode, 0)
            self.assertEqual(desktop.process.wait(60), 0)

    def test_its_icon_is_in_the_tray_that_comes_back(self):
        with Desktop() as desktop:
            until(tray_icon, "the icon is in the tray")
            self.restart_bus()
            until(lambda: not tray_icon(), "the tray went with its bus")
            self.start("xfce4-panel", "--disable-wm-check")
            until(tray_icon, "the icon is in the new tray")
            xdo("mousemove", *tray_icon(), "click", 1)
            until(lambda: windows("Quillbox"), "the panel is open")
            self.assertIsNone(desktop.process.poll())


if __name__ == "__main__":
    unittest.main()
