#!/usr/bin/python3
"""The desktop application on sway, used as a person uses it. Run by CTest, one test a session."""

import io
import json
import os
import pathlib
import re
import signal
import subprocess
import unittest

from PIL import Image

from application import quillbox, run, status, until
from canvas import BLOCKS
from pipewire import casts
from recording import pillow_frames
from running import extents
from wayland_application import AREA, AWAY, FRAME, GAP, SCALE, WaylandApplicationTest, icon_in
from wayland_input import Devices


def windows():
    """The application's windows as the compositor has placed them: (title, (x, y, width, height))."""
    found = []

    def look(node):
        if node.get("app_id") == os.environ["QUILLBOX_APP_ID"] or node.get("app_id") == "quillbox":
            place, inner = node["rect"], node["window_rect"]
            found.append((node["name"], (place["x"] + inner["x"], place["y"] + inner["y"], place["width"],
                                         place["height"])))
        for child in node["nodes"] + node["floating_nodes"]:
            look(child)

    look(json.loads(run("swaymsg", "-r", "-t", "get_tree").stdout))
    return found


def colors_of(picture):
    return {color for _, color in picture.getcolors(maxcolors=1 << 24)}


def places(title):
    return [place for name, place in windows() if name == title]


def corner_of(place):
    """Right and top."""
    return place[0] + place[2], place[1]


def bar_height():
    """Of the bar along the upper edge of the first output."""
    tree = json.loads(run("swaymsg", "-r", "-t", "get_tree").stdout)
    output = next(node for node in tree["nodes"] if node["name"] == "HEADLESS-1")
    return output["nodes"][0]["rect"]["y"]


def overlays():
    return places("Select a region — Quillbox")


CONTROL = "Recording — Quillbox"  # as assistive technologies know it


