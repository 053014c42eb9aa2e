#!/usr/bin/env python3
"""Checks what make-assets.sh made, as a player would notice it: sounds at one
loudness without clicks or clipping, eleven portraits that look like eleven
girls, pictures whose edges let the window through (or do not), animations that
loop and move, a well-formed icon, guide and help.

Usage: check_assets.py [ASSETS_DIR]   (the repository's assets/ by default)
Prints one line per fault and exits 1 when there is any. Standard library only.
"""
import array
import math
import os
import re
import struct
import sys
import wave
import xml.etree.ElementTree as ET
import zlib

faults = []


def fault(file, text):
    faults.append(f"{file}: {text}")


# --- Sounds ------------------------------------------------------------------
# Longest clip per name, in seconds: effects are short, dates a little longer.
LONGEST = {"police": 2.6}
DATE_SOUNDS = {"dinner", "beach", "bowling", "carnival", "play", "club", "pub", "rock", "birds"}


def dbfs(level):
    return 20 * math.log10(level) if level > 0 else -200.0


def check_sound(path):
    name = os.path.basename(path)[:-4]
    data = open(path, "rb").read()
    if data[:4] != b"RIFF" or struct.unpack("<I", data[4:8])[0] + 8 != len(data):
        return fault(path, "the RIFF header does not count the file's bytes")
    with wave.open(path) as w:
        if w.getsampwidth() != 2 or w.getnchannels() != 1 or w.getframerate() < 22050:
            return fault(path, "not 16-bit mono PCM at 22050 Hz or more")
        rate = w.getframerate()
        samples = array.array("h", w.readframes(w.getnframes()))
    if sys.byteorder == "big":
        samples.byteswap()
    seconds = len(samples) / rate
    longest = 4.0 if name.startswith("movie") or name in DATE_SOUNDS else LONGEST.get(name, 2.0)
    if not 0.2 < seconds <= longest:
        fault(path, f"{seconds:.2f} s long, not between 0.2 and {longest} s")
    peak = max(abs(s) for s in samples) / 32768
    if dbfs(peak) > -1.0:
        fault(path, f"clipping: peak {dbfs(peak):.1f} dBFS")
    # The player sets his volume once: no clip much louder or quieter than the rest.
    rms = math.sqrt(sum(s * s for s in samples) / len(samples)) / 32768
    if not -25.0 < dbfs(rms) < -14.0:
        fault(path, f"RMS {dbfs(rms):.1f} dBFS, not between -25 and -14")
    # A new sound cuts the last one off: starting or stopping at full swing clicks.
    edge = max(1, int(rate * 0.0005))
    worst = max(abs(s) for s in list(samples[:edge]) + list(samples[-edge:])) / 32768
    if worst >= 0.05:
        fault(path, f"click at an end: {worst:.3f} of full scale")


# --- Pictures ----------------------------------------------------------------
def read_bmp(path):
    """Rows of (r, g, b, a) from a 24-bit uncompressed BMP3, top row first."""
    b = open(path, "rb").read()
    if b[:2] != b"BM" or len(b) < 54:
        raise ValueError("not a BMP")
    size, offset, header, w, h, planes, bpp, compression = struct.unpack("<I4xIIiiHHI", b[2:34])
    if header != 40 or bpp != 24 or compression != 0 or size != len(b):
        raise ValueError("not an uncompressed 24-bit BMP3 whose header counts its bytes")
    stride = (w * 3 + 3) & ~3
    rows = []
    for y in range(abs(h)):
        at = offset + y * stride
        rows.append([(b[at + 3 * x + 2], b[at + 3 * x + 1], b[at + 3 * x], 255) for x in range(w)])
    return rows[::-1] if h > 0 else rows


