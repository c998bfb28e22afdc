#!/usr/bin/python3
"""The Flatpak manifest: what it allows the program, and that it can be read. Run by CTest: flatpak_test.py FlatpakTest.NAME"""

import json
import os
import pathlib
import shutil
import sys
import unittest

from application import run

ROOT = pathlib.Path(__file__).resolve().parents[2]
MANIFEST = ROOT / "packaging/flatpak/org.quillbox.quillbox.json"
SKIPPED = 77


class FlatpakTest(unittest.TestCase):
    def setUp(self):
        self.manifest = json.loads(MANIFEST.read_text())

    def test_its_own_tool_understands_all_of_the_manifest(self):
        if shutil.which("flatpak-builder") is None:
            raise unittest.SkipTest("flatpak-builder is missing")
        done = run("flatpak-builder", "--show-manifest", MANIFEST)
        self.assertEqual((done.returncode, done.stderr), (0, ""))  # of what it does not know it only warns
        self.assertEqual([module["name"] for module in json.loads(done.stdout)["modules"]],
                         [module["name"] for module in self.manifest["modules"]])

    def test_allows_the_screen_and_the_clips_and_no_network(self):
        self.assertEqual(set(self.manifest["finish-args"]), {
            "--share=ipc", "--socket=wayland", "--socket=fallback-x11", "--filesystem=xdg-videos/Quillbox:create",
            "--talk-name=org.kde.StatusNotifierWatcher", "--talk-name=org.freedesktop.Notifications"})

    def test_is_about_this_application(self):
        self.assertEqual(self.manifest["id"], os.environ["QUILLBOX_APP_ID"])
        self.assertEqual(self.manifest["command"], "quillbox")
        own = self.manifest["modules"][-1]
        (source,) = own["sources"]
        self.assertEqual((source["type"], (MANIFEST.parent / source["path"]).resolve()), ("dir", ROOT))

    def test_whatever_is_downloaded_is_known_by_its_checksum(self):
        for module in self.manifest["modules"][:-1]:
            for source in module["sources"]:
                self.assertEqual(source["type"], "archive")
                self.assertRegex(source["url"], "^https://")
                self.assertRegex(source["sha256"], "^[0-9a-f]{64}$")


if __name__ == "__main__":
    result = unittest.main(exit=False).result
    sys.exit(SKIPPED if result.skipped else not result.wasSuccessful())
