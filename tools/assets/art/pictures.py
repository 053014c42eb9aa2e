"""Every still picture besides her portraits: the default face, the mode buttons, the heart
segment, the rating-bar pictures, the notices, the About box, the setup screen and the icon.
Each function returns (file name, pixel width, pixel height, svg text); the pixel size is
what the game's windows expect, the drawing is made on a larger canvas where that helps."""

import math

from svg import (PLUM, ROSE, ROSE_LIGHT, ROSE_DARK, LAVENDER, LAVENDER_DARK, MINT, MINT_DARK,
                 CREAM, GOLD, GOLD_DARK, doc, lin, rad, heart, heart_path, sparkle, star_path,
                 darker, lighter, mix)

SCRIPT = "Z003, URW Chancery L, serif"
BOLD = "DejaVu Sans, Nimbus Sans, sans-serif"
SERIF = "URW Bookman, Bookman, serif"


def outline(w=2.0, c=PLUM):
    return f'stroke="{c}" stroke-width="{w}" stroke-linejoin="round" stroke-linecap="round"'


def glossy_heart(cx, cy, size, gid, base=ROSE, line=PLUM, lw=2.0):
    """The game's heart: rose body, darker lower edge, a white gloss near the top left."""
    defs = rad(gid, [(0, lighter(base, 0.35)), (0.6, base), (1, darker(base, 0.25))],
               cx=0.4, cy=0.35, r=0.75)
    s = size
    body = heart(cx, cy, s, fill=f"url(#{gid})", stroke=line, sw=lw)
    gloss = (f'<ellipse cx="{cx - s * 0.22}" cy="{cy - s * 0.2}" rx="{s * 0.13}" ry="{s * 0.08}" '
             f'fill="#ffffff" opacity="0.75" transform="rotate(-35 {cx - s * 0.22} {cy - s * 0.2})"/>')
    return defs, body + gloss


# ---------------------------------------------------------------- her default picture

