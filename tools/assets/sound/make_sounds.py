"""Makes every sound effect of the game. Each sound is synthesised in synth.py's plain
Python, or spoken by espeak-ng where a crowd of voices is wanted, then finished by sox:
room echo where it helps, the same loudness for the whole set (RMS near -18 dBFS, peaks
never above -3 dBFS), short fades at both ends so nothing clicks, 16-bit mono 22050 Hz.
Usage: make_sounds.py OUTDIR WORKDIR"""

import math
import os
import random
import re
import subprocess
import sys
import wave

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from synth import (RATE, TAU, add_into, bandpass, bell, biquad, clap, env_exp, env_points, fade_ends, glide,  # noqa: E402
                   hihat, highpass, kick, lowpass, mix, mul, n_of, noise, osc, pluck, scale, silence,
                   snare, tanh_drive, tone, voice, vowel_glide)

TARGET_RMS = -18.0
PEAK = -3.0

WORK = "."


def note(name):
    """Frequency of a note such as 'A4' or 'C#5'."""
    m = re.fullmatch(r"([A-G])(#|b)?(\d)", name)
    semis = {"C": -9, "D": -7, "E": -5, "F": -4, "G": -2, "A": 0, "B": 2}[m.group(1)]
    semis += {"#": 1, "b": -1, None: 0}[m.group(2)]
    return 440.0 * 2 ** ((semis + 12 * (int(m.group(3)) - 4)) / 12)


def speak(text, voice_name, speed, pitch, tag):
    """espeak-ng's voice as a list of floats."""
    path = os.path.join(WORK, f"speak-{tag}.wav")
    subprocess.run(["espeak-ng", "-v", voice_name, "-s", str(speed), "-p", str(pitch), "-w", path, text],
                   check=True)
    with wave.open(path, "rb") as w:
        assert w.getframerate() == RATE and w.getsampwidth() == 2 and w.getnchannels() == 1
        raw = w.readframes(w.getnframes())
    return [int.from_bytes(raw[i:i + 2], "little", signed=True) / 32768.0 for i in range(0, len(raw), 2)]


def babble(seconds, voices, tag, lp=1800.0):
    """A murmur of several people talking at once, too blurred for words to come through."""
    lines = ["so what did you think of the film last night", "and then she told me the whole story",
             "we should really try the fish next time", "I have not seen him since the summer",
             "are you going to the match on saturday", "that is exactly what I said to her",
             "the weather has been lovely this week", "oh I know I could not believe it either"]
    out = silence(seconds)
    for k in range(voices):
        v = ["en-us+f2", "en+m3", "en-us+f4", "en+m1", "en+f3", "en-us+m2"][k % 6]
        text = lines[k % len(lines)] + ", " + lines[(k + 3) % len(lines)]
        s = speak(text, v, 160 + 12 * (k % 4), 35 + 9 * (k % 5), f"{tag}{k}")
        s = s[n_of((k * 0.29) % 0.8):]
        add_into(out, s, at=(k * 0.13) % 0.5, gain=0.6 + 0.1 * (k % 3))
    out = out[:n_of(seconds)]
    return lowpass(highpass(out, 180), lp)


# ---------------------------------------------------------------- the sounds

def car():
    """An engine turning over and revving, then two toots of the horn."""
    dur = 1.9
    f = glide([(0, 30), (0.25, 34), (0.7, 62), (1.1, 48), (1.9, 44)])
    eng = osc(f, dur, "saw")
    puff = osc(lambda t: f(t) * 0.5, dur, "square")
    rumble = [0.7 * a + 0.3 * b for a, b in zip(eng, puff)]
    rumble = lowpass(rumble, 500, 1.5)
    rumble = add_into(rumble, lowpass(noise(dur, 11, "brown"), 300), 0, 0.5)
    rumble = mul(rumble, env_points(dur, [(0, 0), (0.08, 1), (1.2, 1), (1.9, 0.6)]))
    horn = []
    for at in (1.05, 1.38):
        h = [0.5 * a + 0.5 * b for a, b in zip(tone(370, 0.22, "square", release=0.03),
                                                 tone(466, 0.22, "square", release=0.03))]
        add_into(horn, lowpass(h, 2200), at, 0.55)
    return mix((rumble, 0, 1.0), (horn, 0, 1.0)), []


