"""Covers the cast output of a Wayland desktop with pictures that are known, for tests that run inside
tests/desktop/wayland-session and mutter-session."""

import mmap
import os
import struct

from PIL import Image, ImageDraw

from wayland_client import Connection

# Colours of the 15-bit grid: a GIF with few colours reproduces them exactly.
PAPER = (255, 255, 255)
INK = (0, 0, 0)
BLOCKS = [(255, 0, 0), (0, 132, 0), (0, 0, 255), (255, 165, 0), (132, 0, 132)]
BLOCK_SIDE = 60

BOTTOM_LAYER = 1
ALL_EDGES = 15
XRGB8888 = 1


class Canvas:
    """A surface on the output that is cast, of the output's size: below all windows where the compositor has layers, else
    a full-screen window."""

    def __init__(self, scale=1):
        self.scale = scale
        self.size = None  # points
        self.compositor = compositor = Connection()
        surfaces = compositor.bind("wl_compositor", 4)
        self.shm = compositor.bind("wl_shm")
        output = compositor.bind("wl_output", which=int(os.environ["CAST_OUTPUT"]) - 1)
        self.surface = compositor.new()
        compositor.send(surfaces, 0, self.surface)  # create_surface
        compositor.send(self.surface, 8, scale)  # set_buffer_scale
        if compositor.globals("zwlr_layer_shell_v1"):
            self.become_layer(output)
        else:
            self.become_window(output)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.compositor.close()

    def become_layer(self, output):
        compositor, shell = self.compositor, self.compositor.bind("zwlr_layer_shell_v1")

        def note(event, body):
            if event == 0:
                serial, *size = struct.unpack("=III", body)
                compositor.send(layer, 6, serial)  # ack_configure
                self.size = self.size or tuple(size)

        layer = compositor.new(note)
        compositor.send(shell, 0, layer, self.surface, output, BOTTOM_LAYER, "canvas")  # get_layer_surface
        compositor.send(layer, 1, ALL_EDGES)  # set_anchor
        compositor.send(layer, 2, -1)  # set_exclusive_zone
        compositor.send(self.surface, 6)  # commit
        compositor.wait_for(layer)

    def become_window(self, output):
        compositor, shell = self.compositor, self.compositor.bind("xdg_wm_base", note=self.note_ping)

        def note(event, body):
            if event == 0:
                compositor.send(role, 4, *struct.unpack("=I", body))  # ack_configure

        def note_window(event, body):
            if event == 0 and self.size is None:
                self.size = struct.unpack_from("=ii", body)

        self.shell, role, window = shell, compositor.new(note), compositor.new(note_window)
        compositor.send(shell, 2, role, self.surface)  # get_xdg_surface
        compositor.send(role, 1, window)  # get_toplevel
        compositor.send(window, 11, output)  # set_fullscreen
        compositor.send(self.surface, 6)  # commit
        compositor.wait_for(role)

    def note_ping(self, event, body):
        if event == 0:
            self.compositor.send(self.shell, 3, *struct.unpack("=I", body))  # pong

    def show_picture(self, picture):
        """Shows a picture of the output's size in device pixels, as a whole. Returns when it is on the screen."""
        width, height = (side * self.scale for side in self.size)
        assert picture.size == (width, height), f"{picture.size} is not the output's size, {(width, height)}"
        pixels = picture.convert("RGB").tobytes("raw", "BGRX")
        file = os.memfd_create("canvas")
        os.ftruncate(file, len(pixels))
        with mmap.mmap(file, len(pixels)) as memory:
            memory[:] = pixels
        compositor = self.compositor
        pool = compositor.new()
        compositor.send(self.shm, 0, pool, len(pixels), file=file)  # create_pool
        os.close(file)
        buffer, shown = compositor.new(), compositor.new()
        compositor.send(pool, 0, buffer, 0, width, height, width * 4, XRGB8888)  # create_buffer
        compositor.send(pool, 1)  # destroy
        compositor.send(self.surface, 1, buffer, 0, 0)  # attach
        compositor.send(self.surface, 9, 0, 0, width, height)  # damage_buffer
        compositor.send(self.surface, 3, shown)  # frame
        compositor.send(self.surface, 6)  # commit
        compositor.wait_for(shown)

    def step(self, number, area):
        """The picture of a numbered step in device pixels: a block that jumps along a diagonal of `area`, in points, and
        changes colour; the area's corners and what is around it have colours of their own."""
        image = Image.new("RGB", self.size, BLOCKS[4])
        draw = ImageDraw.Draw(image)
        left, top, width, height = area
        draw.rectangle((left, top, left + width - 1, top + height - 1), fill=PAPER)
        x, y = left + number * 37 % (width - BLOCK_SIDE), top + number * 23 % (height - BLOCK_SIDE)
        draw.rectangle((x, y, x + BLOCK_SIDE - 1, y + BLOCK_SIDE - 1), fill=BLOCKS[number % 4])
        for at in range(left, left + width, 2):  # single pixels
            draw.point((at, top + height - 2), fill=INK)
        draw.point((left, top), fill=BLOCKS[0])
        draw.point((left + width - 1, top), fill=BLOCKS[1])
        draw.point((left, top + height - 1), fill=BLOCKS[2])
        draw.point((left + width - 1, top + height - 1), fill=BLOCKS[3])
        return image.resize((image.width * self.scale, image.height * self.scale), Image.NEAREST)

    def show(self, number, area):
        """Shows a step. @return what a recording of the area must show"""
        picture = self.step(number, area)
        self.show_picture(picture)
        left, top, width, height = area
        points = picture.resize(self.size, Image.NEAREST)
        return points.crop((left, top, left + width, top + height))
