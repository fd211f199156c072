#!/usr/bin/env python3
"""Draws the two padlocks of the render options dialog, 16 x 16 pixels with an alpha channel.

The shapes lie on whole pixels, so that they stay sharp at 16 pixels and at whole multiples; only the bow
is round, and its edge is smoothed. Run it in this folder after a change and keep the PNG files with it.
"""

import struct
import zlib

SIZE = 16
SAMPLES = 8  # on each side of a pixel
CLOSED = (0x5A, 0x64, 0x70)
OPEN = (0x1F, 0x74, 0xC4)
KEYHOLE = (0xFF, 0xFF, 0xFF)


def in_body(x, y):
    """A box of 12 x 8 pixels with its corners cut."""
    if not (2 <= x < 14 and 7 <= y < 15):
        return False
    corner = min(x - 2, 14 - x) + min(y - 7, 15 - y)
    return corner >= 0.7


def in_keyhole(x, y):
    return 7 <= x < 9 and 10 <= y < 13


def in_bow(x, y, left, top, end):
    """A bow of 8 pixels' width, 2 pixels thick; its left foot reaches the body, its right one `end`."""
    middle, round_to = left + 4, top + 4
    if y < round_to:
        distance = ((x - middle) ** 2 + (y - round_to) ** 2) ** 0.5
        return 2 <= distance < 4
    return (left <= x < left + 2 and y < 7.5) or (left + 6 <= x < left + 8 and y < end)


def sample(x, y, opened):
    """The colour at a point, or None where nothing is drawn."""
    colour = OPEN if opened else CLOSED
    if in_keyhole(x, y):
        return KEYHOLE
    if in_body(x, y):
        return colour
    if in_bow(x, y, 8, 0, 6) if opened else in_bow(x, y, 4, 1, 7.5):
        return colour
    return None


def pixel(column, row, opened):
    hits = [sample(column + (i + 0.5) / SAMPLES, row + (j + 0.5) / SAMPLES, opened)
            for i in range(SAMPLES) for j in range(SAMPLES)]
    colours = [hit for hit in hits if hit]
    if not colours:
        return (0, 0, 0, 0)
    mixed = tuple(round(sum(c[k] for c in colours) / len(colours)) for k in range(3))
    return mixed + (round(255 * len(colours) / len(hits)),)


def chunk(name, data):
    return struct.pack(">I", len(data)) + name + data + struct.pack(">I", zlib.crc32(name + data))


def write(file, opened):
    rows = b"".join(b"\0" + b"".join(bytes(pixel(x, y, opened)) for x in range(SIZE)) for y in range(SIZE))
    with open(file, "wb") as png:
        png.write(b"\x89PNG\r\n\x1a\n"
                  + chunk(b"IHDR", struct.pack(">IIBBBBB", SIZE, SIZE, 8, 6, 0, 0, 0))
                  + chunk(b"IDAT", zlib.compress(rows, 9))
                  + chunk(b"IEND", b""))


if __name__ == "__main__":
    write("padlock_open.png", True)
    write("padlock_closed.png", False)