def laff():
    """A mocking 'ha ha ha ha' from a formant voice, each 'ha' a little lower."""
    out = []
    t = 0.0
    for k in range(6):
        p0 = 250 - 12 * k
        d = 0.17
        h = voice(0.05, p0, "a", amp=env_points(0.05, [(0, 0), (0.03, 1), (0.05, 0.6)]), breath=1.0, seed=20 + k)
        a = voice(d, glide([(0, p0 + 15), (d, p0 - 30)]), "a",
                  amp=lambda x, d=d: math.sin(math.pi * min(1.0, x / d)),
                  breath=0.15, seed=30 + k, jitter=0.02)
        add_into(out, scale(h, 0.5), t)
        add_into(out, a, t + 0.04, 1.0 - 0.08 * k)
        t += 0.235
    return out, ["pad", "0", "0.1", "reverb", "15"]


def money():
    """Coins poured out and settling."""
    rng = random.Random(7)
    out = silence(1.2)
    t = 0.0
    for _ in range(14):
        f = rng.uniform(2300, 3900)
        c = bell(f, 0.3, decay=rng.uniform(0.04, 0.1),
                 partials=((1, 1.0), (1.47, 0.6), (2.09, 0.5), (2.56, 0.3)), seed=rng.randint(0, 999))
        add_into(out, c, t, rng.uniform(0.4, 1.0))
        t += rng.uniform(0.025, 0.07)
    add_into(out, bell(2950, 0.8, decay=0.3, partials=((1, 1.0), (1.47, 0.5), (2.09, 0.4)), seed=3), 0.62, 0.9)
    return out, ["pad", "0", "0.05", "reverb", "20"]


def phonet():
    """The ring of her phone: the two-tone trill, twice."""
    out = []
    for at in (0.0, 0.62, 1.4):
        d = 0.42 if at < 1.3 else 0.4
        ring = [0.5 * a + 0.5 * b for a, b in zip(osc(400, d), osc(450, d))]
        trill = [0.55 + 0.45 * math.sin(TAU * 20 * i / RATE) for i in range(len(ring))]
        add_into(out, mul(mul(ring, trill), env_points(d, [(0, 0), (0.01, 1), (d - 0.02, 1), (d, 0)])), at)
    return out[:n_of(1.82)], []


def phoned():
    """The receiver put down, then the disconnect tone."""
    click = mul(bandpass(noise(0.06, 41), 900, 0.8), env_exp(0.06, 0.01, 0.0005))
    thump = mul(osc(glide([(0, 160), (0.08, 70)]), 0.1), env_exp(0.1, 0.03))
    out = mix((click, 0, 1.0), (thump, 0.005, 0.8))
    for k in range(3):
        b = [0.5 * x + 0.5 * y for x, y in zip(osc(480, 0.22), osc(620, 0.22))]
        add_into(out, mul(b, env_points(0.22, [(0, 0), (0.01, 1), (0.2, 1), (0.22, 0)])), 0.3 + 0.4 * k, 0.45)
    return out, []


def _sigh(pitch0, pitch1, seconds, seed, breathiness, vowel_to="@"):
    d = seconds
    inhale = mul(bandpass(noise(0.3, seed), glide([(0, 1200), (0.3, 2200)]), 1.2),
                 env_points(0.3, [(0, 0), (0.2, 0.5), (0.3, 0)]))
    ex = voice(d, glide([(0, pitch0), (d, pitch1)]), vowel_glide([(0, "a"), (d, vowel_to)]),
               amp=env_points(d, [(0, 0), (0.15, 1), (d * 0.55, 0.8), (d, 0)]),
               breath=glide([(0, breathiness), (d, 0.95)]), seed=seed + 1, jitter=0.03)
    return mix((inhale, 0, 0.3), (ex, 0.3, 1.0))


def sigh():
    """Her sigh: a short breath in, a long breathy 'haah' out."""
    return _sigh(240, 170, 1.0, 50, 0.75), ["pad", "0", "0.05", "reverb", "10"]


def sigh_m():
    """His sigh: lower, longer, sinking into silence."""
    return _sigh(120, 80, 1.3, 60, 0.65, "o"), ["pad", "0", "0.05", "reverb", "10"]


def doorbell():
    """Ding-dong."""
    p = ((1, 1.0), (2.0, 0.35), (3.0, 0.15), (4.16, 0.1))
    out = mix((bell(note("E5"), 1.0, decay=0.6, partials=p, seed=1), 0, 1.0),
              (bell(note("C5"), 1.3, decay=0.8, partials=p, seed=2), 0.5, 1.0))
    return out, ["pad", "0", "0.2", "reverb", "35"]


