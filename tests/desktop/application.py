"""The application as another program on the desktop sees it, for tests that run inside tests/desktop/x11-session."""

import json
import os
import pathlib
import subprocess
import time

APP_ID = os.environ["QUILLBOX_APP_ID"]
LIMIT_SECONDS = 30  # what has not happened by then has failed; no test depends on it otherwise


def run(*command):
    return subprocess.run([str(word) for word in command], stdin=subprocess.DEVNULL, capture_output=True, text=True,
                          timeout=LIMIT_SECONDS)


def until(condition, what):
    """Waits for something that other programs bring about. @return what the condition then answered."""
    end = time.monotonic() + LIMIT_SECONDS
    while not (answer := condition()):
        if time.monotonic() > end:
            raise AssertionError(f"never happened: {what}")
        time.sleep(0.01)
    return answer


def windows(title):
    """The application's visible windows of that title, as the X server's numbers. Its tray icon is none of them."""
    found = []
    for window in run("xdotool", "search", "--onlyvisible", "--class", "^quillbox$").stdout.split():
        name = run("xdotool", "getwindowname", window)
        geometry = run("xdotool", "getwindowgeometry", "--shell", window)
        if name.returncode != 0 or geometry.returncode != 0:
            continue  # closed meanwhile
        width = int(dict(line.split("=") for line in geometry.stdout.split())["WIDTH"])
        if name.stdout.rstrip("\n") == title and width > 100:
            found.append(int(window))
    return found


def process():
    """The process that has the application's name on the session bus; None if nobody has it."""
    answer = run("dbus-send", "--session", "--print-reply=literal", "--dest=org.freedesktop.DBus", "/",
                 "org.freedesktop.DBus.GetConnectionUnixProcessID", f"string:{APP_ID}")
    return int(answer.stdout.split()[1]) if answer.returncode == 0 else None


def program_of(pid):
    return pathlib.Path(f"/proc/{pid}/exe").resolve()


def phase(program):
    """What the running application says that it is doing; None if nothing runs."""
    answer = run(program, "status", "--json")
    return json.loads(answer.stdout)["phase"] if answer.returncode == 0 else None
