#!/usr/bin/env python3
"""Draws logo.bmp: a K of a scale and a pair of compasses, with the angle between its legs measured.

Usage: make_logo.py FILE          writes the bitmap
       make_logo.py --check FILE  compares: exit code 1 when the file differs from what would be
                                  written

Needs the standard library only.
"""

import math
import struct
import sys

WIDTH, HEIGHT = 237, 226
PIXELS_PER_METRE = 7874
SAMPLES = 5  # each way, for a pixel on an edge

INK_TOP, INK_BOTTOM = (27, 66, 107), (13, 36, 66)
GRID = (120, 170, 215)
PAPER = (246, 249, 252)
AMBER = (245, 166, 51)


def mix(below, above, weight):
    return tuple(b + (a - b) * weight for b, a in zip(below, above))


class Shape:
    """A distance in pixels, negative inside, and the box (left, top, right, bottom) around it."""

    def __init__(self, bounds, distance):
        self.bounds = bounds
        self.distance = distance

    def without(self, hole):
        return Shape(self.bounds, lambda x, y: max(self.distance(x, y), -hole.distance(x, y)))


def box(left, top, right, bottom, radius=0.0):
    cx, cy = (left + right) / 2, (top + bottom) / 2
    hx, hy = (right - left) / 2 - radius, (bottom - top) / 2 - radius

    def distance(x, y):
        dx, dy = abs(x - cx) - hx, abs(y - cy) - hy
        outside = math.hypot(max(dx, 0.0), max(dy, 0.0))
        return outside + min(max(dx, dy), 0.0) - radius

    return Shape((left, top, right, bottom), distance)


def disc(cx, cy, radius):
    return Shape((cx - radius, cy - radius, cx + radius, cy + radius),
                 lambda x, y: math.hypot(x - cx, y - cy) - radius)


def polygon(points):
    """A convex polygon, corners clockwise on the screen."""
    edges = []
    for (x0, y0), (x1, y1) in zip(points, points[1:] + points[:1]):
        length = math.hypot(x1 - x0, y1 - y0)
        edges.append((x0, y0, (y1 - y0) / length, -(x1 - x0) / length))
    xs, ys = zip(*points)
    return Shape((min(xs), min(ys), max(xs), max(ys)),
                 lambda x, y: max((x - x0) * nx + (y - y0) * ny for x0, y0, nx, ny in edges))


def arc(cx, cy, radius, half_width, half_angle):
    """An arc about (cx, cy) that opens to the right, both ends cut square."""
    sine, cosine = math.sin(half_angle), math.cos(half_angle)
    outer = radius + half_width

    def distance(x, y):
        dx, dy = x - cx, abs(y - cy)
        beyond_end = dy * cosine - dx * sine
        return max(abs(math.hypot(dx, dy) - radius) - half_width, beyond_end)

    return Shape((cx, cy - outer, cx + outer, cy + outer), distance)


def coverage(shape, px, py):
    """The part of the pixel that the shape covers."""
    distance = shape.distance(px + 0.5, py + 0.5)
    if distance >= 1.0:
        return 0.0
    if distance <= -1.0:
        return 1.0
    hits = 0
    for row in range(SAMPLES):
        for column in range(SAMPLES):
            x = px + (column + 0.5) / SAMPLES
            y = py + (row + 0.5) / SAMPLES
            hits += shape.distance(x, y) <= 0.0
    return hits / (SAMPLES * SAMPLES)


def polar(centre, radius, angle):
    return centre[0] + radius * math.cos(angle), centre[1] + radius * math.sin(angle)


def leg(hinge, angle, length, root, neck):
    """A leg of the compasses: a bar that narrows outwards, and its point, set off by a gap."""
    ux, uy = math.cos(angle), math.sin(angle)
    bar, point = length * 0.74, length * 0.77

    def at(along, across):
        return hinge[0] + ux * along - uy * across, hinge[1] + uy * along + ux * across

    yield polygon([at(0, -root), at(bar, -neck), at(bar, neck), at(0, root)])
    yield polygon([at(point, -neck), at(length, -0.8), at(length, 0.8), at(point, neck)])


