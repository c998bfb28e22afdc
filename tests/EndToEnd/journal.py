"""Looks into the journal of a recording that goes on, as tests on real desktops need to."""

import os
import pathlib
import struct

from application import quillbox, until

FOLDER = pathlib.Path(os.environ.get("XDG_CACHE_HOME") or pathlib.Path(os.environ["HOME"], ".cache"), "Quillbox")
HEADER_BYTES = 32
RECORD = struct.Struct("<IIqIII")
PICTURE, STILL = 2, 3


def journals():
    return sorted(FOLDER.glob("recording-*.journal"))


def kinds(path):
    """The kind of each record, in order."""
    data, at, found = path.read_bytes(), HEADER_BYTES, []
    while at + RECORD.size <= len(data):
        kind, _, _, payload, _, _ = RECORD.unpack_from(data, at)
        at += RECORD.size + payload
        found.append(kind)
    return found


def wait_until_kept(show):
    """Has something shown, and waits until the one recording that goes on has it on disk, and that it stayed."""
    until(journals, "there is a journal")
    before = len(kinds(journals()[0]))
    show()

    def is_kept():
        later = kinds(journals()[0])[before:]
        return PICTURE in later and later[-1] == STILL
    until(is_kept, "the journal has it")


def recover(*arguments):
    return quillbox("recover", *arguments)
