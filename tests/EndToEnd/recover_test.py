#!/usr/bin/python3
"""A recording survives the end of the program that makes it. Run by CTest, one test an X session."""

import contextlib
import json
import os
import pathlib
import random
import resource
import signal
import stat
import struct
import unittest

from PIL import Image

from application import quillbox, status, until
from desktop import Desktop, clipboard, without_pointer
from journal import journals, recover, wait_until_kept
from recording import ClipTest, Recording
from running import ApplicationTest
from screen import Screen

AREA = (301, 257, 322, 238)
REGION = "301,257,322x238"
HISTORY = pathlib.Path(os.environ["XDG_DATA_HOME"], "Quillbox/history.json")
HOME = pathlib.Path(os.environ["HOME"])
CLIPS = HOME / "Videos/Quillbox"


def listed():
    done = recover("--list", "--json")
    assert (done.returncode, done.stderr) == (0, ""), done.stderr
    return json.loads(done.stdout)


def allow_files_of(desktop, size):
    """As if the disk were full once a file has this size."""
    resource.prlimit(desktop.process.pid, resource.RLIMIT_FSIZE, (size, resource.RLIM_INFINITY))


class WrongClock:
    """The clock of a program that has its environment, by tests/desktop/clock-preload.c."""

    def __init__(self):
        self.file = HOME / "clock-error"
        self.set(0)
        self.environment = {"LD_PRELOAD": os.environ["CLOCK_PRELOAD"], "CLOCK_ERROR": str(self.file)}

    def set(self, seconds):
        """How far it is ahead of the time."""
        with open(self.file, "r+b" if self.file.exists() else "wb") as file:
            file.write(struct.pack("=q", seconds))


@contextlib.contextmanager
def within(seconds, what):
    """Fails where the block takes longer, whatever it waits for."""
    def fail(*_):
        raise AssertionError(f"not within {seconds} s: {what}")
    before = signal.signal(signal.SIGALRM, fail)
    signal.alarm(seconds)
    try:
        yield
    finally:
        signal.alarm(0)
        signal.signal(signal.SIGALRM, before)


class Stage:
    """A screen on which steps are shown while something records it."""

    def __init__(self):
        self.screen = Screen(*AREA)
        self.screen.show(0)
        self.shown = [self.screen.picture(*AREA)]

    def play(self, steps):
        """Shows further steps until each is kept on disk."""
        for step in range(len(self.shown), len(self.shown) + steps):
            wait_until_kept(lambda: self.screen.show(step))
            self.shown.append(self.screen.picture(*AREA))


