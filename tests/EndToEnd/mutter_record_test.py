#!/usr/bin/python3
"""`quillbox record` on GNOME's compositor and portal. Run by CTest inside tests/desktop/mutter-session, one test a session."""

import os
import pathlib
import unittest

from PIL import ImageChops

import mutter_camera
import mutter_input
import mutter_monitors
from application import until
from recording import Recording, pillow_frames
from share_dialog import ShareDialog
from wayland_record_test import AREA, REGION, WaylandRecordTest

MONITOR = int(os.environ["CAST_OUTPUT"])
CONNECTOR = f"Meta-{MONITOR - 1}"
TOKEN = pathlib.Path(os.environ["XDG_STATE_HOME"], "quillbox/screen-cast")
SHORT = ("--region", REGION, "--duration", "0.1", "--force", "-o")


class AskedTest(WaylandRecordTest):
    """The desktop has not been asked yet what may be seen."""

    def setUp(self):
        super().setUp()
        self.user = mutter_input.Devices()
        self.addCleanup(self.user.close)

    def canvas(self):
        """Which the compositor has faded in."""
        canvas = super().canvas()
        picture = canvas.step(0, AREA)
        canvas.show_picture(picture)
        until(lambda: mutter_camera.picture(CONNECTOR, picture.size).tobytes() == picture.tobytes(), "the canvas is there")
        return canvas

    def answer(self, how):
        """Records, and has the question answered. @return the exit status, and what is said"""
        with Recording(*SHORT, self.gif) as recording:
            how(ShareDialog(self.user))
            status, _, said = recording.result()
        return status, said

    def share(self, dialog):
        dialog.share(MONITOR)

    def test_is_refused_in_one_line_and_asks_again(self):
        for refuse in (ShareDialog.cancel, ShareDialog.close):
            status, said = self.answer(refuse)
            self.assertEqual(status, 1)
            self.assertRegex(said, r"^quillbox: [^\n]*permission to record the screen was not given[^\n]*\r\n$")
            self.assertFalse(os.path.exists(self.gif))
        self.assertEqual(self.answer(self.share)[0], 0)

    def test_does_not_ask_a_second_time(self):
        shown = self.canvas().show(2, AREA)
        self.answer(self.share)
        first = self.token()
        self.record_one_second()
        self.assert_shows(self.gif, [shown])
        self.assertRegex(first + self.token(), r"^\S+\n\S+\n$")
        TOKEN.write_text("11111111-2222-4333-8444-555555555555\n")  # one that the portal has never given
        self.answer(self.share)
        self.assertNotIn("11111111", self.token(), "the new one is kept")

    def test_asks_again_where_what_it_remembers_is_refused(self):
        TOKEN.parent.mkdir(parents=True)
        TOKEN.write_text("nonsense\n")
        self.assertEqual(self.answer(self.share)[0], 0)
        self.assertRegex(self.token(), r"^[0-9a-f-]{36}\n$")


class MutterRecordTest(AskedTest):
    """The desktop has been asked, and remembers the answer."""

    def setUp(self):
        super().setUp()
        status, said = self.answer(self.share)
        self.assertEqual(status, 0, said)
        os.unlink(self.gif)

    def test_saves_what_it_has_when_the_monitor_goes_and_says_so(self):
        said = self.recording_ended_by(lambda: mutter_monitors.switch_off(CONNECTOR))  # mutter goes on with the cast
        self.assertIn("The monitor that is recorded was switched off or unplugged", said)

    def test_has_the_pointer_in_the_picture(self):
        left, top, width, height = AREA
        self.user.move(left + 50, top + 200)
        self.record_one_second()
        frame = pillow_frames(self.gif)[0][0]
        without, seen = (mutter_camera.picture(CONNECTOR, (1280, 720), mode).crop(
            (left, top, left + width, top + height)) for mode in (mutter_camera.WITHOUT_POINTER, mutter_camera.WITH_POINTER))
        place = ImageChops.difference(seen, without).getbbox()
        self.assertTrue(place[0] <= 50 < place[2] <= 100 and place[1] <= 200 < place[3], f"the pointer is at {place}")
        differences = ImageChops.difference(frame, seen).getextrema()
        self.assertLessEqual(max(high for _, high in differences), 8, "but for colours of the 15-bit grid")


if __name__ == "__main__":
    unittest.main()
