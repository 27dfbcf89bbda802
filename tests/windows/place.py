#!/usr/bin/env python3
"""Prints the middle of an element on its screen, "x y" in pixels of the design.

Usage: place.py LAYOUTS LAYOUT ELEMENT
LAYOUTS is the folder of the painted layouts: a picture of few colours, and a list of them.
"""
import os
import re
import struct
import sys
import zlib


def read_picture(path):
    """The colours of a palette and the rows of their numbers, of a PNG that has a palette."""
    with open(path, "rb") as file:
        content = file.read()
    chunks, position = {}, 8
    while position < len(content):
        size, kind = struct.unpack(">I4s", content[position : position + 8])
        chunks[kind] = chunks.get(kind, b"") + content[position + 8 : position + 8 + size]
        position += size + 12
    width, height, depth = struct.unpack(">IIB", chunks[b"IHDR"][:9])
    palette = [chunks[b"PLTE"][i : i + 3].hex() for i in range(0, len(chunks[b"PLTE"]), 3)]
    pixels = zlib.decompress(chunks[b"IDAT"])
    span = (width * depth + 7) // 8
    rows, before = [], bytearray(span)
    for y in range(height):
        kind, row = pixels[y * (span + 1)], bytearray(pixels[y * (span + 1) + 1 : (y + 1) * (span + 1)])
        for x in range(span):
            left, above, corner = x and row[x - 1], before[x], x and before[x - 1]
            guess = left + above - corner
            nearest = min((left, above, corner), key=lambda value: abs(guess - value))
            row[x] = (row[x] + (0, left, above, (left + above) // 2, nearest)[kind]) % 256
        rows.append([row[x * depth // 8] >> (8 - depth - x * depth % 8) & ((1 << depth) - 1) for x in range(width)])
        before = row
    return palette, rows


def main():
    folder, layout, element = sys.argv[1:]
    with open(os.path.join(folder, layout + ".idx"), encoding="ascii") as file:
        index = file.read()
    color = re.search(r"^(?:widget|textarea) %s\npickcolor #(\w+)" % re.escape(element), index, re.M)
    if not color:
        raise SystemExit("place.py: %s has no %s" % (layout, element))
    width = int(re.search(r"^resolution (\d+)", index, re.M).group(1))
    palette, rows = read_picture(os.path.join(folder, layout + ".png"))
    number = palette.index(color.group(1))
    painted = [(x, y) for y, row in enumerate(rows) for x, value in enumerate(row) if value == number]
    scale = width / len(rows[0])
    print(*(round(scale * (min(places) + max(places) + 1) / 2) for places in zip(*painted)))


if __name__ == "__main__":
    main()
