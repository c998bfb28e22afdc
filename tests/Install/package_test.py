#!/usr/bin/python3
"""What is installed, as a package holds it. Run by CTest on a staged installation: package_test.py PackageTest.NAME"""

import configparser
import os
import pathlib
import shutil
import sys
import unittest
import xml.etree.ElementTree

from PIL import Image

from application import run

APP_ID = os.environ["QUILLBOX_APP_ID"]
VERSION = os.environ["QUILLBOX_VERSION"]
PACKAGE = pathlib.Path(os.environ["QUILLBOX_STAGE"], "package")
PREFIX = pathlib.Path(os.environ["QUILLBOX_STAGE"], "prefix")
ROOT = pathlib.Path(__file__).resolve().parents[2]
SIZES = (16, 22, 24, 32, 48, 64, 96, 128, 256, 512)
SKIPPED = 77


def validator(name):
    if shutil.which(name) is None:
        raise unittest.SkipTest(f"{name} is missing")
    return name


def entry(path):
    """A file of groups and keys, as desktop entries and service files are."""
    parser = configparser.ConfigParser(interpolation=None, delimiters="=", comment_prefixes="#")
    parser.optionxform = str
    parser.read(path)
    return parser


class PackageTest(unittest.TestCase):
    def test_installs_the_program_and_what_the_desktop_needs_and_nothing_else(self):
        expected = {
            "usr/bin/quillbox",
            f"usr/share/applications/{APP_ID}.desktop",
            f"usr/share/dbus-1/services/{APP_ID}.service",
            f"usr/share/icons/hicolor/scalable/apps/{APP_ID}.svg",
            f"usr/share/icons/hicolor/symbolic/apps/{APP_ID}-symbolic.svg",
            f"usr/share/metainfo/{APP_ID}.metainfo.xml",
            "usr/share/man/man1/quillbox.1",
            "usr/share/bash-completion/completions/quillbox",
            "usr/share/zsh/vendor-completions/_quillbox",
            "usr/share/fish/vendor_completions.d/quillbox.fish",
        } | {f"usr/share/icons/hicolor/{size}x{size}/apps/{APP_ID}.png" for size in SIZES}
        found = {str(file.relative_to(PACKAGE)) for file in PACKAGE.rglob("*") if not file.is_dir()}
        self.assertEqual(found, expected)

    def test_the_installed_program_says_its_version(self):
        for program in (PACKAGE / "usr/bin/quillbox", PREFIX / "bin/quillbox"):
            done = run(program, "--version")
            self.assertEqual((done.returncode, done.stdout, done.stderr), (0, f"quillbox {VERSION}\n", ""))

    def test_the_desktop_entry_is_valid(self):
        for file in (PACKAGE / "usr/share/applications", PREFIX / "share/applications"):
            done = run(validator("desktop-file-validate"), file / f"{APP_ID}.desktop")
            self.assertEqual((done.returncode, done.stdout + done.stderr), (0, ""))  # it warns with status 0

    def test_the_software_centres_page_is_valid_and_fits_the_other_files(self):
        done = run(validator("appstreamcli"), "validate-tree", "--no-net", "--pedantic", PACKAGE)
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)
        self.assertIn("success", done.stdout.lower())

    def test_the_software_centres_page_ends_with_this_version(self):
        page = xml.etree.ElementTree.parse(PACKAGE / f"usr/share/metainfo/{APP_ID}.metainfo.xml")
        self.assertEqual(page.find("releases/release").get("version"), VERSION)

    def test_the_software_centres_page_shows_pictures_that_are_there_and_of_the_size_it_says(self):
        page = xml.etree.ElementTree.parse(PACKAGE / f"usr/share/metainfo/{APP_ID}.metainfo.xml")
        shown = page.findall("screenshots/screenshot/image")
        self.assertEqual(len(shown), 2)
        for picture in shown:
            with Image.open(ROOT / "docs" / picture.text.rpartition("/")[2]) as file:
                self.assertEqual(file.size, (int(picture.get("width")), int(picture.get("height"))))

    def test_the_icon_is_there_at_every_size_with_transparent_corners(self):
        for size in SIZES:
            with Image.open(PACKAGE / f"usr/share/icons/hicolor/{size}x{size}/apps/{APP_ID}.png") as icon:
                self.assertEqual((icon.format, icon.mode, icon.size), ("PNG", "RGBA", (size, size)))
                self.assertEqual(icon.getpixel((0, 0))[3], 0)
                red, green, blue, alpha = icon.getpixel((size // 2, size // 8))
                self.assertEqual(alpha, 255)
                self.assertGreater(blue, max(red, green))  # violet

    def test_the_launchers_name_the_program_where_it_will_be(self):
        for share, program in ((PACKAGE / "usr/share", "/usr/bin/quillbox"), (PREFIX / "share", f"{PREFIX}/bin/quillbox")):
            service = entry(share / f"dbus-1/services/{APP_ID}.service")["D-BUS Service"]
            self.assertEqual((service["Name"], service["Exec"].strip('"')), (APP_ID, program))
            desktop = entry(share / f"applications/{APP_ID}.desktop")["Desktop Entry"]
            self.assertEqual(desktop["Exec"].strip('"'), program)

    def test_the_symbolic_icon_has_the_one_colour_that_desktops_replace(self):
        icon = xml.etree.ElementTree.parse(PACKAGE / f"usr/share/icons/hicolor/symbolic/apps/{APP_ID}-symbolic.svg")
        self.assertEqual((icon.getroot().get("width"), icon.getroot().get("height")), ("16", "16"))
        paints = {element.get(kind) for element in icon.iter() for kind in ("fill", "stroke")} - {None, "none"}
        self.assertEqual(paints, {"#2e3436"})


if __name__ == "__main__":
    result = unittest.main(exit=False).result
    sys.exit(SKIPPED if result.skipped else not result.wasSuccessful())
