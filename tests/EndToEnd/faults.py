"""What can go wrong around a recording, for tools/torture: every fault is a method that makes one recording of numbered
pictures, lets the fault happen, and returns how many of the pictures are lost. For use inside tests/desktop/x11-session.

A round uses the application that an earlier one has left running, and leaves one running if it can.
"""

import contextlib
import json
import os
import pathlib
import resource
import shutil
import signal
import subprocess
import tempfile
import time

from application import overlay, phase, program, quillbox, status, until, xdo
from desktop import without_pointer
from machine_faults import Wrong, fill, read_only, resize_screen, restart_bus, small_disk
from recording import Recording, pillow_frames
from screen import Screen

AREA = (301, 257, 322, 238)
REGION = "301,257,322x238"
SMALL_FILES = 200  # bytes: every clip is larger
HOME = pathlib.Path(os.environ["HOME"])
CLIPS = HOME / "Videos/Quillbox"
CACHE = pathlib.Path(os.environ["XDG_CACHE_HOME"], "Quillbox")
DATA = pathlib.Path(os.environ["XDG_DATA_HOME"], "Quillbox")
HISTORY = DATA / "history.json"


def pictures_of(path):
    return {picture.tobytes() for picture, _ in pillow_frames(str(path))}


def clips():
    return sorted(CLIPS.glob("*.gif"))


class Round:
    """One recording of numbered pictures, and what happens to it."""

    def __init__(self, chance, process=None):
        self.random = chance
        self.process = process
        self.pointer = without_pointer()
        self.screen = Screen(*AREA)
        self.screen.show(0)
        self.shown = []  # (when the program had it, the picture)
        self.step = self.random.randrange(1000)
        self.output = pathlib.Path(tempfile.mkdtemp(), "clip.gif")

    def close(self):
        """The screen as it was before."""
        for server in (self.screen.display, self.pointer):
            with contextlib.suppress(Exception):  # it may have been killed
                server.close()
        shutil.rmtree(self.output.parent, ignore_errors=True)

    def play(self, steps):
        for _ in range(steps):
            self.step += 1
            self.screen.show(self.step)
            picture = self.screen.picture(*AREA).tobytes()
            self.wait_for_frames(3)
            self.shown.append((time.monotonic(), picture))
            time.sleep(self.random.choice((0, 0.05, 0.3)))

    def linger(self):
        """Waits a moment, or so long that all that was shown must be on disk."""
        time.sleep(self.random.choice((0, 1, 2.5, 4)))

    def lost(self, files, before=float("inf")):
        """@return how many of the pictures that were recorded by then are in none of the files"""
        found = set().union(*(pictures_of(file) for file in files)) if files else set()
        return sum(1 for when, picture in self.shown if when <= before and picture not in found)

    def recover(self):
        """The clips of what was cut off."""
        entries = json.loads(quillbox("recover", "--list", "--json").stdout)
        if not entries:
            return []
        recovered = self.output.with_name("recovered.gif")
        done = quillbox("recover", "--precise", "--preset", "docs", "-o", recovered)
        if done.returncode != 0:
            raise Wrong(f"nothing could be recovered: {done.stderr}")
        return [recovered]