def read_png(path):
    """Rows of (r, g, b, a) from an 8-bit RGB or RGBA PNG that is not interlaced."""
    b = open(path, "rb").read()
    if b[:8] != b"\x89PNG\r\n\x1a\n":
        raise ValueError("not a PNG")
    at, idat = 8, b""
    while at < len(b):
        length, kind = struct.unpack(">I4s", b[at:at + 8])
        body = b[at + 8:at + 8 + length]
        if kind == b"IHDR":
            w, h, depth, colour, _, _, interlace = struct.unpack(">IIBBBBB", body)
        elif kind == b"IDAT":
            idat += body
        at += 12 + length
    if depth != 8 or colour not in (2, 6) or interlace:
        raise ValueError("not 8-bit RGB(A), or interlaced")
    n = 4 if colour == 6 else 3
    raw, stride, prev, rows = zlib.decompress(idat), w * n, bytearray(w * n), []
    for y in range(h):
        kind, line = raw[y * (stride + 1)], bytearray(raw[y * (stride + 1) + 1:(y + 1) * (stride + 1)])
        for i in range(stride):
            a = line[i - n] if i >= n else 0
            c = prev[i - n] if i >= n else 0
            p = a + prev[i] - c
            pa, pb, pc = abs(p - a), abs(p - prev[i]), abs(p - c)
            line[i] = (line[i] + (0, a, prev[i], (a + prev[i]) // 2,
                                  a if pa <= pb and pa <= pc else prev[i] if pb <= pc else c)[kind]) & 0xFF
        rows.append([tuple(line[x * n:x * n + n]) + ((255,) if n == 3 else ()) for x in range(w)])
        prev = line
    return rows


def read_argb(path):
    """Rows of premultiplied (r, g, b, a) from a picture stored as its pixels."""
    b = open(path, "rb").read()
    if b[:4] != b"ARGB" or len(b) < 12:
        raise ValueError("not a picture stored as its pixels")
    w, h = struct.unpack("<II", b[4:12])
    if len(b) != 12 + 4 * w * h:
        raise ValueError(f"{len(b)} bytes where {w}x{h} pixels take {12 + 4 * w * h}")
    words = struct.unpack(f"<{w * h}I", b[12:])
    return [[(p >> 16 & 255, p >> 8 & 255, p & 255, p >> 24) for p in words[y * w:(y + 1) * w]] for y in range(h)]


def mean_difference(a, b):
    total = sum(abs(p - q) for ra, rb in zip(a, b) for pa, pb in zip(ra, rb) for p, q in zip(pa[:3], pb[:3]))
    return total / (len(a) * len(a[0]) * 3)


# Pictures on buttons and dialogs of any colour let the background through at
# their corners; the others must show no holes.
OPAQUE = {"face_default", "notice_cat", "notice_found", "notice_fine", "about_main", "setup_banner"}


def check_picture(path, rows):
    name = os.path.basename(path).rsplit(".", 1)[0].removesuffix("@2x")
    opaque = name.startswith("girl") or name in OPAQUE
    corner = rows[-1][0][3]
    if corner != (255 if opaque else 0):
        fault(path, f"corner alpha {corner}, expected {'opaque' if opaque else 'transparent'}")
    if len({p for row in rows for p in row}) < 8:
        fault(path, "(almost) one flat colour")


def check_pictures(assets):
    faces = []
    for i in range(1, 12):
        path = os.path.join(assets, f"girl{i}.bmp")
        try:
            faces.append(read_bmp(path))
            check_picture(path, faces[-1])
        except (OSError, ValueError) as e:
            fault(path, str(e))
    folder = os.path.join(assets, "pictures")
    icons = os.path.join(assets, "icons")
    files = [os.path.join(folder, f) for f in sorted(os.listdir(folder))]
    files += [os.path.join(icons, f) for f in sorted(os.listdir(icons)) if f.endswith(".png")]
    pictures = {}
    for path in files:
        try:
            pictures[os.path.basename(path)] = (read_argb if path.endswith(".argb") else read_png)(path)
            check_picture(path, pictures[os.path.basename(path)])
        except (OSError, ValueError) as e:
            fault(path, str(e))
    # Eleven draws must look like eleven girls, and none like the empty frame.
    default = pictures.get("face_default.png")
    for i, a in enumerate(faces):
        for j in range(i + 1, len(faces)):
            if mean_difference(a, faces[j]) <= 12:
                fault(f"girl{i + 1}.bmp", f"looks too much like girl{j + 1}.bmp")
        if default and mean_difference(a, default) <= 12:
            fault(f"girl{i + 1}.bmp", "looks too much like the empty face_default.png")
    # The About box's pointer clicks with its top-left corner: the fingertip must be there.
    pointer = pictures.get("about_pointer.png")
    if pointer and not any(pointer[y][x][3] > 128 for y in range(4) for x in range(4)):
        fault("pictures/about_pointer.png", "nothing drawn at the hot spot (top-left corner)")


