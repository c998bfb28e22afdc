#!/usr/bin/python3
"""The desktop application on a real X server, used as a person uses it. Run by CTest, one test a session."""

import itertools
import json
import os
import pathlib
import subprocess
import unittest

from application import has_said, overlay, phase, program, quillbox, run, status, until, windows, xdo
from desktop import Desktop, clipboard, take_hotkey, without_pointer
from recording import ffmpeg_frames, pillow_frames
from running import ApplicationTest, extents
from screen import BLOCKS, DESKTOP, INK, PAPER, Screen

AREA = (301, 257, 322, 238)
AROUND = (AREA[0] - 3, AREA[1] - 3, AREA[2] + 6, AREA[3] + 6)
FRAME = (224, 52, 60)
COMPOSITORS_DESKTOP = (132, 132, 132)  # picom paints the desktop itself where nobody has set a picture
KNOWN_COLORS = {DESKTOP, COMPOSITORS_DESKTOP, PAPER, INK, *BLOCKS}
HISTORY = pathlib.Path(os.environ["XDG_DATA_HOME"], "Quillbox/history.json")
BY_CONVENTION = {"TARGETS", "MULTIPLE", "TIMESTAMP", "SAVE_TARGETS"}  # what every owner of a selection offers
CLIPS = pathlib.Path(os.environ["HOME"], "Videos/Quillbox")
TAKEN = ("Press “Record Region”, not ⌘⇧2. Another program uses Super + Shift + 2. Quillbox gets it as soon as it is free; "
         "“quillbox toggle” can be bound to any other key.")


