#!/usr/bin/python3
"""The shells complete what --help names. Run by CTest on a staged installation: completions_test.py BashTest.NAME and so on"""

import os
import pathlib
import shutil
import sys
import tempfile
import unittest

import manual
from application import run

HERE = pathlib.Path(__file__).parent
PREFIX = pathlib.Path(os.environ["QUILLBOX_STAGE"], "prefix")
SKIPPED = 77
UNDESCRIBED = {"auto", "always", "never", "bt601", "bt709", "bt2020", "rgba", "bgra", "rgb", "bgr"}


class CompletionTest:
    """What holds for every shell; `offered(LINE)` says what it completes at the end of a line, `folders()` where it looks
    for completions, and `installed` is a pattern for where ours lies below the prefix."""

    def setUp(self):
        if shutil.which(self.shell) is None:
            raise unittest.SkipTest(f"{self.shell} is missing")
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        for name in ("first.png", "second.gif"):
            pathlib.Path(folder.name, name).touch()
        self.folder = folder.name

    def output_of(self, *command):
        path = f"{PREFIX / 'bin'}:{os.environ['PATH']}"  # some complete only what can be run
        done = run(*command, cwd=self.folder,
                   env={**os.environ, "HOME": self.folder, "PATH": path, "LC_ALL": "C.UTF-8"})
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        return set(done.stdout.splitlines())

    def installed_folder(self):
        (found,) = {path.parent for path in PREFIX.glob(self.installed)}
        return found

    def test_lies_where_the_shell_looks(self):
        self.assertIn(f"/usr/{self.installed_folder().relative_to(PREFIX)}", self.folders())

    def test_completes_the_commands(self):
        self.assertEqual(self.offered("quillbox ") - {"--help", "--version", "-h", "-V"}, set(manual.commands()))
        self.assertEqual(self.offered("quillbox st"), {"stop", "status"})

    def test_completes_the_options_of_every_command(self):
        for command in [None, *manual.commands()]:
            with self.subTest(command):
                line = f"quillbox {command} --" if command else "quillbox --"
                known = {name for option in manual.options(command) for name in option.names if name.startswith("--")}
                self.assertEqual(self.offered(line), known | {"--help"})

    def test_completes_the_values_that_help_names(self):
        for command in ("encode", "record"):
            for option in manual.options(command):
                if "|" in option.value and "[" not in option.value:  # a unit is no choice
                    line = f"quillbox {command} {option.names[-1]} "
                    self.assertEqual(self.offered(line), set(option.value.split("|")), line)
        self.assertEqual(self.offered("quillbox record --preset=gi"), {self.after_equals + "github"})

    def test_completes_files_where_a_file_is_meant(self):
        both = {"first.png", "second.gif"}
        self.assertEqual(self.offered("quillbox encode "), both)
        self.assertEqual(self.offered("quillbox encode --force fi"), {"first.png"})
        self.assertEqual(self.offered("quillbox record -o "), both)
        self.assertEqual(self.offered("quillbox encode --output se"), {"second.gif"})

    def test_offers_no_file_where_none_is_meant(self):
        for line in ("quillbox fi", "quillbox stop fi", "quillbox record fi", "quillbox record --region fi",
                     "quillbox encode --raw fi"):
            self.assertEqual(self.offered(line), set(), line)


class BashTest(CompletionTest, unittest.TestCase):
    shell = "bash"
    installed = "share/bash-completion/*/quillbox"
    after_equals = ""  # to bash, what stands behind the sign is a word of its own

    def offered(self, line):
        words = line.replace("=", " = ").split(" ")
        return self.output_of("bash", HERE / "complete.bash", *words)

    def folders(self):
        return self.output_of("pkg-config", "--variable=completionsdir", "bash-completion")


class ZshTest(CompletionTest, unittest.TestCase):
    shell = "zsh"
    installed = "share/zsh/*/_quillbox"
    after_equals = ""

    def offered(self, line):
        return self.output_of("zsh", "-f", HERE / "complete.zsh", self.installed_folder(), line)

    def folders(self):
        return self.output_of("zsh", "-f", "-c", "print -l $fpath")


class FishTest(CompletionTest, unittest.TestCase):
    shell = "fish"
    installed = "share/fish/*/quillbox.fish"
    after_equals = "--preset="

    def offered(self, line):
        rows = self.output_of("fish", "--command", f"complete --do-complete '{line}'")
        for row in rows:
            self.assertTrue("\t" in row or "." in row or row.split("\t")[0] in UNDESCRIBED, f"described: {row}")
        return {row.split("\t")[0] for row in rows}

    def folders(self):
        return self.output_of("fish", "--command", r"string join \n $fish_complete_path")


if __name__ == "__main__":
    result = unittest.main(exit=False).result
    sys.exit(SKIPPED if result.skipped else not result.wasSuccessful())
