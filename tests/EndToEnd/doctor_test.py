#!/usr/bin/python3
"""`quillbox doctor` on real desktops, and on none. Run by CTest: doctor_test.py CLASS.NAME"""

import json
import os
import pathlib
import pty
import signal
import subprocess
import unittest

from application import program, quillbox, until


class DoctorTest(unittest.TestCase):
    def services(self, status):
        """What it says of each service, and that it ends with this status."""
        done = quillbox("doctor", "--json")
        self.assertEqual(done.stderr, "")
        self.assertEqual(done.returncode, status, done.stdout)
        report = json.loads(done.stdout)
        self.assertEqual(report["canRecord"], status == 0)
        return {service["service"]: service for service in report["services"]}

    def assert_health(self, services, **wanted):
        self.assertEqual({name: services[name.replace("_", " ")]["health"] for name in wanted}, wanted, services)

    def assert_fits(self, status):
        done = quillbox("doctor")
        self.assertEqual(done.returncode, status)
        self.assertNotIn("\x1b", done.stdout)
        for line in done.stdout.splitlines():
            self.assertLessEqual(len(line), 80, line)
        return done.stdout


class X11Test(DoctorTest):
    """With a tray."""

    def test_finds_what_there_is(self):
        services = self.services(0)
        self.assert_health(services, Screen="works", Hotkey="works", Clipboard="works", Tray="works")
        self.assertEqual(services["Screen"]["found"], ["extensions MIT-SHM, DAMAGE, XFIXES, RANDR"])
        self.assertEqual(services["Tray"]["used"], "XEmbed")
        self.assertIn("The screen can be recorded.", self.assert_fits(0))

    def test_tells_that_another_program_holds_the_hotkey(self):
        from desktop import take_hotkey
        other = take_hotkey()
        hotkey = self.services(0)["Hotkey"]
        self.assertEqual((hotkey["health"], hotkey["used"]), ("limited", "Another program holds Super + Shift + 2"))
        del other

    def test_asks_the_running_application_for_the_hotkey(self):
        from desktop import Desktop, take_hotkey
        other = take_hotkey()
        with Desktop():
            self.assertEqual(self.services(0)["Hotkey"]["used"], "Another program holds Super + Shift + 2")
            other.close()
            until(lambda: self.services(0)["Hotkey"]["found"] == ["it is held, as Quillbox runs"], "it is had")

    def test_gives_the_hotkey_back_after_a_look(self):
        from desktop import Desktop
        self.services(0)
        with Desktop() as desktop:
            self.assertEqual(self.services(0)["Hotkey"]["found"], ["it is held, as Quillbox runs"])
            desktop.press_hotkey()
            desktop.wait_for("selecting")

    def test_is_colorful_on_a_terminal_only(self):
        ours, theirs = pty.openpty()
        subprocess.run([program(), "doctor"], stdout=theirs, env={**os.environ, "TERM": "xterm"}, check=True)
        os.close(theirs)
        self.assertIn(b"\x1b[32m", os.read(ours, 65536))
        self.assert_fits(0)


class LackingServerTest(DoctorTest):
    """On a server without shared memory."""

    def test_tells_what_the_server_lacks(self):
        screen = self.services(0)["Screen"]
        self.assertEqual(screen["health"], "limited")
        self.assertIn("the server lacks MIT-SHM", screen["advice"][0])


