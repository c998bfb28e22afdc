#!/usr/bin/python3
"""Another program on an X server into whose window files can be dropped: drop_target.py X Y WIDTH HEIGHT. Prints "ready"
once the window is there, and of each drop the types that were offered and the URIs it got.

After the protocol that freedesktop.org publishes: Drag-and-Drop Protocol for the X Window System, version 5."""

import sys

from Xlib import X, Xatom, display
from Xlib.protocol import event

VERSION = 5
WANTED = "text/uri-list"


class DropTarget:
    def __init__(self, x, y, width, height):
        self.display = display.Display()
        screen = self.display.screen()
        self.window = screen.root.create_window(x, y, width, height, 0, screen.root_depth, X.InputOutput,
                                                X.CopyFromParent, override_redirect=True, background_pixel=0xFFFFFF,
                                                event_mask=X.ExposureMask)
        self.window.change_property(self.atom("XdndAware"), Xatom.ATOM, 32, [VERSION])
        self.window.map()
        self.offered = []
        self.is_over = False

    def atom(self, name):
        return self.display.get_atom(name)

    def tell(self, source, message, *data):
        values = [self.window.id, *data] + [0] * (4 - len(data))
        answer = event.ClientMessage(window=source, client_type=self.atom(message), data=(32, values))
        self.display.create_resource_object("window", source).send_event(answer)
        self.display.flush()

    def run(self):
        while True:
            now = self.display.next_event()
            if now.type == X.Expose:
                print("ready", flush=True)
            elif now.type == X.SelectionNotify:
                self.take(now)
            elif now.type == X.ClientMessage:
                self.answer(self.display.get_atom_name(now.client_type), now.data[1])

    def answer(self, message, data):
        source, accept, copy = data[0], 1, self.atom("XdndActionCopy")
        if message == "XdndEnter":
            self.offered = [self.display.get_atom_name(kind) for kind in data[2:] if kind]
            self.is_over = False
        elif message == "XdndPosition":
            self.tell(source, "XdndStatus", accept, 0, 0, copy)
            if not self.is_over:
                print("over", flush=True)
            self.is_over = True
        elif message == "XdndDrop":
            self.source = source
            self.window.convert_selection(self.atom("XdndSelection"), self.atom(WANTED), self.atom("DROPPED"), data[2])

    def take(self, notice):
        answer = self.window.get_full_property(notice.property, X.AnyPropertyType) if notice.property else None
        self.tell(self.source, "XdndFinished", 1, self.atom("XdndActionCopy"))
        uris = bytes(answer.value).decode().split() if answer else []
        print(*self.offered, *uris, flush=True)


if __name__ == "__main__":
    DropTarget(*map(int, sys.argv[1:])).run()
