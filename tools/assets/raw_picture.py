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
import zlib

SIGNATURE = b"\x89PNG\r\n\x1a\n"


def chunks(data):
    at = len(SIGNATURE)
    while at < len(data):
        (size,) = struct.unpack(">I", data[at:at + 4])
        yield data[at + 4:at + 8], data[at + 8:at + 8 + size]
        at += 12 + size


def unfiltered_rows(raw, height, stride, n):
    prev = bytearray(stride)
    for y in range(height):
        start = y * (stride + 1)
        kind, line = raw[start], bytearray(raw[start + 1:start + 1 + stride])
        for i in range(stride):
            a = line[i - n] if i >= n else 0
            b = prev[i]
            c = prev[i - n] if i >= n else 0
            p = a + b - c
            pa, pb, pc = abs(p - a), abs(p - b), abs(p - c)
            paeth = a if pa <= pb and pa <= pc else b if pb <= pc else c
            line[i] = (line[i] + (0, a, b, (a + b) // 2, paeth)[kind]) & 0xFF
        yield bytes(line)
        prev = line


def premultiplied(channel, alpha):
    t = channel * alpha + 0x80
    return (t + (t >> 8)) >> 8


def convert(path):
    with open(path, "rb") as f:
        data = f.read()
    if not data.startswith(SIGNATURE):
        raise ValueError(f"{path}: not a PNG")
    header, idat = None, b""
    for kind, body in chunks(data):
        if kind == b"IHDR":
            header = body
        elif kind == b"IDAT":
            idat += body
    width, height, depth, colour, _, _, interlace = struct.unpack(">IIBBBBB", header)
    if depth != 8 or colour not in (2, 6) or interlace:
        raise ValueError(f"{path}: only 8-bit RGB or RGBA without interlacing")
    n = 4 if colour == 6 else 3
    out = bytearray(b"ARGB" + struct.pack("<II", width, height))
    for row in unfiltered_rows(zlib.decompress(idat), height, width * n, n):
        for x in range(width):
            r, g, b = row[x * n:x * n + 3]
            a = row[x * n + 3] if n == 4 else 255
            out += struct.pack("<I", a << 24 | premultiplied(r, a) << 16 | premultiplied(g, a) << 8 | premultiplied(b, a))
    with open(path[:-len(".png")] + ".argb", "wb") as f:
        f.write(out)
    os.remove(path)


if __name__ == "__main__":
    for name in sys.argv[1:]:
        convert(name)