class WaylandTest(DoctorTest):
    """With the portal and PipeWire, but no global shortcuts."""

    def test_finds_what_there_is(self):
        services = self.services(0)
        self.assert_health(services, Screen="works", Hotkey="limited", Clipboard="works")
        self.assertEqual(services["Screen"]["found"], ["the portal's ScreenCast, version 4: monitors", "PipeWire",
                                                       "the desktop will ask which monitor to show"])
        self.assertIn("no global shortcuts", services["Hotkey"]["used"])
        self.assertIn("data control", services["Clipboard"]["used"])
        self.assert_fits(0)

    def test_knows_whether_the_desktop_may_remember_the_monitor(self):
        state = pathlib.Path(os.environ["XDG_STATE_HOME"]) / "quillbox"
        state.mkdir()
        (state / "screen-cast").write_text("0A1B2C3D\n")
        self.assertIn("the desktop may remember which monitor to show", self.services(0)["Screen"]["found"])

    def test_does_not_wait_for_a_portal_that_hangs(self):
        os.kill(int(os.environ["PORTAL_PID"]), signal.SIGSTOP)
        self.addCleanup(os.kill, int(os.environ["PORTAL_PID"]), signal.SIGCONT)
        services = self.services(1)
        self.assertEqual(services["Screen"]["used"], "The desktop portal does not answer")
        self.assertEqual(services["Hotkey"]["used"], "The desktop portal does not answer")

    def test_tells_that_pipewire_has_gone(self):
        os.kill(int(os.environ["PIPEWIRE_PID"]), signal.SIGKILL)
        screen = self.services(1)["Screen"]
        self.assertIn("which does not run", screen["used"])
        self.assertEqual(screen["packages"], ["pipewire", "wireplumber"])

    def test_does_not_wait_for_a_pipewire_that_hangs(self):
        os.kill(int(os.environ["PIPEWIRE_PID"]), signal.SIGSTOP)
        self.addCleanup(os.kill, int(os.environ["PIPEWIRE_PID"]), signal.SIGCONT)
        self.assertIn("does not answer", self.services(1)["Screen"]["used"])

    def test_tells_that_pipewire_has_no_session_manager(self):
        os.kill(int(os.environ["WIREPLUMBER_PID"]), signal.SIGKILL)
        until(lambda: quillbox("doctor").returncode == 1, "PipeWire has noticed")
        screen = self.services(1)["Screen"]
        self.assertIn("has no session manager", screen["used"])
        self.assertEqual((screen["found"][1:], screen["packages"]), (["PipeWire"], ["wireplumber"]))
        self.assertIn("systemctl --user start wireplumber", screen["advice"][0])


class WithoutPortalTest(DoctorTest):
    """A Wayland desktop with neither portal nor PipeWire."""

    def test_names_what_to_install(self):
        services = self.services(1)
        self.assert_health(services, Screen="missing", Hotkey="limited", Clipboard="works")
        self.assertEqual(services["Screen"]["packages"],
                         ["xdg-desktop-portal", "xdg-desktop-portal-wlr", "pipewire", "wireplumber"])
        self.assertIn("sudo apt install xdg-desktop-portal ", self.assert_fits(1))


class NothingTest(DoctorTest):
    """No display, no bus."""

    def setUp(self):
        for name in ("DISPLAY", "WAYLAND_DISPLAY", "XDG_SESSION_TYPE", "XDG_CURRENT_DESKTOP", "XDG_RUNTIME_DIR"):
            os.environ.pop(name, None)
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = os.environ["DBUS_SYSTEM_BUS_ADDRESS"] = "unix:path=/nonexistent"

    def test_says_what_is_missing_where_nothing_is(self):
        services = self.services(1)
        self.assert_health(services, Screen="missing", Hotkey="limited", Clipboard="missing", Tray="limited",
                           Updates="limited")
        self.assertEqual(services["Screen"]["used"], "DISPLAY is not set, so there is no X11 display to record")
        self.assertIn("The screen can't be recorded.", self.assert_fits(1))

    def test_needs_a_place_for_its_report(self):
        with open("/dev/full", "w", encoding="ascii") as full:
            done = subprocess.run([program(), "doctor"], stdout=full, stderr=subprocess.PIPE, text=True, check=False)
        self.assertEqual((done.returncode, done.stderr),
                         (1, "quillbox: the report can't be written to standard output\n"))


if __name__ == "__main__":
    unittest.main()
