"""What the program says about itself, as --help prints it and as the manual has it."""

import re
import shlex
import typing

from application import quillbox


class Option(typing.NamedTuple):
    names: tuple  # ("-o", "--output"); none for what stands alone, such as INPUT
    value: str  # what follows the name; empty for a flag
    description: str  # without a full stop at the end
    default: str = ""


def _entries(text, title):
    """The (left, right) columns of a part of --help; a long left one has its right one on the lines below."""
    found = []
    lines = iter(text.splitlines())
    for line in lines:
        if line.strip() == title:
            break
    for line in lines:
        if not line.startswith("  "):
            break
        entry = re.match(r"  (\S.*?)(?: {2,}(\S.*))?$", re.sub(r"^(  -\w,) +", r"\1", line))
        if entry:
            found.append([entry[1], entry[2] or ""])
        else:
            found[-1][1] = f"{found[-1][1]} {line.strip()}".strip()
    return found


def help_text(command=None):
    done = quillbox(*([command] if command else []), "--help")
    assert (done.returncode, done.stderr) == (0, ""), done.stderr
    return done.stdout


def commands():
    """What each command does, by its name."""
    return dict(_entries(help_text(), "Subcommands:"))


def options(command=None):
    """The options of a command, or those before any, without --help."""
    text = help_text(command)
    found = [Option((), left.replace(" REQUIRED", "").replace(" ", ""), right)
             for left, right in _entries(text, "Positionals:")]
    for left, right in _entries(text, "Options:"):
        names, _, value = left.partition(" ")
        value, _, default = value.partition("=")
        found.append(Option(tuple(names.split(",")), value, right, default))
    assert any("--help" in option.names for option in found), text
    return [option for option in found if "--help" not in option.names]


def examples(command=None):
    """The command lines that --help shows, each as a shell takes it."""
    text = re.search(r"^Examples?:\n(.*?)(?:^Usage:|\Z)", help_text(command), re.MULTILINE | re.DOTALL)[1]
    lines = [line for line in text.replace("\\\n", "").splitlines() if line.startswith("  ")]
    return [re.sub(r" {2,}", " ", re.sub(r" +\([^()]*\)$", "", line.strip())) for line in lines]  # without a remark


def _plain(text):
    """Text of the manual's source without its markup."""
    for mark, meaning in ((r"\-", "-"), (r"\e", "\\"), (r"\(lq", "“"), (r"\(rq", "”")):
        text = text.replace(mark, meaning)
    return re.sub(r"\\f.", "", text)


def _words(line):
    """The text of a macro's line such as `.BR -o ", " --output`."""
    macro, *words = shlex.split(line.replace("\\", "\\\\"), posix=True)
    return _plain((" " if macro in (".B", ".I", ".SS", ".SH") else "").join(words))


class Manual:
    """The source of a manual page, taken apart: `sections` has by (heading, subheading) a list of (tag, text)."""

    def __init__(self, path):
        self.text = path.read_text()
        self.sections = {}
        heading = subheading = ""
        tag_follows = False
        for line in self.text.splitlines():
            if line.startswith(".SH"):
                heading, subheading = _words(line), ""
                self.sections[heading, subheading] = [["", ""]]
            elif line.startswith(".SS"):
                subheading = _words(line)
                self.sections[heading, subheading] = [["", ""]]
            elif not self.sections or line.startswith((".\\\"", "'\\\"", ".PP", ".IP", ".EX", ".EE", ".br", ".TS", ".TE")):
                continue
            elif line == ".TP":
                tag_follows = True
            elif tag_follows:
                self.sections[heading, subheading].append([_words(line), ""])
                tag_follows = False
            else:
                last = self.sections[heading, subheading][-1]
                last[1] += (_words(line) if re.match(r"\.[BIR]", line) else _plain(line)) + "\n"

    def paragraphs(self, heading, subheading=""):
        """(tag, text) of a section; without a tag, what stands before the first."""
        return [(tag, " ".join(text.split())) for tag, text in self.sections[heading, subheading]]

    def lines(self, heading):
        """The lines of a section's text, continued ones as one."""
        text = self.sections[heading, ""][0][1].replace("\\\n", "")
        return [re.sub(r" {2,}", " ", line.strip()) for line in text.splitlines()]

    def subheadings(self, heading):
        return [sub for head, sub in self.sections if head == heading and sub]
