#!/usr/bin/python3
"""The desktop portal with global shortcuts: the real front end, and behind it a user who does as they are told. Instead
of the real front end, which may be old, one that does what is new in 1.21, as far as global shortcuts need it.

Runs until it is killed, the front end with it. Says "ready" on its standard output when both are on the bus. Is told
what to do on the session bus: service and interface org.quillbox.test.Shortcuts, path /org/quillbox/test/Shortcuts.
"""

import ctypes
import os
import pathlib
import signal
import subprocess
import tempfile

import dbus
import dbus.mainloop.glib
import dbus.service
from gi.repository import GLib

TEST = "org.quillbox.test.Shortcuts"
IMPLEMENTATION = "org.freedesktop.impl.portal.GlobalShortcuts"
BACK_END = "org.freedesktop.impl.portal.desktop.quillboxtest"
PORTAL = "org.freedesktop.portal.Desktop"
PATH = "/org/freedesktop/portal/desktop"
SHORTCUTS = "org.freedesktop.portal.GlobalShortcuts"
KDES = "org.kde.kglobalaccel"
APPLICATION = "org.quillbox.quillbox"

dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)


def end_with_parent():
    """In a child: it ends when this process does, however that comes about."""
    ctypes.CDLL(None).prctl(1, signal.SIGKILL)  # PR_SET_PDEATHSIG


class Session(dbus.service.Object):
    @dbus.service.method("org.freedesktop.impl.portal.Session")
    def Close(self):
        self.remove_from_connection()


class BackEnd(dbus.service.Object):
    """Binds what it is asked to, or not; counts the questions."""

    def __init__(self, bus):
        self.name = dbus.service.BusName(BACK_END, bus)
        super().__init__(self.name, PATH)
        self.answer, self.questions, self.wishes, self.session, self.is_bound = "bind", 0, [], "", False

    def bound(self, trigger):
        return dbus.Array([dbus.Struct((name, dbus.Dictionary(
            {"description": wish["description"], "trigger_description": trigger}, signature="sv")), signature="sa{sv}")
            for name, wish in self.wishes], signature="(sa{sv})")

    @dbus.service.method(IMPLEMENTATION, in_signature="oosa{sv}", out_signature="ua{sv}")
    def CreateSession(self, _handle, session, _app, options):
        Session(dbus.SessionBus(), session)
        self.session, self.is_bound = session, False
        if self.answer != "with session":
            return dbus.UInt32(0), dbus.Dictionary({}, signature="sv")
        self.wishes = options["shortcuts"]
        return dbus.UInt32(0), dbus.Dictionary({"shortcuts": self.bound("Press Super+@")}, signature="sv")

    @dbus.service.method(IMPLEMENTATION, in_signature="ooa(sa{sv})sa{sv}", out_signature="ua{sv}")
    def BindShortcuts(self, _handle, _session, wishes, _window, _options):
        if self.is_bound:  # allowed once
            return dbus.UInt32(2), dbus.Dictionary({}, signature="sv")
        self.questions += 1
        self.wishes, self.is_bound = wishes, True
        if self.answer == "like Plasma":
            return dbus.UInt32(0), dbus.Dictionary({}, signature="sv")
        if self.answer == "like GNOME":
            bound = self.bound("Press <super><shift>2")
            self.ShortcutsChanged(self.session, bound)
            return dbus.UInt32(0), dbus.Dictionary({"shortcuts": bound}, signature="sv")
        code = {"bind": 0, "nothing": 0, "refuse": 1, "fail": 2}[self.answer]
        bound = self.bound("Press Super+@") if self.answer == "bind" else dbus.Array([], signature="(sa{sv})")
        return dbus.UInt32(code), dbus.Dictionary({"shortcuts": bound}, signature="sv")

    @dbus.service.method(IMPLEMENTATION, in_signature="oo", out_signature="ua{sv}")
    def ListShortcuts(self, _handle, _session):
        return dbus.UInt32(0), dbus.Dictionary({"shortcuts": self.bound("Press Super+@")}, signature="sv")

    @dbus.service.signal(IMPLEMENTATION, signature="osta{sv}")
    def Activated(self, session, shortcut, moment, options):
        pass

    @dbus.service.signal(IMPLEMENTATION, signature="oa(sa{sv})")
    def ShortcutsChanged(self, session, shortcuts):
        pass

    @dbus.service.method("org.freedesktop.DBus.Properties", in_signature="s", out_signature="a{sv}")
    def GetAll(self, _interface):
        return {"version": dbus.UInt32(1)}

    @dbus.service.method("org.freedesktop.DBus.Properties", in_signature="ss", out_signature="v")
    def Get(self, _interface, _name):
        return dbus.UInt32(1)


