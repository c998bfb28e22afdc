"""What can be done to the machine and the desktop under a program: disks that are small or read-only, a session bus that
is restarted, a screen of another size. For use inside tests/desktop/x11-session."""

import contextlib
import os
import shutil
import signal
import subprocess
import tempfile
import time

from application import has_ended, run, until

SMALL_DISK = 3 << 20  # bytes


class Wrong(Exception):
    """The program did what it must not."""


def can_mount():
    """Whether this process may have file systems of its own: tools/torture runs in a namespace if there are any."""
    return os.environ.get("TORTURE_CAN_MOUNT") == "1"


def mount(*arguments):
    done = run("mount", *arguments)
    if done.returncode != 0:
        raise Wrong(f"mount {arguments}: {done.stderr}")


@contextlib.contextmanager
def small_disk(folder, size=SMALL_DISK):
    """A file system of its own for a folder; what is in it at the end is put in its place."""
    folder.mkdir(parents=True, exist_ok=True)
    mount("-t", "tmpfs", "-o", f"size={size},mode=0700", "none", folder)
    try:
        yield
    finally:
        with tempfile.TemporaryDirectory() as kept:
            shutil.copytree(folder, kept, dirs_exist_ok=True)
            run("umount", "-l", folder)
            shutil.copytree(kept, folder, dirs_exist_ok=True)


def fill(folder):
    """Takes all the room there is. @return the file that does"""
    filler = folder / "filler"
    with filler.open("wb", buffering=0) as file:
        with contextlib.suppress(OSError):
            while file.write(bytes(4096)):
                pass
    return filler


@contextlib.contextmanager
def read_only(*folders):
    for folder in folders:
        folder.mkdir(parents=True, exist_ok=True)
        mount("--bind", folder, folder)
        mount("-o", "remount,ro,bind", folder)
    try:
        yield
    finally:
        for folder in folders:
            run("umount", "-l", folder)


def restart_bus():
    """@return the new one"""
    bus = int(os.environ["BUS_PID"])
    os.kill(bus, signal.SIGKILL)
    until(lambda: has_ended(bus), "the bus has ended")
    daemon = subprocess.Popen(["dbus-daemon", "--session", "--nofork", "--nopidfile",
                               f"--address={os.environ['DBUS_SESSION_BUS_ADDRESS']}"],
                              stdin=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    os.environ["BUS_PID"] = str(daemon.pid)
    until(lambda: run("dbus-send", "--session", "--print-reply", "--dest=org.freedesktop.DBus", "/",
                      "org.freedesktop.DBus.GetId").returncode == 0, "there is a bus again")
    return daemon


def resize_screen(seconds):
    """To a size in which the recorded area has room, and back."""
    before = next(line.split()[0] for line in run("xrandr").stdout.splitlines() if "*" in line)
    run("xrandr", "--newmode", "smaller", 0, 1024, 0, 0, 1024, 600, 0, 0, 600)
    run("xrandr", "--addmode", "screen", "smaller")
    if run("xrandr", "--output", "screen", "--mode", "smaller").returncode != 0:
        raise Wrong("the screen can't be made smaller")
    time.sleep(seconds)
    if run("xrandr", "--output", "screen", "--mode", before).returncode != 0:
        raise Wrong("the screen can't be made larger")
