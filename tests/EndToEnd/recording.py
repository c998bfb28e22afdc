"""Starts `quillbox record` as a person in a terminal does, follows what it says, and decodes what it saved."""

import json
import os
import pty
import re
import select
import signal
import subprocess
import tempfile
import unittest

from PIL import Image, ImageSequence

from application import LIMIT_SECONDS, program

FRAMES = re.compile(rb"(\d+) frames?\b")


def accept_interrupts():
    """A shell makes what it starts in the background ignore Ctrl-C; a terminal does not."""
    signal.signal(signal.SIGINT, signal.SIG_DFL)


class Recording:
    """A running `quillbox record` whose standard error is a terminal, so that it tells how far it is."""

    def __init__(self, *arguments, **environment):
        self.said = b""
        ours, theirs = pty.openpty()
        self.process = subprocess.Popen([program(), "record", *arguments], stdin=subprocess.DEVNULL,
                                        stdout=subprocess.PIPE, stderr=theirs, preexec_fn=accept_interrupts,
                                        env={**os.environ, **environment})
        os.close(theirs)
        self.terminal = ours

    def __enter__(self):
        return self

    def __exit__(self, *_):
        if self.process.poll() is None:
            self.process.kill()
            self.process.wait()
        self.process.stdout.close()
        os.close(self.terminal)

    def frames(self):
        """The number of frames that the program last said it has."""
        counts = FRAMES.findall(self.said)
        return int(counts[-1]) if counts else 0

    def listen(self):
        """Waits for the program to say something more. False when it has ended."""
        ready, _, _ = select.select([self.terminal], [], [], LIMIT_SECONDS)
        if not ready:
            raise AssertionError(f"the program says nothing any more; so far: {self.said[-500:]!r}")
        try:
            more = os.read(self.terminal, 65536)
        except OSError:  # what a terminal says whose other side is closed
            more = b""
        self.said += more
        return bool(more)

    def catch_up(self):
        """Listens to what the program has said while nobody did."""
        while select.select([self.terminal], [], [], 0)[0] and self.listen():
            pass

    def wait_for_more_frames(self, count):
        """Until it has recorded `count` frames more than now."""
        self.catch_up()
        goal = self.frames() + count
        while self.frames() < goal:
            if not self.listen():
                raise AssertionError(f"the recording ended at frame {self.frames()} of {goal}: {self.said[-500:]!r}")

    def stop(self, by=signal.SIGINT):
        self.process.send_signal(by)

    def result(self):
        """Waits for the end. @return exit status, standard output, standard error."""
        while self.listen():
            pass
        output = self.process.stdout.read().decode()
        return self.process.wait(LIMIT_SECONDS), output, self.said.decode(errors="replace")


def pillow_frames(path):
    """(picture, milliseconds) of every frame, as Pillow decodes them."""
    with Image.open(path) as gif:
        return [(frame.convert("RGB"), frame.info["duration"]) for frame in ImageSequence.Iterator(gif)]


def ffmpeg_frames(path, size):
    """The pictures of every frame, as FFmpeg decodes them."""
    raw = subprocess.run(["ffmpeg", "-v", "error", "-i", path, "-fps_mode", "passthrough", "-f", "rawvideo",
                          "-pix_fmt", "rgb24", "-"], stdin=subprocess.DEVNULL, capture_output=True, check=True).stdout
    length = size[0] * size[1] * 3
    return [Image.frombytes("RGB", size, raw[at:at + length]) for at in range(0, len(raw), length)]


def ffmpeg_seconds(path):
    """How long a file plays, by FFmpeg's count."""
    shown = subprocess.run(["ffprobe", "-v", "error", "-select_streams", "v", "-show_entries",
                            "packet=duration_time", "-of", "json", path], stdin=subprocess.DEVNULL,
                           capture_output=True, check=True).stdout
    return sum(float(packet["duration_time"]) for packet in json.loads(shown)["packets"])


class BusyProcessors:
    """Keeps two processors busy for as long as the block lasts."""

    def __enter__(self):
        self.loops = [subprocess.Popen(["/usr/bin/python3", "-c", "while True: pass"]) for _ in range(2)]
        return self

    def __exit__(self, *_):
        for loop in self.loops:
            loop.kill()
            loop.wait()


class ClipTest(unittest.TestCase):
    """Has room for one clip, and knows what is in it."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.gif = os.path.join(folder.name, "clip.gif")

    def assert_lasts(self, seconds, result):
        """The recording has the frames of so many seconds, and the GIF plays as long. @param result  what --json said"""
        self.assertAlmostEqual(result["sourceFrameCount"], 30 * seconds, delta=1)
        self.assertAlmostEqual(result["durationSeconds"], seconds, delta=0.21)  # a frame of the GIF and a rounded count
        played = sum(milliseconds for _, milliseconds in pillow_frames(self.gif)) / 1000
        self.assertAlmostEqual(played, result["durationSeconds"], delta=0.005)
        self.assertAlmostEqual(ffmpeg_seconds(self.gif), result["durationSeconds"], delta=0.005)

    def assert_shows(self, path, expected):
        """The GIF's frames are exactly the expected pictures in that order, however often each is repeated."""
        frames = [picture for picture, _ in pillow_frames(path)]
        others = ffmpeg_frames(path, frames[0].size)
        self.assertTrue([f.tobytes() for f in frames] == [f.tobytes() for f in others], "two decoders agree")
        distinct = [frame for at, frame in enumerate(frames) if at == 0 or frame.tobytes() != frames[at - 1].tobytes()]
        self.assertEqual([frame.size for frame in distinct], [picture.size for picture in expected])
        for at, (frame, picture) in enumerate(zip(distinct, expected)):
            self.assertTrue(frame.tobytes() == picture.tobytes(), f"picture {at} is right")
