"""A screen on which a known animation is played, for tests that run inside tests/desktop/x11-session."""

from PIL import Image
from Xlib import X, display
from Xlib.ext import xfixes  # noqa: F401  (loads the extension's methods)

# Colours of the 15-bit grid: a GIF with few colours reproduces them exactly.
DESKTOP = (33, 66, 132)
PAPER = (255, 255, 255)
INK = (0, 0, 0)
BLOCKS = [(255, 0, 0), (0, 132, 0), (0, 0, 255), (255, 165, 0), (132, 0, 132)]
BLOCK_SIDE = 60


class Screen:
    """One window with a block and a line of text that stand where a numbered step says.

    With a `cell`, squares of so many pixels are of one colour: instead of the text there is a row of single cells.
    """

    def __init__(self, x, y, width, height, cell=1):
        self.area = (x, y, width, height)
        self.cell = cell
        self.display = display.Display()
        screen = self.display.screen()
        self.root = screen.root
        self.depth = screen.root_depth
        # Everything around the window has another colour: a region that is off shows it.
        self.root.change_attributes(background_pixel=pixel(DESKTOP))
        self.root.clear_area()
        self.window = self.root.create_window(x, y, width, height, 0, self.depth, X.InputOutput, X.CopyFromParent,
                                              override_redirect=True, background_pixel=pixel(PAPER),
                                              event_mask=X.ExposureMask)
        self.context = self.window.create_gc(font=self.display.open_font("fixed"))
        self.window.map()
        while self.display.next_event().type != X.Expose:
            pass
        self.hide_pointer()

    def block(self, step):
        """Left, top and colour of the block in a step: it jumps along a diagonal and changes colour."""
        _, _, width, height = self.area
        left, top = step * 37 % (width - BLOCK_SIDE), step * 23 % (height - BLOCK_SIDE)
        return (left - left % self.cell, top - top % self.cell, BLOCKS[step % len(BLOCKS)])

    def show(self, step):
        """Draws a step as a whole: nobody can take a picture of half of it."""
        _, _, width, height = self.area
        left, top, color = self.block(step)
        self.display.grab_server()
        self.context.change(foreground=pixel(PAPER))
        self.window.fill_rectangle(self.context, 0, 0, width, height)
        self.context.change(foreground=pixel(INK), background=pixel(PAPER))
        if self.cell == 1:
            self.window.image_text(self.context, 10, height - 10, f"This is step {step} of the animation".encode())
        else:
            for at in range(0, width, 2 * self.cell):
                self.window.fill_rectangle(self.context, at, height - 2 * self.cell, self.cell, self.cell)
        self.context.change(foreground=pixel(color))
        self.window.fill_rectangle(self.context, left, top, BLOCK_SIDE, BLOCK_SIDE)
        self.display.ungrab_server()
        self.display.sync()

    def dot(self, step):
        """Turns a few pixels over: with every step another colour than before."""
        self.context.change(foreground=pixel(INK if step % 2 else BLOCKS[0]))
        self.window.fill_rectangle(self.context, 4, 4, 3, 3)
        self.display.sync()

    def picture(self, x, y, width, height):
        """What the server shows there, without the pointer."""
        image = self.root.get_image(x, y, width, height, X.ZPixmap, 0xFFFFFFFF)
        return Image.frombytes("RGB", (width, height), image.data, "raw", "BGRX")

    def hide_pointer(self):
        self.root.warp_pointer(0, 0)
        self.display.sync()

    def show_pointer(self, x, y):
        """Moves the pointer there and gives it a known look: an 11 × 11 red square with a black middle."""
        side, hot = 11, 5
        source, mask = (self.root.create_pixmap(side, side, 1) for _ in range(2))
        for pixmap, inset in ((mask, 0), (source, 3)):
            context = pixmap.create_gc(foreground=0)
            pixmap.fill_rectangle(context, 0, 0, side, side)
            context.change(foreground=1)
            pixmap.fill_rectangle(context, inset, inset, side - 2 * inset, side - 2 * inset)
        cursor = source.create_cursor(mask, (0, 0, 0), (0xFFFF, 0, 0), hot, hot)
        self.root.change_attributes(cursor=cursor)
        self.window.change_attributes(cursor=cursor)
        self.root.warp_pointer(x, y)
        self.display.sync()

        def draw_on(picture, left, top):
            """The pointer as it has to appear in a picture whose top left corner is (left, top) of the screen."""
            corner = (x - hot - left, y - hot - top)
            picture.paste((255, 0, 0), (*corner, corner[0] + side, corner[1] + side))
            picture.paste((0, 0, 0), (corner[0] + 3, corner[1] + 3, corner[0] + side - 3, corner[1] + side - 3))
            return picture
        return draw_on


def pixel(color):
    red, green, blue = color
    return red << 16 | green << 8 | blue


__all__ = ["Screen", "BLOCKS", "BLOCK_SIDE", "PAPER", "DESKTOP"]
