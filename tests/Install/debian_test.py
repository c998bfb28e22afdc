#!/usr/bin/python3
"""The Debian package, as it was built. Run by CTest: debian_test.py DebianTest.NAME"""

import email.utils
import os
import pathlib
import re
import shutil
import sys
import unittest
import xml.etree.ElementTree

from application import run

APP_ID = os.environ["QUILLBOX_APP_ID"]
VERSION = os.environ["QUILLBOX_VERSION"]
ROOT = pathlib.Path(__file__).resolve().parents[2]
FOLDER = pathlib.Path(os.environ["QUILLBOX_PACKAGES"])
STAGE = pathlib.Path(os.environ["QUILLBOX_STAGE"], "package")
SKIPPED = 77
TOOLCHAIN = {"g++"}  # every package is built with one


def package():
    (found,) = FOLDER.glob("quillbox_*.deb")
    return found


def control(field):
    return run("dpkg-deb", "--field", package(), field).stdout.strip()


def relations(text):
    """The packages of a dependency field, each with its alternatives, without versions."""
    return {"|".join(re.sub(r"[ (].*", "", name.strip()) for name in relation.split("|"))
            for relation in text.split(",") if relation.strip()}


def source_field(name):
    return re.search(rf"^{name}: (.*(?:\n .*)*)", (ROOT / "debian/control").read_text(), re.MULTILINE)[1]


class DebianTest(unittest.TestCase):
    def test_the_changelog_begins_with_this_version(self):
        done = run("dpkg-parsechangelog", "--file", ROOT / "debian/changelog", "--show-field", "Version")
        self.assertEqual(done.stdout.strip(), VERSION)
        self.assertEqual(control("Version"), VERSION)

    def test_the_changelog_has_the_date_of_the_release(self):
        done = run("dpkg-parsechangelog", "--file", ROOT / "debian/changelog", "--show-field", "Date")
        page = xml.etree.ElementTree.parse(STAGE / f"usr/share/metainfo/{APP_ID}.metainfo.xml")
        self.assertEqual(email.utils.parsedate_to_datetime(done.stdout.strip()).date().isoformat(),
                         page.find("releases/release").get("date"))

    def test_is_built_with_what_the_build_needs(self):
        listed = run(ROOT / "tools/install-dependencies", "--list", "build").stdout.split()
        needed = set(listed) - TOOLCHAIN - {"qt6-wayland", "qt6-image-formats-plugins"}  # what only runs is recommended
        self.assertEqual(relations(source_field("Build-Depends")), needed | {"debhelper-compat"})

    def test_holds_what_an_installation_does_and_what_policy_asks_for(self):
        staged = {f"./{file.relative_to(STAGE)}" for file in STAGE.rglob("*") if not file.is_dir()}
        listing = run("dpkg-deb", "--contents", package()).stdout.splitlines()
        packed = {line.split()[5].removesuffix(".gz") for line in listing if not line.startswith("d")}
        self.assertEqual(packed - staged, {f"./usr/share/doc/quillbox/{name}" for name in ("changelog", "copyright")})
        self.assertEqual(staged - packed, set())

    def test_depends_on_what_the_program_loads(self):
        depends = relations(control("Depends"))
        self.assertLessEqual({"libqt6widgets6", "libqt6svg6", "libqt6dbus6", "libxcb1", "libc6"},
                             {re.sub("t64$", "", name) for name in depends})

    def test_the_program_is_hardened(self):
        folder = FOLDER / "unpacked"
        shutil.rmtree(folder, ignore_errors=True)
        self.addCleanup(shutil.rmtree, folder)
        self.assertEqual(run("dpkg-deb", "--extract", package(), folder).returncode, 0)
        program = folder / "usr/bin/quillbox"
        described = run("readelf", "--wide", "--file-header", "--program-headers", "--dynamic", program).stdout
        self.assertIn("Position-Independent Executable", described)
        self.assertIn("GNU_RELRO", described)
        self.assertRegex(described, r"FLAGS_1.*\bNOW\b.*\bPIE\b")
        self.assertRegex(described, r"GNU_STACK( +0x\w+){5} RW ")
        symbols = run("readelf", "--wide", "--dyn-syms", program).stdout
        self.assertIn("__stack_chk_fail", symbols)
        self.assertRegex(symbols, r"__\w+_chk\b")
        self.assertEqual(run("readelf", "--debug-dump=info", program).stdout.strip(), "")

    def test_lintian_finds_nothing(self):
        if shutil.which("lintian") is None:
            raise unittest.SkipTest("lintian is missing")
        (changes,) = FOLDER.glob("quillbox_*.changes")
        # Its spelling check takes pieces of machine code for words: "befor" is how a compiler stores "before".
        done = run("lintian", "--profile", "debian", "--allow-root", "--pedantic", "--display-info", "--suppress-tags",
                   "spelling-error-in-binary", changes)
        self.assertEqual((done.returncode, done.stdout + done.stderr), (0, ""))


if __name__ == "__main__":
    result = unittest.main(exit=False).result
    sys.exit(SKIPPED if result.skipped else not result.wasSuccessful())
