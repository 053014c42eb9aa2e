"""Frames of the four looping animations. Each animation is one drawing with a time
parameter t in [0, 1); frame k of n is drawn at t = k / n, so the last frame leads
straight back into the first and the loop has no seam."""

import math
import os

from svg import (PLUM, ROSE, ROSE_LIGHT, ROSE_DARK, GOLD, GOLD_DARK, doc, lin, rad, heart,
                 heart_path, sparkle, star_path, darker, lighter)

BOLD = "DejaVu Sans, Nimbus Sans, sans-serif"


def ease(x):
    """0 -> 0, 1 -> 1, gentle at both ends."""
    x = min(max(x, 0.0), 1.0)
    return 0.5 - 0.5 * math.cos(math.pi * x)


def bump(t, a, b, c, d):
    """0 before a, rising to 1 by b, 1 until c, falling to 0 by d."""
    if t < a or t > d:
        return 0.0
    if t < b:
        return ease((t - a) / (b - a))
    if t <= c:
        return 1.0
    return 1.0 - ease((t - c) / (d - c))


# ---------------------------------------------------------------- couple_kiss.gif (160 x 120)

def _head(face_dir, skin, hair_back, hair_front, eyes_closed, mouth, blush, extra=""):
    """A head in three-quarter view at the origin, facing right when face_dir is 1."""
    line = darker(skin, 0.4)
    f = face_dir
    out = [hair_back,
           f'<ellipse cx="0" cy="0" rx="40" ry="46" fill="{skin}" stroke="{line}" stroke-width="2"/>',
           f'<ellipse cx="{-f * 34}" cy="6" rx="8" ry="11" fill="{skin}" stroke="{line}" stroke-width="2"/>']
    for ex in (f * 4, f * 26):
        if eyes_closed:
            out.append(f'<path d="M {ex - 7} 2 Q {ex} 8 {ex + 7} 2" fill="none" stroke="#2a1420" '
                       f'stroke-width="3" stroke-linecap="round"/>')
        else:
            out.append(f'<ellipse cx="{ex}" cy="0" rx="5.5" ry="7" fill="#2a1420"/>'
                       f'<circle cx="{ex - 1.5}" cy="-2.5" r="2" fill="#ffffff"/>')
    out.append(f'<path d="M {f * 38} 8 Q {f * 44} 14 {f * 37} 17" fill="{skin}" stroke="{line}" stroke-width="2" '
               f'stroke-linecap="round"/>')
    out.append(f'<ellipse cx="{f * 4 - f * 6}" cy="18" rx="8" ry="5" fill="#ff6f8f" opacity="{blush:.2f}"/>'
               f'<ellipse cx="{f * 30}" cy="18" rx="5" ry="4" fill="#ff6f8f" opacity="{blush:.2f}"/>')
    out.append(mouth)
    out.append(hair_front)
    out.append(extra)
    return "".join(out)


