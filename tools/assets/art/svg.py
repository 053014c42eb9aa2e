"""Small helpers for writing SVG by hand from Python: the palette and a few shapes
that several pictures share (hearts, sparkles, gradients)."""

import math

# The game's palette: warm rose and coral for affection, the lavender and mint of the
# main screen's day and money labels, a deep plum for outlines instead of black.
PLUM = "#4a2340"
ROSE = "#e8466f"
ROSE_LIGHT = "#ff8fab"
ROSE_DARK = "#b0204a"
CORAL = "#ff7b5c"
LAVENDER = "#c0c0ff"
LAVENDER_DARK = "#8080d8"
MINT = "#c0ffc0"
MINT_DARK = "#3f9a5a"
CREAM = "#fff6ea"
GOLD = "#ffc933"
GOLD_DARK = "#c98a12"
SKY = "#8fd3ff"


def doc(width, height, body, view=None, defs=""):
    """A complete SVG document; view is the viewBox size when drawn at another scale."""
    vw, vh = view if view else (width, height)
    return (
        '<?xml version="1.0" encoding="UTF-8"?>\n'
        f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}" '
        f'viewBox="0 0 {vw} {vh}">\n'
        f"<defs>{defs}</defs>\n{body}\n</svg>\n"
    )


def lin(gid, stops, x1=0, y1=0, x2=0, y2=1):
    s = "".join(f'<stop offset="{o}" stop-color="{c}"{op(a)}/>' for o, c, *a in stops)
    return (f'<linearGradient id="{gid}" x1="{x1}" y1="{y1}" x2="{x2}" y2="{y2}">'
            f"{s}</linearGradient>")


def rad(gid, stops, cx=0.5, cy=0.5, r=0.5, fx=None, fy=None):
    s = "".join(f'<stop offset="{o}" stop-color="{c}"{op(a)}/>' for o, c, *a in stops)
    f = f' fx="{fx}" fy="{fy}"' if fx is not None else ""
    return f'<radialGradient id="{gid}" cx="{cx}" cy="{cy}" r="{r}"{f}>{s}</radialGradient>'


def op(a):
    return f' stop-opacity="{a[0]}"' if a else ""


def heart_path(cx, cy, size):
    """A plump heart whose width is size, centred on (cx, cy)."""
    s = size / 2.0
    def p(x, y):
        return f"{cx + x * s:.2f} {cy + y * s:.2f}"
    return (f"M {p(0, -0.45)} "
            f"C {p(0.05, -0.9)} {p(0.55, -1.05)} {p(0.85, -0.75)} "
            f"C {p(1.12, -0.46)} {p(1.0, 0.0)} {p(0.72, 0.3)} "
            f"C {p(0.5, 0.55)} {p(0.2, 0.75)} {p(0, 0.95)} "
            f"C {p(-0.2, 0.75)} {p(-0.5, 0.55)} {p(-0.72, 0.3)} "
            f"C {p(-1.0, 0.0)} {p(-1.12, -0.46)} {p(-0.85, -0.75)} "
            f"C {p(-0.55, -1.05)} {p(-0.05, -0.9)} {p(0, -0.45)} Z")


def heart(cx, cy, size, fill=ROSE, stroke=None, sw=1.0, extra=""):
    st = f' stroke="{stroke}" stroke-width="{sw}" stroke-linejoin="round"' if stroke else ""
    return f'<path d="{heart_path(cx, cy, size)}" fill="{fill}"{st} {extra}/>'


def sparkle(cx, cy, r, fill="#ffffff", opacity=1.0):
    """A four-pointed twinkle."""
    t = r * 0.22
    d = (f"M {cx} {cy - r} Q {cx + t} {cy - t} {cx + r} {cy} Q {cx + t} {cy + t} {cx} {cy + r} "
         f"Q {cx - t} {cy + t} {cx - r} {cy} Q {cx - t} {cy - t} {cx} {cy - r} Z")
    return f'<path d="{d}" fill="{fill}" opacity="{opacity:.3f}"/>'


def star_path(cx, cy, r_out, r_in, points=5, rot=-90):
    pts = []
    for i in range(points * 2):
        r = r_out if i % 2 == 0 else r_in
        a = math.radians(rot + i * 180.0 / points)
        pts.append(f"{cx + r * math.cos(a):.2f},{cy + r * math.sin(a):.2f}")
    return "M " + " L ".join(pts) + " Z"


def mix(c1, c2, t):
    """Blend two #rrggbb colours; t = 0 gives c1."""
    a = [int(c1[i:i + 2], 16) for i in (1, 3, 5)]
    b = [int(c2[i:i + 2], 16) for i in (1, 3, 5)]
    return "#" + "".join(f"{round(x + (y - x) * t):02x}" for x, y in zip(a, b))


def darker(c, t=0.3):
    return mix(c, "#000000", t)


def lighter(c, t=0.3):
    return mix(c, "#ffffff", t)