def movie1():
    """An epic orchestral hit with a timpani boom."""
    dur = 3.0
    chord = []
    for i, n in enumerate(["C2", "C3", "G3", "C4", "Eb4", "G4"]):
        s = mul(osc(note(n) * (1 + 0.003 * i), dur, "saw"), env_exp(dur, 0.9, 0.01))
        add_into(chord, s, 0, 0.3)
    chord = lowpass(chord, glide([(0, 4000), (1.5, 900), (3, 500)]))
    boom = mul(osc(glide([(0, 90), (0.4, 55)]), 1.5), env_exp(1.5, 0.45, 0.003))
    return mix((chord, 0, 1.0), (boom, 0, 1.2)), ["pad", "0", "0.5", "reverb", "60"]


def movie2():
    """Suspense: trembling strings swell, then a shrill sting."""
    dur = 2.4
    cl = []
    for n in ["E4", "F4", "Bb4", "B3"]:
        add_into(cl, osc(lambda t, f=note(n): f * (1 + 0.004 * math.sin(TAU * 5 * t)), dur, "saw"), 0, 0.25)
    trem = [0.5 + 0.5 * math.sin(TAU * 12 * i / RATE) for i in range(len(cl))]
    cl = mul(lowpass(cl, 2500), mul(trem, env_points(dur, [(0, 0), (2.2, 1), (2.4, 0)])))
    sting = []
    for n in ["E6", "F6", "Bb6"]:
        add_into(sting, mul(osc(note(n), 0.9, "saw"), env_exp(0.9, 0.35, 0.002)), 0, 0.3)
    sting = add_into(sting, mul(highpass(noise(0.4, 5), 2000), env_exp(0.4, 0.08)), 0, 0.5)
    return mix((cl, 0, 0.8), (lowpass(sting, 6000), 2.15, 1.0)), ["pad", "0", "0.4", "reverb", "50"]


def movie3():
    """Romance: a harp glissando into a warm chord."""
    out = []
    scale_notes = ["C4", "D4", "E4", "G4", "A4", "C5", "D5", "E5", "G5", "A5", "C6"]
    for i, n in enumerate(scale_notes):
        add_into(out, pluck(note(n), 1.4, seed=70 + i, brightness=0.3, damping=0.997), 0.07 * i, 0.5)
    pad = []
    for n in ["F3", "A3", "C4", "E4", "A4"]:
        add_into(pad, tone(note(n), 2.4, "triangle", attack=0.4, release=0.9, vibrato=0.003), 0, 0.22)
    return mix((out, 0, 1.0), (lowpass(pad, 1800), 0.8, 1.0)), ["pad", "0", "0.4", "reverb", "70"]


def movie4():
    """Slapstick: a slide whistle up and down, a boing and a honk."""
    whistle = tone(glide([(0, 500), (0.5, 1600), (0.9, 700)]), 0.9, "sine", vibrato=0.01, vib_rate=7)
    boing = mul(osc(lambda t: 180 * (1 + 0.3 * math.sin(TAU * 14 * t) * math.exp(-t / 0.3)), 0.7, "triangle"),
                env_exp(0.7, 0.25))
    honk = lowpass([0.5 * a + 0.5 * b for a, b in zip(tone(233, 0.3, "saw"), tone(277, 0.3, "saw"))], 1500)
    honk2 = lowpass([0.5 * a + 0.5 * b for a, b in zip(tone(233, 0.4, "saw"), tone(277, 0.4, "saw"))], 1500)
    return mix((whistle, 0, 0.8), (boing, 1.0, 1.0), (honk, 1.75, 0.6), (honk2, 2.1, 0.6)), []


def movie5():
    """Action: 'dun dun DUN' brass over war drums."""
    out = []
    for i, at in enumerate([0, 0.25, 0.5, 0.75, 1.0, 1.125, 1.25, 1.5]):
        add_into(out, mul(osc(glide([(0, 120), (0.2, 70)]), 0.4), env_exp(0.4, 0.15)), at, 0.8)
        add_into(out, snare(90 + i), at + 0.125, 0.25)
    for at, n, d in [(0.0, "D3", 0.2), (0.5, "D3", 0.2), (1.0, "F3", 0.2), (1.5, "D3", 1.2)]:
        br = []
        for m in (1.0, 1.5, 2.0):
            add_into(br, tone(note(n) * m, d, "saw", attack=0.02, release=0.15), 0, 0.3)
        add_into(out, lowpass(br, 1400), at, 0.8)
    return out, ["pad", "0", "0.5", "reverb", "40"]