class WaylandDesktopTest(WaylandApplicationTest):
    def devices(self):
        return Devices()

    def origin(self):
        """Of the cast output."""
        outputs = json.loads(run("swaymsg", "-r", "-t", "get_outputs").stdout)
        place = next(o for o in outputs if o["name"] == "HEADLESS-" + os.environ["CAST_OUTPUT"])["rect"]
        return place["x"], place["y"]

    def press(self, desktop, name):
        """Clicks in the middle of a button of the panel, with the pointer."""
        until(lambda: desktop.find("push button", name), f"{name} is there")
        (window,) = until(lambda: places("Quillbox"), "the panel is a window")
        x, y, width, height = extents(desktop.find("push button", name))
        self.user.click(window[0] + x + width // 2, window[1] + y + height // 2)

    def test_records_what_was_dragged_out_and_stops_by_the_button(self):
        self.canvas.show(0, AREA)
        desktop = self.start()
        desktop.begin()
        self.drag_area(halfway=lambda: self.keep_screenshot("overlay"))
        desktop.wait_for("recording")
        shown = self.play(desktop)
        desktop.open_panel()
        self.keep_screenshot("panel-recording")
        self.press(desktop, "Stop & Copy")
        desktop.wait_for("done")
        path = self.assert_is_the_clip(shown)
        self.assert_is_copied(path)
        until(lambda: path.name in desktop.texts(), "the clip is in the list")
        self.keep_screenshot("panel-done")

    def test_frames_the_region_while_it_records_and_keeps_the_frame_out_of_the_clip(self):
        self.canvas.show(0, AREA)
        desktop = self.start()
        desktop.begin()
        self.drag_area()
        desktop.wait_for("recording")
        until(self.shows_frame, "the frame is on the screen", limit=20)
        self.keep_screenshot("recording")
        shown = self.play(desktop)
        self.assertTrue(self.shows_frame())
        self.assertEqual(quillbox("stop").returncode, 0)
        self.assert_is_the_clip(shown)
        until(lambda: FRAME not in colors_of(self.seen()), "the frame is gone", limit=20)

    def test_keeps_the_frame_out_of_a_clip_whose_edges_lie_between_pixels(self):
        """On an output whose scale is no whole number."""
        self.canvas.show_picture(Image.new("RGB", self.canvas.size, BLOCKS[4]))
        desktop = self.start()
        desktop.begin()
        self.drag_area()
        desktop.wait_for("recording")
        until(lambda: FRAME in colors_of(self.seen()), "the frame is on the screen", limit=20)
        desktop.wait_for_frames(status()["frameCount"] + 12)
        self.assertEqual(quillbox("stop").returncode, 0)
        for picture, _ in pillow_frames(status()["path"]):
            self.assertEqual((picture.size, colors_of(picture)), (AREA[2:], {BLOCKS[4]}))

    def test_ends_a_recording_by_the_mouse_where_there_is_no_tray(self):
        self.canvas.show(0, AREA)
        desktop = self.start()
        until(desktop.panel, "the panel is open")
        desktop.begin()
        self.drag_area()
        desktop.wait_for("recording")
        shown = self.play(desktop)
        control = until(lambda: next((node for node in desktop.widgets() if node.get_name() == CONTROL), None),
                        "there is a control")
        _, _, width, height = extents(control)
        left, top = AREA[0] + AREA[2] - width, AREA[1] + AREA[3] + 12
        before = self.seen().crop((left, top, left + width, top + height))
        self.assertGreater(len(colors_of(before)), 10, "it is on the screen")
        until(lambda: self.seen().crop((left, top, left + width, top + height)).tobytes() != before.tobytes(),
              "the time goes on", limit=20)
        self.keep_screenshot("stop-control")
        self.assertNotIn(CONTROL, [title for title, _ in windows()], "it is no window")
        x, y, width, height = extents(desktop.find("push button", "Stop & Copy"))
        self.user.click(left + x + width // 2, top + y + height // 2)
        desktop.wait_for("done")
        self.assert_is_the_clip(shown)

    def test_a_press_on_another_monitor_says_on_which_one_recording_is_possible(self):
        line, background = "Recording is possible on HEADLESS-2 only. Drag there.", (24, 24, 27)
        self.canvas.show(0, AREA)
        desktop = self.start()
        desktop.begin()
        until(overlays, "the overlay is on the screen")
        self.assertNotIn(background, colors_of(self.seen(1)))
        self.user.click(300, 300)
        until(lambda: line in desktop.texts() and background in colors_of(self.seen(1)), "the line is there", limit=20)
        self.assertEqual(status()["phase"], "selecting")
        self.drag_area()
        desktop.wait_for("recording")
        shown = self.play(desktop)
        self.assertNotIn(line, desktop.texts())
        self.assertNotIn(background, colors_of(self.seen(1)))
        self.assertEqual(quillbox("stop").returncode, 0)
        self.assert_is_the_clip(shown)

    def record_with_the_panel_on(self, number):
        """Opens the panel twice on that output while it records. @return what was shown before, and meanwhile"""
        self.canvas.show(0, AREA)
        desktop = self.start()
        desktop.begin()
        self.drag_area()
        desktop.wait_for("recording")
        before = self.play(desktop, steps=1)
        meanwhile = []
        for step in (1, 2):
            run("swaymsg", "focus", "output", f"HEADLESS-{number}")
            desktop.open_panel()
            (place,) = until(lambda: places("Quillbox"), "the panel is a window")
            self.assertEqual(self.output_of(place), f"HEADLESS-{number}")
            meanwhile.append(self.canvas.show(step, AREA))
            desktop.wait_for_frames(status()["frameCount"] + 40)
            self.canvas.show(0, AREA)
            run("swaymsg", '[title="^Quillbox$"] kill')
            until(lambda: not places("Quillbox"), "the panel has gone")
            desktop.wait_for_frames(status()["frameCount"] + 12)
        self.assertEqual(quillbox("stop").returncode, 0)
        return before, meanwhile

    @staticmethod
    def output_of(place):
        """The output on which the top left corner of a window is."""
        for output in json.loads(run("swaymsg", "-r", "-t", "get_outputs").stdout):
            rect = output["rect"]
            if 0 <= place[0] - rect["x"] < rect["width"] and 0 <= place[1] - rect["y"] < rect["height"]:
                return output["name"]
        return None

    def test_the_clip_goes_on_while_the_panel_is_on_another_monitor(self):
        before, meanwhile = self.record_with_the_panel_on(1)
        self.assert_is_the_clip(before + meanwhile)

    def test_the_clip_shows_what_was_there_before_while_the_panel_is_on_the_monitor(self):
        before, meanwhile = self.record_with_the_panel_on(int(os.environ["CAST_OUTPUT"]))
        path = self.assert_is_the_clip(before)
        frames = [picture.tobytes() for picture, _ in pillow_frames(path)]
        self.assertEqual([picture.tobytes() in frames for picture in meanwhile], [False, False])

    def test_the_clip_goes_on_while_the_panel_is_beside_the_region(self):
        """Where it is moved after it has covered the region, and where it comes up."""
        move = "move position 820 60"
        self.canvas.show(0, AREA)
        desktop = self.start()
        desktop.begin()
        self.drag_area()
        desktop.wait_for("recording")
        shown = self.play(desktop, steps=1)
        for step in (1, 2):
            desktop.open_panel()
            until(lambda: places("Quillbox"), "the panel is a window")
            if step == 1:
                covered = self.canvas.show(3, AREA)
                desktop.wait_for_frames(status()["frameCount"] + 12)
                self.canvas.show(0, AREA)
                run("swaymsg", '[title="^Quillbox$"]', move)
                run("swaymsg", 'for_window [title="^Quillbox$"]', move)
            until(lambda: places("Quillbox")[0][0] == 820, "the panel is beside the region")
            shown.append(self.canvas.show(step, AREA))
            desktop.wait_for_frames(status()["frameCount"] + 40)
            run("swaymsg", '[title="^Quillbox$"] kill')
            until(lambda: not places("Quillbox"), "the panel has gone")
        self.assertEqual(quillbox("stop").returncode, 0)
        path = self.assert_is_the_clip(shown)
        self.assertFalse(covered.tobytes() in [picture.tobytes() for picture, _ in pillow_frames(path)])

    def test_a_key_of_the_compositors_starts_and_stops(self):
        self.canvas.show(0, AREA)
        desktop = self.start()
        toggle = f"exec {os.environ['QUILLBOX_PROGRAM']} toggle"
        self.assertEqual(run("swaymsg", "bindsym", "Mod4+Shift+2", toggle).returncode, 0)
        self.user.key("Logo+Shift+2")
        self.drag_area()
        desktop.wait_for("recording")
        shown = self.play(desktop)
        self.user.key("Logo+Shift+2")
        desktop.wait_for("done")
        self.assert_is_the_clip(shown)

    def test_what_a_key_of_the_compositors_starts_passes_the_focus_on(self):
        log = pathlib.Path(os.environ["HOME"], "protocol")
        with log.open("w", encoding="utf-8") as file:
            self.start(stderr=file, WAYLAND_DEBUG="1")
        for command, token in (("show", "first-token"), ("toggle", "second-token")):
            done = quillbox(command, env={**os.environ, "XDG_ACTIVATION_TOKEN": token})
            self.assertEqual(done.returncode, 0, done.stderr)
            until(lambda: re.search(f'xdg_activation_v1@.*activate."{token}"', log.read_text("utf-8")), "it is used")

    def test_escape_cancels_and_other_keys_do_not(self):
        self.canvas.show(0, AREA)
        desktop = self.start()
        desktop.begin()
        until(overlays, "the overlay is on the screen")
        self.user.key("a")
        self.user.key("Return")
        self.assertEqual(status()["phase"], "selecting")
        self.user.key("Escape")
        desktop.wait_for("idle")
        until(lambda: not overlays(), "the overlay has gone")

    def test_the_overlay_shows_the_desktop_dimmed(self):
        picture = self.canvas.step(0, AREA)
        self.canvas.show_picture(picture)
        desktop = self.start()
        self.user.move(660, 330)  # and the picture behind the overlay is without the pointer
        desktop.begin()
        until(overlays, "the overlay is on the screen")
        self.user.move(*AWAY)
        until(lambda: self.shows_dimmed_picture(picture, (620, 290, 720, 390)), "there is no pointer on it", limit=20)
        for x, y in ((600, 300), (20, 400), AREA[:2]):
            color = picture.getpixel((x * SCALE, y * SCALE))
            until(lambda: self.shows_dimmed(color, (x, y)), "the pixel is three quarters as bright")
        self.user.key("Escape")
        desktop.wait_for("idle")

    def seen(self, number=os.environ["CAST_OUTPUT"]):
        """A picture of an output, the cast one unless another is wanted, in its own pixels."""
        png = subprocess.run(["grim", "-o", f"HEADLESS-{number}", "-"], capture_output=True, timeout=60,
                             check=True).stdout
        return Image.open(io.BytesIO(png)).convert("RGB")

    def test_records_again_and_again_with_one_cast_at_a_time(self):
        self.canvas.show(0, AREA)
        desktop = self.start()
        for _ in range(3):
            desktop.begin()
            shown = self.record_and_stop_by_the_button(desktop)
            self.assert_is_the_clip(shown)
            until(lambda: casts() == 0, "the cast has ended")

    def test_says_in_the_panel_why_nothing_can_be_recorded(self):
        desktop = self.start(QUILLBOX_CAPTURE_BACKEND="none")
        desktop.begin()
        desktop.wait_for("failed")
        desktop.open_panel()
        self.assertTrue([text for text in desktop.texts() if "switched off by QUILLBOX_CAPTURE_BACKEND" in text])

    def test_a_refusal_ends_the_flow_without_a_word(self):
        desktop = self.start()
        desktop.begin()
        desktop.wait_for("idle")
        self.assertEqual(overlays(), [])

    def test_says_in_the_panel_that_the_screen_went_away_while_a_region_was_selected(self):
        self.canvas.show(0, AREA)
        desktop = self.start()
        desktop.begin()
        until(overlays, "the overlay is on the screen")
        self.assertEqual(casts(), 1)
        os.kill(int(os.environ["PORTAL_BACKEND_PID"]), signal.SIGKILL)
        until(lambda: casts() == 0, "the cast has ended")
        self.drag_area()
        desktop.wait_for("failed")
        self.assertEqual(overlays(), [])
        desktop.open_panel()
        message = status()["message"]
        self.assertEqual(message, "Couldn't start recording: The desktop no longer delivers the screen's pictures")
        until(lambda: message in desktop.texts(), "the panel says it")

    def test_the_tray_icon_opens_the_panel_beside_it(self):
        desktop = self.start()
        icon = until(lambda: icon_in(self.seen(), 0, bar_height()), "the icon is in the tray")
        beside = 1280 - GAP, bar_height() + GAP
        for _ in range(2):
            self.user.click(*icon)
            until(lambda: [corner_of(place) for place in places("Quillbox")] == [beside], "the panel is beside the icon",
                  limit=20)
            until(desktop.panel, "its widgets are there")
            self.keep_screenshot("panel-tray")
            self.user.click(*icon)
            until(lambda: not places("Quillbox"), "the panel has gone")
        desktop.open_panel()
        (place,) = until(lambda: places("Quillbox"), "the panel is a window")
        self.assertLess(corner_of(place)[0], 1000, "nobody clicked on the icon")

    def test_opens_as_a_window_where_there_is_no_tray(self):
        desktop = self.start()
        until(desktop.panel, "the panel is open")  # nobody asked for it
        self.assertEqual(len(places("Quillbox")), 1)
        self.keep_screenshot("panel-window")

    def test_another_start_shows_the_panel_where_there_is_no_tray(self):
        desktop = self.start()
        until(desktop.panel, "the panel is open")
        run("swaymsg", '[title="^Quillbox$"] kill')
        until(lambda: not places("Quillbox") and not desktop.panel(), "the user has closed it")
        self.assertEqual(quillbox().returncode, 0)
        until(desktop.panel, "the panel is open again")
        self.assertEqual(len(places("Quillbox")), 1)


if __name__ == "__main__":
    unittest.main()
