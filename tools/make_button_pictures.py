#!/usr/bin/env python3
"""Draws the pictures of the small buttons into resources/pictures, each once more in double size."""

import pathlib
import struct

FOLDER = pathlib.Path(__file__).resolve().parent.parent / "resources" / "pictures"

# The loader makes the first colour, which all corners have, that of the system's faces; the greys follow the
# system's colours too.
PALETTE = {
    ".": (255, 0, 255),
    "S": (128, 128, 128),
    "L": (223, 223, 223),
    "K": (0, 0, 0),
    "W": (255, 255, 255),
    "B": (0, 70, 160),
    "R": (190, 40, 30),
    "G": (150, 190, 150),
}

# f is the letter f, x the letter x.
EXPRESSION = """
.............
....fff......
...ff.ff.....
...ff........
.fffff.......
...ff.xx..xx.
...ff..xxxx..
...ff...xx...
...ff...xx...
...ff..xxxx..
.f.ff.xx..xx.
.fff.........
.............
"""

# k is the frame, w the face, d the display, b the keys, r the keys of operations.
CALCULATOR = """
.............
.kkkkkkkkkkk.
.kwwwwwwwwwk.
.kwdddddddwk.
.kwdddddddwk.
.kwwwwwwwwwk.
.kwbwbwbwrwk.
.kwwwwwwwwwk.
.kwbwbwbwrwk.
.kwwwwwwwwwk.
.kwbwbwbwrwk.
.kwwwwwwwwwk.
.kkkkkkkkkkk.
"""

PICTURES = {
    "no-expression": (EXPRESSION, {"f": "S", "x": "S"}),
    "mixed-expressions": (EXPRESSION, {"f": "B", "x": "S"}),
    "expression": (EXPRESSION, {"f": "B", "x": "B"}),
    "calculator": (CALCULATOR, {"k": "K", "w": "W", "d": "G", "b": "B", "r": "R"}),
    "calculator-disabled": (CALCULATOR, {"k": "S", "w": ".", "d": "L", "b": "S", "r": "S"}),
}


def drawn(picture, colours):
    lines = picture.split()
    return [[colours.get(letter, letter) for letter in line] for line in lines]


def doubled(rows):
    """Each pixel becomes four; a slanted edge is cut, not stepped."""
    height, width = len(rows), len(rows[0])

    def at(x, y):
        return rows[min(max(y, 0), height - 1)][min(max(x, 0), width - 1)]

    result = [[None] * (2 * width) for _ in range(2 * height)]
    for y in range(height):
        for x in range(width):
            up, left, right, down = at(x, y - 1), at(x - 1, y), at(x + 1, y), at(x, y + 1)
            corners = [rows[y][x]] * 4
            if up != down and left != right:
                corners = [
                    left if left == up else corners[0],
                    right if up == right else corners[1],
                    left if left == down else corners[2],
                    right if right == down else corners[3],
                ]
            result[2 * y][2 * x], result[2 * y][2 * x + 1] = corners[0], corners[1]
            result[2 * y + 1][2 * x], result[2 * y + 1][2 * x + 1] = corners[2], corners[3]
    return result


def bitmap(rows):
    """A bitmap file with four bits to the pixel: the loader maps colours of such files only."""
    height, width = len(rows), len(rows[0])
    letters = list(PALETTE)
    stride = (width + 7) // 8 * 4
    pixels = b""
    for row in reversed(rows):
        indices = [letters.index(letter) for letter in row] + [0] * (stride * 2 - width)
        pixels += bytes(first << 4 | second for first, second in zip(indices[::2], indices[1::2]))
    colours = b"".join(struct.pack("<4B", b, g, r, 0) for r, g, b in PALETTE.values())
    colours += b"\0" * (16 * 4 - len(colours))
    offset = 14 + 40 + len(colours)
    header = struct.pack("<IiiHHIIiiII", 40, width, height, 1, 4, 0, len(pixels), 0, 0, 16, 0)
    return b"BM" + struct.pack("<IHHI", offset + len(pixels), 0, 0, offset) + header + colours + pixels


def main():
    FOLDER.mkdir(exist_ok=True)
    for name, (picture, colours) in PICTURES.items():
        rows = drawn(picture, colours)
        assert len({len(row) for row in rows}) == 1, name
        (FOLDER / f"{name}.bmp").write_bytes(bitmap(rows))
        (FOLDER / f"{name}-double.bmp").write_bytes(bitmap(doubled(rows)))


if __name__ == "__main__":
    main()