def movie6():
    """Science fiction: laser zaps and a wavering theremin."""
    out = []
    for i, at in enumerate([0.0, 0.25, 0.45]):
        z = mul(osc(glide([(0, 2400 - 300 * i), (0.25, 300)]), 0.25, "square"), env_exp(0.25, 0.1))
        add_into(out, lowpass(z, 5000), at, 0.5)
    th = tone(glide([(0, note("E5")), (0.6, note("B4")), (1.2, note("G5")), (2.0, note("E5"))]), 2.0,
              "sine", attack=0.2, release=0.4, vibrato=0.015, vib_rate=6)
    return mix((out, 0, 1.0), (th, 0.8, 0.8)), ["pad", "0", "0.5", "reverb", "70"]


def movie7():
    """A bright fanfare: 'ta-ta-taaa!'."""
    out = []
    for at, n, d in [(0, "C4", 0.14), (0.16, "C4", 0.14), (0.32, "C4", 0.14), (0.48, "G4", 0.5),
                     (1.0, "E4", 0.14), (1.16, "G4", 0.14), (1.32, "C5", 1.1)]:
        br = []
        for m, g in ((1.0, 0.5), (2.0, 0.2), (1.5, 0.15)):
            add_into(br, tone(note(n) * m, d, "saw", attack=0.015, release=0.08, vibrato=0.004), 0, g)
        add_into(out, lowpass(br, 2500), at)
    add_into(out, mul(highpass(noise(1.2, 77), 5000), env_exp(1.2, 0.4)), 1.32, 0.2)
    return out, ["pad", "0", "0.4", "reverb", "45"]


def dinner():
    """A restaurant: a murmur of talk, cutlery and glasses, a soft piano."""
    dur = 3.4
    room = babble(dur, 6, "din", lp=1600)
    rng = random.Random(5)
    clinks = []
    for _ in range(7):
        at = rng.uniform(0.1, dur - 0.4)
        f = rng.uniform(2600, 4200)
        add_into(clinks, bell(f, 0.25, decay=0.05, partials=((1, 1), (2.3, 0.4), (3.7, 0.2)),
                              seed=rng.randint(0, 99)), at, rng.uniform(0.2, 0.45))
    piano = []
    for c, (at, chord) in enumerate([(0.2, ["D4", "F#4", "A4", "C#5"]), (1.6, ["B3", "D4", "F#4", "A4"])]):
        for k, n in enumerate(chord):
            add_into(piano, pluck(note(n), 1.6, seed=200 + 10 * c + k, brightness=0.2, damping=0.998),
                     at + 0.03 * k, 0.18)
    return mix((room, 0, 1.0), (clinks, 0, 0.8), (lowpass(piano, 2500), 0, 0.9)), \
        ["pad", "0", "0.3", "reverb", "50"]


def beach():
    """A wave rolling in and drawing back, and a gull."""
    dur = 3.6
    wav = noise(dur, 88, "pink")
    swell = env_points(dur, [(0, 0.25), (1.2, 1.0), (1.6, 0.85), (2.6, 0.45), (3.6, 0.3)])
    wav = biquad(wav, "low", lambda t: 500 + 2500 * swell[min(len(swell) - 1, n_of(t))], 0.6)
    wav = mul(wav, swell)
    gull = []
    for at in (0.5, 0.85, 2.3):
        g = voice(0.28, glide([(0, 1350), (0.08, 1500), (0.28, 1000)]), vowel_glide([(0, "i"), (0.28, "ae")]),
                  amp=env_points(0.28, [(0, 0), (0.03, 1), (0.2, 0.7), (0.28, 0)]), breath=0.1, seed=int(at * 10),
                  bw=(150, 200, 250))
        add_into(gull, g, at, 0.5)
    return mix((wav, 0, 1.0), (highpass(gull, 800), 0, 0.8)), ["pad", "0", "0.2", "reverb", "40"]


