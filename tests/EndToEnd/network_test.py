#!/usr/bin/python3
"""A whole flow stays on this machine. Run by CTest inside tests/desktop/x11-session: network_test.py NetworkTest.NAME"""

import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

from application import overlay, phase, process, program, run, until, windows, xdo
from recording import pillow_frames
from screen import Screen

SKIPPED = 77
AREA = (200, 200, 320, 240)
CALLS = re.compile(r"\b(?:socket|socketpair|connect)\(.*?\b(AF_[A-Z0-9]+)")


def traced(trace, *command):
    """The command under strace, which adds the calls of all its processes and threads to a file."""
    return ["strace", "--follow-forks", "--output-append-mode", f"--output={trace}", "--quiet=all",
            "--trace=socket,socketpair,connect", *command]


def families(trace):
    """The address families of all sockets that were opened or connected."""
    return set(CALLS.findall(pathlib.Path(trace).read_text()))


class NetworkTest(unittest.TestCase):
    def setUp(self):
        if shutil.which("strace") is None:
            raise unittest.SkipTest("strace is missing")
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.trace = os.path.join(folder.name, "trace")
        # Looking for leaks is tracing, too, and a process has only one tracer.
        os.environ["ASAN_OPTIONS"] = os.environ.get("ASAN_OPTIONS", "") + ":detect_leaks=0"

    def control(self, *arguments):
        done = run(*traced(self.trace, program(), *arguments))
        self.assertEqual(done.returncode, 0, done.stderr)
        return done.stdout

    def test_a_whole_flow_opens_no_internet_socket(self):
        screen = Screen(*AREA)
        screen.show(0)
        with subprocess.Popen(traced(self.trace, program()), stdin=subprocess.DEVNULL) as application:
            try:
                until(process, "the application is on the bus")
                self.control("begin")
                until(overlay, "the overlay comes up")
                left, top, width, height = AREA
                xdo("mousemove", left, top, "mousedown", 1, "mousemove", left + width // 2, top + height // 2,
                    "mousemove", left + width, top + height, "mouseup", 1)
                until(lambda: phase() == "recording", "the recording begins")
                clip = json.loads(self.control("stop", "--json"))
                self.control("show")
                until(lambda: windows("Quillbox"), "the panel comes up")
                self.control("quit")
                self.assertEqual(application.wait(timeout=30), 0)
            finally:
                application.kill()
        self.assertEqual(clip["phase"], "done")
        self.assertEqual(pillow_frames(clip["path"])[0][0].size, (width, height))
        found = families(self.trace)
        self.assertIn("AF_UNIX", found)  # the display and the bus: the trace sees what is there to see
        self.assertEqual(found & {"AF_INET", "AF_INET6", "AF_PACKET"}, set())

    def test_an_internet_socket_would_be_noticed_in_a_process_that_a_thread_starts(self):
        for family in ("AF_INET", "AF_INET6"):
            opens = f"import socket; socket.socket(socket.{family}, socket.SOCK_DGRAM)"
            script = ("import subprocess, sys, threading; "
                      f"threading.Thread(target=subprocess.run, args=([sys.executable, '-c', '{opens}'],)).start()")
            done = run(*traced(self.trace, "/usr/bin/python3", "-c", script))
            self.assertEqual((done.returncode, done.stderr), (0, ""))
            self.assertIn(family, families(self.trace))


if __name__ == "__main__":
    result = unittest.main(exit=False).result
    sys.exit(SKIPPED if result.skipped else not result.wasSuccessful())
