#!/usr/bin/python3
"""The Debian package on a system of its own, from its installation to its removal. Run by CTest inside throw-away-root and
x11-session: installed_test.py InstalledTest.NAME"""

import os
import pathlib
import subprocess
import unittest

from application import LIMIT_SECONDS, process, program_of, quillbox, run, until, windows

APP_ID = os.environ["QUILLBOX_APP_ID"]
PACKAGES = pathlib.Path(os.environ["QUILLBOX_PACKAGES"])


def dpkg(*arguments):
    done = run("dpkg", *arguments)
    assert done.returncode == 0, done.stderr
    return done.stdout


class InstalledTest(unittest.TestCase):
    def setUp(self):
        (self.package,) = PACKAGES.glob("quillbox_*.deb")
        self.assertFalse(os.path.exists("/usr/bin/quillbox"), "another quillbox is installed here")
        listing = run("dpkg-deb", "--contents", self.package).stdout.splitlines()
        self.new = [path for path in (line.split()[5].lstrip(".") for line in listing) if not os.path.exists(path)]
        dpkg("--install", self.package)

    def assert_runs_as_installed(self):
        """The program was started, can show its panel, and ends when told to."""
        pid = until(process, "the program is on the bus")
        self.assertEqual(program_of(pid), pathlib.Path("/usr/bin/quillbox"))
        self.assertEqual(quillbox("show").returncode, 0)
        until(lambda: windows("Quillbox"), "the panel comes up")
        self.assertEqual(quillbox("quit").returncode, 0)
        until(lambda: not pathlib.Path(f"/proc/{pid}").exists(), "the application ends")

    def test_its_desktop_entry_starts_the_program(self):
        launched = subprocess.call(["gio", "launch", f"/usr/share/applications/{APP_ID}.desktop"],
                                   stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, timeout=LIMIT_SECONDS)
        self.assertEqual(launched, 0)  # the program has inherited its output, and goes on
        self.assert_runs_as_installed()

    def test_the_session_bus_starts_the_program(self):
        done = run("gapplication", "launch", APP_ID)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assert_runs_as_installed()

    def test_nothing_is_left_when_it_is_removed(self):
        self.assertIn("/usr/bin/quillbox", self.new)
        self.assertEqual(quillbox("--version").returncode, 0)
        self.assertEqual(dpkg("--verify", "quillbox") + dpkg("--audit"), "")
        dpkg("--purge", "quillbox")
        self.assertEqual([path for path in self.new if os.path.lexists(path)], [])
        self.assertNotEqual(run("dpkg", "--status", "quillbox").returncode, 0)
        self.assertEqual(dpkg("--audit"), "")


if __name__ == "__main__":
    unittest.main()