def bowling():
    """The ball rumbling down the lane, then a strike."""
    roll_d = 1.3
    roll = lowpass(noise(roll_d, 31, "brown"), 220)
    wob = [0.7 + 0.3 * math.sin(TAU * 5 * i / RATE) for i in range(len(roll))]
    roll = mul(mul(roll, wob), env_points(roll_d, [(0, 0), (0.2, 0.6), (1.25, 1.0), (1.3, 0.3)]))
    rng = random.Random(32)
    crash = mul(bandpass(noise(1.0, 33), 1500, 0.5), env_exp(1.0, 0.18, 0.001))
    pins = []
    for _ in range(16):
        at = rng.uniform(0, 0.45) ** 1.5
        f = rng.uniform(700, 2000)
        c = mul(bandpass(noise(0.08, rng.randint(0, 999)), f, 4), env_exp(0.08, 0.015, 0.0005))
        add_into(pins, c, at, rng.uniform(0.6, 1.0))
    thud = mul(osc(glide([(0, 110), (0.2, 60)]), 0.3), env_exp(0.3, 0.08))
    return mix((roll, 0, 1.0), (thud, roll_d, 0.8), (crash, roll_d, 0.5), (pins, roll_d, 1.0)), \
        ["pad", "0", "0.3", "reverb", "35"]


def carnival():
    """A fairground organ playing a waltz."""
    beat = 60 / 170
    melody = [("G4", 1), ("C5", 1), ("E5", 1), ("D5", 2), ("C5", 1), ("B4", 1), ("D5", 1), ("G5", 1),
              ("F5", 2), ("E5", 1)]
    out = []
    t = 0.0
    for n, beats in melody:
        d = beats * beat
        v = []
        for m, g in ((1, 0.5), (2, 0.25), (3, 0.12), (4, 0.06)):
            add_into(v, tone(note(n) * m, d * 0.95, "sine", attack=0.01, release=0.04, vibrato=0.006, vib_rate=6.5),
                     0, g)
        add_into(out, v, t, 0.8)
        t += d
    bars = [("C3", ["E4", "G4", "C5"]), ("G2", ["D4", "G4", "B4"]), ("G2", ["D4", "F4", "B4"]),
            ("C3", ["E4", "G4", "C5"])]
    acc = []
    for b, (bass, chord) in enumerate(bars):
        at = b * 3 * beat
        add_into(acc, tone(note(bass), beat * 0.8, "triangle", attack=0.005, release=0.05), at, 0.7)
        for k in (1, 2):
            for n in chord:
                add_into(acc, tone(note(n), beat * 0.4, "square", attack=0.005, release=0.03), at + k * beat, 0.07)
    return mix((out, 0, 1.0), (lowpass(acc, 2500), 0, 1.0))[:n_of(3.5)], ["pad", "0", "0.2", "reverb", "30"]


def play():
    """A theatre: the applause rising and dying away, and a 'bravo'."""
    dur = 3.4
    rng = random.Random(61)
    out = silence(dur)
    e = env_points(dur, [(0, 0.2), (0.5, 1.0), (2.2, 0.9), (3.4, 0.05)])
    t = 0.0
    while t < dur - 0.06:
        add_into(out, clap(rng.randint(0, 99999), centre=rng.uniform(900, 2600)), t,
                 rng.uniform(0.3, 1.0) * e[min(len(e) - 1, n_of(t))])
        t += rng.expovariate(140)
    bravo = speak("bravo!", "en+m3", 150, 60, "bravo")
    return mix((out, 0, 1.0), (lowpass(bravo, 3000), 0.7, 0.35)), ["pad", "0", "0.3", "reverb", "60"]


def club():
    """A nightclub: four to the floor, off-beat hats, a rolling bass."""
    bpm = 126
    beat = 60 / bpm
    out = []
    bars = 7
    for k in range(bars):
        at = k * beat
        add_into(out, kick(), at, 1.0)
        add_into(out, hihat(100 + k, 0.12, 0.04), at + beat / 2, 0.35)
        if k % 2:
            add_into(out, clap(200 + k, 0.12, 1200, 0.03), at, 0.6)
        for s in (0.5, 0.75):
            add_into(out, lowpass(tone(note("A1") * (1.5 if k % 4 == 3 else 1), beat * 0.22, "saw", release=0.02), 400),
                     at + s * beat, 0.55)
    stab = []
    for n in ["A3", "C4", "E4", "G4"]:
        add_into(stab, tone(note(n), 0.18, "saw", release=0.05), 0, 0.2)
    for at in (beat * 1.5, beat * 3.5, beat * 5.5):
        add_into(out, lowpass(stab, 2200), at, 0.6)
    return out, ["pad", "0", "0.2", "reverb", "25"]


