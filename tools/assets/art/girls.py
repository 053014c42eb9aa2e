"""Her eleven portraits. One drawing model (head, eyes, mouth, neck, clothes, hair) with
eleven hand-picked sets of features, so the girls share one style but none looks like
another. Drawn on a 210 x 226 canvas and rendered at half size (105 x 113)."""

from svg import (PLUM, doc, lin, rad, heart, sparkle, star_path, darker, lighter, mix)

W, H = 210, 226
MIRROR = 'transform="translate(210,0) scale(-1,1)"'

SKIN = {
    "porcelain": "#ffe3d3",
    "peach": "#f9cfb0",
    "honey": "#e8b48a",
    "olive": "#d9a777",
    "tan": "#c68858",
    "brown": "#9a6240",
    "deep": "#6e4129",
}

FACE = ("M 105 50 C 133 50 151 70 151 99 C 151 124 138 146 118 152 "
        "C 110 155 100 155 92 152 C 72 146 59 124 59 99 C 59 70 77 50 105 50 Z")


# ---------------------------------------------------------------- background

def background(g):
    c1, c2 = g["bg"]
    defs = lin("bg", [(0, lighter(c1, 0.25)), (1, c2)])
    out = [f'<rect width="{W}" height="{H}" fill="url(#bg)"/>']
    pat = g["pattern"]
    soft = lighter(c1, 0.55)
    if pat == "dots":
        for y in range(12, H, 28):
            for x in range(12 + (y // 28 % 2) * 14, W, 28):
                out.append(f'<circle cx="{x}" cy="{y}" r="4" fill="{soft}" opacity="0.55"/>')
    elif pat == "hearts":
        for y in range(16, H, 36):
            for x in range(16 + (y // 36 % 2) * 18, W, 36):
                out.append(heart(x, y, 11, fill=soft, extra='opacity="0.6"'))
    elif pat == "stripes":
        for x in range(-H, W, 22):
            out.append(f'<path d="M {x} {H} L {x + H} 0" stroke="{soft}" stroke-width="8" opacity="0.45"/>')
    elif pat == "rays":
        for i in range(16):
            a = i * 22.5
            out.append(f'<path d="M 105 110 L 400 95 L 400 125 Z" fill="{soft}" opacity="0.35" '
                       f'transform="rotate({a} 105 110)"/>')
    elif pat == "bokeh":
        spots = [(24, 30, 16), (180, 40, 22), (40, 150, 12), (190, 150, 14), (150, 20, 9),
                 (20, 90, 9), (175, 95, 8), (60, 20, 7)]
        for x, y, r in spots:
            out.append(f'<circle cx="{x}" cy="{y}" r="{r}" fill="#ffffff" opacity="0.28"/>')
    elif pat == "stars":
        for x, y, r in [(22, 24, 8), (186, 30, 10), (30, 120, 6), (182, 118, 7), (160, 70, 5),
                        (50, 70, 5), (100, 12, 5)]:
            out.append(f'<path d="{star_path(x, y, r, r * 0.45)}" fill="{soft}" opacity="0.8"/>')
    elif pat == "flowers":
        for x, y in [(22, 28), (186, 36), (26, 130), (188, 128), (150, 10), (60, 12)]:
            for k in range(5):
                out.append(f'<ellipse cx="{x}" cy="{y - 6}" rx="4" ry="6" fill="{soft}" opacity="0.75" '
                           f'transform="rotate({k * 72} {x} {y})"/>')
            out.append(f'<circle cx="{x}" cy="{y}" r="3" fill="{lighter(c2, 0.2)}"/>')
    elif pat == "checks":
        for y in range(0, H, 30):
            out.append(f'<rect x="0" y="{y}" width="{W}" height="12" fill="{soft}" opacity="0.3"/>')
        for x in range(0, W, 30):
            out.append(f'<rect x="{x}" y="0" width="12" height="{H}" fill="{soft}" opacity="0.3"/>')
    # a soft glow behind the head lifts her off the pattern
    defs += rad("glow", [(0, "#ffffff", 0.55), (1, "#ffffff", 0)], cx=0.5, cy=0.45, r=0.55)
    out.append(f'<ellipse cx="105" cy="105" rx="105" ry="112" fill="url(#glow)"/>')
    return defs, "".join(out)


# ---------------------------------------------------------------- body and clothes

BODY = "M 22 226 C 24 196 50 180 84 174 L 126 174 C 160 180 186 196 188 226 Z"


def body(g):
    skin = g["skin_c"]
    sh = darker(skin, 0.18)
    out = []
    defs = ""
    # neck with the shadow the chin throws on it
    out.append(f'<path d="M 90 138 L 90 182 L 120 182 L 120 138 Z" fill="{skin}"/>')
    out.append(f'<path d="M 90 140 L 120 140 L 120 158 Q 105 168 90 158 Z" fill="{sh}" opacity="0.7"/>')
    out.append(f'<path d="{BODY}" fill="{skin}" stroke="{darker(skin, 0.35)}" stroke-width="1.6"/>')
    c = g["top"]
    cd = darker(c, 0.22)
    defs += lin("cloth", [(0, lighter(c, 0.12)), (1, darker(c, 0.1))])
    kind = g["top_kind"]
    st = f'stroke="{darker(c, 0.45)}" stroke-width="1.8" stroke-linejoin="round"'
    if kind == "tee":
        out.append(f'<path d="M 22 226 C 24 196 50 180 80 175 Q 105 200 130 175 '
                   f'C 160 180 186 196 188 226 Z" fill="url(#cloth)" {st}/>')
        out.append(f'<path d="M 80 175 Q 105 200 130 175" fill="none" stroke="{cd}" stroke-width="4"/>')
    elif kind == "vneck":
        out.append(f'<path d="M 22 226 C 24 196 50 180 82 174 L 105 208 L 128 174 '
                   f'C 160 180 186 196 188 226 Z" fill="url(#cloth)" {st}/>')
        out.append(f'<path d="M 82 174 L 105 208 L 128 174" fill="none" stroke="{cd}" stroke-width="4"/>')
    elif kind == "collar":
        out.append(f'<path d="M 22 226 C 24 196 50 180 84 174 L 105 200 L 126 174 '
                   f'C 160 180 186 196 188 226 Z" fill="url(#cloth)" {st}/>')
        col = g.get("collar", "#ffffff")
        out.append(f'<path d="M 86 170 L 105 198 L 92 208 L 76 180 Z" fill="{col}" {st}/>')
        out.append(f'<path d="M 124 170 L 105 198 L 118 208 L 134 180 Z" fill="{col}" {st}/>')
        for y in (212, 224):
            out.append(f'<circle cx="105" cy="{y}" r="2.6" fill="{cd}"/>')
    elif kind == "offshoulder":
        out.append(f'<path d="M 20 226 C 22 212 34 202 50 200 Q 105 214 160 200 '
                   f'C 176 202 188 212 190 226 Z" fill="url(#cloth)" {st}/>')
        out.append(f'<path d="M 50 200 Q 105 214 160 200" fill="none" stroke="{lighter(c, 0.4)}" '
                   f'stroke-width="5" stroke-dasharray="6 4"/>')
    elif kind == "turtleneck":
        out.append(f'<path d="M 22 226 C 24 196 50 180 84 174 L 126 174 '
                   f'C 160 180 186 196 188 226 Z" fill="url(#cloth)" {st}/>')
        out.append(f'<path d="M 88 150 Q 105 158 122 150 L 124 180 Q 105 188 86 180 Z" '
                   f'fill="{lighter(c, 0.08)}" {st}/>')
        for y in (160, 168, 176):
            out.append(f'<path d="M 88 {y} Q 105 {y + 7} 122 {y}" fill="none" stroke="{cd}" stroke-width="1.5"/>')
        for x in range(40, 180, 14):
            out.append(f'<path d="M {x} 205 l 0 22" stroke="{cd}" stroke-width="1.4" opacity="0.5"/>')
    elif kind == "straps":
        out.append(f'<path d="M 28 226 C 30 214 40 206 56 204 Q 105 212 154 204 '
                   f'C 170 206 180 214 182 226 Z" fill="url(#cloth)" {st}/>')
        out.append(f'<path d="M 62 206 L 70 178" stroke="{c}" stroke-width="5" stroke-linecap="round"/>')
        out.append(f'<path d="M 148 206 L 140 178" stroke="{c}" stroke-width="5" stroke-linecap="round"/>')
        for x in range(60, 156, 16):
            out.append(f'<circle cx="{x}" cy="{216 + (x // 16 % 2) * 5}" r="2.5" fill="#ffffff" opacity="0.8"/>')
    elif kind == "cardigan":
        inner = g.get("inner", "#ffffff")
        out.append(f'<path d="M 70 176 Q 105 196 140 176 L 150 226 L 60 226 Z" fill="{inner}" {st}/>')
        out.append(f'<path d="M 22 226 C 24 196 50 180 80 175 L 96 226 Z" fill="url(#cloth)" {st}/>')
        out.append(f'<path d="M 188 226 C 186 196 160 180 130 175 L 114 226 Z" fill="url(#cloth)" {st}/>')
        for y in (204, 218):
            out.append(f'<circle cx="92" cy="{y}" r="2.6" fill="{darker(c, 0.4)}"/>')
    elif kind == "hoodie":
        out.append(f'<path d="M 22 226 C 24 196 50 180 84 174 L 126 174 '
                   f'C 160 180 186 196 188 226 Z" fill="url(#cloth)" {st}/>')
        out.append(f'<path d="M 70 172 Q 105 206 140 172 Q 150 190 130 196 Q 105 214 80 196 '
                   f'Q 60 190 70 172 Z" fill="{darker(c, 0.12)}" {st}/>')
        out.append(f'<path d="M 96 200 L 94 222 M 114 200 L 116 222" stroke="#ffffff" '
                   f'stroke-width="2.5" stroke-linecap="round"/>')
    # a simple pendant or a ribbon where asked for
    if g.get("necklace"):
        nc = g["necklace"]
        out.append(f'<path d="M 88 170 Q 105 190 122 170" fill="none" stroke="{nc}" stroke-width="1.6"/>')
        out.append(heart(105, 190, 9, fill=nc, stroke=darker(nc, 0.3), sw=1))
    return defs, "".join(out)


# ---------------------------------------------------------------- head

def ears(g):
    skin, line = g["skin_c"], darker(g["skin_c"], 0.35)
    out = []
    for tr in ("", MIRROR):
        out.append(f'<g {tr}><path d="M 62 96 C 50 90 48 112 58 118 C 61 120 63 118 63 114 Z" '
                   f'fill="{skin}" stroke="{line}" stroke-width="1.6"/>'
                   f'<path d="M 59 100 C 54 102 55 110 60 112" fill="none" stroke="{line}" stroke-width="1.2"/></g>')
    if g.get("earrings"):
        ec = g["earrings"]
        for x in (56, 154):
            if g.get("earring_kind") == "hoop":
                out.append(f'<circle cx="{x}" cy="126" r="6" fill="none" stroke="{ec}" stroke-width="2.2"/>')
            else:
                out.append(f'<circle cx="{x}" cy="121" r="3.2" fill="{ec}" stroke="{darker(ec, 0.3)}" stroke-width="0.8"/>')
    return "".join(out)


def face(g):
    skin = g["skin_c"]
    defs = rad("skin", [(0, lighter(skin, 0.12)), (0.75, skin), (1, darker(skin, 0.08))],
               cx=0.5, cy=0.42, r=0.6)
    out = [f'<path d="{FACE}" fill="url(#skin)" stroke="{darker(skin, 0.35)}" stroke-width="1.8"/>']
    # cheeks
    blush = g.get("blush", "#ff6f8f")
    for x in (80, 130):
        out.append(f'<ellipse cx="{x}" cy="124" rx="9" ry="5.5" fill="{blush}" opacity="0.35"/>')
    if g.get("freckles"):
        fc = darker(skin, 0.35)
        for x, y in [(76, 116), (82, 119), (88, 116), (79, 122), (122, 116), (128, 119), (134, 116), (131, 122)]:
            out.append(f'<circle cx="{x}" cy="{y}" r="1.2" fill="{fc}" opacity="0.8"/>')
    if g.get("beauty_mark"):
        out.append(f'<circle cx="126" cy="134" r="1.5" fill="{darker(skin, 0.5)}"/>')
    # nose: a soft hook and a light tip
    out.append(f'<path d="M 102 119 Q 105 123 109 119" fill="none" stroke="{darker(skin, 0.3)}" '
               f'stroke-width="1.8" stroke-linecap="round"/>')
    out.append(f'<circle cx="106" cy="115" r="2" fill="#ffffff" opacity="0.35"/>')
    return defs, "".join(out)


def eyes(g):
    iris = g["eyes"]
    lash = "#2a1420"
    brow = darker(g["hair_c"], 0.25) if g["hair_style"] != "hijab" else "#3a2418"
    defs = rad("iris", [(0, lighter(iris, 0.35)), (0.7, iris), (1, darker(iris, 0.4))], r=0.5)
    defs += ('<clipPath id="eyeclip"><path d="M 75 103 C 78 94 96 94 99 103 '
             'C 96 111 78 111 75 103 Z"/></clipPath>')
    shape = g.get("eye_shape", "round")
    one = []
    if shape == "closed":
        # eyes closed in a happy smile: two arcs with lashes
        one.append(f'<path d="M 76 104 Q 87 96 98 104" fill="none" stroke="{lash}" '
                   f'stroke-width="3" stroke-linecap="round"/>')
        one.append(f'<path d="M 78 101 l -4 -3 M 81 99 l -2 -4" stroke="{lash}" stroke-width="1.6" '
                   f'stroke-linecap="round"/>')
    else:
        one.append('<path d="M 75 103 C 78 94 96 94 99 103 C 96 111 78 111 75 103 Z" fill="#ffffff"/>')
        dx = g.get("look", 0)
        one.append(f'<g clip-path="url(#eyeclip)"><circle cx="{87 + dx}" cy="103" r="7" fill="url(#iris)"/>'
                   f'<circle cx="{87 + dx}" cy="103" r="3.3" fill="#1b0f14"/>'
                   f'<circle cx="{84.5 + dx}" cy="100.2" r="2.1" fill="#ffffff"/>'
                   f'<circle cx="{90 + dx}" cy="106" r="1" fill="#ffffff" opacity="0.8"/></g>')
        # upper lid with a flick of lashes at the outer corner
        one.append(f'<path d="M 74 103 C 78 93 96 93 100 102" fill="none" stroke="{lash}" '
                   f'stroke-width="3" stroke-linecap="round"/>')
        one.append(f'<path d="M 76 99 Q 72 96 70 96 M 78 96.5 Q 75 92.5 73 92" fill="none" stroke="{lash}" '
                   f'stroke-width="1.8" stroke-linecap="round"/>')
        one.append(f'<path d="M 79 108.5 Q 87 111 96 107.5" fill="none" stroke="{darker(g["skin_c"], 0.3)}" '
                   f'stroke-width="1" opacity="0.7"/>')
    lift = g.get("brow_lift", 0)
    one.append(f'<path d="M 74 {88 - lift} Q 86 {80 - lift} 98 {86 - lift}" fill="none" stroke="{brow}" '
               f'stroke-width="2.6" stroke-linecap="round"/>')
    left = "".join(one)
    # the right eye is the left one mirrored; its iris looks the other way unless told
    out = f"<g>{left}</g><g {MIRROR}>{left}</g>"
    if g.get("glasses"):
        gc = g["glasses"]
        out += (f'<g fill="#ffffff" fill-opacity="0.18" stroke="{gc}" stroke-width="3">'
                f'<rect x="70" y="91" width="33" height="24" rx="9"/>'
                f'<rect x="107" y="91" width="33" height="24" rx="9"/></g>'
                f'<path d="M 103 100 Q 105 97 107 100" fill="none" stroke="{gc}" stroke-width="2.6"/>'
                f'<path d="M 70 100 L 61 98 M 140 100 L 149 98" stroke="{gc}" stroke-width="2.6"/>')
    return defs, out


def mouth(g):
    lip = g.get("lips", "#d9506e")
    kind = g.get("mouth", "smile")
    line = darker(lip, 0.35)
    if kind == "smile":
        return (f'<path d="M 93 133 Q 105 143 117 133" fill="none" stroke="{line}" '
                f'stroke-width="2.6" stroke-linecap="round"/>'
                f'<path d="M 91 132 Q 93 134 95 133 M 115 133 Q 117 134 119 132" stroke="{line}" '
                f'stroke-width="1.5" fill="none" stroke-linecap="round"/>')
    if kind == "grin":
        return (f'<path d="M 92 131 Q 105 134 118 131 Q 115 145 105 145 Q 95 145 92 131 Z" '
                f'fill="#8a2438" stroke="{line}" stroke-width="1.6" stroke-linejoin="round"/>'
                f'<path d="M 94 132.5 Q 105 135 116 132.5 L 115 136 Q 105 138 95 136 Z" fill="#ffffff"/>'
                f'<path d="M 98 142 Q 105 138 112 142 Q 105 145 98 142 Z" fill="#ef7b8e"/>')
    if kind == "lips":
        return (f'<path d="M 94 134 Q 99 130 105 132 Q 111 130 116 134 Q 111 141 105 141 '
                f'Q 99 141 94 134 Z" fill="{lip}" stroke="{line}" stroke-width="1.2"/>'
                f'<path d="M 95 134 Q 105 136 115 134" fill="none" stroke="{line}" stroke-width="1.3"/>'
                f'<ellipse cx="108" cy="138" rx="3" ry="1.2" fill="#ffffff" opacity="0.5"/>')
    if kind == "open":
        return (f'<path d="M 95 132 Q 105 131 115 132 Q 113 144 105 144 Q 97 144 95 132 Z" '
                f'fill="#8a2438" stroke="{line}" stroke-width="1.6"/>'
                f'<path d="M 99 141 Q 105 137 111 141 Q 105 144 99 141 Z" fill="#ef7b8e"/>')
    if kind == "smirk":
        return (f'<path d="M 95 135 Q 106 141 118 130" fill="none" stroke="{line}" '
                f'stroke-width="2.6" stroke-linecap="round"/>')
    raise ValueError(kind)


# ---------------------------------------------------------------- hair

def hair_layers(g):
    """(behind the head, in front of the face, over the shoulders) for her hair style."""
    c = g["hair_c"]
    style = g["hair_style"]
    dk, lt = darker(c, 0.3), lighter(c, 0.3)
    fill = "url(#hair)"
    st = f'stroke="{darker(c, 0.45)}" stroke-width="1.8" stroke-linejoin="round"'
    back, front, over = [], [], []

    def shine(d, w=5, o=0.45):
        return f'<path d="{d}" fill="none" stroke="{lt}" stroke-width="{w}" stroke-linecap="round" opacity="{o}"/>'

    def strand(d, w=1.4):
        return f'<path d="{d}" fill="none" stroke="{dk}" stroke-width="{w}" stroke-linecap="round" opacity="0.8"/>'

    if style == "long":
        back.append(f'<path d="M 52 96 C 48 48 76 26 105 26 C 134 26 162 48 158 96 '
                    f'C 158 140 166 180 172 214 L 38 214 C 44 180 52 140 52 96 Z" fill="{fill}" {st}/>')
        lock = ('M 105 34 C 78 34 60 54 58 84 C 56 112 60 140 54 170 C 50 190 44 204 40 214 '
                'C 56 216 64 206 68 194 C 76 168 72 138 70 112 C 68 88 80 56 105 40 Z')
        for tr in ("", MIRROR):
            front.append(f'<g {tr}><path d="{lock}" fill="{fill}" {st}/>'
                         + strand("M 64 110 C 64 140 62 170 54 200")
                         + shine("M 92 40 C 76 48 66 62 64 80") + "</g>")
    elif style == "bob":
        back.append(f'<path d="M 50 100 C 44 46 76 24 105 24 C 134 24 166 46 160 100 '
                    f'C 160 126 164 140 168 150 C 150 158 130 152 126 146 L 84 146 '
                    f'C 80 152 60 158 42 150 C 46 140 50 126 50 100 Z" fill="{fill}" {st}/>')
        # a full fringe cut in soft scallops
        scallops = "".join(f"Q {146 - 10.25 * i - 5.1:.1f} {91 if i % 2 else 88} {146 - 10.25 * (i + 1):.1f} 82 "
                           for i in range(8))
        front.append(f'<path d="M 56 94 C 52 50 78 32 105 32 C 132 32 158 50 154 94 '
                     f'C 151 88 149 85 146 82 {scallops}C 61 85 58 90 56 94 Z" fill="{fill}" {st}/>')
        front.append(strand("M 80 60 C 78 70 78 76 78 82") + strand("M 105 58 C 104 70 104 76 104 84")
                     + strand("M 130 60 C 132 70 132 76 132 82"))
        for tr in ("", MIRROR):
            front.append(f'<g {tr}><path d="M 56 88 C 52 110 54 132 44 150 C 56 156 66 150 70 144 '
                         f'C 66 124 64 104 66 84 Z" fill="{fill}" {st}/>'
                         + strand("M 58 108 C 58 124 55 136 50 146") + "</g>")
        front.append(shine("M 70 50 C 84 38 120 36 140 50", w=6))
    elif style == "ponytail":
        back.append(f'<path d="M 150 60 C 186 60 196 100 188 140 C 184 170 196 190 200 204 '
                    f'C 178 204 166 180 166 150 C 166 120 172 96 150 84 Z" fill="{fill}" {st}/>')
        back.append(strand("M 176 100 C 182 130 176 160 188 192"))
        back.append(f'<path d="M 54 96 C 50 48 78 28 105 28 C 134 28 160 48 156 96 Z" fill="{fill}" {st}/>')
        front.append(f'<path d="M 56 98 C 52 50 80 30 108 30 C 136 30 158 50 154 94 '
                     f'C 146 80 140 66 128 58 C 112 74 86 82 66 80 C 62 86 58 92 56 98 Z" fill="{fill}" {st}/>')
        front.append(strand("M 128 58 C 120 48 104 44 90 46"))
        front.append(shine("M 74 48 C 88 38 110 36 126 42", w=6))
        front.append(f'<circle cx="154" cy="76" r="7" fill="{g.get("tie", "#ff5c8a")}" stroke="{PLUM}" stroke-width="1.2"/>')
    elif style == "curly":
        blobs = [(105, 40, 30), (74, 50, 26), (136, 50, 26), (56, 78, 22), (154, 78, 22),
                 (50, 108, 20), (160, 108, 20), (52, 136, 18), (158, 136, 18), (90, 30, 20),
                 (122, 30, 20), (60, 158, 14), (150, 158, 14)]
        back.append(f'<g fill="{fill}" {st}>' + "".join(
            f'<circle cx="{x}" cy="{y}" r="{r}"/>' for x, y, r in blobs) + "</g>")
        back.append(f'<g fill="{fill}">' + "".join(
            f'<circle cx="{x}" cy="{y}" r="{r - 1.5}"/>' for x, y, r in blobs) + "</g>")
        for x, y in [(80, 44), (118, 36), (140, 60), (58, 96), (152, 112), (66, 140), (100, 26)]:
            back.append(f'<path d="M {x - 6} {y} q 6 -8 12 0" fill="none" stroke="{lt}" stroke-width="2.4" '
                        f'opacity="0.6" stroke-linecap="round"/>')
        curls = [(70, 70, 12), (86, 62, 12), (104, 60, 12), (122, 62, 12), (140, 70, 12)]
        front.append(f'<g fill="{fill}" {st}>' + "".join(
            f'<circle cx="{x}" cy="{y}" r="{r}"/>' for x, y, r in curls) + "</g>")
        front.append(f'<g fill="{fill}">' + "".join(
            f'<circle cx="{x}" cy="{y - 2}" r="{r - 1.5}"/>' for x, y, r in curls) + "</g>")
        for x, y, _ in curls:
            front.append(f'<path d="M {x - 5} {y + 2} q 5 -7 10 0" fill="none" stroke="{lt}" '
                         f'stroke-width="2" opacity="0.6" stroke-linecap="round"/>')
    elif style == "bun":
        back.append(f'<circle cx="105" cy="26" r="20" fill="{fill}" {st}/>')
        back.append(strand("M 92 20 C 100 12 112 14 118 24") + strand("M 90 30 C 100 38 114 36 120 28"))
        back.append(shine("M 94 14 C 100 10 108 10 113 13", w=4))
        back.append(f'<path d="M 54 100 C 50 50 78 34 105 34 C 132 34 160 50 156 100 Z" fill="{fill}" {st}/>')
        # hair combed smoothly back from a soft hairline, a loose strand at each temple
        front.append(f'<path d="M 56 100 C 52 56 78 38 105 38 C 132 38 158 56 154 100 '
                     f'C 152 86 146 74 136 68 C 124 62 116 66 105 64 C 94 66 86 62 74 68 '
                     f'C 64 74 58 86 56 100 Z" fill="{fill}" {st}/>')
        front.append(strand("M 70 76 C 76 56 92 46 104 44") + strand("M 140 76 C 134 56 118 46 106 44")
                     + strand("M 86 66 C 90 54 98 48 104 46"))
        front.append(f'<path d="M 62 84 C 56 104 64 118 58 132" fill="none" stroke="url(#hair)" '
                     f'stroke-width="4" stroke-linecap="round"/>')
        front.append(f'<path d="M 148 84 C 154 104 146 118 152 132" fill="none" stroke="url(#hair)" '
                     f'stroke-width="4" stroke-linecap="round"/>')
        front.append(shine("M 116 46 C 128 48 138 56 144 66", w=5))
        band = g.get("tie", "#ffd23f")
        front.append(f'<path d="M 90 40 Q 105 32 120 40" fill="none" stroke="{band}" stroke-width="5" stroke-linecap="round"/>')
    elif style == "pigtails":
        for tr in ("", MIRROR):
            back.append(f'<g {tr}><path d="M 58 78 C 30 80 18 110 22 140 C 24 160 16 176 12 186 '
                        f'C 34 186 44 164 44 140 C 44 118 52 100 64 96 Z" fill="{fill}" {st}/>'
                        + strand("M 36 100 C 30 120 34 150 22 178") + "</g>")
        back.append(f'<path d="M 54 98 C 50 48 78 28 105 28 C 132 28 160 48 156 98 Z" fill="{fill}" {st}/>')
        front.append(f'<path d="M 56 96 C 52 50 80 32 105 32 C 130 32 158 50 154 96 '
                     f'C 150 84 146 76 140 72 C 132 80 120 82 110 70 C 100 82 84 84 72 74 '
                     f'C 64 80 58 88 56 96 Z" fill="{fill}" {st}/>')
        front.append(shine("M 72 50 C 86 40 120 38 138 50", w=6))
        bob = g.get("tie", "#ff5c8a")
        for x in (56, 154):
            front.append(f'<circle cx="{x}" cy="84" r="7" fill="{bob}" stroke="{PLUM}" stroke-width="1.2"/>'
                         f'<circle cx="{x - 2}" cy="82" r="2" fill="#ffffff" opacity="0.7"/>')
    elif style == "wavy":
        back.append(f'<path d="M 50 96 C 44 46 76 24 108 24 C 140 24 168 48 160 98 '
                    f'C 156 124 172 140 166 160 C 160 180 176 196 170 214 L 40 214 '
                    f'C 34 196 50 180 44 160 C 38 140 54 124 50 96 Z" fill="{fill}" {st}/>')
        front.append(f'<path d="M 56 100 C 50 52 80 30 110 30 C 140 30 160 52 156 96 '
                     f'C 150 74 132 58 118 50 C 112 66 90 84 62 90 Z" fill="{fill}" {st}/>')
        front.append(f'<path d="M 156 92 C 162 112 150 128 156 148 C 162 168 150 186 156 206 '
                     f'C 146 206 140 194 142 180 C 144 160 136 146 140 128 C 143 114 142 100 146 90 Z" '
                     f'fill="{fill}" {st}/>')
        front.append(strand("M 150 110 C 146 126 154 142 148 160 C 144 176 150 188 150 200"))
        front.append(shine("M 84 44 C 100 36 124 36 140 48", w=6))
        front.append(strand("M 118 50 C 104 58 86 70 70 80"))
    elif style == "pixie":
        back.append(f'<path d="M 54 100 C 48 48 78 26 106 26 C 136 26 162 48 156 100 '
                    f'C 152 108 150 112 148 116 L 62 116 C 60 110 56 106 54 100 Z" fill="{fill}" {st}/>')
        # a long side-swept fringe from a right parting, cut in points over the left brow
        front.append(f'<path d="M 56 104 C 50 54 80 28 110 28 C 140 28 160 52 154 98 '
                     f'C 152 88 150 80 144 70 C 142 76 140 80 136 82 C 134 74 132 68 128 62 '
                     f'C 112 72 94 80 84 94 L 82 84 L 74 98 L 72 88 L 62 102 Z" fill="{fill}" {st}/>')
        front.append(strand("M 128 62 C 112 52 92 50 76 60") + strand("M 124 66 C 108 74 96 82 88 92"))
        front.append(shine("M 72 58 C 84 42 112 36 134 44", w=6))
        for tr in ("", MIRROR):
            front.append(f'<path {tr} d="M 56 96 L 60 120 L 64 110 L 67 116 L 66 94 Z" fill="{fill}" {st}/>')
    elif style == "braid":
        back.append(f'<path d="M 52 96 C 48 48 76 26 105 26 C 134 26 162 48 158 96 Z" fill="{fill}" {st}/>')
        front.append(f'<path d="M 56 98 C 52 52 80 32 106 32 C 134 32 158 52 154 96 '
                     f'C 148 78 138 66 124 60 C 108 68 82 78 60 84 Z" fill="{fill}" {st}/>')
        front.append(shine("M 72 50 C 86 40 114 38 134 48", w=6))
        front.append(strand("M 124 60 C 108 52 92 52 78 58"))
        # a braid over her left shoulder (our right), drawn as overlapping lobes
        lobes = [(150, 120), (154, 136), (156, 152), (156, 168), (154, 184), (150, 199)]
        over.append(f'<path d="M 146 92 C 156 100 158 112 152 120" fill="{fill}" {st}/>')
        for i, (x, y) in enumerate(lobes):
            rot = 25 if i % 2 else -25
            over.append(f'<ellipse cx="{x}" cy="{y}" rx="11" ry="10" fill="{fill}" {st} '
                        f'transform="rotate({rot} {x} {y})"/>')
            over.append(f'<path d="M {x - 6} {y - 2} Q {x} {y + 4} {x + 6} {y - 2}" fill="none" '
                        f'stroke="{lt}" stroke-width="1.8" opacity="0.6"/>')
        over.append(f'<path d="M 144 208 L 148 222 M 150 208 L 152 224 M 156 208 L 158 222" '
                    f'stroke="{c}" stroke-width="3" stroke-linecap="round"/>')
        over.append(f'<rect x="140" y="202" width="20" height="8" rx="3" fill="{g.get("tie", "#5ec8ff")}" '
                    f'stroke="{PLUM}" stroke-width="1.2"/>')
    elif style == "hijab":
        sc = g["hair_c"]
        back.append(f'<path d="M 40 214 C 36 170 40 130 44 96 C 46 46 76 20 105 20 C 134 20 164 46 166 96 '
                    f'C 170 130 174 170 170 214 Z" fill="{fill}" {st}/>')
        front.append(f'<path d="M 105 26 C 76 26 54 50 54 92 C 54 126 68 150 88 162 '
                     f'C 96 166 114 166 122 162 C 142 150 156 126 156 92 C 156 50 134 26 105 26 Z '
                     f'M 105 52 C 128 52 146 70 146 98 C 146 124 134 146 116 151 C 109 153 101 153 94 151 '
                     f'C 76 146 64 124 64 98 C 64 70 82 52 105 52 Z" fill="{fill}" fill-rule="evenodd" {st}/>')
        front.append(f'<path d="M 60 70 C 70 46 90 36 110 36" fill="none" stroke="{lighter(sc, 0.3)}" '
                     f'stroke-width="5" opacity="0.55" stroke-linecap="round"/>')
        over.append(f'<path d="M 88 162 C 70 176 60 196 62 214 L 96 214 C 92 196 100 178 116 164 Z" '
                    f'fill="{fill}" {st}/>')
        over.append(f'<path d="M 72 196 C 76 184 86 174 98 168" fill="none" stroke="{darker(sc, 0.25)}" '
                    f'stroke-width="1.6"/>')
        over.append(f'<circle cx="66" cy="90" r="3.4" fill="#fff3b0" stroke="{PLUM}" stroke-width="1"/>')
    elif style == "puffs":
        for x in (68, 142):
            back.append(f'<circle cx="{x}" cy="36" r="26" fill="{fill}" {st}/>')
            for dx, dy in [(-10, -8), (6, -12), (10, 6), (-8, 10)]:
                back.append(f'<path d="M {x + dx - 5} {36 + dy} q 5 -6 10 0" fill="none" stroke="{lt}" '
                            f'stroke-width="2" opacity="0.55" stroke-linecap="round"/>')
        back.append(f'<path d="M 54 100 C 50 52 78 36 105 36 C 132 36 160 52 156 100 Z" fill="{fill}" {st}/>')
        front.append(f'<path d="M 56 100 C 52 56 80 40 105 40 C 130 40 158 56 154 100 '
                     f'C 150 82 140 68 124 64 Q 105 60 86 64 C 70 68 60 82 56 100 Z" fill="{fill}" {st}/>')
        front.append(f'<path d="M 70 60 C 84 50 126 50 140 60" fill="none" stroke="{g.get("tie", "#ffd23f")}" '
                     f'stroke-width="5" stroke-linecap="round"/>')
        front.append(strand("M 105 42 L 105 62", w=1.6))
    else:
        raise ValueError(style)
    return "".join(back), "".join(front), "".join(over)


def accessories(g):
    out = []
    acc = g.get("accessory")
    if acc == "bow":
        c = g.get("acc_c", "#ff4f7b")
        out.append(f'<g transform="translate(136 42) rotate(18)">'
                   f'<path d="M 0 0 C -18 -16 -24 8 -4 4 Z M 0 0 C 18 -16 24 8 4 4 Z" fill="{c}" '
                   f'stroke="{PLUM}" stroke-width="1.4" stroke-linejoin="round"/>'
                   f'<circle cx="0" cy="1" r="4.5" fill="{darker(c, 0.15)}" stroke="{PLUM}" stroke-width="1.2"/></g>')
    elif acc == "flower":
        c = g.get("acc_c", "#ff8fb8")
        x, y = 68, 58
        petals = "".join(f'<ellipse cx="{x}" cy="{y - 7}" rx="5" ry="7.5" fill="{c}" stroke="{PLUM}" '
                         f'stroke-width="1" transform="rotate({k * 72} {x} {y})"/>' for k in range(5))
        out.append(petals + f'<circle cx="{x}" cy="{y}" r="4" fill="#ffd23f" stroke="{PLUM}" stroke-width="1"/>')
    elif acc == "headband":
        c = g.get("acc_c", "#7fd1ff")
        out.append(f'<path d="M 58 78 C 64 46 86 36 105 36 C 124 36 146 46 152 78" fill="none" '
                   f'stroke="{PLUM}" stroke-width="9" stroke-linecap="round"/>'
                   f'<path d="M 58 78 C 64 46 86 36 105 36 C 124 36 146 46 152 78" fill="none" '
                   f'stroke="{c}" stroke-width="6.5" stroke-linecap="round"/>')
    elif acc == "clip":
        c = g.get("acc_c", "#ffd23f")
        out.append(f'<path d="{star_path(80, 64, 8, 3.6)}" fill="{c}" stroke="{PLUM}" stroke-width="1.2" '
                   f'stroke-linejoin="round"/>')
    elif acc == "sunnies":
        out.append('<g transform="translate(105 46)"><rect x="-34" y="-8" width="28" height="14" rx="6" '
                   f'fill="#3a2a48" stroke="{PLUM}" stroke-width="1.4"/>'
                   f'<rect x="6" y="-8" width="28" height="14" rx="6" fill="#3a2a48" stroke="{PLUM}" stroke-width="1.4"/>'
                   f'<path d="M -6 -2 Q 0 -6 6 -2" fill="none" stroke="{PLUM}" stroke-width="2"/>'
                   f'<path d="M -28 -4 l 8 0 M 12 -4 l 8 0" stroke="#ffffff" stroke-width="2" opacity="0.6"/></g>')
    return "".join(out)


def portrait(g):
    g = dict(g)
    g["skin_c"] = SKIN[g["skin"]]
    c = g["hair_c"]
    defs = lin("hair", [(0, lighter(c, 0.12)), (0.6, c), (1, darker(c, 0.18))])
    d1, bg = background(g)
    d2, bod = body(g)
    d3, fac = face(g)
    d4, eye = eyes(g)
    back, front, over = hair_layers(g)
    body_svg = (bg + back + bod + ears(g) + fac + eye + mouth(g) + front + over + accessories(g)
                + f'<rect x="1" y="1" width="{W - 2}" height="{H - 2}" rx="6" fill="none" '
                  f'stroke="#ffffff" stroke-width="2" opacity="0.7"/>')
    return doc(105, 113, body_svg, view=(W, H), defs=defs + d1 + d2 + d3 + d4)


GIRLS = [
    dict(skin="peach", hair_style="long", hair_c="#8a4b22", eyes="#3f8fd8", bg=("#ffb3c7", "#ff7aa2"),
         pattern="hearts", top_kind="tee", top="#ffffff", necklace="#e8466f", mouth="grin",
         earrings="#ffd23f", accessory="clip", acc_c="#ffd23f"),
    dict(skin="porcelain", hair_style="bob", hair_c="#2b1d1a", eyes="#4e7a3a", bg=("#bfe6ff", "#7db8f0"),
         pattern="dots", top_kind="collar", top="#e8466f", collar="#ffffff", mouth="lips",
         lips="#d43a5e", beauty_mark=True),
    dict(skin="tan", hair_style="ponytail", hair_c="#3b2417", eyes="#6b3f1f", bg=("#fff0a8", "#ffc857"),
         pattern="rays", top_kind="vneck", top="#2ec4b6", mouth="grin", tie="#ff5c8a",
         earrings="#ffd23f", earring_kind="hoop"),
    dict(skin="deep", hair_style="curly", hair_c="#1e1212", eyes="#5a3218", bg=("#d9c2ff", "#9d7bf0"),
         pattern="stars", top_kind="offshoulder", top="#ff9f1c", mouth="smile", lips="#b5395b",
         earrings="#ffd23f", earring_kind="hoop", blush="#ff5a7a"),
    dict(skin="porcelain", hair_style="bun", hair_c="#f2c35b", eyes="#3a7bd5", bg=("#c8f7dc", "#7fd6a4"),
         pattern="flowers", top_kind="cardigan", top="#ff8fab", inner="#ffffff", mouth="open",
         freckles=True, tie="#ff5c8a", eye_shape="round"),
    dict(skin="honey", hair_style="pigtails", hair_c="#b5532b", eyes="#2f8f5b", bg=("#ffd0a8", "#ff9a6b"),
         pattern="checks", top_kind="tee", top="#5ec8ff", mouth="grin", freckles=True, tie="#ffd23f"),
    dict(skin="olive", hair_style="wavy", hair_c="#4a2a1a", eyes="#7a4a22", bg=("#ffc2e2", "#e57ac0"),
         pattern="bokeh", top_kind="straps", top="#7b2cbf", mouth="lips", lips="#c2185b",
         earrings="#ffffff", accessory="flower", acc_c="#ff8fb8"),
    dict(skin="peach", hair_style="pixie", hair_c="#c43a6b", eyes="#6a4fc8", bg=("#b9f3f0", "#5fc9c3"),
         pattern="stripes", top_kind="hoodie", top="#ffd23f", mouth="smirk", lips="#c2486a",
         glasses="#4a2340", earrings="#5ec8ff"),
    dict(skin="brown", hair_style="braid", hair_c="#2a1812", eyes="#4a2c16", bg=("#ffe08a", "#f4a259"),
         pattern="dots", top_kind="turtleneck", top="#3a86ff", mouth="grin", tie="#ff5c8a",
         earrings="#ff5c8a"),
    dict(skin="honey", hair_style="hijab", hair_c="#2a9d8f", eyes="#5b3a1e", bg=("#ffe4ec", "#ffb3c6"),
         pattern="flowers", top_kind="collar", top="#264653", collar="#e9c46a", mouth="smile",
         lips="#c94f6d", eye_shape="closed"),
    dict(skin="tan", hair_style="puffs", hair_c="#1f1410", eyes="#3c2414", bg=("#a8e6ff", "#6c8cff"),
         pattern="bokeh", top_kind="vneck", top="#ff4f7b", mouth="open", tie="#ffd23f",
         accessory="sunnies", earrings="#ffd23f", necklace="#ffd23f"),
]


def write_all(outdir):
    import os
    for i, g in enumerate(GIRLS, start=1):
        with open(os.path.join(outdir, f"girl{i}.svg"), "w", encoding="utf-8") as f:
            f.write(portrait(g))


if __name__ == "__main__":
    import sys
    write_all(sys.argv[1])
