#!/usr/bin/python3
"""A clip is pasted into a web page. Run by CTest inside tests/desktop/x11-session: paste_test.py PasteTest.NAME"""

import http.server
import json
import os
import pathlib
import queue
import shutil
import subprocess
import sys
import threading
import unittest

from application import LIMIT_SECONDS, quillbox, status, until, xdo
from desktop import Desktop, clipboard
from screen import Screen

SKIPPED = 77
AREA = (200, 200, 320, 240)
PAGE = pathlib.Path(__file__).with_name("paste.html")
BROWSER = "chromium"
OPTIONS = ("--no-sandbox", "--disable-gpu", "--no-first-run", "--no-default-browser-check", "--password-store=basic",
           "--disable-background-networking", "--disable-component-update", "--disable-sync", "--window-size=600,400")


class Server(http.server.BaseHTTPRequestHandler):
    """Gives out the page, and takes what the page reports."""

    reports = queue.Queue()

    def do_GET(self):
        self.answer(PAGE.read_bytes())

    def do_POST(self):
        self.reports.put(json.loads(self.rfile.read(int(self.headers["Content-Length"]))))
        self.answer(b"")

    def answer(self, body):
        self.send_response(200)
        self.send_header("Content-Type", "text/html")
        self.send_header("Content-Length", str(len(body)))
        self.end_headers()
        self.wfile.write(body)

    def log_message(self, *_):
        pass


class PasteTest(unittest.TestCase):
    def setUp(self):
        if shutil.which(BROWSER) is None:
            raise unittest.SkipTest(f"{BROWSER} is missing")
        server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Server)
        threading.Thread(target=server.serve_forever).start()
        self.addCleanup(server.server_close)
        self.addCleanup(server.shutdown)
        self.address = f"http://127.0.0.1:{server.server_port}/"

    def open_page(self):
        profile = os.path.join(os.environ["HOME"], "browser")
        browser = subprocess.Popen([BROWSER, *OPTIONS, f"--user-data-dir={profile}", self.address],
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.addCleanup(browser.wait)
        self.addCleanup(browser.terminate)
        return until(lambda: xdo("search", "--onlyvisible", "--name", "^ready"), "the page is there")[0]

    def test_a_web_page_gets_the_file_itself(self):
        screen = Screen(*AREA)
        screen.show(0)
        with Desktop() as desktop:
            desktop.record(*AREA)
            screen.show(1)
            desktop.wait_for_frames(status()["frameCount"] + 12)
            self.assertEqual(quillbox("stop").returncode, 0)
            clip = pathlib.Path(status()["path"])
            self.assertEqual(clipboard("image/gif"), clip.read_bytes())
            page = self.open_page()
            xdo("windowactivate", "--sync", page, "key", "ctrl+v")
            report = Server.reports.get(timeout=LIMIT_SECONDS)
        self.assertEqual(report["types"], ["Files"])
        self.assertEqual([(file["name"], file["type"]) for file in report["files"]], [(clip.name, "image/gif")])
        self.assertTrue(bytes.fromhex(report["files"][0]["bytes"]) == clip.read_bytes(), "the same bytes, all frames")


if __name__ == "__main__":
    result = unittest.main(exit=False).result
    sys.exit(SKIPPED if result.skipped else not result.wasSuccessful())