def pub():
    """A pub: a louder crowd, a laugh, and two glasses clinking."""
    dur = 3.4
    crowd = babble(dur, 8, "pub", lp=2000)
    cheers = bell(3300, 0.6, decay=0.15, partials=((1, 1.0), (1.9, 0.5), (2.7, 0.35), (4.1, 0.2)), seed=8)
    cheers2 = bell(3050, 0.6, decay=0.15, partials=((1, 1.0), (1.9, 0.5), (2.7, 0.35), (4.1, 0.2)), seed=9)
    laugh, _ = laff()
    return mix((crowd, 0, 1.0), (cheers, 1.2, 0.5), (cheers2, 1.215, 0.4),
               (lowpass(laugh, 2500), 2.0, 0.25)), ["pad", "0", "0.2", "reverb", "40"]


def rock():
    """A distorted power-chord riff over a rock beat."""
    beat = 60 / 140
    riff = [("E2", 0, 0.5), ("E2", 0.5, 0.5), ("G2", 1.0, 0.5), ("A2", 1.5, 1.0),
            ("E2", 2.5, 0.5), ("E2", 3.0, 0.5), ("Bb2", 3.5, 0.5), ("A2", 4.0, 1.5)]
    gtr = []
    for i, (n, b, l) in enumerate(riff):
        d = l * beat
        ch = []
        for m, k in ((1.0, 0), (1.5, 1), (2.0, 2)):
            add_into(ch, pluck(note(n) * m, d, seed=300 + 3 * i + k, brightness=0.9, damping=0.999), 0.004 * k, 0.4)
        ch = mul(ch, env_points(d, [(0, 1), (d - 0.03, 1), (d, 0)]))
        add_into(gtr, ch, b * beat)
    gtr = lowpass(tanh_drive(gtr, 8.0), 3500)
    drums = []
    for k in range(11):
        at = k * beat / 2
        if k % 4 == 0:
            add_into(drums, kick(0.3, 120, 50), at, 0.9)
        if k % 4 == 2:
            add_into(drums, snare(400 + k), at, 0.7)
        add_into(drums, hihat(500 + k), at, 0.25)
    return mix((gtr, 0, 0.8), (drums, 0, 1.0)), ["pad", "0", "0.3", "reverb", "20"]


def birds():
    """Birdsong in the park."""
    dur = 3.2
    rng = random.Random(71)
    out = mul(lowpass(noise(dur, 72, "pink"), 900), env_points(dur, [(0, 0.3), (dur, 0.3)]))
    out = scale(out, 0.25)
    for bird, base in enumerate((3200, 4200, 2600)):
        t = 0.1 + 0.35 * bird
        while t < dur - 0.4:
            kind = rng.random()
            if kind < 0.5:
                # a quick upward chirp
                d = rng.uniform(0.05, 0.09)
                c = tone(glide([(0, base * 0.8), (d, base * 1.3)]), d, "sine", attack=0.005, release=0.02)
                add_into(out, c, t, 0.5)
                t += d + rng.uniform(0.03, 0.1)
            elif kind < 0.8:
                # a trill
                d = rng.uniform(0.25, 0.4)
                c = tone(lambda x, b=base: b * (1 + 0.12 * math.sin(TAU * 28 * x)), d, "sine", attack=0.02, release=0.05)
                add_into(out, c, t, 0.35)
                t += d + rng.uniform(0.1, 0.25)
            else:
                # a falling whistle
                d = 0.2
                c = tone(glide([(0, base * 1.4), (d, base * 0.9)]), d, "sine", attack=0.01, release=0.04)
                add_into(out, c, t, 0.45)
                t += d + rng.uniform(0.15, 0.3)
    return out, ["pad", "0", "0.1", "reverb", "30"]


def cashrg():
    """A cash register: keys, the drawer, the bell and some coins."""
    out = []
    for k, at in enumerate((0.0, 0.09, 0.18)):
        add_into(out, mul(bandpass(noise(0.04, 80 + k), 2500, 2), env_exp(0.04, 0.006, 0.0005)), at, 0.7)
    drawer = mul(bandpass(noise(0.3, 84), glide([(0, 700), (0.3, 300)]), 1.5),
                 env_points(0.3, [(0, 0), (0.05, 0.6), (0.25, 0.5), (0.3, 0)]))
    add_into(out, drawer, 0.3, 0.6)
    add_into(out, mul(osc(glide([(0, 140), (0.1, 70)]), 0.12), env_exp(0.12, 0.03)), 0.58, 0.9)
    add_into(out, bell(2100, 1.0, decay=0.45, partials=((1, 1.0), (2.4, 0.45), (3.9, 0.25), (5.6, 0.12)), seed=85),
             0.3, 0.9)
    rng = random.Random(86)
    for _ in range(6):
        add_into(out, bell(rng.uniform(2800, 3800), 0.25, decay=0.06, partials=((1, 1), (1.47, 0.6), (2.09, 0.4)),
                           seed=rng.randint(0, 99)), 0.62 + rng.uniform(0, 0.3), 0.3)
    return out, ["pad", "0", "0.1", "reverb", "20"]