def couple_kiss(t):
    W, H = 320, 240
    defs = lin("bg", [(0, "#ffe3ee"), (1, "#ffc1d6")]) + rad("glow", [(0, "#ffffff", 0.8), (1, "#ffffff", 0)])
    out = [f'<rect width="{W}" height="{H}" fill="url(#bg)"/>']
    for i in range(10):
        # background hearts drifting upwards, each on its own phase
        ph = (t + i * 0.1) % 1.0
        x = 20 + (i * 67) % 290
        y = 250 - ph * 280
        out.append(heart(x + 8 * math.sin(2 * math.pi * (ph + i * 0.3)), y, 14 + (i % 3) * 5,
                         fill="#ffffff", extra=f'opacity="{0.5 * math.sin(math.pi * ph):.2f}"'))
    lean = bump(t, 0.05, 0.3, 0.62, 0.85)     # she leans in, holds the kiss, leans back
    kiss = bump(t, 0.28, 0.34, 0.6, 0.66)      # lips touching
    out.append(f'<ellipse cx="160" cy="120" rx="{70 + 40 * kiss:.1f}" ry="{60 + 40 * kiss:.1f}" fill="url(#glow)"/>')

    # him, on the left, facing right
    bskin, bhair = "#f4c7a5", "#5a3620"
    bx = 112 + 4 * lean
    him_hair_back = f'<path d="M -40 -6 C -44 -44 -10 -58 12 -54 C 34 -50 44 -30 40 -10 L 30 -20 L -30 -20 Z" fill="{bhair}"/>'
    him_hair_front = (f'<path d="M -40 -4 C -46 -40 -16 -60 10 -56 C 28 -54 44 -44 44 -24 '
                      f'C 34 -30 22 -28 14 -36 C 6 -24 -16 -20 -30 -24 C -34 -18 -36 -10 -40 -4 Z" '
                      f'fill="{bhair}" stroke="{darker(bhair, 0.4)}" stroke-width="2"/>'
                      f'<path d="M -20 -46 C -6 -54 12 -52 26 -44" fill="none" stroke="{lighter(bhair, 0.35)}" '
                      f'stroke-width="4" stroke-linecap="round" opacity="0.6"/>')
    smile = 'M 16 26 Q 26 34 34 24'
    him_mouth = f'<path d="{smile}" fill="none" stroke="#8a3a40" stroke-width="3" stroke-linecap="round"/>'
    out.append(f'<path d="M {bx - 70} 240 C {bx - 66} 200 {bx - 40} 186 {bx} 184 C {bx + 40} 186 {bx + 64} 200 '
               f'{bx + 66} 240 Z" fill="#4d7fd6" stroke="{PLUM}" stroke-width="2"/>'
               f'<path d="M {bx - 14} 184 L {bx} 204 L {bx + 14} 184" fill="#ffffff" stroke="{PLUM}" stroke-width="2"/>')
    out.append(f'<rect x="{bx - 12}" y="150" width="24" height="36" fill="{bskin}"/>')
    out.append(f'<g transform="translate({bx} 118) rotate({7 * lean:.2f})">'
               + _head(1, bskin, him_hair_back, him_hair_front, kiss > 0.5, him_mouth, 0.3 + 0.6 * kiss)
               + "</g>")

    # her, on the right, facing left, leaning in to kiss his cheek
    gskin, ghair = "#ffd9c2", "#a04a2a"
    gx = 216 - 32 * lean
    gy = 124 - 4 * lean
    her_hair_back = (f'<path d="M -44 0 C -50 -50 -10 -60 8 -58 C 40 -56 52 -30 48 10 C 46 40 52 60 50 76 '
                     f'Q 40 88 24 80 Q 0 90 -22 80 Q -34 84 -40 74 C -40 50 -42 30 -44 0 Z" fill="{ghair}" stroke="{darker(ghair, 0.4)}" stroke-width="2"/>')
    her_hair_front = (f'<path d="M 44 10 C 50 -40 20 -60 -4 -58 C -30 -56 -46 -40 -44 -10 '
                      f'C -30 -26 -6 -32 10 -44 C 20 -30 34 -20 44 10 Z" fill="{ghair}" '
                      f'stroke="{darker(ghair, 0.4)}" stroke-width="2"/>'
                      f'<path d="M -26 -44 C -10 -54 10 -54 24 -46" fill="none" stroke="{lighter(ghair, 0.35)}" '
                      f'stroke-width="4" stroke-linecap="round" opacity="0.6"/>'
                      f'<g transform="translate(26 -48) rotate(20)"><path d="M 0 0 C -14 -12 -18 6 -3 3 Z '
                      f'M 0 0 C 14 -12 18 6 3 3 Z" fill="{ROSE}" stroke="{PLUM}" stroke-width="1.6"/>'
                      f'<circle cx="0" cy="1" r="4" fill="{ROSE_DARK}"/></g>')
    if kiss > 0.3:
        her_mouth = (f'<path d="M -36 20 Q -30 14 -26 20 Q -30 26 -36 20 Z" fill="#e0406a" '
                     f'stroke="#8a2438" stroke-width="1.8"/>')
    else:
        her_mouth = ('<path d="M -34 24 Q -26 32 -16 26" fill="none" stroke="#c2406a" stroke-width="3" '
                     'stroke-linecap="round"/>')
    out.append(f'<path d="M {gx - 60} 240 C {gx - 56} 204 {gx - 34} 190 {gx} 188 C {gx + 34} 190 {gx + 58} 204 '
               f'{gx + 62} 240 Z" fill="{ROSE_LIGHT}" stroke="{PLUM}" stroke-width="2"/>'
               f'<path d="M {gx - 30} 192 Q {gx} 214 {gx + 30} 192" fill="none" stroke="#ffffff" stroke-width="3"/>')
    out.append(f'<rect x="{gx - 11}" y="{gy + 30}" width="22" height="36" fill="{gskin}"/>')
    out.append(f'<g transform="translate({gx:.1f} {gy:.1f}) rotate({-10 * lean:.2f})">'
               + _head(-1, gskin, her_hair_back, her_hair_front, lean > 0.5, her_mouth, 0.45 + 0.3 * kiss)
               + "</g>")

    # hearts bursting from the kiss, rising and fading
    burst = max(0.0, min(1.0, (t - 0.32) / 0.45))
    if 0 < burst < 1:
        for i, (dx, s) in enumerate([(-30, 18), (0, 28), (30, 20), (-14, 14), (18, 12)]):
            k = max(0.0, min(1.0, burst * 1.2 - i * 0.05))
            y = 110 - 90 * k
            op = math.sin(math.pi * k)
            out.append(heart(158 + dx * k * 1.4, y, s * (0.5 + 0.5 * k), fill=ROSE,
                             stroke="#ffffff", sw=2, extra=f'opacity="{op:.2f}"'))
    return doc(160, 120, "".join(out), view=(W, H), defs=defs)


