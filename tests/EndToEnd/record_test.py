#!/usr/bin/python3
"""The real program records a real X server. Run by CTest, one test a session: record_test.py RecordTest.NAME"""

import json
import os
import pathlib
import re
import signal
import subprocess
import unittest

from application import program, quillbox, run
from recording import BusyProcessors, ClipTest, Recording, pillow_frames
from screen import BLOCK_SIDE, BLOCKS, PAPER, Screen

AREA = (101, 57, 322, 238)  # odd numbers: nothing is aligned by chance
REGION = "101,57,322x238"
FRAMES_A_STEP = 20  # at 30 a second; a GIF at 5 a second still shows each step three times


class RecordTest(ClipTest):
    def play(self, screen, recording, steps):
        """Shows the steps while the recording runs; the pictures that the server showed."""
        shown = []
        for step in steps:
            screen.show(step)
            shown.append(screen.picture(*AREA))
            recording.wait_for_more_frames(FRAMES_A_STEP)
        return shown

    def test_shows_every_step_of_an_animation_pixel_for_pixel(self):
        screen = Screen(*AREA)
        screen.show(0)
        with Recording("--region", REGION, "-o", self.gif) as recording:
            recording.wait_for_more_frames(1)
            shown = self.play(screen, recording, range(0, 7))
            recording.stop()
            status, _, said = recording.result()
        self.assertEqual(status, 0, said)
        for step, picture in enumerate(shown):  # the steps themselves look as they should
            left, top, color = screen.block(step)
            self.assertEqual(picture.getpixel((left, top)), color)
            self.assertEqual(picture.getpixel((left + BLOCK_SIDE - 1, top + BLOCK_SIDE - 1)), color)
            self.assertIn(BLOCKS[step % len(BLOCKS)], [c for _, c in picture.getcolors()])
            self.assertEqual(picture.getpixel((AREA[2] - 1, 0)), PAPER)
        self.assert_shows(self.gif, shown)

    def test_shows_the_pointer_where_it_is(self):
        screen = Screen(*AREA)
        screen.show(1)
        drawn = screen.show_pointer(250, 190)
        with Recording("--region", REGION, "-o", self.gif) as recording:
            recording.wait_for_more_frames(FRAMES_A_STEP)
            recording.stop()
            status, _, said = recording.result()
        self.assertEqual(status, 0, said)
        self.assert_shows(self.gif, [drawn(screen.picture(*AREA), *AREA[:2])])

    def test_shows_the_part_of_the_pointer_that_reaches_into_the_region(self):
        screen = Screen(*AREA)
        screen.show(1)
        drawn = screen.show_pointer(AREA[0] + 2, AREA[1] + 1)
        with Recording("--region", REGION, "-o", self.gif) as recording:
            recording.wait_for_more_frames(FRAMES_A_STEP)
            recording.stop()
            recording.result()
        self.assert_shows(self.gif, [drawn(screen.picture(*AREA), *AREA[:2])])

    def ten_seconds(self):
        screen = Screen(*AREA)
        screen.show(3)
        done = quillbox("record", "--region", REGION, "--duration", "10", "--json", "-o", self.gif)
        self.assertEqual(done.returncode, 0, done.stderr)
        result = json.loads(done.stdout)
        self.assert_lasts(10, result)

    def test_records_thirty_frames_a_second_while_the_machine_is_loaded(self):
        with BusyProcessors():
            self.ten_seconds()

    def test_ends_after_the_given_duration_and_reports_as_json(self):
        Screen(*AREA).show(3)
        done = quillbox("record", "--region", REGION, "--duration", "1", "--json", "-o", self.gif)
        self.assertEqual(done.returncode, 0, done.stderr)
        result = json.loads(done.stdout)
        self.assertEqual((result["width"], result["height"], result["frameCount"]), (322, 238, 1))
        self.assertEqual(result["byteCount"], os.path.getsize(self.gif))
        self.assertEqual(result["output"], self.gif)
        self.assertFalse(result["overBudget"])

    def stops_and_saves(self, by):
        screen = Screen(*AREA)
        screen.show(2)
        with Recording("--region", REGION, "-o", self.gif) as recording:
            recording.wait_for_more_frames(FRAMES_A_STEP)
            recording.stop(by)
            status, _, said = recording.result()
        self.assertEqual(status, 0, said)
        self.assert_shows(self.gif, [screen.picture(*AREA)])

    def test_saves_what_it_has_when_interrupted(self):
        self.stops_and_saves(signal.SIGINT)

    def test_saves_what_it_has_when_terminated(self):
        self.stops_and_saves(signal.SIGTERM)

    def test_saves_what_it_has_when_the_server_dies_and_says_so(self):
        screen = Screen(*AREA)
        screen.show(4)
        picture = screen.picture(*AREA)
        with Recording("--region", REGION, "-o", self.gif) as recording:
            recording.wait_for_more_frames(FRAMES_A_STEP)
            os.kill(int(os.environ["XSERVER_PID"]), signal.SIGKILL)
            status, _, said = recording.result()
        self.assertEqual(status, 0, said)  # there is a clip
        self.assertRegex(said, r"quillbox: The recording ended early: .*display")
        self.assert_shows(self.gif, [picture])

    def test_cuts_the_region_to_the_screen(self):
        screen = Screen(1700, 900, 220, 180)
        screen.show(2)
        done = quillbox("record", "--region", "1750,950,400x400", "--duration", "1", "-o", self.gif)
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assert_shows(self.gif, [screen.picture(1750, 950, 170, 130)])
        self.assertEqual(done.stderr, "quillbox: warning: only 170x130 of the region's 400x400 are on the main display; "
                                      "the rest is not in the clip\n")

    def test_names_the_clip_by_the_time_and_puts_it_into_the_clips_folder(self):
        Screen(*AREA).show(0)
        done = quillbox("record", "--region", REGION, "--duration", "1", "--json")
        self.assertEqual(done.returncode, 0, done.stderr)
        folder = pathlib.Path.home() / "Videos" / "Quillbox"
        (clip,) = folder.iterdir()
        self.assertRegex(clip.name, re.compile(r"^Quillbox \d{4}-\d\d-\d\d at \d\d\.\d\d\.\d\d\.gif$"))
        self.assertEqual(json.loads(done.stdout)["output"], str(clip))
        self.assertEqual(pillow_frames(clip)[0][0].size, AREA[2:])

    def test_gives_recordings_that_end_at_once_names_of_their_own(self):
        Screen(*AREA).show(0)
        arguments = (program(), "record", "--region", REGION, "--duration", "0.1", "--json")
        recordings = [subprocess.Popen(arguments, stdout=subprocess.PIPE) for _ in range(3)]
        outputs = {json.loads(recording.communicate()[0])["output"] for recording in recordings}
        self.assertEqual([recording.returncode for recording in recordings], [0, 0, 0])
        self.assertEqual(len(outputs), 3)
        for output in outputs:
            self.assertEqual(pillow_frames(output)[0][0].size, AREA[2:])

    def test_keeps_a_clip_whose_recording_has_ended_when_interrupted_then(self):
        with Recording("--region", "0,0,1900x1000", "--duration", "0.1", "--preset", "github", "--precise",
                       "-o", self.gif) as recording:
            while b"attempt 1" not in recording.said:
                self.assertTrue(recording.listen(), recording.said)
            recording.stop()
            status, output, said = recording.result()
        self.assertEqual(status, 0, said)
        self.assertIn(self.gif, output)
        self.assertEqual(pillow_frames(self.gif)[0][0].size, (1900, 1000))

    def test_does_not_mind_that_nobody_reads_what_it_says(self):
        Screen(*AREA).show(0)
        arguments = (program(), "record", "--region", REGION, "--duration", "0.1", "--force", "-o", self.gif)
        done = run("sh", "-c", 'exec "$@" >&-', "sh", *arguments)
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertIn(f"{self.gif} is saved, but not what there is to say about it", done.stderr)
        done = run("bash", "-c", '"$@" | true; exit ${PIPESTATUS[0]}', "bash", *arguments)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertEqual(pillow_frames(self.gif)[0][0].size, AREA[2:])

    def test_keeps_an_existing_file_unless_forced(self):
        Screen(*AREA).show(0)
        before = b"not to be lost"
        pathlib.Path(self.gif).write_bytes(before)
        arguments = ("record", "--region", REGION, "--duration", "1", "-o", self.gif)
        refused = quillbox(*arguments)
        self.assertEqual(refused.returncode, 1)
        self.assertIn(self.gif, refused.stderr)
        self.assertEqual(len(refused.stderr.splitlines()), 1)
        self.assertEqual(pathlib.Path(self.gif).read_bytes(), before)
        self.assertEqual(quillbox(*arguments, "--force").returncode, 0)
        self.assertEqual(pillow_frames(self.gif)[0][0].size, AREA[2:])

    def test_says_in_one_line_that_there_is_no_display(self):
        environment = {name: value for name, value in os.environ.items() if name != "DISPLAY"}
        done = quillbox("record", "--region", REGION, "--duration", "1", "-o", self.gif, env=environment)
        self.assertEqual(done.returncode, 1)
        self.assertEqual(len(done.stderr.splitlines()), 1)
        self.assertIn("display", done.stderr)
        self.assertFalse(os.path.exists(self.gif))


if __name__ == "__main__":
    unittest.main()