class RecoverCommandTest(ClipTest):
    def assert_recovers(self, stage, *options):
        """The one recording that was cut off gives exactly what was shown."""
        self.assertEqual(len(listed()), 1)
        done = recover("-o", self.gif, "--json", *options)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertGreaterEqual(json.loads(done.stdout)["sourceFrameCount"], len(stage.shown))
        self.assert_shows(self.gif, stage.shown)
        self.assertEqual((listed(), journals()), ([], []))

    def test_a_killed_program_leaves_its_recording(self):
        stage = Stage()
        with Recording("--region", REGION, "-o", self.gif) as recording:
            stage.play(4)
            journal, = journals()
            self.assertEqual(stat.S_IMODE(journal.stat().st_mode), 0o600)
            self.assertEqual(listed(), [], "it belongs to the program that runs")
            recording.catch_up()
            frames = recording.frames()
            recording.stop(signal.SIGKILL)
            recording.process.wait()
        self.assertGreaterEqual(listed()[0]["durationSeconds"], frames / 30 - 2)
        self.assert_recovers(stage)

    @unittest.skipUnless("CLOCK_PRELOAD" in os.environ, "a sanitizer comes before everything else that is preloaded")
    def test_a_recording_lasts_as_long_as_it_does_whatever_the_clock_says(self):
        clock, stage = WrongClock(), Stage()
        with (Recording("--region", REGION, "-o", self.gif, **clock.environment) as recording,
              within(60, "the recording goes on in its own time")):
            for error in (86400, -86400, 3600):
                stage.play(1)
                clock.set(error)
            stage.play(1)
            recording.catch_up()
            frames = recording.frames()
            recording.stop(signal.SIGKILL)
            recording.process.wait()
        self.assertAlmostEqual(listed()[0]["durationSeconds"], frames / 30, delta=2)
        self.assert_recovers(stage)

    def test_a_recording_that_ends_as_it_should_leaves_nothing(self):
        stage = Stage()
        with Recording("--region", REGION, "-o", self.gif) as recording:
            stage.play(1)
            recording.stop()
            self.assertEqual(recording.result()[0], 0)
        self.assertEqual((listed(), journals()), ([], []))
        self.assert_shows(self.gif, stage.shown)

    def test_a_clip_that_cannot_be_saved_leaves_its_recording(self):
        stage = Stage()
        with Recording("--region", REGION, "-o", self.gif) as recording:
            stage.play(2)
            os.mkdir(self.gif)  # in the way
            recording.stop()
            self.assertEqual(recording.result()[0], 1)
        os.rmdir(self.gif)
        self.assert_recovers(stage)

    def test_two_recordings_are_two_clips(self):
        stage = Stage()
        with Recording("--region", REGION, "-o", self.gif) as one:
            stage.play(1)
            with Recording("--region", REGION, "-o", self.gif) as other:
                until(lambda: len(journals()) == 2, "there are two journals")
                one.stop(signal.SIGKILL)
                one.process.wait()
                self.assertEqual(len(listed()), 1, "the other one goes on")
                other.stop(signal.SIGKILL)
                other.process.wait()
        self.assertEqual(len(listed()), 2)
        refused = recover("-o", self.gif)
        self.assertEqual((refused.returncode, len(listed())), (2, 2), refused.stderr)
        self.assertEqual(recover("--quiet").returncode, 0)
        self.assertEqual(len(list(CLIPS.glob("*.gif"))), 2)
        self.assertEqual(len(json.loads(HISTORY.read_text())), 2)
        self.assertEqual((listed(), journals()), ([], []))

    def test_is_discarded_when_that_is_wanted(self):
        stage = Stage()
        with Recording("--region", REGION, "-o", self.gif) as recording:
            stage.play(1)
            recording.stop(signal.SIGKILL)
            recording.process.wait()
        done = quillbox("doctor")
        self.assertIn("quillbox recover", done.stdout)
        self.assertEqual(recover("--discard").returncode, 0)
        self.assertEqual((listed(), journals()), ([], []))
        self.assertNotIn("quillbox recover", quillbox("doctor").stdout)
        done = recover()
        self.assertEqual(done.returncode, 1)
        self.assertEqual(done.stderr, "quillbox: no recording was cut off; there is nothing to recover\n")

    def test_nothing_is_kept_where_that_is_switched_off(self):
        os.environ["QUILLBOX_JOURNAL"] = "off"
        stage = Stage()
        with Recording("--region", REGION, "-o", self.gif) as recording:
            recording.wait_for_more_frames(60)
            self.assertEqual(journals(), [])
            recording.stop()
            self.assertEqual(recording.result()[0], 0)
        self.assert_shows(self.gif, stage.shown)


