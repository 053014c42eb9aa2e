"""A tiny synthesiser in plain Python: oscillators, noise, envelopes, filters, plucked
strings, bells and a formant voice. Signals are lists of floats at RATE samples a second;
every random choice comes from a seeded generator, so the same script makes the same sounds."""

import math
import random

RATE = 22050
TAU = 2 * math.pi


def n_of(seconds):
    return int(round(seconds * RATE))


def silence(seconds):
    return [0.0] * n_of(seconds)


def const_or(f, t):
    return f(t) if callable(f) else f


def osc(freq, seconds, shape="sine", phase=0.0):
    """freq is Hz or a function of time in seconds (for glides and vibrato)."""
    n = n_of(seconds)
    out = [0.0] * n
    ph = phase
    for i in range(n):
        t = i / RATE
        f = const_or(freq, t)
        ph += f / RATE
        ph -= math.floor(ph)
        if shape == "sine":
            v = math.sin(TAU * ph)
        elif shape == "saw":
            v = 2.0 * ph - 1.0
        elif shape == "square":
            v = 1.0 if ph < 0.5 else -1.0
        elif shape == "triangle":
            v = 4.0 * ph - 1.0 if ph < 0.5 else 3.0 - 4.0 * ph
        else:
            raise ValueError(shape)
        out[i] = v
    return out


def noise(seconds, seed, colour="white"):
    rng = random.Random(seed)
    n = n_of(seconds)
    if colour == "white":
        return [rng.uniform(-1.0, 1.0) for _ in range(n)]
    out = [0.0] * n
    if colour == "brown":
        v = 0.0
        for i in range(n):
            v = 0.98 * v + 0.2 * rng.uniform(-1.0, 1.0)
            out[i] = v
        return out
    if colour == "pink":
        b0 = b1 = b2 = 0.0
        for i in range(n):
            w = rng.uniform(-1.0, 1.0)
            b0 = 0.99765 * b0 + w * 0.0990460
            b1 = 0.96300 * b1 + w * 0.2965164
            b2 = 0.57000 * b2 + w * 1.0526913
            out[i] = (b0 + b1 + b2 + w * 0.1848) * 0.25
        return out
    raise ValueError(colour)


def env_exp(seconds, decay, attack=0.002):
    """A quick attack and an exponential decay (decay = time to fall to about 37%)."""
    n = n_of(seconds)
    a = max(1, n_of(attack))
    out = [0.0] * n
    for i in range(n):
        t = i / RATE
        out[i] = (i / a if i < a else 1.0) * math.exp(-max(0.0, t - attack) / decay)
    return out


def env_points(seconds, points):
    """Piecewise linear envelope through (time, level) points."""
    n = n_of(seconds)
    out = [0.0] * n
    pts = sorted(points)
    k = 0
    for i in range(n):
        t = i / RATE
        while k + 1 < len(pts) - 1 and t > pts[k + 1][0]:
            k += 1
        (t0, v0), (t1, v1) = pts[k], pts[min(k + 1, len(pts) - 1)]
        if t <= t0:
            out[i] = v0
        elif t >= t1:
            out[i] = v1
        else:
            out[i] = v0 + (v1 - v0) * (t - t0) / (t1 - t0)
    return out


def mul(a, b):
    n = min(len(a), len(b))
    return [a[i] * b[i] for i in range(n)]


def scale(a, g):
    return [x * g for x in a]


def add_into(dst, src, at=0.0, gain=1.0):
    """Mixes src into dst starting at time `at`, growing dst when needed."""
    start = n_of(at)
    need = start + len(src)
    if need > len(dst):
        dst.extend([0.0] * (need - len(dst)))
    for i, v in enumerate(src):
        dst[start + i] += v * gain
    return dst


def mix(*parts):
    """parts: (signal, at, gain) triples."""
    out = []
    for sig, at, gain in parts:
        add_into(out, sig, at, gain)
    return out


def tanh_drive(a, drive):
    return [math.tanh(x * drive) for x in a]


# ---------------------------------------------------------------- filters (RBJ biquads)