class Application(Round):
    """A recording of the application on the desktop."""

    def start(self):
        """Unless it runs."""
        if self.process is not None and self.process.poll() is None:
            return
        DATA.mkdir(parents=True, exist_ok=True)
        (DATA / "first-use").write_text("introduced\n")
        self.process = subprocess.Popen([program()], stdin=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        until(status, "the application answers")

    def begin(self):
        done = quillbox("begin", "--precise")
        if done.returncode != 0:
            raise Wrong(f"it does not begin: {done.stderr}")

    def drag(self):
        until(overlay, "the overlay is there")
        left, top, width, height = AREA
        xdo("mousemove", left, top, "mousedown", 1)
        xdo("mousemove", left + width // 2, top + height // 2)
        xdo("mousemove", left + width, top + height, "mouseup", 1, "mousemove", 5, 500)
        until(lambda: phase() == "recording", "it records")

    def wait_for_frames(self, count):
        goal = status().get("frameCount", 0) + count
        until(lambda: status().get("frameCount", 0) >= goal, "it goes on recording")

    def record(self):
        self.start()
        self.begin()
        self.drag()
        self.play(self.random.randint(2, 8))

    def kill(self):
        """@return when it was killed"""
        self.process.kill()
        moment = time.monotonic()
        self.process.wait()
        return moment

    def stop(self):
        """Ends the recording. @return what the application then says of itself"""
        quillbox("stop")
        until(lambda: status()["phase"] in ("done", "failed"), "it ends")
        return status()

    def stop_meanwhile(self):
        """Ends the recording without waiting for the clip."""
        subprocess.Popen([program(), "stop"], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def end(self):
        quillbox("quit")
        if self.process.wait(60) != 0:
            raise Wrong("it ends with an error")

    def done(self, is_listed=True):
        ended = self.stop()
        if ended["phase"] != "done":
            raise Wrong(f"it failed: {ended}")
        if is_listed and ended["path"] not in [entry.get("outputPath") for entry in json.loads(HISTORY.read_text())]:
            raise Wrong("the history does not know the clip")
        return self.lost(clips())

    def fails_then_succeeds(self, mend):
        """It can't save the clip until `mend` is called."""
        if self.stop()["phase"] != "failed":
            raise Wrong("a clip where none can be")
        if clips():
            raise Wrong("half a clip is left")
        if self.random.random() < 0.5 and quillbox("again").returncode == 0:
            raise Wrong("a clip where none can be, the second time")
        mend()
        if quillbox("again").returncode != 0 or status()["phase"] != "done":
            raise Wrong("no second try")
        return self.lost(clips())

    # The faults

    def nothing(self):
        self.record()
        return self.done()

    def starts_twice(self):
        """One of two that start at the same moment goes on."""
        self.start()
        self.end()
        both = [subprocess.Popen([program()], stdin=subprocess.DEVNULL, stderr=subprocess.DEVNULL) for _ in range(2)]
        ended = until(lambda: [one for one in both if one.poll() is not None], "one of the two gives way")
        if len(ended) != 1 or ended[0].returncode != 0:
            raise Wrong("both of two that started at the same moment ended")
        self.process = next(one for one in both if one not in ended)
        self.record()
        return self.done()

    def killed_while_selecting(self):
        """Before, during or after the drag; the next start is not hindered by it."""
        self.start()
        self.begin()
        moment = self.random.choice(("at once", "shown", "dragging", "released"))
        if moment != "at once":
            until(overlay, "the overlay is there")
        if moment in ("dragging", "released"):
            xdo("mousemove", AREA[0], AREA[1], "mousedown", 1, "mousemove", AREA[0] + 99, AREA[1] + 99)
        if moment == "released":
            xdo("mouseup", 1)
        self.kill()
        xdo("mouseup", 1, "mousemove", 5, 500)
        until(lambda: not overlay(), "the overlay has gone")
        quillbox("recover", "--discard")  # what came between the drag's end and the kill is nobody's
        self.record()
        return self.done()

    def killed(self):
        self.record()
        self.linger()
        moment = self.kill()
        return self.lost(self.recover(), moment - 2)

    def killed_then_another_records(self):
        """The next start records, too, before anybody recovers what was cut off."""
        self.record()
        self.linger()
        moment = self.kill()
        first, self.shown = self.shown, []
        self.record()
        lost = self.done()
        self.shown = first + self.shown
        return lost + self.lost(self.recover() + clips(), moment - 2)

    def killed_while_processing(self):
        self.record()
        self.linger()
        self.stop_meanwhile()
        time.sleep(self.random.random() * 0.5)
        return self.lost_by_kill()

    def killed_while_saving(self):
        """As soon as the clip can be seen."""
        self.record()
        self.stop_meanwhile()
        end = time.monotonic() + 60
        while not (CLIPS.is_dir() and any(CLIPS.iterdir())) and time.monotonic() < end:
            pass
        return self.lost_by_kill()

    def lost_by_kill(self):
        moment = self.kill()
        if not clips():
            return self.lost(self.recover(), moment - 2)
        quillbox("recover", "--discard")  # it had no time to remove what it no longer needed
        return self.lost(clips())

    def stopped(self):
        """As by suspend and resume."""
        self.record()
        self.process.send_signal(signal.SIGSTOP)
        time.sleep(self.random.choice((0.5, 2, 5, 5, 60)))
        self.process.send_signal(signal.SIGCONT)
        self.play(3)
        return self.done()

    def no_large_files(self):
        self.record()
        limit = resource.RLIMIT_FSIZE
        resource.prlimit(self.process.pid, limit, (SMALL_FILES, resource.RLIM_INFINITY))
        return self.fails_then_succeeds(
            lambda: resource.prlimit(self.process.pid, limit, (resource.RLIM_INFINITY, resource.RLIM_INFINITY)))

    def full_disk_for_clips(self):
        self.start()
        with small_disk(CLIPS):
            filler = fill(CLIPS)
            self.record()
            return self.fails_then_succeeds(filler.unlink)

    def full_disk_for_everything_else(self):
        """The journal, the spilled pictures and the history have no room, from some moment on."""
        self.start()
        with small_disk(CACHE), small_disk(DATA):
            if self.random.random() < 0.5:
                fill(CACHE)
            self.record()
            fillers = [fill(CACHE), fill(DATA)]
            self.play(2)
            lost = self.done(is_listed=False)
            for filler in fillers:
                filler.unlink()
        return lost

    def read_only_clips(self):
        self.start()
        with contextlib.ExitStack() as mounted:
            mounted.enter_context(read_only(CLIPS))
            self.record()
            return self.fails_then_succeeds(mounted.close)

    def read_only_home(self):
        """Only the clips can be written."""
        self.start()
        with read_only(CACHE, DATA):
            self.record()
            return self.done(is_listed=False)

    def folder_vanishes(self):
        self.record()
        shutil.rmtree(CLIPS, ignore_errors=True)
        return self.done()

    def folder_in_the_way(self):
        self.start()
        shutil.rmtree(CLIPS, ignore_errors=True)
        CLIPS.parent.mkdir(parents=True, exist_ok=True)
        CLIPS.write_text("in the way")
        self.record()
        return self.fails_then_succeeds(CLIPS.unlink)

    def clipboard_taken(self):
        self.record()
        thief = subprocess.Popen(["/bin/sh", "-c", "while :; do echo mine | xclip -selection clipboard; done"],
                                 start_new_session=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        try:
            return self.done()
        finally:
            os.killpg(thief.pid, signal.SIGKILL)
            thief.wait()

    def bus_restarted(self):
        """In some phase."""
        self.start()
        when = self.random.choice(("idle", "recording", "processing"))
        if when == "idle":
            restart_bus()
            until(status, "the application answers again")
        self.record()
        if when == "processing":
            self.stop_meanwhile()
            time.sleep(self.random.random() * 0.3)
        if when != "idle":
            restart_bus()
            until(status, "the application answers again")
        if phase() == "recording":
            self.play(2)
            return self.done()
        until(lambda: phase() == "done", "the clip is made")
        return self.lost(clips())

    def screen_changes(self):
        """It gets smaller and larger again, while a region is selected or recorded; the region stays on it."""
        self.start()
        self.begin()
        if self.random.random() < 0.5:
            until(overlay, "the overlay is there")
            resize_screen(self.random.choice((0, 0.2)))
        if phase() != "selecting":  # the change may end the selection
            self.begin()
        self.drag()
        self.play(3)
        resize_screen(self.random.choice((0, 0.2)))
        self.play(2)
        return self.done()

    def quits(self):
        """Told to quit, by one road or another, in some phase."""
        self.start()
        phase_then = self.random.choice(("idle", "selecting", "recording", "processing"))
        if phase_then == "selecting":
            self.begin()
        elif phase_then != "idle":
            self.record()
        if phase_then == "processing":
            self.stop_meanwhile()
            time.sleep(self.random.random() * 0.3)
        road = self.random.choice(("quit", signal.SIGTERM, signal.SIGHUP, signal.SIGINT))
        if road == "quit":
            quillbox("quit")
        else:
            self.process.send_signal(road)
        self.process.wait(60)
        return self.lost(clips() or self.recover())

    def display_dies(self):
        self.record()
        os.kill(int(os.environ["XSERVER_PID"]), signal.SIGKILL)
        self.process.wait(60)  # the toolkit ends it
        return self.lost(clips() or self.recover())


class Command(Round):
    """A recording of `quillbox record`."""

    def start(self):
        self.recording = Recording("--region", REGION, "--precise", "--preset", "docs", "-o", str(self.output))

    def wait_for_frames(self, count):
        self.recording.wait_for_more_frames(count)

    def end_by(self, *signals):
        self.start()
        with self.recording:
            self.recording.wait_for_more_frames(1)
            self.play(self.random.randint(2, 8))
            self.linger()
            moment = time.monotonic()
            for number in signals:
                self.recording.stop(number)
            self.recording.process.wait(120)
        return moment

    def command_interrupted(self):
        self.end_by(self.random.choice((signal.SIGINT, signal.SIGTERM, signal.SIGHUP)))
        return self.lost([self.output])

    def command_killed(self):
        moment = self.end_by(signal.SIGKILL)
        return self.lost(self.recover(), moment - 2)

    def command_killed_while_encoding(self):
        moment = self.end_by(signal.SIGINT, signal.SIGKILL)
        if not self.output.exists():
            return self.lost(self.recover(), moment - 2)
        quillbox("recover", "--discard")  # it had no time to remove what it no longer needed
        return self.lost([self.output])

    def command_output_vanishes(self):
        self.start()
        with self.recording:
            self.recording.wait_for_more_frames(1)
            self.play(4)
            self.output.parent.rmdir()
            self.recording.stop()
            if self.recording.result()[0] != 1:
                raise Wrong("a clip in a folder that is gone")
        self.output.parent.mkdir()
        return self.lost(self.recover())


NEED_MOUNT = ("full_disk_for_clips", "full_disk_for_everything_else", "read_only_clips", "read_only_home")
LAST = "display_dies"  # nothing can follow in the same session
FAULTS = {**{name: Application for name in (
    "nothing", "starts_twice", "killed_while_selecting", "killed", "killed_then_another_records",
    "killed_while_processing", "killed_while_saving", "stopped", "no_large_files", "folder_vanishes",
    "folder_in_the_way", "clipboard_taken", "bus_restarted", "screen_changes", "quits", LAST, *NEED_MOUNT)},
    **{name: Command for name in (
        "command_interrupted", "command_killed", "command_killed_while_encoding", "command_output_vanishes")}}


def leftovers():
    """What no round may leave."""
    left = [str(path) for path in CACHE.glob("*")]
    left += [str(path) for path in CLIPS.glob("*") if path.suffix != ".gif"]
    left += [str(path) for path in DATA.glob("*") if path.name not in ("history.json", "first-use")]
    if HISTORY.exists():
        json.loads(HISTORY.read_text())
    return left


def tidy():
    """The next round finds no clips and nothing cut off."""
    for clip in clips():
        clip.unlink()
    for path in CACHE.glob("*"):
        path.unlink()
