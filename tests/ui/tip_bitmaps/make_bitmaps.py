#!/usr/bin/env python3
"""Writes the bitmaps of the tool tip tests beside this file."""
import pathlib
import struct

DOTS_PER_METRE = 7874  # 200 an inch


def write_bitmap(name, rows):
    """rows: from the top, each a list of (red, green, blue)."""
    height, width = len(rows), len(rows[0])
    stride = (width * 3 + 3) // 4 * 4
    pixels = b"".join(
        b"".join(bytes(reversed(pixel)) for pixel in row).ljust(stride, b"\0")
        for row in reversed(rows))
    header = struct.pack("<IiiHHIIiiII", 40, width, height, 1, 24, 0, len(pixels),
                         DOTS_PER_METRE, DOTS_PER_METRE, 0, 0)
    file_header = struct.pack("<2sIHHI", b"BM", 54 + len(pixels), 0, 0, 54)
    path = pathlib.Path(__file__).with_name(name)
    path.write_bytes(file_header + header + pixels)


write_bitmap("keyed.bmp", [
    [(254, 253, 206), (249, 248, 206), (249, 247, 206), (255, 0, 0)],
    [(254, 253, 216), (254, 253, 217), (0, 0, 255), (255, 255, 255)],
])
write_bitmap("tall.bmp", [[(0, 128, 0)] * 12 for _ in range(40)])