def face_default():
    defs = lin("bg", [(0, "#e6e0ff"), (1, "#b9a8f0")])
    defs += lin("sil", [(0, "#f4a6c0"), (1, "#c9608a")])
    out = ['<rect width="210" height="226" fill="url(#bg)"/>']
    for y in range(18, 226, 38):
        for x in range(18 + (y // 38 % 2) * 19, 210, 38):
            out.append(heart(x, y, 12, fill="#ffffff", extra='opacity="0.35"'))
    # a silhouette of a girl with long hair, waiting to be drawn
    out.append('<g fill="url(#sil)" stroke="#8f3a63" stroke-width="2">'
               '<path d="M 52 96 C 48 46 76 24 105 24 C 134 24 162 46 158 96 C 158 140 166 180 172 214 '
               'L 38 214 C 44 180 52 140 52 96 Z"/>'
               '<path d="M 22 226 C 24 196 50 180 84 174 L 126 174 C 160 180 186 196 188 226 Z"/></g>')
    out.append('<path d="M 105 50 C 133 50 151 70 151 99 C 151 124 138 146 118 152 C 110 155 100 155 92 152 '
               'C 72 146 59 124 59 99 C 59 70 77 50 105 50 Z" fill="#e990b2" stroke="#8f3a63" stroke-width="2"/>')
    out.append('<path d="M 90 140 L 120 140 L 120 178 L 90 178 Z" fill="#e990b2"/>')
    out.append(f'<text x="105" y="134" text-anchor="middle" font-family="{BOLD}" font-weight="bold" '
               f'font-size="78" fill="#ffffff" stroke="#8f3a63" stroke-width="2.5" paint-order="stroke">?</text>')
    out.append(f'<path d="{heart_path(105, 200, 26)}" fill="{ROSE}" stroke="#ffffff" stroke-width="2.5"/>')
    out.append('<rect x="1" y="1" width="208" height="224" rx="6" fill="none" stroke="#ffffff" '
               'stroke-width="2" opacity="0.8"/>')
    return "face_default.png", 105, 113, doc(105, 113, "".join(out), view=(210, 226), defs=defs)


# ---------------------------------------------------------------- mode buttons (drawn at 64, shown at 32)

def mode_phone():
    defs = lin("ph", [(0, "#ff9bb8"), (1, "#e0336a")])
    body = [
        # the handset, a classic curved receiver
        f'<path d="M 14 10 C 8 12 4 18 6 26 C 10 40 22 52 36 58 C 44 60 50 56 52 50 L 44 41 '
        f'C 41 39 38 40 36 43 L 34 46 C 28 43 21 36 18 30 L 21 28 C 24 26 25 23 23 20 Z" '
        f'fill="url(#ph)" {outline(3)}/>',
        '<path d="M 11 18 C 10 24 13 32 18 38" fill="none" stroke="#ffffff" stroke-width="3" '
        'stroke-linecap="round" opacity="0.7"/>',
        # ringing waves and a little heart
        f'<path d="M 40 14 Q 48 16 50 24 M 42 6 Q 56 8 58 22" fill="none" {outline(3.2, ROSE_DARK)}/>',
        heart(50, 44, 14, fill=GOLD, stroke=PLUM, sw=2),
    ]
    return "mode_phone.png", 32, 32, doc(32, 32, "".join(body), view=(64, 64), defs=defs)


def mode_gift():
    defs = lin("box", [(0, "#ff7aa2"), (1, "#d12a5c")]) + lin("lid", [(0, "#ff9bb8"), (1, "#e8466f")])
    body = [
        f'<rect x="9" y="30" width="46" height="28" rx="3" fill="url(#box)" {outline(3)}/>',
        f'<rect x="5" y="21" width="54" height="12" rx="3" fill="url(#lid)" {outline(3)}/>',
        f'<rect x="27" y="21" width="10" height="37" fill="{GOLD}" {outline(2.4)}/>',
        # the bow
        f'<path d="M 32 21 C 22 8 10 12 16 19 C 19 22 26 22 32 21 Z" fill="{GOLD}" {outline(2.6)}/>',
        f'<path d="M 32 21 C 42 8 54 12 48 19 C 45 22 38 22 32 21 Z" fill="{GOLD}" {outline(2.6)}/>',
        f'<circle cx="32" cy="20" r="4" fill="{GOLD_DARK}" {outline(2.2)}/>',
        '<path d="M 13 36 L 13 52" stroke="#ffffff" stroke-width="3" stroke-linecap="round" opacity="0.5"/>',
    ]
    return "mode_gift.png", 32, 32, doc(32, 32, "".join(body), view=(64, 64), defs=defs)


def mode_date():
    defs = lin("wine", [(0, "#ff5c8a"), (1, "#a0154a")])
    glass = (f'<path d="M -9 0 L 9 0 C 10 10 8 18 0 20 C -8 18 -10 10 -9 0 Z" fill="#f3f7ff" '
             f'fill-opacity="0.85" {outline(2.6)}/>'
             '<path d="M -8.2 8 L 8.2 8 C 8 14 5 18 0 19 C -5 18 -8 14 -8.2 8 Z" fill="url(#wine)"/>'
             f'<path d="M 0 20 L 0 32 M -7 33 L 7 33" fill="none" {outline(2.6)}/>'
             '<path d="M -5 3 L -5 10" stroke="#ffffff" stroke-width="2" stroke-linecap="round"/>')
    body = [
        f'<g transform="translate(20 22) rotate(-16)">{glass}</g>',
        f'<g transform="translate(44 22) rotate(16)">{glass}</g>',
        heart(32, 10, 16, fill=ROSE, stroke=PLUM, sw=2),
        sparkle(14, 10, 5, fill=GOLD), sparkle(52, 8, 4, fill=GOLD),
    ]
    return "mode_date.png", 32, 32, doc(32, 32, "".join(body), view=(64, 64), defs=defs)


def mode_work():
    defs = lin("case", [(0, "#c7834a"), (1, "#8a4f22")])
    body = [
        f'<path d="M 24 18 L 24 12 Q 24 9 27 9 L 37 9 Q 40 9 40 12 L 40 18" fill="none" {outline(5)}/>',
        f'<path d="M 24 18 L 24 12 Q 24 9 27 9 L 37 9 Q 40 9 40 12 L 40 18" fill="none" '
        f'stroke="#a86a36" stroke-width="2.4"/>',
        f'<rect x="6" y="18" width="52" height="38" rx="5" fill="url(#case)" {outline(3)}/>',
        f'<path d="M 6 32 Q 32 38 58 32" fill="none" {outline(2.4)}/>',
        f'<rect x="27" y="30" width="10" height="9" rx="2" fill="{GOLD}" {outline(2.2)}/>',
        '<path d="M 11 23 L 11 28" stroke="#ffffff" stroke-width="3" stroke-linecap="round" opacity="0.5"/>',
        f'<text x="48" y="52" font-family="{BOLD}" font-weight="bold" font-size="13" fill="{GOLD}" '
        f'text-anchor="middle">$</text>',
    ]
    return "mode_work.png", 32, 32, doc(32, 32, "".join(body), view=(64, 64), defs=defs)


def mode_shop():
    defs = lin("bag", [(0, "#7fe3a4"), (1, "#2f9a5a")])
    body = [
        f'<path d="M 22 22 C 22 8 42 8 42 22" fill="none" {outline(5)}/>',
        f'<path d="M 22 22 C 22 8 42 8 42 22" fill="none" stroke="#ffffff" stroke-width="2"/>',
        f'<path d="M 10 20 L 54 20 L 58 58 L 6 58 Z" fill="url(#bag)" {outline(3)}/>',
        f'<circle cx="22" cy="26" r="2.6" fill="{PLUM}"/><circle cx="42" cy="26" r="2.6" fill="{PLUM}"/>',
        heart(32, 42, 20, fill=ROSE, stroke=PLUM, sw=2),
        '<path d="M 13 26 L 11 50" stroke="#ffffff" stroke-width="3" stroke-linecap="round" opacity="0.5"/>',
    ]
    return "mode_shop.png", 32, 32, doc(32, 32, "".join(body), view=(64, 64), defs=defs)


# ---------------------------------------------------------------- heart meter segment

def heart_segment():
    defs, h = glossy_heart(34, 35, 58, "hs", lw=3.2)
    return "heart.png", 17, 17, doc(17, 17, h, view=(68, 68), defs=defs)


# ---------------------------------------------------------------- rating-bar pictures (16 x 16, drawn at 32)

def stat_face(name, great):
    defs = rad("f", [(0, "#fff3b0"), (1, "#ffc933" if great else "#e6d49a")], cx=0.4, cy=0.35, r=0.7)
    b = [f'<circle cx="16" cy="17" r="13" fill="url(#f)" {outline(2)}/>']
    if great:
        b.append(f'<path d="M 6 14 L 26 14 L 25 18 Q 20 21 17 17 L 15 17 Q 12 21 7 18 Z" fill="{PLUM}"/>')
        b.append('<path d="M 9 15.5 L 12 15.5" stroke="#ffffff" stroke-width="1.2"/>')
        b.append(f'<path d="M 10 23 Q 16 28 22 23" fill="none" {outline(2)}/>')
        b.append(sparkle(27, 5, 5, fill="#ffffff") + sparkle(27, 5, 3.4, fill=GOLD))
    else:
        b.append(f'<circle cx="11.5" cy="15" r="1.8" fill="{PLUM}"/><circle cx="20.5" cy="15" r="1.8" fill="{PLUM}"/>')
        b.append(f'<path d="M 11 23 L 21 23" fill="none" {outline(2)}/>')
    return name, 16, 16, doc(16, 16, "".join(b), view=(32, 32), defs=defs)


def stat_bulb(name, lit):
    glass = "#fff06a" if lit else "#dcdce6"
    defs = rad("g", [(0, "#ffffff"), (1, glass)], cx=0.4, cy=0.35, r=0.7)
    b = []
    if lit:
        for a in range(-150, -20, 32):
            x1, y1 = 16 + 12 * math.cos(math.radians(a)), 13 + 12 * math.sin(math.radians(a))
            x2, y2 = 16 + 15.5 * math.cos(math.radians(a)), 13 + 15.5 * math.sin(math.radians(a))
            b.append(f'<path d="M {x1:.1f} {y1:.1f} L {x2:.1f} {y2:.1f}" stroke="{GOLD_DARK}" '
                     f'stroke-width="2.2" stroke-linecap="round"/>')
    b.append(f'<path d="M 16 3 C 9 3 5 8 5 13 C 5 18 10 20 11 24 L 21 24 C 22 20 27 18 27 13 '
             f'C 27 8 23 3 16 3 Z" fill="url(#g)" {outline(2)}/>')
    b.append(f'<rect x="11" y="24" width="10" height="5" rx="1.5" fill="#a7a9b8" {outline(1.6)}/>')
    b.append(f'<path d="M 13.5 23 L 13.5 17 Q 16 12 18.5 17 L 18.5 23" fill="none" '
             f'stroke="{"#e08a00" if lit else "#9a9aa8"}" stroke-width="1.4" stroke-linejoin="round"/>')
    return name, 16, 16, doc(16, 16, "".join(b), view=(32, 32), defs=defs)


def stat_clover(name, four):
    leaf_c = "#3fbf5f" if four else "#9ab89a"
    b = []
    angles = (45, 135, 225, 315) if four else (0, 120, 240)
    # the stem first, so the leaves cover its top
    b.append(f'<path d="M 16 17 Q 18 25 24 29" fill="none" stroke="{darker(leaf_c, 0.3)}" '
             f'stroke-width="2.6" stroke-linecap="round"/>')
    for a in angles:
        # each leaf is a heart whose point meets the others in the middle
        b.append(f'<g transform="rotate({a} 16 15)">'
                 f'<path d="{heart_path(16, 9, 12)}" fill="{leaf_c}" {outline(1.6)}/></g>')
    b.append(f'<circle cx="16" cy="15" r="1.8" fill="{darker(leaf_c, 0.3)}"/>')
    if four:
        b.append(sparkle(27, 5, 5, fill="#ffffff") + sparkle(27, 5, 3.4, fill=GOLD))
    return name, 16, 16, doc(16, 16, "".join(b), view=(32, 32))


# ---------------------------------------------------------------- game over dialog

def gameover():
    defs = rad("bg", [(0, "#ffffff"), (1, "#d9d3ff")], r=0.5)
    d2, _ = glossy_heart(0, 0, 10, "hb")
    defs += d2
    b = [f'<circle cx="48" cy="48" r="46" fill="url(#bg)" stroke="{LAVENDER_DARK}" stroke-width="2"/>']
    # a heart cracked in two, the halves a little apart, held together by a plaster
    crack = "L 47 32 L 53 42 L 45 52 L 52 62 L 48 78"
    hp = heart_path(48, 50, 70)
    b.append(f'<clipPath id="l"><path d="M 0 0 L 50 0 {crack} L 48 96 L 0 96 Z"/></clipPath>')
    b.append(f'<clipPath id="r"><path d="M 96 0 L 50 0 {crack} L 48 96 L 96 96 Z"/></clipPath>')
    b.append(f'<g transform="translate(-3 2) rotate(-6 48 60)"><path d="{hp}" fill="url(#hb)" '
             f'stroke="{PLUM}" stroke-width="2.4" clip-path="url(#l)"/></g>')
    b.append(f'<g transform="translate(3 2) rotate(6 48 60)"><path d="{hp}" fill="url(#hb)" '
             f'stroke="{PLUM}" stroke-width="2.4" clip-path="url(#r)"/></g>')
    b.append('<g transform="rotate(-28 48 46)">'
             f'<rect x="30" y="39" width="36" height="13" rx="5" fill="#ffd9b8" stroke="{PLUM}" stroke-width="1.8"/>'
             '<rect x="42" y="40.5" width="12" height="10" fill="#f2c29a"/>'
             + "".join(f'<circle cx="{x}" cy="{y}" r="0.9" fill="#c98f66"/>'
                       for x in (45, 48, 51) for y in (43.5, 47.5))
             + '</g>')
    b.append('<path d="M 30 34 Q 28 28 34 27" fill="none" stroke="#ffffff" stroke-width="3" '
             'stroke-linecap="round" opacity="0.7"/>')
    # a tear under it
    b.append(f'<path d="M 74 70 C 78 76 80 80 76 83 C 72 85 69 81 71 77 Z" fill="{lighter("#5ec8ff", 0.2)}" '
             f'stroke="#2a7fb8" stroke-width="1.4"/>')
    return "gameover.png", 96, 96, doc(96, 96, "".join(b), defs=defs)


# ---------------------------------------------------------------- notices

def notice_cat():
    defs = lin("bg", [(0, "#fff2d6"), (1, "#ffd3a1")]) + lin("fur", [(0, "#c0c4d0"), (1, "#8a8fa3")])
    fur, line, stripe = "url(#fur)", PLUM, "#6a6f82"
    b = ['<rect width="192" height="150" fill="url(#bg)"/>',
         '<rect x="0" y="120" width="192" height="30" fill="#e3b27a"/>',
         '<path d="M 0 120 L 192 120" stroke="#c48d52" stroke-width="2"/>']
    # a startled cat, fur on end, tail bristling, an arched back
    b.append(f'<path d="M 128 92 C 150 80 160 56 150 36 C 146 28 156 24 160 32 C 172 56 160 92 136 104 Z" '
             f'fill="{fur}" {outline(2.4)}/>')
    b.append(f'<path d="M 150 36 l -5 -4 M 156 48 l 6 -3 M 158 64 l 7 0 M 152 80 l 6 3" {outline(2.2)}/>')
    b.append(f'<path d="M 56 118 C 50 90 64 58 96 56 C 124 54 142 80 138 118 Z" fill="{fur}" {outline(2.4)}/>')
    b.append(f'<path d="M 70 62 l -3 -7 l 6 3 l 2 -8 l 5 6 l 4 -8 l 4 8 l 5 -6 l 2 8 l 6 -3 l -2 7" '
             f'fill="{fur}" {outline(2)}/>')
    for x in (84, 100, 116):
        b.append(f'<path d="M {x} 62 Q {x + 4} 74 {x} 84" fill="none" stroke="{stripe}" stroke-width="3" '
                 f'stroke-linecap="round"/>')
    b.append(f'<path d="M 66 118 L 66 108 M 82 118 L 82 106 M 116 118 L 116 106 M 130 118 L 130 108" '
             f'{outline(2.4)}/>')
    # the head
    b.append(f'<path d="M 26 52 L 30 22 L 46 38 Q 56 34 66 38 L 82 22 L 86 52 C 90 72 76 86 56 86 '
             f'C 36 86 22 72 26 52 Z" fill="{fur}" {outline(2.4)}/>')
    b.append('<path d="M 32 30 L 34 40 L 42 38 Z M 80 30 L 78 40 L 70 38 Z" fill="#ffb3c7"/>')
    for x in (44, 68):
        b.append(f'<circle cx="{x}" cy="56" r="9" fill="#ffffff" {outline(2)}/>'
                 f'<circle cx="{x}" cy="56" r="3" fill="{PLUM}"/>')
    b.append(f'<path d="M 52 66 L 60 66 L 56 70 Z" fill="#ff7a9a" {outline(1.4)}/>')
    b.append(f'<path d="M 47 76 Q 56 70 65 76 Q 62 82 56 82 Q 50 82 47 76 Z" fill="#8a2438" {outline(1.8)}/>'
             f'<path d="M 50 75 l 2 3 l 2 -3.6 M 58 74.4 l 2 3.6 l 2 -3" fill="#ffffff"/>')
    b.append(f'<path d="M 36 68 L 16 64 M 36 72 L 16 74 M 76 68 L 96 64 M 76 72 L 96 74" '
             f'stroke="{PLUM}" stroke-width="1.4" stroke-linecap="round"/>')
    # the shoe that stepped on the tail, and the stars of the yowl
    b.append(f'<path d="M 150 104 C 150 92 160 90 170 92 L 186 96 C 192 98 192 112 186 114 L 152 114 '
             f'C 148 114 148 108 150 104 Z" fill="#5a3a2a" {outline(2.2)}/>')
    b.append(f'<path d="M 148 114 L 188 114" stroke="#2a1a12" stroke-width="4" stroke-linecap="round"/>')
    for x, y, r in [(14, 16, 7), (100, 16, 6), (180, 20, 8), (128, 26, 5)]:
        b.append(f'<path d="{star_path(x, y, r, r * 0.45)}" fill="{GOLD}" {outline(1.4)}/>')
    b.append(f'<text x="150" y="62" text-anchor="middle" font-family="{BOLD}" font-weight="bold" '
             f'font-size="22" fill="{ROSE}" stroke="#ffffff" stroke-width="4" paint-order="stroke" '
             f'transform="rotate(-10 150 62)">!!</text>')
    return "notice_cat.png", 96, 75, doc(96, 75, "".join(b), view=(192, 150), defs=defs)


def notice_found():
    defs = lin("bg", [(0, "#fffbe6"), (1, "#ffe9a8")]) + lin("bill", [(0, "#b8ecc4"), (1, "#7ccf96")])
    defs += rad("seal", [(0, "#ffffff"), (1, "#a8e6b8")])
    b = ['<rect width="252" height="106" fill="url(#bg)"/>']
    for x, y, r in [(18, 18, 7), (236, 20, 8), (22, 88, 5), (232, 86, 6), (124, 8, 4)]:
        b.append(sparkle(x, y, r * 1.4, fill=GOLD))
    b.append('<ellipse cx="126" cy="96" rx="100" ry="6" fill="#d9b86a" opacity="0.5"/>')
    # a cartoon hundred dollar bill, a little tilted, a heart where a portrait would be
    bill = [f'<rect x="-90" y="-36" width="180" height="72" rx="6" fill="url(#bill)" {outline(2.4)}/>',
            f'<rect x="-82" y="-28" width="164" height="56" rx="4" fill="none" stroke="{MINT_DARK}" '
            f'stroke-width="2" stroke-dasharray="5 3"/>',
            f'<ellipse cx="0" cy="0" rx="26" ry="22" fill="url(#seal)" stroke="{MINT_DARK}" stroke-width="2.4"/>',
            heart(0, 2, 26, fill=ROSE, stroke=PLUM, sw=1.8)]
    for x, y in [(-66, -12), (66, -12), (-66, 22), (66, 22)]:
        bill.append(f'<text x="{x}" y="{y}" text-anchor="middle" font-family="{BOLD}" font-weight="bold" '
                    f'font-size="15" fill="#1f6b3a">100</text>')
    bill.append(f'<text x="-42" y="6" text-anchor="middle" font-family="{BOLD}" font-weight="bold" '
                f'font-size="22" fill="#1f6b3a">$</text>')
    bill.append(f'<text x="42" y="6" text-anchor="middle" font-family="{BOLD}" font-weight="bold" '
                f'font-size="22" fill="#1f6b3a">$</text>')
    b.append(f'<g transform="translate(126 52) rotate(-4)">{"".join(bill)}</g>')
    b.append('<path d="M 60 24 L 84 22" stroke="#ffffff" stroke-width="4" stroke-linecap="round" opacity="0.6"/>')
    return "notice_found.png", 252, 106, doc(252, 106, "".join(b), defs=defs)


def notice_fine():
    defs = lin("sky", [(0, "#bfe6ff"), (1, "#eaf6ff")]) + lin("car", [(0, "#ffffff"), (1, "#d8deea")])
    b = ['<rect width="250" height="126" fill="url(#sky)"/>',
         '<rect x="0" y="96" width="250" height="30" fill="#6b6f7a"/>',
         '<path d="M 0 110 L 250 110" stroke="#ffffff" stroke-width="3" stroke-dasharray="16 12"/>']
    # a police car, lights flashing
    b.append('<g transform="translate(6 30)">'
             f'<path d="M 6 66 L 6 46 Q 6 40 14 38 L 34 34 L 50 18 Q 54 14 62 14 L 96 14 Q 104 14 108 20 '
             f'L 120 34 L 136 38 Q 144 40 144 48 L 144 66 Z" fill="url(#car)" {outline(2.4)}/>'
             f'<path d="M 56 20 L 78 20 L 78 34 L 44 34 Z M 84 20 L 102 20 L 112 34 L 84 34 Z" '
             f'fill="#9fd4ff" {outline(1.8)}/>'
             f'<rect x="6" y="46" width="138" height="10" fill="#2b4c9a"/>'
             f'<text x="76" y="55" text-anchor="middle" font-family="{BOLD}" font-weight="bold" '
             f'font-size="9" fill="#ffffff">POLICE</text>'
             f'<rect x="58" y="6" width="14" height="9" rx="3" fill="#ff3b4f" {outline(1.6)}/>'
             f'<rect x="76" y="6" width="14" height="9" rx="3" fill="#3b7bff" {outline(1.6)}/>'
             f'<path d="M 50 4 L 40 -4 M 52 0 L 46 -10 M 98 4 L 108 -4 M 96 0 L 102 -10" '
             f'stroke="#ff3b4f" stroke-width="2.4" stroke-linecap="round"/>'
             + "".join(f'<circle cx="{x}" cy="66" r="13" fill="#2a2a33" {outline(2)}/>'
                       f'<circle cx="{x}" cy="66" r="5" fill="#c8ccd8"/>' for x in (36, 114))
             + f'<rect x="138" y="44" width="7" height="6" rx="2" fill="{GOLD}"/>'
             '</g>')
    # the ticket
    b.append('<g transform="translate(192 64) scale(0.88) rotate(8)">'
             f'<path d="M -38 -48 L 38 -48 L 38 44 L 31 50 L 24 44 L 17 50 L 10 44 L 3 50 L -4 44 '
             f'L -11 50 L -18 44 L -25 50 L -32 44 L -38 50 Z" fill="#fffdf2" {outline(2.2)}/>'
             f'<rect x="-38" y="-48" width="76" height="18" fill="{ROSE}" {outline(2.2)}/>'
             f'<text x="0" y="-35" text-anchor="middle" font-family="{BOLD}" font-weight="bold" '
             f'font-size="12" fill="#ffffff">FINE</text>'
             f'<text x="0" y="-12" text-anchor="middle" font-family="{BOLD}" font-weight="bold" '
             f'font-size="9" fill="{PLUM}">SPEEDING</text>'
             f'<text x="0" y="18" text-anchor="middle" font-family="{BOLD}" font-weight="bold" '
             f'font-size="24" fill="{ROSE_DARK}">$60</text>'
             f'<path d="M -28 28 L 28 28 M -28 35 L 14 35" stroke="#b9b2a0" stroke-width="2"/>'
             '</g>')
    return "notice_fine.png", 250, 126, doc(250, 126, "".join(b), defs=defs)


# ---------------------------------------------------------------- About box and pointer

def about_main():
    defs = lin("sky", [(0, "#3b2a6e"), (0.55, "#b44d8f"), (1, "#ffb38a")])
    defs += rad("moon", [(0, "#fffbe0"), (1, "#ffe59a")])
    b = ['<rect width="411" height="172" fill="url(#sky)"/>']
    for x, y, r in [(30, 20, 1.6), (80, 40, 1.2), (140, 14, 1.8), (200, 30, 1.2), (250, 12, 1.5),
                    (60, 70, 1), (170, 60, 1), (230, 56, 1.3), (110, 50, 1.1)]:
        b.append(sparkle(x, y, r * 3, fill="#ffffff", opacity=0.9))
    b.append('<circle cx="338" cy="46" r="30" fill="url(#moon)"/>')
    b.append('<circle cx="338" cy="46" r="38" fill="#fffbe0" opacity="0.15"/>')
    # city skyline
    sky = "M 0 130 L 0 96 L 20 96 L 20 84 L 38 84 L 38 104 L 54 104 L 54 70 L 76 70 L 76 100 L 92 100 " \
          "L 92 88 L 110 88 L 110 108 L 250 108 L 250 80 L 266 80 L 266 92 L 284 92 L 284 64 L 302 64 " \
          "L 302 98 L 322 98 L 322 86 L 340 86 L 340 104 L 360 104 L 360 76 L 382 76 L 382 96 L 411 96 L 411 130 Z"
    b.append(f'<path d="{sky}" fill="#2a1d4a"/>')
    for x, y in [(24, 90), (58, 76), (64, 86), (96, 94), (256, 86), (288, 70), (292, 80), (366, 82), (372, 90)]:
        b.append(f'<rect x="{x}" y="{y}" width="4" height="5" fill="#ffd97a"/>')
    b.append('<rect x="0" y="128" width="411" height="44" fill="#3d6b4a"/>')
    b.append('<path d="M 0 128 Q 205 118 411 128" fill="#4f8a5e"/>')
    # a park bench under a lamp, two people close together
    b.append('<path d="M 206 70 L 206 150" stroke="#1e1830" stroke-width="4"/>'
             '<path d="M 198 70 L 214 70 L 210 62 L 202 62 Z" fill="#1e1830"/>'
             '<circle cx="206" cy="72" r="22" fill="#fff1b0" opacity="0.25"/>'
             '<circle cx="206" cy="72" r="6" fill="#fff6c8"/>')
    b.append('<g fill="#1e1830">'
             '<rect x="126" y="132" width="70" height="5" rx="2"/><rect x="126" y="120" width="70" height="4" rx="2"/>'
             '<rect x="130" y="137" width="4" height="14"/><rect x="188" y="137" width="4" height="14"/>'
             # him
             '<circle cx="148" cy="98" r="9"/><path d="M 138 132 L 140 112 Q 148 104 156 112 L 160 132 Z"/>'
             # her, head on his shoulder, hair falling
             '<circle cx="166" cy="102" r="8.5"/><path d="M 158 100 Q 160 88 170 94 Q 178 104 174 116 Z"/>'
             '<path d="M 158 132 L 160 114 Q 166 108 174 114 L 178 132 Z"/></g>')
    for x, y, s, o in [(158, 80, 12, 0.95), (172, 64, 9, 0.8), (150, 56, 7, 0.6), (182, 46, 6, 0.45)]:
        b.append(heart(x, y, s, fill=ROSE_LIGHT, extra=f'opacity="{o}"'))
    # the right-hand side is the clickable area: a heart balloon on a string invites a click
    b.append(f'<path d="M 338 150 Q 330 126 340 112" fill="none" stroke="#ffffff" stroke-width="1.4"/>')
    dh, hh = glossy_heart(338, 92, 44, "bal", lw=2.4)
    defs += dh
    b.append(hh)
    b.append(f'<text x="338" y="164" text-anchor="middle" font-family="{BOLD}" font-weight="bold" '
             f'font-size="11" fill="#ffffff">click me!</text>')
    return "about_main.png", 411, 172, doc(411, 172, "".join(b), defs=defs)


def about_logo():
    defs = lin("txt", [(0, "#ff8fab"), (0.5, ROSE), (1, ROSE_DARK)])
    b = [f'<text x="144" y="64" text-anchor="middle" font-family="{SCRIPT}" font-size="72" '
         f'fill="url(#txt)" stroke="{PLUM}" stroke-width="1.6" paint-order="stroke">Amorra</text>']
    dh, hh = glossy_heart(236, 22, 26, "lh", lw=1.8)
    b.append(hh)
    b.append(f'<text x="144" y="82" text-anchor="middle" font-family="{BOLD}" font-size="11" '
             f'letter-spacing="2" fill="{PLUM}">A LITTLE DATING GAME</text>')
    b.append(sparkle(40, 20, 8, fill=GOLD) + sparkle(256, 60, 6, fill=GOLD))
    return "about_logo.png", 288, 87, doc(288, 87, "".join(b), defs=defs + dh)


def about_pointer():
    # a pointing hand, fingertip at the top-left pixel (the hotspot), with a small heart
    b = ['<g transform="translate(1.5 1) scale(0.8) rotate(-30) translate(-2 -1)">'
         f'<path d="M 2 1 C 5 1 6 3 6 6 L 6 14 L 9 13 C 11 12 13 13 13 15 L 16 14 C 18 14 19 15 19 17 '
         f'L 21 16.6 C 23 16.6 24 18 24 20 L 24 26 C 24 31 20 34 15 34 L 11 34 C 7 34 4 31 2 27 L -3 19 '
         f'C -4 17 -2 15 0 16 L 2 18 L -1 6 C -1 3 0 1 2 1 Z" fill="#ffffff" {outline(1.6)}/>'
         f'<path d="M 13 15 L 13 20 M 19 17 L 19 21" {outline(1.2)}/>'
         '</g>',
         heart(25, 25, 11, fill=ROSE, stroke=PLUM, sw=1.2)]
    return "about_pointer.png", 32, 32, doc(32, 32, "".join(b))


# ---------------------------------------------------------------- player setup

def setup_banner():
    defs = lin("bg", [(0, "#ffd1dc"), (0.5, "#e6d6ff"), (1, "#c0c0ff")], x2=1, y2=0)
    defs += lin("txt", [(0, "#ff8fab"), (0.5, ROSE), (1, ROSE_DARK)])
    b = ['<rect width="360" height="64" fill="url(#bg)"/>']
    for x, y, s, o in [(250, 14, 10, 0.5), (276, 44, 14, 0.6), (306, 18, 9, 0.45), (330, 42, 12, 0.55),
                       (350, 12, 8, 0.4), (12, 50, 8, 0.4), (228, 50, 7, 0.35)]:
        b.append(heart(x, y, s, fill="#ffffff", extra=f'opacity="{o}"'))
    b.append(f'<text x="18" y="40" font-family="{SCRIPT}" font-size="40" fill="url(#txt)" '
             f'stroke="{PLUM}" stroke-width="1.1" paint-order="stroke">Amorra</text>')
    b.append(f'<text x="146" y="28" font-family="{BOLD}" font-weight="bold" font-size="13" fill="{PLUM}">'
             f'Who are you?</text>')
    b.append(f'<text x="146" y="46" font-family="{BOLD}" font-size="11" fill="{PLUM}">'
             f'Rate yourself, then win her!</text>')
    dh, hh = glossy_heart(330, 30, 24, "bh", lw=1.6)
    b.append(hh)
    b.append('<path d="M 0 63 L 360 63" stroke="#ffffff" stroke-width="2"/>')
    return "setup_banner.png", 360, 64, doc(360, 64, "".join(b), defs=defs + dh)


def setup_side():
    """Three medallions for the three sliders: a mirror for looks, a book for smarts, a clover for luck."""
    defs = lin("bg", [(0, "#e6e0ff"), (1, "#ffd1dc")])
    b = ['<rect width="96" height="160" rx="8" fill="url(#bg)"/>']
    b.append('<path d="M 48 20 L 48 140" stroke="#ffffff" stroke-width="3" stroke-dasharray="3 5"/>')
    for cy, col in ((28, "#ffe0ea"), (80, "#e0f2ff"), (132, "#e0ffe6")):
        b.append(f'<circle cx="48" cy="{cy}" r="23" fill="{col}" stroke="{PLUM}" stroke-width="1.8"/>')
    # looks: a hand mirror
    b.append('<g transform="rotate(-25 48 28)">'
             f'<rect x="45" y="34" width="6" height="16" rx="2" fill="{ROSE}" {outline(1.4)}/>'
             f'<ellipse cx="48" cy="24" rx="11" ry="13" fill="{ROSE}" {outline(1.6)}/>'
             f'<ellipse cx="48" cy="24" rx="8" ry="10" fill="#dff4ff"/>'
             '<path d="M 44 20 L 48 16 M 44 26 L 51 19" stroke="#ffffff" stroke-width="2" stroke-linecap="round"/>'
             '</g>')
    b.append(sparkle(63, 14, 5, fill=GOLD))
    # smarts: an open book
    b.append(f'<path d="M 48 88 C 40 82 32 82 28 84 L 28 70 C 34 68 42 68 48 74 Z" fill="#ffffff" {outline(1.6)}/>'
             f'<path d="M 48 88 C 56 82 64 82 68 84 L 68 70 C 62 68 54 68 48 74 Z" fill="#ffffff" {outline(1.6)}/>'
             f'<path d="M 48 74 L 48 88" {outline(1.4)}/>'
             '<path d="M 32 74 L 44 76 M 32 78 L 44 80 M 52 76 L 64 74 M 52 80 L 64 78" stroke="#8fa7c8" stroke-width="1.2"/>'
             f'<path d="M 28 84 L 28 88 Q 38 86 48 92 Q 58 86 68 88 L 68 84" fill="none" stroke="#3a86ff" stroke-width="2.2"/>')
    # luck: a four-leaf clover
    b.append(f'<path d="M 48 132 Q 52 142 58 146" fill="none" stroke="#2a7a3c" stroke-width="2.4" stroke-linecap="round"/>')
    for a in (45, 135, 225, 315):
        b.append(f'<g transform="rotate({a} 48 130)"><path d="{heart_path(48, 122, 13)}" fill="#3fbf5f" '
                 f'{outline(1.4)}/></g>')
    b.append(sparkle(64, 118, 5, fill=GOLD))
    return "setup_side.png", 96, 160, doc(96, 160, "".join(b), defs=defs)


# ---------------------------------------------------------------- the application icon

def app_icon():
    defs = lin("tile", [(0, "#ff9bb8"), (1, "#9d6bf0")], x1=0, y1=0, x2=1, y2=1)
    dh, hh = glossy_heart(128, 136, 170, "ih", lw=8)
    b = [f'<rect x="8" y="8" width="240" height="240" rx="52" fill="url(#tile)" stroke="{PLUM}" stroke-width="8"/>',
         '<path d="M 30 60 Q 40 24 90 22" fill="none" stroke="#ffffff" stroke-width="10" '
         'stroke-linecap="round" opacity="0.45"/>',
         hh,
         heart(196, 60, 40, fill="#ffffff", stroke=PLUM, sw=5),
         sparkle(60, 200, 16, fill="#ffffff")]
    return doc(256, 256, "".join(b), defs=defs + dh)


STILLS = [
    face_default, mode_phone, mode_gift, mode_date, mode_work, mode_shop, heart_segment,
    lambda: stat_face("stat_looks_a.png", False), lambda: stat_face("stat_looks_b.png", True),
    lambda: stat_bulb("stat_brains_a.png", False), lambda: stat_bulb("stat_brains_b.png", True),
    lambda: stat_clover("stat_luck_a.png", False), lambda: stat_clover("stat_luck_b.png", True),
    gameover, notice_cat, notice_found, notice_fine, about_main, about_logo, about_pointer,
    setup_banner, setup_side,
]


def write_all(outdir):
    """Writes NAME.svg for every still and a list 'stills.txt' of NAME WIDTH HEIGHT."""
    import os
    rows = []
    for make in STILLS:
        name, w, h, text = make()
        base = name[:-4]
        with open(os.path.join(outdir, base + ".svg"), "w", encoding="utf-8") as f:
            f.write(text)
        rows.append(f"{base} {w} {h}")
    with open(os.path.join(outdir, "amorra.svg"), "w", encoding="utf-8") as f:
        f.write(app_icon())
    with open(os.path.join(outdir, "stills.txt"), "w", encoding="utf-8") as f:
        f.write("\n".join(rows) + "\n")


if __name__ == "__main__":
    import sys
    write_all(sys.argv[1])
