#!/usr/bin/env python3
"""Turns 8-bit RGB or RGBA PNGs into pictures stored as their pixels (NAME.argb).

The setup screen's pictures are read on the way to the game's first window.
A PNG, even one stored uncompressed, costs two checksums and two conversions
a pixel there; these are copied into memory as they are, in the form Qt draws
from. The PNG is removed.

NAME.argb: "ARGB", then width and height, then the rows top to bottom, each
pixel a premultiplied 0xAARRGGBB word; every number 32 bits, little-endian.
Premultiplied as Qt does it, so that the pixels are the ones a PNG gave.

Usage: raw_picture.py FILE.png [FILE.png ...]
"""
import os
import struct
import sys

from check_assets import read_png


def premultiplied(channel, alpha):
    t = channel * alpha + 0x80
    return (t + (t >> 8)) >> 8


def convert(path):
    rows = read_png(path)
    out = bytearray(b"ARGB" + struct.pack("<II", len(rows[0]), len(rows)))
    for row in rows:
        for r, g, b, a in row:
            out += struct.pack("<I", a << 24 | premultiplied(r, a) << 16 | premultiplied(g, a) << 8 | premultiplied(b, a))
    with open(path[:-len(".png")] + ".argb", "wb") as f:
        f.write(out)
    os.remove(path)


if __name__ == "__main__":
    for name in sys.argv[1:]:
        convert(name)
