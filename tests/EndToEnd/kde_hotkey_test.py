#!/usr/bin/python3
"""The hotkey on KDE, which has global shortcuts of its own kind. Run by CTest inside tests/desktop/kde-session, one test a
session; the keys are those that HOTKEY names, as KDE's settings do."""

import json
import os
import pathlib
import subprocess
import unittest

from gi.repository import Gio, GLib

import kwin_input
from application import LIMIT_SECONDS, phase, program, quillbox, until

KEYS = os.environ.get("HOTKEY", "Meta+@")
APPLICATION = os.environ["QUILLBOX_APP_ID"]
COMPONENT = APPLICATION + "quillbox_shortcuts"
META = 0x10000000  # Qt::MetaModifier


class KDEHotkeyTest(unittest.TestCase):
    def setUp(self):
        self.user = self.enterContext(kwin_input.Devices())

    def start(self):
        application = subprocess.Popen([program()], stdin=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.addCleanup(application.wait)
        self.addCleanup(application.kill)
        return application

    def quit(self, application):
        self.assertEqual(quillbox("quit").returncode, 0)
        self.assertEqual(application.wait(LIMIT_SECONDS), 0)

    def assert_has(self, keys):
        until(lambda: told() == {"status": "active", "keys": keys}, f"{keys} are in force")

    def assert_begins_a_flow(self, chord):
        self.user.key(chord)
        until(lambda: phase() == "selecting", "a flow begins")
        self.assertEqual(pathlib.Path(os.environ["OPENED_SETTINGS"]).read_text(), "", "System Settings was not opened")

    def test_the_physical_keys_begin_a_flow(self):
        self.start()
        self.assert_has(KEYS)
        self.assertEqual(doctors_words(), ("works", f"the desktop portal: {KEYS}"))
        self.assert_begins_a_flow("Logo+Shift+2")

    def test_keys_that_the_user_has_changed_are_kept_and_told(self):
        application = self.start()
        self.assert_has(KEYS)
        set_keys(COMPONENT, META | ord("J"))
        self.assert_has("Meta+J")
        self.quit(application)
        self.assertEqual(doctors_words(), ("works", "the desktop portal: Meta+J"), "also while nothing runs")
        application = self.start()
        self.assert_has("Meta+J")
        self.assert_begins_a_flow("Logo+j")
        self.quit(application)
        set_keys(COMPONENT, 0)
        self.start()
        until(lambda: told() == {"status": "unassigned"}, "there are no keys")

    def test_does_not_claim_keys_that_are_another_programs(self):
        shortcuts("doRegister", "(as)", (["another", "action", "Another", "Action"],))
        shortcuts("setShortcut", "(asaiu)", (["another", "action", "Another", "Action"], [META | ord("@")], 2))
        self.start()
        until(lambda: told() == {"status": "unassigned"}, "there are no keys")


def told():
    """What the application tells of its hotkey; none while it does not answer."""
    try:
        return bus().call_sync(APPLICATION, "/" + APPLICATION.replace(".", "/"), "org.freedesktop.DBus.Properties", "Get",
                               GLib.Variant("(ss)", ("org.quillbox.quillbox", "Hotkey")), None, Gio.DBusCallFlags.NONE,
                               -1, None).unpack()[0]
    except GLib.GError:
        return None


def bus():
    return Gio.bus_get_sync(Gio.BusType.SESSION)


def doctors_words():
    services = json.loads(quillbox("doctor", "--json").stdout)["services"]
    service = next(each for each in services if each["service"] == "Hotkey")
    return service["health"], service["used"]


def set_keys(component, keys):
    """As System Settings does."""
    shortcuts("setForeignShortcut", "(asai)", ([component, "record-region", "", ""], [keys]))


def shortcuts(method, signature, arguments):
    """Asks the service that System Settings asks."""
    return bus().call_sync(
        "org.kde.kglobalaccel", "/kglobalaccel", "org.kde.KGlobalAccel", method, GLib.Variant(signature, arguments), None,
        Gio.DBusCallFlags.NONE, -1, None).unpack()


if __name__ == "__main__":
    unittest.main()