# ---------------------------------------------------------------- hearts.gif (48 x 48)

def hearts(t):
    defs = rad("bg", [(0, "#fff0f5"), (1, "#ffc1d6")]) + rad("hg", [(0, "#ff9bb8"), (0.6, ROSE), (1, ROSE_DARK)],
                                                          cx=0.4, cy=0.35, r=0.75)
    # a heartbeat: two quick beats, then a rest
    beat = 0.16 * bump(t, 0.0, 0.08, 0.1, 0.2) + 0.12 * bump(t, 0.22, 0.3, 0.32, 0.42)
    s = 52 * (1 + beat)
    out = ['<rect width="96" height="96" fill="url(#bg)"/>']
    for i in range(4):
        a = 2 * math.pi * (t + i / 4.0)
        x, y = 48 + 36 * math.cos(a), 50 + 36 * math.sin(a)
        out.append(heart(x, y, 14, fill="#ffffff", stroke=ROSE, sw=2))
    out.append(f'<path d="{heart_path(48, 50, s)}" fill="url(#hg)" stroke="{PLUM}" stroke-width="3" '
               f'stroke-linejoin="round"/>')
    out.append(f'<ellipse cx="{48 - s * 0.22:.1f}" cy="{50 - s * 0.2:.1f}" rx="{s * 0.13:.1f}" ry="{s * 0.08:.1f}" '
               f'fill="#ffffff" opacity="0.8" transform="rotate(-35 {48 - s * 0.22:.1f} {50 - s * 0.2:.1f})"/>')
    tw = abs(math.sin(2 * math.pi * t))
    out.append(sparkle(70, 30, 4 + 6 * tw, fill="#ffffff", opacity=0.4 + 0.6 * tw))
    return doc(48, 48, "".join(out), view=(96, 96), defs=defs)


# ---------------------------------------------------------------- champ.gif (143 x 182)

