"""What a person does with a pointer and a keyboard, made of what a desktop lets a program do."""

import abc
import contextlib

LEFT, RIGHT, MIDDLE = 0x110, 0x111, 0x112  # BTN_… of linux/input-event-codes.h


class InputDevices(abc.ABC):
    """A pointer and a keyboard that exist until they are closed. Points are those of the desktop's layout."""

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    @abc.abstractmethod
    def close(self):
        """Unplugs both."""

    @abc.abstractmethod
    def move(self, x, y):
        """Moves the pointer there at once."""

    @abc.abstractmethod
    def button(self, button, is_down):
        """Presses or releases a button of the pointer."""

    @abc.abstractmethod
    def hold(self, name, is_down):
        """Presses or releases the key that gives this without modifiers: "Escape", "v", "2", "Shift"."""

    def press(self, button=LEFT):
        self.button(button, True)

    def release(self, button=LEFT):
        self.button(button, False)

    def click(self, x, y, button=LEFT):
        self.move(x, y)
        self.press(button)
        self.release(button)

    def drag(self, start, end, button=LEFT):
        """From one point to the other, by way of the middle."""
        self.move(*start)
        self.press(button)
        self.move((start[0] + end[0]) / 2, (start[1] + end[1]) / 2)
        self.move(*end)
        self.release(button)

    def key(self, chord):
        """Presses and releases a key with modifiers: "Escape", "Control+v", "Logo+Shift+2"."""
        with contextlib.ExitStack() as held:
            for name in chord.split("+"):
                held.enter_context(self.holding(name))

    @contextlib.contextmanager
    def holding(self, name):
        """Keeps one key down meanwhile."""
        self.hold(name, True)
        try:
            yield
        finally:
            self.hold(name, False)
