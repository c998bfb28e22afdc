#!/usr/bin/python3
"""A desktop portal that goes along until the given step and then does as it is told: mock_portal.py STEP BEHAVIOUR

STEP is CreateSession, SelectSources or Start; BEHAVIOUR refuses, fails, errs (a D-Bus error), vanishes (the portal's
process ends without an answer), babbles (an answer without what is wanted) or waits (no answer). Says "ready" on its
standard output when it is on the bus, and "reached" when the step is. Until then every answer is as good as a real one's.
"""

import sys

import dbus
import dbus.mainloop.glib
import dbus.service
from gi.repository import GLib

DESKTOP = "org.freedesktop.portal.Desktop"
SCREEN_CAST = "org.freedesktop.portal.ScreenCast"
PATH = "/org/freedesktop/portal/desktop"
CODES = {"refuses": 1, "fails": 2, "babbles": 0}

dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)


class Request(dbus.service.Object):
    @dbus.service.signal("org.freedesktop.portal.Request", signature="ua{sv}")
    def Response(self, code, results):
        pass

    @dbus.service.method("org.freedesktop.portal.Request")
    def Close(self):
        print("withdrawn", flush=True)


class Portal(dbus.service.Object):
    def __init__(self, loop, step, behaviour):
        self.loop, self.step, self.behaviour = loop, step, behaviour
        self.name = dbus.service.BusName(DESKTOP, dbus.SessionBus())
        super().__init__(self.name, PATH)

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
        return self.answer("CreateSession", sender, options, {"session_handle": PATH + "/session/mock"})

    @dbus.service.method(SCREEN_CAST, in_signature="oa{sv}", out_signature="o", sender_keyword="sender")
    def SelectSources(self, _session, options, sender):
        return self.answer("SelectSources", sender, options, {})

    @dbus.service.method(SCREEN_CAST, in_signature="osa{sv}", out_signature="o", sender_keyword="sender")
    def Start(self, _session, _window, options, sender):
        return self.answer("Start", sender, options, {})


main_loop = GLib.MainLoop()
portal = Portal(main_loop, *sys.argv[1:])
print("ready", flush=True)
main_loop.run()