class Request(dbus.service.Object):
    @dbus.service.signal("org.freedesktop.portal.Request", signature="ua{sv}")
    def Response(self, code, results):
        pass

    @dbus.service.method("org.freedesktop.portal.Request")
    def Close(self):
        pass


class NewFrontEnd(dbus.service.Object):
    """Begins sessions only with programs that have said who they are, before they said anything else."""

    def __init__(self, bus):
        self.name = dbus.service.BusName(PORTAL, bus)
        super().__init__(bus, PATH)
        self.bus, self.names = bus, {}

    def note(self, sender, name=""):
        """@return whether it is the first call of that program"""
        is_first = sender not in self.names
        self.names.setdefault(sender, name)
        return is_first

    def respond(self, sender, options, results):
        handle = f"{PATH}/request/{sender[1:].replace('.', '_')}/{options['handle_token']}"
        request = Request(self.bus, handle)

        def answer():
            request.Response(dbus.UInt32(0), dbus.Dictionary(results, signature="sv"))
            request.remove_from_connection()

        GLib.idle_add(answer)
        return dbus.ObjectPath(handle)

    @dbus.service.method("org.freedesktop.host.portal.Registry", in_signature="sa{sv}", sender_keyword="sender")
    def Register(self, name, _options, sender):
        if not self.note(sender, name):
            raise dbus.DBusException("Already known", name="org.freedesktop.portal.Error.Failed")

    @dbus.service.method("org.freedesktop.DBus.Properties", in_signature="s", out_signature="a{sv}",
                         sender_keyword="sender")
    def GetAll(self, _interface, sender):
        self.note(sender)
        return {"version": dbus.UInt32(2)}

    @dbus.service.method(SHORTCUTS, in_signature="a{sv}", out_signature="o", sender_keyword="sender")
    def CreateSession(self, options, sender):
        self.note(sender)
        if self.names[sender] != APPLICATION:
            raise dbus.DBusException("An app id is required", name="org.freedesktop.portal.Error.NotAllowed")
        return self.respond(sender, options, {"session_handle": PATH + "/session/new/" + options["session_handle_token"]})

    @dbus.service.method(SHORTCUTS, in_signature="oa(sa{sv})sa{sv}", out_signature="o", sender_keyword="sender")
    def BindShortcuts(self, _session, wishes, _window, options, sender):
        properties = dbus.Dictionary({"trigger_description": "Press F9"}, signature="sv")
        bound = [dbus.Struct((name, properties), signature="sa{sv}") for name, _ in wishes]
        return self.respond(sender, options, {"shortcuts": dbus.Array(bound, signature="(sa{sv})")})


class KDEsShortcuts(dbus.service.Object):
    """KDE's own service, in which one component has these keys."""

    def __init__(self, bus, component, keys):
        self.name = dbus.service.BusName(KDES, bus)
        super().__init__(self.name, "/kglobalaccel")
        self.component, self.keys = component, keys

    @dbus.service.method("org.kde.KGlobalAccel", out_signature="aas")
    def allMainComponents(self):
        return [["kwin", "KWin"], [self.component, "Quillbox"]]

    @dbus.service.method("org.kde.KGlobalAccel", in_signature="as", out_signature="ai")
    def shortcut(self, identity):
        return self.keys if list(identity[:2]) == [self.component, "record-region"] else []