class DesktopTest(ApplicationTest):
    Application = Desktop

    def setUp(self):
        self.pointer = without_pointer()
        self.screen = Screen(*AREA)
        self.screen.show(1)

    def run_beside(self, *command, **options):
        """Starts another program, which ends with the test."""
        other = subprocess.Popen(command, stderr=subprocess.DEVNULL, text=True, **options)
        self.addCleanup(other.wait)
        self.addCleanup(other.kill)
        return other

    def play_and_wait(self, desktop, steps=3):
        """Shows the steps while it records; the pictures that the server showed."""
        shown = []
        for step in range(steps):
            self.screen.show(step)
            shown.append(self.screen.picture(*AREA))
            desktop.wait_for_frames(status()["frameCount"] + 12)
        return shown

    def assert_shows_only_what_was_there(self, path):
        """No pixel of an overlay or a panel, in no frame."""
        for picture, _ in pillow_frames(path):
            colors = {color for _, color in picture.getcolors(maxcolors=1 << 20)}
            self.assertLessEqual(colors, KNOWN_COLORS)

    def assert_is_a_finished_clip(self, desktop, area):
        now = status()
        self.assertEqual(now["phase"], "done", now)
        path = pathlib.Path(now["path"])
        data = path.read_bytes()
        self.assertEqual(path.parent, CLIPS)
        self.assertRegex(path.name, r"^Quillbox \d{4}-\d\d-\d\d at \d\d\.\d\d\.\d\d\.gif$")
        self.assertEqual(len(data), now["byteCount"])
        frames = [picture for picture, _ in pillow_frames(path)]
        self.assertEqual(frames[0].size, area[2:])
        others = ffmpeg_frames(path, frames[0].size)
        self.assertTrue([f.tobytes() for f in frames] == [f.tobytes() for f in others], "two decoders agree")
        self.assert_shows_only_what_was_there(path)
        entry = json.loads(HISTORY.read_text())[0]
        self.assertEqual((entry["format"], entry["preset"], entry["outputPath"], entry["byteCount"], entry["width"],
                          entry["height"]), ("GIF", "Slack", str(path), len(data), area[2], area[3]))
        self.assertEqual(clipboard("text/uri-list").decode().strip(), path.as_uri())
        self.assertEqual(clipboard("image/gif"), data)
        targets = clipboard("TARGETS").decode().split()
        self.assertEqual([target for target in targets if target not in BY_CONVENTION], ["text/uri-list", "image/gif"])
        return path, frames

    def test_records_by_hotkey_and_stops_by_the_button(self):
        desktop = self.start()
        self.run_beside("xterm", "-geometry", "20x5+900+500")
        until(lambda: xdo("search", "--onlyvisible", "--class", "xterm"), "xterm is there")
        xdo("mousemove", 950, 540, "click", 1)
        desktop.press_hotkey()
        desktop.wait_for_overlay()
        self.assertEqual(phase(), "selecting")
        xdo("mousemove", AREA[0], AREA[1], "mousedown", 1, "mousemove", 450, 400)
        self.keep_screenshot("overlay")
        xdo("mousemove", AREA[0] + AREA[2], AREA[1] + AREA[3], "mouseup", 1, "mousemove", 5, 700)
        desktop.wait_for("recording")
        shown = self.play_and_wait(desktop)
        desktop.open_panel()
        self.assertIn("Recording…", desktop.texts())
        self.keep_screenshot("panel-recording")
        desktop.click("push button", "Stop & Copy")
        desktop.wait_for("done")
        path, frames = self.assert_is_a_finished_clip(desktop, AREA)
        recorded = {frame.tobytes() for frame in frames}
        self.assertTrue(all(picture.tobytes() in recorded for picture in shown), "each step of the animation is in it")
        until(lambda: path.name in desktop.texts(), "the clip is in the list")
        self.assertTrue([t for t in desktop.texts() if t.startswith("Copied — ") and t.endswith(path.name)])
        self.keep_screenshot("panel-done")

    def test_follows_the_hotkey_whatever_is_locked(self):
        desktop = self.start()
        for locks in ([], ["Num_Lock"], ["Caps_Lock"], ["Num_Lock", "Caps_Lock"]):
            for lock in locks:
                xdo("key", lock)
            desktop.press_hotkey()
            desktop.wait_for_overlay()
            xdo("key", "Escape")
            desktop.wait_for("idle")
            for lock in locks:
                xdo("key", lock)

    def test_follows_the_physical_key_under_another_layout(self):
        desktop = self.start()
        subprocess.run(["setxkbmap", "fr"], check=True, timeout=60)
        xdo("keydown", 133, "keydown", 50, "key", 11, "keyup", 50, "keyup", 133)
        desktop.wait_for_overlay()

    def test_says_so_when_another_program_holds_the_hotkey(self):
        other = take_hotkey()
        desktop = self.start()
        desktop.open_panel()
        self.assertIn(TAKEN, desktop.texts())
        self.keep_screenshot("panel-hotkey-taken")
        other.close()
        desktop.open_panel()  # which asks for it again
        until(lambda: TAKEN not in desktop.texts(), "it is free, and the panel knows")
        xdo("key", "Escape")
        until(lambda: not desktop.panel(), "the panel is closed")
        desktop.press_hotkey()
        desktop.wait_for_overlay()

    def test_a_recording_that_finds_no_room_ends_by_itself_and_says_so(self):
        notices = self.run_beside("dbus-monitor", "--session", "type='method_call',member='Notify'",
                                  stdout=subprocess.PIPE)
        notices.stdout.readline()  # it listens
        desktop = self.start(QUILLBOX_RECORDING_MEMORY="0", XDG_CACHE_HOME="/proc")
        desktop.begin()
        desktop.drag(*AREA)
        steps = itertools.cycle(range(7))
        until(lambda: self.screen.show(next(steps)) or phase() == "done", "it ends while the screen changes")
        self.assert_is_a_finished_clip(desktop, AREA)
        wanted = ("The recording ended early", "A long clip needs a file in /proc/Quillbox: ")
        for text in wanted:
            while text not in (line := notices.stdout.readline()):
                self.assertTrue(line, f"it says: {text}")

    def around(self):
        """What the server shows of the region and its surroundings, once the compositor has drawn the first step."""
        left, top, color = self.screen.block(1)
        until(lambda: self.screen.picture(*AROUND).getpixel((left + 4, top + 4)) == color, "the step", limit=20)
        return self.screen.picture(*AROUND).tobytes()

    def test_frames_the_region_while_it_records_and_keeps_the_frame_out_of_the_clip(self):
        _, _, width, height = AREA
        before = self.around()
        desktop = self.start()
        desktop.record(*AREA)
        self.play_and_wait(desktop)
        now = self.screen.picture(*AROUND)
        for place in ((1, height // 2), (width + 4, height // 2), (width // 2, 1), (width // 2, height + 4)):
            self.assertEqual(now.getpixel(place), FRAME)
        self.keep_screenshot("recording")
        self.assertEqual(quillbox("stop").returncode, 0)
        self.assert_is_a_finished_clip(desktop, AREA)
        self.screen.show(1)
        until(lambda: self.screen.picture(*AROUND).tobytes() == before, "the frame is gone", limit=20)

    def test_leaves_no_frame_behind_when_it_is_killed(self):
        desktop = self.start()
        before = self.around()
        desktop.record(*AREA)
        until(lambda: self.screen.picture(*AROUND).getpixel((1, 1)) == FRAME, "there is a frame", limit=20)
        desktop.process.kill()
        until(lambda: self.screen.picture(*AROUND).tobytes() == before, "the frame is gone", limit=20)

    def test_ignores_the_hotkey_while_recording(self):
        desktop = self.start()
        desktop.record(*AREA)
        desktop.press_hotkey()
        desktop.wait_for_frames(status()["frameCount"] + 5)
        self.assertEqual(phase(), "recording")
        self.assertFalse(overlay())

    def test_escape_cancels_and_other_keys_do_not(self):
        desktop = self.start()
        desktop.begin()
        desktop.wait_for_overlay()
        for key in ("a", "Return", "Tab", "space"):
            xdo("key", key)
        self.assertEqual(phase(), "selecting")
        self.run_beside("xterm", "-geometry", "20x5+900+500")
        (other, *_) = until(lambda: xdo("search", "--onlyvisible", "--class", "xterm"), "xterm is there")
        xdo("windowfocus", "--sync", other)
        xdo("key", "Escape")
        desktop.wait_for("idle")
        self.assertFalse(overlay())
        desktop.record(*AREA)  # and a new flow works

    def test_too_small_a_drag_cancels(self):
        desktop = self.start()
        desktop.begin()
        desktop.drag(400, 300, 4, 100)
        desktop.wait_for("idle")
        self.assertFalse(CLIPS.exists())

    def test_a_drag_from_the_other_corner_records_the_same_region(self):
        desktop = self.start()
        desktop.begin()
        desktop.drag(AREA[0] + AREA[2], AREA[1] + AREA[3], -AREA[2], -AREA[3])
        desktop.wait_for("recording")
        self.play_and_wait(desktop, 1)
        self.assertEqual(quillbox("stop").returncode, 0)
        self.assert_is_a_finished_clip(desktop, AREA)

    def test_starts_again_after_a_clip(self):
        desktop = self.start()
        for _ in range(2):
            desktop.record(*AREA)
            self.play_and_wait(desktop, 1)
            self.assertEqual(quillbox("toggle").returncode, 0)
            self.assert_is_a_finished_clip(desktop, AREA)
        self.assertEqual(len(json.loads(HISTORY.read_text())), 2)

    def test_keeps_its_panel_out_of_the_clip(self):
        desktop = self.start()
        width, height = 500, 420  # the corner where the panel opens
        corner = self.screen.root.get_geometry().width - 1 - width  # as far as the pointer gets
        desktop.record(corner, 30, width, height)
        desktop.wait_for_frames(10)
        desktop.open_panel()
        desktop.wait_for_frames(status()["frameCount"] + 10)
        xdo("key", "Escape")
        until(lambda: not desktop.panel(), "the panel is closed")
        desktop.wait_for_frames(status()["frameCount"] + 10)
        desktop.open_panel()
        desktop.click("push button", "Stop & Copy")
        desktop.wait_for("done")
        self.assert_is_a_finished_clip(desktop, (corner, 30, width, height))

    def test_shows_why_a_recording_does_not_start_and_can_begin_again(self):
        desktop = self.start(QUILLBOX_CAPTURE_BACKEND="none")
        desktop.begin()
        desktop.wait_for("failed")
        message = "Couldn't start recording: Screen capture is switched off by QUILLBOX_CAPTURE_BACKEND"
        self.assertEqual(status()["message"], message)
        desktop.open_panel()
        self.assertIn(message, desktop.texts())
        self.keep_screenshot("panel-failed")
        desktop.click("push button", "Record Region")
        until(lambda: not desktop.panel(), "the panel makes room for another try")

    def test_shows_why_a_clip_cannot_be_saved(self):
        CLIPS.parent.write_text("a file in the way")
        desktop = self.start()
        desktop.record(*AREA)
        done = quillbox("stop")
        self.assertEqual(done.returncode, 1)
        self.assertIn("Couldn't save clip: ", done.stderr)
        self.assertIn(str(CLIPS), done.stderr)
        self.assertEqual(done.stderr.count("\n"), 1)

    def blink(self, desktop, count=8):
        """Changes so few pixels so often that only a precise clip shows it each time."""
        for step in range(count):
            self.screen.dot(step)
            desktop.wait_for_frames(status()["frameCount"] + 3)

    def test_keeps_every_change_when_the_panel_says_so_now_and_after_a_restart(self):
        desktop = self.start()
        desktop.open_panel()
        desktop.click("check box", "Keep every change")
        until(lambda: desktop.is_checked("Keep every change"), "it is on")
        xdo("key", "Escape")
        for _ in range(2):
            desktop.record(*AREA)
            self.blink(desktop)
            self.assertEqual(quillbox("stop").returncode, 0)
            _, frames = self.assert_is_a_finished_clip(desktop, AREA)
            self.assertGreaterEqual(len(frames), 8)
            desktop.__exit__()
            desktop = self.start()
        desktop.open_panel()
        self.assertTrue(desktop.is_checked("Keep every change"))
        self.keep_screenshot("panel-every-change")

    def test_makes_a_clip_sharper_that_lacks_pictures_and_keeps_both(self):
        desktop = self.start()
        desktop.record(*AREA)
        self.blink(desktop)
        self.assertEqual(quillbox("stop").returncode, 0)
        first, frames = self.assert_is_a_finished_clip(desktop, AREA)
        self.assertLess(len(frames), 8)
        desktop.open_panel()
        until(lambda: [text for text in desktop.texts() if " of 2.0 MB · shows " in text], "it says what is missing")
        self.keep_screenshot("panel-lacks-pictures")
        desktop.click("push button", "Make it sharper")
        until(lambda: (now := status())["phase"] == "done" and now["path"] != str(first), "another clip")
        second, frames = self.assert_is_a_finished_clip(desktop, AREA)
        self.assertGreaterEqual(len(frames), 8)
        self.assertTrue(first.exists())
        self.assertEqual([entry["outputPath"] for entry in json.loads(HISTORY.read_text())], [str(second), str(first)])
        until(lambda: {first.name, second.name} <= set(desktop.texts()), "both are in the list")
        self.assertIsNone(desktop.find("push button", "Make it sharper"))

    def test_makes_a_clip_again_for_another_preset(self):
        desktop = self.start()
        desktop.record(*AREA)
        self.play_and_wait(desktop, 2)
        self.assertEqual(quillbox("stop").returncode, 0)
        desktop.open_panel()
        desktop.click("radio button", "Docs")
        desktop.click("push button", "Again as Docs")
        until(lambda: len(json.loads(HISTORY.read_text())) == 2 and phase() == "done", "another clip")
        self.assertEqual([entry["preset"] for entry in json.loads(HISTORY.read_text())], ["Docs", "Slack"])
        until(lambda: desktop.find("push button", "Make it sharper"), "it may be made sharper")

    def test_tries_again_once_the_clips_folder_can_be_written_to(self):
        CLIPS.parent.write_text("a file in the way")
        desktop = self.start()
        desktop.record(*AREA)
        self.play_and_wait(desktop, 2)
        self.assertEqual(quillbox("stop").returncode, 1)
        desktop.open_panel()
        self.keep_screenshot("panel-not-saved")
        self.assertTrue(desktop.find("push button", "Save elsewhere…"))
        CLIPS.parent.unlink()
        desktop.click("push button", "Try again")
        desktop.wait_for("done")
        self.assert_is_a_finished_clip(desktop, AREA)

    def test_saves_a_clip_elsewhere_that_could_not_be_saved(self):
        CLIPS.parent.write_text("a file in the way")
        desktop = self.start()
        desktop.record(*AREA)
        self.assertEqual(quillbox("stop").returncode, 1)
        desktop.open_panel()
        desktop.click("push button", "Save elsewhere…")
        until(lambda: windows("Save Clip — Quillbox"), "the question where")
        elsewhere = pathlib.Path(os.environ["HOME"], "elsewhere.gif")
        xdo("windowfocus", "--sync", windows("Save Clip — Quillbox")[0])
        xdo("key", "ctrl+a", "type", str(elsewhere))
        xdo("key", "Return")
        desktop.wait_for("done")
        self.assertEqual(status()["path"], str(elsewhere))
        self.assertEqual(clipboard("image/gif"), elsewhere.read_bytes())
        until(desktop.panel, "the panel shows it")

    def test_the_command_line_makes_another_clip_of_the_recording(self):
        desktop = self.start()
        nothing = quillbox("again")
        self.assertEqual((nothing.returncode, nothing.stderr),
                         (1, "quillbox: Nothing has been recorded since Quillbox was started\n"))
        self.assertEqual(quillbox("begin", "--precise").returncode, 0)
        desktop.drag(*AREA)
        desktop.wait_for("recording")
        busy = quillbox("again")
        self.assertEqual((busy.returncode, busy.stderr), (1, "quillbox: A clip is being made already\n"))
        self.blink(desktop)
        self.assertEqual(quillbox("stop").returncode, 0)
        first, frames = self.assert_is_a_finished_clip(desktop, AREA)
        self.assertGreaterEqual(len(frames), 8)
        again = quillbox("again", "--preset", "docs", "--json")
        self.assertEqual(again.returncode, 0, again.stderr)
        second = json.loads(again.stdout)
        self.assertEqual(second, status())
        self.assertNotEqual(second["path"], str(first))
        self.assertGreaterEqual(len(pillow_frames(second["path"])), 8, "as precise as the one before")
        self.assertEqual([entry["preset"] for entry in json.loads(HISTORY.read_text())], ["Docs", "Slack"])
        desktop.record(*AREA)  # one that is not precise: the wish was for one clip
        self.blink(desktop)
        self.assertEqual(quillbox("stop").returncode, 0)
        self.assertLess(len(pillow_frames(status()["path"])), 8)
        self.assertEqual(quillbox("again", "--precise").returncode, 0)
        self.assertGreaterEqual(len(pillow_frames(status()["path"])), 8)

    def test_keeps_a_corrupt_history_aside(self):
        HISTORY.parent.mkdir(parents=True)
        HISTORY.write_text("[{]")
        desktop = self.start()
        self.assertEqual(HISTORY.with_name("history.corrupt.json").read_text(), "[{]")
        desktop.open_panel()
        self.assertIn("No clips yet", desktop.texts())
        self.keep_screenshot("panel-empty")

    def test_a_second_start_shows_the_first_one(self):
        desktop = self.start()
        self.assertFalse(desktop.panel())
        second = quillbox()
        self.assertEqual((second.returncode, second.stderr), (0, ""))
        until(desktop.panel, "the panel is open")

    def test_the_panel_closes_when_another_window_becomes_active(self):
        desktop = self.start()
        desktop.open_panel()
        self.run_beside("xterm", "-geometry", "20x5+100+500")
        until(lambda: not desktop.panel(), "the panel is closed")

    def test_quits_while_recording(self):
        desktop = self.start()
        desktop.record(*AREA)
        self.assertEqual(quillbox("quit").returncode, 0)
        self.assertEqual(desktop.process.wait(60), 0)
        self.assertEqual(quillbox("status").stderr, "quillbox: Quillbox is not running; start it with quillbox\n")

    def test_the_panels_buttons_clear_the_list_and_open_the_settings(self):
        desktop = self.start()
        desktop.record(*AREA)
        self.play_and_wait(desktop, 1)
        self.assertEqual(quillbox("stop").returncode, 0)
        desktop.open_panel()
        desktop.click("push button", "Clear")
        until(lambda: "No clips yet" in desktop.texts(), "the list is empty")
        self.assertEqual(json.loads(HISTORY.read_text()), [])
        self.assertEqual(len(list(CLIPS.iterdir())), 1, "the clip itself stays")
        desktop.click("push button", "Settings")
        until(lambda: "Everything stays on your Mac. No cloud, no telemetry, no account." in desktop.texts(), "settings")
        self.keep_screenshot("settings")

    def test_a_clip_can_be_dragged_into_another_program(self):
        target = self.run_beside("/usr/bin/python3", pathlib.Path(__file__).with_name("drop_target.py"),
                                 "100", "500", "200", "100", stdout=subprocess.PIPE)
        self.addCleanup(target.stdout.close)
        self.assertEqual(target.stdout.readline(), "ready\n")
        desktop = self.start()
        desktop.record(*AREA)
        self.play_and_wait(desktop, 1)
        self.assertEqual(quillbox("stop").returncode, 0)
        path = pathlib.Path(status()["path"])
        desktop.open_panel()
        until(lambda: path.name in desktop.texts(), "the clip is in the list")
        x, y, width, height = extents(desktop.find("label", path.name))
        xdo("mousemove", x + width // 2, y + height // 2, "mousedown", 1)
        xdo("mousemove", x + width // 2 - 30, y + height // 2 + 30)
        places = itertools.cycle((250, 200))
        until(lambda: xdo("mousemove", next(places), 550) or has_said(target), "it is over the other program")
        self.assertEqual(target.stdout.readline(), "over\n")
        xdo("mouseup", 1)
        until(lambda: has_said(target), "it is dropped there")
        *offered, uri = target.stdout.readline().split()
        self.assertEqual((offered[0], uri), ("text/uri-list", path.as_uri()))
        self.assertTrue(path.exists(), "it is copied, not moved")

    def test_reveals_a_clip_through_the_file_manager(self):
        name = "org.freedesktop.FileManager1"
        manager = self.run_beside("/usr/bin/python3", "-m", "dbusmock", "--session", name,
                                  "/org/freedesktop/FileManager1", name, stdout=subprocess.PIPE)
        self.addCleanup(manager.stdout.close)
        call = ["gdbus", "call", "--session", "--dest", name, "--object-path", "/org/freedesktop/FileManager1",
                "--method", "org.freedesktop.DBus.Mock.AddMethod", "", "ShowItems", "ass", "", ""]
        until(lambda: run(*call).returncode == 0, "a file manager")
        desktop = self.start()
        desktop.record(*AREA)
        self.play_and_wait(desktop, 1)
        self.assertEqual(quillbox("stop").returncode, 0)
        desktop.open_panel()
        desktop.click("push button", "Reveal in Finder")
        line = next(line for line in manager.stdout if " ShowItems " in line)
        self.assertIn(pathlib.Path(status()["path"]).as_uri(), line)

    def test_the_command_line_selects_with_the_overlay(self):
        with subprocess.Popen([program(), "record", "--select", "--duration", "0.5", "--json"],
                              stdout=subprocess.PIPE, text=True) as record:
            until(overlay, "the overlay")
            xdo("mousemove", AREA[0], AREA[1], "mousedown", 1, "mousemove", AREA[0] + AREA[2], AREA[1] + AREA[3])
            xdo("mouseup", 1, "mousemove", 5, 700)
            result = json.loads(record.stdout.read())
        self.assertEqual((result["width"], result["height"]), AREA[2:])
        self.assert_shows_only_what_was_there(result["output"])

    def test_the_command_line_copies_through_the_running_application(self):
        self.start()
        gif = os.path.join(os.environ["HOME"], "copied.gif")
        done = quillbox("record", "--region", "301,257,322x238", "--duration", "0.2", "--copy", "-o", gif)
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertEqual(clipboard("image/gif"), pathlib.Path(gif).read_bytes())

    def test_the_command_line_keeps_a_copy_until_another_program_copies(self):
        gif = os.path.join(os.environ["HOME"], "copied.gif")
        with subprocess.Popen([program(), "record", "--region", "301,257,322x238", "--duration",
                               "0.2", "--copy", "-o", gif], stderr=subprocess.PIPE, text=True) as record:
            try:
                self.assertIn("the clip stays on the clipboard", record.stderr.readline())
                self.assertEqual(clipboard("image/gif"), pathlib.Path(gif).read_bytes())
                subprocess.run(["xclip", "-selection", "clipboard"], input=b"other", timeout=60, check=True)
                self.assertEqual(record.wait(60), 0)
            finally:
                record.kill()


if __name__ == "__main__":
    unittest.main()
