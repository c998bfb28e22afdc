#!/usr/bin/python3
"""The watch over event loops notices what it should, and nothing else. Run by CTest."""

import os
import pathlib
import signal
import subprocess
import tempfile
import time
import unittest

from event_loop import EventLoopWatch


class EventLoopTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.watch = EventLoopWatch(folder.name)
        self.pressure = pathlib.Path(folder.name, "pressure")  # of a machine that has time for this test
        self.pressure.write_text("some avg10=0.00 avg60=0.00 avg300=0.00 total=0\n")

    def start(self, how, milliseconds):
        return subprocess.Popen([os.environ["BLOCKING_PROGRAM"], how, str(milliseconds)],
                                env={**os.environ, **self.watch.environment, "CPU_PRESSURE": str(self.pressure)})

    def after(self, how, milliseconds):
        self.assertEqual(self.start(how, milliseconds).wait(), 0)
        self.watch.check()

    def test_notices_a_loop_that_does_not_turn(self):
        for how in ("sleeps", "computes"):
            with self.assertRaisesRegex(AssertionError, r"(?s)ms away.*blocking"):
                self.after(how, 60000)

    def test_lets_a_loop_be_that_turns(self):
        self.after("sleeps", 20)
        self.assertRegex(self.watch.report.read_text(), "ms away")

    def test_knows_when_the_loop_begins_and_ends(self):
        self.after("before", 400)
        self.after("after", 400)

    def test_does_not_count_the_time_in_which_the_whole_process_is_stopped(self):
        program = self.start("sleeps", 0)
        while not (self.watch.report.exists() and self.watch.report.read_text()):
            time.sleep(0.01)
        program.send_signal(signal.SIGSTOP)
        time.sleep(0.4)
        program.send_signal(signal.SIGCONT)
        self.assertEqual(program.wait(), 0)
        self.watch.check()


if __name__ == "__main__":
    unittest.main()
