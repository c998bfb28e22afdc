"""The application as another program on the desktop sees it, for tests that run inside tests/desktop/x11-session."""

import json
import os
import pathlib
import select
import subprocess
import time

LIMIT_SECONDS = 120  # what has not happened by then has failed; no test depends on it otherwise


def program():
    return os.environ["QUILLBOX_PROGRAM"]


def run(*command, **options):
    return subprocess.run([str(word) for word in command], stdin=subprocess.DEVNULL, capture_output=True, text=True,
                          timeout=LIMIT_SECONDS, **options)


def quillbox(*arguments, **options):
    """Runs the program to its end, without a terminal."""
    return run(program(), *arguments, **options)


def until(condition, what, limit=LIMIT_SECONDS):
    """Waits for something that other programs bring about. @return what the condition then answered."""
    end = time.monotonic() + limit
    while not (answer := condition()):
        if time.monotonic() > end:
            raise AssertionError(f"never happened: {what}")
        time.sleep(0.01)
    return answer


def has_said(program):
    """Whether a program has written a line that nobody has read."""
    return bool(select.select([program.stdout], [], [], 0)[0])


def xdo(*arguments):
    """Keys and pointer. @return the words of the answer"""
    return run("xdotool", *arguments).stdout.split()


def windows(title):
    """The application's visible windows of that title, as the X server's numbers. Its tray icon is none of them."""
    found = []
    for window in xdo("search", "--onlyvisible", "--class", "^quillbox$"):
        name = run("xdotool", "getwindowname", window)
        geometry = run("xdotool", "getwindowgeometry", "--shell", window)
        if name.returncode != 0 or geometry.returncode != 0:
            continue  # closed meanwhile
        width = int(dict(line.split("=") for line in geometry.stdout.split())["WIDTH"])
        if name.stdout.rstrip("\n") == title and width > 100:
            found.append(int(window))
    return found


def overlay():
    return windows("Select a region — Quillbox")


def process():
    """The process that has the application's name on the session bus; None if nobody has it."""
    answer = run("dbus-send", "--session", "--print-reply=literal", "--dest=org.freedesktop.DBus", "/",
                 "org.freedesktop.DBus.GetConnectionUnixProcessID", f"string:{os.environ['QUILLBOX_APP_ID']}")
    return int(answer.stdout.split()[1]) if answer.returncode == 0 else None


def program_of(pid):
    return pathlib.Path(f"/proc/{pid}/exe").resolve()


def has_ended(pid):
    """Whether a process has ended, also if nobody has waited for it."""
    try:
        return "State:\tZ" in pathlib.Path(f"/proc/{pid}/status").read_text()
    except FileNotFoundError:
        return True


def status():
    """What the running application says that it is doing; None if nothing runs."""
    answer = quillbox("status", "--json")
    return json.loads(answer.stdout) if answer.returncode == 0 else None


def phase():
    now = status()
    return now["phase"] if now else None
