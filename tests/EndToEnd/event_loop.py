"""Holds the application to coming back to its event loop in time."""

import os
import pathlib
import tempfile

LIMIT_MILLISECONDS = 250
SLOW_TO_ANSWER = ("GNOME", "KDE")  # their compositors, drawing by software, while the toolkit waits for them


class EventLoopWatch:
    """Follows one process by tests/desktop/event-loop-watchdog.cpp; where that is not built, under sanitizers, nothing."""

    def __init__(self, folder=None):
        self.environment = {}
        library = os.environ.get("EVENT_LOOP_WATCHDOG")
        if library:
            folder = folder or tempfile.mkdtemp(dir=os.environ["XDG_RUNTIME_DIR"])  # which goes with the session
            self.report = pathlib.Path(folder, "event-loop")
            self.environment = {"LD_PRELOAD": library, "EVENT_LOOP_REPORT": str(self.report)}

    def check(self):
        """After the process has ended."""
        if not self.environment:
            return
        said = self.report.read_text()
        if not said:
            return  # it was killed before its loop had turned twice
        away, computing = (float(said.split()[word]) for word in (0, 3))
        longest = computing if os.environ.get("XDG_CURRENT_DESKTOP") in SLOW_TO_ANSWER else away
        assert longest < LIMIT_MILLISECONDS, f"the application did not come back to its event loop:\n{said}"