def biquad(x, kind, freq, q=0.707, gain_db=0.0):
    """freq may be a function of time for sweeps; coefficients are refreshed every 32 samples."""
    out = [0.0] * len(x)
    x1 = x2 = y1 = y2 = 0.0
    b0 = b1 = b2 = a1 = a2 = 0.0
    for i, v in enumerate(x):
        if i % 32 == 0:
            f = min(max(const_or(freq, i / RATE), 10.0), RATE * 0.45)
            w = TAU * f / RATE
            cw, sw = math.cos(w), math.sin(w)
            alpha = sw / (2 * q)
            if kind == "low":
                b0, b1, b2 = (1 - cw) / 2, 1 - cw, (1 - cw) / 2
                a0, a1, a2 = 1 + alpha, -2 * cw, 1 - alpha
            elif kind == "high":
                b0, b1, b2 = (1 + cw) / 2, -(1 + cw), (1 + cw) / 2
                a0, a1, a2 = 1 + alpha, -2 * cw, 1 - alpha
            elif kind == "band":
                b0, b1, b2 = alpha, 0.0, -alpha
                a0, a1, a2 = 1 + alpha, -2 * cw, 1 - alpha
            elif kind == "peak":
                A = 10 ** (gain_db / 40)
                b0, b1, b2 = 1 + alpha * A, -2 * cw, 1 - alpha * A
                a0, a1, a2 = 1 + alpha / A, -2 * cw, 1 - alpha / A
            else:
                raise ValueError(kind)
            b0, b1, b2, a1, a2 = b0 / a0, b1 / a0, b2 / a0, a1 / a0, a2 / a0
        y = b0 * v + b1 * x1 + b2 * x2 - a1 * y1 - a2 * y2
        x2, x1, y2, y1 = x1, v, y1, y
        out[i] = y
    return out


def lowpass(x, f, q=0.707):
    return biquad(x, "low", f, q)


def highpass(x, f, q=0.707):
    return biquad(x, "high", f, q)


def bandpass(x, f, q=1.0):
    return biquad(x, "band", f, q)


# ---------------------------------------------------------------- instruments

def tone(freq, seconds, shape="sine", decay=None, attack=0.005, release=0.05, vibrato=0.0, vib_rate=5.5):
    """A note with an attack, an optional exponential decay and a release at its end."""
    f = freq
    if vibrato:
        f = (lambda t, f0=freq: const_or(f0, t) * (1 + vibrato * math.sin(TAU * vib_rate * t)))
    s = osc(f, seconds, shape)
    n = len(s)
    a, r = max(1, n_of(attack)), max(1, n_of(release))
    for i in range(n):
        e = min(1.0, i / a) * min(1.0, (n - i) / r)
        if decay:
            e *= math.exp(-(i / RATE) / decay)
        s[i] *= e
    return s


def bell(freq, seconds, decay=0.8, partials=((1, 1.0), (2.0, 0.5), (3.0, 0.25), (4.2, 0.2), (5.4, 0.12)),
         seed=0):
    """An inharmonic struck tone: each partial decays faster the higher it is."""
    out = [0.0] * n_of(seconds)
    rng = random.Random(seed)
    for ratio, amp in partials:
        f = freq * ratio
        if f > RATE * 0.45:
            continue
        d = decay / (1 + 0.6 * (ratio - 1))
        ph = rng.random()
        for i in range(len(out)):
            t = i / RATE
            out[i] += amp * math.sin(TAU * (f * t + ph)) * math.exp(-t / d)
    return fade_ends(out, 0.002, 0.03)


def fade_ends(x, fade_in, fade_out):
    """Ramps both ends of a signal, so that cutting it off never clicks."""
    n = len(x)
    a, r = max(1, n_of(fade_in)), max(1, n_of(fade_out))
    for i in range(min(a, n)):
        x[i] *= i / a
    for i in range(min(r, n)):
        x[n - 1 - i] *= i / r
    return x


def pluck(freq, seconds, seed, brightness=0.5, damping=0.996):
    """Karplus-Strong plucked string."""
    rng = random.Random(seed)
    period = max(2, int(round(RATE / freq)))
    buf = [rng.uniform(-1, 1) for _ in range(period)]
    # a softer pick: smooth the initial burst
    for _ in range(int(3 * (1 - brightness))):
        buf = [(buf[i] + buf[i - 1]) * 0.5 for i in range(period)]
    out = [0.0] * n_of(seconds)
    idx = 0
    for i in range(len(out)):
        nxt = (idx + 1) % period
        v = buf[idx]
        out[i] = v
        buf[idx] = damping * 0.5 * (v + buf[nxt])
        idx = nxt
    return fade_ends(out, 0.0005, 0.03)


