"""Many short recordings with one application, and what it holds before and after, for tools/torture. For use inside
tests/desktop/x11-session or wayland-session."""

import json
import os
import pathlib
import subprocess
import sys

import pipewire
from application import program, quillbox, status, until
from running import FIRST_USE

AREA = (301, 257, 322, 238)
CLIPS = pathlib.Path(os.environ["HOME"], "Videos/Quillbox")
HAS_X11 = "WAYLAND_DISPLAY" not in os.environ


def private_memory(pid):
    """In kB: what the process has written. Who else has read the same libraries makes no difference."""
    lines = pathlib.Path(f"/proc/{pid}/smaps_rollup").read_text().splitlines()
    return next(int(line.split()[1]) for line in lines if line.startswith("Private_Dirty:"))


def x_resources(pid):
    """What the process has at the X server."""
    from Xlib import display
    from Xlib.ext import res
    server = display.Display()
    held = 0
    for client in server.res_query_clients().clients:
        owner = server.res_query_client_ids([{"client": client.resource_base, "mask": res.LocalClientPIDMask}]).ids
        if any(identity.value and identity.value[0] == pid for identity in owner):
            held += sum(kind.count for kind in server.res_query_client_resources(client.resource_base).types)
    server.close()
    return held


def pipewire_objects():
    """How many objects there are in PipeWire, of all processes."""
    return len(pipewire.objects())


def resources(pid):
    held = {"descriptors": len(os.listdir(f"/proc/{pid}/fd")), "private kB": private_memory(pid),
            "threads": len(os.listdir(f"/proc/{pid}/task"))}
    if HAS_X11:
        held["X resources"] = x_resources(pid)
    else:
        held["PipeWire objects"] = pipewire_objects()
    return held


class Fixture:
    """A screen that moves, and a hand that drags out a region."""

    def __init__(self):
        if HAS_X11:
            from screen import Screen
            screen = Screen(*AREA)
            self.move = screen.dot
        else:
            from canvas import Canvas
            from wayland_input import Devices
            self.user, canvas = Devices(), Canvas(1)
            self.move = lambda number: canvas.show(number, AREA)

    def drag(self):
        left, top, width, height = AREA
        if HAS_X11:
            from application import overlay, xdo
            until(overlay, "the overlay is there")
            xdo("mousemove", left, top, "mousedown", 1, "mousemove", left + width // 2, top + height // 2)
            xdo("mousemove", left + width, top + height, "mouseup", 1, "mousemove", 5, 500)
        else:
            from wayland_desktop_test import overlays
            until(overlays, "the overlay is there")
            self.user.move(left, top)
            self.user.press()
            self.user.move(left + width // 2, top + height // 2)
            self.user.move(left + width, top + height)
            self.user.release()


def record(fixture, number):
    assert quillbox("begin").returncode == 0
    fixture.drag()
    until(lambda: status()["phase"] == "recording", "it records")
    fixture.move(number)
    until(lambda: status().get("frameCount", 0) >= 9, "it has recorded for 0.3 s")
    quillbox("stop")
    until(lambda: status()["phase"] in ("done", "failed"), "it ends")
    assert status()["phase"] == "done", status()
    for clip in CLIPS.glob("*.gif"):
        clip.unlink()


def run_endurance(count):
    """Prints as JSON what was held after the first fifth of the recordings, when everything has been used that is loaded
    at its first use, and what at the end."""
    FIRST_USE.parent.mkdir(parents=True, exist_ok=True)
    FIRST_USE.write_text("introduced\n")
    application = subprocess.Popen([program()], stdin=subprocess.DEVNULL)
    until(status, "the application answers")
    fixture, tenth = Fixture(), max(1, count // 10)
    for number in range(1, count + 1):
        record(fixture, number)
        if number % tenth == 0:
            held = resources(application.pid)
            if number <= 2 * tenth:
                before = held
            print(number, json.dumps(held), file=sys.stderr, flush=True)
    quillbox("quit")
    application.wait(60)
    print(json.dumps({"recordings": count, "after": 2 * tenth, "then": before, "now": held}))
