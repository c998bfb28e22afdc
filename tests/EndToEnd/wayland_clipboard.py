"""What other programs read from the clipboard of a Wayland desktop."""

import subprocess

from application import LIMIT_SECONDS, run


def paste(form):
    return subprocess.run(["wl-paste", "--no-newline", "--type", form], stdin=subprocess.DEVNULL, capture_output=True,
                          timeout=LIMIT_SECONDS).stdout


def offered():
    """The forms of what is on the clipboard, in their order."""
    return run("wl-paste", "--list-types").stdout.splitlines()