def kick(seconds=0.35, f0=150.0, f1=45.0):
    s = osc(lambda t: f1 + (f0 - f1) * math.exp(-t / 0.04), seconds)
    return mul(s, env_exp(seconds, 0.12, attack=0.001))


def snare(seed, seconds=0.2):
    body = mul(osc(190.0, seconds, "triangle"), env_exp(seconds, 0.05, 0.001))
    rattle = mul(highpass(noise(seconds, seed), 1500), env_exp(seconds, 0.07, 0.001))
    return [0.5 * a + 0.8 * b for a, b in zip(body, rattle)]


def hihat(seed, seconds=0.08, decay=0.025):
    return mul(highpass(noise(seconds, seed), 7000), env_exp(seconds, decay, 0.0005))


def clap(seed, seconds=0.05, centre=1500.0, decay=0.012):
    return mul(bandpass(noise(seconds, seed), centre, 1.2), env_exp(seconds, decay, 0.0008))


# ---------------------------------------------------------------- voice

VOWELS = {  # first three formants (Hz)
    "a": (800, 1250, 2600), "e": (500, 1900, 2600), "i": (320, 2400, 3000),
    "o": (500, 900, 2500), "u": (350, 800, 2300), "@": (550, 1500, 2500),
    "m": (250, 1100, 2300), "ae": (700, 1700, 2600),
}


def voice(seconds, pitch, vowel, amp=None, breath=0.05, seed=1, bw=(80, 110, 160), jitter=0.0, rough=0.0):
    """A formant voice. pitch, vowel and amp may be functions of time; vowel returns a key of
    VOWELS or a formant triple. breath mixes in aspiration noise (0 voiced .. 1 whispered)."""
    rng = random.Random(seed)
    n = n_of(seconds)
    src = [0.0] * n
    ph = 0.0
    jit = 0.0
    for i in range(n):
        t = i / RATE
        f = const_or(pitch, t) * (1 + jit)
        ph += f / RATE
        if ph >= 1.0:
            ph -= 1.0
            jit = jitter * rng.uniform(-1, 1)
        # a glottal pulse: a rounded rise and a sharp close
        g = (math.sin(math.pi * ph / 0.6) ** 2) if ph < 0.6 else 0.0
        g -= 0.35
        if rough:
            g *= 1 + rough * math.sin(TAU * 0.5 * f * t)
        b = const_or(breath, t)
        src[i] = (1 - b) * g + b * rng.uniform(-1, 1) * 0.9
    out = src
    for k in range(3):
        out = _resonate(out, lambda t, k=k: _formant(vowel, t)[k], bw[k])
    if isinstance(amp, list):
        out = [v * (amp[i] if i < len(amp) else 0.0) for i, v in enumerate(out)]
    elif amp is not None:
        out = [v * const_or(amp, i / RATE) for i, v in enumerate(out)]
    return out


def _formant(vowel, t):
    v = const_or(vowel, t)
    return VOWELS[v] if isinstance(v, str) else v


def _resonate(x, freq, bw):
    out = [0.0] * len(x)
    y1 = y2 = 0.0
    a = b = c = 0.0
    for i, v in enumerate(x):
        if i % 32 == 0:
            f = freq(i / RATE)
            c = -math.exp(-TAU * bw / RATE)
            b = 2 * math.exp(-math.pi * bw / RATE) * math.cos(TAU * f / RATE)
            a = 1 - b - c
        y = a * v + b * y1 + c * y2
        y2, y1 = y1, y
        out[i] = y
    return out


def lerp3(a, b, k):
    return tuple(x + (y - x) * k for x, y in zip(a, b))


def glide(points):
    """A function of time through (time, value) points, linear between them."""
    pts = sorted(points)

    def f(t):
        if t <= pts[0][0]:
            return pts[0][1]
        for (t0, v0), (t1, v1) in zip(pts, pts[1:]):
            if t <= t1:
                return v0 + (v1 - v0) * (t - t0) / (t1 - t0)
        return pts[-1][1]
    return f


def vowel_glide(points):
    """Formants moving between vowels: points are (time, vowel key)."""
    pts = [(t, VOWELS[v]) for t, v in points]

    def f(t):
        if t <= pts[0][0]:
            return pts[0][1]
        for (t0, v0), (t1, v1) in zip(pts, pts[1:]):
            if t <= t1:
                return lerp3(v0, v1, (t - t0) / (t1 - t0))
        return pts[-1][1]
    return f
