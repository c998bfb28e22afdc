"""Holds the application to coming back to its event loop in time."""

import os
import pathlib
import tempfile

LIMIT_MILLISECONDS = 250


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
        longest = float(said.split()[0]) if said else 0  # it was killed before its loop had turned twice
        assert longest < LIMIT_MILLISECONDS, f"the application did not come back to its event loop:\n{said}"
