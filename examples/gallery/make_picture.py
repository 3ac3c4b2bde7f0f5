#!/usr/bin/env python3
"""Draws the gallery's picture, a sign on the background that tool tips leave out.

Usage: make_picture.py FILE          writes the bitmap
       make_picture.py --check FILE  exit code 1 when the file differs from what would be written
"""
import math
import pathlib
import struct
import sys

SIZE = 40
SAMPLES = 4  # each way, for a pixel on an edge
BACKGROUND = (254, 253, 206)
RING, DISC, SIGN = (20, 60, 120), (60, 130, 210), (255, 255, 255)


def color_at(x, y):
    """The colour of a point; the centre of the picture is 0, 0."""
    distance = math.hypot(x, y)
    if distance > 18.5:
        return BACKGROUND
    if distance > 16.0:
        return RING
    if math.hypot(x, y + 8.0) < 2.8 or (abs(x) < 2.3 and -3.0 < y < 11.0):
        return SIGN
    return DISC


def pixel(px, py):
    steps = [(i + 0.5) / SAMPLES for i in range(SAMPLES)]
    samples = [color_at(px + dx - SIZE / 2, py + dy - SIZE / 2) for dy in steps for dx in steps]
    return tuple(round(sum(channel) / len(samples)) for channel in zip(*samples))


def bitmap():
    rows = [b"".join(bytes(reversed(pixel(x, y))) for x in range(SIZE))
            for y in reversed(range(SIZE))]
    pixels = b"".join(row.ljust((SIZE * 3 + 3) // 4 * 4, b"\0") for row in rows)
    header = struct.pack("<IiiHHIIiiII", 40, SIZE, SIZE, 1, 24, 0, len(pixels), 3780, 3780, 0, 0)
    return struct.pack("<2sIHHI", b"BM", 54 + len(pixels), 0, 0, 54) + header + pixels


def main():
    if sys.argv[1] == "--check":
        if pathlib.Path(sys.argv[2]).read_bytes() != bitmap():
            sys.exit(f"{sys.argv[2]} is not what make_picture.py draws")
    else:
        pathlib.Path(sys.argv[1]).write_bytes(bitmap())


if __name__ == "__main__":
    main()
