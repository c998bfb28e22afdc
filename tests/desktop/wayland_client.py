"""Speaks the Wayland protocol to a compositor without any library, as far as the tests need it. Numbers of requests and
events are those of their interfaces' definitions."""

import os
import socket
import struct

LIMIT_SECONDS = 60  # a compositor that has not answered by then hangs
DISPLAY = 1  # the one object that a connection begins with


class Connection:
    """To the compositor of this session. Objects are their numbers.

    @throws RuntimeError  in every function that waits: the compositor refuses something, or has gone
    @throws TimeoutError  likewise: it does not answer
    """

    def __init__(self):
        self._socket = socket.socket(socket.AF_UNIX, socket.SOCK_STREAM)
        self._socket.settimeout(LIMIT_SECONDS)
        self._socket.connect(os.path.join(os.environ["XDG_RUNTIME_DIR"], os.environ["WAYLAND_DISPLAY"]))
        self._received = b""
        self._last_object = DISPLAY
        self._listeners = {}
        self._globals = {}  # interface: [number]
        self._registry = self.new(self._note_global)
        self.send(DISPLAY, 1, self._registry)  # get_registry
        self.sync()

    def close(self):
        self._socket.close()

    def globals(self, interface):
        """How many of these the compositor has, outputs for instance."""
        return len(self._globals.get(interface, []))

    def bind(self, interface, version=1, which=0, note=None):
        """@param note  as new() has it. @return a global as an object. @throws RuntimeError  there is none"""
        numbers = self._globals.get(interface, [])
        if which >= len(numbers):
            raise RuntimeError(f"the compositor has no {interface}")
        bound = self.new(note)
        self.send(self._registry, 0, numbers[which], interface, version, bound)
        return bound

    def new(self, note=None):
        """A number for an object that the next request makes. @param note  is told of its events: note(event, body)"""
        self._last_object += 1
        if note:
            self._listeners[self._last_object] = note
        return self._last_object

    def send(self, target, request, *arguments, file=None):
        """@param arguments  whole numbers and texts. @param file  a descriptor that goes along"""
        body = b""
        for argument in arguments:
            if isinstance(argument, str):
                text = argument.encode() + b"\0"
                body += struct.pack("=I", len(text)) + text + bytes(-len(text) % 4)
            else:
                body += struct.pack("=i" if argument < 0 else "=I", argument)
        message = struct.pack("=II", target, (8 + len(body)) << 16 | request) + body
        if file is None:
            self._socket.sendall(message)
        elif socket.send_fds(self._socket, [message], [file]) != len(message):
            raise RuntimeError("the compositor takes nothing more")

    def sync(self):
        """Waits until the compositor has done all that it was asked for."""
        done = self.new()
        self.send(DISPLAY, 0, done)
        self.wait_for(done)

    def wait_for(self, wanted):
        """Waits for an event of this object, and takes note of those before it."""
        while self._receive() != wanted:
            pass

    def _receive(self):
        """Waits for one event and takes note of it. @return the object that it was for"""
        target, word = struct.unpack("=II", self._take(8))
        event, body = word & 0xFFFF, self._take((word >> 16) - 8)
        if target == DISPLAY and event == 0:
            culprit, code = struct.unpack_from("=II", body)
            raise RuntimeError(f"error {code} of object {culprit}: {body[12:].rstrip(bytes(1)).decode()}")
        if target in self._listeners:
            self._listeners[target](event, body)
        return target

    def _take(self, size):
        while len(self._received) < size:
            more = self._socket.recv(65536)
            if not more:
                raise RuntimeError("the compositor has gone")
            self._received += more
        taken, self._received = self._received[:size], self._received[size:]
        return taken

    def _note_global(self, event, body):
        if event == 0:
            number, length = struct.unpack_from("=II", body)
            self._globals.setdefault(body[8:8 + length - 1].decode(), []).append(number)