def champ(t):
    W, H = 286, 364
    defs = rad("bg", [(0, "#fff4cc"), (1, "#ffb86b")], cy=0.42, r=0.7)
    defs += lin("gold", [(0, "#fff1a8"), (0.35, GOLD), (0.7, "#f0a81c"), (1, GOLD_DARK)], x2=1, y2=0)
    defs += lin("base", [(0, "#7a3a62"), (1, "#4a2340")])
    out = [f'<rect width="{W}" height="{H}" fill="url(#bg)"/>']
    # light rays turning slowly behind the cup (a quarter-period symmetry keeps the loop seamless)
    rays = "".join(f'<path d="M 143 150 L 500 {150 - 40} L 500 {150 + 40} Z" fill="#ffffff" opacity="0.3" '
                   f'transform="rotate({i * 30 + t * 30:.2f} 143 150)"/>' for i in range(12))
    out.append(rays)
    cup = ("M 70 50 L 216 50 C 216 120 196 170 160 186 L 154 220 L 132 220 L 126 186 "
           "C 90 170 70 120 70 50 Z")
    out.append(f'<clipPath id="cup"><path d="{cup}"/></clipPath>')
    # handles
    for tr in ("", 'transform="translate(286 0) scale(-1 1)"'):
        out.append(f'<path {tr} d="M 74 70 C 30 66 28 130 96 150" fill="none" stroke="{PLUM}" stroke-width="16" '
                   f'stroke-linecap="round"/>'
                   f'<path {tr} d="M 74 70 C 30 66 28 130 96 150" fill="none" stroke="url(#gold)" stroke-width="10" '
                   f'stroke-linecap="round"/>')
    out.append(f'<path d="{cup}" fill="url(#gold)" stroke="{PLUM}" stroke-width="4" stroke-linejoin="round"/>')
    out.append(f'<ellipse cx="143" cy="50" rx="73" ry="12" fill="{GOLD_DARK}" stroke="{PLUM}" stroke-width="4"/>')
    out.append(f'<ellipse cx="143" cy="52" rx="62" ry="7" fill="#a8700e"/>')
    # a heart on the cup and a shine sweeping across it
    out.append(heart(143, 110, 56, fill=ROSE, stroke=PLUM, sw=3))
    out.append('<ellipse cx="128" cy="97" rx="8" ry="5" fill="#ffffff" opacity="0.7" transform="rotate(-35 128 97)"/>')
    sweep = -80 + 420 * ease((t * 1.6) % 1.0) if t < 0.625 else 400
    out.append(f'<g clip-path="url(#cup)"><path d="M {sweep:.1f} 40 L {sweep + 30:.1f} 40 L {sweep - 40:.1f} 230 '
               f'L {sweep - 70:.1f} 230 Z" fill="#ffffff" opacity="0.6"/></g>')
    out.append(f'<path d="M 96 64 C 96 110 108 150 128 172" fill="none" stroke="#ffffff" stroke-width="6" '
               f'stroke-linecap="round" opacity="0.5"/>')
    # the stand and its plaque
    out.append(f'<rect x="104" y="218" width="78" height="18" rx="4" fill="url(#gold)" stroke="{PLUM}" stroke-width="4"/>')
    out.append(f'<path d="M 80 236 L 206 236 L 218 300 L 68 300 Z" fill="url(#base)" stroke="{PLUM}" '
               f'stroke-width="4" stroke-linejoin="round"/>')
    out.append(f'<rect x="98" y="250" width="90" height="34" rx="5" fill="url(#gold)" stroke="{PLUM}" stroke-width="3"/>')
    out.append(f'<text x="143" y="276" text-anchor="middle" font-family="{BOLD}" font-weight="bold" '
               f'font-size="24" fill="{PLUM}">No. 1</text>')
    # twinkles around it, each on its own beat
    for i, (x, y, r) in enumerate([(40, 40, 12), (250, 60, 14), (30, 200, 10), (256, 210, 12),
                                   (143, 16, 9), (60, 320, 9), (230, 320, 10)]):
        k = abs(math.sin(math.pi * (2 * t + i / 7.0)))
        out.append(sparkle(x, y, r * (0.4 + 0.8 * k), fill="#ffffff", opacity=0.3 + 0.7 * k))
    # confetti falling, wrapping round so that the loop closes
    colours = [ROSE, "#3a86ff", "#2ec4b6", GOLD, "#9d6bf0"]
    for i in range(14):
        x = (i * 53 + 17) % 280 + 3
        y = ((i * 97) % 364 + t * 364) % 364
        a = (i * 40 + t * 360 * (1 if i % 2 else -1)) % 360
        out.append(f'<rect x="{x - 4}" y="{y - 2:.1f}" width="8" height="4" fill="{colours[i % 5]}" '
                   f'transform="rotate({a:.1f} {x} {y:.1f})"/>')
    out.append(f'<text x="143" y="346" text-anchor="middle" font-family="{BOLD}" font-weight="bold" '
               f'font-size="22" fill="{PLUM}">SWEELA</text>')
    return doc(143, 182, "".join(out), view=(W, H), defs=defs)


# ---------------------------------------------------------------- champlbl.gif (150 x 39)
# The design's box is 160 pixels wide, but the Top 20 window ends 150
# pixels into it: the banner is drawn at what shows, so that the game never
# has to shrink it, nor keep shrunk copies of its frames.

