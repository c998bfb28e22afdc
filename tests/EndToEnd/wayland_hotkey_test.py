#!/usr/bin/python3
"""The hotkey of a Wayland desktop whose portal has global shortcuts. Run by CTest in a session without a portal, which
this test brings: wayland_hotkey_test.py WaylandHotkeyTest.NAME"""

import json
import os
import pathlib
import subprocess
import unittest

import wayland_input
from application import LIMIT_SECONDS, phase, program, quillbox, run, until
from running import Running

PORTAL = pathlib.Path(__file__).parents[1] / "desktop" / "shortcuts_portal.py"
SERVICE = "org.quillbox.test.Shortcuts"
TELL = ["dbus-send", "--session", "--print-reply=literal", f"--dest={SERVICE}", "/" + SERVICE.replace(".", "/")]


class WaylandHotkeyTest(unittest.TestCase):
    def setUp(self):
        self.portal = self.run_beside("/usr/bin/python3", "-B", PORTAL, stdout=subprocess.PIPE)
        self.addCleanup(self.portal.stdout.close)
        self.assertEqual(self.portal.stdout.readline(), "ready\n")
        self.user = self.enterContext(wayland_input.Devices())
        bound = run("swaymsg", "bindsym Mod4+Shift+2 exec " + " ".join([*TELL, f"{SERVICE}.Press"]))
        self.assertEqual(bound.returncode, 0, bound.stderr)

    def run_beside(self, *command, **options):
        other = subprocess.Popen(command, text=True, **options)
        self.addCleanup(other.wait)
        self.addCleanup(other.kill)
        return other

    def questions(self):
        return run(*TELL, f"{SERVICE}.Questions").stdout.split()[-1]

    def begins_a_flow(self):
        """Whether a press of the keys does, yet: what was asked for may not have been answered."""
        self.user.key("Logo+Shift+2")
        return phase() != "idle"

    def test_a_press_of_the_keys_begins_a_flow(self):
        self.run_beside(program(), stderr=subprocess.DEVNULL)
        until(lambda: self.questions() == "1", "the desktop is asked")
        until(lambda: phase() == "idle", "the application waits")

        until(self.begins_a_flow, "a flow begins")
        self.assertEqual(self.questions(), "1")

    def test_the_keys_that_were_bound_once_begin_a_flow_after_the_next_start(self):
        for questions in ("1", "2"):
            application = self.run_beside(program(), stderr=subprocess.DEVNULL)
            until(lambda: self.questions() == questions, "the desktop is asked")
            until(lambda: phase() == "idle", "the application waits")
            until(self.begins_a_flow, "a flow begins")
            self.assertEqual(quillbox("quit").returncode, 0)
            self.assertEqual(application.wait(LIMIT_SECONDS), 0)

    def test_the_settings_and_the_panel_tell_which_keys_the_desktop_has_bound(self):
        with Running(stderr=subprocess.DEVNULL) as application:
            until(application.panel, "the panel, as there is no tray")
            application.find("push button", "Settings").do_action(0)
            for keys, windows in (("Super+@", 1), ("Hyper+F9", 2)):
                run(*TELL, f"{SERVICE}.Change", f"string:Press {keys}")
                said = f"The desktop has set the keys to: Press {keys}. Its settings can change them."
                until(lambda: application.texts().count(said) == windows, "the settings say it; the panel, if they differ")

    def test_the_doctor_tells_what_the_desktop_has_bound(self):
        def hotkey():
            services = json.loads(quillbox("doctor", "--json").stdout)["services"]
            service = next(each for each in services if each["service"] == "Hotkey")
            return service["health"], service["used"]

        self.assertEqual(hotkey(), ("limited", "the desktop portal, once it has been asked for Super + Shift + 2"))
        run(*TELL, f"{SERVICE}.Answer", "string:nothing")
        self.run_beside(program(), stderr=subprocess.DEVNULL)
        until(lambda: hotkey() == ("limited", "The desktop has bound no key for Quillbox"), "it is told")
        run(*TELL, f"{SERVICE}.Change", "string:Press F9")
        until(lambda: hotkey() == ("works", "the desktop portal: Press F9"), "it is told")

    def test_the_doctor_tells_who_has_refused_and_how_to_be_asked_again(self):
        run(*TELL, f"{SERVICE}.Answer", "string:refuse")
        self.run_beside(program(), stderr=subprocess.DEVNULL)
        refusal = pathlib.Path(os.environ["XDG_STATE_HOME"]) / "quillbox" / "global-shortcut"
        until(refusal.exists, "the refusal is remembered")
        said = " ".join(quillbox("doctor").stdout.split())
        self.assertIn("You refused it when the desktop asked", said)
        self.assertIn(f"to be asked again, remove {refusal}", said)


if __name__ == "__main__":
    unittest.main()