# --- Animations --------------------------------------------------------------
def check_gif(path):
    b = open(path, "rb").read()
    if b[:6] not in (b"GIF89a", b"GIF87a"):
        return fault(path, "not a GIF")
    if len(b) > 300 * 1024:
        fault(path, "heavier than 300 KB")
    flags = b[10]
    at = 13 + (3 << ((flags & 7) + 1) if flags & 0x80 else 0)
    loops, delays, frames = None, [], set()
    while at < len(b) and b[at] != 0x3B:
        if b[at] == 0x21:
            label, at = b[at + 1], at + 2
            block = b""
            while b[at]:
                block += b[at + 1:at + 1 + b[at]]
                at += 1 + b[at]
            at += 1
            if label == 0xF9:
                delays.append(struct.unpack("<H", block[1:3])[0])
            elif label == 0xFF and block.startswith(b"NETSCAPE2.0"):
                loops = struct.unpack("<H", block[12:14])[0]
        elif b[at] == 0x2C:
            flags = b[at + 9]
            at += 10 + (3 << ((flags & 7) + 1) if flags & 0x80 else 0) + 1
            data = b""
            while b[at]:
                data += b[at + 1:at + 1 + b[at]]
                at += 1 + b[at]
            at += 1
            frames.add(data)
        else:
            return fault(path, f"damaged at byte {at}")
    if loops != 0:
        fault(path, "does not loop forever")
    if len(frames) < 2:
        fault(path, "every frame is the same: it does not move")
    if not delays or min(delays) <= 0:
        fault(path, "a frame without a delay runs as fast as the CPU allows")


# --- Icon, guide, help -------------------------------------------------------
def check_svg(path):
    try:
        root = ET.parse(path).getroot()
    except (OSError, ET.ParseError) as e:
        return fault(path, str(e))
    box = root.get("viewBox", "").split()
    if not root.tag.endswith("svg") or len(box) != 4 or box[2] != box[3]:
        fault(path, "not an SVG with a square viewBox")


GUIDE_FACTS = ["Call Her", "Buy A Gift", "Take Her Out", "Go to Work", "Go Shopping", "$5", "150", "Day 30",
               "10000000000", "88028", "Do you want to go out sometime?"]


def check_rtf(path):
    rtf = open(path, "rb").read()
    if not rtf.startswith(b"{\\rtf1") or b"{\\fonttbl" not in rtf or b"{\\colortbl" not in rtf:
        return fault(path, "not RTF with a font and a colour table")
    if any(c >= 128 for c in rtf):
        fault(path, "not 7-bit: other characters go as \\'hh or \\uN escapes")
    depth, i = 0, 0
    while i < len(rtf):
        c = rtf[i:i + 1]
        if c == b"\\":
            i += 1  # an escaped brace or backslash is text, not structure
        elif c == b"{":
            depth += 1
        elif c == b"}":
            depth -= 1
            if depth < 0 or (depth == 0 and rtf[i + 1:].strip()):
                return fault(path, f"group closed too early at byte {i}")
        i += 1
    if depth:
        fault(path, "groups left open")
    for word in (b"\\pict", b"\\trowd"):
        if word in rtf:
            fault(path, f"{word.decode()} is beyond the guide window's reader")
    for fact in GUIDE_FACTS:
        if fact.encode() not in rtf:
            fault(path, f"does not say {fact!r}")


def check_html(path):
    html = open(path, encoding="utf-8").read()
    if "<title>" not in html or "<script" in html.lower():
        fault(path, "no title, or a script (the help opens offline, no script runs)")
    for ref in re.findall(r'(?:src|href)\s*=\s*"([^"]*)"', html):
        if "://" in ref or ref.startswith("//"):
            fault(path, f"refers to the network: {ref}")
    for anchor in re.findall(r'href="#([^"]+)"', html):
        if f'id="{anchor}"' not in html:
            fault(path, f"no anchor {anchor}")


def main():
    here = os.path.dirname(os.path.abspath(__file__))
    assets = sys.argv[1] if len(sys.argv) > 1 else os.path.join(here, "..", "..", "assets")
    sounds = sorted(f for f in os.listdir(os.path.join(assets, "sounds")) if f.endswith(".wav"))
    if len(sounds) != 30:
        fault("sounds", f"{len(sounds)} clips, not 30")
    for f in sounds:
        check_sound(os.path.join(assets, "sounds", f))
    check_pictures(assets)
    for f in ("couple_kiss.gif", "hearts.gif", "champ.gif", "champlbl.gif"):
        check_gif(os.path.join(assets, f))
    check_svg(os.path.join(assets, "icons", "amorra.svg"))
    check_rtf(os.path.join(assets, "qsguide.rtf"))
    for f in ("index.html", "about.html"):
        check_html(os.path.join(assets, "help", f))
    for line in faults:
        print(line)
    print(f"check-assets: {len(faults)} fault(s)")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
