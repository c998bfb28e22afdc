#!/usr/bin/python3
"""The examples of --help and of the README do what they say. Run by CTest: examples_test.py ExamplesTest.NAME"""

import os
import pathlib
import pty
import re
import select
import signal
import subprocess
import tempfile
import unittest

from PIL import Image

import manual
from application import LIMIT_SECONDS, overlay, program, run, until, xdo

GIF = b"GIF89a"
README = pathlib.Path(__file__).parents[2] / "README.md"


def readme_examples():
    """The command lines of the README, which it indents."""
    return [line.strip() for line in README.read_text(encoding="utf-8").splitlines() if line.startswith("    ")]


class ExamplesTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def environment(self):
        path = f"{self.folder}:{pathlib.Path(program()).parent}:{os.environ['PATH']}"
        return {**os.environ, "PATH": path, "HOME": str(self.folder)}

    def carry_out(self, words, examples=None):
        """Runs, in the folder, the one example that has these words."""
        (example,) = [line for line in examples or manual.examples() if words in line]
        done = run("sh", "-c", example, cwd=self.folder, env=self.environment())
        self.assertEqual(done.returncode, 0, f"{example}\n{done.stderr}")

    def assert_plays(self, name, pictures, seconds):
        """As long as the input but for whole centiseconds: 8 of them at 12 pictures a second are 4 % less."""
        with Image.open(self.folder / name) as clip:
            milliseconds = 0
            for number in range(clip.n_frames):
                clip.seek(number)
                milliseconds += clip.info["duration"]
            self.assertEqual(clip.n_frames, pictures, name)
            self.assertAlmostEqual(milliseconds / 1000, seconds, delta=0.05 * seconds, msg=name)

    def make_pictures(self, *names):
        for number, name in enumerate(names):
            (self.folder / name).parent.mkdir(exist_ok=True)
            Image.new("RGB", (64, 48), (number * 60, 255 - number * 60, 90)).save(self.folder / name)

    def make_film(self):
        """Ten pictures in a second, each in another colour."""
        made = run("ffmpeg", "-v", "error", "-f", "lavfi", "-i",
                   "color=c=red:size=64x48:rate=10:duration=1,hue=h=36*n", self.folder / "clip.mp4")
        self.assertEqual(made.returncode, 0, made.stderr)

    def make_frames(self, name):
        """Six raw frames, each in another colour."""
        (self.folder / name).write_bytes(b"".join(bytes([40 * i, 9, 9, 255]) * (1280 * 720) for i in range(6)))

    def assert_is_a_gif(self, name):
        self.assertEqual((self.folder / name).read_bytes()[:6], GIF)

    def test_records_a_region_from_a_script(self):
        (self.folder / "demo.gif").write_text("an older one")
        self.carry_out("--force -o demo.gif")
        self.assert_is_a_gif("demo.gif")

    def test_encodes_frames_of_another_program(self):
        self.make_film()
        self.carry_out("ffmpeg")
        self.assert_plays("clip.gif", 10, 1)

    def test_encodes_what_the_help_of_encode_shows(self):
        examples = manual.examples("encode")
        self.assertEqual(len(examples), 4)
        self.make_pictures("step1.png", "step2.png", "step3.png")
        self.carry_out("--source-fps 1", examples)
        self.assert_plays("steps.gif", 3, 3)
        (self.folder / "steps.gif").unlink()
        self.make_pictures("step01.png", "step02.png", "step10.png")
        self.carry_out("--delay 1.5", examples)
        self.assert_plays("steps.gif", 3, 4.5)
        self.make_film()
        self.carry_out("ffmpeg", examples)
        self.assert_plays("clip.gif", 10, 1)
        self.make_frames("capture.rgba")
        self.carry_out("capture.rgba", examples)
        self.assert_plays("capture.gif", 4, 0.2)

    def test_encodes_what_the_readme_shows(self):
        examples = [line for line in readme_examples() if "quillbox encode" in line]
        self.assertEqual(len(examples), 4)
        self.make_pictures("frame1.png", "frame2.png", "frame3.png")
        self.carry_out("--source-fps 2", examples)
        self.assert_plays("clip.gif", 3, 1.5)
        (self.folder / "clip.gif").unlink()
        self.make_pictures("frames/a.png", "frames/b.png", "frames/c.png", "frames/d.png")
        self.carry_out("frames/", examples)
        self.assert_plays("clip.gif", 4, 1)
        (self.folder / "clip.gif").unlink()
        self.make_film()
        self.carry_out("ffmpeg", examples)
        self.assert_plays("clip.gif", 10, 1)
        self.make_frames("frames.rgba")
        self.carry_out("frames.rgba", examples)
        self.assert_plays("frames.gif", 4, 0.2)

    def record_examples(self):
        examples = manual.examples("record")
        self.assertEqual(len(examples), 3)
        return examples

    def test_records_a_region_as_the_help_of_record_shows(self):
        self.carry_out("0,0,800x600", self.record_examples())
        (clip,) = (self.folder / "Videos" / "Quillbox").iterdir()
        with Image.open(clip) as picture:
            self.assertEqual(picture.size, (800, 600))

    def begin(self, words):
        """Starts the one example of `record` that has these words, on a terminal, so that it tells how far it is."""
        (example,) = [line for line in self.record_examples() if words in line]
        self.terminal, theirs = pty.openpty()
        self.addCleanup(os.close, self.terminal)
        started = subprocess.Popen(["sh", "-c", f"exec {example}"], stdin=subprocess.DEVNULL, stderr=theirs,
                                   cwd=self.folder, env=self.environment(),
                                   preexec_fn=lambda: signal.signal(signal.SIGINT, signal.SIG_DFL))
        os.close(theirs)
        self.addCleanup(started.wait)
        self.addCleanup(started.kill)
        return started

    def listen_for(self, pattern):
        said = b""
        while not re.search(pattern, said):
            self.assertTrue(select.select([self.terminal], [], [], LIMIT_SECONDS)[0], said)
            said += os.read(self.terminal, 65536)

    def test_records_what_is_dragged_out_as_the_help_of_record_shows(self):
        record = self.begin("--select --copy")
        until(overlay, "the overlay")
        xdo("mousemove", 100, 200, "mousedown", 1, "mousemove", 250, 300, "mousemove", 420, 440)
        xdo("mouseup", 1, "mousemove", 5, 700)
        self.listen_for(b"the clip stays on the clipboard")
        (clip,) = (self.folder / "Videos" / "Quillbox").iterdir()
        copied = subprocess.run(["xclip", "-selection", "clipboard", "-o", "-t", "image/gif"], capture_output=True,
                                timeout=LIMIT_SECONDS, check=True).stdout
        self.assertEqual(copied, clip.read_bytes())
        with Image.open(clip) as picture:
            self.assertEqual(picture.size, (320, 240))
        record.send_signal(signal.SIGINT)
        self.assertEqual(record.wait(LIMIT_SECONDS), 0)

    def test_records_until_interrupted_as_the_help_of_record_shows(self):
        record = self.begin("demo.gif")
        self.listen_for(rb"[1-9]\d* frame")
        record.send_signal(signal.SIGINT)
        self.assertEqual(record.wait(LIMIT_SECONDS), 0)
        self.assert_is_a_gif("demo.gif")

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
