#!/usr/bin/python3
"""The real program records a real Wayland desktop. Run by CTest, one test a session:
wayland_record_test.py WaylandRecordTest.NAME; CANVAS_SCALE is the scale of the session's outputs."""

import json
import os
import pathlib
import signal
import subprocess
import time
import unittest

from PIL import Image

from application import program, quillbox, run
from canvas import Canvas
from recording import ClipTest, Recording, pillow_frames

AREA = (101, 57, 322, 238)  # odd numbers: nothing is aligned by chance
REGION = "101,57,322x238"
FRAMES_A_STEP = 20  # at 30 a second; a GIF at 5 a second still shows each step three times


class WaylandRecordTest(ClipTest):
    def canvas(self):
        canvas = Canvas(int(os.environ.get("CANVAS_SCALE", "1")))
        self.addCleanup(canvas.__exit__)
        return canvas

    def token(self):
        return (pathlib.Path(os.environ["XDG_STATE_HOME"]) / "quillbox" / "screen-cast").read_text()

    def record_one_second(self):
        done = quillbox("record", "--region", REGION, "--duration", "1", "--json", "--force", "-o", self.gif)
        self.assertEqual(done.returncode, 0, done.stderr)
        return json.loads(done.stdout)

    def test_shows_every_step_of_an_animation_pixel_for_pixel(self):
        canvas = self.canvas()
        shown = [canvas.show(0, AREA)]
        with Recording("--region", REGION, "-o", self.gif) as recording:
            recording.wait_for_more_frames(FRAMES_A_STEP)
            for step in range(1, 7):
                shown.append(canvas.show(step, AREA))
                recording.wait_for_more_frames(FRAMES_A_STEP)
            recording.stop()
            status, _, said = recording.result()
        self.assertEqual(status, 0, said)
        self.assert_shows(self.gif, shown)

    def test_lasts_as_long_as_the_recording_of_a_still_screen(self):
        shown = self.canvas().show(3, AREA)
        done = quillbox("record", "--region", REGION, "--duration", "5", "--json", "-o", self.gif)
        self.assertEqual(done.returncode, 0, done.stderr)
        result = json.loads(done.stdout)
        self.assert_lasts(5, result)
        self.assert_shows(self.gif, [shown])

    def test_lasts_as_long_as_the_recording_of_a_screen_that_moves_by_fits_and_starts(self):
        canvas = self.canvas()
        canvas.show(0, AREA)
        record = subprocess.Popen([program(), "record", "--region", REGION, "--duration", "3", "--json", "-o", self.gif],
                                  stdin=subprocess.DEVNULL, stdout=subprocess.PIPE)
        self.addCleanup(record.wait)
        self.addCleanup(record.kill)
        self.addCleanup(record.stdout.close)
        step = 0
        while record.poll() is None:
            step += 1
            canvas.show(step, AREA)
            if step % 4 == 0:
                time.sleep(0.1)  # pictures come irregularly, and fewer than frames
        self.assertEqual(record.returncode, 0)
        self.assert_lasts(3, json.loads(record.stdout.read()))
        self.assertGreater(len({picture.tobytes() for picture, _ in pillow_frames(self.gif)}), 5)

    def test_follows_a_screen_that_never_rests(self):
        canvas = self.canvas()
        shown = {canvas.show(0, AREA).tobytes(): 0}
        with Recording("--region", REGION, "-o", self.gif) as recording:
            for step in range(1, 90):  # each is on the screen for a frame of the compositor's
                shown[canvas.show(step, AREA).tobytes()] = step
            recording.wait_for_more_frames(FRAMES_A_STEP)
            recording.stop()
            status, _, said = recording.result()
        self.assertEqual(status, 0, said)
        frames = [picture.tobytes() for picture, _ in pillow_frames(self.gif)]
        steps = [shown.get(frame) for frame in frames]
        self.assertNotIn(None, steps, "no frame is a mixture of two pictures")
        self.assertEqual(steps, sorted(steps), "they come in their order")
        self.assertGreater(len(set(steps)), 5)
        self.assertEqual(steps[-1], 89, "the last picture is in the clip")

    def test_records_a_still_screen_again_and_again(self):
        shown = self.canvas().show(2, AREA)
        for _ in range(3):
            self.record_one_second()
            self.assert_shows(self.gif, [shown])

    def test_cuts_the_region_to_the_output(self):
        canvas = self.canvas()
        width, height = canvas.size
        shown = canvas.show(1, (width - 170, height - 130, 170, 130))
        done = quillbox("record", "--region", f"{width - 170},{height - 130},400x400", "--duration", "1", "-o", self.gif)
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assert_shows(self.gif, [shown])

    def test_goes_on_showing_the_same_points_when_the_output_gets_another_size(self):
        canvas = self.canvas()
        left, top, width, height = AREA
        shown = []
        with Recording("--region", REGION, "-o", self.gif) as recording:
            for step, size in enumerate(((1280, 720), (1600, 900), (300, 250))):
                self.resize_output(*size)
                picture = Image.new("RGB", (width, height))  # what is no longer on the output is black
                picture.paste(canvas.show(step, AREA).crop((0, 0, size[0] - left, size[1] - top)))
                shown.append(picture)
                recording.wait_for_more_frames(FRAMES_A_STEP)
            recording.stop()
            status, _, said = recording.result()
        self.assertEqual(status, 0, said)
        frames = [picture.tobytes() for picture, _ in pillow_frames(self.gif)]
        self.assertEqual([picture.tobytes() in frames for picture in shown], [True] * len(shown))
        places = [frames.index(picture.tobytes()) for picture in shown]
        self.assertEqual(places, sorted(places))

    @staticmethod
    def resize_output(width, height):
        done = run("swaymsg", "output", "HEADLESS-" + os.environ["CAST_OUTPUT"], "resolution", f"{width}x{height}")
        assert done.returncode == 0, done.stderr

    def test_refuses_a_region_beside_the_output(self):
        width, height = self.canvas().size
        done = quillbox("record", "--region", f"{width},0,10x10", "--duration", "1", "-o", self.gif)
        self.assertEqual(done.returncode, 1)
        self.assertIn(f"outside the display, which is {width}×{height}", done.stderr)

    def test_keeps_the_latest_permission(self):
        self.canvas().show(0, AREA)
        self.record_one_second()
        first = self.token()
        self.assertRegex(first, r"^\S+\n$")
        path = pathlib.Path(os.environ["XDG_STATE_HOME"]) / "quillbox" / "screen-cast"
        self.assertEqual(path.stat().st_mode & 0o777, 0o600)
        path.write_text("11111111-2222-4333-8444-555555555555\n")  # one that the portal has never given
        self.record_one_second()
        self.assertNotEqual(self.token(), "11111111-2222-4333-8444-555555555555\n")

    def recording_that_ends_early(self, *processes):
        """Kills the processes while it records. @return what is said"""
        return self.recording_ended_by(
            lambda: [os.kill(int(os.environ[process]), signal.SIGKILL) for process in processes])

    def recording_ended_by(self, happening):
        """@param happening  done while it records. @return what is said"""
        shown = self.canvas().show(4, AREA)
        with Recording("--region", REGION, "-o", self.gif) as recording:
            recording.wait_for_more_frames(FRAMES_A_STEP)
            happening()
            status, _, said = recording.result()
        self.assertEqual(status, 0, said)  # there is a clip
        self.assert_shows(self.gif, [shown])
        self.assertIn("quillbox: The recording ended early: ", said)
        self.assertIn("What was recorded is kept.", said)
        return said

    def test_saves_what_it_has_when_the_portal_dies_and_says_so(self):
        self.assertIn("portal", self.recording_that_ends_early("PORTAL_PID"))

    def test_saves_what_it_has_when_the_portals_back_end_dies_and_says_so(self):
        self.assertIn("The desktop", self.recording_that_ends_early("PORTAL_BACKEND_PID"))

    def test_saves_what_it_has_when_pipewire_dies_and_says_so(self):
        self.assertRegex(self.recording_that_ends_early("PIPEWIRE_PID"), "PipeWire|The desktop")

    def test_saves_what_it_has_when_interrupted(self):
        shown = self.canvas().show(2, AREA)
        with Recording("--region", REGION, "-o", self.gif) as recording:
            recording.wait_for_more_frames(FRAMES_A_STEP)
            recording.stop(signal.SIGINT)
            status, _, said = recording.result()
        self.assertEqual(status, 0, said)
        self.assert_shows(self.gif, [shown])


if __name__ == "__main__":
    unittest.main()