def arrowhead(hinge, radius, tip_angle, length, half_width):
    """A head at the end of an arc about the hinge, pointing away from the arc's middle."""
    back = tip_angle - math.copysign(length / radius, tip_angle)
    tip = polar(hinge, radius, tip_angle)
    inner, outer = polar(hinge, radius - half_width, back), polar(hinge, radius + half_width, back)
    return polygon([tip, outer, inner] if tip_angle < 0 else [tip, inner, outer])


def layers():
    """The shapes from below to above, each with its colour and opacity."""
    hinge = (91.0, 113.0)
    spread = math.radians(42)
    result = []

    step = 20
    for x in range(18, WIDTH, step):
        result.append((box(x, 0, x + 1, HEIGHT), GRID, 0.10))
    for y in range(12, HEIGHT, step):
        result.append((box(0, y, WIDTH, y + 1), GRID, 0.10))

    # The centre line, long and short dashes by turns, with room for the arc.
    for start, end in ((123, 146), (151, 156), (161, 174), (192, 197), (202, 225)):
        result.append((box(start, 112, end, 114), GRID, 0.75))

    # The angle between the legs, measured.
    radius, reach, head = 92.0, math.radians(33.5), 19.0
    result.append((arc(*hinge, radius, 3.5, reach - 0.8 * head / radius), AMBER, 1.0))
    result.append((arrowhead(hinge, radius, -reach, head, 9.5), AMBER, 1.0))
    result.append((arrowhead(hinge, radius, reach, head, 9.5), AMBER, 1.0))

    # The scale that is the K's stem, with its graduation.
    stem = box(39, 25, 76, 201, 3)
    for index in range(15):
        y = 35 + index * 78 / 7
        length = 18 if index % 7 == 0 else 10
        stem = stem.without(box(30, y - 1.5, 39 + length, y + 1.5))
    result.append((stem, PAPER, 1.0))

    for side in (-1, 1):
        for part in leg(hinge, side * spread, 131.0, 14.5, 9.5):
            result.append((part, PAPER, 1.0))
    result.append((disc(*hinge, 25.5), mix(INK_TOP, INK_BOTTOM, 0.5), 1.0))
    result.append((disc(*hinge, 20.5), PAPER, 1.0))
    result.append((disc(*hinge, 7.5), AMBER, 1.0))
    return result


def pixels_in(bounds):
    left, top, right, bottom = bounds
    for py in range(max(math.floor(top), 0), min(math.ceil(bottom), HEIGHT)):
        for px in range(max(math.floor(left), 0), min(math.ceil(right), WIDTH)):
            yield px, py


def draw():
    """Rows of (red, green, blue), the top row first."""
    rows = [[mix(INK_TOP, INK_BOTTOM, 0.35 * px / WIDTH + 0.65 * py / HEIGHT)
             for px in range(WIDTH)] for py in range(HEIGHT)]
    for shape, ink, opacity in layers():
        for px, py in pixels_in(shape.bounds):
            covered = coverage(shape, px, py)
            if covered > 0.0:
                rows[py][px] = mix(rows[py][px], ink, covered * opacity)
    return [[tuple(int(channel + 0.5) for channel in color) for color in row] for row in rows]


def bitmap(rows):
    """The bytes of a bottom-up file of 24 bits a pixel."""
    padding = bytes(-WIDTH * 3 % 4)
    pixels = b"".join(
        b"".join(bytes((blue, green, red)) for red, green, blue in row) + padding
        for row in reversed(rows)
    )
    offset = 14 + 40
    header = struct.pack("<2sIHHI", b"BM", offset + len(pixels), 0, 0, offset)
    information = struct.pack("<IiiHHIIiiII", 40, WIDTH, HEIGHT, 1, 24, 0, len(pixels),
                              PIXELS_PER_METRE, PIXELS_PER_METRE, 0, 0)
    return header + information + pixels


def main():
    drawn = bitmap(draw())
    if sys.argv[1] == "--check":
        with open(sys.argv[2], "rb") as file:
            if file.read() != drawn:
                sys.exit(f"{sys.argv[2]} is not what make_logo.py draws")
        return
    with open(sys.argv[1], "wb") as file:
        file.write(drawn)


if __name__ == "__main__":
    main()