def humpf():
    """'Hmpf!': a short nasal grunt pushed out through closed lips."""
    d = 0.32
    hum = voice(d, glide([(0, 150), (0.1, 165), (d, 105)]), "m",
                amp=env_points(d, [(0, 0), (0.03, 1), (0.22, 0.8), (d, 0)]), breath=0.2, seed=90, bw=(60, 150, 200))
    hum = lowpass(hum, 1200)
    pf = mul(lowpass(noise(0.12, 91), 1200), env_exp(0.12, 0.04, 0.003))
    return mix((hum, 0, 1.0), (pf, d - 0.04, 0.35)), []


def police():
    """A police siren, hi-lo."""
    dur = 2.4
    # hi-lo, with the quick slide between the two notes that a siren's horn makes
    f = lambda t: 840 + 120 * math.tanh(10 * math.sin(TAU * t / 0.6))  # noqa: E731
    s = osc(lambda t: f(t) * (1 + 0.004 * math.sin(TAU * 6 * t)), dur, "triangle")
    s2 = osc(lambda t: f(t) * 2, dur, "sine")
    sig = lowpass([0.8 * a + 0.2 * b for a, b in zip(s, s2)], 2500)
    return mul(sig, env_points(dur, [(0, 0.6), (1.0, 1.0), (dur - 0.05, 0.8), (dur, 0)])), ["pad", "0", "0.2", "reverb", "25"]


def found():
    """A happy jingle: a rising arpeggio and a sparkle."""
    out = []
    for k, n in enumerate(["C5", "E5", "G5", "C6"]):
        add_into(out, bell(note(n), 0.9, decay=0.35, partials=((1, 1.0), (2.0, 0.3), (3.0, 0.12)), seed=k),
                 0.09 * k, 0.6)
    for k, n in enumerate(["E6", "G6", "C7", "G6", "C7", "E7"]):
        add_into(out, bell(note(n), 0.3, decay=0.08, partials=((1, 1.0), (2.0, 0.2)), seed=10 + k), 0.45 + 0.05 * k, 0.25)
    chord = []
    for n in ["C5", "E5", "G5", "C6"]:
        add_into(chord, bell(note(n), 1.0, decay=0.45, partials=((1, 1.0), (2.0, 0.25)), seed=20), 0, 0.3)
    add_into(out, chord, 0.75)
    return out, ["pad", "0", "0.3", "reverb", "35"]


def cat():
    """A stepped-on cat: a harsh 'mrrREEOWW!' falling away."""
    d = 1.0
    pitch = glide([(0, 420), (0.12, 700), (0.35, 950), (0.6, 820), (1.0, 480)])
    vow = vowel_glide([(0, "m"), (0.1, "i"), (0.35, "e"), (0.65, "a"), (1.0, "u")])
    v = voice(d, pitch, vow, amp=env_points(d, [(0, 0), (0.08, 0.6), (0.3, 1.0), (0.75, 0.8), (1.0, 0)]),
              breath=0.12, seed=95, jitter=0.04, rough=0.4, bw=(120, 150, 200))
    screech = mul(bandpass(noise(d, 96), glide([(0, 2500), (0.4, 3500), (1.0, 2000)]), 2.0),
                  env_points(d, [(0, 0), (0.3, 0.3), (0.8, 0.1), (1.0, 0)]))
    # the bright, nasal edge of a yowl: the same pitch as a buzz, only its upper harmonics kept
    edge = mul(bandpass(osc(pitch, d, "saw"), 2600, 1.2), env_points(d, [(0, 0), (0.3, 1.0), (0.8, 0.6), (1.0, 0)]))
    return mix((v, 0, 1.0), (edge, 0, 0.5), (screech, 0, 0.3)), ["pad", "0", "0.1", "reverb", "15"]


