#!/usr/bin/python3
"""A desktop portal that goes along until the given step and then does as it is told: mock_portal.py STEP BEHAVIOUR

STEP is CreateSession, SelectSources or Start; BEHAVIOUR refuses, fails, errs (a D-Bus error), vanishes (the portal's
process ends without an answer), babbles (an answer without what is wanted) or waits (no answer). Or STEP is
OpenPipeWireRemote; BEHAVIOUR errs, vanishes, breaks (a connection whose other side is closed), hangs (one that is closed
as soon as something has been said) or closes (the session ends). Says "ready" on its standard output when it is on the
bus, "reached" when the step is, "withdrawn" and "closed" when a question and the session are. Until the step every
answer is as good as a real one's: a token is given that no start before has had.

Selected() of org.quillbox.test.ScreenCast on the portal's object gives what SelectSources was called with, as JSON.
"""

import json
import socket
import sys

import dbus
import dbus.mainloop.glib
import dbus.service
from gi.repository import GLib

DESKTOP = "org.freedesktop.portal.Desktop"
SCREEN_CAST = "org.freedesktop.portal.ScreenCast"
PATH = "/org/freedesktop/portal/desktop"
SESSION = PATH + "/session/mock"
CODES = {"refuses": 1, "fails": 2, "babbles": 0}

dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)


class Request(dbus.service.Object):
    @dbus.service.signal("org.freedesktop.portal.Request", signature="ua{sv}")
    def Response(self, code, results):
        pass

    @dbus.service.method("org.freedesktop.portal.Request")
    def Close(self):
        print("withdrawn", flush=True)


class Session(dbus.service.Object):
    @dbus.service.signal("org.freedesktop.portal.Session", signature="a{sv}")
    def Closed(self, details):
        pass

    @dbus.service.method("org.freedesktop.portal.Session")
    def Close(self):
        print("closed", flush=True)


class Portal(dbus.service.Object):
    def __init__(self, loop, step, behaviour):
        self.loop, self.step, self.behaviour = loop, step, behaviour
        self.name = dbus.service.BusName(DESKTOP, dbus.SessionBus())
        super().__init__(self.name, PATH)
        self.session = Session(dbus.SessionBus(), SESSION)
        self.selected, self.starts, self.remote = [], 0, None

    def answer(self, step, sender, options, results):
        """Answers as a portal does: first the call, with the request's path, then by its signal."""
        token = sender[1:].replace(".", "_")
        path = f"{PATH}/request/{token}/{options['handle_token']}"
        request = Request(dbus.SessionBus(), path)
        code = 0
        if step == self.step:
            print("reached", flush=True)
            if self.behaviour == "errs":
                raise dbus.DBusException("this is not the day", name="org.freedesktop.portal.Error.Failed")
            if self.behaviour == "waits":
                return path
            if self.behaviour == "vanishes":
                GLib.idle_add(self.loop.quit)
                return path
            code, results = CODES[self.behaviour], {}
        GLib.idle_add(lambda: request.Response(dbus.UInt32(code), dbus.Dictionary(results, signature="sv")))
        return path

    @dbus.service.method("org.freedesktop.DBus.Properties", in_signature="s", out_signature="a{sv}")
    def GetAll(self, _interface):
        return {"version": dbus.UInt32(4), "AvailableSourceTypes": dbus.UInt32(1), "AvailableCursorModes": dbus.UInt32(3)}

    @dbus.service.method(SCREEN_CAST, in_signature="a{sv}", out_signature="o", sender_keyword="sender")
    def CreateSession(self, options, sender):
        return self.answer("CreateSession", sender, options, {"session_handle": SESSION})

    @dbus.service.method(SCREEN_CAST, in_signature="oa{sv}", out_signature="o", sender_keyword="sender")
    def SelectSources(self, _session, options, sender):
        self.selected.append(options)
        return self.answer("SelectSources", sender, options, {})

    @dbus.service.method(SCREEN_CAST, in_signature="osa{sv}", out_signature="o", sender_keyword="sender")
    def Start(self, _session, _window, options, sender):
        self.starts += 1
        streams = dbus.Array([dbus.Struct((dbus.UInt32(42), dbus.Dictionary({}, signature="sv")), signature="ua{sv}")])
        return self.answer("Start", sender, options, {"streams": streams, "restore_token": f"token-{self.starts}"})

    @dbus.service.method(SCREEN_CAST, in_signature="oa{sv}", out_signature="h", async_callbacks=("done", "failed"))
    def OpenPipeWireRemote(self, _session, _options, done, failed):
        print("reached", flush=True)
        if self.behaviour == "errs":
            failed(dbus.DBusException("this is not the day", name="org.freedesktop.portal.Error.Failed"))
            return
        if self.behaviour == "vanishes":
            self.loop.quit()
            return
        self.remote, theirs = socket.socketpair()
        done(dbus.types.UnixFd(theirs))
        theirs.close()
        if self.behaviour == "breaks":
            self.remote.close()
        elif self.behaviour == "hangs":
            GLib.io_add_watch(self.remote.fileno(), GLib.IO_IN, lambda *_: self.remote.close())
        elif self.behaviour == "closes":
            GLib.idle_add(lambda: self.session.Closed(dbus.Dictionary({}, signature="sv")))

    @dbus.service.method("org.quillbox.test.ScreenCast", out_signature="s")
    def Selected(self):
        return json.dumps(self.selected)


main_loop = GLib.MainLoop()
portal = Portal(main_loop, *sys.argv[1:])
print("ready", flush=True)
main_loop.run()