def champlbl(t):
    W, H = 320, 84
    defs = lin("bg", [(0, "#fff4cc"), (1, "#ffe0a0")])
    defs += lin("rib", [(0, "#ff7aa2"), (1, "#c2185b")])
    defs += lin("txt", [(0, "#ffffff"), (1, "#ffe59a")])
    out = [f'<rect width="{W}" height="{H}" fill="url(#bg)"/>']
    # the ribbon with folded ends
    out.append(f'<path d="M 6 26 L 44 26 L 44 70 L 6 70 L 20 48 Z" fill="#a0154a" stroke="{PLUM}" stroke-width="3" stroke-linejoin="round"/>')
    out.append(f'<path d="M 314 26 L 276 26 L 276 70 L 314 70 L 300 48 Z" fill="#a0154a" stroke="{PLUM}" stroke-width="3" stroke-linejoin="round"/>')
    out.append(f'<rect x="30" y="12" width="260" height="52" rx="6" fill="url(#rib)" stroke="{PLUM}" stroke-width="3"/>')
    out.append('<rect x="36" y="17" width="248" height="8" rx="4" fill="#ffffff" opacity="0.3"/>')
    out.append('<clipPath id="band"><rect x="30" y="12" width="260" height="52" rx="6"/></clipPath>')
    sweep = -60 + 440 * (t * 1.4) if t < 1 / 1.4 else 420
    out.append(f'<g clip-path="url(#band)"><path d="M {sweep:.1f} 0 L {sweep + 24:.1f} 0 L {sweep - 6:.1f} 84 '
               f'L {sweep - 30:.1f} 84 Z" fill="#ffffff" opacity="0.45"/></g>')
    # each letter bounces in turn; advances are DejaVu Sans Bold's, so the word keeps its spacing
    word = "CHAMPION"
    adv = [0.734, 0.837, 0.774, 0.995, 0.733, 0.372, 0.850, 0.837]
    size, gap = 30, 2.5
    x = 160 - (sum(adv) * size + gap * (len(word) - 1)) / 2
    for i, ch in enumerate(word):
        dy = -7 * max(0.0, math.sin(2 * math.pi * (t - i / 16.0))) ** 2
        out.append(f'<text x="{x:.2f}" y="{50 + dy:.2f}" font-family="{BOLD}" font-weight="bold" '
                   f'font-size="{size}" fill="url(#txt)" stroke="{PLUM}" stroke-width="3" paint-order="stroke">{ch}</text>')
        x += adv[i] * size + gap
    for i, x in enumerate((20, 300)):
        k = abs(math.sin(math.pi * (2 * t + i * 0.5)))
        out.append(f'<path d="{star_path(x, 14, 8 + 4 * k, (8 + 4 * k) * 0.45)}" fill="{GOLD}" stroke="{PLUM}" '
                   f'stroke-width="1.5" stroke-linejoin="round"/>')
    return doc(150, 39, "".join(out), view=(W, W * 39 / 150), defs=defs)


# name, pixel size, number of frames, delay per frame in 1/100 s. Seven
# frames a second is enough for these small, slow loops and keeps an open
# window nearly free; the pictures that share a window share one delay and
# loops of whole multiples of each other, so they change together.
ANIMS = [
    ("couple_kiss", (160, 120), 16, 15, couple_kiss),
    ("hearts", (48, 48), 8, 15, hearts),
    ("champ", (143, 182), 12, 15, champ),
    ("champlbl", (150, 39), 12, 15, champlbl),
]


def write_all(outdir):
    rows = []
    for name, (w, h), n, delay, draw in ANIMS:
        d = os.path.join(outdir, name)
        os.makedirs(d, exist_ok=True)
        for k in range(n):
            with open(os.path.join(d, f"f{k:03d}.svg"), "w", encoding="utf-8") as f:
                f.write(draw(k / n))
        rows.append(f"{name} {w} {h} {n} {delay}")
    with open(os.path.join(outdir, "anims.txt"), "w", encoding="utf-8") as f:
        f.write("\n".join(rows) + "\n")


if __name__ == "__main__":
    import sys
    write_all(sys.argv[1])