class Control(dbus.service.Object):
    """What a test has the user, and the portal, do."""

    def __init__(self, bus, back_end, folder):
        self.name = dbus.service.BusName(TEST, bus)
        super().__init__(self.name, "/" + TEST.replace(".", "/"))
        self.back_end, self.folder, self.front_end, self.awaited = back_end, pathlib.Path(folder), None, None
        self.kdes = None
        bus.watch_name_owner(PORTAL, self.note_owner)

    def note_owner(self, owner):
        if self.awaited and bool(owner) == self.awaited[0]:
            done, self.awaited = self.awaited[1], None
            done()

    def start(self, interfaces, done):
        text = f"[portal]\nDBusName={BACK_END}\nInterfaces={interfaces}\nUseIn=sway\n"
        (self.folder / "quillboxtest.portal").write_text(text)
        self.awaited = (True, done)
        self.front_end = subprocess.Popen(["/usr/libexec/xdg-desktop-portal"], preexec_fn=end_with_parent,
                                          stderr=subprocess.DEVNULL,
                                          env={**os.environ, "XDG_DESKTOP_PORTAL_DIR": str(self.folder)})

    @dbus.service.method(TEST, in_signature="s")
    def Answer(self, how):
        """How the user answers from now on: bind, nothing (of what is wished), refuse, or fail (not the user); "with
        session" binds what the option of a new session wishes, before anybody is asked, as Plasma 5 does; "like Plasma"
        (6.4) does not list in the answer what is bound, "like GNOME" (48) tells it also by the signal, and before."""
        self.back_end.answer = how

    @dbus.service.method(TEST, out_signature="u")
    def Questions(self):
        """How often they were asked."""
        return self.back_end.questions

    @dbus.service.method(TEST, out_signature="s")
    def Wish(self):
        """What they were asked last."""
        return "; ".join(f"{name}: {wish['description']}, {wish['preferred_trigger']}"
                         for name, wish in self.back_end.wishes)

    @dbus.service.method(TEST)
    def Press(self):
        """Presses the keys of the last session."""
        self.back_end.Activated(self.back_end.session, "record-region", dbus.UInt64(1), dbus.Dictionary({}, signature="sv"))

    @dbus.service.method(TEST)
    def PressElsewhere(self):
        """Presses the keys of another session."""
        self.back_end.Activated(self.back_end.session + "_", "record-region", dbus.UInt64(1),
                                dbus.Dictionary({}, signature="sv"))

    @dbus.service.method(TEST, out_signature="s")
    def Session(self):
        """The path of the last session."""
        return self.back_end.session

    @dbus.service.method(TEST, in_signature="s")
    def Change(self, trigger):
        """Sets other keys in the desktop's settings."""
        self.back_end.ShortcutsChanged(self.back_end.session, self.back_end.bound(trigger))

    @dbus.service.method(TEST, async_callbacks=("done", "_failed"))
    def StopPortal(self, done, _failed):
        self.awaited = (False, done)
        self.front_end.kill()
        self.front_end.wait()

    @dbus.service.method(TEST)
    def StartNewPortal(self):
        """Once the real one has been stopped."""
        self.front_end = NewFrontEnd(dbus.bus.BusConnection(dbus.bus.BusConnection.TYPE_SESSION))  # has the path to itself

    @dbus.service.method(TEST, in_signature="sai")
    def HaveKeys(self, component, keys):
        """Begins KDE's service, which knows better than its portal."""
        self.kdes = KDEsShortcuts(dbus.SessionBus(), component, keys)

    @dbus.service.method(TEST, in_signature="s", async_callbacks=("done", "_failed"))
    def StartPortal(self, interfaces, done, _failed):
        self.start(interfaces, done)


def main():
    bus = dbus.SessionBus()
    with tempfile.TemporaryDirectory() as folder:
        control = Control(bus, BackEnd(bus), folder)
        GLib.idle_add(lambda: control.start(IMPLEMENTATION + ";", lambda: print("ready", flush=True)))
        GLib.MainLoop().run()


main()