def kiss():
    """'Mwah': a hum through closed lips, the smack as they part, a breath."""
    hum = voice(0.14, glide([(0, 220), (0.14, 240)]), "m", amp=env_points(0.14, [(0, 0), (0.04, 0.6), (0.14, 0.8)]),
                breath=0.3, seed=97, bw=(60, 150, 200))
    smack = mul(highpass(noise(0.02, 98), 2000), env_exp(0.02, 0.003, 0.0003))
    pop = mul(osc(glide([(0, 900), (0.03, 300)]), 0.04), env_exp(0.04, 0.008, 0.0005))
    ah = voice(0.22, glide([(0, 260), (0.22, 200)]), vowel_glide([(0, "u"), (0.05, "a"), (0.22, "a")]),
               amp=env_points(0.22, [(0, 0.8), (0.22, 0)]), breath=0.7, seed=99)
    return mix((lowpass(hum, 1500), 0, 0.5), (smack, 0.14, 0.9), (pop, 0.14, 0.8), (ah, 0.15, 0.5)), \
        ["pad", "0", "0.1", "reverb", "15"]


# name: (maker, longest allowed length in seconds)
SOUNDS = {
    "car": (car, 2.0), "laff": (laff, 2.0), "money": (money, 2.0), "phonet": (phonet, 2.0),
    "phoned": (phoned, 2.0), "sigh": (sigh, 2.0), "doorbell": (doorbell, 2.0),
    "movie1": (movie1, 3.9), "movie2": (movie2, 3.9), "movie3": (movie3, 3.9), "movie4": (movie4, 3.9),
    "movie5": (movie5, 3.9), "movie6": (movie6, 3.9), "movie7": (movie7, 3.9),
    "dinner": (dinner, 3.9), "beach": (beach, 3.9), "bowling": (bowling, 3.9), "carnival": (carnival, 3.9),
    "play": (play, 3.9), "club": (club, 3.9), "pub": (pub, 3.9), "rock": (rock, 3.9), "birds": (birds, 3.9),
    "cashrg": (cashrg, 2.0), "humpf": (humpf, 2.0), "police": (police, 2.5), "found": (found, 2.0),
    "cat": (cat, 2.0), "kiss": (kiss, 2.0), "sigh_m": (sigh_m, 2.0),
}


def write_wav(path, samples):
    samples = fade_ends(list(samples), 0.003, 0.02)
    peak = max(1e-9, max(abs(v) for v in samples))
    g = 0.5 / peak
    data = bytearray()
    for v in samples:
        data += int(round(v * g * 32767)).to_bytes(2, "little", signed=True)
    with wave.open(path, "wb") as w:
        w.setnchannels(1)
        w.setsampwidth(2)
        w.setframerate(RATE)
        w.writeframes(bytes(data))


def levels(path):
    r = subprocess.run(["sox", path, "-n", "stats"], capture_output=True, text=True, check=True)
    pk = float(re.search(r"Pk lev dB\s+(-?[\d.]+)", r.stderr).group(1))
    rms = float(re.search(r"RMS lev dB\s+(-?[\d.]+)", r.stderr).group(1))
    return pk, rms


def finish(name, samples, effects, longest, outdir):
    raw = os.path.join(WORK, f"{name}-raw.wav")
    fx = os.path.join(WORK, f"{name}-fx.wav")
    write_wav(raw, samples)
    subprocess.run(["sox", "-V1", "-R", "-D", "-G", raw, fx] + effects + ["trim", "0", str(longest)], check=True)
    pk, rms = levels(fx)
    if (TARGET_RMS - rms) - (PEAK - pk) > 2.0:
        # a few loud peaks would keep the rest too quiet: squeeze them first
        squeezed = os.path.join(WORK, f"{name}-sq.wav")
        subprocess.run(["sox", "-V1", "-R", "-D", "-G", fx, squeezed, "compand", "0.002,0.15",
                        "6:-60,-60,-30,-24,-12,-10,0,-6", "0", "-90", "0.005"], check=True)
        fx = squeezed
        pk, rms = levels(fx)
    gain = min(TARGET_RMS - rms, PEAK - pk)
    out = os.path.join(outdir, f"{name}.wav")
    subprocess.run(["sox", "-V1", "-R", "-D", fx, "-r", str(RATE), "-c", "1", "-b", "16", "-e", "signed-integer", out,
                    "gain", f"{gain:.2f}", "fade", "h", "0.005", "-0", "0.04"], check=True)
    pk2, rms2 = levels(out)
    print(f"{name:10s} peak {pk2:6.1f} dB  rms {rms2:6.1f} dB")


def main():
    global WORK
    outdir, WORK = sys.argv[1], sys.argv[2]
    only = sys.argv[3:]
    os.makedirs(outdir, exist_ok=True)
    for name, (make, longest) in SOUNDS.items():
        if only and name not in only:
            continue
        samples, effects = make()
        finish(name, samples, effects, longest, outdir)


if __name__ == "__main__":
    main()
