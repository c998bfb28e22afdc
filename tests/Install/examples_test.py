#!/usr/bin/python3
"""The examples of --help do what they are there for. Run by CTest: examples_test.py ExamplesTest.NAME"""

import os
import pathlib
import tempfile
import unittest

import manual
from application import program, run

GIF = b"GIF89a"


class ExamplesTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def carry_out(self, words):
        """Runs, in an empty folder, the one example that has these words."""
        (example,) = [line for line in manual.examples() if words in line]
        path = f"{self.folder}:{pathlib.Path(program()).parent}:{os.environ['PATH']}"
        done = run("sh", "-c", example, cwd=self.folder, env={**os.environ, "PATH": path})
        self.assertEqual(done.returncode, 0, f"{example}\n{done.stderr}")

    def assert_is_a_gif(self, name):
        self.assertEqual((self.folder / name).read_bytes()[:6], GIF)

    def test_records_a_region_from_a_script(self):
        (self.folder / "demo.gif").write_text("an older one")
        self.carry_out("--force -o demo.gif")
        self.assert_is_a_gif("demo.gif")

    def test_encodes_frames_of_another_program(self):
        made = run("ffmpeg", "-v", "error", "-f", "lavfi", "-i", "testsrc=size=64x48:rate=10:duration=1",
                   self.folder / "clip.mp4")
        self.assertEqual(made.returncode, 0, made.stderr)
        self.carry_out("ffmpeg")
        self.assert_is_a_gif("clip.gif")

    def test_records_a_program_where_there_is_no_display(self):
        for variable in ("DISPLAY", "WAYLAND_DISPLAY", "DBUS_SESSION_BUS_ADDRESS"):
            os.environ.pop(variable, None)
        mine = self.folder / "my-program"
        mine.write_text("#!/bin/sh\nexec xterm\n")
        mine.chmod(0o755)
        self.carry_out("xvfb-run")
        self.assert_is_a_gif("program.gif")


if __name__ == "__main__":
    unittest.main()
