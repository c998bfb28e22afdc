#!/usr/bin/python3
"""A clipboard manager that keeps whatever a program that ends asks it to keep. "silent" makes it never answer.

@see freedesktop.org, "Clipboard Manager"; Inter-Client Communication Conventions Manual, 2.7.2 "Incremental Transfers"
"""

import sys

from Xlib import X, Xatom, display
from Xlib.protocol import event

WORDS = 1 << 16  # as long an answer as is still read fast
PIECE = 1 << 16  # bytes, far below what a request may hold


class ClipboardManager:
    def __init__(self):
        self.display = display.Display()
        self.window = self.display.screen().root.create_window(0, 0, 1, 1, 0, X.CopyFromParent,
                                                               event_mask=X.PropertyChangeMask)
        self.clipboard, self.manager, self.save_targets, self.targets, self.incremental, self.place, self.null = (
            self.display.intern_atom(name) for name in (
                "CLIPBOARD", "CLIPBOARD_MANAGER", "SAVE_TARGETS", "TARGETS", "INCR", "KEPT", "NULL"))
        self.not_kept = {self.display.intern_atom(name) for name in ("MULTIPLE", "TIMESTAMP")}
        self.not_kept |= {self.targets, self.save_targets}
        self.kept = {}  # target: (type, format, value)
        self.window.set_selection_owner(self.manager, X.CurrentTime)
        self.display.sync()

    def run(self, is_silent):
        while True:
            request = self.display.next_event()
            if request.type != X.SelectionRequest or is_silent:
                continue
            if request.selection == self.manager and request.target == self.save_targets:
                self.keep_everything()
                self.answer(request, (self.null, 32, []))
            elif request.target == self.targets:
                self.answer(request, (Xatom.ATOM, 32, [self.targets, *self.kept]))
            else:
                self.answer(request, self.kept.get(request.target))

    def keep_everything(self):
        """Fetches all targets from the clipboard's owner, then owns it."""
        _, _, targets = self.fetch(self.targets)
        kept = {target: self.fetch(target) for target in targets if target not in self.not_kept}
        self.kept = {target: value for target, value in kept.items() if value}
        self.window.set_selection_owner(self.clipboard, X.CurrentTime)

    def fetch(self, target):
        self.window.convert_selection(self.clipboard, target, self.place, X.CurrentTime)
        if self.next(lambda got: got.type == X.SelectionNotify).property == X.NONE:
            return None
        value = self.take()
        if value[0] != self.incremental:
            return value
        pieces = []
        while True:  # each piece is written once the one before has been taken away, the last one is empty
            self.next(lambda got: got.type == X.PropertyNotify and got.atom == self.place
                      and got.state == X.PropertyNewValue)
            value = self.take()
            if value is None:
                continue  # the one that said it would come piece by piece
            kind, width, piece = value
            if not piece:
                print(f"{self.display.get_atom_name(target)} came in {len(pieces)} pieces", flush=True)
                return kind, width, b"".join(pieces)
            pieces.append(piece)

    def take(self):
        """The property, which is then gone; none if there is none."""
        value = self.window.get_property(self.place, X.AnyPropertyType, 0, WORDS)
        pieces = [value.value] if value else []
        while value and value.bytes_after:
            value = self.window.get_property(self.place, X.AnyPropertyType, len(pieces) * WORDS, WORDS)
            pieces.append(value.value)
        self.window.delete_property(self.place)
        return value and (value.property_type, value.format, b"".join(pieces) if value.format == 8 else pieces[0])

    def next(self, is_wanted):
        while not is_wanted(got := self.display.next_event()):
            pass
        return got

    def answer(self, request, value):
        where = X.NONE
        if value:
            where = request.property
            kind, width, data = value
            request.requestor.change_property(where, kind, width, data[:PIECE])
            for at in range(PIECE, len(data), PIECE):
                request.requestor.change_property(where, kind, width, data[at:at + PIECE], mode=X.PropModeAppend)
        request.requestor.send_event(event.SelectionNotify(
            time=request.time, requestor=request.requestor, selection=request.selection, target=request.target,
            property=where))
        self.display.flush()


if __name__ == "__main__":
    manager = ClipboardManager()
    print("ready", flush=True)
    manager.run(is_silent="silent" in sys.argv[1:])