class EndedApplicationTest(ApplicationTest, ClipTest):
    """The application ends while it records, or while it makes the clip."""

    Application = Desktop
    assert_recovers = RecoverCommandTest.assert_recovers

    def setUp(self):
        ClipTest.setUp(self)
        self.pointer = without_pointer()
        self.stage = Stage()

    def record(self):
        desktop = self.start()
        desktop.record(*AREA)
        self.stage.shown = [self.stage.screen.picture(*AREA)]  # what the overlay has left of step 0
        self.stage.play(3)
        return desktop

    def test_quit_while_recording_keeps_the_recording(self):
        desktop = self.record()
        self.assertEqual(quillbox("quit").returncode, 0)
        self.assertEqual(desktop.process.wait(60), 0)
        self.assert_recovers(self.stage)

    def test_a_signal_while_recording_keeps_the_recording(self):
        for ending in (signal.SIGTERM, signal.SIGHUP):
            desktop = self.record()
            desktop.process.send_signal(ending)
            self.assertEqual(desktop.process.wait(60), 0)
            self.assert_recovers(self.stage)
            os.remove(self.gif)

    def test_the_next_start_tells_of_a_killed_one(self):
        desktop = self.record()
        desktop.process.kill()
        desktop.process.wait()
        self.start()
        self.assertEqual(len(status()["cutOff"]), 1)
        self.assertIn("recover", quillbox("status").stdout)
        self.assert_recovers(self.stage)
        self.assertNotIn("cutOff", status())

    def test_the_panel_makes_the_clip_of_a_killed_one(self):
        desktop = self.record()
        desktop.process.kill()
        desktop.process.wait()
        desktop = self.start()
        desktop.open_panel()
        desktop.click("push button", "Make the clip")
        desktop.wait_for("done")
        clip, = CLIPS.glob("*.gif")
        self.assert_shows(str(clip), self.stage.shown)
        self.assertEqual(clipboard("image/gif"), clip.read_bytes())
        entry, = json.loads(HISTORY.read_text())
        self.assertEqual(entry["outputPath"], str(clip))
        self.assertEqual((listed(), journals()), ([], []))
        until(lambda: desktop.find("push button", "Make the clip") is None, "the offer has gone")

    def test_a_clip_for_which_there_is_no_room_is_made_once_there_is(self):
        desktop = self.record()
        allow_files_of(desktop, 200)  # bytes: every clip is larger
        quillbox("stop")
        self.assertEqual(status()["phase"], "failed")
        self.assertNotEqual(quillbox("again").returncode, 0)
        self.assertEqual(list(CLIPS.glob("*")), [], "nothing half is left")
        allow_files_of(desktop, resource.RLIM_INFINITY)
        self.assertEqual(quillbox("again").returncode, 0)
        clip, = CLIPS.glob("*.gif")
        self.assert_shows(str(clip), self.stage.shown)
        self.assertEqual((listed(), journals()), ([], []))

    def test_the_servers_end_keeps_the_recording(self):
        desktop = self.record()
        for step in (4, 5):  # recorded, and with luck not yet on disk
            wait = status()["frameCount"] + 3
            self.stage.screen.show(step)
            self.stage.shown.append(self.stage.screen.picture(*AREA))
            desktop.wait_for_frames(wait)
        os.kill(int(os.environ["XSERVER_PID"]), signal.SIGKILL)
        desktop.process.wait(60)
        saved = list(CLIPS.glob("*.gif"))
        self.assertEqual(len(saved) + len(listed()), 1, "the clip, or what it can be made of")
        if saved:
            self.assert_shows(str(saved[0]), self.stage.shown)
        else:
            self.assert_recovers(self.stage, "--precise", "--preset", "docs")  # also what was shown for a moment only

    def test_a_clip_that_is_being_made_is_finished_and_listed(self):
        desktop = self.start()
        desktop.record(*AREA)
        noise = random.Random(1)
        for _ in range(12):  # hard to encode
            picture = Image.frombytes("RGB", AREA[2:], noise.randbytes(AREA[2] * AREA[3] * 3))
            wait = status()["frameCount"] + 3
            self.stage.screen.window.put_pil_image(self.stage.screen.context, 0, 0, picture)
            self.stage.screen.display.sync()
            desktop.wait_for_frames(wait)
        desktop.open_panel()
        desktop.press("Stop & Copy")
        until(lambda: status()["phase"] != "recording", "the clip is being made")  # or is made already on a slow machine
        self.assertEqual(quillbox("quit").returncode, 0)
        self.assertEqual(desktop.process.wait(120), 0)
        clip, = CLIPS.glob("*.gif")
        entry, = json.loads(HISTORY.read_text())
        self.assertEqual(entry["outputPath"], str(clip))
        self.assertEqual((listed(), journals()), ([], []))


if __name__ == "__main__":
    unittest.main()
