#!/usr/bin/python3
"""The application while the session bus is restarted. Run by CTest inside tests/desktop/x11-session with a tray."""

import os
import pathlib
import re
import signal
import subprocess
import unittest

import machine_faults
from application import process, program, quillbox, run, status, until, windows, xdo
from desktop import Desktop, clipboard, tray_icon


class BusRestartTest(unittest.TestCase):
    def start(self, *command):
        """Another program of the desktop, which ends with the test."""
        self.end_with_the_test(subprocess.Popen(command, stdin=subprocess.DEVNULL, stderr=subprocess.DEVNULL))

    def end_with_the_test(self, child):
        self.addCleanup(child.wait)
        self.addCleanup(child.kill)

    def restart_bus(self):
        self.end_with_the_test(machine_faults.restart_bus())

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

    def start_another_on_a_new_bus(self, desktop):
        """As when the session's programs are started anew, and ours is slow to see that there is a bus again."""
        desktop.process.send_signal(signal.SIGSTOP)
        self.restart_bus()
        self.start(program())
        other = until(process, "another instance has the name")
        desktop.process.send_signal(signal.SIGCONT)
        return other

    def test_it_gives_way_to_another_that_was_faster(self):
        with Desktop() as desktop:
            other = self.start_another_on_a_new_bus(desktop)
            self.assertEqual(desktop.process.wait(60), 0)
            self.assertEqual(process(), other)

    def test_it_makes_its_clip_before_it_gives_way_to_another(self):
        with Desktop() as desktop:
            desktop.record(301, 257, 322, 238)
            desktop.wait_for_frames(10)
            other = self.start_another_on_a_new_bus(desktop)
            until(lambda: status()["phase"] == "idle", "the other answers")
            self.assertIsNone(desktop.process.poll())
            (control,) = until(lambda: windows("Recording — Quillbox"), "the first one's control is there still")
            place = run("xdotool", "getwindowgeometry", "--shell", control).stdout
            xdo("mousemove", "--window", control, int(re.search(r"WIDTH=(\d+)", place)[1]) - 40, 20, "click", 1)
            self.assertEqual(desktop.process.wait(60), 0)
            (clip,) = pathlib.Path(os.environ["HOME"], "Videos/Quillbox").glob("*.gif")
            until(lambda: clipboard("image/gif") == clip.read_bytes(), "the other has the clip on the clipboard")
            self.assertEqual(process(), other)


if __name__ == "__main__":
    unittest.main()
