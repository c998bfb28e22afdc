#!/usr/bin/python3
"""The installed manual and --help tell the same. Run by CTest on a staged installation: manual_test.py ManualTest.NAME"""

import os
import pathlib
import unittest

import manual
from application import run

PREFIX = pathlib.Path(os.environ["QUILLBOX_STAGE"], "prefix")
PAGE = PREFIX / "share/man/man1/quillbox.1"


def tag(option):
    """An option as the manual writes it."""
    return " ".join(filter(None, (", ".join(option.names), option.value)))


class ManualTest(unittest.TestCase):
    def setUp(self):
        self.page = manual.Manual(PAGE)

    def test_the_manual_can_be_typeset(self):
        done = run("man", "--warnings", "-E", "UTF-8", "-l", "-Tutf8", "-Z", PAGE,
                   env={**os.environ, "LC_ALL": "C.UTF-8", "MANWIDTH": "80", "MANROFFSEQ": ""})
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertIn("quillbox", done.stdout)

    def test_the_manual_has_every_command_and_no_other(self):
        described = {name: self.page.paragraphs("COMMANDS", name)[0][1] for name in self.page.subheadings("COMMANDS")}
        expected = manual.commands()
        self.assertEqual(list(described), list(expected))
        for name, text in expected.items():
            self.assertTrue(described[name].startswith(text + "."), f"{name}: {described[name]}")

    def assert_describes(self, paragraphs, options):
        self.assertEqual([name for name, _ in paragraphs], [tag(option) for option in options])
        for (name, text), option in zip(paragraphs, options):
            self.assertTrue(text.startswith(option.description + "."), f"{name}: {text}")
            if option.default:
                self.assertIn(f"The default is {option.default}", text, name)

    def test_the_manual_describes_every_option_as_help_does_and_no_other(self):
        self.assertEqual(self.page.paragraphs("OPTIONS")[1][0], "-h, --help")
        self.assert_describes(self.page.paragraphs("OPTIONS")[2:], manual.options())
        for command in manual.commands():
            with self.subTest(command):
                self.assert_describes(self.page.paragraphs("COMMANDS", command)[1:], manual.options(command))

    def test_the_manual_shows_the_examples_of_help(self):
        shown = self.page.lines("EXAMPLES")
        examples = [example for example in manual.examples() if " " in example] + manual.examples("encode")[:1]
        self.assertGreater(len(examples), 4)
        for example in examples:
            self.assertIn(example, shown)


if __name__ == "__main__":
    unittest.main()
