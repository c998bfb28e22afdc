"""The desktop application on a Wayland desktop, used as a person uses it: what sway and mutter have in common. CANVAS_SCALE
is the scale of the session's outputs."""

import os
import pathlib

from PIL import ImageChops

from application import status, until
from canvas import BLOCKS, INK, PAPER, Canvas
from recording import ffmpeg_frames, pillow_frames
from running import ApplicationTest
from wayland_clipboard import offered, paste

AREA = (301, 257, 322, 238)
AWAY = (5, 520)  # where the pointer is in no picture
FRAME = (224, 52, 60)  # around what is recorded
COLORS = {PAPER, INK, *BLOCKS}
CLIPS = pathlib.Path(os.environ["HOME"], "Videos/Quillbox")
GAP = 8  # points, between the panel and what is around it
SCALE = int(os.environ.get("CANVAS_SCALE", "1"))


class WaylandApplicationTest(ApplicationTest):
    """Has a person with a pointer and a keyboard, and a canvas to record. What a compositor alone knows, and how a button
    is pressed there, the test of that desktop adds: devices(), origin(), seen() and press()."""

    def setUp(self):
        self.user = self.devices()
        self.addCleanup(self.user.close)
        self.user.move(*AWAY)
        self.canvas = Canvas(SCALE)
        self.addCleanup(self.canvas.__exit__)

    def drag_area(self, halfway=lambda: None):
        """Drags AREA out on the overlay, and moves the pointer out of the way."""
        x, y = self.origin()
        self.user.move(x + AWAY[0], y + AWAY[1])  # else sway 1.7 does not paint it on a second output
        until(lambda: self.shows_dimmed(BLOCKS[4], (20, 400)), "the overlay is on the screen")
        self.wait_for_rest()
        left, top, width, height = AREA
        self.user.move(x + left, y + top)
        self.user.press()
        self.user.move(x + left + width // 2, y + top + height // 2)
        halfway()
        self.user.move(x + left + width, y + top + height)
        self.user.release()
        self.user.move(x + AWAY[0], y + AWAY[1])

    def shows_frame(self):
        """Whether there is the frame, on the pixels just outside of the area."""
        left, top, right, bottom = (AREA[0] * SCALE, AREA[1] * SCALE, (AREA[0] + AREA[2]) * SCALE,
                                    (AREA[1] + AREA[3]) * SCALE)
        picture = self.seen()
        return {picture.getpixel(point) for point in ((left - 1, top), (right, bottom - 1), (left, top - 1),
                                                      (right - 1, bottom))} == {FRAME}

    def wait_for_rest(self):
        """Until what is new stays where it is, for compositors that move it there."""

    def play(self, desktop, steps=3):
        """Shows the steps while it records. @return what the recorded area showed"""
        shown = []
        for step in range(steps):
            shown.append(self.canvas.show(step, AREA))
            desktop.wait_for_frames(status()["frameCount"] + 12)
        return shown

    def record_and_stop_by_the_button(self, desktop, open_panel=None):
        """@return what was shown"""
        self.drag_area()
        desktop.wait_for("recording")
        shown = self.play(desktop)
        (open_panel or desktop.open_panel)()
        self.press(desktop, "Stop & Copy")
        desktop.wait_for("done")
        return shown

    def assert_is_the_clip(self, shown):
        """The finished clip shows each of the pictures, and nothing of ours."""
        now = status()
        self.assertEqual(now["phase"], "done", now)
        path = pathlib.Path(now["path"])
        self.assertEqual(path.parent, CLIPS)
        frames = [picture for picture, _ in pillow_frames(path)]
        self.assertEqual({frame.size for frame in frames}, {AREA[2:]})
        others = ffmpeg_frames(path, frames[0].size)
        self.assertTrue([f.tobytes() for f in frames] == [f.tobytes() for f in others], "two decoders agree")
        for frame in frames:
            self.assertLessEqual({color for _, color in frame.getcolors(maxcolors=1 << 20)}, COLORS)
        recorded = {frame.tobytes() for frame in frames}
        self.assertTrue(all(picture.tobytes() in recorded for picture in shown), "each step of the animation is in it")
        return path

    def assert_is_copied(self, path):
        """Another program gets the file, and its bytes, from the clipboard."""
        self.assertEqual(sorted(offered()), ["image/gif", "text/uri-list"])
        self.assertEqual(paste("text/uri-list"), (path.as_uri() + "\r\n").encode())
        self.assertTrue(paste("image/gif") == path.read_bytes(), "the picture, byte for byte")

    def shows_dimmed(self, color, at):
        """Whether a point of the cast output, whose colour on the canvas is known, is under the overlay."""
        seen = self.seen().getpixel((at[0] * SCALE, at[1] * SCALE))
        return all(abs(level - usual * 0.75) <= 2 for level, usual in zip(seen, color))

    def shows_dimmed_picture(self, picture, box):
        """Whether that part of the screen, points, shows the canvas under the overlay, and nothing else."""
        box = [side * SCALE for side in box]
        shown, dimmed = self.seen().crop(box), picture.crop(box).point(lambda level: round(level * 0.75))
        return max(high for _, high in ImageChops.difference(shown, dimmed).getextrema()) <= 2


def icon_in(picture, top, bottom):
    """The middle of our icon in the part of a picture from `top` to `bottom`, in its pixels: what is blue there. Or none."""
    strip = picture.crop((0, top, picture.width, bottom))
    pixels = strip.load()
    found = [(x, y) for x in range(strip.width) for y in range(strip.height) if is_icons(*pixels[x, y])]
    if len(found) < 40:
        return None
    return sum(x for x, _ in found) // len(found), top + sum(y for _, y in found) // len(found)


def is_icons(red, green, blue):
    return blue > 180 and red < 130 and green < 120 and blue > red + 60
